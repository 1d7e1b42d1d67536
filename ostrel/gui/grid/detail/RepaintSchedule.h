// Repaints that are due later: each row and cell holds its own deadline, and one timer waits for the earliest of those
// on the screen. Rows off the screen keep their deadlines until they are on it.
#pragma once

#include <optional>

#include <ostrel/gui/grid/detail/GridArea.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class RepaintSchedule
{
public:
    explicit RepaintSchedule(GridCore& core) noexcept : m_core(core) {}

    /// Now for a delay below 1.
    void RepaintRow(CGridItem& item, int delayMs);
    /// The whole row for a field identifier below 0. With a delay a cell that was never updated counts as updated now.
    void RepaintCell(CGridItem& item, long fieldId, int delayMs);
    /// For those who paint a cell (for kNoField: the space right of the last column): no update time changes.
    void RepaintPainted(CGridItem& item, long fieldId, int delayMs);

    void OnTimer();
    void OnDestroy() noexcept { m_isPending = false; }

private:
    void Schedule(int delayMs);
    void InvalidateNow(int row, ContextType type, long fieldId);
    /// Repaints what is due in one row; the earliest deadline that is left, counted from now.
    std::optional<int> CheckRow(CGridItem& item, int row, std::int32_t nowMs);
    std::optional<int> CheckArea(ContextType type, std::int32_t nowMs);

    GridCore& m_core;
    bool m_isPending = false;
    std::int32_t m_dueMs = 0;
};
} // namespace Ostrel::GUI::Detail
