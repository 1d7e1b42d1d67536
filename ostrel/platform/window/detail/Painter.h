// What of the windows of a thread must be painted, the pixels that a window may touch, and what has to be shown.
#pragma once

#include <vector>

#include <ostrel/platform/drawing/Region.h>
#include <ostrel/platform/window/detail/Window.h>

class CDC;
struct PAINTSTRUCT;

namespace Ostrel::Platform
{

class Surface;
class ThreadState;

class Painter
{
public:
    enum class Area
    {
        Client,
        Window
    };

    explicit Painter(ThreadState& state) noexcept : m_state(state) {}

    // ---- what is invalid
    /// Client coordinates. With children: theirs too.
    void Invalidate(Window& window, Region const& area, bool erase, bool withChildren);
    void InvalidateAll(Window& window, bool erase);
    void InvalidateFrame(Window& window);
    void Validate(Window& window, Region const& area, bool withChildren);
    /// The window was hidden, moved or is going: what it covered must be painted by those below. Its bounds are in the
    /// parent's client coordinates.
    void InvalidateBelow(Window& window, CRect const& bounds);
    void Forget(Window& window) noexcept;

    // ---- painting
    [[nodiscard]] bool HasDirty() const noexcept { return !m_dirty.empty(); }
    /// The window that gets WM_PAINT next, parents before their children; null when none needs it. Paints frames that
    /// alone are due on the way.
    HWND NextToPaint(HWND only);
    void PaintNow(HWND window, bool withChildren);
    void BeginPaint(HWND window, CDC& dc, PAINTSTRUCT& paint);
    void EndPaint(HWND window, CDC& dc);
    void AttachClient(HWND window, CDC& dc);
    void AttachWindow(HWND window, CDC& dc);
    /// Notes what a context that was attached to that part of the window may have drawn.
    void NoteDrawn(HWND window, CDC& dc, Area area);
    void PaintFrame(HWND window);

    // ---- showing
    void Expose(Window& topLevel, CRect const& area);
    void PresentAll();

    // ---- scrolling
    /// Moves pixels; returns what became invalid, in client coordinates.
    Region Scroll(Window& window, CPoint by, CRect const& area, CRect const& clip, bool moveChildren, bool erase);

private:
    /// What of the client area (or the window) shows, in the coordinates of the top-level window.
    [[nodiscard]] Region Visible(Window& window, Area area, bool withoutChildren) const;
    void Attach(Window& window, CDC& dc, CPoint origin, Region const& visible);
    Surface& SurfaceOf(Window& topLevel);
    void MarkDirty(Window& window);
    void Unmark(Window& window) noexcept;
    void MoveChildren(Window& window, CPoint by);

    ThreadState& m_state;
    std::vector<Window*> m_dirty;
};

} // namespace Ostrel::Platform
