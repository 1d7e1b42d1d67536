// The functions of focus, capture, pointer, keys and timers.
#include <algorithm>
#include <atomic>

#include <ostrel/platform/window/detail/Cursors.h>
#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

namespace
{

std::atomic<UINT> g_doubleClickMs{500};

Display* DisplayOfThread()
{
    ThreadState* const state = ThreadState::TryGet();
    return state != nullptr ? state->DisplayOrNull() : nullptr;
}

bool IsDownNow(InputState const& state, int virtualKey, bool otherwise) noexcept
{
    switch (virtualKey)
    {
    case VK_SHIFT:
        return state.shift;
    case VK_CONTROL:
        return state.control;
    case VK_MENU:
        return state.alt;
    case VK_LBUTTON:
        return state.leftButton;
    case VK_RBUTTON:
        return state.rightButton;
    case VK_MBUTTON:
        return state.middleButton;
    default:
        return otherwise;
    }
}

struct CursorName
{
    LPCTSTR name;
    CursorShape shape;
};

CursorName const kCursorNames[] = {{IDC_ARROW, CursorShape::Arrow},
                                   {IDC_IBEAM, CursorShape::IBeam},
                                   {IDC_WAIT, CursorShape::Wait},
                                   {IDC_CROSS, CursorShape::Cross},
                                   {IDC_UPARROW, CursorShape::UpArrow},
                                   {IDC_SIZENWSE, CursorShape::SizeNWSE},
                                   {IDC_SIZENESW, CursorShape::SizeNESW},
                                   {IDC_SIZEWE, CursorShape::SizeWE},
                                   {IDC_SIZENS, CursorShape::SizeNS},
                                   {IDC_SIZEALL, CursorShape::SizeAll},
                                   {IDC_NO, CursorShape::No},
                                   {IDC_HAND, CursorShape::Hand},
                                   {IDC_APPSTARTING, CursorShape::AppStarting},
                                   {IDC_HELP, CursorShape::Help}};

} // namespace

UINT_PTR SetTimer(HWND handle, UINT_PTR timerId, UINT elapseMs, TIMERPROC function)
{
    ThreadState& state = ThreadState::Get();
    if (handle != nullptr && state.Find(handle) == nullptr)
    {
        return 0;
    }
    UINT_PTR const id = handle == nullptr ? state.timers.NewThreadTimerId() : timerId;
    state.timers.Set({handle, id, TimerList::Kind::Message}, elapseMs, function);
    return id != 0 ? id : 1;
}

BOOL KillTimer(HWND handle, UINT_PTR timerId)
{
    ThreadState* const state = ThreadState::TryGet();
    return state != nullptr && state->timers.Kill({handle, timerId, TimerList::Kind::Message});
}

HWND SetCapture(HWND handle)
{
    return ThreadState::Get().input.SetCapture(handle);
}

BOOL ReleaseCapture()
{
    ThreadState::Get().input.ReleaseCapture();
    return TRUE;
}

HWND GetCapture()
{
    return ThreadState::Get().input.Capture();
}

HWND SetFocus(HWND handle)
{
    return ThreadState::Get().input.SetFocus(handle);
}

HWND GetFocus()
{
    return ThreadState::Get().input.Focus();
}

HWND GetActiveWindow()
{
    return ThreadState::Get().input.Active();
}

HWND SetActiveWindow(HWND handle)
{
    Input& input = ThreadState::Get().input;
    HWND const before = input.Active();
    Window const* const window = FindWindowRecord(handle);
    if (window != nullptr && window->parent == nullptr && IsActiveTree(*window))
    {
        input.Activate(handle, WA_ACTIVE);
    }
    return before;
}

HWND GetForegroundWindow()
{
    return GetActiveWindow();
}

BOOL SetForegroundWindow(HWND handle)
{
    if (FindWindowRecord(handle) == nullptr)
    {
        return FALSE;
    }
    BringWindowToTop(handle);
    SetActiveWindow(handle);
    return TRUE;
}

short GetKeyState(int virtualKey)
{
    return ThreadState::Get().input.KeyState(virtualKey);
}

short GetAsyncKeyState(int virtualKey)
{
    short const last = GetKeyState(virtualKey);
    Display const* const display = DisplayOfThread();
    if (display == nullptr)
    {
        return last;
    }
    bool const isDown = IsDownNow(display->CurrentInputState(), virtualKey, last < 0);
    return static_cast<short>((isDown ? 0x8000 : 0) | (last & 1));
}

BOOL GetKeyboardState(BYTE* states256)
{
    auto const& keys = ThreadState::Get().input.Keys();
    if (states256 != nullptr)
    {
        std::copy(keys.begin(), keys.end(), states256);
    }
    return states256 != nullptr;
}

BOOL SetKeyboardState(BYTE const* states256)
{
    auto& keys = ThreadState::Get().input.Keys();
    if (states256 != nullptr)
    {
        std::copy_n(states256, keys.size(), keys.begin());
    }
    return states256 != nullptr;
}

BOOL GetCursorPos(POINT* screenPoint)
{
    Display const* const display = DisplayOfThread();
    if (screenPoint != nullptr)
    {
        *screenPoint = display != nullptr ? display->PointerPosition() : CPoint();
    }
    return screenPoint != nullptr;
}

DWORD GetMessageTime()
{
    return ThreadState::Get().input.Time();
}

DWORD GetMessagePos()
{
    CPoint const place = ThreadState::Get().input.Pointer();
    return static_cast<DWORD>(MAKELONG(place.x, place.y));
}

UINT GetDoubleClickTime()
{
    return g_doubleClickMs.load(std::memory_order_relaxed);
}

BOOL SetDoubleClickTime(UINT milliseconds)
{
    constexpr UINT kUsual = 500;
    constexpr UINT kLongest = 5000;
    g_doubleClickMs = milliseconds == 0 ? kUsual : std::min(milliseconds, kLongest);
    return TRUE;
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT* event)
{
    return event != nullptr && ThreadState::Get().input.Track(*event);
}

HCURSOR LoadCursor(HINSTANCE /*instance*/, LPCTSTR name)
{
    auto const* const found = std::find_if(std::begin(kCursorNames), std::end(kCursorNames),
                                           [name](CursorName const& entry) { return entry.name == name; });
    return found != std::end(kCursorNames) ? CursorOf(found->shape) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor)
{
    return ThreadState::Get().input.SetCursor(cursor);
}

HCURSOR GetCursor()
{
    return ThreadState::Get().input.Cursor();
}
