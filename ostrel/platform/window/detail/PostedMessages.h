// The posted messages that a thread has taken over from its queue, in batches, and serves one after the other.
//
// What the thread posts to itself comes here at once, without the queue and its lock. Nothing overtakes anything by
// that: what other threads have posted before is taken over first, and what they post later lies behind in the queue.
#pragma once

#include <algorithm>
#include <span>
#include <vector>

#include <ostrel/platform/window/detail/MessageQueue.h>

namespace Ostrel::Platform
{

/// Which messages a call wants: of one window (null: of all) and of a range of numbers (0, 0: all).
struct MessageFilter
{
    HWND window = nullptr;
    UINT first = 0;
    UINT last = 0;

    [[nodiscard]] bool WantsNumber(UINT message) const noexcept
    {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    [[nodiscard]] bool Wants(HWND of, UINT message) const noexcept
    {
        return (window == nullptr || window == of) && WantsNumber(message);
    }
    [[nodiscard]] bool WantsAll() const noexcept { return window == nullptr && first == 0 && last == 0; }
};

class PostedMessages
{
public:
    /// By the thread that serves them.
    void Post(MessageQueue& queue, PostedMessage const& message);
    [[nodiscard]] bool IsEmpty() const noexcept { return m_next == m_batch.size(); }

    /// The first message that the filter wants.
    bool Next(MessageQueue& queue, MessageFilter const& filter, bool take, PostedMessage& message);

    /// Those behind the next so many, as far as they were taken over. Good until the next call of another function.
    [[nodiscard]] std::span<PostedMessage const> Behind(std::size_t distance) const noexcept
    {
        return std::span(m_batch).subspan(std::min(m_next + distance, m_batch.size()));
    }

private:
    std::vector<PostedMessage> m_batch;
    std::size_t m_next = 0;
};

} // namespace Ostrel::Platform
