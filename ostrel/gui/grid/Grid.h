// The grid window: shows application data objects as rows in two areas, fixed rows above scrollable ones, and keeps
// the rows in step with the objects.
//
//     CGrid grid;
//     grid.Create(...);
//     grid.SetHeader(header);
//     grid.Add(object, ScrollableRoot, LastPosition);
//     object->NotifyUpdate(fid); // on any thread
//
// Threads: every operation may be called on any thread. On a thread other than the grid's own it is carried to the
// grid's thread and waited for; an exception comes back to the caller; when the window is gone the neutral result
// (false, 0, -1, null, empty) is returned at once. Before the window exists calls run on the calling thread.
// Lifetime: a grid never owns a data object and always owns its rows. Row handles are checked before use: a handle that
// is not of this grid, or whose row is gone, does nothing and gives the neutral result.
// Row numbers count the visible rows of one area from 0. A field identifier (fid) of -1 means all fields, -2 none.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/window/Wnd.h>

class CArchive;
class CFont;
class CImageList;

namespace Ostrel::Common
{
class CDataObject;
class CFormat;
class CValue;
} // namespace Ostrel::Common

namespace Ostrel::GUI
{
class CAppearance;
class CBackgroundImage;
class CColumn;
class CCopyPasteSettings;
class CDragDropSettings;
class CEditInPlaceSettings;
class CGridItem;
class CHeader;
class CHighlightSettings;
class CSortInfo;
class CTooltipSettings;
class ICustomDraw;
class IGridFilter;
class IKeyManager;

namespace Detail
{
class GridCore;
}

class OSTREL_GUI_API CGrid : public CWnd
{
    DECLARE_DYNCREATE(CGrid)

public:
    /// Visits rows; returning false ends the walk. It may not delete the visited row or rows after it.
    class IForEach
    {
    public:
        virtual ~IForEach() = default;
        virtual bool Visit(CGrid* grid, CGridItem* item, Common::CDataObject* object) = 0;
    };

    CGrid();
    CGrid(CGrid const&) = delete;
    CGrid& operator=(CGrid const&) = delete;
    ~CGrid() override;

    /// Creates the window as a child.
    using CWnd::Create;
    BOOL Create(DWORD style, RECT const& rect, CWnd* parent, UINT controlId);

    // --- Rows: adding and removing ---

    /// Adds a row for the object below `parent` (a row, ScrollableRoot or FixedRoot), right after the row `after`
    /// (FirstPosition and LastPosition are accepted; a sorted area places the row by its keys). Does not take ownership
    /// of the object. Null when the object is null or the parent is unknown.
    CGridItem* Add(Common::CDataObject* object, CGridItem* parent, CGridItem* after);
    /// Deletes a row with its subtree.
    bool Delete(CGridItem* item);
    /// Deletes every row of the object; returns how many there were.
    int Delete(Common::CDataObject const* object);
    bool Delete(int row, ContextType mask);
    void DeleteAll(ContextType mask);

    /// Puts a detached row with its subtree into the tree.
    bool Attach(CGridItem* item, CGridItem* parent, CGridItem* after);
    /// Takes a row with its subtree out of the tree without destroying it. It can be attached again, here or elsewhere.
    bool Detach(CGridItem* item);
    bool MoveBefore(CGridItem* item, CGridItem* parent, CGridItem* reference);
    bool MoveAfter(CGridItem* item, CGridItem* parent, CGridItem* reference);

    // --- Rows: reading the tree ---

