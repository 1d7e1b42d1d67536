/// @file
/// What a grid tells its parent window: WM_NOTIFY messages with these codes and structures. The grid sends each while
/// it works, so the parent has handled it before the grid goes on; the parent may call the grid again, and may delete
/// rows.
#pragma once

#include <ostrel/gui/edit/IEditInPlace.h>
#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/window/DropEffect.h>
#include <ostrel/platform/window/Messages.h>

class CWnd;

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{
class CColumn;
class CDragSource;
class CDropTarget;
class CGrid;
class CGridItem;
class CHeader;

/// The notification codes, NMHDR::code of each message.
enum NotificationCode : UINT
{
    ItemAdded = 0,            ///< A row was added.
    ItemDeleting = 1,         ///< A row is about to be deleted. For every row of the subtree, children before parents.
    ItemMoved = 2,            ///< An update moved the row to a new sorted place.
    ItemAttached = 3,         ///< A row came with its subtree.
    ItemDetaching = 4,        ///< A row is about to leave with its subtree.
    FocusChanged = 5,         ///< For the row that loses the focus, then for the row that gains it.
    SelectionChanged = 6,     ///< The row was selected or deselected: see the state.
    ItemExpanded = 7,         ///< Expanded or collapsed: see the state.
    ItemFiltered = 8,         ///< The filter showed or hid the row.
    ItemShown = 9,            ///< The row became visible.
    ItemUpdated = 10,         ///< The row's object notified a change.
    DragStarting = 11,        ///< Rows are about to be dragged.
    DragFinished = 12,        ///< They were, with the resulting effect.
    DropStarting = 13,        ///< Something is about to be dropped into the grid.
    DropFinished = 14,        ///< It was, with the effect: none if the drop was refused.
    EditStarted = 15,         ///< Editing a cell in place began.
    EditStopped = 16,         ///< It ended.
    HeaderColumnAdded = 17,   ///< The header has another column.
    HeaderColumnRemoved = 18, ///< A column is about to go.
    HeaderColumnMoved = 19,   ///< A column has another position.
    HeaderColumnResized = 20, ///< A column has another width.
    HeaderColumnChanged = 21, ///< Anything else of a column, or the header's font or images.
    SortUpdated = 22,         ///< The sort order changed and the rows have been sorted.
};

/// The bits of NM_GRIDITEM::state.
enum GridItemState : UINT
{
    ItemStateSelected = 1,  ///< Selected.
    ItemStateFocused = 2,   ///< Has the focus.
    ItemStateVisible = 4,   ///< Has a row number.
    ItemStateExpanded = 8,  ///< Shows its children.
    ItemStateFiltered = 16, ///< Hidden by the filter.
    ItemStateAttached = 32, ///< In a tree.
};

/// The bits of NM_GRIDCOLUMN::state.
enum GridColumnState : UINT
{
    ColumnStateVisible = 1, ///< The column is shown.
    ColumnStateFixed = 2,   ///< The column does not scroll.
    ColumnStateSorted = 4,  ///< The column's field is one of the sort levels.
};

/// What a row notification, codes 0 to 10, tells.
struct NM_GRIDITEM
{
    NMHDR hdr;                   ///< The grid's window, its control id and the code.
    UINT code;                   ///< The code once more.
    CGrid* grid;                 ///< The grid that sends it.
    UINT state;                  ///< GridItemState bits.
    CGridItem* item;             ///< The row.
    Common::CDataObject* object; ///< The row's object.
    ContextType context;         ///< The row's area.
    int row;                     ///< The row number; -1 when the row is not visible.
};

/// What the notifications of dragging and dropping, codes 11 to 14, tell.
struct NM_GRIDDRAGDROP
{
    NMHDR hdr;               ///< The grid's window, its control id and the code.
    UINT code;               ///< The code once more.
    CGrid* grid;             ///< The grid that sends it.
    CDragSource* dragSource; ///< What is dragged; null for the notifications of a drop.
    CDropTarget* dropTarget; ///< Where it is dropped; null for those of a drag.
    DROPEFFECT dropEffect;   ///< What the drop does, DROPEFFECT_NONE and its siblings.
};

/// What the notifications of editing in place, codes 15 and 16, tell.
struct NM_GRIDEDIT
{
    NMHDR hdr;                             ///< The grid's window, its control id and the code.
    UINT code;                             ///< The code once more.
    CGrid* grid;                           ///< The grid that sends it.
    CGridItem* item;                       ///< The row.
    Common::CDataObject* object;           ///< The row's object.
    ContextType context;                   ///< The row's area.
    int row;                               ///< The row number; -1 when the row is not visible.
    CColumn const* column;                 ///< The column of the cell.
    CWnd* control;                         ///< The editor.
    IEditInPlace::StartReason startReason; ///< What began the edit.
    IEditInPlace::StopReason stopReason;   ///< What ended it; NoReason when it begins.
};

/// What a column notification, codes 17 to 21, tells.
struct NM_GRIDCOLUMN
{
    NMHDR hdr;             ///< The grid's window, its control id and the code.
    UINT code;             ///< The code once more.
    CGrid* grid;           ///< The grid that sends it.
    CHeader* header;       ///< The grid's header.
    UINT state;            ///< GridColumnState bits.
    CColumn const* column; ///< The column that it is about; null for none.
};

/// What SortUpdated tells.
struct NM_GRIDSORT
{
    NMHDR hdr;       ///< The grid's window, its control id and the code.
    UINT code;       ///< The code once more.
    CGrid* grid;     ///< The grid that sends it.
    CHeader* header; ///< The grid's header.
};
} // namespace Ostrel::GUI
