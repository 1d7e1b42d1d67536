/// @file
/// One thread with a name, a request to stop and a join.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common
{

/// One thread with a name, a request to stop and a join. A class derived from CThread gives it its body:
///
///     int CReader::Run()
///     {
///         while (!IsStopping())
///         {
///             ReadOne();
///         }
///         return 0;
///     }
///
/// The thread uses the object until Run returns, and the destructor neither stops nor joins: whoever owns a CThread
/// calls Stop and Wait before it dies.
class OSTREL_COMMON_API CThread
{
public:
    CThread(CThread const&) = delete;
    CThread& operator=(CThread const&) = delete;

    /// Starts the thread unless it is active. After Wait the same object may be started again. Any thread.
    virtual void Start();
    /// Asks the thread to end; Run looks at IsStopping. Any thread.
    virtual void Stop();
    /// Joins: the thread is no longer active, and this call returns when it has ended or after `timeout` milliseconds;
    /// a negative time waits without limit. Does nothing unless the thread is active. Any thread; on the thread itself
    /// it does not wait.
    virtual void Wait(int timeout);
    /// A copy of the name given at construction.
    virtual std::string GetThreadName();
    /// True from Start to Wait, also when Run has returned by itself. Any thread.
    [[nodiscard]] virtual bool IsActive() const;
    /// True from Stop to the next Start. Any thread.
    [[nodiscard]] virtual bool IsStopping() const;
    virtual ~CThread();

    /// The system's number of the thread last started; 0 before. Any thread.
    [[nodiscard]] unsigned int GetThreadId() const { return m_threadId; }

protected:
    /// Debuggers and system tools show the name; where they have less room, its beginning.
    explicit CThread(std::string const& name = std::string());

    /// The body of the thread. Its result is kept nowhere.
    virtual int Run() = 0;

private:
    class Progress;

    void RunAs(Progress& progress);

    std::string const m_name;
    std::atomic<bool> m_stopping = false;
    std::atomic<bool> m_active = false;
    std::atomic<unsigned int> m_threadId = 0;
    Platform::Mutex m_lock;
    std::thread m_thread OSTREL_GUARDED_BY(m_lock);
    /// Shared with the thread, which may end after a Wait that gave up, and after this object.
    std::shared_ptr<Progress> m_progress OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Common
