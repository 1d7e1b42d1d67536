// A moment in real time at which a waiting message loop is woken, so that it can see that it waits in vain. The clock
// that the windows see may stand still; this one does not.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <thread>

#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Testing::Detail
{

/// Rings once, when the limit has passed, unless it is destroyed before: wakes the loop of the thread that made it,
/// then, when that thread has not destroyed it after another `graceMs`, calls `whenStuck` on its own thread.
class Alarm
{
public:
    explicit Alarm(std::chrono::milliseconds limit, std::function<void()> whenStuck = {});
    Alarm(Alarm const&) = delete;
    Alarm& operator=(Alarm const&) = delete;
    ~Alarm();

    [[nodiscard]] bool HasRung() const noexcept { return m_hasRung.load(std::memory_order_acquire); }

    static constexpr std::chrono::milliseconds kGrace{10000};

private:
    void Run(DWORD threadId, std::chrono::milliseconds limit, std::function<void()> const& whenStuck);
    /// False when the alarm is destroyed before the time has passed.
    [[nodiscard]] bool Wait(std::chrono::milliseconds time);

    Platform::Mutex m_lock;
    std::condition_variable_any m_changed;
    bool m_isOff OSTREL_GUARDED_BY(m_lock) = false;
    std::atomic<bool> m_hasRung{false};
    std::thread m_thread; ///< last: it uses the others
};

} // namespace Ostrel::Testing::Detail
