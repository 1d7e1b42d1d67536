/// @file
/// Holds a CSyncObject for a scope.
#pragma once

#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common
{

/// Takes the lock when it is made and gives it back when its scope ends.
class OSTREL_COMMON_API OSTREL_SCOPED_CAPABILITY CLock
{
public:
    /// Waits until no other thread holds the lock, which must outlive this object.
    explicit CLock(CSyncObject& syncObject) OSTREL_ACQUIRE(syncObject) : m_syncObject(syncObject)
    {
        m_syncObject.Lock();
    }
    ~CLock() OSTREL_RELEASE() { m_syncObject.UnLock(); }
    CLock(CLock const&) = delete;
    CLock& operator=(CLock const&) = delete;

private:
    CSyncObject& m_syncObject;
};

} // namespace Ostrel::Common
