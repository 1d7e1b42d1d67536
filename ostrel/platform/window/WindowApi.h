/// @file
/// The window functions. A window belongs to the thread that made it: its procedure runs there only. Functions that
/// only look (IsWindow, GetParent, GetWindowRect, GetWindowLongPtr...) and the functions that change a window are for
/// that thread; on another thread they see no window and answer as for a dead one. SendMessage, PostMessage, IsWindow
/// and GetWindowThreadProcessId may be called from any thread.
///
/// A null or stale handle gives FALSE, 0, null or an empty rectangle and changes nothing.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/ThreadId.h>
#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/window/Messages.h>
#include <ostrel/platform/window/WindowStyles.h>

class CRgn;
namespace Ostrel::Platform
{
class Region;

/// Posts WM_SYSCOLORCHANGE to every window of the process: call it after system colours have changed. Any thread.
OSTREL_PLATFORM_API void AnnounceSystemColors();
} // namespace Ostrel::Platform

using HMENU = struct MenuHandle*;   ///< a menu; always null here
using HBRUSH = struct BrushHandle*; ///< a brush, or a SystemColorBrush
using ATOM = WORD;                  ///< the number of a window class
/// What handles the messages of a window. Runs on the window's thread.
using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// What a timer calls instead of sending WM_TIMER.
using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR timerId, DWORD tickMs);
/// What EnumChildWindows calls. FALSE stops it.
using WNDENUMPROC = BOOL (*)(HWND window, LPARAM context);

// ---- classes -----------------------------------------------------------------------------------------------------

/// What windows of one kind share. Registered for the whole process.
struct WNDCLASS
{
    UINT style = 0;                  ///< CS_*
    WNDPROC lpfnWndProc = nullptr;   ///< handles the messages
    int cbClsExtra = 0;              ///< not used
    int cbWndExtra = 0;              ///< not used
    HINSTANCE hInstance = nullptr;   ///< not used
    HCURSOR hCursor = nullptr;       ///< the pointer over the client area; null: the window sets it itself
    HBRUSH hbrBackground = nullptr;  ///< a system colour by SystemColorBrush; null: WM_ERASEBKGND leaves the area alone
    LPCTSTR lpszMenuName = nullptr;  ///< not used
    LPCTSTR lpszClassName = nullptr; ///< the name, copied
};

/// The background of a class: a system colour COLOR_*, looked up at each erasing.
[[nodiscard]] inline HBRUSH SystemColorBrush(int systemColor) noexcept
{
    return reinterpret_cast<HBRUSH>(static_cast<LONG_PTR>(systemColor + 1));
}

/// Makes a window class known to the process. 0 when the name is empty or taken, or there is no procedure. Any thread.
OSTREL_PLATFORM_API ATOM RegisterClass(WNDCLASS const* windowClass);
/// Forgets a class. FALSE for an unknown name. Any thread.
OSTREL_PLATFORM_API BOOL UnregisterClass(LPCTSTR className, HINSTANCE instance = nullptr);
/// Hands out what the class was registered with. FALSE for an unknown name. Any thread.
OSTREL_PLATFORM_API BOOL GetClassInfo(HINSTANCE instance, LPCTSTR className, WNDCLASS* windowClass);
/// Writes the class's name, at most capacity - 1 bytes and a zero byte. Returns the length.
OSTREL_PLATFORM_API int GetClassName(HWND window, LPSTR buffer, int capacity);

// ---- making and ending -------------------------------------------------------------------------------------------

/// Makes a window on the calling thread. With WS_CHILD: in the client area of parent, menuOrId its id. Otherwise a
/// top-level window, parent its owner. Null when the class is unknown, the parent is dead or of another thread, or
/// WM_NCCREATE or WM_CREATE refused.
OSTREL_PLATFORM_API HWND CreateWindowEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y,
                                        int width, int height, HWND parent, UINT_PTR menuOrId,
                                        HINSTANCE instance = nullptr, void* createParams = nullptr);
