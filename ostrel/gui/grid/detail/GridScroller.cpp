#include <algorithm>
#include <cstdlib>
#include <utility>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridScroller.h>
#include <ostrel/platform/window/SystemParameters.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr int kHorizontalStep = 16;
} // namespace

int GridScroller::FirstRow() const
{
    return m_core.Scrollable().RowCount() > 0 ? m_firstRow : -1;
}

void GridScroller::SetFirstRow(int row)
{
    ApplyFirstRow(std::clamp(row, 0, m_core.View().Geometry().LastFirstRow()));
}

void GridScroller::ApplyFirstRow(int row)
{
    if (row == m_firstRow || m_core.Scrollable().RowCount() == 0)
    {
        return;
    }
    int const rowsUp = row - std::exchange(m_firstRow, row);
    ScrollPixels(rowsUp);
    UpdateVerticalBar();
}

void GridScroller::ScrollPixels(int rowsUp)
{
    GridGeometry const geometry = m_core.View().Geometry();
    CRect const band = geometry.ScrollableRect();
    if (m_core.Grid().GetSafeHwnd() == nullptr || band.IsRectEmpty())
    {
        return;
    }
    bool const staysOnScreen = std::abs(rowsUp) < geometry.FittingRows();
    int const distance = staysOnScreen ? rowsUp * geometry.scrollableRowHeight : 0;
    if (staysOnScreen && m_core.Looks().CanScrollPixels(distance))
    {
        m_core.Grid().ScrollWindow(0, -distance, &band, &band);
    }
    else
    {
        m_core.View().InvalidateRect(band);
    }
}

int GridScroller::HorizontalPosition() const
{
    SCROLLINFO info;
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    CGrid const& grid = m_core.Grid();
    return grid.GetSafeHwnd() != nullptr && grid.GetScrollInfo(SB_HORZ, &info, SIF_POS) != FALSE ? info.nPos : 0;
}

void GridScroller::SetHorizontalPosition(int position)
{
    m_core.Grid().SetScrollPos(SB_HORZ, position);
}

void GridScroller::OnHorizontalPosition(int before)
{
    if (HorizontalPosition() != before)
    {
        m_core.View().InvalidateAll();
    }
}

// A message made by hand carries its own 16 bits; one of the bar's own agrees with what the bar says.
int GridScroller::ThumbPosition(int bar, int thumb) const
{
    SCROLLINFO info;
    info.cbSize = sizeof info;
    bool const isKnown = m_core.Grid().GetScrollInfo(bar, &info, SIF_ALL) != FALSE;
    return isKnown && LOWORD(static_cast<DWORD_PTR>(info.nTrackPos)) == static_cast<WORD>(thumb) ? info.nTrackPos
                                                                                                 : thumb;
}

void GridScroller::OnVerticalScroll(int command, int thumb)
{
    GridGeometry const geometry = m_core.View().Geometry();
    if (geometry.scrollableRows == 0)
    {
        return;
    }
    switch (command)
    {
    case SB_LINEUP:
        SetFirstRow(m_firstRow - 1);
        break;
    case SB_LINEDOWN:
        SetFirstRow(std::max(m_firstRow, std::min(m_firstRow + 1, geometry.LastFirstRow())));
        break;
    case SB_PAGEUP:
        SetFirstRow(m_firstRow - std::max(1, geometry.RowsUp() - 1));
        break;
    case SB_PAGEDOWN:
        SetFirstRow(m_firstRow + std::max(1, geometry.RowsDown() - 1));
        break;
    case SB_TOP:
        SetFirstRow(0);
        break;
    case SB_BOTTOM:
        SetFirstRow(geometry.LastFirstRow());
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        SetFirstRow(ThumbPosition(SB_VERT, thumb));
        break;
    default:
        break;
    }
}

