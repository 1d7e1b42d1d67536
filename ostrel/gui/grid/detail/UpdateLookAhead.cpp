#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/Prefetch.h>
#include <ostrel/gui/grid/detail/UpdateLookAhead.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// Where an object keeps what is sorted and filtered by nobody knows; most are not larger.
constexpr std::size_t kObjectBytes = 128;
// So many rows, with their leaves and their objects, lie in a cache anyway.
constexpr std::size_t kRowsInCache = 4096;

Common::CDataObject const* ObjectOf(Platform::PostedMessage const& posted, UINT message) noexcept
{
    bool const isUpdate = posted.message == message && posted.wParam == 0 && posted.lParam != 0;
    return isUpdate ? UpdateCargo(posted.lParam).Object() : nullptr;
}
} // namespace

CGridItem* UpdateLookAhead::Step(UINT message, Common::CDataObject const* object)
{
    if (m_step % kGroup == 0)
    {
        LookAhead(message);
    }
    Found const& found = At(0);
    ++m_step;
    bool const isRight = found.object == object && found.changes == ObjectRegistry::Instance().Changes();
    return isRight ? found.row : nullptr;
}

// The message that is being handled is the update at distance 0: the first one behind it is at distance 1. What a stage
// reads was fetched by another one a group of updates ago.
void UpdateLookAhead::LookAhead(UINT message)
{
    std::size_t const farAhead = 2 * kGroup;
    std::span<Platform::PostedMessage const> posted = Platform::PostedBehind(0);
    bool const fetches = posted.size() > farAhead && ItemPool::LiveCount() > kRowsInCache;
    std::size_t const distance = fetches ? farAhead : 0;
    posted = posted.subspan(distance);
    if (posted.empty())
    {
        return;
    }
    auto const objectsOfGroup = [&](std::size_t group)
    {
        Objects objects{};
        for (std::size_t i = 0; i < kGroup && group * kGroup + i < posted.size(); ++i)
        {
            objects[i] = ObjectOf(posted[group * kGroup + i], message);
        }
        return objects;
    };
    if (fetches)
    {
        FetchBranches(1);
        FetchLeaves(1 + kGroup);
        ObjectRegistry::Instance().FetchRows(objectsOfGroup(1));
        ObjectRegistry::Instance().FetchSlots(objectsOfGroup(2));
    }
    FindRows(objectsOfGroup(0), 1 + distance);
}

void UpdateLookAhead::FindRows(Objects const& objects, std::size_t distance)
{
    std::array<CGridItem*, kGroup> rows{};
    std::uint64_t const changes = ObjectRegistry::Instance().FindOnlyRows(objects, rows);
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        At(distance + i) = {objects[i], rows[i], changes};
    }
}

void UpdateLookAhead::FetchLeaves(std::size_t distance) const noexcept
{
    std::uint64_t const changes = ObjectRegistry::Instance().Changes();
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        Found const& found = At(distance + i);
        if (found.row == nullptr || (found.changes != changes && !ItemPool::IsLive(found.row)))
        {
            continue;
        }
        CGridItem const& row = *found.row;
        row.Updates().Fetch();
        ChildSequence::Fetch(row);
        GridArea const* const area = GridArea::Of(row);
        if (area != nullptr && (area->IsSorted() || area->Core().Sorting().HasFilter()))
        {
            Prefetch(row.Object(), kObjectBytes);
        }
    }
}

// What is summed up above a leaf to get a row's number.
void UpdateLookAhead::FetchBranches(std::size_t distance) const noexcept
{
    std::uint64_t const changes = ObjectRegistry::Instance().Changes();
    for (std::size_t i = 0; i < kGroup; ++i)
    {
        Found const& found = At(distance + i);
        if (found.row == nullptr || (found.changes != changes && !ItemPool::IsLive(found.row)) ||
            found.row->Parent() == nullptr)
        {
            continue;
        }
        SequenceNode const& leaf = *ChildSequence::PlaceOf(*found.row).leaf;
        if (leaf.m_parent != nullptr)
        {
            leaf.m_parent->FetchInnerRows();
        }
    }
}
} // namespace Ostrel::GUI::Detail
