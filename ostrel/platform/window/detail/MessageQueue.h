// The part of a thread's messages that other threads reach: what they post and send, and how they wake it.
//
// Queues are never freed: a thread that ends closes its queue, which then waits in a pool for the next new thread. So a
// pointer to a queue, found by a window handle, may be used without a lock; at worst the message comes to a thread that
// does not have the window, which drops it.
//
// Sleeping: the owner announces under the lock what it sleeps for, and waits on the wake descriptor. A poster writes to
// the descriptor only when the owner sleeps for what it brings, and clears the announcement: one system call a sleep.
#pragma once

#include <exception>
#include <functional>
#include <unordered_set>
#include <vector>

#include <ostrel/platform/base/HandleTable.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::Platform
{

class MessageQueue;

/// A message on its way to another thread; lives on the sender's stack until isDone.
struct SentMessage
{
    PostedMessage message{};
    std::function<void()> const* function = nullptr; ///< to be run instead of a window procedure
    MessageQueue* sender = nullptr;
    LRESULT result = 0;
    bool wasServed = false;
    std::exception_ptr exception;
    bool isDone = false; ///< guarded by the sender's lock
};

class MessageQueue
{
public:
    /// An empty queue for the calling thread.
    static MessageQueue* Acquire();
    /// The thread ends: waiting senders get 0, and the queue may serve another thread.
    static void Release(MessageQueue* queue);
    /// The queue of a thread, null when it has none. Any thread.
    static MessageQueue* OfThread(DWORD threadId);

    MessageQueue(MessageQueue const&) = delete;
    MessageQueue& operator=(MessageQueue const&) = delete;

    [[nodiscard]] DWORD ThreadId() const noexcept { return m_threadId.load(std::memory_order_relaxed); }

    // ---- any thread
    void Post(PostedMessage const& message);
    /// False when the queue is closed.
    bool Send(SentMessage& sent);
    /// Takes back what was sent; false when the owner has it in hands already.
    bool Withdraw(SentMessage& sent);

    // ---- owner
    /// Appends what was posted to `batch`. Cheap when nothing was.
    void TakePosted(std::vector<PostedMessage>& batch)
    {
        if (m_hasPosted.load(std::memory_order_acquire))
        {
            TakeAllPosted(batch);
        }
    }
    [[nodiscard]] bool HasSent() const noexcept { return m_hasSent.load(std::memory_order_acquire); }
    /// The next sent message, null when there is none.
    SentMessage* TakeSent();
    /// Hands a message back to its sender. It must not be touched afterwards.
    static void Complete(SentMessage& sent);
    /// Answers 0 to all that was sent to a window that died.
    void FailSentTo(HWND window);
    /// Waits until something was posted or sent, the other descriptor (-1: none) is readable or the time is over (-1:
    /// never).
    void Sleep(int otherDescriptor, int timeoutMs);
    /// Waits until `sent` is done or somebody sent something to this thread. True: done.
    bool SleepForReply(SentMessage const& sent);

private:
    enum class Sleeping
    {
        No,
        ForAnything,
        ForSent
    };

    MessageQueue();
    ~MessageQueue() = default;

    void TakeAllPosted(std::vector<PostedMessage>& batch);
    void LockBriefly() OSTREL_ACQUIRE(m_lock);
    /// Tells whether the caller has to write to the wake descriptor once it has given back the lock.
    [[nodiscard]] bool WakeLocked(Sleeping atLeast) OSTREL_REQUIRES(m_lock);
    void Wake() const;
    void Block(int otherDescriptor, int timeoutMs) const;
    void DrainWake() const;
    void FailAllSent();

    Mutex m_lock;
    std::vector<PostedMessage> m_posted OSTREL_GUARDED_BY(m_lock);
    std::vector<SentMessage*> m_sent OSTREL_GUARDED_BY(m_lock);
    Sleeping m_sleeping OSTREL_GUARDED_BY(m_lock) = Sleeping::No;
    bool m_isClosed OSTREL_GUARDED_BY(m_lock) = false;
    std::atomic<bool> m_hasPosted{false};
    std::atomic<bool> m_hasSent{false};
    std::atomic<DWORD> m_threadId{0};
    int m_wakeDescriptor;
};

/// Which queue a window handle belongs to. The one table of all windows of the process.
HandleTable<MessageQueue>& WindowTable();

inline DWORD TokenOf(HWND window) noexcept
{
    auto const bits = reinterpret_cast<std::uintptr_t>(window);
    return bits > 0xFFFFFFFFU ? 0 : static_cast<DWORD>(bits);
}
inline HWND WindowOfToken(DWORD token) noexcept
{
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(token));
}
inline MessageQueue* QueueOf(HWND window) noexcept
{
    return WindowTable().Find(TokenOf(window));
}

} // namespace Ostrel::Platform
