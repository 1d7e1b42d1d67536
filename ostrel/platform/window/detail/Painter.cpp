#include <algorithm>
#include <cstring>

#include <ostrel/platform/drawing/Surface.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/detail/Painter.h>
#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

namespace
{

/// More rectangles than this are presented as their bounds.
constexpr std::size_t kMaxPresentRects = 200;

LPARAM AsParameter(CDC& dc) noexcept
{
    return reinterpret_cast<LPARAM>(&dc);
}

/// Takes what a list of siblings above a window covers from a region. `origin`: of the siblings' coordinates.
void SubtractShown(Region& region, std::vector<Window*>::const_iterator first,
                   std::vector<Window*>::const_iterator last, CPoint origin)
{
    for (; first != last; ++first)
    {
        if ((*first)->HasStyle(WS_VISIBLE) && ((*first)->exStyle & WS_EX_TRANSPARENT) == 0)
        {
            region.Subtract((*first)->bounds + origin);
        }
    }
}

/// Copies the pixels of `to` from where they were, `by` back. Rectangles of a region come from top to bottom and from
/// left to right; the caller walks them against the movement so that no source is overwritten before it was read.
void MovePixels(Surface& surface, CRect const& to, CPoint by)
{
    std::size_t const bytes = static_cast<std::size_t>(to.Width()) * sizeof(std::uint32_t);
    for (int line = 0; line < to.Height(); ++line)
    {
        int const y = by.y > 0 ? to.bottom - 1 - line : to.top + line;
        std::memmove(surface.Row(y) + to.left, surface.Row(y - by.y) + to.left - by.x, bytes);
    }
}

void MoveRegion(Surface& surface, Region const& destination, CPoint by)
{
    std::vector<CRect> rects(destination.Rects().begin(), destination.Rects().end());
    std::stable_sort(rects.begin(), rects.end(),
                     [by](CRect const& a, CRect const& b)
                     {
                         if (a.top != b.top)
                         {
                             return by.y > 0 ? a.top > b.top : a.top < b.top;
                         }
                         return by.x > 0 ? a.left > b.left : a.left < b.left;
                     });
    for (CRect const& rect : rects)
    {
        MovePixels(surface, rect & surface.Bounds(), by);
    }
}

} // namespace

// ---- what is invalid

void Painter::MarkDirty(Window& window)
{
    if (!window.isInDirtyList)
    {
        window.isInDirtyList = true;
        m_dirty.push_back(&window);
    }
}

void Painter::Unmark(Window& window) noexcept
{
    if (window.isInDirtyList)
    {
        window.isInDirtyList = false;
        std::erase(m_dirty, &window);
    }
}

void Painter::Forget(Window& window) noexcept
{
    Unmark(window);
}

void Painter::Invalidate(Window& window, Region const& area, bool erase, bool withChildren)
{
    if (window.isRedrawOff || !IsShown(window))
    {
        return;
    }
    Region inside = area;
    inside.Intersect(window.ClientRect());
    if (inside.IsEmpty())
    {
        return;
    }
    window.update.Union(inside);
    window.eraseNeeded = window.eraseNeeded || erase;
    MarkDirty(window);
    if (!withChildren)
    {
        return;
    }
    for (Window* const child : window.children)
    {
        if (child->HasStyle(WS_VISIBLE) && inside.Intersects(child->bounds))
        {
            Region childArea = inside;
            childArea.Offset(-child->bounds.left - child->client.left, -child->bounds.top - child->client.top);
            InvalidateFrame(*child);
            Invalidate(*child, childArea, erase, true);
        }
    }
}

void Painter::InvalidateAll(Window& window, bool erase)
{
    InvalidateFrame(window);
    Invalidate(window, Region(window.ClientRect()), erase, true);
}

void Painter::InvalidateFrame(Window& window)
{
    if (IsShown(window) && !(window.client == window.WindowRect()))
    {
        window.frameNeeded = true;
        MarkDirty(window);
    }
}

void Painter::Validate(Window& window, Region const& area, bool withChildren)
{
    window.update.Subtract(area);
    if (window.update.IsEmpty())
    {
        window.eraseNeeded = false;
        if (!window.frameNeeded)
        {
            Unmark(window);
        }
    }
    if (!withChildren)
    {
        return;
    }
    for (Window* const child : window.children)
    {
        Region childArea = area;
        childArea.Offset(-child->bounds.left - child->client.left, -child->bounds.top - child->client.top);
        Validate(*child, childArea, true);
    }
}

