#include <ostrel/platform/window/detail/PostedMessages.h>

namespace Ostrel::Platform
{

bool PostedMessages::Next(MessageQueue& queue, MessageFilter const& filter, bool take, PostedMessage& message)
{
    if (m_next == m_batch.size())
    {
        m_batch.clear();
        m_next = 0;
    }
    if (m_next == m_batch.size() || !filter.WantsAll())
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
