// What windows do by themselves.
#include <algorithm>
#include <cstring>

#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

namespace
{

// System colours as class backgrounds have small numbers; brush handles do not.
constexpr LONG_PTR kLastColorBrush = 64;

LRESULT CopyText(Window const& window, WPARAM capacity, LPARAM buffer)
{
    if (capacity == 0 || buffer == 0)
    {
        return 0;
    }
    std::size_t const length = std::min<std::size_t>(window.text.size(), capacity - 1);
    auto* const target = reinterpret_cast<char*>(buffer);
    std::memcpy(target, window.text.data(), length);
    target[length] = '\0';
    return static_cast<LRESULT>(length);
}

LRESULT SetText(Window& window, LPARAM text)
{
    window.text = text != 0 ? reinterpret_cast<char const*>(text) : "";
    if (window.native != nullptr)
    {
        window.native->SetTitle(window.text);
    }
    return TRUE;
}

LRESULT EraseBackground(Window const& window, CDC& dc)
{
    HBRUSH const background = window.windowClass->description.hbrBackground;
    LONG_PTR const number = reinterpret_cast<LONG_PTR>(background);
    CRect area;
    dc.GetClipBox(&area);
    if (number > 0 && number <= kLastColorBrush)
    {
        dc.FillSolidRect(area, GetSysColor(static_cast<int>(number - 1)));
    }
    else if (CBrush* const brush = CBrush::FromHandle(background))
    {
        dc.FillRect(&area, brush);
    }
    else
    {
        return FALSE;
    }
    return TRUE;
}

LRESULT HitTest(Window const& window, CPoint screenPoint)
{
    CPoint const origin = ClientScreenOrigin(window);
    CPoint const inClient(screenPoint.x - origin.x, screenPoint.y - origin.y);
    if (window.ClientRect().PtInRect(inClient))
    {
        return HTCLIENT;
    }
    CPoint const inWindow = inClient + CSize(window.client.left, window.client.top);
    for (int const bar : {SB_VERT, SB_HORZ})
    {
        if (LayOutScrollBar(window, bar, window.bars[bar].position).bar.PtInRect(inWindow))
        {
            return bar == SB_VERT ? HTVSCROLL : HTHSCROLL;
        }
    }
    if (window.HasStyle(WS_VSCROLL) && window.HasStyle(WS_HSCROLL) && inWindow.x >= window.client.right &&
        inWindow.y >= window.client.bottom)
    {
        return HTSIZE;
    }
    return window.WindowRect().PtInRect(inWindow) ? HTBORDER : HTNOWHERE;
}

void PaintBorder(Window const& window, CDC& dc)
{
    bool const isField = (window.exStyle & WS_EX_CLIENTEDGE) != 0;
    int const width = FrameWidth(window.style, window.exStyle);
    COLORREF const color = GetSysColor(isField ? COLOR_WINDOW : COLOR_WINDOWFRAME);
    CRect rect = window.WindowRect();
    for (int line = 0; line < width; ++line)
    {
        dc.Draw3dRect(&rect, color, color);
        rect.DeflateRect(1, 1);
    }
    if (width > 0 && isField)
    {
        DrawFieldFrame(dc, window.WindowRect(),
                       IsChild(window.handle, GetFocus()) != FALSE || GetFocus() == window.handle);
    }
}

void PaintCorner(Window const& window, CDC& dc)
{
    if (window.HasStyle(WS_VSCROLL) && window.HasStyle(WS_HSCROLL))
    {
        CRect const& client = window.client;
        DrawScrollCorner(dc, CRect(client.right, client.bottom, client.right + GetSystemMetrics(SM_CXVSCROLL),
                                   client.bottom + GetSystemMetrics(SM_CYHSCROLL)));
    }
}

LRESULT PaintNonClient(HWND handle)
{
    CWindowDC dc(handle);
    if (Window const* const window = FindWindowRecord(handle))
    {
        dc.ExcludeClipRect(&window->client);
        PaintBorder(*window, dc);
        ScrollTracker const& tracker = ThreadState::Get().scrollTracker;
        tracker.Paint(*window, SB_VERT, dc);
        tracker.Paint(*window, SB_HORZ, dc);
        PaintCorner(*window, dc);
    }
    return 0;
}

LRESULT ShowCursor(Window const& window, WPARAM wParam, LPARAM lParam)
{
    if (window.parent != nullptr && CallProcedure(window.parent->handle, WM_SETCURSOR, wParam, lParam) != FALSE)
    {
        return TRUE;
    }
    Window const* const target = FindWindowRecord(reinterpret_cast<HWND>(wParam));
    // A parent is only asked; the look comes from the window under the pointer.
    if (target != &window)
    {
        return FALSE;
    }
    bool const isClient = LOWORD(static_cast<DWORD_PTR>(lParam)) == HTCLIENT;
    HCURSOR const own = window.windowClass->description.hCursor;
    if (!isClient)
    {
        SetCursor(LoadCursor(nullptr, IDC_ARROW));
    }
    else if (own != nullptr)
    {
        SetCursor(own);
    }
    return TRUE;
}

LRESULT TellPlace(HWND handle, WINDOWPOS const& place)
{
    if ((place.flags & SWP_NOMOVE) == 0)
    {
        SendMove(handle);
    }
    if ((place.flags & SWP_NOSIZE) == 0)
    {
        SendSize(handle);
    }
    return 0;
}

LRESULT MouseActivate(Window const& window, WPARAM wParam, LPARAM lParam)
{
    if (window.parent != nullptr)
    {
        return CallProcedure(window.parent->handle, WM_MOUSEACTIVATE, wParam, lParam);
    }
    return (window.exStyle & WS_EX_NOACTIVATE) != 0 ? MA_NOACTIVATE : MA_ACTIVATE;
}

LRESULT PressOnFrame(HWND handle, WPARAM hit, LPARAM place)
{
    if (hit == HTVSCROLL || hit == HTHSCROLL)
    {
        ThreadState::Get().scrollTracker.Begin(handle, hit == HTVSCROLL ? SB_VERT : SB_HORZ, CPoint(place));
    }
    return 0;
}

LRESULT SetRedraw(Window& window, WPARAM redraw)
{
    window.isRedrawOff = redraw == FALSE;
    return 0;
}

LRESULT CreateFirst(Window& window, CREATESTRUCT const& create)
{
    window.text = create.lpszName != nullptr ? create.lpszName : "";
    return TRUE;
}

LRESULT AskForMenu(HWND handle, LPARAM clientPoint)
{
    CPoint place(clientPoint);
    ClientToScreen(handle, &place);
    return CallProcedure(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(place.x, place.y));
}

LRESULT DefaultKey(HWND handle, UINT message, WPARAM key)
{
    bool const asksForMenu = key == VK_APPS || (key == VK_F10 && GetKeyState(VK_SHIFT) < 0);
    if (asksForMenu && (message == WM_KEYUP || message == WM_SYSKEYUP))
    {
        return CallProcedure(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
    }
    if (message == WM_SYSKEYDOWN && key == VK_F4)
    {
        PostMessage(GetTopLevel(handle), WM_CLOSE);
    }
    return 0;
}

LRESULT PassToParent(Window const& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return window.parent != nullptr ? CallProcedure(window.parent->handle, message, wParam, lParam) : 0;
}

LRESULT CalculateClient(Window const& window, LPARAM rect)
{
    auto& area = *reinterpret_cast<RECT*>(rect);
    area = DefaultClientArea(window, area);
    return 0;
}

LRESULT PaintNothing(HWND handle)
{
    CPaintDC const dc(handle);
    return 0;
}

LRESULT DefaultOf(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND const handle = window.handle;
    switch (message)
    {
    case WM_NCCREATE:
        return CreateFirst(window, *reinterpret_cast<CREATESTRUCT const*>(lParam));
    case WM_NCCALCSIZE:
        return CalculateClient(window, lParam);
    case WM_NCHITTEST:
        return HitTest(window, CPoint(lParam));
    case WM_NCPAINT:
        return PaintNonClient(handle);
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
        return PressOnFrame(handle, wParam, lParam);
    case WM_PAINT:
        return PaintNothing(handle);
    case WM_ERASEBKGND:
        return EraseBackground(window, *reinterpret_cast<CDC*>(wParam));
    case WM_SETREDRAW:
        return SetRedraw(window, wParam);
    case WM_SETTEXT:
        return SetText(window, lParam);
    case WM_GETTEXT:
        return CopyText(window, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(window.text.size());
    case WM_SETFONT:
        window.font = reinterpret_cast<HFONT>(wParam);
        if (LOWORD(static_cast<DWORD_PTR>(lParam)) != 0)
        {
            InvalidateRect(handle, nullptr);
        }
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(window.font);
    case WM_CLOSE:
        return DestroyWindow(handle), 0;
    case WM_SYSCOLORCHANGE:
        return RedrawWindow(handle, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_NOCHILDREN), 0;
    case WM_SETCURSOR:
        return ShowCursor(window, wParam, lParam);
    case WM_MOUSEACTIVATE:
        return MouseActivate(window, wParam, lParam);
    case WM_WINDOWPOSCHANGED:
        return TellPlace(handle, *reinterpret_cast<WINDOWPOS const*>(lParam));
    case WM_RBUTTONUP:
        return AskForMenu(handle, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_SYSKEYDOWN:
        return DefaultKey(handle, message, wParam);
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_CONTEXTMENU:
        return PassToParent(window, message, wParam, lParam);
    default:
        return 0;
    }
}

} // namespace

LRESULT DefWindowProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* const window = FindWindowRecord(handle);
    return window != nullptr ? DefaultOf(*window, message, wParam, lParam) : 0;
}

LRESULT CallWindowProc(WNDPROC procedure, HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure != nullptr ? procedure(handle, message, wParam, lParam)
                                : DefWindowProc(handle, message, wParam, lParam);
}