void Painter::InvalidateBelow(Window& window, CRect const& bounds)
{
    if (window.parent != nullptr)
    {
        Invalidate(*window.parent, Region(bounds), true, true);
    }
}

// ---- painting

HWND Painter::NextToPaint(HWND only)
{
    std::size_t at = 0;
    while (at < m_dirty.size())
    {
        Window* window = m_dirty[at];
        for (Window* above = window->parent; above != nullptr; above = above->parent)
        {
            window = above->isInDirtyList ? above : window;
        }
        if (only != nullptr && window->handle != only)
        {
            ++at;
            continue;
        }
        if (!window->update.IsEmpty() && IsShown(*window))
        {
            return window->handle;
        }
        HWND const handle = window->handle;
        window->update.Clear();
        Unmark(*window);
        PaintFrame(handle);
        at = 0;
    }
    return nullptr;
}

void Painter::PaintNow(HWND handle, bool withChildren)
{
    Window* window = m_state.Find(handle);
    if (window == nullptr || !IsShown(*window))
    {
        return;
    }
    if (!window->update.IsEmpty())
    {
        CallProcedure(handle, WM_PAINT, 0, 0);
    }
    else
    {
        PaintFrame(handle);
    }
    window = m_state.Find(handle);
    if (window == nullptr || !withChildren)
    {
        return;
    }
    std::vector<HWND> children;
    for (Window const* const child : window->children)
    {
        children.push_back(child->handle);
    }
    for (HWND const child : children)
    {
        PaintNow(child, true);
    }
}

void Painter::PaintFrame(HWND handle)
{
    Window* const window = m_state.Find(handle);
    if (window != nullptr && window->frameNeeded)
    {
        window->frameNeeded = false;
        if (window->update.IsEmpty())
        {
            Unmark(*window);
        }
        CallProcedure(handle, WM_NCPAINT, 1, 0);
    }
}

void Painter::BeginPaint(HWND handle, CDC& dc, PAINTSTRUCT& paint)
{
    paint.dc = &dc;
    PaintFrame(handle);
    Window* const window = m_state.Find(handle);
    if (window == nullptr)
    {
        return;
    }
    Region visible = Visible(*window, Area::Client, window->HasStyle(WS_CLIPCHILDREN));
    CPoint const origin = ClientOrigin(*window);
    Region update = std::move(window->update);
    window->update.Clear();
    bool const erase = window->eraseNeeded;
    window->eraseNeeded = false;
    Unmark(*window);
    paint.rcPaint = update.Bounds();
    update.Offset(origin.x, origin.y);
    visible.Intersect(update);
    Attach(*window, dc, origin, visible);
    paint.fErase = erase && CallProcedure(handle, WM_ERASEBKGND, AsParameter(dc), 0) == 0 ? TRUE : FALSE;
}

void Painter::EndPaint(HWND handle, CDC& dc)
{
    NoteDrawn(handle, dc, Area::Client);
}

Surface& Painter::SurfaceOf(Window& topLevel)
{
    if (topLevel.native != nullptr)
    {
        return topLevel.native->BackBuffer();
    }
    // A window that was never shown has no pixels, but texts are measured on it.
    thread_local Surface nothing(1, 1);
    return nothing;
}

void Painter::Attach(Window& window, CDC& dc, CPoint origin, Region const& visible)
{
    Window& topLevel = TopLevelOf(window);
    Surface& surface = SurfaceOf(topLevel);
    Region inside = visible;
    inside.Intersect(topLevel.native != nullptr ? surface.Bounds() : CRect());
    dc.AttachSurface(surface, origin, inside);
    if (CFont* const font = CFont::FromHandle(window.font))
    {
        dc.SelectObject(font);
    }
}

void Painter::AttachClient(HWND handle, CDC& dc)
{
    if (Window* const window = m_state.Find(handle))
    {
        Attach(*window, dc, ClientOrigin(*window), Visible(*window, Area::Client, window->HasStyle(WS_CLIPCHILDREN)));
    }
}

void Painter::AttachWindow(HWND handle, CDC& dc)
{
    if (Window* const window = m_state.Find(handle))
    {
        Attach(*window, dc, WindowOrigin(*window), Visible(*window, Area::Window, window->HasStyle(WS_CLIPCHILDREN)));
    }
}

