/// @file
/// The columns of a grid and their order.
#pragma once

#include <memory>

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Object.h>

class CFont;
class CImageList;

namespace Ostrel::GUI
{

class CColumn;
class CGrid;
class HeaderLayout;

/// The ordered columns of a grid, which of them are visible and fixed, where they lie, and the sort order.
///
/// Fixed columns are the first of the visible ones; they stay in place while the others scroll horizontally. Positions
/// are counted from 0: a position among all columns or, where it says "visible", among the visible ones. Virtual x is
/// measured from the left edge of the first column as if nothing were scrolled.
///
/// Threads: every operation may be called on any thread. Subscribers are called on the thread of the change, after it,
/// with no lock of the header held, also when the change is the column's own; they may call the header back and
/// subscribe and unsubscribe. A column pointer that a look-up returned is good until the column is removed.
class OSTREL_GUI_API CHeader : public IAutoDelete, public CObject
{
    DECLARE_SERIAL(CHeader)

public:
    /// What has changed. Value 8 is never raised.
    enum NotificationType : int
    {
        ColumnAdded = 0,             ///< at the end
        ColumnRemoved = 1,           ///< the column is still alive
        ColumnResized = 2,           ///< its width
        ColumnChanged = 3,           ///< anything of a column but its width and visibility
        ColumnVisibilityChanged = 4, ///< shown or hidden
        ColumnMoved = 5,             ///< its position
        FixedColumnsChanged = 6,     ///< how many columns do not scroll
        SortChanged = 7,             ///< the sort levels
        HeaderHeightChanged = 9,     ///< the height of the band
        FontChanged = 10,            ///< the font of the titles
        ImageListChanged = 11        ///< the images of the titles
    };

    /// Hears of changes of a header.
    class OSTREL_GUI_API INotify
    {
    public:
        INotify() = default;
        ///@{
        /// Subscribers have no state that the header knows.
        INotify(INotify const&) = default;
        INotify& operator=(INotify const&) = default;
        ///@}
        virtual ~INotify() = default;

        /// On the thread of the change, after it. The column is null when the change concerns the header as a whole.
        virtual void OnHeaderChanged(CHeader* header, CColumn* column, NotificationType type) = 0;
    };

    static constexpr int kMaximalSortLevels = 5; ///< the most levels that a sort order has

    /// A header without columns. `autoDelete` is what AutoDelete() tells the holder.
    explicit CHeader(bool autoDelete = true);
    /// Copies the columns, the fixed count, the height, the permissions, the navigation column and the pointers to font
    /// and image list, but neither sort levels nor subscribers.
    CHeader(CHeader const& other, bool autoDelete = true);
    CHeader& operator=(CHeader const&) = delete;
    /// Removes all columns, telling the subscribers.
    ~CHeader() override;

    /// What was given at construction.
    [[nodiscard]] bool AutoDelete() const override;

    /// Appends the column and takes ownership. False, and the column stays the caller's, when it is null, when its fid
    /// is -1 or -2, or when the header has a column with its fid.
    virtual bool Add(CColumn* column);
    /// Deletes the column. False when there is none with that fid.
    virtual bool Remove(long fid);
    /// Deletes all columns.
    virtual void RemoveAll();

    /// How many columns there are, hidden ones included.
    [[nodiscard]] virtual int GetColumnCount() const;
    /// How many columns are visible.
    [[nodiscard]] virtual int GetVisibleColumnCount() const;

    ///@{
    /// How many of the leading visible columns do not scroll. May exceed the number of visible columns.
    virtual void SetFixedColumnsCount(int count);
    [[nodiscard]] virtual int GetFixedColumnsCount() const;
    ///@}
    /// Whether the column is one that does not scroll. False for a column that is hidden.
    [[nodiscard]] virtual bool IsFixed(long fid) const;

    ///@{
    /// Makes a column visible, or hides it. False when there is no column with that fid.
    virtual bool ShowColumn(long fid);
    virtual bool HideColumn(long fid);
    ///@}

    ///@{
    /// Whether visible columns of that part may be moved, or others moved beside them, by anybody.
    [[nodiscard]] virtual bool CanMoveFixedColumns() const;
    [[nodiscard]] virtual bool CanMoveScrollableColumns() const;
    ///@}
    /// Whether the user may resize columns with the mouse.
    [[nodiscard]] virtual bool CanResizeColumn() const;
    ///@{
    /// Whether visible columns of that part may be moved, or others moved beside them, by anybody.
    virtual void AllowFixedColumnMove(bool allow);
    virtual void AllowScrollableColumnMove(bool allow);
    ///@}
    /// Whether the user may resize columns with the mouse; SetWidth always works.
    virtual void AllowColumnResize(bool allow);

    ///@{
    /// Moves a column directly before or after another. False, and nothing changes, when both are the same, one is
    /// missing, or a permission forbids it.
    virtual bool MoveBefore(long fid, long beforeFid);
    virtual bool MoveAfter(long fid, long afterFid);
    ///@}
    /// Moves a column before the one that is at the position now; the number of columns means to the end.
    virtual bool MoveToPosition(long fid, int position);
    /// The same among the visible columns.
    virtual bool MoveToVisiblePosition(long fid, int visiblePosition);