/// Ends a window of the calling thread with its children and the windows that it owns.
OSTREL_PLATFORM_API BOOL DestroyWindow(HWND window);
/// Whether the window is there. Any thread.
OSTREL_PLATFORM_API BOOL IsWindow(HWND window);
/// The number of the window's thread as GetCurrentThreadId gives it; 0 for a dead window. Any thread.
OSTREL_PLATFORM_API DWORD GetWindowThreadProcessId(HWND window, DWORD* processId = nullptr);
/// The system's number of this process.
OSTREL_PLATFORM_API DWORD GetCurrentProcessId();

// ---- messages ----------------------------------------------------------------------------------------------------

/// Runs the window's procedure and returns its result; 0 for a dead window. For a window of another thread
/// the caller waits, serving messages sent to itself, until that thread has handled the message. What the procedure
/// throws comes out of the call. Any thread.
OSTREL_PLATFORM_API LRESULT SendMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
/// Any thread. Puts the message at the end of the window's thread's queue. A null window: the calling thread's. FALSE
/// for a dead window.
OSTREL_PLATFORM_API BOOL PostMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
/// Any thread. A message without a window. FALSE when the thread has no queue.
OSTREL_PLATFORM_API BOOL PostThreadMessage(DWORD threadId, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
/// Calls a procedure that was replaced.
OSTREL_PLATFORM_API LRESULT CallWindowProc(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// What every window does that its procedure does not do itself.
OSTREL_PLATFORM_API LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// The same number from 0xC000 for the same name in the whole process. Any thread.
OSTREL_PLATFORM_API UINT RegisterWindowMessage(LPCTSTR name);
/// The number of a clipboard format of that name, the same for the same name. Any thread.
OSTREL_PLATFORM_API UINT RegisterClipboardFormat(LPCTSTR name);
/// The name of a registered format. Returns the length, 0 when the number is none.
OSTREL_PLATFORM_API int GetClipboardFormatName(UINT format, LPSTR buffer, int capacity);

// ---- data --------------------------------------------------------------------------------------------------------

/// A value that belongs to a window: GWL_*.
OSTREL_PLATFORM_API LONG_PTR GetWindowLongPtr(HWND window, int which);
/// Changes a value that belongs to a window: GWL_*. Returns the value before.
OSTREL_PLATFORM_API LONG_PTR SetWindowLongPtr(HWND window, int which, LONG_PTR value);
///@{
/// Pointer-wide here, so that both spellings may carry a procedure.
inline LONG_PTR GetWindowLong(HWND window, int which)
{
    return GetWindowLongPtr(window, which);
}
inline LONG_PTR SetWindowLong(HWND window, int which, LONG_PTR value)
{
    return SetWindowLongPtr(window, which, value);
}
///@}
/// Changes the text of a window: the title of a top-level one.
OSTREL_PLATFORM_API BOOL SetWindowText(HWND window, LPCTSTR text);
/// Writes the text, at most capacity - 1 bytes and a zero byte. Returns the length.
OSTREL_PLATFORM_API int GetWindowText(HWND window, LPSTR buffer, int capacity);
/// The length of the text in bytes.
OSTREL_PLATFORM_API int GetWindowTextLength(HWND window);
///@{
/// A value that a name hangs on a window; names are compared as text. Null where there is none.
OSTREL_PLATFORM_API BOOL SetProp(HWND window, LPCTSTR name, void* value);
OSTREL_PLATFORM_API void* GetProp(HWND window, LPCTSTR name);
OSTREL_PLATFORM_API void* RemoveProp(HWND window, LPCTSTR name);
///@}

// ---- family ------------------------------------------------------------------------------------------------------

/// A child's parent, a pop-up's owner, null for others.
OSTREL_PLATFORM_API HWND GetParent(HWND window);
/// Gives a child another parent. Returns the one before.
OSTREL_PLATFORM_API HWND SetParent(HWND window, HWND newParent);
/// The relative that GW_* names; null without one.
OSTREL_PLATFORM_API HWND GetWindow(HWND window, UINT relation);
/// The top-level window that holds the window.
OSTREL_PLATFORM_API HWND GetTopLevel(HWND window);
/// Whether the window lies, at any depth, in the ancestor.
OSTREL_PLATFORM_API BOOL IsChild(HWND ancestor, HWND window);
/// The id of a child.
OSTREL_PLATFORM_API int GetDlgCtrlID(HWND window);
/// The direct child with an id; null without one.
OSTREL_PLATFORM_API HWND GetDlgItem(HWND parent, int id);
/// Calls for each child, grandchild...; FALSE from the function stops.
OSTREL_PLATFORM_API BOOL EnumChildWindows(HWND parent, WNDENUMPROC function, LPARAM context);
/// The window of the calling thread at a point, disabled and hidden windows left out.
OSTREL_PLATFORM_API HWND WindowFromPoint(POINT screenPoint);
/// The direct child at a client point, the window itself when none is there, null outside.
OSTREL_PLATFORM_API HWND ChildWindowFromPoint(HWND parent, POINT clientPoint, UINT flags = CWP_ALL);

// ---- place and state ---------------------------------------------------------------------------------------------

/// The client area in its own coordinates: left and top are 0.
OSTREL_PLATFORM_API BOOL GetClientRect(HWND window, RECT* rect);
/// The whole window on the screen.
OSTREL_PLATFORM_API BOOL GetWindowRect(HWND window, RECT* screenRect);
///@{
/// Turns a point of the client area into one of the screen, or back.
OSTREL_PLATFORM_API BOOL ClientToScreen(HWND window, POINT* point);
OSTREL_PLATFORM_API BOOL ScreenToClient(HWND window, POINT* point);
///@}
/// Turns points from one window's client coordinates to another's; null stands for the screen.
OSTREL_PLATFORM_API int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
/// Gives a window another place and size: in the client area of its parent, or on the screen.
OSTREL_PLATFORM_API BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint = TRUE);
/// Gives a window another place, size and order, as far as the flags (SWP_*) do not leave them alone.
OSTREL_PLATFORM_API BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
/// Shows or hides a window: SW_*. Returns whether the window was visible before.
OSTREL_PLATFORM_API BOOL ShowWindow(HWND window, int command);
/// Whether the window and all that hold it are shown.
OSTREL_PLATFORM_API BOOL IsWindowVisible(HWND window);
/// Lets a window take input, or not. Returns whether the window was disabled before.
OSTREL_PLATFORM_API BOOL EnableWindow(HWND window, BOOL enable);
/// Whether the window takes input.
OSTREL_PLATFORM_API BOOL IsWindowEnabled(HWND window);
///@{
/// Whether a top-level window is minimized, or maximized.
OSTREL_PLATFORM_API BOOL IsIconic(HWND window);
OSTREL_PLATFORM_API BOOL IsZoomed(HWND window);
///@}
/// Puts a window above its siblings.
OSTREL_PLATFORM_API BOOL BringWindowToTop(HWND window);
/// Grows a client rectangle to the window rectangle of a CHILD with these styles. The frames of top-level windows
/// belong to the window manager and count nothing.
OSTREL_PLATFORM_API BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL hasMenu, DWORD exStyle);

