#include <ostrel/gui/header/Column.h>
#include <ostrel/testing/NotificationLog.h>

namespace Ostrel::Testing
{

namespace
{

struct CodeName
{
    UINT code;
    char const* name;
};

constexpr CodeName kCodes[] = {
    {GUI::ItemAdded, "ItemAdded"},
    {GUI::ItemDeleting, "ItemDeleting"},
    {GUI::ItemMoved, "ItemMoved"},
    {GUI::ItemAttached, "ItemAttached"},
    {GUI::ItemDetaching, "ItemDetaching"},
    {GUI::FocusChanged, "FocusChanged"},
    {GUI::SelectionChanged, "SelectionChanged"},
    {GUI::ItemExpanded, "ItemExpanded"},
    {GUI::ItemFiltered, "ItemFiltered"},
    {GUI::ItemShown, "ItemShown"},
    {GUI::ItemUpdated, "ItemUpdated"},
    {GUI::HeaderColumnAdded, "HeaderColumnAdded"},
    {GUI::HeaderColumnRemoved, "HeaderColumnRemoved"},
    {GUI::HeaderColumnMoved, "HeaderColumnMoved"},
    {GUI::HeaderColumnResized, "HeaderColumnResized"},
    {GUI::HeaderColumnChanged, "HeaderColumnChanged"},
    {GUI::SortUpdated, "SortUpdated"},
};

/// A question mark in a grid that shows no column: this runs in a window procedure, which no exception may leave.
/// Asks the grid, not the object, where the grid is the one that names the rows: it may have to leave its objects
/// alone.
std::string NameIn(GridDriver const& names, GUI::CGrid const& grid, GUI::CGridItem* item, Common::CDataObject& object)
{
    try
    {
        return &names.Grid() == &grid ? names.NameOf(item) : names.NameOf(object);
    }
    catch (DriverError const&)
    {
        return "?";
    }
}

char const* NameOfCode(UINT code) noexcept
{
    for (CodeName const& known : kCodes)
    {
        if (known.code == code)
        {
            return known.name;
        }
    }
    return nullptr;
}

char const* OutcomeOf(GUI::NM_GRIDITEM const& notification) noexcept
{
    auto const choose = [&](UINT bit, char const* set, char const* clear)
    { return (notification.state & bit) != 0 ? set : clear; };
    switch (notification.code)
    {
    case GUI::FocusChanged:
        return choose(GUI::ItemStateFocused, " gained", " lost");
    case GUI::SelectionChanged:
        return choose(GUI::ItemStateSelected, " selected", " deselected");
    case GUI::ItemExpanded:
        return choose(GUI::ItemStateExpanded, " expanded", " collapsed");
    case GUI::ItemFiltered:
        return choose(GUI::ItemStateFiltered, " hidden", " shown");
    default:
        return "";
    }
}

} // namespace

std::string NotificationLog::Text() const
{
    std::string text;
    for (std::string const& line : m_lines)
    {
        text += text.empty() ? line : "; " + line;
    }
    return text;
}

BOOL NotificationLog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    auto const& header = *reinterpret_cast<NMHDR const*>(lParam);
    if (NameOfCode(header.code) != nullptr)
    {
        m_lines.push_back(LineOf(header));
        if (onNotification)
        {
            onNotification(std::string(m_lines.back()));
        }
    }
    return CFrameWnd::OnNotify(wParam, lParam, result);
}

std::string NotificationLog::LineOf(NMHDR const& header)
{
    std::string name = NameOfCode(header.code);
    if (header.code == GUI::SortUpdated)
    {
        return name;
    }
    if (header.code >= GUI::HeaderColumnAdded)
    {
        auto const& notification = reinterpret_cast<GUI::NM_GRIDCOLUMN const&>(header);
        return name + ' ' + (notification.column != nullptr ? notification.column->GetName() : "-");
    }
    return name + ' ' + ItemLine(reinterpret_cast<GUI::NM_GRIDITEM const&>(header));
}

std::string NotificationLog::ItemLine(GUI::NM_GRIDITEM const& notification)
{
    return NameOf(notification) + OutcomeOf(notification);
}

std::string NotificationLog::NameOf(GUI::NM_GRIDITEM const& notification)
{
    auto const known = m_known.find(notification.object);
    if (notification.code == GUI::ItemDeleting && known != m_known.end())
    {
        return known->second;
    }
    if (m_names == nullptr || notification.object == nullptr)
    {
        return std::to_string(notification.row);
    }
    if (notification.code == GUI::ItemAttached)
    {
        LearnNamesBelow(*notification.grid, notification.item);
    }
    std::string const name = NameIn(*m_names, *notification.grid, notification.item, *notification.object);
    if (name.empty() && notification.code == GUI::FocusChanged && known != m_known.end())
    {
        return known->second; // an object that dies cannot be asked any more
    }
    return m_known[notification.object] = name;
}

// Nothing else is told of the rows that come along below an attached one, and where their objects lie, others may have
// lain.
void NotificationLog::LearnNamesBelow(GUI::CGrid& grid, GUI::CGridItem* item)
{
    for (GUI::CGridItem* const child : grid.GetChildren(item, false))
    {
        Common::CDataObject* const object = grid.GetDataObject(child);
        m_known[object] = NameIn(*m_names, grid, child, *object);
        LearnNamesBelow(grid, child);
    }
}

} // namespace Ostrel::Testing
