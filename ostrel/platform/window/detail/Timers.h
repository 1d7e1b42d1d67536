// The timers of a thread in the order in which they are due.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include <ostrel/platform/window/WindowApi.h>

namespace Ostrel::Platform
{

/// Timers of windows, and the platform's own (hover, held scroll arrows), which run a function instead of making a
/// message. Each has at most one tick outstanding: a timer that was due several times fires once.
class TimerList
{
public:
    /// Kinds that share a window and a number do not meet.
    enum class Kind
    {
        Message,
        Hover,
        ScrollRepeat
    };
    struct Key
    {
        HWND window;
        UINT_PTR id;
        Kind kind;
        friend auto operator<=>(Key const&, Key const&) = default;
    };
    struct Due
    {
        Key key;
        TIMERPROC procedure;
        std::function<void()> function; ///< for the kinds that are not Message
    };

    void Set(Key const& key, std::int64_t periodMs, TIMERPROC procedure, std::function<void()> function = {});
    bool Kill(Key const& key);
    void KillAllOf(HWND window);
    /// An id that no timer without a window has.
    [[nodiscard]] UINT_PTR NewThreadTimerId() noexcept { return ++m_lastThreadId; }

    /// When the next timer is due, in milliseconds of the clock.
    [[nodiscard]] std::optional<std::int64_t> NextDue() const noexcept;
    /// The longest due timer that the window filter (null: all) lets through, started anew when it is taken.
    std::optional<Due> Next(std::int64_t nowMs, HWND window, bool take);

private:
    /// Due time, then the order of starting.
    using Moment = std::pair<std::int64_t, std::uint64_t>;
    struct Timer
    {
        Moment moment;
        std::int64_t periodMs;
        TIMERPROC procedure;
        std::function<void()> function;
    };

    void Schedule(Key const& key, Timer& timer, std::int64_t due);

    std::map<Key, Timer> m_timers;
    std::map<Moment, Key> m_order;
    std::uint64_t m_sequence = 0;
    UINT_PTR m_lastThreadId = 0x7000;
};

} // namespace Ostrel::Platform
