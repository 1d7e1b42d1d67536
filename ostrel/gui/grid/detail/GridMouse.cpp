#include <algorithm>
#include <cstdlib>
#include <utility>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridMouse.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/detail/GridPainter.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{
constexpr UINT kScrollStepMs = 100;

bool ShowsButton(CGridItem const& item)
{
    if (!item.HasChildren() || !item.IsExpanded())
    {
        return item.HasChildren();
    }
    CGridItem const* const next = RowArea::NextVisible(item);
    return next != nullptr && next->Parent() == &item;
}

void WatchForLeave(HWND window)
{
    TRACKMOUSEEVENT track;
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = window;
    TrackMouseEvent(&track);
}
} // namespace

void GridMouse::OnLeftDown(CPoint clientPoint, WPARAM keys, bool isDoubleClick)
{
    EndTracking(); // should a release never have come
    m_isPressed = true;
    m_core.Freeze().OnPress();
    m_pressPoint = clientPoint;
    m_pointer = clientPoint;
    if (m_header.IsOver(clientPoint))
    {
        isDoubleClick ? m_header.DoubleClick(clientPoint) : m_header.Press(clientPoint);
        return;
    }
    GridView::Hit const hit = m_core.View().RowAt(clientPoint);
    m_pressed = HoldOn({hit.row, hit.type});
    m_mayTrack = false;
    if (PressExpandButton(clientPoint, m_pressed.place))
    {
        return;
    }
    m_isClickDue = WaitsForRelease(m_pressed.place, keys);
    if (!m_isClickDue)
    {
        m_mayTrack = hit.row >= 0;
        Click(m_pressed.place, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0);
    }
}

void GridMouse::OnMove(CPoint clientPoint)
{
    if (m_header.IsActive())
    {
        m_header.Move(clientPoint);
        return;
    }
    if (!m_isPressed)
    {
        m_header.SetHot(clientPoint);
        WatchForLeave(m_core.Grid().GetSafeHwnd());
        return;
    }
    bool const isPast = std::abs(clientPoint.x - m_pressPoint.x) > GetSystemMetrics(SM_CXDRAG) ||
                        std::abs(clientPoint.y - m_pressPoint.y) > GetSystemMetrics(SM_CYDRAG);
    m_isClickDue = m_isClickDue && !isPast;
    if (m_mayTrack && !m_isTracking && isPast)
    {
        BeginTracking();
    }
    if (m_isTracking)
    {
        Track(clientPoint);
    }
}

void GridMouse::OnLeftUp(CPoint clientPoint, WPARAM keys)
{
    m_isPressed = false;
    if (m_header.IsActive())
    {
        CallbackErrors::Keep([&]()
                             { m_header.Release(clientPoint, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0); });
    }
    if (std::exchange(m_isClickDue, false) && m_core.AreaOf(m_pressed.item) != nullptr)
    {
        Click(PlaceNow(m_pressed), false, false);
    }
    EndTracking();
    m_core.Freeze().OnRelease();
}

bool GridMouse::CancelHeaderGesture()
{
    bool const isActive = m_header.IsActive();
    if (isActive)
    {
        m_header.Cancel();
    }
    return isActive;
}

void GridMouse::OnCaptureLost()
{
    m_isPressed = false;
    m_isClickDue = false;
    if (m_header.IsActive())
    {
        CallbackErrors::Keep([&]() { m_header.Cancel(); });
    }
    EndTracking();
    m_core.Freeze().OnRelease();
}

bool GridMouse::OnSetCursor()
{
    CPoint pointer;
    GetCursorPos(&pointer);
    m_core.Grid().ScreenToClient(&pointer);
    if (!m_header.IsResizing() && !m_header.IsOverEdge(pointer))
    {
        return false;
    }
    SetCursor(LoadCursor(nullptr, IDC_SIZEWE));
    return true;
}

void GridMouse::DescribePaintState(GridPaintState& state) const
{
    m_header.DescribePaintState(state);
    state.mouseSelection = RubberBand();
}

// --- Clicks ---