    /// The object's rows in the areas of the mask, in the order in which they were added.
    std::vector<CGridItem*> GetHandles(Common::CDataObject const* object, bool onlyVisible, ContextType mask) const;
    bool Exists(CGridItem* item) const;
    bool Exists(Common::CDataObject const* object) const;
    unsigned int GetRowCount(ContextType type) const;
    CGridItem* GetItem(int row, ContextType type) const;
    /// One row of the object: of the fixed area rather than the scrollable one, then the one with the lowest number.
    CGridItem* GetItem(Common::CDataObject const* object) const;
    /// The row under a point in client coordinates, null outside rows.
    CGridItem* GetItem(CPoint clientPoint) const;
    /// The row number, -1 when the row is not visible.
    int GetRow(CGridItem* item) const;
    int GetRow(Common::CDataObject const* object) const;
    ContextType GetContextType(CGridItem* item) const;
    ContextType GetContextType(Common::CDataObject const* object) const;
    /// The parent; ScrollableRoot or FixedRoot for a top-level row.
    CGridItem* GetParent(CGridItem* item) const;
    using CWnd::GetParent;
    /// 0 for a top-level row, -1 when absent.
    int GetHierarchicalLevel(CGridItem* item) const;
    bool HasChildren(CGridItem* item) const;
    std::vector<CGridItem*> GetChildren(CGridItem* item, bool onlyVisible) const;
    bool IsExpanded(CGridItem* item) const;
    bool IsExpanded(Common::CDataObject const* object) const;
    /// Whether the row has a row number: its parents are expanded and no filter hides it.
    bool IsVisible(CGridItem* item) const;
    bool IsVisible(Common::CDataObject const* object) const;
    CGridItem* GetPreviousItem(CGridItem* item, bool crossAreas) const;
    CGridItem* GetNextItem(CGridItem* item, bool crossAreas) const;
    Common::CDataObject* GetDataObject(CGridItem* item) const;
    Common::CDataObject* GetDataObject(int row, ContextType type) const;
    /// Walks the tree in display order, hidden rows included, from `start` (null or FirstPosition: everything) on.
    void ForEach(IForEach& visitor, CGridItem* start);
    void ForEachVisible(IForEach& visitor, CGridItem* start);

    void Expand(CGridItem* item, bool recursive);
    void Expand(Common::CDataObject const* object, bool recursive);
    void Collapse(CGridItem* item, bool recursive);
    void Collapse(Common::CDataObject const* object, bool recursive);

    // --- Cells ---

    Common::CValue GetValue(CGridItem* item, long fid) const;
    /// The text by `format`, else by the column's text format, else by the field's own format.
    std::string GetFormattedStlString(CGridItem* item, long fid, Common::CFormat const* format = nullptr) const;
    CString GetFormattedMfcString(CGridItem* item, long fid, Common::CFormat const* format = nullptr) const;
    /// Written through the object's setters, which do the notifying. False when the object refuses.
    bool SetValue(CGridItem* item, long fid, Common::CValue const& value);
    bool SetFormattedStlString(CGridItem* item, long fid, std::string const& text,
                               Common::CFormat const* format = nullptr);
    bool SetFormattedMfcString(CGridItem* item, long fid, CString const& text, Common::CFormat const* format = nullptr);

    // --- Sorting ---

    void AllowSort(bool allow);
    bool CanSort() const;
    void AllowMultiSort(bool allow);
    bool CanMultiSort() const;
    /// Sets a level in the header, under the header's rules; with `update` the rows are sorted at once.
    void SetSort(int level, CSortInfo const& info, bool update);
    CSortInfo GetSort(int level) const;
    int GetSortLevels() const;
    /// Clears the levels; the rows keep their order.
    void ResetSort(bool redraw);
    void UpdateSort();
    void SetSortedContext(ContextType mask);
    ContextType GetSortedContext() const;

    // --- Filtering ---

    /// Replaces the filter (null removes it) and asks it for every row. Takes ownership if the filter's AutoDelete()
    /// says so. Returns the old filter; the caller owns it.
    IGridFilter* SetFilter(IGridFilter* filter);
    IGridFilter* GetFilter() const;
    void UpdateFilter();

    // --- Selection ---

    void AllowSelection(bool allow);
    bool CanSelect() const;
    void AllowMultiSelection(bool allow);
    bool CanMultiSelect() const;
    void AllowSelectContext(ContextType mask);
    bool CanSelectContext(ContextType type) const;
    void AllowMouseTrackSelection(bool allow);
    bool CanMouseTrackSelection() const;
    bool Select(int row, ContextType type, bool select);
    bool Select(CGridItem* item, bool select);
    bool Select(Common::CDataObject const* object, bool select);
    bool IsSelected(int row, ContextType type) const;
    bool IsSelected(CGridItem* item) const;
    bool IsSelected(Common::CDataObject const* object) const;
    int GetSelectedCount() const;
    /// The selected visible rows of the areas in the mask in row order, the fixed area first.
    std::vector<CGridItem*> GetSelection(ContextType mask) const;
    void SelectAll();
    void ClearSelection();

    // --- Focus, navigation, scrolling into view ---

