#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <ostrel/platform/window/detail/MessageQueue.h>

namespace Ostrel::Platform
{

namespace
{

struct QueuePool
{
    Mutex lock;
    std::vector<MessageQueue*> idle OSTREL_GUARDED_BY(lock);
    std::vector<MessageQueue*> used OSTREL_GUARDED_BY(lock);
};

// Never destroyed: threads may end after static objects.
QueuePool& Pool()
{
    static QueuePool& pool = *new QueuePool;
    return pool;
}

} // namespace

HandleTable<MessageQueue>& WindowTable()
{
    static HandleTable<MessageQueue>& table = *new HandleTable<MessageQueue>;
    return table;
}

MessageQueue::MessageQueue() : m_wakeDescriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (m_wakeDescriptor < 0)
    {
        std::perror("ostrel: cannot make a wake descriptor for a message queue");
        std::abort();
    }
}

MessageQueue* MessageQueue::Acquire()
{
    QueuePool& pool = Pool();
    MutexLock const lock(pool.lock);
    if (pool.idle.empty())
    {
        pool.idle.push_back(new MessageQueue);
    }
    MessageQueue* const queue = pool.idle.back();
    pool.idle.pop_back();
    pool.used.push_back(queue);
    MutexLock const queueLock(queue->m_lock);
    queue->m_isClosed = false;
    queue->m_posted.clear();
    queue->m_threadId = static_cast<DWORD>(syscall(SYS_gettid));
    return queue;
}

void MessageQueue::Release(MessageQueue* queue)
{
    {
        MutexLock const lock(queue->m_lock);
        queue->m_isClosed = true;
        queue->m_sleeping = Sleeping::No;
        queue->m_posted.clear();
        queue->m_hasPosted = false;
        queue->m_threadId = 0;
    }
    queue->FailAllSent();
    queue->DrainWake();
    QueuePool& pool = Pool();
    MutexLock const lock(pool.lock);
    std::erase(pool.used, queue);
    pool.idle.push_back(queue);
}

MessageQueue* MessageQueue::OfThread(DWORD threadId)
{
    QueuePool& pool = Pool();
    MutexLock const lock(pool.lock);
    for (MessageQueue* const queue : pool.used)
    {
        if (queue->ThreadId() == threadId)
        {
            return queue;
        }
    }
    return nullptr;
}

// The lock is held for some nanoseconds only, so a thread that finds it taken tries again before it lets the system put
// it to sleep.
void MessageQueue::LockBriefly() OSTREL_NO_THREAD_SAFETY_ANALYSIS
{
    constexpr int kTries = 200;
    for (int attempt = 0; attempt < kTries; ++attempt)
    {
        if (m_lock.TryLock())
        {
            return;
        }
#if defined(__x86_64__)
        __builtin_ia32_pause();
#endif
    }
    m_lock.Lock();
}

void MessageQueue::Post(PostedMessage const& message)
{
    LockBriefly();
    bool wake = false;
    if (!m_isClosed)
    {
        m_posted.push_back(message);
        if (m_posted.size() == 1)
        {
            m_hasPosted.store(true, std::memory_order_release);
        }
        wake = WakeLocked(Sleeping::ForAnything);
    }
    m_lock.Unlock();
    if (wake)
    {
        Wake();
    }
}

bool MessageQueue::Send(SentMessage& sent)
{
    LockBriefly();
    bool const isOpen = !m_isClosed;
    bool wake = false;
    if (isOpen)
    {
        m_sent.push_back(&sent);
        m_hasSent.store(true, std::memory_order_release);
        wake = WakeLocked(Sleeping::ForSent);
    }
    m_lock.Unlock();
    if (wake)
    {
        Wake();
    }
    return isOpen;
}

void MessageQueue::TakeAllPosted(std::vector<PostedMessage>& batch)
{
    LockBriefly();
    if (batch.empty())
    {
        batch.swap(m_posted);
    }
    else
    {
        batch.insert(batch.end(), m_posted.begin(), m_posted.end());
        m_posted.clear();
    }
    m_hasPosted.store(false, std::memory_order_relaxed);
    m_lock.Unlock();
}

