#include <ostrel/platform/window/detail/PostedMessages.h>

namespace Ostrel::Platform
{

void PostedMessages::Post(MessageQueue& queue, PostedMessage const& message)
{
    queue.TakePosted(m_batch);
    if (m_batch.size() == m_batch.capacity() && m_next >= m_batch.size() / 2)
    {
        // Handlers that post as fast as they are served never let the batch run empty: shorten it instead of growing.
        m_batch.erase(m_batch.begin(), m_batch.begin() + static_cast<std::ptrdiff_t>(m_next));
        m_next = 0;
    }
    m_batch.push_back(message);
}

bool PostedMessages::Next(MessageQueue& queue, MessageFilter const& filter, bool take, PostedMessage& message)
{
    if (IsEmpty())
    {
        m_batch.clear();
        m_next = 0;
    }
    if (IsEmpty() || !filter.WantsAll())
    {
        queue.TakePosted(m_batch);
    }
    for (std::size_t at = m_next; at < m_batch.size(); ++at)
    {
        if (!filter.Wants(m_batch[at].window, m_batch[at].message))
        {
            continue;
        }
        message = m_batch[at];
        if (take && at == m_next)
        {
            ++m_next;
        }
        else if (take)
        {
            m_batch.erase(m_batch.begin() + static_cast<std::ptrdiff_t>(at));
        }
        return true;
    }
    return false;
}

} // namespace Ostrel::Platform