    void AllowFocusContext(ContextType mask);
    bool CanFocusContext(ContextType type) const;
    /// (-1, NoContext) clears the focus.
    bool SetFocusedRow(int row, ContextType type);
    int GetFocusedRow() const;
    ContextType GetFocusedContext() const;
    void AllowNavigation(ContextType mask);
    bool CanNavigate(ContextType type) const;
    /// Returns the old manager; the caller owns it. Null: the preferences' manager.
    IKeyManager* SetKeyManager(IKeyManager* manager);
    IKeyManager* GetKeyManager() const;
    void NavigateUp(bool shift, bool ctrl);
    void NavigateDown(bool shift, bool ctrl);
    void NavigatePageUp(bool shift, bool ctrl);
    void NavigatePageDown(bool shift, bool ctrl);
    void NavigateHome(bool shift, bool ctrl);
    void NavigateEnd(bool shift, bool ctrl);

    /// The first shown row of the scrollable area, -1 if none.
    int GetFirstVisibleRow() const;
    /// The last row of the area whose top is on the screen, -1 if none.
    int GetLastVisibleRow(ContextType type) const;
    void SetFirstVisibleRow(int row);
    void SetFirstVisibleItem(CGridItem* item);
    void SetFirstVisibleItem(Common::CDataObject const* object);
    /// Scrolls the scrollable area just enough to show the row whole. Several calls between two paints become one.
    void EnsureVisible(int row);
    void EnsureVisible(CGridItem* item);
    void EnsureVisible(Common::CDataObject const* object);
    bool IsInVisibleRect(CGridItem* item) const;
    bool IsInVisibleRect(int row, ContextType type) const;

    /// Calm live view, off by default: the focus and the first visible row follow their objects when rows are inserted,
    /// removed, moved or filtered, and the focus of a row that disappears goes to its next neighbour.
    void SetCalmView(bool calm);
    bool IsCalmView() const;
    /// Order freeze, off by default: while the left button is down in the grid, and while the user scrolls it, updates
    /// move no rows of a sorted grid; they go to their places afterwards.
    void SetOrderFreeze(bool freeze);
    bool IsOrderFreeze() const;

    // --- Updates and repainting ---

    /// Treats one row as changed in the field. Not waited for on another thread.
    void UpdateRow(int row, ContextType type, long fid);
    void UpdateItem(CGridItem* item, long fid);
    /// As if the object had notified: every row of it in every grid, later.
    void UpdateDataObject(Common::CDataObject const* object, long fid);
    /// Milliseconds since the cell's last update; for fid -1, -2 or a field without one, since the row's; -1 if never.
    int GetTimeElapsedSinceLastUpdate(int row, ContextType type, long fid) const;
    int GetTimeElapsedSinceLastUpdate(CGridItem* item, long fid) const;
    /// Repaints now, or after delayMs if that is 1 or more.
    void InvalidateRow(int row, ContextType type, int delayMs);
    void InvalidateRow(CGridItem* item, int delayMs);
    void InvalidateRow(Common::CDataObject const* object, int delayMs);
    void InvalidateCell(int row, ContextType type, long fid, int delayMs);
    void InvalidateCell(CGridItem* item, long fid, int delayMs);
    void InvalidateCell(Common::CDataObject const* object, long fid, int delayMs);

    /// Whether the parent window is told anything.
    void AllowNotifications(bool allow);
    bool IsNotificationsAllowed() const;

    // --- Geometry, in client coordinates ---

    CRect GetContextVisibleRect(ContextType type) const;
    CRect GetContextVirtualRect(ContextType type) const;
    CRect GetLineVisibleRect(CGridItem* item) const;
    CRect GetLineVisibleRect(Common::CDataObject const* object) const;
    CRect GetLineVirtualRect(CGridItem* item) const;
    CRect GetLineVirtualRect(Common::CDataObject const* object) const;
    CRect GetCellVisibleRect(CGridItem* item, long fid) const;
    CRect GetCellVisibleRect(Common::CDataObject const* object, long fid) const;
    CRect GetCellVirtualRect(CGridItem* item, long fid) const;
    CRect GetCellVirtualRect(Common::CDataObject const* object, long fid) const;
    /// Scrollable rows that fit whole, counted from the first shown row downward or upward.
    int GetLinesPerPage(bool down) const;
    int GetItemHeight(CGridItem* item) const;
    int GetOptimalRowHeight(ContextType type) const;
    int GetOptimalCellWidth(int row, ContextType type, long fid) const;
    int GetOptimalColumnWidth(ContextType type, long fid) const;
    int GetOptimalHeaderHeight() const;
    void AdjustColumnByFid(long fid);
    void AdjustColumnByIndex(int columnIndex);
    void AdjustAllColumns();
    void EnsureColumnVisible(long fid);
    CColumn const* GetColumn(CPoint clientPoint) const;
    CColumn const* GetNavigationColumn() const;
    CColumn const* GetHierarchicalColumn() const;
    void AllowDrawContextSeparator(bool allow);
    bool CanDrawContextSeparator() const;
    void SetContextSeparatorHeight(int height);
    int GetContextSeparatorHeight() const;
    /// Recalculates the scroll bars.
    void ResetScroll();

