// Where windows are, how large, in which order, shown or hidden, enabled or not.
#include <algorithm>

#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

int FrameWidth(DWORD style, DWORD exStyle) noexcept
{
    bool const hasOwnFrame = (style & WS_CHILD) != 0 || (style & (WS_POPUP | WS_CAPTION)) == (WS_POPUP | WS_BORDER);
    int const border = hasOwnFrame && (style & WS_BORDER) != 0 ? GetSystemMetrics(SM_CXBORDER) : 0;
    int const edge = hasOwnFrame && (exStyle & WS_EX_CLIENTEDGE) != 0 ? GetSystemMetrics(SM_CXEDGE) : 0;
    return border + edge;
}

CRect DefaultClientArea(Window const& window, CRect area) noexcept
{
    int const frame = FrameWidth(window.style, window.exStyle);
    area.DeflateRect(frame, frame);
    if (window.HasStyle(WS_VSCROLL))
    {
        area.right -= GetSystemMetrics(SM_CXVSCROLL);
    }
    if (window.HasStyle(WS_HSCROLL))
    {
        area.bottom -= GetSystemMetrics(SM_CYHSCROLL);
    }
    area.right = std::max(area.right, area.left);
    area.bottom = std::max(area.bottom, area.top);
    return area;
}

bool LayOutClient(HWND handle)
{
    Window* window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return false;
    }
    RECT area = window->WindowRect();
    CallProcedure(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&area));
    window = FindWindowRecord(handle);
    if (window == nullptr || window->client == CRect(area))
    {
        return false;
    }
    window->client = area;
    window->client.right = std::max(area.right, area.left);
    window->client.bottom = std::max(area.bottom, area.top);
    window->update.Intersect(window->ClientRect());
    return true;
}

void SendSize(HWND handle)
{
    if (Window const* const window = FindWindowRecord(handle))
    {
        WPARAM const kind = window->isMinimized ? SIZE_MINIMIZED : window->isMaximized ? SIZE_MAXIMIZED : SIZE_RESTORED;
        CallProcedure(handle, WM_SIZE, kind, MAKELPARAM(window->client.Width(), window->client.Height()));
    }
}

void SendMove(HWND handle)
{
    if (Window const* const window = FindWindowRecord(handle))
    {
        CPoint const place = window->parent != nullptr ? window->bounds.TopLeft() + CSize(window->client.left, 0)
                                                       : window->bounds.TopLeft();
        CallProcedure(handle, WM_MOVE, 0, MAKELPARAM(place.x, place.y));
    }
}

} // namespace Ostrel::Platform

using namespace Ostrel::Platform;

namespace
{

enum class NativeFollows
{
    Yes,
    No ///< it is the native window that changed
};

void MoveInOrder(std::vector<Window*>& siblings, Window& window, HWND insertAfter)
{
    std::erase(siblings, &window);
    auto place = siblings.end();
    if (insertAfter == HWND_BOTTOM)
    {
        place = siblings.begin();
    }
    else if (Window const* const above = FindWindowRecord(insertAfter))
    {
        place = std::find(siblings.begin(), siblings.end(), above);
    }
    siblings.insert(place, &window);
}

void Restack(Window& window, HWND insertAfter)
{
    ThreadState& state = ThreadState::Get();
    MoveInOrder(window.parent != nullptr ? window.parent->children : state.TopLevels(), window, insertAfter);
    if (window.native != nullptr)
    {
        insertAfter == HWND_BOTTOM ? window.native->Lower() : window.native->Raise();
    }
    if (window.parent != nullptr && window.HasStyle(WS_VISIBLE))
    {
        state.painter.InvalidateBelow(window, window.bounds);
    }
}

WINDOWPOS AskForPlace(Window const& window, HWND insertAfter, CRect const& bounds, UINT flags)
{
    WINDOWPOS place{window.handle, insertAfter, bounds.left, bounds.top, bounds.Width(), bounds.Height(), flags};
    CallProcedure(window.handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
    return place;
}

void ShowNative(Window& topLevel, bool activate)
{
    topLevel.toPresent.Union(topLevel.WindowRect());
    ThreadState::Get().NativeOf(topLevel).Show(activate);
}

void SetShown(HWND handle, bool show, bool activate)
{
    ThreadState& state = ThreadState::Get();
    Window* window = state.Find(handle);
    if (window == nullptr || window->HasStyle(WS_VISIBLE) == show)
    {
        return;
    }
    CallProcedure(handle, WM_SHOWWINDOW, show, 0);
    window = state.Find(handle);
    if (window == nullptr)
    {
        return;
    }
    if (show)
    {
        window->style |= WS_VISIBLE;
        if (window->parent == nullptr)
        {
            ShowNative(*window, activate);
        }
        state.painter.InvalidateAll(*window, true);
        return;
    }
    bool const wasShown = IsShown(*window);
    window->style &= ~WS_VISIBLE;
    if (wasShown)
    {
        state.painter.InvalidateBelow(*window, window->bounds);
    }
    if (window->native != nullptr)
    {
        window->native->Hide();
    }
    state.input.WindowGoesAway(handle);
}

/// Size and place of a window have changed already, or change now; tells the window.
void ApplyBounds(HWND handle, CRect const& bounds, UINT flags, NativeFollows nativeFollows)
{
    ThreadState& state = ThreadState::Get();
    Window* window = state.Find(handle);
    CRect const before = window->bounds;
    window->bounds = bounds;
    if (window->native != nullptr && nativeFollows == NativeFollows::Yes && !(before == bounds))
    {
        window->native->SetBounds(bounds);
    }
    bool const moved = !(before.TopLeft() == bounds.TopLeft());
    bool const sized = !(before.Size() == bounds.Size());
    bool const clientChanged = (sized || (flags & SWP_FRAMECHANGED) != 0) && LayOutClient(handle);
    window = state.Find(handle);
    if (window == nullptr)
    {
        return;
    }
    bool const isChild = window->parent != nullptr;
    if ((flags & SWP_NOREDRAW) == 0 &&
        (sized || clientChanged || (moved && isChild) || (flags & SWP_FRAMECHANGED) != 0))
    {
        if (isChild && IsShown(*window))
        {
            state.painter.InvalidateBelow(*window, before);
        }
        state.painter.InvalidateAll(*window, true);
    }
    WINDOWPOS place{handle, nullptr, bounds.left, bounds.top, bounds.Width(), bounds.Height(), flags};
    place.flags |= (moved ? 0U : SWP_NOMOVE) | (sized || clientChanged ? 0U : SWP_NOSIZE);
    place.flags &= ~((moved ? SWP_NOMOVE : 0U) | (sized || clientChanged ? SWP_NOSIZE : 0U));
    CallProcedure(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place));
}

void SetIconic(Window& window, int command)
{
    if (window.parent != nullptr)
    {
        return;
    }
    NativeWindow& native = ThreadState::Get().NativeOf(window);
    switch (command)
    {
    case SW_SHOWMAXIMIZED:
        window.isMaximized = true;
        native.Maximize();
        break;
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
        window.isMinimized = true;
        native.Minimize();
        break;
    case SW_RESTORE:
    case SW_SHOWNORMAL:
        if (window.isMinimized || window.isMaximized)
        {
            window.isMinimized = window.isMaximized = false;
            native.Restore();
        }
        break;
    default:
        break;
    }
}

} // namespace

