// The acting half of the grid driver; GridDriverText.cpp is the reading half.
#include <algorithm>
#include <cstdint>

#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/testing/GridDriver.h>

namespace Ostrel::Testing
{

using GUI::CColumn;
using GUI::CGridItem;
using GUI::CHeader;

namespace
{

std::string Quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

} // namespace

// ---- rows and cells

void GridDriver::ClickRow(std::string_view row, Modifier modifiers)
{
    m_driver.Click(m_grid, RowPoint(row), modifiers);
}

void GridDriver::DoubleClickRow(std::string_view row, Modifier modifiers)
{
    m_driver.DoubleClick(m_grid, RowPoint(row), modifiers);
}

void GridDriver::RightClickRow(std::string_view row)
{
    m_driver.Click(m_grid, RowPoint(row), Modifier::None, MouseButton::Right);
}

void GridDriver::ClickCell(std::string_view row, std::string_view column, Modifier modifiers)
{
    m_driver.Click(m_grid, CellPoint(row, column), modifiers);
}

void GridDriver::DoubleClickCell(std::string_view row, std::string_view column)
{
    m_driver.DoubleClick(m_grid, CellPoint(row, column));
}

void GridDriver::DragRow(std::string_view fromRow, std::string_view toRow, Modifier modifiers)
{
    m_driver.Drag(m_grid, RowPoint(fromRow), RowPoint(toRow), modifiers);
}

void GridDriver::ClickExpandButton(std::string_view row)
{
    CColumn const* const column = m_grid.GetHierarchicalColumn();
    if (column == nullptr)
    {
        throw DriverError("the grid has no column with expand buttons");
    }
    CGridItem* const item = Item(row);
    CRect const cell = m_grid.GetCellVirtualRect(item, column->GetFid());
    // The tree takes a square of the row's height for each level; the button is in the middle of the last one.
    int const left = cell.left + m_grid.GetHierarchicalLevel(item) * cell.Height();
    CPoint const button(left + cell.Height() / 2, cell.top + cell.Height() / 2);
    if (!VisibleCell(row, column->GetFid()).PtInRect(button))
    {
        throw DriverError("the expand button of " + Quoted(row) + " is not on the screen");
    }
    m_driver.Click(m_grid, button);
}

void GridDriver::ClickBelowRows()
{
    CRect area = m_grid.GetContextVisibleRect(GUI::ScrollableContext);
    auto const rows = static_cast<int>(m_grid.GetRowCount(GUI::ScrollableContext));
    if (rows > 0)
    {
        area.top =
            std::max(area.top, m_grid.GetLineVirtualRect(m_grid.GetItem(rows - 1, GUI::ScrollableContext)).bottom);
    }
    if (area.IsRectEmpty())
    {
        throw DriverError("there is no room below the rows");
    }
    m_driver.Click(m_grid, area.CenterPoint());
}

void GridDriver::HoverCell(std::string_view row, std::string_view column, int restMs)
{
    m_driver.Hover(m_grid, CellPoint(row, column), restMs);
}

// ---- header

void GridDriver::ClickCaption(std::string_view column, Modifier modifiers)
{
    m_driver.Click(m_grid, CaptionPoint(column), modifiers);
}

void GridDriver::DragCaptionEdge(std::string_view column, int pixels)
{
    CRect const caption = CaptionRect(column);
    CPoint const edge(caption.right - 1, caption.CenterPoint().y);
    m_driver.Drag(m_grid, edge, edge + CSize(pixels, 0));
}

void GridDriver::DragCaption(std::string_view column, std::string_view ontoColumn)
{
    m_driver.Drag(m_grid, CaptionPoint(column), CaptionPoint(ontoColumn));
}

// ---- scrolling

void GridDriver::Wheel(int notches)
{
    m_driver.MovePointer(m_grid, m_grid.GetContextVisibleRect(GUI::ScrollableContext).CenterPoint());
    m_driver.Wheel(notches);
}

void GridDriver::ScrollTo(std::string_view row)
{
    CGridItem* const item = Item(row);
    if (m_grid.GetContextType(item) != GUI::ScrollableContext)
    {
        return;
    }
    int const number = m_grid.GetRow(item);
    auto const isOff = [&](int first) { return number < first || number >= first + m_grid.GetLinesPerPage(true); };
    for (int first = m_grid.GetFirstVisibleRow(); isOff(first); first = m_grid.GetFirstVisibleRow())
    {
        Wheel(number < first ? 1 : -1);
        if (m_grid.GetFirstVisibleRow() == first)
        {
            throw DriverError("the wheel does not bring " + Quoted(row) + " to the screen: " + FirstRowText());
        }
    }
}

CRect GridDriver::VerticalBar() const
{
    CRect window;
    CRect client;
    m_grid.GetWindowRect(&window);
    m_grid.GetClientRect(&client);
    m_grid.ClientToScreen(&client);
    int const width = GetSystemMetrics(SM_CXVSCROLL);
    if (window.right - client.right < width)
    {
        throw DriverError("the grid shows no vertical scroll bar");
    }
    return {client.right, client.top, client.right + width, client.bottom};
}

void GridDriver::ClickScrollBar(ScrollBarPart part)
{
    CRect const bar = VerticalBar();
    int const arrow = std::min(GetSystemMetrics(SM_CYVSCROLL), bar.Height() / 2);
    int y = bar.top + arrow / 2;
    switch (part)
    {
    case ScrollBarPart::LineUp:
        break;
    case ScrollBarPart::LineDown:
        y = bar.bottom - arrow / 2;
        break;
    case ScrollBarPart::PageUp:
        y = bar.top + arrow;
        break;
    case ScrollBarPart::PageDown:
        y = bar.bottom - arrow - 1;
        break;
    }
    m_driver.Click({bar.CenterPoint().x, y});
}

// The middle of the thumb stands where the middle of the page stands in the range.
void GridDriver::DragThumb(int pixels)
{
    CRect const bar = VerticalBar();
    SCROLLINFO info{.cbSize = sizeof(SCROLLINFO), .fMask = SIF_ALL};
    m_grid.GetScrollInfo(SB_VERT, &info);
    int const arrow = std::min(GetSystemMetrics(SM_CYVSCROLL), bar.Height() / 2);
    std::int64_t const track = bar.Height() - 2 * arrow;
    std::int64_t const range = std::max(1, info.nMax - info.nMin + 1);
    std::int64_t const middle = 2LL * (info.nPos - info.nMin) + info.nPage;
    CPoint const thumb(bar.CenterPoint().x, bar.top + arrow + static_cast<int>(track * middle / (2 * range)));
    m_driver.Drag(thumb, thumb + CSize(0, pixels));
}

// ---- waiting

void GridDriver::WaitUntil(std::function<bool()> const& predicate, int limitMs)
{
    RequireWait(m_driver.RunUntil(predicate, limitMs), "what was waited for");
}

void GridDriver::WaitUntilState(std::string_view state, int limitMs)
{
    RequireWait(m_driver.RunUntil([&] { return State() == state; }, limitMs), std::string(state));
}

void GridDriver::WaitUntilCell(std::string_view row, std::string_view column, std::string_view text, int limitMs)
{
    bool const isThere = m_driver.RunUntil([&] { return HasRow(row) && CellText(row, column) == text; }, limitMs);
    RequireWait(isThere, std::string(row) + '.' + std::string(column) + '=' + std::string(text));
}

void GridDriver::RequireWait(bool hasSucceeded, std::string const& expected) const
{
    if (!hasSucceeded)
    {
        throw DriverError("waited in vain for: " + expected + "\n  the grid is: " + State());
    }
}

// ---- places

CRect GridDriver::VisibleCell(std::string_view row, long fid) const
{
    CRect const visible = m_grid.GetCellVisibleRect(Item(row), fid);
    if (visible.IsRectEmpty())
    {
        throw DriverError("the cell of " + Quoted(row) + " is not on the screen; " + FirstRowText());
    }
    return visible;
}

CPoint GridDriver::PointIn(std::string_view row, long fid) const
{
    CRect visible = VisibleCell(row, fid);
    CColumn const* const treeColumn = m_grid.GetHierarchicalColumn();
    if (treeColumn != nullptr && treeColumn->GetFid() == fid)
    {
        CGridItem* const item = Item(row);
        CRect const cell = m_grid.GetCellVirtualRect(item, fid);
        int const tree = (m_grid.GetHierarchicalLevel(item) + 1) * cell.Height();
        visible.left = std::clamp(cell.left + tree, visible.left, visible.right - 1);
    }
    return visible.CenterPoint();
}

CRect GridDriver::CellRect(std::string_view row, std::string_view column) const
{
    return VisibleCell(row, Column(column).GetFid());
}

CPoint GridDriver::CellPoint(std::string_view row, std::string_view column) const
{
    return PointIn(row, Column(column).GetFid());
}

CPoint GridDriver::RowPoint(std::string_view row) const
{
    return PointIn(row, KeyFid());
}

CRect GridDriver::CaptionRect(std::string_view column) const
{
    CHeader const* const header = m_grid.GetHeader();
    CRect caption = header->GetVisibleRect(m_grid, Column(column).GetFid());
    CRect client;
    m_grid.GetClientRect(&client);
    if (!m_grid.IsHeaderVisible() || !caption.IntersectRect(caption, client))
    {
        throw DriverError("the caption " + Quoted(column) + " is not on the screen");
    }
    return caption;
}

CPoint GridDriver::CaptionPoint(std::string_view column) const
{
    return CaptionRect(column).CenterPoint();
}

} // namespace Ostrel::Testing