    // --- Header ---

    /// Takes ownership if the header's AutoDelete() says so. Returns the old header; the caller owns it.
    CHeader* SetHeader(CHeader* header);
    CHeader* GetHeader() const;
    void ShowHeader();
    void HideHeader();
    bool IsHeaderVisible() const;

    // --- Looks ---

    CAppearance& GetAppearance();
    CAppearance const& GetAppearance() const;
    void SetAppearance(CAppearance const& appearance);
    CBackgroundImage& GetBackgroundImage();
    CBackgroundImage const& GetBackgroundImage() const;
    void SetBackgroundImage(CBackgroundImage const& image);
    /// Which elements are painted, PaintText and its siblings.
    void SetPaintFilter(unsigned int filter);
    unsigned int GetPaintFilter() const;
    void SetFlickerFreeDrawing(bool flickerFree);
    bool GetFlickerFreeDrawing() const;
    /// Does not take ownership of the list. Returns the old one.
    CImageList* SetImageList(CImageList* imageList, bool stretch);
    CImageList* GetImageList() const;
    void AllowStretchImageInCell(bool stretch);
    bool CanStretchImageInCell() const;
    void AllowHighlight(bool allow);
    bool CanHighlight() const;
    CHighlightSettings& GetHighlightSettings();
    CHighlightSettings const& GetHighlightSettings() const;
    void SetHighlightSettings(CHighlightSettings const& settings);
    /// Returns the old part; the caller owns it. Null: the preferences' default.
    ICustomDraw* SetCustomDraw(ICustomDraw* customDraw);
    ICustomDraw* GetCustomDraw() const;
    /// Copies the font; the header and the rows take the heights that suit it.
    void SetFont(CFont* font, BOOL redraw = TRUE);
    /// The grid's own font, null when it uses the preferences' font.
    CFont* GetFont() const;

    // --- Settings of its parts ---

    void AllowCopyPaste(bool allow);
    bool IsCopyPasteAllowed() const;
    CCopyPasteSettings& GetCopyPasteSettings();
    CCopyPasteSettings const& GetCopyPasteSettings() const;
    void SetCopyPasteSettings(CCopyPasteSettings const& settings);
    void AllowDragAndDrop(bool allow);
    bool IsDragAndDropAllowed() const;
    CDragDropSettings& GetDragDropSettings();
    CDragDropSettings const& GetDragDropSettings() const;
    void SetDragDropSettings(CDragDropSettings const& settings);
    CEditInPlaceSettings& GetEditInPlaceSettings();
    CEditInPlaceSettings const& GetEditInPlaceSettings() const;
    void SetEditInPlaceSettings(CEditInPlaceSettings const& settings);
    CTooltipSettings& GetTooltipSettings();
    CTooltipSettings const& GetTooltipSettings() const;
    void SetTooltipSettings(CTooltipSettings const& settings);
    CTooltipSettings& GetInPlaceTooltipSettings();
    CTooltipSettings const& GetInPlaceTooltipSettings() const;
    void SetInPlaceTooltipSettings(CTooltipSettings const& settings);

    // --- Persistence ---

    /// The header and all settings, but no rows. Loading replaces the header by a new one of the stored class (the old
    /// one is deleted if its AutoDelete() says so), clears the focus and sorts. Throws CArchiveException by pointer,
    /// badSchema for a newer version; the grid is then as it was before.
    void Serialize(CArchive& archive) override;
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // CWnd
    BOOL PreCreateWindow(CREATESTRUCT& createStruct) override;
    void PreSubclassWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using NavigationKey = void (IKeyManager::*)(CGrid& grid, bool shift, bool ctrl);

    void Navigate(NavigationKey key, bool shift, bool ctrl);
    LRESULT AfterDefault(UINT message, WPARAM wParam, LPARAM lParam);
    void OnLeftDown(CPoint clientPoint, WPARAM keys, bool isDoubleClick);

    std::unique_ptr<Detail::GridCore> m_core;
};
} // namespace Ostrel::GUI
