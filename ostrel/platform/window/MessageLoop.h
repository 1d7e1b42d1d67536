/// @file
/// Taking messages from the calling thread's queue, and the loops made of it. Every thread has one queue, made when it
/// first needs it.
///
/// Order of service: messages sent by other threads, posted messages, WM_QUIT, input, timers that are due, painting.
/// Under a flood of posted messages input and timers get their turn after every 4 ms of it and painting after every
/// 16 ms, by the process clock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/window/Messages.h>
#include <ostrel/platform/window/WindowApi.h>

class CWnd;

/// Waits for the next message and takes it. FALSE for WM_QUIT. A window or a range of numbers leaves other messages
/// where they are (range 0, 0: all).
OSTREL_PLATFORM_API BOOL GetMessage(MSG* message, HWND window = nullptr, UINT first = 0, UINT last = 0);
/// The same without waiting; FALSE when there is none. WM_QUIT is a message like any other.
OSTREL_PLATFORM_API BOOL PeekMessage(MSG* message, HWND window, UINT first, UINT last, UINT remove);
/// Turns a key message into the WM_CHAR messages of the text that the key typed: they are the next to be taken.
OSTREL_PLATFORM_API BOOL TranslateMessage(MSG const* message);
/// Runs the window's procedure. What it throws comes out.
OSTREL_PLATFORM_API LRESULT DispatchMessage(MSG const* message);
/// WM_QUIT comes once the posted messages have been served.
OSTREL_PLATFORM_API void PostQuitMessage(int exitCode);
/// Waits until GetMessage would find something.
OSTREL_PLATFORM_API BOOL WaitMessage();

namespace Ostrel::Platform
{

class Display;
class NativeWindow;

/// What PostMessage was called with.
struct PostedMessage
{
    HWND window;   ///< null: for the thread
    UINT message;  ///< WM_*
    WPARAM wParam; ///< what the message carries
    LPARAM lParam; ///< what the message carries
};

/// Takes, translates and dispatches until WM_QUIT; returns its code. Messages pass PreTranslateMessage of the windows
/// from the target up to its top-level window first.
OSTREL_PLATFORM_API int RunMessageLoop();
/// A loop inside a loop: until isDone answers true, asked after every message, or WM_QUIT, which it leaves for the
/// outer loop. False when it was WM_QUIT that ended it.
OSTREL_PLATFORM_API bool RunModalLoop(std::function<bool()> const& isDone);
/// Handles what is there - sent, posted, input, due timers, paint - until nothing is, without waiting. False: WM_QUIT
/// was among it (it stays).
OSTREL_PLATFORM_API bool ProcessPending();
/// The posted messages behind the next so many, as far as they are known. Nothing is taken. For whoever can fetch ahead
/// what messages will need; the caller must not rely on seeing every message. Good until the next call of a function
/// that posts or takes messages.
[[nodiscard]] OSTREL_PLATFORM_API std::span<PostedMessage const> PostedBehind(std::size_t distance);
/// The clock as it was when the calling thread last looked for a message. While a posted message is handled, and until
/// its handler has called anything that may take long, that is now, without another reading of the clock.
[[nodiscard]] OSTREL_PLATFORM_API std::int64_t TakenMilliseconds();
/// Turns a clock that stands still by so many milliseconds, stopping at every timer of the calling thread on the way:
/// timers fire in due order, and after each stop everything pending is handled.
OSTREL_PLATFORM_API void TurnClock(int milliseconds);
/// Offers the message to PreTranslateMessage of the target's CWnd and of its parents'. True: consumed.
OSTREL_PLATFORM_API bool PreTranslate(MSG& message);

/// Called on this thread each time before it blocks, and by ProcessPending at its end. True: something was done, look
/// again before blocking. An empty function takes the hook off. Returns the one before.
OSTREL_PLATFORM_API std::function<bool()> SetIdleHook(std::function<bool()> hook);

/// Puts on the screen what has been drawn since the last time. The loop does it by itself.
OSTREL_PLATFORM_API void PresentNow();

/// Runs a function on the thread of a window, as a sent message: at once on that thread, otherwise the caller waits as
/// in SendMessage. What it throws comes out of the call. False when the window is dead: the function was not run.
OSTREL_PLATFORM_API bool CallOnWindowThread(HWND window, std::function<void()> const& function);

/// The calling thread's display, made now if it has none yet.
OSTREL_PLATFORM_API Display& ThreadDisplay();
/// Gives the calling thread a display of a chosen kind. Only while it has no top-level window; takes ownership. Null:
/// the next need makes one by MakeDisplay.
OSTREL_PLATFORM_API void SetThreadDisplay(std::unique_ptr<Display> display);

/// The native window of the top-level window that holds a window of this thread; null while it was never shown.
[[nodiscard]] OSTREL_PLATFORM_API NativeWindow* NativeWindowOf(HWND window);

/// The program ends with this code, after one line on stderr, when the display server goes away.
inline constexpr int kExitDisplayLost = 75;

} // namespace Ostrel::Platform