// ---- painting ----------------------------------------------------------------------------------------------------

/// Marks a rectangle of the client area (null: all) to be painted, and erased first.
OSTREL_PLATFORM_API BOOL InvalidateRect(HWND window, RECT const* rect, BOOL erase = TRUE);
/// Takes a rectangle of the client area (null: all) from what is to be painted.
OSTREL_PLATFORM_API BOOL ValidateRect(HWND window, RECT const* rect);
/// Paints at once what is invalid.
OSTREL_PLATFORM_API BOOL UpdateWindow(HWND window);
/// Marks, erases and paints as the flags say: RDW_*.
OSTREL_PLATFORM_API BOOL RedrawWindow(HWND window, RECT const* rect, UINT flags);
/// The bounds of the update region in client coordinates. FALSE, and an empty rectangle, when nothing is invalid.
OSTREL_PLATFORM_API BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase = FALSE);
/// Moves pixels of the client area (of rect, null: all) that lie in clip; what is uncovered becomes invalid. With a
/// null rect the children move along.
OSTREL_PLATFORM_API BOOL ScrollWindow(HWND window, int dx, int dy, RECT const* rect = nullptr,
                                      RECT const* clip = nullptr);
/// The same as the flags say (SW_*), handing out what was uncovered. Returns the kind of that region.
OSTREL_PLATFORM_API int ScrollWindowEx(HWND window, int dx, int dy, RECT const* rect, RECT const* clip,
                                       Ostrel::Platform::Region* updated, RECT* updatedBounds, UINT flags);