bool GridMouse::IsOnExpandButton(CPoint clientPoint, CGridItem const& item, CRect const& rowRect) const
{
    auto const layout = m_core.Columns().Layout();
    VisibleColumn const* const column = layout != nullptr ? layout->VisibleAt(0) : nullptr;
    bool const isPainted =
        (m_core.Looks().paintFilter & PaintHierarchy) != 0 && (m_core.Looks().paintFilter & PaintExpandButton) != 0;
    if (column == nullptr || !isPainted || !ShowsButton(item))
    {
        return false;
    }
    int const position = m_core.Scroller().HorizontalPosition();
    CRect cell = rowRect;
    cell.left = layout->VirtualRect(*column, position).left;
    CRect const button = ExpandButtonRect(cell, RowArea::Level(item));
    CRect const title = layout->VisibleRect(*column, position);
    return button.PtInRect(clientPoint) && clientPoint.x >= title.left && clientPoint.x < title.right;
}

bool GridMouse::PressExpandButton(CPoint clientPoint, Place place)
{
    CGridItem* const item = m_core.ItemAt(place.row, place.type);
    if (item == nullptr || !IsOnExpandButton(clientPoint, *item, m_core.View().RowRect(place.row, place.type)))
    {
        return false;
    }
    m_core.Rows().Expand(item, false, !item->IsExpanded());
    return true;
}

bool GridMouse::WaitsForRelease(Place place, WPARAM keys) const
{
    CGridItem const* const item = m_core.ItemAt(place.row, place.type);
    bool const isPlain = (keys & (MK_SHIFT | MK_CONTROL)) == 0;
    return m_core.parts.allowDragAndDrop && isPlain && item != nullptr && item->IsSelected();
}

void GridMouse::Click(Place place, bool shift, bool ctrl)
{
    GridSelection const& selection = m_core.Selection();
    bool const canExtend = selection.allowSelection && selection.allowMultiSelection && selection.FocusedRow() >= 0;
    if (ctrl)
    {
        ClickWithCtrl(place);
    }
    else if (shift && canExtend)
    {
        ClickWithShift(place);
    }
    else
    {
        ClickPlain(place);
    }
}

void GridMouse::ClickPlain(Place place)
{
    GridSelection& selection = m_core.Selection();
    CGridItem* const item = m_core.ItemAt(place.row, place.type);
    selection.Clear();
    if (item == nullptr)
    {
        selection.SetFocus(-1, NoContext);
        return;
    }
    if (m_core.AreaOf(item) != nullptr)
    {
        selection.Select(*item, true);
    }
    if (m_core.AreaOf(item) != nullptr)
    {
        selection.SetFocus(RowArea::RowOf(*item), item->Area()->Type());
    }
}

void GridMouse::ClickWithShift(Place place)
{
    GridSelection& selection = m_core.Selection();
    Place const focus{selection.FocusedRow(), selection.FocusedContext()};
    if (place.row < 0)
    {
        int const lastRow = m_core.Scrollable().RowCount() - 1;
        place = lastRow >= 0 ? Place{lastRow, ScrollableContext} : Place{m_core.Fixed().RowCount() - 1, FixedContext};
    }
    selection.Clear();
    selection.SelectRange(focus, place, true);
}

void GridMouse::ClickWithCtrl(Place place)
{
    GridSelection& selection = m_core.Selection();
    CGridItem* const item = m_core.ItemAt(place.row, place.type);
    if (item == nullptr)
    {
        return;
    }
    selection.SetFocus(place.row, place.type);
    if (m_core.AreaOf(item) != nullptr && HasContext(selection.selectable, place.type))
    {
        selection.Select(*item, !item->IsSelected());
    }
}

// --- Selecting by dragging ---

int GridMouse::SequenceOf(Place place) const
{
    return place.type == FixedContext ? place.row : m_core.Fixed().RowCount() + place.row;
}

GridMouse::Place GridMouse::PlaceOf(int sequence) const
{
    int const fixedRows = m_core.Fixed().RowCount();
    return sequence < fixedRows ? Place{sequence, FixedContext} : Place{sequence - fixedRows, ScrollableContext};
}

GridMouse::Hold GridMouse::HoldOn(Place place) const
{
    return {place, m_core.ItemAt(place.row, place.type)};
}

