// When the cells of one row were last updated, and when they are to be repainted. The first record lies in the row
// itself, where an update has to look anyway; more of them share one block of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace Ostrel::GUI::Detail
{

struct CellUpdate
{
    std::int32_t fieldId = 0;
    std::int32_t lastUpdateMs = 0;       ///< -1: never, the record is there for its deadline
    std::int32_t repaintDeadlineMs = -1; ///< -1: none
};

/// The records of a row, by ascending field identifier.
class CellUpdates
{
public:
    CellUpdates() = default;
    CellUpdates(CellUpdates const&) = delete;
    CellUpdates& operator=(CellUpdates const&) = delete;
    ~CellUpdates();

    [[nodiscard]] std::span<CellUpdate> All() noexcept;
    [[nodiscard]] std::span<CellUpdate const> All() const noexcept;
    /// Null when the field has no record.
    [[nodiscard]] CellUpdate* Find(long fieldId) noexcept;
    [[nodiscard]] CellUpdate const* Find(long fieldId) const noexcept;
    /// The field's record; a new one gets the time as its last update. Not for kAllFields.
    CellUpdate& FindOrAdd(long fieldId, std::int32_t lastUpdateMs);
    /// Has the records brought into the cache.
    void Fetch() const noexcept
    {
        constexpr std::ptrdiff_t kCacheLine = 64; // a block of seven records lies in two
        auto const* const block = reinterpret_cast<std::byte const*>(m_block);
        __builtin_prefetch(block, 1);
        __builtin_prefetch(block + kCacheLine, 1);
    }

private:
    static constexpr std::int32_t kNone = -1; ///< means all fields, which have no record of their own

    struct Block;

    CellUpdate& InsertAt(std::size_t place, CellUpdate const& update);

    Block* m_block = nullptr;        ///< all records; null while there is at most one
    CellUpdate m_only{kNone, 0, -1}; ///< while there is no block: the only record, or none
};

} // namespace Ostrel::GUI::Detail
