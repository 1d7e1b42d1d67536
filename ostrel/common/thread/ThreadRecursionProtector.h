// Refuses to enter a section twice on the same thread; different threads may be inside at the same time.
#pragma once

#include <thread>
#include <vector>

#include <ostrel/common/thread/RecursionProtector.h>
#include <ostrel/common/thread/SyncObject.h>

namespace Ostrel::Common
{

class OSTREL_COMMON_API CThreadRecursionProtector : public CRecursionProtector
{
public:
    CThreadRecursionProtector() = default;
    ~CThreadRecursionProtector() override;

    /// Any thread. Both throw CRecursionException, and change nothing, when they are called out of turn.
    void Enter() override;
    void Leave() override;

private:
    CSyncObject m_lock;
    /// The few threads inside; the storage is kept, so that entering again does not allocate.
    std::vector<std::thread::id> m_threads OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Common
