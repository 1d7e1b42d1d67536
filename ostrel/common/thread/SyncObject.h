/// @file
/// The one lock of the library: re-entrant, taken through CLock.
#pragma once

#include <mutex>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common
{

/// A lock that the thread which holds it may take again; it must give it back as often. Any thread.
class OSTREL_COMMON_API OSTREL_CAPABILITY("mutex") CSyncObject
{
public:
    CSyncObject() = default;
    ~CSyncObject() = default;
    CSyncObject(CSyncObject const&) = delete;
    CSyncObject& operator=(CSyncObject const&) = delete;

    /// Waits until no other thread holds the lock.
    void Lock() OSTREL_ACQUIRE() { m_mutex.lock(); }
    /// Only on the thread that holds the lock.
    void UnLock() OSTREL_RELEASE() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

} // namespace Ostrel::Common
