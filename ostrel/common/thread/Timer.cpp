#include <ostrel/common/thread/Timer.h>
#include <ostrel/common/thread/detail/TimerImpl.h>

namespace Ostrel::Common
{

CTimer::ICallBack::~ICallBack() = default;

void CTimer::Initialize()
{
    Impl::Instance().Initialize();
}

void CTimer::UnInitialize()
{
    Impl::Instance().UnInitialize();
}

bool CTimer::StartTimer(ICallBack* callback, int id, unsigned int delay)
{
    return Impl::Instance().StartTimer(callback, id, delay);
}

bool CTimer::StopTimer(ICallBack* callback, int id)
{
    return Impl::Instance().StopTimer(callback, id);
}

} // namespace Ostrel::Common
