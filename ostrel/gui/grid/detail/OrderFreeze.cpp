#include <utility>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/OrderFreeze.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr UINT kScrollPauseMs = 400; ///< without a scroll command, after which the scrolling is over
} // namespace

void OrderFreeze::Allow(bool allow)
{
    m_isAllowed = allow;
    if (!allow)
    {
        m_isPressed = false;
        m_isScrolling = false;
        Thaw();
    }
}

void OrderFreeze::OnRelease()
{
    m_isPressed = false;
    Thaw();
}

void OrderFreeze::Postpone(CGridItem& item)
{
    if (m_known.insert(&item).second)
    {
        m_postponed.push_back(&item);
    }
}

// A thumb that is held still scrolls until it is let go.
void OrderFreeze::OnScroll(int command)
{
    if (!m_isAllowed || m_core.Grid().GetSafeHwnd() == nullptr)
    {
        return;
    }
    m_isScrolling = true;
    if (command == SB_THUMBTRACK)
    {
        m_core.Grid().KillTimer(OrderFreezeTimer);
    }
    else
    {
        m_core.Grid().SetTimer(OrderFreezeTimer, kScrollPauseMs);
    }
}

void OrderFreeze::OnTimer()
{
    m_core.Grid().KillTimer(OrderFreezeTimer);
    m_isScrolling = false;
    Thaw();
}

void OrderFreeze::OnDestroy()
{
    m_isPressed = false;
    m_isScrolling = false;
    m_postponed.clear();
    m_known.clear();
}

// Handlers of the rows' notifications may freeze the order anew or take rows away.
void OrderFreeze::Thaw()
{
    m_known.clear();
    for (CGridItem* const item : std::exchange(m_postponed, {}))
    {
        if (m_core.AreaOf(item) == nullptr)
        {
            continue;
        }
        if (IsFrozen())
        {
            Postpone(*item);
        }
        else
        {
            m_core.Updates().MoveToItsPlace(*item);
        }
    }
}
} // namespace Ostrel::GUI::Detail
