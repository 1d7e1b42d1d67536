#include <ostrel/gui/grid/detail/GridThread.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::GUI::Detail
{
LRESULT CarriedCall::Run() noexcept
{
    LRESULT answer = 0;
    try
    {
        Platform::CallbackErrors errors;
        answer = m_runner(m_callable);
        errors.Rethrow();
    }
    catch (...)
    {
        m_error = std::current_exception();
    }
    m_hasRun = true;
    return answer;
}

bool CarriedCall::Finish() const
{
    if (m_error)
    {
        std::rethrow_exception(m_error);
    }
    return m_hasRun;
}

/// The calls of the whole process that wait for their grid.
class WaitingCalls
{
public:
    static WaitingCalls& Instance()
    {
        static auto* const calls = new WaitingCalls;
        return *calls;
    }

    void Add(CarriedCall& call) OSTREL_EXCLUDES(m_lock)
    {
        Platform::MutexLock const lock(m_lock);
        call.m_next = m_first;
        m_first = &call;
    }

    /// Takes the call off the list. Null when it is not on it.
    [[nodiscard]] CarriedCall* Take(CarriedCall const* call) OSTREL_EXCLUDES(m_lock)
    {
        Platform::MutexLock const lock(m_lock);
        CarriedCall** place = &m_first;
        while (*place != nullptr && *place != call)
        {
            place = &(*place)->m_next;
        }
        CarriedCall* const found = *place;
        if (found != nullptr)
        {
            *place = found->m_next;
        }
        return found;
    }

private:
    Platform::Mutex m_lock;
    CarriedCall* m_first OSTREL_GUARDED_BY(m_lock) = nullptr;
};

void GridThread::Bind(HWND window) noexcept
{
    m_window.store(window, std::memory_order_release);
    m_home.store(GetCurrentThreadId(), std::memory_order_relaxed);
    m_id.store(std::this_thread::get_id(), std::memory_order_release);
}

UINT GridThread::Message()
{
    static UINT const message = RegisterWindowMessage("Ostrel.Grid.SyncMessage");
    return message;
}

bool GridThread::Post(GridOperation code, LPARAM argument) const
{
    HWND const window = Window();
    return window != nullptr && PostMessage(window, Message(), static_cast<WPARAM>(code), argument) != FALSE;
}

LRESULT GridThread::Run(CarriedCall const* call)
{
    CarriedCall* const waiting = WaitingCalls::Instance().Take(call);
    return waiting != nullptr ? waiting->Run() : 0;
}

// The grid may have gone when SendMessage returns: from there on only the call is touched.
void GridThread::Send(GridOperation code, CarriedCall& call) const
{
    if (HWND const window = Window())
    {
        WaitingCalls& waiting = WaitingCalls::Instance();
        waiting.Add(call);
        SendMessage(window, Message(), static_cast<WPARAM>(code), reinterpret_cast<LPARAM>(&call));
        static_cast<void>(waiting.Take(&call)); // still there when the window died meanwhile
    }
}
} // namespace Ostrel::GUI::Detail
