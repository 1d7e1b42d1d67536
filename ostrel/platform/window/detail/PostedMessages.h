// The posted messages that a thread has taken over from its queue, in batches, and serves one after the other.
#pragma once

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
    /// The first message that the filter wants.
    bool Next(MessageQueue& queue, MessageFilter const& filter, bool take, PostedMessage& message);

    /// The message so many places behind the next one, null when that many were not taken over yet.
    [[nodiscard]] PostedMessage const* Ahead(std::size_t distance) const noexcept
    {
        return distance < m_batch.size() - m_next ? &m_batch[m_next + distance] : nullptr;
    }

private:
    std::vector<PostedMessage> m_batch;
    std::size_t m_next = 0;
};

} // namespace Ostrel::Platform
