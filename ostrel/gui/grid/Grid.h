/// @file
/// The grid window.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <ostrel/gui/clipboard/DragImage.h>
#include <ostrel/gui/edit/IEditInPlace.h>
#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/grid/GridNames.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::Platform
{
enum class ColorScheme;
}

namespace Ostrel::GUI
{
namespace Detail
{
class GridCore;
}

/// The grid window: shows application data objects as rows in two areas, fixed rows above scrollable ones, and keeps
/// the rows in step with the objects.
///
///     CGrid grid;
///     grid.Create(...);
///     grid.SetHeader(header);
///     grid.Add(object, ScrollableRoot, LastPosition);
///     object->NotifyUpdate(fid); // on any thread
///
/// Threads: every operation may be called on any thread. On a thread other than the grid's own it is carried to the
/// grid's thread and waited for; an exception comes back to the caller; when the window is gone the neutral result
/// (false, 0, -1, null, empty) is returned at once. Before the window exists calls run on the calling thread.
/// Lifetime: a grid never owns a data object and always owns its rows. Row handles are checked before use: a handle
/// that is not of this grid, or whose row is gone, does nothing and gives the neutral result. Row numbers count the
/// visible rows of one area from 0. A field identifier (fid) of -1 means all fields, -2 none.
/// Callbacks that throw: an operation is always completed. The first of what handlers of its notifications, the filter,
/// getters, formats and drawings throw meanwhile is thrown when it is done, to the caller or, for what the user or an
/// update started, out of the message loop. Until then a filter that throws hides nothing, and a value or text that
/// could not be read counts as empty. What is thrown while an object or the window is destroyed becomes a line on the
/// standard error stream. A visitor of ForEach that throws ends the walk.
class OSTREL_GUI_API CGrid : public CWnd
{
    DECLARE_DYNCREATE(CGrid)

public:
    /// Visits rows; returning false ends the walk. It may not delete the visited row or rows after it.
    class IForEach
    {
    public:
        virtual ~IForEach() = default;
        /// One row. Called on the grid's thread. Returns false to end the walk.
        virtual bool Visit(CGrid* grid, CGridItem* item, Common::CDataObject* object) = 0;
    };

    /// A grid without a window and without a header.
    CGrid();
    CGrid(CGrid const&) = delete;
    CGrid& operator=(CGrid const&) = delete;
    ~CGrid() override;

    using CWnd::Create;
    /// Creates the window as a child. `rect` is in client pixels of the parent. Returns FALSE when it could not.
    BOOL Create(DWORD style, RECT const& rect, CWnd* parent, UINT controlId);

    // --- Rows: adding and removing ---

    /// Adds a row for the object below `parent` (a row, ScrollableRoot or FixedRoot), right after the row `after`
    /// (FirstPosition and LastPosition are accepted; a sorted area places the row by its keys). Does not take ownership
    /// of the object. Null when the object is null or the parent is unknown.
    CGridItem* Add(Common::CDataObject* object, CGridItem* parent, CGridItem* after);
    /// Deletes a row with its subtree. False for a root.
    bool Delete(CGridItem* item);
    /// Deletes every row of the object; returns how many there were.
    int Delete(Common::CDataObject const* object);
    /// Deletes the row with that number, with its subtree, in each area of the mask. True if there was one.
    bool Delete(int row, ContextType mask);
    /// Deletes every row of the areas of the mask and clears the focus; the calm view keeps it in an area that stays.
    void DeleteAll(ContextType mask);

