#include <algorithm>
#include <memory>

#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/detail/TimerImpl.h>
#include <ostrel/platform/base/Clock.h>

namespace Ostrel::Common
{

namespace
{

using Platform::Clock;

/// Half the range of the ticks, less a minute: a timer that is late still comes before one that is as far off as can
/// be.
constexpr unsigned int kLongestDelay = 0x7FFFFFFF - 60'000;
constexpr std::chrono::milliseconds kLongestStop{1000};

thread_local bool t_isTimerThread = false;

} // namespace

class CTimer::Impl::CStartTimer final : public CJob
{
public:
    CStartTimer(Impl& service, Entry const& entry, std::uint32_t run)
        : m_service(service), m_entry(entry), m_run(run), m_isFromCallback(t_isTimerThread)
    {}

    void Execute() override
    {
        bool const hasLost = m_isFromCallback && m_service.IsStoppedInBatch(m_entry.callback, m_entry.id);
        if (m_run == m_service.m_run && !hasLost)
        {
            m_service.Remove(m_entry.callback, m_entry.id);
            m_service.Insert(m_entry);
        }
    }

private:
    Impl& m_service;
    Entry const m_entry;
    std::uint32_t const m_run;
    bool const m_isFromCallback;
};

/// Ticket 0 is nobody's: the job of a stop that does not wait.
class CTimer::Impl::CStopTimer final : public CJob
{
public:
    CStopTimer(Impl& service, ICallBack* callback, int id, std::uint32_t ticket)
        : m_service(service), m_callback(callback), m_id(id), m_ticket(ticket)
    {}

    void Execute() override
    {
        m_service.Remove(m_callback, m_id);
        if (m_ticket != 0)
        {
            m_service.StopFor(m_callback, m_id, m_ticket);
        }
    }

private:
    Impl& m_service;
    ICallBack* const m_callback;
    int const m_id;
    std::uint32_t const m_ticket;
};

CTimer::Impl& CTimer::Impl::Instance()
{
    static Impl& service = *new Impl;
    /// Joins the thread before the program's code and data go away.
    struct AtExit
    {
        ~AtExit() { service.UnInitialize(); }
    };
    static AtExit const atExit;
    return service;
}

void CTimer::Impl::Initialize()
{
    if (!t_isTimerThread)
    {
        CLock const lock(m_serviceLock);
        Start();
    }
}

void CTimer::Impl::UnInitialize()
{
    if (t_isTimerThread)
    {
        return; // the thread cannot wait for itself
    }
    CLock const lock(m_serviceLock);
    if (IsActive())
    {
        Stop();
        Wait(-1);
        ++m_run;
        m_entries.clear();
    }
}

bool CTimer::Impl::StartTimer(ICallBack* callback, int id, unsigned int delay)
{
    std::uint32_t const run = m_run;
    if (callback == nullptr || !IsActive())
    {
        return false;
    }
    DWORD const due = Clock::Ticks() + std::min(delay, kLongestDelay);
    PushJob(new CStartTimer(*this, {callback, id, due}, run));
    return true;
}

bool CTimer::Impl::StopTimer(ICallBack* callback, int id)
{
    if (t_isTimerThread)
    {
        StopOnTimerThread(callback, id);
        return true;
    }
    CLock const lock(m_serviceLock);
    if (!IsActive())
    {
        return false;
    }
    m_lastTicket = std::max(m_lastTicket + 1, std::uint32_t{1});
    PushJob(new CStopTimer(*this, callback, id, m_lastTicket));
    m_stopped.Wait(m_lastTicket, kLongestStop);
    return true;
}

/// Without the service lock, which a thread may hold that waits for this one. The job is for a start that is still
/// queued.
void CTimer::Impl::StopOnTimerThread(ICallBack* callback, int id)
{
    Remove(callback, id);
    std::erase_if(m_expired, [&](Entry const& entry) { return entry.IsTimer(callback, id); });
    PushJob(new CStopTimer(*this, callback, id, 0));
}

void CTimer::Impl::StopFor(ICallBack* callback, int id, std::uint32_t ticket)
{
    m_stoppedInBatch.push_back({callback, id, 0});
    m_stopped.Give(ticket);
}

bool CTimer::Impl::IsStoppedInBatch(ICallBack const* callback, int id) const
{
    return std::any_of(m_stoppedInBatch.begin(), m_stoppedInBatch.end(),
                       [&](Entry const& entry) { return entry.IsTimer(callback, id); });
}

int CTimer::Impl::Run()
{
    t_isTimerThread = true;
    return CAutomat::Run();
}

void CTimer::Impl::WaitNextJob(unsigned int timeout)
{
    m_stoppedInBatch.clear();
    TakeExpired(Clock::Ticks());
    CallExpired();
    CAutomat::WaitNextJob(TimeToSleep(timeout));
}

void CTimer::Impl::Insert(Entry const& entry)
{
    auto const place =
        std::partition_point(m_entries.begin(), m_entries.end(),
                             [&](Entry const& other) { return !Platform::TickReached(other.due, entry.due); });
    m_entries.insert(place, entry);
}

void CTimer::Impl::Remove(ICallBack const* callback, int id)
{
    auto const found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](Entry const& entry) { return entry.IsTimer(callback, id); });
    if (found != m_entries.end())
    {
        m_entries.erase(found);
    }
}

void CTimer::Impl::TakeExpired(DWORD now)
{
    auto const end = std::partition_point(m_entries.begin(), m_entries.end(),
                                          [&](Entry const& entry) { return Platform::TickReached(now, entry.due); });
    m_expired.assign(m_entries.begin(), end);
    m_entries.erase(m_entries.begin(), end);
}

/// A callback may stop timers that are still to be called.
void CTimer::Impl::CallExpired()
{
    while (!m_expired.empty())
    {
        Entry const entry = m_expired.front();
        m_expired.pop_front();
        try
        {
            entry.callback->OnTimer(entry.id);
        }
        catch (...) // NOLINT(bugprone-empty-catch): one client's failure is not the other clients'
        {}
    }
}

/// From now, not from when the pass began: its callbacks may have taken long.
unsigned int CTimer::Impl::TimeToSleep(unsigned int timeout) const
{
    if (m_entries.empty())
    {
        return timeout;
    }
    DWORD const now = Clock::Ticks();
    DWORD const due = m_entries.front().due;
    return Platform::TickReached(now, due) ? 0 : std::min(timeout, Platform::TicksSince(due, now));
}

} // namespace Ostrel::Common
