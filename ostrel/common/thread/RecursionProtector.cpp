#include <ostrel/common/thread/RecursionProtector.h>

namespace Ostrel::Common
{

CRecursionProtector::~CRecursionProtector() = default;

void CRecursionProtector::Enter()
{
    if (m_depth >= 1)
    {
        throw CRecursionException("Recursion occurred");
    }
    ++m_depth;
}

void CRecursionProtector::Leave()
{
    if (m_depth == 0)
    {
        throw CRecursionException("Leave() is called without Enter() calling in the recursion protector");
    }
    --m_depth;
}

} // namespace Ostrel::Common