    /// Puts a detached row with its subtree into the tree; the places are those of Add. False when the row is in a tree
    /// or the parent is unknown.
    bool Attach(CGridItem* item, CGridItem* parent, CGridItem* after);
    /// Takes a row with its subtree out of the tree without destroying it. It keeps its children, its selected and
    /// expanded state and follows its object, and can be attached again, here or elsewhere. False for a root.
    bool Detach(CGridItem* item);
    ///@{
    /// Moves a row with its subtree below a parent (null: its present one), before or after the child `reference`,
    /// which may be FirstPosition or LastPosition; a sorted area places the row by its keys. False, and nothing
    /// changes, when the reference is no child of the parent, or the parent lies in the row's own subtree.
    bool MoveBefore(CGridItem* item, CGridItem* parent, CGridItem* reference);
    bool MoveAfter(CGridItem* item, CGridItem* parent, CGridItem* reference);
    ///@}

    // --- Rows: reading the tree ---

    /// The object's rows in the areas of the mask, in the order in which they were added.
    std::vector<CGridItem*> GetHandles(Common::CDataObject const* object, bool onlyVisible, ContextType mask) const;
    ///@{
    /// Whether the handle is that of a row in the tree, or the object has such a row.
    bool Exists(CGridItem* item) const;
    bool Exists(Common::CDataObject const* object) const;
    ///@}
    /// How many rows of one area are visible: not below a collapsed row, not hidden by the filter.
    unsigned int GetRowCount(ContextType type) const;
    /// The row with a number; null when there is none.
    CGridItem* GetItem(int row, ContextType type) const;
    /// One row of the object: of the fixed area rather than the scrollable one, then the one with the lowest number.
    CGridItem* GetItem(Common::CDataObject const* object) const;
    /// The row under a point in client coordinates, null outside rows.
    CGridItem* GetItem(CPoint clientPoint) const;
    ///@{
    /// The row number, -1 when the row is not visible. Of an object the row that GetItem gives.
    int GetRow(CGridItem* item) const;
    int GetRow(Common::CDataObject const* object) const;
    ///@}
    ///@{
    /// The area that the row is in, NoContext for none. Of an object the row that GetItem gives.
    ContextType GetContextType(CGridItem* item) const;
    ContextType GetContextType(Common::CDataObject const* object) const;
    ///@}
    /// The parent; ScrollableRoot or FixedRoot for a top-level row.
    CGridItem* GetParent(CGridItem* item) const;
    /// The parent window.
    using CWnd::GetParent;
    /// 0 for a top-level row, one more for each level below, -1 when absent.
    int GetHierarchicalLevel(CGridItem* item) const;
    /// Whether the row, ScrollableRoot or FixedRoot has children, visible or not.
    bool HasChildren(CGridItem* item) const;
    /// The children of a row, ScrollableRoot or FixedRoot in display order, all or only the visible ones.
    std::vector<CGridItem*> GetChildren(CGridItem* item, bool onlyVisible) const;
    ///@{
    /// Whether the row shows its children, if it has any. Of an object whether any of its rows does.
    bool IsExpanded(CGridItem* item) const;
    bool IsExpanded(Common::CDataObject const* object) const;
    ///@}
    ///@{
    /// Whether the row has a row number: its parents are expanded and no filter hides it. It may still be scrolled out
    /// of the window, see IsInVisibleRect.
    bool IsVisible(CGridItem* item) const;
    bool IsVisible(Common::CDataObject const* object) const;
    ///@}
    ///@{
    /// The visible row above, or below. With `crossAreas` the last fixed row and the first scrollable one are
    /// neighbours. Null at the end.
    CGridItem* GetPreviousItem(CGridItem* item, bool crossAreas) const;
    CGridItem* GetNextItem(CGridItem* item, bool crossAreas) const;
    ///@}
    ///@{
    /// The object that the row shows; null when absent.
    Common::CDataObject* GetDataObject(CGridItem* item) const;
    Common::CDataObject* GetDataObject(int row, ContextType type) const;
    ///@}
    /// Walks the tree in display order, hidden rows included, from `start` (null or FirstPosition: everything) on.
    void ForEach(IForEach& visitor, CGridItem* start);
    /// The same for visible rows only.
    void ForEachVisible(IForEach& visitor, CGridItem* start);

