#include <algorithm>

#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/ThreadRecursionProtector.h>

namespace Ostrel::Common
{

CThreadRecursionProtector::~CThreadRecursionProtector() = default;

void CThreadRecursionProtector::Enter()
{
    CLock const lock(m_lock);
    std::thread::id const self = std::this_thread::get_id();
    if (std::find(m_threads.begin(), m_threads.end(), self) != m_threads.end())
    {
        throw CRecursionException("Recursion occurred");
    }
    m_threads.push_back(self);
}

void CThreadRecursionProtector::Leave()
{
    CLock const lock(m_lock);
    auto const self = std::find(m_threads.begin(), m_threads.end(), std::this_thread::get_id());
    if (self == m_threads.end())
    {
        throw CRecursionException("Leave() function is called without enter in the recursion protector");
    }
    *self = m_threads.back();
    m_threads.pop_back();
}

} // namespace Ostrel::Common
