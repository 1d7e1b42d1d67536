// What a grid is made of, put together: the row areas and the collaborators that each know one thing. Each collaborator
// reaches the others through the core; none is shared between grids.
//
// Everything here belongs to the grid's thread, but for Thread(), which is how other threads come here.
#pragma once

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/IGridFilter.h>
#include <ostrel/gui/grid/IKeyManager.h>
#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridCells.h>
#include <ostrel/gui/grid/detail/GridColumns.h>
#include <ostrel/gui/grid/detail/GridControls.h>
#include <ostrel/gui/grid/detail/GridInput.h>
#include <ostrel/gui/grid/detail/GridLooks.h>
#include <ostrel/gui/grid/detail/GridMouse.h>
#include <ostrel/gui/grid/detail/GridNotifier.h>
#include <ostrel/gui/grid/detail/GridRows.h>
#include <ostrel/gui/grid/detail/GridScroller.h>
#include <ostrel/gui/grid/detail/GridSelection.h>
#include <ostrel/gui/grid/detail/GridSorting.h>
#include <ostrel/gui/grid/detail/GridThread.h>
#include <ostrel/gui/grid/detail/GridUpdates.h>
#include <ostrel/gui/grid/detail/GridView.h>
#include <ostrel/gui/grid/detail/OrderFreeze.h>
#include <ostrel/gui/grid/detail/PartSettings.h>
#include <ostrel/gui/grid/detail/RepaintSchedule.h>
#include <ostrel/gui/grid/detail/TypeAhead.h>

namespace Ostrel::GUI::Detail
{
/// The timers of the grid's window.
enum GridTimer : UINT_PTR
{
    RepaintTimer = 0,
    MouseSelectionTimer = 1,
    LayoutTimer = 3,
    EnsureVisibleTimer = 4,
    ColumnResizeTimer = 5,
    OrderFreezeTimer = 6, // this library's own
};
inline constexpr UINT kShortDelayMs = 10;

class GridCore
{
public:
    explicit GridCore(CGrid& grid);
    ~GridCore();
    GridCore(GridCore const&) = delete;
    GridCore& operator=(GridCore const&) = delete;

    [[nodiscard]] CGrid& Grid() const noexcept { return m_grid; }
    [[nodiscard]] GridThread& Thread() noexcept { return m_thread; }

    [[nodiscard]] GridArea& Fixed() noexcept { return m_fixed; }
    [[nodiscard]] GridArea& Scrollable() noexcept { return m_scrollable; }
    /// Null for anything that is not exactly one area.
    [[nodiscard]] GridArea* Area(ContextType type) noexcept;
    /// The area of a row of this grid; null for any other handle, the reserved ones and the roots included.
    [[nodiscard]] GridArea* AreaOf(CGridItem const* handle) noexcept;
    [[nodiscard]] CGridItem* ItemAt(int row, ContextType type) noexcept;

    [[nodiscard]] GridNotifier& Notifier() noexcept { return m_notifier; }
    [[nodiscard]] GridRows& Rows() noexcept { return m_rows; }
    [[nodiscard]] GridCells& Cells() noexcept { return m_cells; }
    [[nodiscard]] GridControls& Controls() noexcept { return m_controls; }
    [[nodiscard]] GridUpdates& Updates() noexcept { return m_updates; }
    [[nodiscard]] GridSorting& Sorting() noexcept { return m_sorting; }
    [[nodiscard]] GridSelection& Selection() noexcept { return m_selection; }
    [[nodiscard]] GridView& View() noexcept { return m_view; }
    [[nodiscard]] GridScroller& Scroller() noexcept { return m_scroller; }
    [[nodiscard]] GridColumns& Columns() noexcept { return m_columns; }
    [[nodiscard]] GridLooks& Looks() noexcept { return m_looks; }
    [[nodiscard]] GridMouse& Mouse() noexcept { return m_mouse; }
    [[nodiscard]] GridInput& Input() noexcept { return m_input; }
    [[nodiscard]] RepaintSchedule& Repaints() noexcept { return m_repaints; }
    [[nodiscard]] TypeAhead& Search() noexcept { return m_search; }
    [[nodiscard]] OrderFreeze& Freeze() noexcept { return m_freeze; }

    /// The replaceable parts that are set; null where the preferences' defaults are used.
    IKeyManager* keyManager = nullptr;
    ICustomDraw* customDraw = nullptr;
    ICopyPaste* copyPaste = nullptr;
    IDragDrop* dragDrop = nullptr;
    IEditInPlace* editInPlace = nullptr;
    ITooltip* tooltip = nullptr;
    ITooltipCtrl* tooltipCtrl = nullptr;
    ITooltipCtrl* inPlaceTooltipCtrl = nullptr;
    [[nodiscard]] IKeyManager& KeyManagerInUse() const;

    PartSettings parts;

    [[nodiscard]] bool IsCalm() const noexcept { return m_isCalm; }
    void SetCalm(bool calm) noexcept { m_isCalm = calm; }

    // --- The window ---

    /// The window exists: it belongs to the calling thread from now on.
    void OnBound();
    /// Once per grid, after the window was created or, later, after it was subclassed.
    void FinishCreation();
    void OnDestroy();
    void OnSize(CSize client);
    void OnTimer(UINT_PTR timerId);
    LRESULT OnSyncMessage(WPARAM code, LPARAM argument);

private:
    CGrid& m_grid;
    GridThread m_thread;
    GridNotifier m_notifier;
    GridCells m_cells;
    GridArea m_fixed;
    GridArea m_scrollable;
    GridColumns m_columns;
    GridLooks m_looks;
    GridView m_view;
    GridScroller m_scroller;
    GridSelection m_selection;
    GridSorting m_sorting;
    GridControls m_controls;
    GridRows m_rows;
    RepaintSchedule m_repaints;
    GridUpdates m_updates;
    GridMouse m_mouse;
    GridInput m_input;
    TypeAhead m_search;
    OrderFreeze m_freeze;
    bool m_isCalm = false;
    bool m_isCreated = false;
};
} // namespace Ostrel::GUI::Detail