    ///@{
    /// Shows, or hides, the children of a row, of each row of an object or, with `recursive`, of everything below; a
    /// root is accepted too.
    void Expand(CGridItem* item, bool recursive);
    void Expand(Common::CDataObject const* object, bool recursive);
    void Collapse(CGridItem* item, bool recursive);
    void Collapse(Common::CDataObject const* object, bool recursive);
    ///@}

    // --- Cells ---

    /// The value of a cell; empty when the row is absent or its object has no such field.
    Common::CValue GetValue(CGridItem* item, long fid) const;
    ///@{
    /// The text of a cell by `format`, else by the column's text format, else by the field's own format.
    std::string GetFormattedStlString(CGridItem* item, long fid, Common::CFormat const* format = nullptr) const;
    CString GetFormattedMfcString(CGridItem* item, long fid, Common::CFormat const* format = nullptr) const;
    ///@}
    ///@{
    /// Sets a cell through its object's setters, which do the notifying; a text is read by the format that would write
    /// it. False when the object refuses.
    bool SetValue(CGridItem* item, long fid, Common::CValue const& value);
    bool SetFormattedStlString(CGridItem* item, long fid, std::string const& text,
                               Common::CFormat const* format = nullptr);
    bool SetFormattedMfcString(CGridItem* item, long fid, CString const& text, Common::CFormat const* format = nullptr);
    ///@}

    // --- Sorting ---

    ///@{
    /// Whether the rows may be sorted at all; disallowing clears the levels. Kept by the header: false and no effect
    /// without one.
    void AllowSort(bool allow);
    bool CanSort() const;
    ///@}

    ///@{
    /// Whether there may be more than one level. Kept by the header.
    void AllowMultiSort(bool allow);
    bool CanMultiSort() const;
    ///@}
    /// Sets a level in the header, under the header's rules; with `update` the rows are sorted at once.
    void SetSort(int level, CSortInfo const& info, bool update);
    /// A level of the sort order, counted from 0; fid -2, ascending, when it does not exist.
    CSortInfo GetSort(int level) const;
    /// How many levels the sort order has; 0 without a header.
    int GetSortLevels() const;
    /// Clears the levels; the rows keep their order. With `redraw` the window is repainted.
    void ResetSort(bool redraw);
    /// Sorts the rows of the sorted areas by the header's levels now.
    void UpdateSort();
    ///@{
    /// The areas that follow the sort order, all unless set. A change counts from the next UpdateSort.
    void SetSortedContext(ContextType mask);
    ContextType GetSortedContext() const;
    ///@}

    // --- Filtering ---

    /// Replaces the filter (null removes it) and asks it for every row. Takes ownership if the filter's AutoDelete()
    /// says so. Returns the old filter; the caller owns it.
    IGridFilter* SetFilter(IGridFilter* filter);
    /// The filter; null without one.
    IGridFilter* GetFilter() const;
    /// Asks the filter for every row again. Does nothing without one.
    void UpdateFilter();

    // --- Selection ---

    ///@{
    /// Whether rows may be selected; true unless set.
    void AllowSelection(bool allow);
    bool CanSelect() const;
    ///@}

    ///@{
    /// Whether more than one row may be selected at a time; true unless set.
    void AllowMultiSelection(bool allow);
    bool CanMultiSelect() const;
    ///@}

    ///@{
    /// The areas whose rows may be selected; all unless set.
    void AllowSelectContext(ContextType mask);
    bool CanSelectContext(ContextType type) const;
    ///@}

    ///@{
    /// Whether dragging the mouse over rows selects them; true unless set.
    void AllowMouseTrackSelection(bool allow);
    bool CanMouseTrackSelection() const;
    ///@}

    ///@{
    /// Selects or deselects a row, or every row of an object. False when nothing such is there or selecting it is not
    /// allowed; with multi-selection off, only while no row is selected.
    bool Select(int row, ContextType type, bool select);
    bool Select(CGridItem* item, bool select);
    bool Select(Common::CDataObject const* object, bool select);
    ///@}

