#include <algorithm>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridView.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/detail/Primitives.h>

namespace Ostrel::GUI::Detail
{
GridGeometry GridView::Geometry() const
{
    GridLooks const& looks = m_core.Looks();
    GridGeometry geometry;
    geometry.client = m_client;
    geometry.headerHeight = m_core.Columns().ShownHeight();
    geometry.separatorHeight = looks.drawSeparator ? std::max(looks.separatorHeight, 0) : 0;
    geometry.fixedRows = m_core.Fixed().RowCount();
    geometry.fixedRowHeight = std::max(m_core.Fixed().RowHeight(), 1);
    geometry.scrollableRows = m_core.Scrollable().RowCount();
    geometry.scrollableRowHeight = std::max(m_core.Scrollable().RowHeight(), 1);
    geometry.firstRow = std::max(m_core.Scroller().FirstRow(), 0);
    return geometry;
}

RowRange GridView::ShownRows(ContextType type) const
{
    switch (type)
    {
    case FixedContext:
        return Geometry().ShownFixedRows();
    case ScrollableContext:
        return Geometry().ShownScrollableRows();
    default:
        return {};
    }
}

CRect GridView::RowRect(int row, ContextType type) const
{
    GridGeometry const geometry = Geometry();
    return type == FixedContext ? geometry.FixedRowRect(row) : geometry.ScrollableRowRect(row);
}

GridView::Hit GridView::RowAt(CPoint clientPoint) const
{
    GridGeometry const geometry = Geometry();
    if (clientPoint.x < 0 || clientPoint.x >= m_client.cx)
    {
        return {};
    }
    if (int const row = geometry.FixedRowAt(clientPoint.y); row >= 0)
    {
        return {row, FixedContext};
    }
    int const row = geometry.ScrollableRowAt(clientPoint.y);
    return row >= 0 ? Hit{row, ScrollableContext} : Hit{};
}

CRect GridView::ContextVisibleRect(ContextType type) const
{
    switch (type)
    {
    case FixedContext:
        return Geometry().FixedRect();
    case ScrollableContext:
        return Geometry().ScrollableRect();
    default:
        return {};
    }
}

CRect GridView::ContextVirtualRect(ContextType type) const
{
    GridArea const* const area = m_core.Area(type);
    if (area == nullptr)
    {
        return {};
    }
    GridGeometry geometry = Geometry();
    geometry.firstRow = 0;
    int const rows = area->RowCount();
    int const width = m_core.Columns().TotalWidth();
    return type == FixedContext ? CRect(0, geometry.headerHeight, width, geometry.FixedRowRect(rows).top)
                                : CRect(0, geometry.ScrollableTop(), width, geometry.ScrollableRowRect(rows).top);
}

int GridView::RowOnScreen(CGridItem const& item) const
{
    GridArea const* const area = GridArea::Of(item);
    int const row = RowArea::RowOf(item);
    return row >= 0 && IsShown(row, area->Type()) ? row : -1;
}

CRect GridView::LineVisibleRect(CGridItem const& item) const
{
    int const row = RowOnScreen(item);
    if (row < 0)
    {
        return {};
    }
    ContextType const type = item.Area()->Type();
    return RowRect(row, type) & ContextVisibleRect(type);
}

CRect GridView::LineVirtualRect(CGridItem const& item) const
{
    int const row = RowArea::RowOf(item);
    if (row < 0)
    {
        return {};
    }
    GridGeometry geometry = Geometry();
    geometry.firstRow = 0;
    CRect rect = item.Area()->Type() == FixedContext ? geometry.FixedRowRect(row) : geometry.ScrollableRowRect(row);
    rect.right = rect.left + m_core.Columns().TotalWidth();
    return rect;
}

CRect GridView::CellVisibleRect(CGridItem const& item, long fieldId) const
{
    CRect rect = LineVisibleRect(item);
    auto const layout = m_core.Columns().Layout();
    VisibleColumn const* const column = layout != nullptr ? layout->VisibleOf(fieldId) : nullptr;
    if (column == nullptr || rect.IsRectEmpty())
    {
        return {};
    }
    CRect const title = layout->VisibleRect(*column, m_core.Scroller().HorizontalPosition());
    rect.left = std::max<int>(rect.left, title.left);
    rect.right = std::min<int>(rect.right, title.right);
    return rect.IsRectEmpty() ? CRect() : rect;
}

CRect GridView::ControlRect(CGridItem const& item, long fieldId) const
{
    CRect rect = CellVisibleRect(item, fieldId);
    if (!rect.IsRectEmpty())
    {
        auto const layout = m_core.Columns().Layout();
        rect.right = layout->VisibleRect(*layout->VisibleOf(fieldId), m_core.Scroller().HorizontalPosition()).right;
        rect.bottom = RowRect(RowArea::RowOf(item), item.Area()->Type()).bottom;
    }
    return rect;
}

CRect GridView::CellVirtualRect(CGridItem const& item, long fieldId) const
{
    CRect rect = LineVirtualRect(item);
    auto const layout = m_core.Columns().Layout();
    VisibleColumn const* const column = layout != nullptr ? layout->VisibleOf(fieldId) : nullptr;
    if (column == nullptr || rect.IsRectEmpty())
    {
        return {};
    }
    rect.left = column->left;
    rect.right = column->right;
    return rect;
}

void GridView::InvalidateRect(CRect const& rect, bool erase)
{
    if (!rect.IsRectEmpty() && m_core.Grid().GetSafeHwnd() != nullptr)
    {
        m_core.Grid().InvalidateRect(&rect, erase ? TRUE : FALSE);
    }
}

void GridView::InvalidateAll(bool erase)
{
    if (m_core.Grid().GetSafeHwnd() != nullptr)
    {
        m_core.Grid().Invalidate(erase ? TRUE : FALSE);
    }
}

void GridView::InvalidateArea(ContextType type)
{
    InvalidateRect(ContextVisibleRect(type));
}

void GridView::InvalidateRow(int row, ContextType type)
{
    InvalidateRows(row, row, type);
}

bool GridView::IsSelectedRow(int row, ContextType type) const
{
    CGridItem const* const item = m_core.ItemAt(row, type);
    return item != nullptr && item->IsSelected();
}

void GridView::InvalidateRowsAndBorders(int firstRow, int lastRow, ContextType type)
{
    GridGeometry const geometry = Geometry();
    int const border = LineWidth();
    CRect const fixed = geometry.FixedRect();
    CRect const scrollable = geometry.ScrollableRect();
    CRect const area = type == FixedContext ? fixed : scrollable;
    CRect rows(0, RowRect(firstRow, type).top, geometry.client.cx, RowRect(lastRow, type).bottom);
    if (rows.top - border < area.bottom && rows.bottom + border > area.top)
    {
        rows.top -= IsSelectedRow(firstRow - 1, type) ? border : 0;
        rows.bottom += IsSelectedRow(lastRow + 1, type) ? border : 0;
        InvalidateRect(rows & area);
    }
    // The frames of two rows join across the areas even where one of the rows is scrolled away.
    if (type == FixedContext && lastRow == geometry.fixedRows - 1 && IsSelectedRow(0, ScrollableContext))
    {
        InvalidateRect(CRect(0, scrollable.top, geometry.client.cx, scrollable.top + border) & scrollable);
    }
    if (type == ScrollableContext && firstRow == 0 && IsSelectedRow(geometry.fixedRows - 1, FixedContext))
    {
        InvalidateRect(CRect(0, fixed.bottom - border, geometry.client.cx, fixed.bottom) & fixed);
    }
}

void GridView::InvalidateRows(int firstRow, int lastRow, ContextType type)
{
    RowRange const shown = ShownRows(type);
    int const first = std::max(firstRow, shown.first);
    int const last = std::min(lastRow, shown.last);
    if (first <= last)
    {
        CRect rect = RowRect(first, type);
        rect.bottom = RowRect(last, type).bottom;
        InvalidateRect(rect & ContextVisibleRect(type));
    }
}

bool GridView::LooksAtNextRow(int row, ContextType type) const
{
    CGridItem const* const item = IsShown(row, type) ? m_core.ItemAt(row, type) : nullptr;
    return item != nullptr && (item->IsSelected() || item->HasChildren());
}

void GridView::InvalidateFrom(int row, ContextType type)
{
    GridGeometry const geometry = Geometry();
    int const first = LooksAtNextRow(row - 1, type) ? row - 1 : row;
    if (type == FixedContext)
    {
        CRect rect = geometry.FixedRectFrom(first);
        rect.bottom = geometry.client.cy;
        InvalidateRect(rect);
        return;
    }
    InvalidateRect(geometry.ScrollableRectFrom(first));
    if (row == 0 && IsSelectedRow(geometry.fixedRows - 1, FixedContext))
    {
        InvalidateRow(geometry.fixedRows - 1, FixedContext);
    }
}

bool GridView::IsOffScreen(int row, ContextType type) const
{
    GridArea const* const area = m_core.Area(type);
    if (area == nullptr)
    {
        return true;
    }
    int const first = type == ScrollableContext ? m_core.Scroller().FirstRow() : 0;
    return row < first || static_cast<long long>(row - first) * std::max(area->RowHeight(), 1) >= m_client.cy;
}

void GridView::InvalidateCell(int row, ContextType type, long fieldId)
{
    if (IsOffScreen(row, type))
    {
        return;
    }
    if (!IsField(fieldId))
    {
        InvalidateRow(row, type);
        return;
    }
    if (!IsShown(row, type))
    {
        return;
    }
    auto const layout = m_core.Columns().Layout();
    VisibleColumn const* const column = layout != nullptr ? layout->VisibleOf(fieldId) : nullptr;
    if (column == nullptr)
    {
        return;
    }
    CRect rect = RowRect(row, type) & ContextVisibleRect(type);
    CRect const title = layout->VisibleRect(*column, m_core.Scroller().HorizontalPosition());
    rect.left = std::max<int>(rect.left, title.left);
    rect.right = std::min<int>(rect.right, title.right);
    InvalidateRect(rect);
}

void GridView::InvalidateFiller(int row, ContextType type)
{
    if (IsShown(row, type))
    {
        CRect rect = RowRect(row, type) & ContextVisibleRect(type);
        GridColumns const& columns = m_core.Columns();
        rect.left = std::max(columns.TotalWidth() - m_core.Scroller().HorizontalPosition(), columns.FixedWidth());
        InvalidateRect(rect);
    }
}

void GridView::InvalidateHeader()
{
    InvalidateRect(Geometry().HeaderRect());
}
} // namespace Ostrel::GUI::Detail
