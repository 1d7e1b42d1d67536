// What a grid tells its parent window: WM_NOTIFY messages with these codes and structures. The grid sends each while it
// works, so the parent has handled it before the grid goes on; the parent may call the grid again, and may delete rows.
#pragma once

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/window/Messages.h>

class CWnd;

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{
class CColumn;
class CGrid;
class CGridItem;
class CHeader;

/// The notification codes, NMHDR::code of each message.
enum NotificationCode : UINT
{
    ItemAdded = 0,
    ItemDeleting = 1, ///< For every row of the subtree, children before parents.
    ItemMoved = 2,    ///< An update moved the row to a new sorted place.
    ItemAttached = 3,
    ItemDetaching = 4,
    FocusChanged = 5, ///< For the row that loses the focus, then for the row that gains it.
    SelectionChanged = 6,
    ItemExpanded = 7, ///< Expanded or collapsed: see the state.
    ItemFiltered = 8, ///< The filter showed or hid the row.
    ItemShown = 9,
    ItemUpdated = 10,
    HeaderColumnAdded = 17,
    HeaderColumnRemoved = 18,
    HeaderColumnMoved = 19,
    HeaderColumnResized = 20,
    HeaderColumnChanged = 21,
    SortUpdated = 22,
};

/// The bits of NM_GRIDITEM::state.
enum GridItemState : UINT
{
    ItemStateSelected = 1,
    ItemStateFocused = 2,
    ItemStateVisible = 4,
    ItemStateExpanded = 8,
    ItemStateFiltered = 16, ///< Hidden by the filter.
    ItemStateAttached = 32,
};

/// The bits of NM_GRIDCOLUMN::state.
enum GridColumnState : UINT
{
    ColumnStateVisible = 1,
    ColumnStateFixed = 2,
    ColumnStateSorted = 4, ///< The column's field is one of the sort levels.
};

/// Codes 0 to 10.
struct NM_GRIDITEM
{
    NMHDR hdr;
    UINT code;
    CGrid* grid;
    UINT state; ///< GridItemState bits.
    CGridItem* item;
    Common::CDataObject* object;
    ContextType context;
    int row; ///< -1 when the row is not visible.
};

/// Codes 17 to 21.
struct NM_GRIDCOLUMN
{
    NMHDR hdr;
    UINT code;
    CGrid* grid;
    CHeader* header;
    UINT state; ///< GridColumnState bits.
    CColumn const* column;
};

/// Code 22.
struct NM_GRIDSORT
{
    NMHDR hdr;
    UINT code;
    CGrid* grid;
    CHeader* header;
};
} // namespace Ostrel::GUI
