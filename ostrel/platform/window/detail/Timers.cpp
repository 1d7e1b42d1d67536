#include <algorithm>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/window/detail/Timers.h>

namespace Ostrel::Platform
{

void TimerList::Schedule(Key const& key, Timer& timer, std::int64_t due)
{
    timer.moment = {due, ++m_sequence};
    m_order.emplace(timer.moment, key);
}

void TimerList::Set(Key const& key, std::int64_t periodMs, TIMERPROC procedure, std::function<void()> function)
{
    Kill(key);
    std::int64_t const period = std::max<std::int64_t>(periodMs, USER_TIMER_MINIMUM);
    Timer& timer = m_timers[key];
    timer = {{}, period, procedure, std::move(function)};
    Schedule(key, timer, Clock::Milliseconds() + period);
}

bool TimerList::Kill(Key const& key)
{
    auto const found = m_timers.find(key);
    if (found == m_timers.end())
    {
        return false;
    }
    m_order.erase(found->second.moment);
    m_timers.erase(found);
    return true;
}

void TimerList::KillAllOf(HWND window)
{
    auto at = m_timers.lower_bound(Key{window, 0, Kind::Message});
    while (at != m_timers.end() && at->first.window == window)
    {
        m_order.erase(at->second.moment);
        at = m_timers.erase(at);
    }
}

std::optional<std::int64_t> TimerList::NextDue() const noexcept
{
    if (m_order.empty())
    {
        return std::nullopt;
    }
    return m_order.begin()->first.first;
}

std::optional<TimerList::Due> TimerList::Next(std::int64_t nowMs, HWND window, bool take)
{
    for (auto const& [moment, key] : m_order)
    {
        if (moment.first > nowMs)
        {
            return std::nullopt;
        }
        if (window != nullptr && key.window != window && key.kind == Kind::Message)
        {
            continue;
        }
        Timer& timer = m_timers.at(key);
        Due const due{key, timer.procedure, timer.function};
        if (take)
        {
            // A steady beat as long as the thread keeps up; ticks that were missed are gone.
            std::int64_t const next = moment.first + timer.periodMs;
            m_order.erase(moment);
            Schedule(due.key, timer, next > nowMs ? next : nowMs + timer.periodMs);
        }
        return due;
    }
    return std::nullopt;
}

} // namespace Ostrel::Platform
