#include <algorithm>
#include <utility>

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/detail/ScrollTracker.h>
#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

namespace
{

constexpr int kFirstRepeatMs = 400;
constexpr int kRepeatMs = 50;

/// Along the bar.
int Along(ScrollLayout const& layout, CPoint point) noexcept
{
    return layout.isVertical ? point.y : point.x;
}
int Begin(ScrollLayout const& layout, CRect const& part) noexcept
{
    return layout.isVertical ? part.top : part.left;
}
int Length(ScrollLayout const& layout, CRect const& part) noexcept
{
    return layout.isVertical ? part.Height() : part.Width();
}
CRect Slice(ScrollLayout const& layout, int begin, int length) noexcept
{
    CRect const& bar = layout.bar;
    return layout.isVertical ? CRect(bar.left, begin, bar.right, begin + length)
                             : CRect(begin, bar.top, begin + length, bar.bottom);
}

CRect BarRect(Window const& window, int bar) noexcept
{
    CRect const& client = window.client;
    if (bar == SB_VERT)
    {
        return window.HasStyle(WS_VSCROLL)
                   ? CRect(client.right, client.top, client.right + GetSystemMetrics(SM_CXVSCROLL), client.bottom)
                   : CRect();
    }
    return window.HasStyle(WS_HSCROLL)
               ? CRect(client.left, client.bottom, client.right, client.bottom + GetSystemMetrics(SM_CYHSCROLL))
               : CRect();
}

bool CanScroll(ScrollBar const& bar) noexcept
{
    return !bar.isDisabled && !bar.isGreyed && ScrollLimit(bar) > bar.minimum;
}

CRect ThumbRect(ScrollBar const& bar, ScrollLayout const& layout, int position) noexcept
{
    std::int64_t const track = Length(layout, layout.track);
    std::int64_t const range = std::int64_t{bar.maximum} - bar.minimum + 1;
    std::int64_t const smallest = GetSystemMetrics(layout.isVertical ? SM_CYVTHUMB : SM_CXHTHUMB);
    std::int64_t const length = std::max(smallest, bar.page > 0 ? track * bar.page / range : smallest);
    if (!CanScroll(bar) || length >= track)
    {
        return {};
    }
    std::int64_t const travel = std::int64_t{ScrollLimit(bar)} - bar.minimum;
    std::int64_t const done = std::int64_t{std::clamp(position, bar.minimum, ScrollLimit(bar))} - bar.minimum;
    auto const offset = static_cast<int>((track - length) * done / travel);
    return Slice(layout, Begin(layout, layout.track) + offset, static_cast<int>(length));
}

} // namespace

int ScrollLimit(ScrollBar const& bar) noexcept
{
    std::int64_t const limit = std::int64_t{bar.maximum} - (bar.page > 0 ? std::int64_t{bar.page} - 1 : 0);
    return static_cast<int>(std::max<std::int64_t>(limit, bar.minimum));
}

ScrollLayout LayOutScrollBar(Window const& window, int bar, int position) noexcept
{
    ScrollLayout layout;
    layout.isVertical = bar == SB_VERT;
    layout.bar = BarRect(window, bar);
    if (layout.bar.IsRectEmpty())
    {
        layout.bar.SetRectEmpty();
        return layout;
    }
    int const length = Length(layout, layout.bar);
    int const arrow = std::min(GetSystemMetrics(layout.isVertical ? SM_CYVSCROLL : SM_CXHSCROLL), length / 2);
    int const begin = Begin(layout, layout.bar);
    layout.firstArrow = Slice(layout, begin, arrow);
    layout.lastArrow = Slice(layout, begin + length - arrow, arrow);
    layout.track = Slice(layout, begin + arrow, length - 2 * arrow);
    layout.thumb = ThumbRect(window.bars[bar], layout, position);
    return layout;
}

ScrollPart ScrollPartAt(ScrollLayout const& layout, CPoint inWindow) noexcept
{
    if (layout.firstArrow.PtInRect(inWindow))
    {
        return ScrollPart::LineBack;
    }
    if (layout.lastArrow.PtInRect(inWindow))
    {
        return ScrollPart::LineForward;
    }
    if (layout.thumb.IsRectEmpty() || !layout.track.PtInRect(inWindow))
    {
        return ScrollPart::None;
    }
    int const at = Along(layout, inWindow);
    int const thumb = Begin(layout, layout.thumb);
    if (at < thumb)
    {
        return ScrollPart::PageBack;
    }
    return at < thumb + Length(layout, layout.thumb) ? ScrollPart::Thumb : ScrollPart::PageForward;
}

int PositionOfThumb(ScrollBar const& bar, ScrollLayout const& layout, int offset) noexcept
{
    std::int64_t const room = Length(layout, layout.track) - Length(layout, layout.thumb);
    if (room <= 0)
    {
        return bar.position;
    }
    std::int64_t const travel = std::int64_t{ScrollLimit(bar)} - bar.minimum;
    std::int64_t const at = std::clamp<std::int64_t>(offset, 0, room);
    return static_cast<int>(bar.minimum + (at * travel + room / 2) / room);
}

int ScrollTracker::ShownPosition(Window const& window, int bar) const noexcept
{
    return IsDragging(window.handle, bar) ? m_trackPosition : window.bars[bar].position;
}

