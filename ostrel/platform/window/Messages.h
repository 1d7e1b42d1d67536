/// @file
/// The messages that windows get, the codes inside them and the structures that they point to. Numbers below WM_USER
/// are the platform's, from WM_USER to 0x7FFF a window class's own, from WM_APP to 0xBFFF the program's, from 0xC000 to
/// 0xFFFF given by RegisterWindowMessage.
///
/// Mouse messages carry client coordinates in LPARAM (CPoint(lParam)), WM_MOUSEWHEEL and the WM_NC messages screen
/// coordinates; WPARAM carries MK_* flags. Key messages carry a VK_* code in WPARAM and in LPARAM: bits 0-15 repeat
/// count, 16-23 scan code, 24 extended key, 29 Alt is down, 30 the key was down before, 31 the key goes up.
/// WM_CHAR carries ONE BYTE of UTF-8 in WPARAM: a character beyond ASCII arrives as two to four messages in a row, lead
/// byte first, with no other input between them.
#pragma once

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/window/VirtualKeys.h>

///@{
/// The number of a message. What it carries stands beside it where it carries anything.
inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;  ///< LPARAM: CREATESTRUCT*; -1 refuses
inline constexpr UINT WM_DESTROY = 0x0002; ///< children still live
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;      ///< WPARAM: SIZE_*; LPARAM: width and height of the client area
inline constexpr UINT WM_ACTIVATE = 0x0006;  ///< LOWORD(WPARAM): WA_*; LPARAM: the other window
inline constexpr UINT WM_SETFOCUS = 0x0007;  ///< WPARAM: who loses it
inline constexpr UINT WM_KILLFOCUS = 0x0008; ///< WPARAM: who gets it
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETREDRAW = 0x000B;
inline constexpr UINT WM_SETTEXT = 0x000C;       ///< LPARAM: char const*
inline constexpr UINT WM_GETTEXT = 0x000D;       ///< WPARAM: capacity; LPARAM: char*; result: length
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E; ///< in bytes
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_QUIT = 0x0012;
inline constexpr UINT WM_ERASEBKGND = 0x0014;     ///< WPARAM: CDC*; nonzero result: erased (or need not be)
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015; ///< by default the window is painted anew
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_SETTINGCHANGE = 0x001A;
inline constexpr UINT WM_ACTIVATEAPP = 0x001C;
inline constexpr UINT WM_CANCELMODE = 0x001F;
inline constexpr UINT WM_SETCURSOR = 0x0020; ///< WPARAM: window; LPARAM: hit test code and mouse message; TRUE: done
inline constexpr UINT WM_MOUSEACTIVATE = 0x0021; ///< result: MA_*
inline constexpr UINT WM_GETMINMAXINFO = 0x0024;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_SETFONT = 0x0030; ///< WPARAM: HFONT; LPARAM: repaint
inline constexpr UINT WM_GETFONT = 0x0031;
inline constexpr UINT WM_WINDOWPOSCHANGING = 0x0046; ///< LPARAM: WINDOWPOS*, may be changed
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;  ///< LPARAM: WINDOWPOS*
inline constexpr UINT WM_NOTIFY = 0x004E;            ///< WPARAM: control id; LPARAM: NMHDR*
inline constexpr UINT WM_HELP = 0x0053;
inline constexpr UINT WM_CONTEXTMENU = 0x007B; ///< WPARAM: window; LPARAM: screen point, -1 from the keyboard
inline constexpr UINT WM_STYLECHANGED = 0x007D;
inline constexpr UINT WM_NCCREATE = 0x0081;
inline constexpr UINT WM_NCDESTROY = 0x0082;  ///< the last message of a window
inline constexpr UINT WM_NCCALCSIZE = 0x0083; ///< LPARAM: RECT*, in: window, out: client area, same origin
inline constexpr UINT WM_NCHITTEST = 0x0084;  ///< LPARAM: screen point; result: HT*
inline constexpr UINT WM_NCPAINT = 0x0085;
inline constexpr UINT WM_GETDLGCODE = 0x0087; ///< result: DLGC_*
inline constexpr UINT WM_NCMOUSEMOVE = 0x00A0;
inline constexpr UINT WM_NCLBUTTONDOWN = 0x00A1; ///< WPARAM: HT*; LPARAM: screen point
inline constexpr UINT WM_NCLBUTTONUP = 0x00A2;
inline constexpr UINT WM_NCLBUTTONDBLCLK = 0x00A3;
inline constexpr UINT WM_NCRBUTTONDOWN = 0x00A4;
inline constexpr UINT WM_NCRBUTTONUP = 0x00A5;
inline constexpr UINT WM_NCRBUTTONDBLCLK = 0x00A6;
inline constexpr UINT WM_NCMBUTTONDOWN = 0x00A7;
inline constexpr UINT WM_NCMBUTTONUP = 0x00A8;
inline constexpr UINT WM_NCMBUTTONDBLCLK = 0x00A9;
inline constexpr UINT WM_KEYFIRST = 0x0100;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_DEADCHAR = 0x0103;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCHAR = 0x0106;
inline constexpr UINT WM_SYSDEADCHAR = 0x0107;
inline constexpr UINT WM_KEYLAST = 0x0109;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111; ///< LOWORD(WPARAM): id; HIWORD(WPARAM): code; LPARAM: the control's window
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_TIMER = 0x0113;   ///< WPARAM: timer id
inline constexpr UINT WM_HSCROLL = 0x0114; ///< LOWORD(WPARAM): SB_*; HIWORD(WPARAM): low 16 bits of the thumb position
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_CTLCOLOREDIT = 0x0133;
inline constexpr UINT WM_CTLCOLORLISTBOX = 0x0134;
inline constexpr UINT WM_CTLCOLORBTN = 0x0135;
inline constexpr UINT WM_CTLCOLORDLG = 0x0136;
inline constexpr UINT WM_CTLCOLORSTATIC = 0x0138;
inline constexpr UINT WM_MOUSEFIRST = 0x0200;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A; ///< HIWORD(WPARAM): signed delta, 120 a notch; LPARAM: screen point
inline constexpr UINT WM_XBUTTONDOWN = 0x020B;
inline constexpr UINT WM_XBUTTONUP = 0x020C;
inline constexpr UINT WM_XBUTTONDBLCLK = 0x020D;
inline constexpr UINT WM_MOUSEHWHEEL = 0x020E;
inline constexpr UINT WM_MOUSELAST = 0x020E;
inline constexpr UINT WM_PARENTNOTIFY = 0x0210;
inline constexpr UINT WM_SIZING = 0x0214;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215; ///< LPARAM: who has the capture now
inline constexpr UINT WM_MOVING = 0x0216;
inline constexpr UINT WM_ENTERSIZEMOVE = 0x0231;
inline constexpr UINT WM_EXITSIZEMOVE = 0x0232;
inline constexpr UINT WM_MOUSEHOVER = 0x02A1;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_CUT = 0x0300;
inline constexpr UINT WM_COPY = 0x0301;
inline constexpr UINT WM_PASTE = 0x0302;
inline constexpr UINT WM_CLEAR = 0x0303;
inline constexpr UINT WM_UNDO = 0x0304;
inline constexpr UINT WM_PRINTCLIENT = 0x0318; ///< WPARAM: CDC* to draw the client area on
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;
///@}

