// The family of windows: parents, owners, children, z-order, and where they lie.
#include <algorithm>

#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

Window& TopLevelOf(Window& window) noexcept
{
    Window* at = &window;
    while (at->parent != nullptr)
    {
        at = at->parent;
    }
    return *at;
}

CPoint WindowOrigin(Window const& window) noexcept
{
    if (window.parent == nullptr)
    {
        return {};
    }
    CPoint const parentOrigin = ClientOrigin(*window.parent);
    return {parentOrigin.x + window.bounds.left, parentOrigin.y + window.bounds.top};
}

CPoint ClientOrigin(Window const& window) noexcept
{
    CPoint const origin = WindowOrigin(window);
    return {origin.x + window.client.left, origin.y + window.client.top};
}

CPoint ClientScreenOrigin(Window const& window) noexcept
{
    CPoint const origin = ClientOrigin(window);
    Window const* top = &window;
    while (top->parent != nullptr)
    {
        top = top->parent;
    }
    return {origin.x + top->bounds.left, origin.y + top->bounds.top};
}

bool IsShown(Window const& window) noexcept
{
    Window const* at = &window;
    while (at != nullptr && at->HasStyle(WS_VISIBLE))
    {
        at = at->parent;
    }
    return at == nullptr;
}

bool IsActiveTree(Window const& window) noexcept
{
    Window const* at = &window;
    while (at != nullptr && !at->HasStyle(WS_DISABLED))
    {
        at = at->parent;
    }
    return at == nullptr;
}

bool IsSelfOrAncestor(Window const& ancestor, Window const* window) noexcept
{
    while (window != nullptr && window != &ancestor)
    {
        window = window->parent;
    }
    return window != nullptr;
}

} // namespace Ostrel::Platform

using namespace Ostrel::Platform;

namespace
{

HWND HandleOf(Window const* window) noexcept
{
    return window != nullptr ? window->handle : nullptr;
}

std::vector<Window*> const& SiblingsOf(Window const& window)
{
    return window.parent != nullptr ? window.parent->children : ThreadState::Get().TopLevels();
}

HWND Neighbour(Window const& window, int step)
{
    std::vector<Window*> const& siblings = SiblingsOf(window);
    auto const at = std::find(siblings.begin(), siblings.end(), &window) - siblings.begin() + step;
    return at >= 0 && at < std::ssize(siblings) ? siblings[static_cast<std::size_t>(at)]->handle : nullptr;
}

bool EnumBelow(HWND parent, WNDENUMPROC function, LPARAM context)
{
    std::vector<HWND> children;
    if (Window const* const window = FindWindowRecord(parent))
    {
        std::transform(window->children.rbegin(), window->children.rend(), std::back_inserter(children), HandleOf);
    }
    return std::all_of(children.begin(), children.end(),
                       [&](HWND child)
                       {
                           return FindWindowRecord(child) == nullptr ||
                                  (function(child, context) != FALSE && EnumBelow(child, function, context));
                       });
}

bool IsSkipped(Window const& window, UINT flags) noexcept
{
    return ((flags & CWP_SKIPINVISIBLE) != 0 && !window.HasStyle(WS_VISIBLE)) ||
           ((flags & CWP_SKIPDISABLED) != 0 && window.HasStyle(WS_DISABLED)) ||
           ((flags & CWP_SKIPTRANSPARENT) != 0 && (window.exStyle & WS_EX_TRANSPARENT) != 0);
}

CPoint ScreenOriginOf(HWND handle) noexcept
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr ? ClientScreenOrigin(*window) : CPoint();
}

} // namespace

HWND GetParent(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return nullptr;
    }
    return window->parent != nullptr ? window->parent->handle : window->owner;
}

HWND GetTopLevel(HWND handle)
{
    Window* const window = FindWindowRecord(handle);
    return window != nullptr ? TopLevelOf(*window).handle : nullptr;
}

HWND SetParent(HWND handle, HWND newParent)
{
    Window* const window = FindWindowRecord(handle);
    Window* const parent = FindWindowRecord(newParent);
    if (window == nullptr || parent == nullptr || window->parent == nullptr || IsSelfOrAncestor(*window, parent))
    {
        return nullptr;
    }
    ThreadState& state = ThreadState::Get();
    HWND const before = window->parent->handle;
    if (window->HasStyle(WS_VISIBLE))
    {
        state.painter.InvalidateBelow(*window, window->bounds);
    }
    std::erase(window->parent->children, window);
    window->parent = parent;
    parent->children.push_back(window);
    state.painter.InvalidateAll(*window, true);
    return before;
}

