// What of the grid is on the screen: the geometry of the moment, and invalidation that stops at its edges. A row that
// is off the screen costs no invalidation.
#pragma once

#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridGeometry.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridView
{
public:
    explicit GridView(GridCore& core) noexcept : m_core(core) {}

    /// The size of the client area, as WM_SIZE last told it.
    void SetClientSize(CSize size) noexcept { m_client = size; }
    [[nodiscard]] GridGeometry Geometry() const;

    [[nodiscard]] RowRange ShownRows(ContextType type) const;
    [[nodiscard]] bool IsShown(int row, ContextType type) const { return ShownRows(type).Contains(row); }
    [[nodiscard]] CRect RowRect(int row, ContextType type) const;
    /// The row and its area under a client point; row -1 outside rows.
    struct Hit
    {
        int row = -1;
        ContextType type = NoContext;
    };
    [[nodiscard]] Hit RowAt(CPoint clientPoint) const;

    [[nodiscard]] CRect ContextVisibleRect(ContextType type) const;
    [[nodiscard]] CRect ContextVirtualRect(ContextType type) const;
    [[nodiscard]] CRect LineVisibleRect(CGridItem const& item) const;
    [[nodiscard]] CRect LineVirtualRect(CGridItem const& item) const;
    [[nodiscard]] CRect CellVisibleRect(CGridItem const& item, long fieldId) const;
    /// Where a control over a cell goes: the cell as it is scrolled now, also beyond the window's edges, less what lies
    /// under the fixed columns. Empty while nothing of the cell is on the screen.
    [[nodiscard]] CRect ControlRect(CGridItem const& item, long fieldId) const;
    [[nodiscard]] CRect CellVirtualRect(CGridItem const& item, long fieldId) const;

    // --- Invalidation ---
    void InvalidateAll(bool erase = false);
    void InvalidateArea(ContextType type);
    void InvalidateRow(int row, ContextType type);
    /// With the lines above and below them where the neighbours are selected: their frames depend on these rows.
    void InvalidateRowsAndBorders(int firstRow, int lastRow, ContextType type);
    void InvalidateRows(int firstRow, int lastRow, ContextType type);
    /// From the row on down, with the row above it where its frame or its expand button depends on what follows. In
    /// the fixed area everything below it too: the scrollable rows may have moved.
    void InvalidateFrom(int row, ContextType type);
    /// The cell of a field, or the whole row for a field identifier below 0.
    void InvalidateCell(int row, ContextType type, long fieldId);
    /// The space right of the last column.
    void InvalidateFiller(int row, ContextType type);
    void InvalidateHeader();
    void InvalidateRect(CRect const& rect, bool erase = false);

private:
    [[nodiscard]] int RowOnScreen(CGridItem const& item) const;
    [[nodiscard]] bool IsSelectedRow(int row, ContextType type) const;
    /// Whether the frame or the expand button of a shown row depends on the row below it.
    [[nodiscard]] bool LooksAtNextRow(int row, ContextType type) const;
    /// A quick first look, as most rows that change are far from what is shown; false says nothing.
    [[nodiscard]] bool IsOffScreen(int row, ContextType type) const;

    GridCore& m_core;
    CSize m_client;
};
} // namespace Ostrel::GUI::Detail
