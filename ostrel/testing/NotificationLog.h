/// @file
/// A top-level window that writes down what the grid inside it tells its parent.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <ostrel/gui/grid/GridNotifications.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/window/FrameWnd.h>
#include <ostrel/testing/GridDriver.h>

namespace Ostrel::Testing
{

/// A line a notification: its name, the row or column, and what became of it.
///
///     ItemAdded red                     HeaderColumnResized Price
///     SelectionChanged red selected     SortUpdated
///     FocusChanged red lost             ItemExpanded metals collapsed
///
/// Says "selected" or "deselected", "gained" or "lost", "expanded" or "collapsed", "shown" or "hidden" (ItemFiltered).
class OSTREL_TESTING_API NotificationLog : public CFrameWnd
{
public:
    NotificationLog() { SetAutoDelete(false); }

    /// What was written down since Clear, in order.
    [[nodiscard]] std::vector<std::string> const& Lines() const noexcept { return m_lines; }
    /// The same as one line, parted by "; ".
    [[nodiscard]] std::string Text() const;
    /// Forgets what was written down.
    void Clear() { m_lines.clear(); }

    /// Called with each notification after it was written down, for tests that act inside it.
    std::function<void(std::string const& line)> onNotification;

    /// Who knows the names of the rows. Not owned; null: rows are called by their number.
    void SetNames(GridDriver const* names) noexcept { m_names = names; }

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    [[nodiscard]] std::string LineOf(NMHDR const& header);
    [[nodiscard]] std::string ItemLine(GUI::NM_GRIDITEM const& notification);
    [[nodiscard]] std::string NameOf(GUI::NM_GRIDITEM const& notification);
    void LearnNamesBelow(GUI::CGrid& grid, GUI::CGridItem* item);

    std::vector<std::string> m_lines;
    GridDriver const* m_names = nullptr;
    std::map<Common::CDataObject const*, std::string> m_known; ///< an object that is being deleted has no name any more
};

} // namespace Ostrel::Testing
