// Where the bands of a grid lie: header, fixed rows, separator, scrollable rows. Pure arithmetic over a handful of
// numbers, in client pixels; it knows no window and no rows. Every row of an area has the area's height.
#pragma once

#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::GUI::Detail
{
/// Rows [first, last]; empty when last < first.
struct RowRange
{
    int first = 0;
    int last = -1;

    [[nodiscard]] constexpr bool IsEmpty() const noexcept { return last < first; }
    [[nodiscard]] constexpr bool Contains(int row) const noexcept { return row >= first && row <= last; }
    friend constexpr bool operator==(RowRange const&, RowRange const&) = default;
};

struct GridGeometry
{
    CSize client;
    int headerHeight = 0;    ///< 0 while the header is hidden
    int separatorHeight = 0; ///< 0 when none is drawn
    int fixedRows = 0;
    int fixedRowHeight = 1;
    int scrollableRows = 0;
    int scrollableRowHeight = 1;
    int firstRow = 0; ///< the first shown scrollable row

    [[nodiscard]] CRect HeaderRect() const noexcept;
    [[nodiscard]] CRect FixedRect() const noexcept;
    [[nodiscard]] CRect ScrollableRect() const noexcept;
    /// Where the scrollable rows begin, also where that is below the window.
    [[nodiscard]] int ScrollableTop() const noexcept;

    /// Whole rows that fit into the scrollable band, 0 when not even one does.
    [[nodiscard]] int FittingRows() const noexcept;
    /// Fully shown rows from the first shown one down, or that would be shown if it were at the bottom.
    [[nodiscard]] int RowsDown() const noexcept;
    [[nodiscard]] int RowsUp() const noexcept;
    /// The first shown row at which the last row is at the bottom.
    [[nodiscard]] int LastFirstRow() const noexcept;
    /// The first shown row nearest to the present one at which the row is fully shown.
    [[nodiscard]] int FirstRowToShow(int row) const noexcept;

    /// Rows whose top is on the screen.
    [[nodiscard]] RowRange ShownFixedRows() const noexcept;
    [[nodiscard]] RowRange ShownScrollableRows() const noexcept;

    /// The band of a row across the client width, wherever it is.
    [[nodiscard]] CRect FixedRowRect(int row) const noexcept;
    [[nodiscard]] CRect ScrollableRowRect(int row) const noexcept;
    /// From a row on down to the end of its area's band; empty when that is not on the screen.
    [[nodiscard]] CRect FixedRectFrom(int row) const noexcept;
    [[nodiscard]] CRect ScrollableRectFrom(int row) const noexcept;

    /// Rows under a y, -1 for none.
    [[nodiscard]] int FixedRowAt(int y) const noexcept;
    [[nodiscard]] int ScrollableRowAt(int y) const noexcept;
};
} // namespace Ostrel::GUI::Detail
