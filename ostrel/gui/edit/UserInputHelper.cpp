#include <ostrel/gui/edit/UserInputHelper.h>
#include <ostrel/platform/window/Messages.h>

namespace Ostrel::GUI
{

LRESULT CUserInputHelper::OnMouse(UINT message, UINT keys, CPoint point)
{
    switch (message)
    {
    case WM_MOUSEMOVE:
        return OnMouseMove(keys, point);
    case WM_LBUTTONDOWN:
        return OnLButtonDown(keys, point);
    case WM_LBUTTONUP:
        return OnLButtonUp(keys, point);
    case WM_LBUTTONDBLCLK:
        return OnLButtonDblClk(keys, point);
    case WM_RBUTTONDOWN:
        return OnRButtonDown(keys, point);
    case WM_RBUTTONUP:
        return OnRButtonUp(keys, point);
    case WM_RBUTTONDBLCLK:
        return OnRButtonDblClk(keys, point);
    case WM_MBUTTONDOWN:
        return OnMButtonDown(keys, point);
    case WM_MBUTTONUP:
        return OnMButtonUp(keys, point);
    case WM_MBUTTONDBLCLK:
        return OnMButtonDblClk(keys, point);
    default:
        return OnMouseHover(keys, point);
    }
}

LRESULT CUserInputHelper::OnKey(UINT message, UINT code, UINT repeatCount, UINT flags)
{
    switch (message)
    {
    case WM_KEYDOWN:
        return OnKeyDown(code, repeatCount, flags);
    case WM_KEYUP:
        return OnKeyUp(code, repeatCount, flags);
    case WM_CHAR:
        return OnChar(code, repeatCount, flags);
    case WM_DEADCHAR:
        return OnDeadChar(code, repeatCount, flags);
    case WM_SYSKEYDOWN:
        return OnSysKeyDown(code, repeatCount, flags);
    case WM_SYSKEYUP:
        return OnSysKeyUp(code, repeatCount, flags);
    case WM_SYSCHAR:
        return OnSysChar(code, repeatCount, flags);
    default:
        return OnSysDeadChar(code, repeatCount, flags);
    }
}

LRESULT CUserInputHelper::OnInput(UINT message, WPARAM wParam, LPARAM lParam)
{
    auto const low = static_cast<UINT>(LOWORD(static_cast<DWORD_PTR>(lParam)));
    auto const high = static_cast<UINT>(HIWORD(static_cast<DWORD_PTR>(lParam)));
    switch (message)
    {
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
    case WM_MOUSEHOVER:
        return OnMouse(message, static_cast<UINT>(wParam), CPoint(lParam));
    case WM_MOUSELEAVE:
        return OnMouseLeave();
    case WM_CAPTURECHANGED:
        return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
    case WM_DEADCHAR:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
    case WM_SYSCHAR:
    case WM_SYSDEADCHAR:
        return OnKey(message, static_cast<UINT>(wParam), low, high);
    case WM_SIZE:
        return OnSize(static_cast<UINT>(wParam), {static_cast<int>(low), static_cast<int>(high)});
    case WM_HSCROLL:
        return OnHScroll(LOWORD(wParam), HIWORD(wParam));
    case WM_VSCROLL:
        return OnVScroll(LOWORD(wParam), HIWORD(wParam));
    case WM_SETCURSOR:
        return OnSetCursor(low);
    default:
        return 0;
    }
}

} // namespace Ostrel::GUI
