/// @file
/// Refuses to enter a section twice on the same thread; different threads may be inside at the same time.
#pragma once

#include <thread>
#include <vector>

#include <ostrel/common/thread/RecursionProtector.h>
#include <ostrel/common/thread/SyncObject.h>

namespace Ostrel::Common
{

/// Admits each thread once. May be used by any number of threads at the same time.
class OSTREL_COMMON_API CThreadRecursionProtector : public CRecursionProtector
{
public:
    CThreadRecursionProtector() = default;
    ~CThreadRecursionProtector() override;

    ///@{
    /// Marks the section as entered, and as left, by this thread. Each throws CRecursionException and changes nothing
    /// when it is called out of turn. Any thread.
    void Enter() override;
    void Leave() override;
    ///@}

private:
    CSyncObject m_lock;
    /// The few threads inside; the storage is kept, so that entering again does not allocate.
    std::vector<std::thread::id> m_threads OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Common
