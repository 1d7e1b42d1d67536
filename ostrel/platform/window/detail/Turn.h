// Whose turn it is when there are more posted messages than time: after 4 ms of them input and timers are served, and
// painting too when it last was 16 ms ago, until nothing of it is left or they have had 16 ms themselves. Painting
// comes more rarely since it takes longer: more often than a screen shows it would only slow down what is painted.
#pragma once

#include <cstdint>
#include <optional>

namespace Ostrel::Platform
{

class Turn
{
public:
    static constexpr std::int64_t kLongestUs = 16'000;
    static constexpr std::int64_t kLongestBeforeInputUs = 4'000;

    /// Asked before each message: true while the others are to be served before posted messages.
    [[nodiscard]] bool IsOthers(std::int64_t nowUs) noexcept
    {
        if (!m_isBusy)
        {
            m_isBusy = true;
            m_beginUs = nowUs;
            m_paintedUs = nowUs;
        }
        if (m_isOthers && nowUs - m_beginUs >= kLongestUs)
        {
            EndOthers(nowUs);
        }
        else if (!m_isOthers && nowUs - m_beginUs >= kLongestBeforeInputUs)
        {
            m_isOthers = true;
            // At the turn that lies nearest to that time.
            m_isPaintDue = nowUs - m_paintedUs >= kLongestUs - kLongestBeforeInputUs / 2;
            m_beginUs = nowUs;
        }
        return m_isOthers;
    }
    /// Whether painting is among the others.
    [[nodiscard]] bool MayPaint() const noexcept { return !m_isBusy || m_isPaintDue; }
    /// The others have nothing left.
    void EndOthers(std::int64_t nowUs) noexcept
    {
        m_isOthers = false;
        m_beginUs = nowUs;
        m_paintedUs = m_isPaintDue ? nowUs : m_paintedUs;
        m_isPaintDue = false;
    }
    /// No posted message is left: the others come anyway, and the time of the next flood begins with its first message.
    void PostedAreServed() noexcept
    {
        m_isOthers = false;
        m_isPaintDue = false;
        m_isBusy = false;
    }

    std::optional<int> quitCode; ///< WM_QUIT is due

private:
    bool m_isBusy = false;
    bool m_isOthers = false;
    bool m_isPaintDue = false;
    std::int64_t m_beginUs = 0;
    std::int64_t m_paintedUs = 0;
};

} // namespace Ostrel::Platform