///@{
/// A button or key that is down, in the WPARAM of mouse messages.
inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;
inline constexpr UINT MK_MBUTTON = 0x0010;
inline constexpr UINT MK_XBUTTON1 = 0x0020;
inline constexpr UINT MK_XBUTTON2 = 0x0040;
///@}

inline constexpr int WHEEL_DELTA = 120;              ///< one notch of the wheel
inline constexpr UINT WHEEL_PAGESCROLL = 0xFFFFFFFF; ///< instead of a number of lines: a page for each notch
/// How far the wheel was turned: positive away from the user, or to the right.
constexpr short GET_WHEEL_DELTA_WPARAM(WPARAM wParam) noexcept
{
    return static_cast<short>(HIWORD(wParam));
}

///@{
/// What WM_SIZE, WM_ACTIVATE, WM_MOUSEACTIVATE, WM_GETDLGCODE and WM_SYSCOMMAND say.
inline constexpr WPARAM SIZE_RESTORED = 0;
inline constexpr WPARAM SIZE_MINIMIZED = 1;
inline constexpr WPARAM SIZE_MAXIMIZED = 2;
inline constexpr WORD WA_INACTIVE = 0;
inline constexpr WORD WA_ACTIVE = 1;
inline constexpr WORD WA_CLICKACTIVE = 2;
inline constexpr LRESULT MA_ACTIVATE = 1;
inline constexpr LRESULT MA_ACTIVATEANDEAT = 2;
inline constexpr LRESULT MA_NOACTIVATE = 3;
inline constexpr LRESULT MA_NOACTIVATEANDEAT = 4;
inline constexpr LRESULT DLGC_WANTARROWS = 0x0001;
inline constexpr LRESULT DLGC_WANTTAB = 0x0002;
inline constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
inline constexpr LRESULT DLGC_WANTMESSAGE = 0x0004;
inline constexpr LRESULT DLGC_HASSETSEL = 0x0008;
inline constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
inline constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
inline constexpr LRESULT DLGC_RADIOBUTTON = 0x0040;
inline constexpr LRESULT DLGC_WANTCHARS = 0x0080;
inline constexpr LRESULT DLGC_STATIC = 0x0100;
inline constexpr LRESULT DLGC_BUTTON = 0x2000;
///@}

