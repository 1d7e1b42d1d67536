#include <algorithm>
#include <climits>

#include <ostrel/gui/grid/detail/GridGeometry.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// A million rows of a tall font pass 32 bits: what lies that far away is off the screen anyway.
int Clamped(long long value) noexcept
{
    return static_cast<int>(std::clamp<long long>(value, INT_MIN / 2, INT_MAX / 2));
}

int RowTop(int bandTop, long long rowsAbove, int rowHeight) noexcept
{
    return Clamped(bandTop + rowsAbove * rowHeight);
}

RowRange RowsWithTopIn(CRect const& band, int firstRow, int rowCount, int rowHeight) noexcept
{
    int const tops = (std::max<int>(band.Height(), 0) + rowHeight - 1) / rowHeight;
    return {firstRow, static_cast<int>(std::min<long long>(rowCount, static_cast<long long>(firstRow) + tops)) - 1};
}

int RowAt(CRect const& band, int firstRow, int rowCount, int rowHeight, int y) noexcept
{
    if (y < band.top || y >= band.bottom)
    {
        return -1;
    }
    int const row = firstRow + (y - band.top) / rowHeight;
    return row < rowCount ? row : -1;
}
} // namespace

CRect GridGeometry::HeaderRect() const noexcept
{
    return {0, 0, static_cast<int>(client.cx), std::min<int>(headerHeight, client.cy)};
}

CRect GridGeometry::FixedRect() const noexcept
{
    int const top = std::min<int>(headerHeight, client.cy);
    int const bottom = RowTop(headerHeight, fixedRows, fixedRowHeight);
    return {0, top, static_cast<int>(client.cx), std::min<int>(bottom, client.cy)};
}

int GridGeometry::ScrollableTop() const noexcept
{
    int const separator = fixedRows > 0 ? separatorHeight : 0;
    return Clamped(static_cast<long long>(RowTop(headerHeight, fixedRows, fixedRowHeight)) + separator);
}

CRect GridGeometry::ScrollableRect() const noexcept
{
    return {0, std::min<int>(ScrollableTop(), client.cy), static_cast<int>(client.cx), static_cast<int>(client.cy)};
}

int GridGeometry::FittingRows() const noexcept
{
    return ScrollableRect().Height() / scrollableRowHeight;
}

int GridGeometry::RowsDown() const noexcept
{
    return std::clamp(scrollableRows - firstRow, 0, FittingRows());
}

int GridGeometry::RowsUp() const noexcept
{
    return std::min({scrollableRows, firstRow + 1, FittingRows()});
}

int GridGeometry::LastFirstRow() const noexcept
{
    return std::max(0, scrollableRows - std::max(1, FittingRows()));
}

int GridGeometry::FirstRowToShow(int row) const noexcept
{
    int const page = std::max(1, FittingRows());
    if (row < firstRow)
    {
        return row;
    }
    return row >= firstRow + page ? row - page + 1 : firstRow;
}

RowRange GridGeometry::ShownFixedRows() const noexcept
{
    return RowsWithTopIn(FixedRect(), 0, fixedRows, fixedRowHeight);
}

RowRange GridGeometry::ShownScrollableRows() const noexcept
{
    return RowsWithTopIn(ScrollableRect(), firstRow, scrollableRows, scrollableRowHeight);
}

CRect GridGeometry::FixedRowRect(int row) const noexcept
{
    int const top = RowTop(headerHeight, row, fixedRowHeight);
    return {0, top, static_cast<int>(client.cx), top + fixedRowHeight};
}

CRect GridGeometry::ScrollableRowRect(int row) const noexcept
{
    int const top = RowTop(ScrollableTop(), static_cast<long long>(row) - firstRow, scrollableRowHeight);
    return {0, top, static_cast<int>(client.cx), top + scrollableRowHeight};
}

CRect GridGeometry::FixedRectFrom(int row) const noexcept
{
    CRect rect = FixedRect();
    rect.top = std::max<int>(rect.top, FixedRowRect(row).top);
    return rect;
}

CRect GridGeometry::ScrollableRectFrom(int row) const noexcept
{
    CRect rect = ScrollableRect();
    rect.top = std::max<int>(rect.top, ScrollableRowRect(row).top);
    return rect;
}

int GridGeometry::FixedRowAt(int y) const noexcept
{
    return RowAt(FixedRect(), 0, fixedRows, fixedRowHeight, y);
}

int GridGeometry::ScrollableRowAt(int y) const noexcept
{
    return RowAt(ScrollableRect(), firstRow, scrollableRows, scrollableRowHeight, y);
}
} // namespace Ostrel::GUI::Detail
