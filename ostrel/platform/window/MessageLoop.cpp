#include <algorithm>
#include <optional>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/Wnd.h>
#include <ostrel/platform/window/detail/ThreadState.h>
#include <ostrel/platform/window/detail/Turn.h>

using namespace Ostrel::Platform;

namespace
{

/// Takes messages in the order of service for one thread.
class Retriever
{
public:
    Retriever(ThreadState& state, Turn& turn) noexcept : m_state(state), m_turn(turn) {}

    bool Next(MSG& message, MessageFilter const& filter, bool take)
    {
        m_state.ServeSent();
        if (m_state.input.NextTranslated(message, filter, take))
        {
            return true;
        }
        m_nowUs = m_state.takenUs = Clock::Microseconds();
        if (m_turn.IsOthers(m_nowUs))
        {
            if (NextOther(message, filter, take))
            {
                return true;
            }
            m_turn.EndOthers(Clock::Microseconds());
        }
        if (NextPosted(message, filter, take) || NextQuit(message, filter, take))
        {
            return true;
        }
        m_turn.PostedAreServed();
        return NextOther(message, filter, take);
    }

private:
    bool NextPosted(MSG& message, MessageFilter const& filter, bool take)
    {
        PostedMessage posted{};
        // Messages of windows that died on the way are dropped here.
        while (m_state.posted.Next(m_state.queue, filter, take, posted))
        {
            if (posted.window == nullptr || m_state.Find(posted.window) != nullptr)
            {
                Fill(message, posted.window, posted.message, posted.wParam, posted.lParam);
                return true;
            }
            if (!take)
            {
                m_state.posted.Next(m_state.queue, filter, true, posted);
            }
        }
        return false;
    }

    bool NextQuit(MSG& message, MessageFilter const& filter, bool take)
    {
        if (!m_turn.quitCode.has_value() || !filter.WantsNumber(WM_QUIT))
        {
            return false;
        }
        Fill(message, nullptr, WM_QUIT, static_cast<WPARAM>(*m_turn.quitCode), 0);
        if (take)
        {
            m_turn.quitCode.reset();
        }
        return true;
    }

    /// Input, timers, painting; what was drawn is shown when there is nothing left to paint.
    bool NextOther(MSG& message, MessageFilter const& filter, bool take)
    {
        m_state.PumpDisplay();
        if (m_state.input.Next(message, filter, take) || NextTimer(message, filter, take))
        {
            return true;
        }
        if (m_turn.MayPaint())
        {
            if (NextPaint(message, filter))
            {
                return true;
            }
            m_state.painter.PresentAll();
        }
        return false;
    }

    bool NextTimer(MSG& message, MessageFilter const& filter, bool take)
    {
        if (!filter.WantsNumber(WM_TIMER))
        {
            return false;
        }
        std::int64_t const now = Clock::Milliseconds();
        while (auto const due = m_state.timers.Next(now, filter.window, take))
        {
            if (due->key.kind == TimerList::Kind::Message)
            {
                Fill(message, due->key.window, WM_TIMER, due->key.id, reinterpret_cast<LPARAM>(due->procedure));
                return true;
            }
            if (!take)
            {
                // A look takes no message, but the platform's own timers are none.
                m_state.timers.Next(now, filter.window, true);
            }
            due->function();
        }
        return false;
    }

    bool NextPaint(MSG& message, MessageFilter const& filter)
    {
        HWND const window = filter.WantsNumber(WM_PAINT) ? m_state.painter.NextToPaint(filter.window) : nullptr;
        if (window != nullptr)
        {
            Fill(message, window, WM_PAINT, 0, 0);
        }
        return window != nullptr;
    }

    void Fill(MSG& message, HWND window, UINT number, WPARAM wParam, LPARAM lParam)
    {
        message = {window, number, wParam, lParam, static_cast<DWORD>(m_nowUs / 1000), m_state.input.Pointer()};
    }

    ThreadState& m_state;
    Turn& m_turn;
    std::int64_t m_nowUs = 0; ///< read once for each message: that is the hot path of live data
};

Turn& TurnOfThread()
{
    thread_local Turn turn;
    return turn;
}

bool NextMessage(MSG& message, MessageFilter const& filter, bool take)
{
    return Retriever(ThreadState::Get(), TurnOfThread()).Next(message, filter, take);
}

int UntilNextTimer(ThreadState const& state)
{
    std::optional<std::int64_t> const due = state.timers.NextDue();
    if (!due.has_value())
    {
        return -1;
    }
    return static_cast<int>(std::clamp<std::int64_t>(*due - Clock::Milliseconds(), 0, 1 << 30));
}

bool IsIdle(ThreadState& state)
{
    state.temporaryObjects.clear();
    return state.idleHook == nullptr || !state.idleHook();
}

/// Blocks until something may have come. A clock that stands lets no timer become due, so that only messages wake.
void WaitForMore()
{
    ThreadState& state = ThreadState::Get();
    state.painter.PresentAll();
    if (!IsIdle(state))
    {
        return;
    }
    Display* const display = state.DisplayOrNull();
    if (display != nullptr && !display->PrepareToBlock())
    {
        return;
    }
    if (!state.posted.IsEmpty())
    {
        return; // to itself, by what was called above
    }
    int const timeoutMs = UntilNextTimer(state);
    state.queue.Sleep(display != nullptr ? display->EventFd() : -1,
                      Clock::IsManual() && timeoutMs > 0 ? -1 : timeoutMs);
}

void PostTo(MessageQueue& receiver, PostedMessage const& message)
{
    ThreadState* const state = ThreadState::TryGet();
    if (state != nullptr && &state->queue == &receiver)
    {
        state->posted.Post(receiver, message);
    }
    else
    {
        receiver.Post(message);
    }
}

void Dispatch(MSG& message)
{
    if (!PreTranslate(message))
    {
        TranslateMessage(&message);
        DispatchMessage(&message);
    }
}

} // namespace

