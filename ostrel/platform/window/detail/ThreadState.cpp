#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/Wnd.h>
#include <ostrel/platform/window/detail/ThreadState.h>
#include <ostrel/platform/window/detail/WndAccess.h>

namespace Ostrel::Platform
{

namespace
{

[[noreturn]] void EndProgram(std::string const& reason)
{
    std::fprintf(stderr, "ostrel: the display server is gone: %s\n", reason.c_str());
    std::fflush(stderr);
    std::_Exit(kExitDisplayLost);
}

} // namespace

struct ThreadState::Owner
{
    Owner() = default;
    Owner(Owner const&) = delete;
    Owner& operator=(Owner const&) = delete;
    ~Owner()
    {
        if (s_current != nullptr)
        {
            MessageQueue& released = s_current->queue;
            state.reset();
            s_current = nullptr;
            MessageQueue::Release(&released);
        }
    }
    std::unique_ptr<ThreadState> state;
};

ThreadState& ThreadState::Make()
{
    thread_local Owner owner;
    owner.state = std::make_unique<ThreadState>(MessageQueue::Acquire());
    s_current = owner.state.get();
    return *s_current;
}

ThreadState::ThreadState(MessageQueue* threadQueue) : queue(*threadQueue) {}

// Windows that outlive their thread die silently: there is nobody left to handle their messages.
ThreadState::~ThreadState()
{
    for (auto& [token, window] : m_windows)
    {
        WindowTable().Remove(token);
        queue.FailSentTo(window->handle);
        if (window->object != nullptr)
        {
            CWndAccess::Forget(*window->object);
        }
    }
    temporaryObjects.clear();
    m_windows.clear();
    s_current = nullptr;
}

Window* ThreadState::FindInAll(HWND handle) noexcept
{
    auto const found = m_windows.find(TokenOf(handle));
    if (found == m_windows.end())
    {
        return nullptr;
    }
    return LastFound(handle) = found->second.get();
}

Window& ThreadState::AddWindow()
{
    DWORD const token = WindowTable().Add(&queue);
    auto window = std::make_unique<Window>();
    window->handle = WindowOfToken(token);
    Window& record = *window;
    m_windows[token] = std::move(window);
    return record;
}

void ThreadState::RemoveWindow(HWND handle)
{
    WindowTable().Remove(TokenOf(handle));
    queue.FailSentTo(handle);
    Window* const window = Find(handle);
    if (window == nullptr)
    {
        return;
    }
    painter.Forget(*window);
    std::erase(window->parent != nullptr ? window->parent->children : m_topLevels, window);
    LastFound(handle) = nullptr;
    m_windows.erase(TokenOf(handle));
}

NativeWindow& ThreadState::NativeOf(Window& topLevel)
{
    if (topLevel.native == nullptr)
    {
        Window* const owner = Find(topLevel.owner);
        NativeWindowOptions options;
        bool const isPopup = topLevel.HasStyle(WS_POPUP) && (topLevel.style & WS_CAPTION) != WS_CAPTION;
        options.kind = isPopup ? NativeWindowOptions::Kind::Popup : NativeWindowOptions::Kind::TopLevel;
        options.parent = owner != nullptr ? TopLevelOf(*owner).native.get() : nullptr;
        options.bounds = CRect(topLevel.bounds.TopLeft(),
                               CSize(std::max(1, topLevel.bounds.Width()), std::max(1, topLevel.bounds.Height())));
        options.usesDefaultPosition = topLevel.usesDefaultPosition;
        options.title = topLevel.text;
        options.isResizable = topLevel.HasStyle(WS_THICKFRAME);
        options.acceptsFocus = (topLevel.exStyle & WS_EX_NOACTIVATE) == 0;
        options.isToolWindow = (topLevel.exStyle & WS_EX_TOOLWINDOW) != 0;
        options.isTopMost = (topLevel.exStyle & WS_EX_TOPMOST) != 0;
        topLevel.native = GetDisplay().CreateNativeWindow(options);
        topLevel.native->SetTag(topLevel.handle);
    }
    return *topLevel.native;
}

Display& ThreadState::GetDisplay()
{
    if (m_display == nullptr)
    {
        SetDisplay(MakeDisplay());
    }
    return *m_display;
}

void ThreadState::SetDisplay(std::unique_ptr<Display> display)
{
    m_display = std::move(display);
    input.DisplayChanged();
    if (m_display != nullptr)
    {
        SetScreenSize(m_display->ScreenSize());
        if (!IsScaleFixed())
        {
            SetScale(m_display->Scale());
        }
    }
}

void ThreadState::PumpDisplay()
{
    if (m_display == nullptr)
    {
        return;
    }
    m_display->PumpEvents(input);
    if (!m_display->IsAlive())
    {
        EndProgram(m_display->LostReason());
    }
}

void ThreadState::Serve(SentMessage& sent)
{
    try
    {
        if (Find(sent.message.window) != nullptr)
        {
            sent.wasServed = true;
            if (sent.function != nullptr)
            {
                (*sent.function)();
            }
            else
            {
                PostedMessage const& message = sent.message;
                sent.result = CallProcedure(message.window, message.message, message.wParam, message.lParam);
            }
        }
    }
    catch (...)
    {
        sent.exception = std::current_exception();
    }
    MessageQueue::Complete(sent);
}

void ThreadState::ServeSent()
{
    while (queue.HasSent())
    {
        if (SentMessage* const sent = queue.TakeSent())
        {
            Serve(*sent);
        }
    }
}

LRESULT ThreadState::SendToOther(MessageQueue& receiver, SentMessage& sent)
{
    sent.sender = &queue;
    bool const isOnItsWay = receiver.Send(sent);
    // The window may have died before the message was in the queue; its thread would perhaps never look there again.
    if (!isOnItsWay || (QueueOf(sent.message.window) != &receiver && receiver.Withdraw(sent)))
    {
        return 0;
    }
    while (!queue.SleepForReply(sent))
    {
        ServeSent();
    }
    if (sent.exception != nullptr)
    {
        std::rethrow_exception(sent.exception);
    }
    return sent.result;
}

LRESULT CallProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr ? window->procedure(handle, message, wParam, lParam) : 0;
}

} // namespace Ostrel::Platform