    ///@{
    /// Whether the row, or a row of the object, is selected.
    bool IsSelected(int row, ContextType type) const;
    bool IsSelected(CGridItem* item) const;
    bool IsSelected(Common::CDataObject const* object) const;
    ///@}
    /// How many rows are selected in both areas.
    int GetSelectedCount() const;
    /// The selected visible rows of the areas in the mask in row order, the fixed area first.
    std::vector<CGridItem*> GetSelection(ContextType mask) const;
    /// Selects every visible row of the areas that may be selected. Does nothing with multi-selection off.
    void SelectAll();
    /// Deselects every row.
    void ClearSelection();

    // --- Focus, navigation, scrolling into view ---

    ///@{
    /// The areas whose rows may have the focus; all unless set.
    void AllowFocusContext(ContextType mask);
    bool CanFocusContext(ContextType type) const;
    ///@}
    /// Gives a row the focus; (-1, NoContext) clears it. False, and nothing changes, when there is no such row or its
    /// area may not have the focus.
    bool SetFocusedRow(int row, ContextType type);
    ///@{
    /// The number and the area of the row with the focus; -1 and NoContext when none has it.
    int GetFocusedRow() const;
    ContextType GetFocusedContext() const;
    ///@}

    ///@{
    /// The areas whose rows the keys may move to; all unless set.
    void AllowNavigation(ContextType mask);
    bool CanNavigate(ContextType type) const;
    ///@}
    /// Replaces what the keys do; null goes back to the preferences' manager. Takes ownership if the manager's
    /// AutoDelete() says so. Returns the old manager; the caller owns it.
    IKeyManager* SetKeyManager(IKeyManager* manager);
    /// The manager that was set; null while the preferences' manager serves.
    IKeyManager* GetKeyManager() const;
    ///@{
    /// Does what the key does with Shift and Ctrl held or not, through the key manager. Nothing while the scrollable
    /// area is empty or the left mouse button is down.
    void NavigateUp(bool shift, bool ctrl);
    void NavigateDown(bool shift, bool ctrl);
    void NavigatePageUp(bool shift, bool ctrl);
    void NavigatePageDown(bool shift, bool ctrl);
    void NavigateHome(bool shift, bool ctrl);
    void NavigateEnd(bool shift, bool ctrl);
    ///@}

    /// The first shown row of the scrollable area, -1 if none.
    int GetFirstVisibleRow() const;
    /// The last row of the area whose top is on the screen, -1 if none.
    int GetLastVisibleRow(ContextType type) const;
    ///@{
    /// Scrolls the scrollable area so that the row is its first one, or as near as the last page allows. Nothing for a
    /// row that is not there, not visible or fixed. Of an object the first of its rows that can be scrolled to.
    void SetFirstVisibleRow(int row);
    void SetFirstVisibleItem(CGridItem* item);
    void SetFirstVisibleItem(Common::CDataObject const* object);
    ///@}

    ///@{
    /// Scrolls the scrollable area just enough to show the row whole. Several calls between two paints become one.
    /// Nothing for a row that is not there, not visible or fixed. Of an object the first row that can be scrolled to.
    void EnsureVisible(int row);
    void EnsureVisible(CGridItem* item);
    void EnsureVisible(Common::CDataObject const* object);
    ///@}

    ///@{
    /// Whether the row is on the screen, at least in part.
    bool IsInVisibleRect(CGridItem* item) const;
    bool IsInVisibleRect(int row, ContextType type) const;
    ///@}

    ///@{
    /// Calm live view, off by default: the focus and the first visible row follow their objects when rows are inserted,
    /// removed, moved or filtered, and the focus of a row that disappears goes to its next neighbour.
    void SetCalmView(bool calm);
    bool IsCalmView() const;
    ///@}

