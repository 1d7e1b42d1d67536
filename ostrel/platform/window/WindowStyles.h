/// @file
/// Styles, flags and codes of the functions that make, place and show windows.
#pragma once

#include <ostrel/platform/base/Types.h>

///@{
/// A style of a window.
inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000; ///< always so here: siblings above are never drawn over
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000; ///< painting leaves the children's areas out
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000; ///< a child: one pixel of border
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_SIZEBOX = WS_THICKFRAME;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
inline constexpr DWORD WS_POPUPWINDOW = WS_POPUP | WS_BORDER | WS_SYSMENU;
inline constexpr DWORD WS_CHILDWINDOW = WS_CHILD;
///@}

///@{
/// An extended style of a window.
inline constexpr DWORD WS_EX_DLGMODALFRAME = 0x00000001;
inline constexpr DWORD WS_EX_NOPARENTNOTIFY = 0x00000004;
inline constexpr DWORD WS_EX_TOPMOST = 0x00000008;
inline constexpr DWORD WS_EX_TRANSPARENT = 0x00000020;
inline constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;
inline constexpr DWORD WS_EX_WINDOWEDGE = 0x00000100;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200; ///< a child: two pixels of edge
inline constexpr DWORD WS_EX_CONTROLPARENT = 0x00010000;
inline constexpr DWORD WS_EX_NOACTIVATE = 0x08000000;
///@}

///@{
/// A style of a window class.
inline constexpr UINT CS_VREDRAW = 0x0001; ///< a change of height repaints everything
inline constexpr UINT CS_HREDRAW = 0x0002;
inline constexpr UINT CS_DBLCLKS = 0x0008; ///< the class wants double clicks
inline constexpr UINT CS_OWNDC = 0x0020;
inline constexpr UINT CS_SAVEBITS = 0x0800;
inline constexpr UINT CS_DROPSHADOW = 0x00020000;
///@}

/// As the place of a top-level window: let the window manager choose.
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000U);

///@{
/// What ShowWindow does.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_MAXIMIZE = 3;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_SHOWMINNOACTIVE = 7;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_RESTORE = 9;
inline constexpr int SW_SHOWDEFAULT = 10;
///@}

///@{
/// What SetWindowPos leaves alone or does besides, and places in the order of windows.
inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOREDRAW = 0x0008;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_FRAMECHANGED = 0x0020; ///< lays the non-client area out anew
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;
inline constexpr UINT SWP_NOCOPYBITS = 0x0100;
inline constexpr UINT SWP_NOOWNERZORDER = 0x0200;
inline HWND const HWND_TOP = nullptr;
inline HWND const HWND_BOTTOM = reinterpret_cast<HWND>(static_cast<LONG_PTR>(1));
inline HWND const HWND_TOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));
inline HWND const HWND_NOTOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-2));
///@}

///@{
/// What GetWindowLongPtr reads, or where GetWindow goes.
inline constexpr int GWL_WNDPROC = -4;
inline constexpr int GWL_ID = -12;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWL_USERDATA = -21;
inline constexpr int GWLP_WNDPROC = GWL_WNDPROC;
inline constexpr int GWLP_ID = GWL_ID;
inline constexpr int GWLP_USERDATA = GWL_USERDATA;
inline constexpr int GWLP_HWNDPARENT = -8; ///< the parent of a child, the owner of a top-level window
inline constexpr UINT GW_HWNDFIRST = 0;
inline constexpr UINT GW_HWNDLAST = 1;
inline constexpr UINT GW_HWNDNEXT = 2; ///< the one below
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5; ///< the topmost child
///@}

///@{
/// What RedrawWindow does.
inline constexpr UINT RDW_INVALIDATE = 0x0001;
inline constexpr UINT RDW_ERASE = 0x0004;
inline constexpr UINT RDW_VALIDATE = 0x0008;
inline constexpr UINT RDW_NOERASE = 0x0020;
inline constexpr UINT RDW_NOCHILDREN = 0x0040;
inline constexpr UINT RDW_ALLCHILDREN = 0x0080;
inline constexpr UINT RDW_UPDATENOW = 0x0100;
inline constexpr UINT RDW_ERASENOW = 0x0200;
inline constexpr UINT RDW_FRAME = 0x0400;
///@}

///@{
/// What ScrollWindowEx does besides.
inline constexpr UINT SW_SCROLLCHILDREN = 0x0001;
inline constexpr UINT SW_INVALIDATE = 0x0002;
inline constexpr UINT SW_ERASE = 0x0004;
///@}

///@{
/// The children that ChildWindowFromPoint leaves out.
inline constexpr UINT CWP_ALL = 0x0000;
inline constexpr UINT CWP_SKIPINVISIBLE = 0x0001;
inline constexpr UINT CWP_SKIPDISABLED = 0x0002;
inline constexpr UINT CWP_SKIPTRANSPARENT = 0x0004;
///@}

///@{
/// Which scroll bar, which part of SCROLLINFO, and which arrows.
inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_CTL = 2;
inline constexpr int SB_BOTH = 3;
inline constexpr UINT SIF_RANGE = 0x0001;
inline constexpr UINT SIF_PAGE = 0x0002;
inline constexpr UINT SIF_POS = 0x0004;
inline constexpr UINT SIF_DISABLENOSCROLL = 0x0008; ///< shows a bar with nothing to scroll greyed instead of hiding it
inline constexpr UINT SIF_TRACKPOS = 0x0010;
inline constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;
inline constexpr UINT ESB_ENABLE_BOTH = 0;
inline constexpr UINT ESB_DISABLE_BOTH = 3;
///@}

///@{
/// What TrackMouseEvent asks for.
inline constexpr DWORD TME_HOVER = 0x00000001;
inline constexpr DWORD TME_LEAVE = 0x00000002;
inline constexpr DWORD TME_QUERY = 0x40000000;
inline constexpr DWORD TME_CANCEL = 0x80000000;
inline constexpr DWORD HOVER_DEFAULT = 0xFFFFFFFF;
///@}

///@{
/// Whether PeekMessage takes the message.
inline constexpr UINT PM_NOREMOVE = 0x0000;
inline constexpr UINT PM_REMOVE = 0x0001;
///@}