HWND GetWindow(HWND handle, UINT relation)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return nullptr;
    }
    switch (relation)
    {
    case GW_HWNDFIRST:
        return SiblingsOf(*window).back()->handle;
    case GW_HWNDLAST:
        return SiblingsOf(*window).front()->handle;
    case GW_HWNDNEXT:
        return Neighbour(*window, -1);
    case GW_HWNDPREV:
        return Neighbour(*window, 1);
    case GW_OWNER:
        return window->owner;
    case GW_CHILD:
        return window->children.empty() ? nullptr : window->children.back()->handle;
    default:
        return nullptr;
    }
}

BOOL IsChild(HWND ancestor, HWND handle)
{
    Window const* const above = FindWindowRecord(ancestor);
    Window const* const window = FindWindowRecord(handle);
    return above != nullptr && window != nullptr && above != window && IsSelfOrAncestor(*above, window);
}

int GetDlgCtrlID(HWND handle)
{
    return static_cast<int>(GetWindowLongPtr(handle, GWLP_ID));
}

HWND GetDlgItem(HWND parent, int id)
{
    Window const* const window = FindWindowRecord(parent);
    if (window == nullptr)
    {
        return nullptr;
    }
    auto const found = std::find_if(window->children.rbegin(), window->children.rend(),
                                    [id](Window const* child) { return static_cast<int>(child->id) == id; });
    return found != window->children.rend() ? (*found)->handle : nullptr;
}

BOOL EnumChildWindows(HWND parent, WNDENUMPROC function, LPARAM context)
{
    return function != nullptr && FindWindowRecord(parent) != nullptr && EnumBelow(parent, function, context);
}

HWND WindowFromPoint(POINT screenPoint)
{
    ThreadState* const state = ThreadState::TryGet();
    return state != nullptr ? state->input.WindowAt(screenPoint) : nullptr;
}

HWND ChildWindowFromPoint(HWND parent, POINT clientPoint, UINT flags)
{
    Window const* const window = FindWindowRecord(parent);
    if (window == nullptr || !window->ClientRect().PtInRect(clientPoint))
    {
        return nullptr;
    }
    auto const found = std::find_if(window->children.rbegin(), window->children.rend(),
                                    [&](Window const* child)
                                    { return !IsSkipped(*child, flags) && child->bounds.PtInRect(clientPoint); });
    return found != window->children.rend() ? (*found)->handle : parent;
}

BOOL GetClientRect(HWND handle, RECT* rect)
{
    Window const* const window = FindWindowRecord(handle);
    if (rect != nullptr)
    {
        *rect = window != nullptr ? window->ClientRect() : CRect();
    }
    return window != nullptr && rect != nullptr;
}

BOOL GetWindowRect(HWND handle, RECT* screenRect)
{
    Window const* const window = FindWindowRecord(handle);
    if (screenRect != nullptr)
    {
        *screenRect = CRect();
    }
    if (window == nullptr || screenRect == nullptr)
    {
        return FALSE;
    }
    CPoint const client = ClientScreenOrigin(*window);
    *screenRect = CRect(CPoint(client.x - window->client.left, client.y - window->client.top), window->bounds.Size());
    return TRUE;
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count)
{
    CPoint const fromOrigin = ScreenOriginOf(from);
    CPoint const toOrigin = ScreenOriginOf(to);
    int const dx = fromOrigin.x - toOrigin.x;
    int const dy = fromOrigin.y - toOrigin.y;
    for (UINT number = 0; points != nullptr && number < count; ++number)
    {
        points[number].x += dx;
        points[number].y += dy;
    }
    return static_cast<int>(MAKELONG(dx, dy));
}

BOOL ClientToScreen(HWND handle, POINT* point)
{
    if (FindWindowRecord(handle) == nullptr || point == nullptr)
    {
        return FALSE;
    }
    MapWindowPoints(handle, nullptr, point, 1);
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point)
{
    if (FindWindowRecord(handle) == nullptr || point == nullptr)
    {
        return FALSE;
    }
    MapWindowPoints(nullptr, handle, point, 1);
    return TRUE;
}