    ///@{
    /// Order freeze, off by default: while the left button is down in the grid, and while the user scrolls it, updates
    /// move no rows of a sorted grid; they go to their places afterwards.
    void SetOrderFreeze(bool freeze);
    bool IsOrderFreeze() const;
    ///@}

    // --- Updates and repainting ---

    ///@{
    /// Treats one row as changed in the field, as if its object had notified, but nowhere else. Not waited for on
    /// another thread.
    void UpdateRow(int row, ContextType type, long fid);
    void UpdateItem(CGridItem* item, long fid);
    ///@}
    /// As if the object had notified: every row of it in every grid, later.
    void UpdateDataObject(Common::CDataObject const* object, long fid);
    ///@{
    /// Milliseconds since the cell's last update; for fid -1, -2 or a field without one, since the row's; -1 if never.
    int GetTimeElapsedSinceLastUpdate(int row, ContextType type, long fid) const;
    int GetTimeElapsedSinceLastUpdate(CGridItem* item, long fid) const;
    ///@}

    ///@{
    /// Repaints a row now, or after delayMs if that is 1 or more; at least 10 pass then.
    void InvalidateRow(int row, ContextType type, int delayMs);
    void InvalidateRow(CGridItem* item, int delayMs);
    void InvalidateRow(Common::CDataObject const* object, int delayMs);
    ///@}

    ///@{
    /// Repaints the cells of a row that show the field, with fid -1 or -2 the whole row; when as for InvalidateRow.
    void InvalidateCell(int row, ContextType type, long fid, int delayMs);
    void InvalidateCell(CGridItem* item, long fid, int delayMs);
    void InvalidateCell(Common::CDataObject const* object, long fid, int delayMs);
    ///@}

    ///@{
    /// Whether the parent window is told anything; true unless set.
    void AllowNotifications(bool allow);
    bool IsNotificationsAllowed() const;
    ///@}

    // --- Geometry, in client coordinates ---

    /// What an area takes of the window; empty for anything but one area.
    CRect GetContextVisibleRect(ContextType type) const;
    /// An area as if all its rows and columns were laid out, from its first row and the first column on.
    CRect GetContextVirtualRect(ContextType type) const;
    ///@{
    /// What of a row is on the screen; empty when nothing is.
    CRect GetLineVisibleRect(CGridItem* item) const;
    CRect GetLineVisibleRect(Common::CDataObject const* object) const;
    ///@}

    ///@{
    /// The whole row, scrolled as the window is, also where it is covered or outside.
    CRect GetLineVirtualRect(CGridItem* item) const;
    CRect GetLineVirtualRect(Common::CDataObject const* object) const;
    ///@}

    ///@{
    /// What of a cell is on the screen, not counting what lies under the fixed columns; empty when nothing is.
    CRect GetCellVisibleRect(CGridItem* item, long fid) const;
    CRect GetCellVisibleRect(Common::CDataObject const* object, long fid) const;
    ///@}

    ///@{
    /// The whole cell, scrolled as the window is, also where it is covered or outside.
    CRect GetCellVirtualRect(CGridItem* item, long fid) const;
    CRect GetCellVirtualRect(Common::CDataObject const* object, long fid) const;
    ///@}
    /// Scrollable rows that fit whole, counted from the first shown row downward or upward.
    int GetLinesPerPage(bool down) const;
    /// The height of a row in pixels; 0 when absent.
    int GetItemHeight(CGridItem* item) const;
    /// The height that suits the font, as the custom draw tells.
    int GetOptimalRowHeight(ContextType type) const;
    ///@{
    /// The width in pixels that shows a cell, or every visible cell of a column in the areas of a mask, whole. Measures
    /// each of these cells.
    int GetOptimalCellWidth(int row, ContextType type, long fid) const;
    int GetOptimalColumnWidth(ContextType type, long fid) const;
    ///@}
    /// The height of the header that suits its font, as the custom draw tells.
    int GetOptimalHeaderHeight() const;
    ///@{
    /// Gives a column (by field or position), or each visible one, the width that shows its cells whole: its
    /// GetOptimalColumnWidth.
    void AdjustColumnByFid(long fid);
    void AdjustColumnByIndex(int columnIndex);
    void AdjustAllColumns();
    ///@}
    /// Scrolls horizontally just enough to show the column whole.
    void EnsureColumnVisible(long fid);
    /// The column under a point in client coordinates; null outside of columns.
    CColumn const* GetColumn(CPoint clientPoint) const;
    /// The column that keyboard search looks into; null without one.
    CColumn const* GetNavigationColumn() const;
    /// The column that shows the tree: the first visible one, null without any.
    CColumn const* GetHierarchicalColumn() const;
    ///@{
    /// Whether a band separates the fixed rows from the scrollable ones; true unless set.
    void AllowDrawContextSeparator(bool allow);
    bool CanDrawContextSeparator() const;
    ///@}