void GridScroller::OnHorizontalScroll(int command, int thumb)
{
    int const position = HorizontalPosition();
    int const page = std::max(kHorizontalStep, m_core.View().Geometry().client.cx - m_core.Columns().FixedWidth());
    switch (command)
    {
    case SB_LINELEFT:
        SetHorizontalPosition(position - kHorizontalStep);
        break;
    case SB_LINERIGHT:
        SetHorizontalPosition(position + kHorizontalStep);
        break;
    case SB_PAGELEFT:
        SetHorizontalPosition(position - page);
        break;
    case SB_PAGERIGHT:
        SetHorizontalPosition(position + page);
        break;
    case SB_LEFT:
        SetHorizontalPosition(0);
        break;
    case SB_RIGHT:
        SetHorizontalPosition(m_core.Columns().TotalWidth());
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        SetHorizontalPosition(ThumbPosition(SB_HORZ, thumb));
        break;
    default:
        break;
    }
}

void GridScroller::ReadWheelLines()
{
    SystemParametersInfo(SPI_GETWHEELSCROLLLINES, 0, &m_wheelLines, 0);
}

void GridScroller::OnWheel(int delta)
{
    bool const byPages = m_wheelLines == WHEEL_PAGESCROLL;
    // Beyond so many lines a notch goes to the end of any screen; the limit keeps a damaged setting from hanging.
    constexpr UINT kMostLines = 1000;
    int const lines = byPages ? 1 : static_cast<int>(std::min(m_wheelLines, kMostLines));
    int const steps = delta * lines / WHEEL_DELTA;
    int const up = byPages ? SB_PAGEUP : SB_LINEUP;
    int const down = byPages ? SB_PAGEDOWN : SB_LINEDOWN;
    for (int i = 0; i < std::abs(steps); ++i)
    {
        m_core.Grid().SendMessage(WM_VSCROLL, static_cast<WPARAM>(steps > 0 ? up : down));
    }
}

void GridScroller::EnsureVisible(int row)
{
    if (row < 0 || row >= m_core.Scrollable().RowCount())
    {
        return;
    }
    if (m_hasScrolledIntoView)
    {
        m_targetRow = row;
        m_targetItem = nullptr;
        m_core.Grid().SetTimer(EnsureVisibleTimer, kShortDelayMs);
        return;
    }
    ForgetTarget();
    int const before = m_firstRow;
    SetFirstRow(m_core.View().Geometry().FirstRowToShow(row));
    m_hasScrolledIntoView = m_firstRow != before && m_core.Grid().GetSafeHwnd() != nullptr;
}

void GridScroller::EnsureVisible(CGridItem& item)
{
    int const row = RowArea::RowOf(item);
    if (row < 0 || item.Area()->Type() != ScrollableContext)
    {
        return;
    }
    bool const isRecorded = m_hasScrolledIntoView;
    EnsureVisible(row);
    if (isRecorded)
    {
        m_targetItem = &item;
    }
}

// The last wish counts: what was recorded before the paint is none any more.
void GridScroller::ForgetTarget()
{
    if (m_targetRow >= 0)
    {
        m_core.Grid().KillTimer(EnsureVisibleTimer);
        m_targetItem = nullptr;
        m_targetRow = -1;
    }
}

void GridScroller::OnEnsureVisibleTimer()
{
    m_core.Grid().KillTimer(EnsureVisibleTimer);
    CGridItem* const item = std::exchange(m_targetItem, nullptr);
    int row = std::exchange(m_targetRow, -1);
    if (item != nullptr)
    {
        GridArea const* const area = m_core.AreaOf(item);
        row = area == &m_core.Scrollable() ? RowArea::RowOf(*item) : -1;
    }
    if (row >= 0 && row < m_core.Scrollable().RowCount())
    {
        SetFirstRow(m_core.View().Geometry().FirstRowToShow(row));
    }
}

// A view at the very top stays there: whoever looks at the top of a sorted list wants to see what comes to its top.
CGridItem* GridScroller::Anchor() const
{
    return m_core.IsCalm() && m_firstRow > 0 ? m_core.Scrollable().ItemAt(m_firstRow) : nullptr;
}

