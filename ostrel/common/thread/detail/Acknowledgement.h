// The answer to one of several requests that are made one after the other. Requests are numbered, so that an answer
// that comes after its asker has given up satisfies nobody else.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>

#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common::detail
{

/// Any thread.
class Acknowledgement
{
public:
    void Give(std::uint32_t ticket)
    {
        Platform::MutexLock const lock(m_lock);
        m_given = ticket;
        m_condition.notify_all();
    }

    /// Waits until this ticket's answer is there. Returns false if the time is over before.
    bool Wait(std::uint32_t ticket, std::chrono::milliseconds timeout)
    {
        auto const end = std::chrono::steady_clock::now() + timeout;
        Platform::MutexLock const lock(m_lock);
        while (m_given != ticket)
        {
            if (m_condition.wait_until(m_lock, end) == std::cv_status::timeout)
            {
                return m_given == ticket;
            }
        }
        return true;
    }

private:
    Platform::Mutex m_lock;
    std::uint32_t m_given OSTREL_GUARDED_BY(m_lock) = 0;
    std::condition_variable_any m_condition;
};

} // namespace Ostrel::Common::detail
