/// @file
/// The one clock of the process. Timers, hover, double clicks, tick counts and fading read it. By default it runs with
/// the system's steady clock; tests replace it by a clock that stands until it is turned:
///
///     Clock::SetManual();
///     Clock::Advance(250);
///     Clock::SetRunning();
///
/// A running reading is the precise monotonic clock (some 20 ns, no system call). The coarse one of the system would be
/// cheaper but moves in steps of 4 ms, too wide for timers and hover delays counted in milliseconds.
///
/// Ticks are 32-bit milliseconds that wrap after 49.7 days: compare them with TicksSince and TickReached only.
#pragma once

#include <cstdint>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Platform
{

/// The one clock of the process. Any thread.
class OSTREL_BASE_API Clock
{
public:
    /// Time since a fixed moment before the process began. Never goes back, SetManual excepted: with a time it may, and
    /// without one other threads that read at that very moment may be some microseconds ahead of where the clock stops.
    [[nodiscard]] static std::int64_t Microseconds() noexcept;
    /// The same in whole milliseconds.
    [[nodiscard]] static std::int64_t Milliseconds() noexcept { return Microseconds() / 1000; }
    /// The low 32 bits of Milliseconds.
    [[nodiscard]] static DWORD Ticks() noexcept { return static_cast<DWORD>(Milliseconds()); }

    ///@{
    /// Stops the clock at its present time, or at a given one, which may be earlier. Negative times count as 0.
    static void SetManual() noexcept;
    static void SetManual(std::int64_t milliseconds) noexcept;
    ///@}
    /// Turns a stopped clock forward. Does nothing for a running clock or a duration that is not positive. Wakes
    /// nobody: whoever turns the clock lets the loops look at it.
    static void Advance(std::int64_t milliseconds) noexcept;
    /// Lets the clock run on from its present time.
    static void SetRunning() noexcept;
    /// True while the clock stands.
    [[nodiscard]] static bool IsManual() noexcept;
};

/// Milliseconds from one tick to a later one, right across the wrap.
constexpr DWORD TicksSince(DWORD now, DWORD then) noexcept
{
    return now - then;
}
/// True when the moment has come: `now` lies at it or at most 24.8 days after it.
constexpr bool TickReached(DWORD now, DWORD moment) noexcept
{
    return static_cast<std::int32_t>(now - moment) >= 0;
}

} // namespace Ostrel::Platform

/// Milliseconds of the process clock, wrapping at 32 bits. Any thread.
OSTREL_BASE_API DWORD GetTickCount() noexcept;