///@{
/// Where in a window a point lies: the result of WM_NCHITTEST.
inline constexpr int HTERROR = -2;
inline constexpr int HTTRANSPARENT = -1;
inline constexpr int HTNOWHERE = 0;
inline constexpr int HTCLIENT = 1;
inline constexpr int HTCAPTION = 2;
inline constexpr int HTSIZE = 4;
inline constexpr int HTHSCROLL = 6;
inline constexpr int HTVSCROLL = 7;
inline constexpr int HTBORDER = 18;
///@}

///@{
/// What WM_HSCROLL and WM_VSCROLL ask for.
inline constexpr int SB_LINEUP = 0;
inline constexpr int SB_LINELEFT = 0;
inline constexpr int SB_LINEDOWN = 1;
inline constexpr int SB_LINERIGHT = 1;
inline constexpr int SB_PAGEUP = 2;
inline constexpr int SB_PAGELEFT = 2;
inline constexpr int SB_PAGEDOWN = 3;
inline constexpr int SB_PAGERIGHT = 3;
inline constexpr int SB_THUMBPOSITION = 4;
inline constexpr int SB_THUMBTRACK = 5;
inline constexpr int SB_TOP = 6;
inline constexpr int SB_LEFT = 6;
inline constexpr int SB_BOTTOM = 7;
inline constexpr int SB_RIGHT = 7;
inline constexpr int SB_ENDSCROLL = 8;
///@}

///@{
/// A code of WM_NOTIFY that every control may send.
inline constexpr UINT NM_FIRST = 0U - 0U;
inline constexpr UINT NM_OUTOFMEMORY = NM_FIRST - 1U;
inline constexpr UINT NM_CLICK = NM_FIRST - 2U;
inline constexpr UINT NM_DBLCLK = NM_FIRST - 3U;
inline constexpr UINT NM_RETURN = NM_FIRST - 4U;
inline constexpr UINT NM_RCLICK = NM_FIRST - 5U;
inline constexpr UINT NM_RDBLCLK = NM_FIRST - 6U;
inline constexpr UINT NM_SETFOCUS = NM_FIRST - 7U;
inline constexpr UINT NM_KILLFOCUS = NM_FIRST - 8U;
inline constexpr UINT NM_HOVER = NM_FIRST - 13U;
///@}

/// A message on its way. time and pt are those of the input event for mouse and keyboard messages, those of the moment
/// of retrieval for others.
struct MSG
{
    HWND hwnd = nullptr;    ///< null: for the thread
    UINT message = WM_NULL; ///< WM_*
    WPARAM wParam = 0;      ///< what the message carries
    LPARAM lParam = 0;      ///< what the message carries
    DWORD time = 0;         ///< ticks of the process clock
    POINT pt{0, 0};         ///< the pointer on the screen
};

/// The head of every structure that WM_NOTIFY carries.
struct NMHDR
{
    HWND hwndFrom;   ///< the control
    UINT_PTR idFrom; ///< its id
    UINT code;       ///< what it tells
};

/// What a window is made of; WM_NCCREATE and WM_CREATE carry it, CWnd::PreCreateWindow may change it before.
struct CREATESTRUCT
{
    void* lpCreateParams = nullptr; ///< from CreateWindowEx
    HINSTANCE hInstance = nullptr;  ///< not used
    UINT_PTR hMenu = 0;             ///< a child's id
    HWND hwndParent = nullptr;      ///< the parent of a child, the owner of a top-level window
    int cy = 0;                     ///< height
    int cx = 0;                     ///< width
    int y = 0;                      ///< top edge, in the parent's client area or on the screen
    int x = 0;                      ///< left edge
    DWORD style = 0;                ///< WS_*
    LPCTSTR lpszName = nullptr;     ///< the window's text
    LPCTSTR lpszClass = nullptr;    ///< the window class
    DWORD dwExStyle = 0;            ///< WS_EX_*
};
/// A pointer to it.
using LPCREATESTRUCT = CREATESTRUCT*;

/// Where a window goes, in WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED.
struct WINDOWPOS
{
    HWND hwnd;            ///< the window
    HWND hwndInsertAfter; ///< the one directly above it, or HWND_*
    int x;                ///< left edge
    int y;                ///< top edge
    int cx;               ///< width
    int cy;               ///< height
    UINT flags;           ///< SWP_*
};

/// The sizes that a top-level window may have, in WM_GETMINMAXINFO.
struct MINMAXINFO
{
    POINT ptReserved;     ///< not used
    POINT ptMaxSize;      ///< the size when maximized
    POINT ptMaxPosition;  ///< the place when maximized
    POINT ptMinTrackSize; ///< the least size
    POINT ptMaxTrackSize; ///< the greatest size
};
