// The private side of CWnd that the window layer needs.
#pragma once

#include <ostrel/platform/window/Wnd.h>

struct CWndAccess
{
    /// The window is gone or no longer the object's.
    static void Forget(CWnd& object) noexcept;
    static LRESULT WindowProc(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam);
    static BOOL ChildNotify(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    static void PostNcDestroy(CWnd& object);
    static void Bind(CWnd& object, HWND window, WNDPROC superProc) noexcept;
    static CWnd* MakeTemporary(HWND window);
};
