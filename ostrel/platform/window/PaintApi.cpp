// The functions and device contexts of painting.
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/Wnd.h>
#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

namespace
{

Region RegionOf(Window const& window, RECT const* rect)
{
    return Region(rect != nullptr ? CRect(*rect) : window.ClientRect());
}

HWND HandleOf(CWnd const* window) noexcept
{
    return window != nullptr ? window->m_hWnd : nullptr;
}

bool HasOnlyThis(UINT flags) noexcept
{
    return (flags & RDW_NOCHILDREN) != 0;
}

} // namespace

BOOL InvalidateRect(HWND handle, RECT const* rect, BOOL erase)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    bool const withChildren = !window->HasStyle(WS_CLIPCHILDREN);
    ThreadState::Get().painter.Invalidate(*window, RegionOf(*window, rect), erase != FALSE, withChildren);
    return TRUE;
}

BOOL ValidateRect(HWND handle, RECT const* rect)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    ThreadState::Get().painter.Validate(*window, RegionOf(*window, rect), false);
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    if (FindWindowRecord(handle) == nullptr)
    {
        return FALSE;
    }
    ThreadState::Get().painter.PaintNow(handle, false);
    return TRUE;
}

BOOL RedrawWindow(HWND handle, RECT const* rect, UINT flags)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    Painter& painter = ThreadState::Get().painter;
    bool const withChildren =
        (flags & RDW_ALLCHILDREN) != 0 || (!HasOnlyThis(flags) && !window->HasStyle(WS_CLIPCHILDREN));
    if ((flags & RDW_FRAME) != 0)
    {
        painter.InvalidateFrame(*window);
    }
    if ((flags & RDW_INVALIDATE) != 0)
    {
        painter.Invalidate(*window, RegionOf(*window, rect), (flags & RDW_ERASE) != 0, withChildren);
    }
    if ((flags & RDW_VALIDATE) != 0)
    {
        painter.Validate(*window, RegionOf(*window, rect), withChildren);
    }
    if ((flags & (RDW_UPDATENOW | RDW_ERASENOW)) != 0)
    {
        painter.PaintNow(handle, withChildren);
    }
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL /*erase*/)
{
    Window const* const window = FindWindowRecord(handle);
    CRect const bounds = window != nullptr ? window->update.Bounds() : CRect();
    if (rect != nullptr)
    {
        *rect = bounds;
    }
    return !bounds.IsRectEmpty();
}

int ScrollWindowEx(HWND handle, int dx, int dy, RECT const* rect, RECT const* clip, Region* updated,
                   RECT* updatedBounds, UINT flags)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return ERROR;
    }
    CRect const area = rect != nullptr ? CRect(*rect) : window->ClientRect();
    CRect const within = clip != nullptr ? CRect(*clip) : window->ClientRect();
    Region const uncovered = ThreadState::Get().painter.Scroll(
        *window, CPoint(dx, dy), area, within, (flags & SW_SCROLLCHILDREN) != 0, (flags & SW_ERASE) != 0);
    if (updated != nullptr)
    {
        *updated = uncovered;
    }
    if (updatedBounds != nullptr)
    {
        *updatedBounds = uncovered.Bounds();
    }
    return RegionKind(uncovered);
}

BOOL ScrollWindow(HWND handle, int dx, int dy, RECT const* rect, RECT const* clip)
{
    UINT const children = rect == nullptr ? SW_SCROLLCHILDREN : 0U;
    return ScrollWindowEx(handle, dx, dy, rect, clip, nullptr, nullptr, SW_INVALIDATE | SW_ERASE | children) != ERROR;
}

namespace Ostrel::Platform
{

bool GetUpdateRegion(HWND handle, Region& region)
{
    Window const* const window = FindWindowRecord(handle);
    region = window != nullptr ? window->update : Region();
    return !region.IsEmpty();
}

void InvalidateRegion(HWND handle, Region const& region, bool erase)
{
    if (Window* const window = FindWindowRecord(handle))
    {
        ThreadState::Get().painter.Invalidate(*window, region, erase, !window->HasStyle(WS_CLIPCHILDREN));
    }
}

void ValidateRegion(HWND handle, Region const& region)
{
    if (Window* const window = FindWindowRecord(handle))
    {
        ThreadState::Get().painter.Validate(*window, region, false);
    }
}

} // namespace Ostrel::Platform

CClientDC::CClientDC(CWnd const* window) : CClientDC(HandleOf(window)) {}

CClientDC::CClientDC(HWND window) : m_window(window)
{
    ThreadState::Get().painter.AttachClient(window, *this);
}

CClientDC::~CClientDC()
{
    ThreadState::Get().painter.NoteDrawn(m_window, *this, Painter::Area::Client);
}

CWindowDC::CWindowDC(CWnd const* window) : CWindowDC(HandleOf(window)) {}

CWindowDC::CWindowDC(HWND window) : m_window(window)
{
    ThreadState::Get().painter.AttachWindow(window, *this);
}

CWindowDC::~CWindowDC()
{
    ThreadState::Get().painter.NoteDrawn(m_window, *this, Painter::Area::Window);
}

CPaintDC::CPaintDC(CWnd* window) : CPaintDC(HandleOf(window)) {}

CPaintDC::CPaintDC(HWND window) : m_window(window)
{
    ThreadState::Get().painter.BeginPaint(window, *this, m_ps);
}

CPaintDC::~CPaintDC()
{
    ThreadState::Get().painter.EndPaint(m_window, *this);
}