GridMouse::Place GridMouse::PlaceNow(Hold const& hold) const
{
    GridArea const* const area = m_core.AreaOf(hold.item);
    int const row = area != nullptr ? RowArea::RowOf(*hold.item) : -1;
    return row >= 0 ? Place{row, area->Type()} : hold.place;
}

GridMouse::Place GridMouse::PlaceNear(CPoint clientPoint) const
{
    GridGeometry const geometry = m_core.View().Geometry();
    CRect const band = geometry.ScrollableRect();
    if (int const row = geometry.FixedRowAt(clientPoint.y); row >= 0)
    {
        return {row, FixedContext};
    }
    if (geometry.scrollableRows == 0)
    {
        return {geometry.fixedRows - 1, FixedContext};
    }
    RowRange const shown = geometry.ShownScrollableRows();
    int const row = clientPoint.y < band.top ? shown.first : geometry.ScrollableRowAt(clientPoint.y);
    return {row >= 0 ? row : shown.last, ScrollableContext};
}

void GridMouse::BeginTracking()
{
    GridSelection const& selection = m_core.Selection();
    if (!selection.allowMouseTrack || !selection.allowSelection)
    {
        return;
    }
    m_isTracking = true;
    m_tracked = m_pressed;
}

void GridMouse::Track(CPoint clientPoint)
{
    MoveBand(clientPoint);
    ExtendTo(PlaceNear(clientPoint));
    ScrollFromNowOn(IsPointerOutside());
}

bool GridMouse::IsPointerOutside() const
{
    CRect const band = m_core.View().Geometry().ScrollableRect();
    return m_pointer.y < band.top || m_pointer.y >= band.bottom;
}

void GridMouse::ScrollFromNowOn(bool scroll)
{
    if (std::exchange(m_isScrolling, scroll) == scroll)
    {
        return;
    }
    CGrid& grid = m_core.Grid();
    scroll ? grid.SetTimer(MouseSelectionTimer, kScrollStepMs) : grid.KillTimer(MouseSelectionTimer);
}

// Only the rows between the last place and this one can change.
void GridMouse::ExtendTo(Place place)
{
    GridSelection& selection = m_core.Selection();
    Place const tracked = PlaceNow(m_tracked);
    if (place == tracked || place.row < 0)
    {
        return;
    }
    m_tracked = HoldOn(place);
    int const from = SequenceOf(tracked);
    int const to = SequenceOf(place);
    if (!selection.allowMultiSelection)
    {
        selection.Clear();
        selection.Select(place.row, place.type, true);
        return;
    }
    auto const [rangeFirst, rangeLast] = std::minmax({SequenceOf(PlaceNow(m_pressed)), to});
    for (int sequence = std::min(from, to); sequence <= std::max(from, to); ++sequence)
    {
        Place const each = PlaceOf(sequence);
        selection.Select(each.row, each.type, sequence >= rangeFirst && sequence <= rangeLast);
    }
}

void GridMouse::OnTimer()
{
    if (m_header.IsActive())
    {
        m_header.OnTimer();
        return;
    }
    if (!m_isTracking || !IsPointerOutside())
    {
        return;
    }
    bool const isAbove = m_pointer.y < m_core.View().Geometry().ScrollableRect().top;
    if (isAbove && m_pressed.place.type == FixedContext)
    {
        return;
    }
    m_core.Scroller().OnVerticalScroll(isAbove ? SB_LINEUP : SB_LINEDOWN);
    ExtendTo(PlaceNear(m_pointer));
}

void GridMouse::EndTracking()
{
    m_mayTrack = false;
    if (m_isTracking)
    {
        m_core.View().InvalidateRect(RubberBand());
        m_isTracking = false;
        ScrollFromNowOn(false);
    }
}

CRect GridMouse::RubberBand() const
{
    if (!m_isTracking)
    {
        return {};
    }
    CRect band(m_pressPoint, m_pointer);
    band.NormalizeRect();
    band.InflateRect(0, 0, 1, 1);
    return band;
}

void GridMouse::MoveBand(CPoint to)
{
    m_core.View().InvalidateRect(RubberBand());
    m_pointer = to;
    m_core.View().InvalidateRect(RubberBand());
}
} // namespace Ostrel::GUI::Detail