    ///@{
    /// The height of that band in pixels, 2 unless set.
    void SetContextSeparatorHeight(int height);
    int GetContextSeparatorHeight() const;
    ///@}
    /// Recalculates the scroll bars.
    void ResetScroll();
    ///@{
    /// As a window's; another horizontal position scrolls the columns that are not fixed.
    BOOL SetScrollInfo(int bar, SCROLLINFO const* info, BOOL redraw = TRUE);
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    ///@}

    // --- Header ---

    /// Replaces the header; null for none. Takes ownership if the header's AutoDelete() says so. Returns the old
    /// header; the caller owns it.
    CHeader* SetHeader(CHeader* header);
    /// The header; null without one.
    CHeader* GetHeader() const;
    ///@{
    /// Whether the header's band is shown; it sorts and gives the columns all the same.
    void ShowHeader();
    void HideHeader();
    bool IsHeaderVisible() const;
    ///@}
    /// Lets the user arrange the columns in a dialog. This version has none and does nothing.
    void ShowHeaderDialog();

    // --- Looks ---

    ///@{
    /// Colours and grid lines in the colour scheme that is on (CPreferences::SetColorScheme). Whoever changes it
    /// through the reference, on the grid's thread, also has it repainted; setting repaints.
    CAppearance& GetAppearance();
    CAppearance const& GetAppearance() const;
    void SetAppearance(CAppearance const& appearance);
    ///@}
    /// The same for either colour scheme.
    void SetAppearance(CAppearance const& appearance, Platform::ColorScheme scheme);
    ///@{
    /// The picture behind the rows. Set it to show a change.
    CBackgroundImage& GetBackgroundImage();
    CBackgroundImage const& GetBackgroundImage() const;
    void SetBackgroundImage(CBackgroundImage const& image);
    ///@}
    ///@{
    /// Which elements are painted, a combination of PaintText and its siblings; PaintAll unless set.
    void SetPaintFilter(unsigned int filter);
    unsigned int GetPaintFilter() const;
    ///@}
    ///@{
    /// Whether a paint pass draws into a picture of its own first; false unless set.
    void SetFlickerFreeDrawing(bool flickerFree);
    bool GetFlickerFreeDrawing() const;
    ///@}
    /// The images that columns and formats name by number. With `stretch` they are scaled to the row's height. Does not
    /// take ownership of the list, which must outlive its use. Returns the old one.
    CImageList* SetImageList(CImageList* imageList, bool stretch);
    /// The images of the cells; null without any.
    CImageList* GetImageList() const;
    ///@{
    /// Whether images are scaled to the row's height; false unless set.
    void AllowStretchImageInCell(bool stretch);
    bool CanStretchImageInCell() const;
    ///@}
    ///@{
    /// Whether cells that changed are highlighted; false unless set.
    void AllowHighlight(bool allow);
    bool CanHighlight() const;
    ///@}
    ///@{
    /// How and for how long changed cells are highlighted. Whoever changes it through the reference, on the grid's
    /// thread, also has it repainted; setting repaints.
    CHighlightSettings& GetHighlightSettings();
    CHighlightSettings const& GetHighlightSettings() const;
    void SetHighlightSettings(CHighlightSettings const& settings);
    ///@}
    /// Replaces what draws the grid; null goes back to the preferences' default. Takes ownership if the part's
    /// AutoDelete() says so. Returns the old part; the caller owns it.
    ICustomDraw* SetCustomDraw(ICustomDraw* customDraw);
    /// The part that was set; null while the preferences' default serves.
    ICustomDraw* GetCustomDraw() const;
    /// Copies the font; the header and the rows take the heights that suit it.
    void SetFont(CFont* font, BOOL redraw = TRUE);
    /// The grid's own font, null when it uses the preferences' font.
    CFont* GetFont() const;

