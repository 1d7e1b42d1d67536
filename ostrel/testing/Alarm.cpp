#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/detail/Alarm.h>

namespace Ostrel::Testing::Detail
{

Alarm::Alarm(std::chrono::milliseconds limit, std::function<void()> whenStuck)
    : m_thread([this, threadId = GetCurrentThreadId(), limit, whenStuck = std::move(whenStuck)]
               { Run(threadId, limit, whenStuck); })
{}

Alarm::~Alarm()
{
    {
        Platform::MutexLock const lock(m_lock);
        m_isOff = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Alarm::Run(DWORD threadId, std::chrono::milliseconds limit, std::function<void()> const& whenStuck)
{
    if (!Wait(limit))
    {
        return;
    }
    m_hasRung.store(true, std::memory_order_release);
    PostThreadMessage(threadId, WM_NULL, 0, 0);
    if (whenStuck && Wait(kGrace))
    {
        whenStuck();
    }
}

bool Alarm::Wait(std::chrono::milliseconds time)
{
    auto const end = std::chrono::steady_clock::now() + time;
    Platform::MutexLock const lock(m_lock);
    while (!m_isOff)
    {
        if (m_changed.wait_until(m_lock, end) == std::cv_status::timeout)
        {
            return !m_isOff;
        }
    }
    return false;
}

} // namespace Ostrel::Testing::Detail
