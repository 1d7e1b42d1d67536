#include <algorithm>
#include <atomic>
#include <ctime>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace
{

using Ostrel::Platform::Clock;
using Ostrel::Platform::Mutex;

constexpr std::int64_t kRunning = -1;

/// kRunning, or the microseconds at which the clock stands. A reader looks at it first; g_lead is stored before it.
constinit std::atomic<std::int64_t> g_manualMicroseconds{kRunning};
/// How far the running clock is ahead of the system's: what was turned and what stood still.
constinit std::atomic<std::int64_t> g_leadMicroseconds{0};
constinit Mutex g_turning; ///< held by those who change the two

std::int64_t SystemMicroseconds() noexcept
{
    std::timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1'000'000 + now.tv_nsec / 1000;
}

void StandAt(std::int64_t microseconds) noexcept OSTREL_REQUIRES(g_turning)
{
    g_manualMicroseconds.store(std::max<std::int64_t>(microseconds, 0), std::memory_order_release);
}

} // namespace

namespace Ostrel::Platform
{

std::int64_t Clock::Microseconds() noexcept
{
    std::int64_t const manual = g_manualMicroseconds.load(std::memory_order_acquire);
    return manual != kRunning ? manual : SystemMicroseconds() + g_leadMicroseconds.load(std::memory_order_relaxed);
}

void Clock::SetManual() noexcept
{
    MutexLock const lock(g_turning);
    StandAt(Microseconds());
}

void Clock::SetManual(std::int64_t milliseconds) noexcept
{
    MutexLock const lock(g_turning);
    StandAt(milliseconds * 1000);
}

void Clock::Advance(std::int64_t milliseconds) noexcept
{
    MutexLock const lock(g_turning);
    if (IsManual() && milliseconds > 0)
    {
        StandAt(Microseconds() + milliseconds * 1000);
    }
}

void Clock::SetRunning() noexcept
{
    MutexLock const lock(g_turning);
    if (IsManual())
    {
        g_leadMicroseconds.store(Microseconds() - SystemMicroseconds(), std::memory_order_relaxed);
        g_manualMicroseconds.store(kRunning, std::memory_order_release);
    }
}

bool Clock::IsManual() noexcept
{
    return g_manualMicroseconds.load(std::memory_order_acquire) != kRunning;
}

} // namespace Ostrel::Platform

DWORD GetTickCount() noexcept
{
    return Clock::Ticks();
}