namespace Ostrel::Platform
{

void AdoptBounds(HWND topLevel, CRect const& screenBounds)
{
    Window const* const window = FindWindowRecord(topLevel);
    if (window != nullptr && !(window->bounds == screenBounds))
    {
        ApplyBounds(topLevel, screenBounds, SWP_NOZORDER | SWP_NOACTIVATE, NativeFollows::No);
    }
}

} // namespace Ostrel::Platform

BOOL SetWindowPos(HWND handle, HWND insertAfter, int x, int y, int width, int height, UINT flags)
{
    Window* window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    CPoint const corner = (flags & SWP_NOMOVE) != 0 ? window->bounds.TopLeft() : CPoint(x, y);
    CSize const size =
        (flags & SWP_NOSIZE) != 0 ? window->bounds.Size() : CSize(std::max(0, width), std::max(0, height));
    WINDOWPOS const place = AskForPlace(*window, insertAfter, CRect(corner, size), flags);
    window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    if ((place.flags & SWP_NOZORDER) == 0)
    {
        Restack(*window, place.hwndInsertAfter);
    }
    CRect const bounds(CPoint(place.x, place.y), CSize(std::max(0, place.cx), std::max(0, place.cy)));
    if (!(bounds == window->bounds) || (place.flags & SWP_FRAMECHANGED) != 0)
    {
        ApplyBounds(handle, bounds, place.flags, NativeFollows::Yes);
    }
    if ((place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0)
    {
        SetShown(handle, (place.flags & SWP_SHOWWINDOW) != 0, (place.flags & SWP_NOACTIVATE) == 0);
    }
    return TRUE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint)
{
    UINT const redraw = repaint != FALSE ? 0U : SWP_NOREDRAW;
    return SetWindowPos(handle, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | redraw);
}

BOOL ShowWindow(HWND handle, int command)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    bool const wasVisible = window->HasStyle(WS_VISIBLE);
    if (command != SW_HIDE)
    {
        SetIconic(*window, command);
    }
    bool const activate = command != SW_SHOWNOACTIVATE && command != SW_SHOWNA && command != SW_SHOWMINNOACTIVE;
    SetShown(handle, command != SW_HIDE, activate);
    return wasVisible;
}

BOOL IsWindowVisible(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr && IsShown(*window);
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return FALSE;
    }
    bool const wasDisabled = window->HasStyle(WS_DISABLED);
    if (wasDisabled == (enable != FALSE))
    {
        window->style = enable != FALSE ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
        if (enable == FALSE)
        {
            ThreadState::Get().input.WindowGoesAway(handle);
        }
        CallProcedure(handle, WM_ENABLE, enable != FALSE, 0);
    }
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr && !window->HasStyle(WS_DISABLED);
}

BOOL IsIconic(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr && window->isMinimized;
}

BOOL IsZoomed(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr && window->isMaximized;
}

BOOL BringWindowToTop(HWND handle)
{
    return SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL /*hasMenu*/, DWORD exStyle)
{
    if (rect == nullptr)
    {
        return FALSE;
    }
    int const frame = FrameWidth(style, exStyle);
    CRect grown(*rect);
    grown.InflateRect(frame, frame);
    *rect = grown;
    return TRUE;
}