// ---- timers ------------------------------------------------------------------------------------------------------

/// The shortest period of a timer in milliseconds.
inline constexpr UINT USER_TIMER_MINIMUM = 10;

/// WM_TIMER every so many milliseconds (at least 10). The same window and id again: starts anew. A null window makes a
/// timer of the thread and a new id. Returns the id (1 for an id of 0 of a window), 0 when the window is dead.
OSTREL_PLATFORM_API UINT_PTR SetTimer(HWND window, UINT_PTR timerId, UINT elapseMs, TIMERPROC function = nullptr);
/// Ends a timer. Also forgets a tick that is due and not yet delivered.
OSTREL_PLATFORM_API BOOL KillTimer(HWND window, UINT_PTR timerId);

// ---- input -------------------------------------------------------------------------------------------------------

/// All mouse messages of the thread go to the window from now on. Returns who had them.
OSTREL_PLATFORM_API HWND SetCapture(HWND window);
/// Mouse messages go to the window under the pointer again.
OSTREL_PLATFORM_API BOOL ReleaseCapture();
/// Who has the mouse messages of the thread; null for the window under the pointer.
OSTREL_PLATFORM_API HWND GetCapture();
/// Gives a window the keyboard. Null takes the focus from the thread's windows. Returns who had it.
OSTREL_PLATFORM_API HWND SetFocus(HWND window);
/// Who has the keyboard among the thread's windows; null for none.
OSTREL_PLATFORM_API HWND GetFocus();
/// The top-level window of the thread that the user works in; null for none.
OSTREL_PLATFORM_API HWND GetActiveWindow();
/// Makes a top-level window of the thread the one that the user works in. Returns the one before.
OSTREL_PLATFORM_API HWND SetActiveWindow(HWND window);
/// The same as GetActiveWindow: windows of other threads and programs are not seen.
OSTREL_PLATFORM_API HWND GetForegroundWindow();
/// Puts a top-level window above all others and makes it the active one. FALSE for a dead one.
OSTREL_PLATFORM_API BOOL SetForegroundWindow(HWND window);
/// Bit 15: down, bit 0: toggled, as of the last input message taken from the queue.
OSTREL_PLATFORM_API short GetKeyState(int virtualKey);
/// The same as of now.
OSTREL_PLATFORM_API short GetAsyncKeyState(int virtualKey);
/// The states of all 256 keys: bit 7 down, bit 0 toggled.
OSTREL_PLATFORM_API BOOL GetKeyboardState(BYTE* states256);
/// For tests: what GetKeyState answers until the next key message.
OSTREL_PLATFORM_API BOOL SetKeyboardState(BYTE const* states256);
/// Where the pointer is on the screen.
OSTREL_PLATFORM_API BOOL GetCursorPos(POINT* screenPoint);
///@{
/// When the last message taken from the queue happened, in ticks, and where the pointer was, packed as in a mouse
/// message.
OSTREL_PLATFORM_API DWORD GetMessageTime();
OSTREL_PLATFORM_API DWORD GetMessagePos();
///@}

///@{
/// Milliseconds within which a second click makes a double click.
OSTREL_PLATFORM_API UINT GetDoubleClickTime();
OSTREL_PLATFORM_API BOOL SetDoubleClickTime(UINT milliseconds);
///@}

/// What TrackMouseEvent is asked for.
struct TRACKMOUSEEVENT
{
    DWORD cbSize = 0;                  ///< the size of the structure
    DWORD dwFlags = 0;                 ///< TME_*
    HWND hwndTrack = nullptr;          ///< the window
    DWORD dwHoverTime = HOVER_DEFAULT; ///< milliseconds
};
/// Asks once for WM_MOUSELEAVE or WM_MOUSEHOVER.
OSTREL_PLATFORM_API BOOL TrackMouseEvent(TRACKMOUSEEVENT* event);