void GridScroller::OnRowsChanged(int changedRow, CGridItem* anchor)
{
    int wanted = m_firstRow;
    if (anchor != nullptr)
    {
        bool const isThere = m_core.AreaOf(anchor) == &m_core.Scrollable();
        CGridItem const* const shown = isThere ? m_core.Scrollable().VisibleInsteadOf(*anchor) : nullptr;
        // When the row itself has gone, its next neighbour is where the change began.
        wanted = shown != nullptr ? RowArea::RowOf(*shown) : std::min(m_firstRow, changedRow);
    }
    wanted = std::clamp(wanted, 0, m_core.View().Geometry().LastFirstRow());
    if (wanted != m_firstRow)
    {
        m_firstRow = wanted;
        m_core.View().InvalidateArea(ScrollableContext);
        PostUpdateBars();
    }
}

void GridScroller::OnRowMoved(RowMove const& move, CGridItem* anchor)
{
    bool const movesAnchor = m_firstRow >= move.from && m_firstRow < move.from + move.count;
    if (anchor != nullptr && !movesAnchor)
    {
        OnRowsChanged(std::min(move.from, move.to), anchor);
    }
}

void GridScroller::UpdateBars()
{
    UpdateVerticalBar();
    UpdateHorizontalBar();
    DropNeedlessBars();
}

// Each bar takes room, so that two of them can be needed only because of each other.
void GridScroller::DropNeedlessBars()
{
    constexpr DWORD kBoth = WS_VSCROLL | WS_HSCROLL;
    CGrid& grid = m_core.Grid();
    if (grid.GetSafeHwnd() == nullptr || (grid.GetStyle() & kBoth) != kBoth)
    {
        return;
    }
    GridGeometry whole = m_core.View().Geometry();
    whole.client.cx += GetSystemMetrics(SM_CXVSCROLL);
    whole.client.cy += GetSystemMetrics(SM_CYHSCROLL);
    if (whole.scrollableRows <= whole.FittingRows() && m_core.Columns().TotalWidth() <= whole.client.cx)
    {
        grid.ShowScrollBar(SB_BOTH, FALSE);
    }
}

void GridScroller::UpdateVerticalBar()
{
    GridGeometry const geometry = m_core.View().Geometry();
    SetBar(SB_VERT, {std::max(0, geometry.scrollableRows - 1), geometry.FittingRows(), std::max(0, FirstRow())},
           m_vertical);
}

void GridScroller::UpdateHorizontalBar()
{
    int const width = m_core.Columns().TotalWidth();
    SetBar(SB_HORZ, {std::max(0, width - 1), static_cast<int>(m_core.View().Geometry().client.cx), -1}, m_horizontal);
}

void GridScroller::SetBar(int which, Bar const& wanted, Bar& present)
{
    if (wanted == present || m_core.Grid().GetSafeHwnd() == nullptr)
    {
        return;
    }
    present = wanted;
    SCROLLINFO info;
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | (wanted.position >= 0 ? SIF_POS : 0U);
    info.nMax = wanted.last;
    info.nPage = static_cast<UINT>(std::max(0, wanted.page));
    info.nPos = wanted.position;
    m_core.Grid().SetScrollInfo(which, &info);
}

void GridScroller::PostUpdateBars()
{
    if (!m_isUpdatePosted)
    {
        m_isUpdatePosted = m_core.Thread().Post(GridOperation::DeferredLayout);
    }
}

void GridScroller::OnPostedUpdateBars()
{
    m_isUpdatePosted = false;
    UpdateBars();
}

void GridScroller::OnDestroy() noexcept
{
    m_vertical = {};
    m_horizontal = {};
    m_isUpdatePosted = false;
    m_hasScrolledIntoView = false;
    m_targetItem = nullptr;
    m_targetRow = -1;
}

void GridScroller::OnResized()
{
    UpdateBars();
    GridGeometry const geometry = m_core.View().Geometry();
    if (m_firstRow > geometry.LastFirstRow())
    {
        m_firstRow = geometry.LastFirstRow();
        m_core.View().InvalidateArea(ScrollableContext);
        UpdateVerticalBar();
    }
}
} // namespace Ostrel::GUI::Detail
