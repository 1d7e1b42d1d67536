#include <utility>

#include <ostrel/common/thread/Automat.h>
#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/detail/WakeUp.h>

namespace Ostrel::Common
{

CAutomat::CAutomat(std::string const& name) : CThread(name), m_wakeUp(std::make_unique<detail::WakeUp>()) {}

CAutomat::~CAutomat() = default;

void CAutomat::Start()
{
    CThread::Start();
}

void CAutomat::Stop()
{
    // The flag first: a thread that the release wakes must find it.
    CThread::Stop();
    m_wakeUp->Release();
}

void CAutomat::Wait(int timeout)
{
    m_wakeUp->Release();
    CThread::Wait(timeout);
}

void CAutomat::PushJob(CJob* job)
{
    if (job == nullptr)
    {
        return;
    }
    std::unique_ptr<CJob> owned(job);
    CLock const lock(m_lock);
    m_jobs.push_back(std::move(owned));
    m_wakeUp->Release();
}

int CAutomat::Run()
{
    m_wakeUp->Release(); // the first wait returns at once
    while (!IsStopping())
    {
        for (std::unique_ptr<CJob>& job : TakeJobs())
        {
            OnExecuteJob(job.release());
        }
        WaitNextJob(detail::WakeUp::kNoLimit);
    }
    return 0;
}

CAutomat::Jobs CAutomat::TakeJobs()
{
    CLock const lock(m_lock);
    return std::exchange(m_jobs, {});
}

void CAutomat::OnExecuteJob(CJob* job)
{
    std::unique_ptr<CJob> const owned(job);
    if (owned != nullptr)
    {
        owned->Execute();
    }
}

void CAutomat::WaitNextJob(unsigned int timeout)
{
    m_wakeUp->Wait(timeout);
}

} // namespace Ostrel::Common
