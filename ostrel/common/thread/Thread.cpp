#include <chrono>
#include <condition_variable>
#include <utility>

#include <pthread.h>

#include <ostrel/common/thread/Thread.h>
#include <ostrel/platform/base/ThreadId.h>
#include <ostrel/platform/base/Utf8.h>

namespace Ostrel::Common
{

namespace
{

void NameThisThread(std::string const& name)
{
    constexpr std::size_t kMostBytes = 15; // the system takes no more
    std::string const shown = name.substr(0, Platform::Utf8BoundaryAt(name, kMostBytes));
    if (!shown.empty())
    {
        pthread_setname_np(pthread_self(), shown.c_str());
    }
}

} // namespace

/// How far a thread has come: running once it has told its number, ended once it does not use the CThread any more.
class CThread::Progress
{
public:
    void SetRunning() { Set(kRunning); }
    void SetEnded() { Set(kEnded); }

    void WaitUntilRunning()
    {
        Platform::MutexLock const lock(m_lock);
        while (m_state == kCreated)
        {
            m_changed.wait(m_lock);
        }
    }
    /// Returns false when the milliseconds are over before; a negative time has no end.
    bool WaitUntilEnded(int timeout)
    {
        auto const end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout);
        Platform::MutexLock const lock(m_lock);
        while (m_state != kEnded)
        {
            if (timeout < 0)
            {
                m_changed.wait(m_lock);
            }
            else if (m_changed.wait_until(m_lock, end) == std::cv_status::timeout)
            {
                return m_state == kEnded;
            }
        }
        return true;
    }

private:
    enum State
    {
        kCreated,
        kRunning,
        kEnded
    };

    void Set(State state)
    {
        Platform::MutexLock const lock(m_lock);
        m_state = state;
        m_changed.notify_all();
    }

    Platform::Mutex m_lock;
    State m_state OSTREL_GUARDED_BY(m_lock) = kCreated;
    std::condition_variable_any m_changed;
};

CThread::CThread(std::string const& name) : m_name(name) {}

CThread::~CThread()
{
    Platform::MutexLock const lock(m_lock);
    if (m_thread.joinable())
    {
        m_thread.detach();
    }
}

void CThread::Start()
{
    Platform::MutexLock const lock(m_lock);
    if (m_active)
    {
        return;
    }
    m_stopping = false;
    m_progress = std::make_shared<Progress>();
    m_thread = std::thread(
        [this, progress = m_progress]
        {
            RunAs(*progress);
            progress->SetEnded();
        });
    m_progress->WaitUntilRunning();
}

void CThread::RunAs(Progress& progress)
{
    m_threadId = GetCurrentThreadId();
    NameThisThread(m_name);
    m_active = true; // Run may ask
    progress.SetRunning();
    Run();
}

void CThread::Stop()
{
    m_stopping = true;
}

void CThread::Wait(int timeout)
{
    std::thread thread;
    std::shared_ptr<Progress> progress;
    {
        Platform::MutexLock const lock(m_lock);
        if (!m_active)
        {
            return;
        }
        m_active = false;
        thread = std::move(m_thread);
        progress = std::move(m_progress);
    }
    bool const isSelf = thread.get_id() == std::this_thread::get_id();
    if (!isSelf && progress->WaitUntilEnded(timeout))
    {
        thread.join();
    }
    else
    {
        thread.detach();
    }
}

std::string CThread::GetThreadName()
{
    return m_name;
}

bool CThread::IsActive() const
{
    return m_active;
}

bool CThread::IsStopping() const
{
    return m_stopping;
}

} // namespace Ostrel::Common
