// An ordered list of subscribers without nulls and duplicates, which is notified on a copy: whoever is called may
// subscribe and unsubscribe. The copy is a shared immutable list, so that a notification allocates nothing.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI
{

/// Any thread. Does not own the subscribers.
template <class Subscriber>
class SubscriberList
{
public:
    using List = std::vector<Subscriber*>;

    void Add(Subscriber* subscriber)
    {
        Platform::MutexLock const lock(m_lock);
        if (subscriber == nullptr || std::ranges::find(*m_list, subscriber) != m_list->end())
        {
            return;
        }
        auto list = std::make_shared<List>(*m_list);
        list->push_back(subscriber);
        m_list = std::move(list);
    }

    void Remove(Subscriber* subscriber)
    {
        Platform::MutexLock const lock(m_lock);
        auto list = std::make_shared<List>(*m_list);
        std::erase(*list, subscriber);
        m_list = std::move(list);
    }

    /// The subscribers of this moment, in the order of subscription. Never null.
    [[nodiscard]] std::shared_ptr<List const> Copy() const
    {
        Platform::MutexLock const lock(m_lock);
        return m_list;
    }

private:
    mutable Platform::Mutex m_lock;
    std::shared_ptr<List const> m_list OSTREL_GUARDED_BY(m_lock) = std::make_shared<List>();
};

} // namespace Ostrel::GUI
