// The scroll bars at the edges of windows: where their parts lie, how they look, and the mouse on them.
#pragma once

#include <ostrel/platform/window/Display.h>
#include <ostrel/platform/window/detail/Window.h>

class CDC;

namespace Ostrel::Platform
{

class ThreadState;

/// The parts of a scroll bar in the coordinates of its window. Empty when the window has no such bar.
struct ScrollLayout
{
    bool isVertical = true;
    CRect bar{};
    CRect firstArrow{};
    CRect lastArrow{};
    CRect track{}; ///< between the arrows
    CRect thumb{}; ///< empty when there is nothing to scroll or no room
};

enum class ScrollPart
{
    None,
    LineBack,
    LineForward,
    PageBack,
    PageForward,
    Thumb
};

/// bar: SB_HORZ or SB_VERT; position: where the thumb shall be shown.
[[nodiscard]] ScrollLayout LayOutScrollBar(Window const& window, int bar, int position) noexcept;
[[nodiscard]] ScrollPart ScrollPartAt(ScrollLayout const& layout, CPoint inWindow) noexcept;
/// The position that a thumb with its first pixel at this offset from the track's begin stands for.
[[nodiscard]] int PositionOfThumb(ScrollBar const& bar, ScrollLayout const& layout, int offset) noexcept;
/// The greatest position: maximum less page.
[[nodiscard]] int ScrollLimit(ScrollBar const& bar) noexcept;

/// The mouse button went down on a scroll bar and is not yet up. Arrows and the track repeat while they are held.
class ScrollTracker
{
public:
    explicit ScrollTracker(ThreadState& state) noexcept : m_state(state) {}

    void Begin(HWND window, int bar, CPoint screenPoint);
    /// True when the event belongs to the bar in hand.
    bool TakesMouse(MouseEvent const& event);
    void CaptureLost(HWND window);
    void Forget(HWND window);

    [[nodiscard]] bool IsDragging(HWND window, int bar) const noexcept
    {
        return m_window == window && m_bar == bar && m_part == ScrollPart::Thumb;
    }
    [[nodiscard]] int TrackPosition() const noexcept { return m_trackPosition; }
    void Paint(Window const& window, int bar, CDC& dc) const;

private:
    enum class Ended
    {
        ByRelease,
        ByLoss
    };

    void Move(CPoint screenPoint);
    void Drag(Window const& window, CPoint inWindow);
    void Repeat();
    void Send(int code, int position = 0);
    void End(Ended how);
    void Refresh();
    [[nodiscard]] int ShownPosition(Window const& window, int bar) const noexcept;

    ThreadState& m_state;
    HWND m_window = nullptr;
    int m_bar = 0;
    ScrollPart m_part = ScrollPart::None;
    bool m_isOverPart = false;
    bool m_isFirstRepeat = false;
    int m_grip = 0; ///< where in the thumb it was taken
    int m_trackPosition = 0;
    CPoint m_pointer{0, 0};
};

} // namespace Ostrel::Platform