SentMessage* MessageQueue::TakeSent()
{
    MutexLock const lock(m_lock);
    if (m_sent.empty())
    {
        return nullptr;
    }
    SentMessage* const sent = m_sent.front();
    m_sent.erase(m_sent.begin());
    m_hasSent.store(!m_sent.empty(), std::memory_order_relaxed);
    return sent;
}

void MessageQueue::Complete(SentMessage& sent)
{
    MessageQueue& sender = *sent.sender;
    sender.LockBriefly();
    sent.isDone = true;
    bool const wake = sender.WakeLocked(Sleeping::ForSent);
    sender.m_lock.Unlock();
    if (wake)
    {
        sender.Wake();
    }
}

void MessageQueue::FailSentTo(HWND window)
{
    // The lock is taken even when nothing seems to wait: a sender that comes after it sees that the window is dead.
    std::vector<SentMessage*> failed;
    {
        MutexLock const lock(m_lock);
        std::erase_if(m_sent,
                      [&](SentMessage* sent)
                      {
                          bool const isFor = sent->message.window == window;
                          if (isFor)
                          {
                              failed.push_back(sent);
                          }
                          return isFor;
                      });
        m_hasSent.store(!m_sent.empty(), std::memory_order_relaxed);
    }
    for (SentMessage* const sent : failed)
    {
        Complete(*sent);
    }
}

bool MessageQueue::Withdraw(SentMessage& sent)
{
    MutexLock const lock(m_lock);
    bool const wasWaiting = std::erase(m_sent, &sent) != 0;
    m_hasSent.store(!m_sent.empty(), std::memory_order_relaxed);
    return wasWaiting;
}

void MessageQueue::FailAllSent()
{
    while (SentMessage* const sent = TakeSent())
    {
        Complete(*sent);
    }
}

bool MessageQueue::WakeLocked(Sleeping atLeast)
{
    bool const wakes =
        m_sleeping == Sleeping::ForAnything || (m_sleeping == Sleeping::ForSent && atLeast == Sleeping::ForSent);
    if (wakes)
    {
        m_sleeping = Sleeping::No;
    }
    return wakes;
}

void MessageQueue::Wake() const
{
    std::uint64_t const one = 1;
    while (write(m_wakeDescriptor, &one, sizeof(one)) < 0 && errno == EINTR)
    {}
}

void MessageQueue::DrainWake() const
{
    std::uint64_t count = 0;
    while (read(m_wakeDescriptor, &count, sizeof(count)) < 0 && errno == EINTR)
    {}
}

void MessageQueue::Block(int otherDescriptor, int timeoutMs) const
{
    pollfd descriptors[2] = {{m_wakeDescriptor, POLLIN, 0}, {otherDescriptor, POLLIN, 0}};
    poll(descriptors, otherDescriptor >= 0 ? 2 : 1, timeoutMs);
    if (descriptors[0].revents != 0)
    {
        DrainWake();
    }
}

void MessageQueue::Sleep(int otherDescriptor, int timeoutMs)
{
    {
        MutexLock const lock(m_lock);
        if (!m_posted.empty() || !m_sent.empty())
        {
            return;
        }
        m_sleeping = Sleeping::ForAnything;
    }
    Block(otherDescriptor, timeoutMs);
    MutexLock const lock(m_lock);
    m_sleeping = Sleeping::No;
}

bool MessageQueue::SleepForReply(SentMessage const& sent)
{
    {
        MutexLock const lock(m_lock);
        if (sent.isDone || !m_sent.empty())
        {
            return sent.isDone;
        }
        m_sleeping = Sleeping::ForSent;
    }
    Block(-1, -1);
    MutexLock const lock(m_lock);
    m_sleeping = Sleeping::No;
    return sent.isDone;
}

} // namespace Ostrel::Platform
