// The timer thread. Requests reach it as jobs; the timers themselves belong to the thread alone and need no lock.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <vector>

#include <ostrel/common/thread/Automat.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/common/thread/Timer.h>
#include <ostrel/common/thread/detail/Acknowledgement.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

class CTimer::Impl final : public CAutomat
{
public:
    /// Made on first use and never destroyed, so that a static object may use timers to its end. The thread is joined
    /// when the process ends.
    static Impl& Instance();

    void Initialize();
    void UnInitialize();
    bool StartTimer(ICallBack* callback, int id, unsigned int delay);
    bool StopTimer(ICallBack* callback, int id);

protected:
    int Run() override;
    /// Calls the clients whose time has come and sleeps until the next one is due.
    void WaitNextJob(unsigned int timeout) override;

private:
    class CStartTimer;
    class CStopTimer;

    struct Entry
    {
        ICallBack* callback;
        int id;
        DWORD due; ///< in ticks, which wrap

        [[nodiscard]] bool IsTimer(ICallBack const* otherCallback, int otherId) const noexcept
        {
            return callback == otherCallback && id == otherId;
        }
    };

    Impl() = default;
    ~Impl() override = default;

    void Insert(Entry const& entry);
    void Remove(ICallBack const* callback, int id);
    void StopFor(ICallBack* callback, int id, std::uint32_t ticket);
    [[nodiscard]] bool IsStoppedInBatch(ICallBack const* callback, int id) const;
    void StopOnTimerThread(ICallBack* callback, int id);
    void TakeExpired(DWORD now);
    void CallExpired();
    [[nodiscard]] unsigned int TimeToSleep(unsigned int timeout) const;

    CSyncObject m_serviceLock;
    detail::Acknowledgement m_stopped;
    std::uint32_t m_lastTicket OSTREL_GUARDED_BY(m_serviceLock) = 0;
    /// Counts the runs of the service: a request made in one run means nothing in the next.
    std::atomic<std::uint32_t> m_run = 0;

    std::vector<Entry> m_entries; ///< by due time; timer thread only, or nobody's while there is none
    std::deque<Entry> m_expired;  ///< those to be called in this pass; timer thread only
    /// What other threads had stopped since the last callbacks. A client that starts itself again in a callback while
    /// another thread is waiting in StopTimer has lost: else that thread could never know that the client is silent.
    std::vector<Entry> m_stoppedInBatch;
};

} // namespace Ostrel::Common
