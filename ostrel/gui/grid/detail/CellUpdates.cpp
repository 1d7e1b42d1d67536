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
constexpr std::uint32_t GrownCapacity(std::size_t capacity) noexcept
{
    return static_cast<std::uint32_t>(capacity * 2 + 1);
}

// Which of the fields is asked for nobody can guess: halves without a branch.
CellUpdate* LowerBound(std::span<CellUpdate> records, std::int32_t fieldId) noexcept
{
    CellUpdate* place = records.data();
    for (std::size_t count = records.size(); count > 0;)
    {
        std::size_t const half = (count + 1) / 2;
        place += half * static_cast<std::size_t>(place[half - 1].fieldId < fieldId);
        count -= half;
    }
    return place;
}
} // namespace

CellUpdates::~CellUpdates()
{
    ::operator delete(m_block);
}

std::span<CellUpdate> CellUpdates::All() noexcept
{
    return m_block ? std::span(m_block->Records(), m_block->count)
                   : std::span(&m_only, m_only.fieldId != kNone ? 1U : 0U);
}

std::span<CellUpdate const> CellUpdates::All() const noexcept
{
    return const_cast<CellUpdates*>(this)->All(); // which changes nothing
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

CellUpdate& CellUpdates::FindOrAdd(long fieldId, std::int32_t lastUpdateMs)
{
    auto const id = static_cast<std::int32_t>(fieldId);
    std::span<CellUpdate> const records = All();
    CellUpdate* const place = LowerBound(records, id);
    if (place != records.data() + records.size() && place->fieldId == id)
    {
        return *place;
    }
    CellUpdate const added{.fieldId = id, .lastUpdateMs = lastUpdateMs};
    return records.empty() ? m_only = added : InsertAt(static_cast<std::size_t>(place - records.data()), added);
}

CellUpdate& CellUpdates::InsertAt(std::size_t place, CellUpdate const& update)
{
    std::span<CellUpdate> const records = All();
    if (!m_block || m_block->count == m_block->capacity)
    {
        std::uint32_t const capacity = GrownCapacity(records.size());
        auto* const grown =
            new (::operator new(Block::BytesFor(capacity))) Block{static_cast<std::uint32_t>(records.size()), capacity};
        std::ranges::copy(records, grown->Records());
        ::operator delete(m_block);
        m_block = grown;
    }
    CellUpdate* const begin = m_block->Records();
    std::copy_backward(begin + place, begin + m_block->count, begin + m_block->count + 1);
    ++m_block->count;
    return begin[place] = update;
}

} // namespace Ostrel::GUI::Detail