void ScrollTracker::Begin(HWND handle, int bar, CPoint screenPoint)
{
    Window const* const window = m_state.Find(handle);
    if (window == nullptr || !CanScroll(window->bars[bar]))
    {
        return;
    }
    CPoint const corner = ClientScreenOrigin(*window);
    CPoint const inWindow = screenPoint + CSize(window->client.left - corner.x, window->client.top - corner.y);
    ScrollLayout const layout = LayOutScrollBar(*window, bar, window->bars[bar].position);
    ScrollPart const part = ScrollPartAt(layout, inWindow);
    if (part == ScrollPart::None)
    {
        return;
    }
    m_trackPosition = window->bars[bar].position;
    m_grip = Along(layout, inWindow) - Platform::Begin(layout, layout.thumb);
    m_state.input.SetCapture(handle);
    m_window = handle;
    m_bar = bar;
    m_part = part;
    m_isOverPart = true;
    m_isFirstRepeat = true;
    m_pointer = screenPoint;
    Refresh();
    if (part != ScrollPart::Thumb)
    {
        m_state.timers.Set({handle, 0, TimerList::Kind::ScrollRepeat}, kFirstRepeatMs, nullptr, [this] { Repeat(); });
        Repeat();
    }
}

bool ScrollTracker::TakesMouse(MouseEvent const& event)
{
    if (m_window == nullptr)
    {
        return false;
    }
    if (event.kind == MouseEvent::Kind::Move)
    {
        Move(event.screenPosition);
    }
    else if (event.kind == MouseEvent::Kind::Release && event.button == MouseButton::Left)
    {
        End(Ended::ByRelease);
    }
    return true;
}

void ScrollTracker::Move(CPoint screenPoint)
{
    Window const* const window = m_state.Find(m_window);
    if (window == nullptr)
    {
        return;
    }
    m_pointer = screenPoint;
    CPoint const corner = ClientScreenOrigin(*window);
    CPoint const inWindow = screenPoint + CSize(window->client.left - corner.x, window->client.top - corner.y);
    if (m_part == ScrollPart::Thumb)
    {
        Drag(*window, inWindow);
        return;
    }
    bool const isOver = ScrollPartAt(LayOutScrollBar(*window, m_bar, window->bars[m_bar].position), inWindow) == m_part;
    if (std::exchange(m_isOverPart, isOver) != isOver)
    {
        Refresh();
    }
}

void ScrollTracker::Drag(Window const& window, CPoint inWindow)
{
    ScrollLayout const layout = LayOutScrollBar(window, m_bar, m_trackPosition);
    int const offset = Along(layout, inWindow) - m_grip - Platform::Begin(layout, layout.track);
    int const position = PositionOfThumb(window.bars[m_bar], layout, offset);
    if (std::exchange(m_trackPosition, position) != position)
    {
        Refresh();
        Send(SB_THUMBTRACK, position);
    }
}

// The first call comes with the press, the next ones from the timer: first after a pause, then in a steady row.
void ScrollTracker::Repeat()
{
    HWND const handle = m_window;
    if (std::exchange(m_isFirstRepeat, false) == false)
    {
        m_state.timers.Set({handle, 0, TimerList::Kind::ScrollRepeat}, kRepeatMs, nullptr, [this] { Repeat(); });
        Move(m_pointer);
    }
    if (!m_isOverPart)
    {
        return;
    }
    switch (m_part)
    {
    case ScrollPart::LineBack:
        return Send(SB_LINEUP);
    case ScrollPart::LineForward:
        return Send(SB_LINEDOWN);
    case ScrollPart::PageBack:
        return Send(SB_PAGEUP);
    case ScrollPart::PageForward:
        return Send(SB_PAGEDOWN);
    default:
        return;
    }
}

void ScrollTracker::Send(int code, int position)
{
    CallProcedure(m_window, m_bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position), 0);
}

void ScrollTracker::End(Ended how)
{
    HWND const handle = m_window;
    m_state.timers.Kill({handle, 0, TimerList::Kind::ScrollRepeat});
    if (m_part == ScrollPart::Thumb && how == Ended::ByRelease)
    {
        Send(SB_THUMBPOSITION, m_trackPosition);
    }
    Send(SB_ENDSCROLL);
    Refresh();
    m_window = nullptr;
    m_part = ScrollPart::None;
    if (how == Ended::ByRelease && m_state.input.Capture() == handle)
    {
        m_state.input.ReleaseCapture();
    }
}

void ScrollTracker::CaptureLost(HWND window)
{
    if (m_window != nullptr && m_window == window)
    {
        End(Ended::ByLoss);
    }
}

void ScrollTracker::Forget(HWND window)
{
    if (m_window == window)
    {
        m_window = nullptr;
        m_part = ScrollPart::None;
    }
}

void ScrollTracker::Refresh()
{
    if (Window* const window = m_state.Find(m_window))
    {
        m_state.painter.InvalidateFrame(*window);
    }
}

void ScrollTracker::Paint(Window const& window, int bar, CDC& dc) const
{
    ScrollLayout const layout = LayOutScrollBar(window, bar, ShownPosition(window, bar));
    if (layout.bar.IsRectEmpty())
    {
        return;
    }
    PartState const idle = CanScroll(window.bars[bar]) ? PartState::Normal : PartState::Disabled;
    auto const stateOf = [&](ScrollPart part)
    {
        bool const isHeld = m_window == window.handle && m_bar == bar && m_part == part && m_isOverPart;
        return isHeld ? PartState::Pressed : idle;
    };
    DrawScrollTrack(dc, layout.track, idle);
    DrawScrollButton(dc, layout.firstArrow, layout.isVertical ? ArrowDirection::Up : ArrowDirection::Left,
                     stateOf(ScrollPart::LineBack));
    DrawScrollButton(dc, layout.lastArrow, layout.isVertical ? ArrowDirection::Down : ArrowDirection::Right,
                     stateOf(ScrollPart::LineForward));
    if (!layout.thumb.IsRectEmpty())
    {
        DrawScrollThumb(dc, layout.thumb, layout.isVertical, stateOf(ScrollPart::Thumb));
    }
}

} // namespace Ostrel::Platform
