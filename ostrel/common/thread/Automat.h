/// @file
/// A thread that executes jobs in order.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <ostrel/common/thread/Job.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/common/thread/Thread.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

namespace detail
{
class WakeUp;
} // namespace detail

/// A thread that executes jobs in the order in which they were pushed and sleeps in between. A derived class may do
/// periodic work of its own whenever the automaton is about to sleep.
class OSTREL_COMMON_API CAutomat : public CThread
{
public:
    /// The thread does not run before Start. The name is that of the thread, for debuggers.
    explicit CAutomat(std::string const& name = std::string());
    /// Deletes the jobs that were not executed. Stop and Wait come first.
    ~CAutomat() override;

    void Start() override;
    /// Ends the thread after the jobs that it has taken. Those still queued stay, neither executed nor deleted; the
    /// next Start executes them.
    void Stop() override;
    void Wait(int timeout) override;

    /// Takes ownership. Does nothing for null. Any thread, also before Start.
    void PushJob(CJob* job);

protected:
    /// Passes of: execute all jobs that are queued, then WaitNextJob. Returns 0.
    int Run() override;
    /// Executes and deletes one job; does nothing for null. The automaton's thread; no lock is held.
    virtual void OnExecuteJob(CJob* job);
    /// Sleeps until a job is pushed or the automaton is stopped, for at most that many milliseconds; 0xFFFFFFFF has no
    /// end. May return early. The automaton's thread; no lock is held.
    virtual void WaitNextJob(unsigned int timeout);

private:
    using Jobs = std::vector<std::unique_ptr<CJob>>;

    [[nodiscard]] Jobs TakeJobs();

    std::unique_ptr<detail::WakeUp> const m_wakeUp;
    CSyncObject m_lock;
    Jobs m_jobs OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Common