BOOL GetMessage(MSG* message, HWND window, UINT first, UINT last)
{
    while (!NextMessage(*message, {window, first, last}, true))
    {
        WaitForMore();
    }
    return message->message != WM_QUIT;
}

BOOL PeekMessage(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    return NextMessage(*message, {window, first, last}, (remove & PM_REMOVE) != 0);
}

BOOL WaitMessage()
{
    MSG message;
    while (!NextMessage(message, {}, false))
    {
        WaitForMore();
    }
    return TRUE;
}

BOOL TranslateMessage(MSG const* message)
{
    bool const isKey = message != nullptr && message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    return isKey && ThreadState::Get().input.Translate(*message);
}

LRESULT DispatchMessage(MSG const* message)
{
    if (message == nullptr)
    {
        return 0;
    }
    if (message->message == WM_TIMER && message->lParam != 0)
    {
        auto const function = reinterpret_cast<TIMERPROC>(message->lParam);
        function(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    return CallProcedure(message->hwnd, message->message, message->wParam, message->lParam);
}

void PostQuitMessage(int exitCode)
{
    TurnOfThread().quitCode = exitCode;
}

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    MessageQueue* const receiver = QueueOf(window);
    if (receiver == nullptr)
    {
        return 0;
    }
    ThreadState& state = ThreadState::Get();
    if (receiver == &state.queue)
    {
        return CallProcedure(window, message, wParam, lParam);
    }
    SentMessage sent;
    sent.message = {window, message, wParam, lParam};
    return state.SendToOther(*receiver, sent);
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window == nullptr)
    {
        PostTo(ThreadState::Get().queue, {nullptr, message, wParam, lParam});
        return TRUE;
    }
    MessageQueue* const receiver = QueueOf(window);
    if (receiver != nullptr)
    {
        PostTo(*receiver, {window, message, wParam, lParam});
    }
    return receiver != nullptr;
}

void Ostrel::Platform::AnnounceSystemColors()
{
    for (DWORD const token : WindowTable().Handles())
    {
        ::PostMessage(WindowOfToken(token), WM_SYSCOLORCHANGE);
    }
}

BOOL PostThreadMessage(DWORD threadId, UINT message, WPARAM wParam, LPARAM lParam)
{
    MessageQueue* const receiver = MessageQueue::OfThread(threadId);
    if (receiver != nullptr)
    {
        PostTo(*receiver, {nullptr, message, wParam, lParam});
    }
    return receiver != nullptr;
}

namespace Ostrel::Platform
{

bool PreTranslate(MSG& message)
{
    return CWnd::WalkPreTranslateTree(nullptr, &message) != FALSE;
}

int RunMessageLoop()
{
    MSG message;
    while (GetMessage(&message))
    {
        Dispatch(message);
    }
    return static_cast<int>(message.wParam);
}

bool RunModalLoop(std::function<bool()> const& isDone)
{
    while (!isDone())
    {
        MSG message;
        if (!GetMessage(&message))
        {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        Dispatch(message);
    }
    return true;
}

bool ProcessPending()
{
    MSG message;
    do
    {
        while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE))
        {
            if (message.message == WM_QUIT)
            {
                PostQuitMessage(static_cast<int>(message.wParam));
                return false;
            }
            Dispatch(message);
        }
    } while (!IsIdle(ThreadState::Get()));
    return true;
}

std::span<PostedMessage const> PostedBehind(std::size_t distance)
{
    return ThreadState::Get().posted.Behind(distance);
}

std::int64_t TakenMilliseconds()
{
    return ThreadState::Get().takenUs / 1000;
}

void TurnClock(int milliseconds)
{
    ThreadState const& state = ThreadState::Get();
    std::int64_t const end = Clock::Milliseconds() + std::max(0, milliseconds);
    ProcessPending();
    for (auto due = state.timers.NextDue(); due.has_value() && *due <= end; due = state.timers.NextDue())
    {
        Clock::Advance(*due - Clock::Milliseconds());
        if (!ProcessPending())
        {
            return;
        }
    }
    Clock::Advance(end - Clock::Milliseconds());
    ProcessPending();
}

std::function<bool()> SetIdleHook(std::function<bool()> hook)
{
    return std::exchange(ThreadState::Get().idleHook, std::move(hook));
}

void PresentNow()
{
    ThreadState::Get().painter.PresentAll();
}

bool CallOnWindowThread(HWND window, std::function<void()> const& function)
{
    MessageQueue* const receiver = QueueOf(window);
    if (receiver == nullptr)
    {
        return false;
    }
    ThreadState& state = ThreadState::Get();
    if (receiver == &state.queue)
    {
        function();
        return true;
    }
    SentMessage sent;
    sent.message.window = window;
    sent.function = &function;
    state.SendToOther(*receiver, sent);
    return sent.wasServed;
}

Display& ThreadDisplay()
{
    return ThreadState::Get().GetDisplay();
}

void SetThreadDisplay(std::unique_ptr<Display> display)
{
    ThreadState::Get().SetDisplay(std::move(display));
}

NativeWindow* NativeWindowOf(HWND handle)
{
    Window* const window = FindWindowRecord(handle);
    return window != nullptr ? TopLevelOf(*window).native.get() : nullptr;
}

} // namespace Ostrel::Platform