    ///@{
    /// The column at a position, among all or among the visible ones, or with a fid. Null when there is none.
    [[nodiscard]] virtual CColumn* GetColumnByIndex(int position) const;
    [[nodiscard]] virtual CColumn* GetVisibleColumnByIndex(int visiblePosition) const;
    [[nodiscard]] virtual CColumn* GetColumnByFid(long fid) const;
    [[nodiscard]] virtual CColumn* GetVisibleColumnByFid(long fid) const;
    ///@}

    ///@{
    /// The position of a column among all, or among the visible ones; -1 when it is not there.
    [[nodiscard]] virtual int GetColumnIndex(long fid) const;
    [[nodiscard]] virtual int GetVisibleColumnIndex(long fid) const;
    ///@}

    ///@{
    /// The column at that end, among all or among the visible ones. Null when there is none.
    [[nodiscard]] virtual CColumn* GetFirstColumn() const;
    [[nodiscard]] virtual CColumn* GetFirstVisibleColumn() const;
    [[nodiscard]] virtual CColumn* GetLastColumn() const;
    [[nodiscard]] virtual CColumn* GetLastVisibleColumn() const;
    ///@}

    /// The column under the point's x, in client pixels of the grid, or null. Columns of width 0 are never hit.
    [[nodiscard]] virtual CColumn* HitTest(CGrid const& grid, CPoint clientPoint) const;
    /// The title's rectangle in client pixels, scrolled as the grid is. (0, 0, 0, height) for a column that is hidden
    /// or missing.
    [[nodiscard]] virtual CRect GetVirtualRect(CGrid const& grid, long fid) const;
    /// The same without what lies under the fixed columns; empty when all of it does.
    [[nodiscard]] virtual CRect GetVisibleRect(CGrid const& grid, long fid) const;

    ///@{
    /// The height of the band in pixels.
    [[nodiscard]] virtual int GetHeaderHeight() const;
    virtual void SetHeaderHeight(int height);
    ///@}

    ///@{
    /// The sum of the widths of the fixed, or of the other, visible columns in pixels.
    [[nodiscard]] virtual int GetFixedColumnWidth() const;
    [[nodiscard]] virtual int GetScrollableColumnWidth() const;
    ///@}

    ///@{
    /// Position of the column that keyboard search looks into. Raises no event.
    virtual void SetNavigationColumn(int position);
    [[nodiscard]] virtual int GetNavigationColumn() const;
    ///@}

    ///@{
    /// Whether there may be sort levels; disallowing clears them.
    virtual void AllowSort(bool allow);
    [[nodiscard]] virtual bool CanSort() const;
    ///@}

    ///@{
    /// Whether there may be more than one sort level; disallowing clears them when there is more than one.
    virtual void AllowMultiSort(bool allow);
    [[nodiscard]] virtual bool CanMultiSort() const;
    ///@}
    /// Replaces a level or, with level equal to their number, appends one; at most five. Ignored where the permissions
    /// forbid it or the level is out of range.
    virtual void SetSort(int level, CSortInfo info);
    /// A sort level, counted from 0. Fid -2, ascending, for a level that does not exist.
    [[nodiscard]] virtual CSortInfo GetSort(int level) const;
    /// How many sort levels there are.
    [[nodiscard]] virtual int GetSortLevels() const;
    /// Clears the sort levels.
    virtual void ResetSort();

    /// The font of the titles, null for the grid's. Does not take ownership; must outlive the header. Returns the
    /// previous pointer. Raises its event even for the same pointer.
    virtual CFont* SetFont(CFont* font);
    /// The font of the titles; null when it is the grid's.
    [[nodiscard]] virtual CFont* GetFont() const;
    /// The images of the titles; as with the font.
    virtual CImageList* SetImageList(CImageList* imageList);
    /// The images of the titles; null without any.
    [[nodiscard]] virtual CImageList* GetImageList() const;

    /// Adds a subscriber to the changes. Does not take ownership; null and a subscriber that is there already are
    /// ignored. Called in the order of subscription.
    void Subscribe(INotify* subscriber);
    /// Removes a subscriber; does nothing for one that is not there.
    void Unsubscribe(INotify* subscriber);

    /// Stores or loads the columns with their classes, fixed count, height, permissions, sort levels, navigation
    /// column. Loading throws CArchiveException (badSchema for a newer version) and leaves the header as it was then;
    /// otherwise it removes the columns and adds the stored ones, telling the subscribers. Columns with a fid that is
    /// taken are dropped.
    void Serialize(CArchive& archive) override;
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

    /// What a paint pass or a mouse move needs to know of the header, at one moment and without further locking. Hold
    /// the pointer as long as anything of the layout is used: the header itself may have a newer one at any time. It
    /// keeps the columns of its moment alive. For the library itself: the class is declared in a private header.
    [[nodiscard]] std::shared_ptr<HeaderLayout const> GetLayout() const;

private:
    class Impl;
    std::unique_ptr<Impl> const m_impl;
};

} // namespace Ostrel::GUI
