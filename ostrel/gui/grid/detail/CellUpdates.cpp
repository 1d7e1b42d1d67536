#include "CellUpdates.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace Ostrel::GUI::Detail
{

/// The records follow in the same block of memory. Its sizes are those that an allocator hands out without waste.
struct CellUpdates::Block
{
    std::uint32_t count;
    std::uint32_t capacity;

    [[nodiscard]] CellUpdate* Records() noexcept { return reinterpret_cast<CellUpdate*>(this + 1); }
    static std::size_t BytesFor(std::size_t capacity) noexcept { return sizeof(Block) + capacity * sizeof(CellUpdate); }
};

namespace
{
std::uint32_t GrownCapacity(std::uint32_t capacity) noexcept
{
    return capacity == 0 ? 1 : capacity * 2 + 1;
}

CellUpdate* LowerBound(std::span<CellUpdate> records, std::int32_t fieldId) noexcept
{
    return std::ranges::lower_bound(records, fieldId, {}, &CellUpdate::fieldId).base();
}
} // namespace

CellUpdates::~CellUpdates()
{
    ::operator delete(m_block);
}

std::span<CellUpdate> CellUpdates::All() noexcept
{
    return m_block ? std::span(m_block->Records(), m_block->count) : std::span<CellUpdate>();
}

std::span<CellUpdate const> CellUpdates::All() const noexcept
{
    return m_block ? std::span<CellUpdate const>(m_block->Records(), m_block->count) : std::span<CellUpdate const>();
}

CellUpdate* CellUpdates::Find(long fieldId) noexcept
{
    std::span<CellUpdate> const records = All();
    CellUpdate* const found = LowerBound(records, static_cast<std::int32_t>(fieldId));
    return found != records.data() + records.size() && found->fieldId == fieldId ? found : nullptr;
}

CellUpdate const* CellUpdates::Find(long fieldId) const noexcept
{
    return const_cast<CellUpdates*>(this)->Find(fieldId); // the search changes nothing
}

CellUpdate& CellUpdates::FindOrAdd(long fieldId, std::int32_t nowMs)
{
    if (CellUpdate* const found = Find(fieldId))
    {
        return *found;
    }
    std::span<CellUpdate> const records = All();
    auto const place = LowerBound(records, static_cast<std::int32_t>(fieldId)) - records.data();
    if (!m_block || m_block->count == m_block->capacity)
    {
        std::uint32_t const capacity = GrownCapacity(m_block ? m_block->capacity : 0);
        auto* const grown =
            new (::operator new(Block::BytesFor(capacity))) Block{static_cast<std::uint32_t>(records.size()), capacity};
        std::ranges::copy(records, grown->Records());
        ::operator delete(m_block);
        m_block = grown;
    }
    CellUpdate* const begin = m_block->Records();
    std::copy_backward(begin + place, begin + m_block->count, begin + m_block->count + 1);
    ++m_block->count;
    begin[place] = {.fieldId = static_cast<std::int32_t>(fieldId), .lastUpdateMs = nowMs};
    return begin[place];
}

} // namespace Ostrel::GUI::Detail