    // --- Clipboard, drag and drop ---

    /// Puts the selected rows on the clipboard, as the copy-paste part does it. False without a part, or as it answers.
    bool Copy();
    /// The same, so that pasting moves the rows.
    bool Cut();
    /// Pastes where the focused row and the settings say. False when pasting is not allowed there, or as the part
    /// answers.
    bool Paste();
    /// Pastes below `parent` after `position`, as Attach takes them. False without a part, or as it answers.
    bool Paste(CGridItem* parent, CGridItem* position);
    /// Null means the preferences' default. Takes ownership if AutoDelete() says so. Returns the old part; the caller
    /// owns it.
    ICopyPaste* SetCopyPaste(ICopyPaste* copyPaste);
    /// The part that was set, null when none was.
    ICopyPaste* GetCopyPaste() const;
    ///@{
    /// Whether Paste() without a place may paste; true unless set.
    void AllowCopyPaste(bool allow);
    bool IsCopyPasteAllowed() const;
    ///@}
    ///@{
    /// What may be copied, cut and pasted, and where pasted rows go.
    CCopyPasteSettings& GetCopyPasteSettings();
    CCopyPasteSettings const& GetCopyPasteSettings() const;
    void SetCopyPasteSettings(CCopyPasteSettings const& settings);
    ///@}
    /// Replaces the drag-and-drop part, as SetCopyPaste does its part. Kept; this version does not ask it yet.
    IDragDrop* SetDragDrop(IDragDrop* dragDrop);
    /// The part that was set, null when none was.
    IDragDrop* GetDragDrop() const;
    ///@{
    /// Whether rows may be dragged; false unless set. So far it only lets a press on a selected row wait for the
    /// release.
    void AllowDragAndDrop(bool allow);
    bool IsDragAndDropAllowed() const;
    ///@}
    ///@{
    /// What may be dragged and dropped. Kept and stored in archives; this version does not act on it yet.
    CDragDropSettings& GetDragDropSettings();
    CDragDropSettings const& GetDragDropSettings() const;
    void SetDragDropSettings(CDragDropSettings const& settings);
    ///@}
    /// A picture of those of the rows that are shown in the area. Empty in this version.
    CDragImage CreateDragImage(std::vector<CGridItem*> const& items, ContextType type, CHeader const* header) const;

    // --- Editing in place and embedded controls ---

