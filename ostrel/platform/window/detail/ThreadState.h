// Everything about windows that belongs to one thread: its windows, timers, input, what is to be painted, its display.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include <ostrel/platform/window/Display.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/detail/Input.h>
#include <ostrel/platform/window/detail/MessageQueue.h>
#include <ostrel/platform/window/detail/Painter.h>
#include <ostrel/platform/window/detail/PostedMessages.h>
#include <ostrel/platform/window/detail/ScrollTracker.h>
#include <ostrel/platform/window/detail/Timers.h>
#include <ostrel/platform/window/detail/Window.h>

namespace Ostrel::Platform
{

class ThreadState
{
public:
    /// The calling thread's state, made now if it has none.
    static ThreadState& Get() { return s_current != nullptr ? *s_current : Make(); }
    /// The same, null if it has none.
    static ThreadState* TryGet() noexcept { return s_current; }

    explicit ThreadState(MessageQueue* threadQueue);
    ThreadState(ThreadState const&) = delete;
    ThreadState& operator=(ThreadState const&) = delete;
    ~ThreadState();

    // ---- windows
    /// Null for a window that is dead or of another thread.
    [[nodiscard]] Window* Find(HWND handle) noexcept
    {
        Window* const lastFound = LastFound(handle);
        return lastFound != nullptr && lastFound->handle == handle ? lastFound : FindInAll(handle);
    }
    Window& AddWindow();
    /// Takes the record out and ends it.
    void RemoveWindow(HWND handle);
    /// From the lowest to the topmost.
    [[nodiscard]] std::vector<Window*>& TopLevels() noexcept { return m_topLevels; }
    /// The native window of a top-level window, made now if it has none.
    NativeWindow& NativeOf(Window& topLevel);

    // ---- display
    [[nodiscard]] Display* DisplayOrNull() const noexcept { return m_display.get(); }
    Display& GetDisplay();
    void SetDisplay(std::unique_ptr<Display> display);
    /// Takes in what the display saw. Ends the program when its server is gone.
    void PumpDisplay();

    // ---- messages
    /// Runs everything that other threads have sent to this one.
    void ServeSent();
    LRESULT SendToOther(MessageQueue& receiver, SentMessage& sent);

    MessageQueue& queue;
    PostedMessages posted;
    std::int64_t takenUs = 0; ///< the clock when the loop last looked for a message
    TimerList timers;
    Painter painter{*this};
    Input input{*this};
    ScrollTracker scrollTracker{*this};
    std::function<bool()> idleHook;
    std::vector<std::unique_ptr<CWnd>> temporaryObjects;

private:
    struct Owner;

    static ThreadState& Make();
    [[nodiscard]] Window* FindInAll(HWND handle) noexcept;
    void Serve(SentMessage& sent);
    [[nodiscard]] Window*& LastFound(HWND handle) noexcept { return m_lastFound[TokenOf(handle) % m_lastFound.size()]; }

    std::unordered_map<DWORD, std::unique_ptr<Window>> m_windows;
    /// The windows that were found last, by the low bits of their tokens: a message passes between few windows, but
    /// asks for each of them many times.
    std::array<Window*, 8> m_lastFound{};
    std::vector<Window*> m_topLevels;
    std::unique_ptr<Display> m_display;

    // A plain pointer, so that it may still be read when the thread's other objects have gone.
    static inline constinit thread_local ThreadState* s_current = nullptr;
};

/// Null for a window that is dead or of another thread.
[[nodiscard]] inline Window* FindWindowRecord(HWND handle) noexcept
{
    ThreadState* const state = ThreadState::TryGet();
    return state != nullptr ? state->Find(handle) : nullptr;
}

/// Runs the procedure of a window of the calling thread; 0 for a dead one.
LRESULT CallProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// ---- the tree (WindowTree.cpp)
/// The top-level window above a window; itself for a top-level one.
[[nodiscard]] Window& TopLevelOf(Window& window) noexcept;
/// Where the window's corner (WindowOrigin) or that of its client area (ClientOrigin) lies in its top-level window.
[[nodiscard]] CPoint WindowOrigin(Window const& window) noexcept;
[[nodiscard]] CPoint ClientOrigin(Window const& window) noexcept;
/// Where the client area's corner lies on the screen.
[[nodiscard]] CPoint ClientScreenOrigin(Window const& window) noexcept;
/// It and all above it have WS_VISIBLE.
[[nodiscard]] bool IsShown(Window const& window) noexcept;
/// It and all above it are enabled.
[[nodiscard]] bool IsActiveTree(Window const& window) noexcept;
[[nodiscard]] bool IsSelfOrAncestor(Window const& ancestor, Window const* window) noexcept;

// ---- places (WindowPlace.cpp)
/// Asks WM_NCCALCSIZE for the client area. True when it changed.
bool LayOutClient(HWND handle);
/// The default answer to WM_NCCALCSIZE.
[[nodiscard]] CRect DefaultClientArea(Window const& window, CRect area) noexcept;
/// Width of border and edge on each side.
[[nodiscard]] int FrameWidth(DWORD style, DWORD exStyle) noexcept;
void SendSize(HWND handle);
void SendMove(HWND handle);
/// The user or the window manager gave a top-level window these bounds.
void AdoptBounds(HWND topLevel, CRect const& screenBounds);

} // namespace Ostrel::Platform
