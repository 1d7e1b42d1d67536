// Where the columns of a header lie: an immutable picture of one moment, made anew by every change and shared by
// whoever paints, hit-tests or measures. Knows no window: scroll positions are arguments.
//
// Look-ups by fid and by x are binary searches in sorted vectors. Widths are sums that stop at the largest int, so that
// no width from a damaged archive overflows; a negative width counts as 0.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::GUI
{

class CColumn;

/// A visible column and its place, in virtual x.
struct VisibleColumn
{
    CColumn* column;
    long fid;
    int position; ///< among all columns
    int left;
    int right;     ///< exclusive
    int sortLevel; ///< the first level that sorts by this column, -1 for none
    bool reverseSort;
};

class HeaderLayout
{
public:
    using Columns = std::vector<std::shared_ptr<CColumn>>;

    /// Reads fid, width and visibility of each column.
    HeaderLayout(Columns columns, int fixedCount, int headerHeight, std::vector<CSortInfo> const& sortLevels);

    [[nodiscard]] Columns const& AllColumns() const noexcept { return m_columns; }
    /// In header order; the first FixedCount() are fixed.
    [[nodiscard]] std::span<VisibleColumn const> VisibleColumns() const noexcept { return m_visible; }
    /// Never negative and never more than there are visible columns.
    [[nodiscard]] int FixedCount() const noexcept { return m_fixedCount; }
    [[nodiscard]] int FixedWidth() const noexcept { return m_fixedWidth; }
    [[nodiscard]] int ScrollableWidth() const noexcept { return m_scrollableWidth; }
    [[nodiscard]] int HeaderHeight() const noexcept { return m_headerHeight; }

    /// Positions, -1 when there is none.
    [[nodiscard]] int PositionOf(long fid) const noexcept;
    [[nodiscard]] int VisiblePositionOf(long fid) const noexcept;
    /// Null when there is none.
    [[nodiscard]] CColumn* ColumnAt(int position) const noexcept;
    [[nodiscard]] CColumn* ColumnOf(long fid) const noexcept;
    [[nodiscard]] VisibleColumn const* VisibleAt(int visiblePosition) const noexcept;
    [[nodiscard]] VisibleColumn const* VisibleOf(long fid) const noexcept;
    [[nodiscard]] bool IsFixed(VisibleColumn const& column) const noexcept;

    /// The column at a client x under a horizontal scroll position, null where there is none.
    [[nodiscard]] VisibleColumn const* HitTest(int clientX, int scrollPosition) const noexcept;
    /// The title's rectangle in client pixels, and the same without what the fixed columns cover.
    [[nodiscard]] CRect VirtualRect(VisibleColumn const& column, int scrollPosition) const noexcept;
    [[nodiscard]] CRect VisibleRect(VisibleColumn const& column, int scrollPosition) const noexcept;

private:
    struct FidEntry
    {
        long fid;
        int position;
        int visiblePosition; ///< -1 when hidden
    };
    struct Edge
    {
        int right;
        int visiblePosition;
    };

    void PlaceColumns();
    void IndexFids();
    void MarkSortLevels(std::vector<CSortInfo> const& sortLevels);
    [[nodiscard]] FidEntry const* Find(long fid) const noexcept;

    Columns m_columns;
    std::vector<VisibleColumn> m_visible;
    std::vector<FidEntry> m_fids; ///< by fid; equal fids by position
    std::vector<Edge> m_edges;    ///< of columns with a width, by right edge
    int m_fixedCount;
    int m_fixedWidth = 0;
    int m_scrollableWidth = 0;
    int m_headerHeight;
};

} // namespace Ostrel::GUI