void Painter::NoteDrawn(HWND handle, CDC& dc, Area area)
{
    CRect drawn;
    dc.SelectClipRgn(nullptr);
    dc.SetViewportOrg(0, 0);
    dc.GetClipBox(&drawn);
    Window* const window = m_state.Find(handle);
    if (window != nullptr && !drawn.IsRectEmpty())
    {
        Window& topLevel = TopLevelOf(*window);
        topLevel.toPresent.Union(drawn + (area == Area::Window ? WindowOrigin(*window) : ClientOrigin(*window)));
    }
}

Region Painter::Visible(Window& window, Area area, bool withoutChildren) const
{
    if (!IsShown(window) || window.isRedrawOff)
    {
        return {};
    }
    CPoint const windowOrigin = WindowOrigin(window);
    CPoint const clientOrigin = ClientOrigin(window);
    Region visible(area == Area::Client ? window.ClientRect() + clientOrigin : window.WindowRect() + windowOrigin);
    if (withoutChildren)
    {
        SubtractShown(visible, window.children.begin(), window.children.end(), clientOrigin);
    }
    for (Window const* at = &window; at->parent != nullptr; at = at->parent)
    {
        Window const& parent = *at->parent;
        CPoint const parentOrigin = ClientOrigin(parent);
        visible.Intersect(parent.ClientRect() + parentOrigin);
        auto const self = std::find(parent.children.begin(), parent.children.end(), at);
        SubtractShown(visible, std::next(self), parent.children.end(), parentOrigin);
    }
    return visible;
}

// ---- showing

void Painter::Expose(Window& topLevel, CRect const& area)
{
    topLevel.toPresent.Union(area);
}

void Painter::PresentAll()
{
    bool presented = false;
    for (Window* const topLevel : m_state.TopLevels())
    {
        if (topLevel->toPresent.IsEmpty() || topLevel->native == nullptr || !topLevel->native->IsBufferFree())
        {
            continue;
        }
        topLevel->toPresent.Intersect(topLevel->WindowRect());
        if (!topLevel->toPresent.IsEmpty() && topLevel->HasStyle(WS_VISIBLE))
        {
            std::span<CRect const> const rects = topLevel->toPresent.Rects();
            CRect const bounds = topLevel->toPresent.Bounds();
            topLevel->native->Present(rects.size() > kMaxPresentRects ? std::span<CRect const>(&bounds, 1) : rects);
            presented = true;
        }
        topLevel->toPresent.Clear();
    }
    if (presented)
    {
        m_state.GetDisplay().Flush();
    }
}

// ---- scrolling

void Painter::MoveChildren(Window& window, CPoint by)
{
    std::vector<HWND> moved;
    for (Window* const child : window.children)
    {
        child->bounds.OffsetRect(by);
        moved.push_back(child->handle);
    }
    for (HWND const child : moved)
    {
        SendMove(child);
    }
}

Region Painter::Scroll(Window& window, CPoint by, CRect const& area, CRect const& clip, bool moveChildren, bool erase)
{
    HWND const handle = window.handle;
    CPoint const origin = ClientOrigin(window);
    CRect const source = area & window.ClientRect();
    Region visible = Visible(window, Area::Client, !moveChildren);
    visible.Offset(-origin.x, -origin.y);
    Region target = visible;
    target.Intersect(clip);

    // What waits to be painted has no pixels worth moving.
    Region moved = visible;
    moved.Intersect(source);
    moved.Subtract(window.update);
    moved.Offset(by.x, by.y);
    moved.Intersect(target);
    Region uncovered(source);
    uncovered.Union(source + by);
    uncovered.Intersect(target);
    uncovered.Subtract(moved);

    if (!moved.IsEmpty() && TopLevelOf(window).native != nullptr)
    {
        Region onSurface = moved;
        onSurface.Offset(origin.x, origin.y);
        MoveRegion(SurfaceOf(TopLevelOf(window)), onSurface, by);
        TopLevelOf(window).toPresent.Union(onSurface);
    }
    Validate(window, moved, false);
    if (moveChildren)
    {
        MoveChildren(window, by);
    }
    if (Window* const again = m_state.Find(handle))
    {
        Invalidate(*again, uncovered, erase, moveChildren);
    }
    return uncovered;
}

} // namespace Ostrel::Platform
