// Whose turn it is when there are more posted messages than time: after 16 ms of them input, timers and painting are
// served, until nothing of it is left or they have had as long themselves.
#pragma once

#include <cstdint>
#include <optional>

namespace Ostrel::Platform
{

class Turn
{
public:
    static constexpr std::int64_t kLongestUs = 16'000;

    /// Asked before each message: true while the others are to be served before posted messages.
    [[nodiscard]] bool IsOthers(std::int64_t nowUs) noexcept
    {
        if (!m_isBusy)
        {
            m_isBusy = true;
            m_beginUs = nowUs;
        }
        if (nowUs - m_beginUs >= kLongestUs)
        {
            m_isOthers = !m_isOthers;
            m_beginUs = nowUs;
        }
        return m_isOthers;
    }
    /// The others have nothing left.
    void EndOthers(std::int64_t nowUs) noexcept
    {
        m_isOthers = false;
        m_beginUs = nowUs;
    }
    /// No posted message is left: the others come anyway, and the time of the next flood begins with its first message.
    void PostedAreServed() noexcept
    {
        m_isOthers = false;
        m_isBusy = false;
    }

    std::optional<int> quitCode; ///< WM_QUIT is due

private:
    bool m_isBusy = false;
    bool m_isOthers = false;
    std::int64_t m_beginUs = 0;
};

} // namespace Ostrel::Platform
