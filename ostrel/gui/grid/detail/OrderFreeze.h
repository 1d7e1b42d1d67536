// Keeps the rows of a sorted grid where they are while the user points at them: rows that an update would move are
// remembered, and go to their places when the button is released or the scrolling is over. Their sort keys stay the
// old ones meanwhile, so the rows stay in order by their keys.
#pragma once

#include <unordered_set>
#include <vector>

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{
class GridCore;

class OrderFreeze
{
public:
    explicit OrderFreeze(GridCore& core) noexcept : m_core(core) {}

    [[nodiscard]] bool IsAllowed() const noexcept { return m_isAllowed; }
    void Allow(bool allow);
    [[nodiscard]] bool IsFrozen() const noexcept { return m_isPressed || m_isScrolling; }
    /// A sorted row was updated while the order is frozen.
    void Postpone(CGridItem& item);

    void OnPress() noexcept { m_isPressed = m_isAllowed; }
    void OnRelease();
    /// A command of a scroll bar or the wheel.
    void OnScroll(int command);
    void OnTimer();
    void OnDestroy();

private:
    void Thaw();

    GridCore& m_core;
    bool m_isAllowed = false;
    bool m_isPressed = false;
    bool m_isScrolling = false;
    std::vector<CGridItem*> m_postponed; ///< each once, as they came; may hold rows that have gone
    std::unordered_set<CGridItem const*> m_known;
};
} // namespace Ostrel::GUI::Detail
