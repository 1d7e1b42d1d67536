// Tells the parent window what happens in a grid. Every notification is sent, so the parent has handled it when the
// call returns; rows may then be gone, whoever goes on checks what it holds. What the parent's handler throws waits
// until the operation is complete.
#pragma once

#include <span>
#include <vector>

#include <ostrel/gui/grid/GridNotifications.h>
#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

/// Grid thread only, but for IsAllowed.
class GridNotifier
{
public:
    explicit GridNotifier(GridCore& core) noexcept : m_core(core) {}

    void Allow(bool allow) noexcept { m_isAllowed = allow; }
    [[nodiscard]] bool IsAllowed() const noexcept { return m_isAllowed; }
    /// Whether there is anybody to tell. Saves the work of listing what would be told.
    [[nodiscard]] bool IsHeard() const;

    /// Sends nothing for a row that is in no grid.
    void Row(NotificationCode code, CGridItem& item) const;
    /// The same for a row whose number is at hand.
    void Row(NotificationCode code, CGridItem& item, int row) const;
    /// For each row that is still there when its turn comes.
    void Rows(NotificationCode code, std::span<CGridItem* const> items) const;
    /// What an operation did, in its order.
    void Events(std::vector<RowEvent> const& events) const;
    void Column(NotificationCode code, CColumn const* column) const;
    void Sort() const;

private:
    [[nodiscard]] HWND Target() const;
    [[nodiscard]] NMHDR Head(NotificationCode code) const;
    void Send(HWND target, NMHDR const& head) const;

    GridCore& m_core;
    bool m_isAllowed = true;
};
} // namespace Ostrel::GUI::Detail
