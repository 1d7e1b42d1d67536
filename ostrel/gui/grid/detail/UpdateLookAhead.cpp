#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/UpdateLookAhead.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// Where an object keeps what is sorted and filtered by nobody knows; most are not larger.
constexpr std::size_t kObjectBytes = 128;

UpdateRecord const* RecordAhead(std::size_t distance, UINT message)
{
    MSG ahead;
    bool const isUpdate = Platform::LookAtPosted(distance, ahead) && ahead.message == message && ahead.wParam == 0;
    return isUpdate ? reinterpret_cast<UpdateRecord const*>(ahead.lParam) : nullptr;
}

Common::CDataObject const* ObjectAhead(std::size_t distance, UINT message)
{
    UpdateRecord const* const record = RecordAhead(distance, message);
    return record != nullptr ? record->object : nullptr;
}

void Fetch(void const* address, std::size_t bytes) noexcept
{
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t offset = 0; offset < bytes; offset += kCacheLine)
    {
        __builtin_prefetch(static_cast<std::byte const*>(address) + offset);
    }
}
} // namespace

void UpdateLookAhead::Step(UINT message)
{
    if (m_step++ % kGroup == 0)
    {
        LookAhead(message);
    }
}

// What a stage reads was fetched by another one a group of updates ago.
void UpdateLookAhead::LookAhead(UINT message)
{
    MSG last;
    if (!Platform::LookAtPosted(kGroup, last))
    {
        m_found.fill(nullptr);
        m_fetched.fill(nullptr);
        return;
    }
    FetchBranches();
    FetchLeaves();
    m_fetched = m_found;
    FindRows(message);
    std::array<Common::CDataObject const*, kGroup> objects{};
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        objects[i] = ObjectAhead(3 * kGroup + i, message);
    }
    ObjectRegistry::Instance().FetchSlots(objects);
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        __builtin_prefetch(RecordAhead(4 * kGroup + i, message));
    }
}

// What is summed up above a leaf to get a row's number.
void UpdateLookAhead::FetchBranches() const noexcept
{
    constexpr std::size_t kRowsOffset =
        sizeof(SequenceNode) + kInnerCapacity * (2 * sizeof(void*) + sizeof(std::uint64_t));
    for (CGridItem const* const row : m_fetched)
    {
        if (row == nullptr || !ItemPool::IsLive(row) || row->Parent() == nullptr)
        {
            continue;
        }
        SequenceNode const& leaf = *ChildSequence::PlaceOf(*row).leaf;
        if (leaf.m_parent != nullptr)
        {
            Fetch(leaf.m_parent, sizeof(SequenceNode));
            Fetch(reinterpret_cast<std::byte const*>(leaf.m_parent) + kRowsOffset,
                  leaf.m_slot * sizeof(std::uint32_t) + 1);
        }
    }
}

void UpdateLookAhead::FetchLeaves() const noexcept
{
    for (CGridItem const* const row : m_found)
    {
        if (row == nullptr || !ItemPool::IsLive(row))
        {
            continue;
        }
        row->Updates().Fetch();
        ChildSequence::Fetch(*row);
        GridArea const* const area = GridArea::Of(*row);
        if (area != nullptr && (area->IsSorted() || area->Core().Sorting().HasFilter()))
        {
            Fetch(row->Object(), kObjectBytes);
        }
    }
}

void UpdateLookAhead::FindRows(UINT message)
{
    std::array<Common::CDataObject const*, kGroup> objects{};
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        objects[i] = ObjectAhead(2 * kGroup + i, message);
    }
    ObjectRegistry::Instance().FindFirstRows(objects, m_found);
    for (CGridItem const* const row : m_found)
    {
        Fetch(row, sizeof(CGridItem));
    }
}
} // namespace Ostrel::GUI::Detail