///@{
/// A look of the pointer, for LoadCursor.
inline LPCTSTR const IDC_ARROW = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32512));
inline LPCTSTR const IDC_IBEAM = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32513));
inline LPCTSTR const IDC_WAIT = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32514));
inline LPCTSTR const IDC_CROSS = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32515));
inline LPCTSTR const IDC_UPARROW = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32516));
inline LPCTSTR const IDC_SIZENWSE = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32642));
inline LPCTSTR const IDC_SIZENESW = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32643));
inline LPCTSTR const IDC_SIZEWE = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32644));
inline LPCTSTR const IDC_SIZENS = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32645));
inline LPCTSTR const IDC_SIZEALL = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32646));
inline LPCTSTR const IDC_NO = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32648));
inline LPCTSTR const IDC_HAND = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32649));
inline LPCTSTR const IDC_APPSTARTING = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32650));
inline LPCTSTR const IDC_HELP = reinterpret_cast<LPCTSTR>(static_cast<LONG_PTR>(32651));
///@}

/// A look of the pointer: IDC_*. Null for a name that is none of IDC_*.
OSTREL_PLATFORM_API HCURSOR LoadCursor(HINSTANCE instance, LPCTSTR name);
/// The pointer's look until the next WM_SETCURSOR. Null hides it. Returns the look before.
OSTREL_PLATFORM_API HCURSOR SetCursor(HCURSOR cursor);
/// The pointer's look now; null when it is hidden.
OSTREL_PLATFORM_API HCURSOR GetCursor();

// ---- scroll bars -------------------------------------------------------------------------------------------------

/// The range of a scroll bar and its place in it.
struct SCROLLINFO
{
    UINT cbSize = 0;   ///< the size of the structure
    UINT fMask = 0;    ///< SIF_*: what is set, or asked for
    int nMin = 0;      ///< the first position
    int nMax = 0;      ///< the last position that can be shown, inclusive
    UINT nPage = 0;    ///< positions shown at once, the thumb's share
    int nPos = 0;      ///< the position
    int nTrackPos = 0; ///< while the thumb is dragged: where it is, all 32 bits
};

/// Sets what fMask names, clamped into the range. A bar whose page holds the whole range hides (SIF_DISABLENOSCROLL:
/// stays, greyed). Returns the position. SB_HORZ and SB_VERT only: a bar control answers SBM_ messages itself.
OSTREL_PLATFORM_API int SetScrollInfo(HWND window, int bar, SCROLLINFO const* info, BOOL redraw = TRUE);
/// Reads what fMask names. FALSE when the window never had such a bar.
OSTREL_PLATFORM_API BOOL GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
///@{
/// The position of a bar. Setting returns the one before.
OSTREL_PLATFORM_API int SetScrollPos(HWND window, int bar, int position, BOOL redraw = TRUE);
OSTREL_PLATFORM_API int GetScrollPos(HWND window, int bar);
///@}

///@{
/// The first and the last position of a bar.
OSTREL_PLATFORM_API BOOL SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw = TRUE);
OSTREL_PLATFORM_API BOOL GetScrollRange(HWND window, int bar, int* minimum, int* maximum);
///@}
/// Shows or hides a bar, or both (SB_BOTH).
OSTREL_PLATFORM_API BOOL ShowScrollBar(HWND window, int bar, BOOL show);
/// Lets a bar be used (ESB_ENABLE_BOTH), or greys it.
OSTREL_PLATFORM_API BOOL EnableScrollBar(HWND window, int bar, UINT arrows);

namespace Ostrel::Platform
{

/// The update region in client coordinates; false, and an empty region, when nothing is invalid.
OSTREL_PLATFORM_API bool GetUpdateRegion(HWND window, Region& region);
/// Adds a region in client coordinates to what is invalid.
OSTREL_PLATFORM_API void InvalidateRegion(HWND window, Region const& region, bool erase);
/// Takes a region in client coordinates from what is invalid.
OSTREL_PLATFORM_API void ValidateRegion(HWND window, Region const& region);

} // namespace Ostrel::Platform
