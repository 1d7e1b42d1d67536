// When the cells of one row were last updated, and when they are to be repainted. Costs a pointer until the first
// record.
#pragma once

#include <cstdint>
#include <span>

namespace Ostrel::GUI::Detail
{

struct CellUpdate
{
    std::int32_t fieldId = 0;
    std::int32_t lastUpdateMs = 0;
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
    /// The field's record; a new one gets the time as its last update.
    CellUpdate& FindOrAdd(long fieldId, std::int32_t nowMs);

private:
    struct Block;

    Block* m_block = nullptr;
};

} // namespace Ostrel::GUI::Detail
