/// @file
/// The locks of the house as the compiler sees them. A member names the lock that guards it and a function the locks
/// that it needs; clang checks both at compile time, GCC ignores them.
///
///     mutable Mutex m_lock;
///     std::vector<int> m_items OSTREL_GUARDED_BY(m_lock);
///     void AppendLocked(int item) OSTREL_REQUIRES(m_lock);
///     void Append(int item) { MutexLock lock(m_lock); AppendLocked(item); }
///
/// Mutex can wait with std::condition_variable_any. Never call code of a user of the library under one of these locks.
#pragma once

#include <mutex>

/// What the annotations below stand for.
#if defined(__clang__)
#define OSTREL_THREAD_ANNOTATION(x) __attribute__((x))
#else
#define OSTREL_THREAD_ANNOTATION(x)
#endif

///@{
/// A class that is a lock, and a class that holds one from its constructor to its destructor.
#define OSTREL_CAPABILITY(name) OSTREL_THREAD_ANNOTATION(capability(name))
#define OSTREL_SCOPED_CAPABILITY OSTREL_THREAD_ANNOTATION(scoped_lockable)
///@}

///@{
/// A member that is touched under the lock only, and a pointer whose target is.
#define OSTREL_GUARDED_BY(lock) OSTREL_THREAD_ANNOTATION(guarded_by(lock))
#define OSTREL_PT_GUARDED_BY(lock) OSTREL_THREAD_ANNOTATION(pt_guarded_by(lock))
///@}

///@{
/// The order in which two locks are taken.
#define OSTREL_ACQUIRED_BEFORE(...) OSTREL_THREAD_ANNOTATION(acquired_before(__VA_ARGS__))
#define OSTREL_ACQUIRED_AFTER(...) OSTREL_THREAD_ANNOTATION(acquired_after(__VA_ARGS__))
///@}

///@{
/// A function that needs the lock held (shared: for reading), or not held.
#define OSTREL_REQUIRES(...) OSTREL_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define OSTREL_REQUIRES_SHARED(...) OSTREL_THREAD_ANNOTATION(requires_shared_capability(__VA_ARGS__))
#define OSTREL_EXCLUDES(...) OSTREL_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))
///@}

///@{
/// A function that takes or gives back the lock.
#define OSTREL_ACQUIRE(...) OSTREL_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define OSTREL_ACQUIRE_SHARED(...) OSTREL_THREAD_ANNOTATION(acquire_shared_capability(__VA_ARGS__))
#define OSTREL_TRY_ACQUIRE(...) OSTREL_THREAD_ANNOTATION(try_acquire_capability(__VA_ARGS__))
#define OSTREL_RELEASE(...) OSTREL_THREAD_ANNOTATION(release_capability(__VA_ARGS__))
#define OSTREL_RELEASE_SHARED(...) OSTREL_THREAD_ANNOTATION(release_shared_capability(__VA_ARGS__))
///@}

///@{
/// A function that asserts that the lock is held, or that returns the lock itself.
#define OSTREL_ASSERT_CAPABILITY(lock) OSTREL_THREAD_ANNOTATION(assert_capability(lock))
#define OSTREL_RETURN_CAPABILITY(lock) OSTREL_THREAD_ANNOTATION(lock_returned(lock))
///@}

/// For the few functions that the analysis cannot follow; say why beside it.
#define OSTREL_NO_THREAD_SAFETY_ANALYSIS OSTREL_THREAD_ANNOTATION(no_thread_safety_analysis)

namespace Ostrel::Platform
{

/// std::mutex as a lock that the analysis knows. Not recursive. Any thread.
class OSTREL_CAPABILITY("mutex") Mutex
{
public:
    Mutex() = default;
    Mutex(Mutex const&) = delete;
    Mutex& operator=(Mutex const&) = delete;

    /// Waits until no other thread holds the lock. Not for a thread that holds it.
    void Lock() OSTREL_ACQUIRE() { m_mutex.lock(); }
    /// Gives the lock back. Only on the thread that holds it.
    void Unlock() OSTREL_RELEASE() { m_mutex.unlock(); }
    /// Takes the lock and returns true if nobody holds it.
    [[nodiscard]] bool TryLock() OSTREL_TRY_ACQUIRE(true) { return m_mutex.try_lock(); }

    ///@{
    /// The same under the names that the standard library's waiting functions call.
    void lock() OSTREL_ACQUIRE() { m_mutex.lock(); }
    void unlock() OSTREL_RELEASE() { m_mutex.unlock(); }
    [[nodiscard]] bool try_lock() OSTREL_TRY_ACQUIRE(true) { return m_mutex.try_lock(); }
    ///@}

private:
    std::mutex m_mutex;
};

/// Holds a Mutex for a scope.
class OSTREL_SCOPED_CAPABILITY MutexLock
{
public:
    /// Waits until no other thread holds the lock, which must outlive this object.
    explicit MutexLock(Mutex& mutex) OSTREL_ACQUIRE(mutex) : m_mutex(mutex) { m_mutex.Lock(); }
    ~MutexLock() OSTREL_RELEASE() { m_mutex.Unlock(); }
    MutexLock(MutexLock const&) = delete;
    MutexLock& operator=(MutexLock const&) = delete;

private:
    Mutex& m_mutex;
};

} // namespace Ostrel::Platform
