// Wakes the one thread that sleeps on it: a semaphore that counts to 1 only, so that any number of releases between two
// waits are one.
#pragma once

#include <chrono>
#include <condition_variable>

#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common::detail
{

/// Any thread.
class WakeUp
{
public:
    static constexpr unsigned int kNoLimit = 0xFFFFFFFF;

    void Release()
    {
        Platform::MutexLock const lock(m_lock);
        m_isReleased = true;
        m_condition.notify_one();
    }

    /// Takes the release, if need be after waiting for it for at most that many milliseconds.
    void Wait(unsigned int timeout)
    {
        auto const end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout);
        Platform::MutexLock const lock(m_lock);
        while (!m_isReleased)
        {
            if (timeout == kNoLimit)
            {
                m_condition.wait(m_lock);
            }
            else if (m_condition.wait_until(m_lock, end) == std::cv_status::timeout)
            {
                break;
            }
        }
        m_isReleased = false;
    }

private:
    Platform::Mutex m_lock;
    bool m_isReleased OSTREL_GUARDED_BY(m_lock) = false;
    std::condition_variable_any m_condition;
};

} // namespace Ostrel::Common::detail
