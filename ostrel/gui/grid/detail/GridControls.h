// The controls over the cells of a grid: put over their cells before these are painted, moved away when the cells leave
// the screen, hidden and shown with their rows.
//
// A grid without controls pays a look at an empty set. One with controls pays, for each paint, for what is on the
// screen, and for each change of which rows are visible, for the controls below the row that changed.
//
// Placing and hiding send messages to the controls, whose sinks may change anything: handles are checked again after
// each.
#pragma once

#include <unordered_set>
#include <vector>

#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/RowControls.h>

class CWnd;

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridControls
{
public:
    explicit GridControls(GridCore& core) noexcept : m_core(core) {}

    /// Null when the control has no window of this thread, the field is none, or the cell has a control already.
    CEmbeddedControlAdapter* Attach(CWnd* control, CGridItem* item, long fieldId, CEmbeddedControlParams const& params);
    /// Whether any row of the grid has controls.
    [[nodiscard]] bool HasAny() const noexcept { return !m_rows.empty(); }
    /// Whether a control with a window lies over the cell. Any handle may be asked.
    [[nodiscard]] bool Has(CGridItem* item, long fieldId) const;

    /// Rows at or below this one, or the root, have become visible, or have ceased to be.
    void OnVisibilityChanged(CGridItem& top);
    /// A row was put into the grid with its subtree.
    void OnEntered(CGridItem& top);
    /// A row with its subtree, or all rows of an area, are about to leave the grid.
    void OnLeaving(CGridItem& top);
    void OnLeaving(GridArea& area) { OnLeaving(area.Root()); }

    /// Puts the controls where their cells are now. Called before the window is painted.
    void Place();

private:
    struct Cell
    {
        CGridItem* item;
        long fieldId;
    };

    [[nodiscard]] RowControls::Entry* Find(Cell const& cell) const;
    [[nodiscard]] std::vector<CGridItem*> RowsBelow(CGridItem& top) const;
    void Show(CGridItem& item, bool show);
    void PlaceRow(CGridItem& item);

    GridCore& m_core;
    std::unordered_set<CGridItem*> m_rows; ///< those of this grid that have controls
    std::vector<Cell> m_placed;            ///< whose controls are on the screen
    unsigned m_pass = 0;
};
} // namespace Ostrel::GUI::Detail
