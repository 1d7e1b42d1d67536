// The subscribers that a notification under way on this thread still has to call. They are a copy, made under the
// lock, of what was subscribed, and a subscriber that unsubscribes meanwhile is called all the same; so one that dies
// meanwhile must be taken out. Subscribers of applications see to that themselves, delegates use Drop.
#pragma once

#include <algorithm>
#include <span>

#include <ostrel/common/dataobject/DataObject.h>

namespace Ostrel::Common::detail
{

/// One notification, for a scope. Passes lie inside each other when a subscriber notifies.
class NotificationPass
{
public:
    using ISink = CDataObject::ISink;

    /// The span is the pass's own until it ends.
    explicit NotificationPass(std::span<ISink*> sinks) noexcept : m_sinks(sinks), m_outer(s_innermost)
    {
        s_innermost = this;
    }
    ~NotificationPass() { s_innermost = m_outer; }
    NotificationPass(NotificationPass const&) = delete;
    NotificationPass& operator=(NotificationPass const&) = delete;

    template <class Call>
    void Run(Call const& call)
    {
        for (ISink*& sink : m_sinks)
        {
            if (sink != nullptr)
            {
                call(*sink);
            }
        }
    }

    /// No pass of this thread calls the sink any more.
    static void Drop(ISink const* sink) noexcept
    {
        for (NotificationPass* pass = s_innermost; pass != nullptr; pass = pass->m_outer)
        {
            std::replace(pass->m_sinks.begin(), pass->m_sinks.end(), const_cast<ISink*>(sink),
                         static_cast<ISink*>(nullptr));
        }
    }

private:
    static inline thread_local NotificationPass* s_innermost = nullptr;

    std::span<ISink*> m_sinks;
    NotificationPass* m_outer;
};

} // namespace Ostrel::Common::detail