    /// Replaces the editing part, as SetCopyPaste does its part. Kept; this version does not ask it yet.
    IEditInPlace* SetEditInPlace(IEditInPlace* editInPlace);
    /// The part that was set, null when none was.
    IEditInPlace* GetEditInPlace() const;
    /// Whether an edit of the cell could start. False in this version.
    bool CanStartEditInPlace(CGridItem* item, long fid, IEditInPlace::StartReason reason) const;
    /// Starts an edit of the cell. False when it does not start, as always in this version.
    bool StartEditInPlace(CGridItem* item, long fid, IEditInPlace::StartReason reason);
    /// Ends the edit in progress; with `post`, later. True when a control was taken out of its cell.
    bool StopEditInPlace(IEditInPlace::StopReason reason, bool post);
    /// The control of the edit in progress, null when there is none.
    CWnd* GetEditInPlaceControl() const;
    ///@{
    /// Whether and how cells are edited in place. Kept and stored in archives; this version does not act on it yet.
    CEditInPlaceSettings& GetEditInPlaceSettings();
    CEditInPlaceSettings const& GetEditInPlaceSettings() const;
    void SetEditInPlaceSettings(CEditInPlaceSettings const& settings);
    ///@}
    /// Keeps a control, a child of the grid, over the cell. Does not take ownership; the adapter is the row's. Null
    /// when the control has no window, the fid names no single field, or a control lies over the cell already.
    CEmbeddedControlAdapter* AttachControl(CWnd* control, CGridItem* item, long fid,
                                           CEmbeddedControlParams const& params);
    ///@{
    /// Whether a control lies over the cell.
    bool HasControl(CGridItem* item, long fid) const;
    bool HasControl(int row, ContextType type, long fid) const;
    ///@}
    ///@{
    /// Does nothing and returns false: a control leaves its cell when its edit stops or its row goes.
    bool DetachControl(CWnd* control);
    bool DetachControl(CGridItem* item, long fid, bool destroy);
    ///@}

    // --- Tips ---

    ///@{
    /// Whether tips about cells are shown; false unless set. Without effect in this version.
    void EnableTooltip(bool enable);
    bool IsTooltipEnabled() const;
    ///@}
    ///@{
    /// Whether a text that its cell cuts short is shown whole; true unless set. Without effect in this version.
    void EnableInPlaceTooltip(bool enable);
    bool IsInPlaceTooltipEnabled() const;
    ///@}
    ///@{
    /// What the tips say and the windows that show them: replaceable parts, kept but not asked in this version.
    ITooltip* SetTooltip(ITooltip* tooltip);
    ITooltip* GetTooltip() const;
    ITooltipCtrl* SetTooltipCtrl(ITooltipCtrl* control);
    ITooltipCtrl* GetTooltipCtrl() const;
    ITooltipCtrl* SetInPlaceTooltipCtrl(ITooltipCtrl* control);
    ITooltipCtrl* GetInPlaceTooltipCtrl() const;
    ///@}
    ///@{
    /// How the tips over cells look and behave. Kept and stored in archives; this version does not act on it yet.
    CTooltipSettings& GetTooltipSettings();
    CTooltipSettings const& GetTooltipSettings() const;
    void SetTooltipSettings(CTooltipSettings const& settings);
    ///@}
    ///@{
    /// The same for the tips that complete a text that its cell cuts off.
    CTooltipSettings& GetInPlaceTooltipSettings();
    CTooltipSettings const& GetInPlaceTooltipSettings() const;
    void SetInPlaceTooltipSettings(CTooltipSettings const& settings);
    ///@}

    // --- Printing ---

    ///@{
    /// Prints the rows within a print job, or shows how that would look. This version does neither.
    void Print(CPrintSettings const& settings, CPrintInfo* printInfo);
    void PrintPreview(CPrintSettings const& settings);
    ///@}

    // --- Persistence ---

    /// The header and all settings, but no rows; of the appearances that for the light scheme. Loading replaces the
    /// header by a new one of the stored class (the old one is deleted if its AutoDelete() says so), clears the focus
    /// and sorts. Throws CArchiveException by pointer, badSchema for a newer version; the grid is then as it was
    /// before.
    void Serialize(CArchive& archive) override;
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // CWnd
    BOOL PreCreateWindow(CREATESTRUCT& createStruct) override;
    void PreSubclassWindow() override;
    /// Every message of the window.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using NavigationKey = void (IKeyManager::*)(CGrid& grid, bool shift, bool ctrl);

    void Navigate(NavigationKey key, bool shift, bool ctrl);
    LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT AfterDefault(UINT message, WPARAM wParam, LPARAM lParam);

    std::unique_ptr<Detail::GridCore> m_core;
};
} // namespace Ostrel::GUI
