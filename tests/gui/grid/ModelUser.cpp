#include "ModelUser.h"

#include <algorithm>
#include <cctype>

namespace Ostrel::Testing
{
using namespace GUI;
using GUI::Detail::SortLevel;

ModelUser::ModelUser(ModelSide& side)
    : m_side(side), m_rows(side.fixed.VisibleRows()), m_fixedRows(static_cast<int>(m_rows.size()))
{
    ModelSide::Items const scrollable = side.scrollable.VisibleRows();
    m_rows.insert(m_rows.end(), scrollable.begin(), scrollable.end());
    m_rowCount = static_cast<int>(m_rows.size());
    m_focus = PlaceOf(side.focused);
    int const below = m_rowCount - m_fixedRows - side.firstRow;
    m_page = std::max(1, std::min(below, side.FittingRows()));
}

int ModelUser::PlaceOf(CGridItem const* item) const
{
    auto const found = std::ranges::find(m_rows, item);
    return found != m_rows.end() ? static_cast<int>(found - m_rows.begin()) : kNone;
}

void ModelUser::Select(int place, bool select)
{
    m_side.Select(*m_side.Find(ItemAt(place)), select);
}

int ModelUser::Target(NavigationKey key) const
{
    int const firstShown = m_fixedRows + m_side.firstRow;
    switch (key)
    {
    case NavigationKey::Up:
        return m_focus >= 0 ? m_focus - 1 : m_fixedRows > 0 ? 0 : firstShown;
    case NavigationKey::Down:
        return m_focus < 0                  ? firstShown + m_page - 1
               : m_focus == m_fixedRows - 1 ? firstShown
                                            : std::min(m_focus + 1, m_rowCount - 1);
    case NavigationKey::Home:
        return 0;
    case NavigationKey::End:
        return m_rowCount - 1;
    case NavigationKey::Left:
        return Outward();
    case NavigationKey::Right:
        return m_focus >= 0 && m_focus + 1 < m_rowCount ? m_focus + 1 : kNone;
    default:
        return TargetOfPage(key);
    }
}

int ModelUser::TargetOfPage(NavigationKey key) const
{
    int const top = m_fixedRows + m_side.firstRow;
    int const bottom = top + m_page - 1;
    int const step = std::max(1, m_page - 1);
    if (key == NavigationKey::PageDown)
    {
        int const below = m_focus < bottom ? bottom : std::min(m_focus + step, m_rowCount - 1);
        return m_focus >= 0 && m_focus < m_fixedRows ? top : below;
    }
    if (m_focus < 0)
    {
        return m_fixedRows > 0 ? 0 : top;
    }
    if (m_focus < m_fixedRows || (m_focus <= top && m_side.firstRow == 0))
    {
        return 0;
    }
    return m_focus > top ? top : std::max(m_fixedRows, m_focus - step);
}

// To the parent, else to the nearest row above that has none.
int ModelUser::Outward() const
{
    if (m_focus < 0)
    {
        return kNone;
    }
    auto const parentOf = [this](int place) { return PlaceOf(m_side.Find(ItemAt(place))->parent->item); };
    int place = parentOf(m_focus) >= 0 ? parentOf(m_focus) : m_focus - 1;
    while (parentOf(m_focus) < 0 && place >= 0 && parentOf(place) >= 0)
    {
        --place;
    }
    return place;
}

bool ModelUser::ExpandOrCollapse(NavigationKey key)
{
    bool const expands = key == NavigationKey::Right;
    if (m_focus < 0 || (!expands && key != NavigationKey::Left))
    {
        return false;
    }
    ModelSide::ReferenceRow& row = *m_side.Find(ItemAt(m_focus));
    bool const showsChildren = std::ranges::any_of(row.children, [](auto* child) { return child->isVisible; });
    bool const changes = expands ? !row.isExpanded && !row.children.empty() : showsChildren;
    if (changes)
    {
        m_side.ExpandOrCollapse(m_focus < m_fixedRows ? m_side.fixed : m_side.scrollable, row, expands, false);
    }
    return changes;
}

void ModelUser::Press(NavigationKey key, bool shift, bool ctrl)
{
    if (!ExpandOrCollapse(key))
    {
        GoTo(Target(key), shift, ctrl, key == NavigationKey::Home || key == NavigationKey::End);
    }
}

void ModelUser::GoTo(int target, bool shift, bool ctrl, bool wholeRange)
{
    if (target < 0 || target >= m_rowCount)
    {
        return;
    }
    if (target >= m_fixedRows)
    {
        m_side.EnsureVisible(target - m_fixedRows);
    }
    m_side.Focus(ItemAt(target));
    if (ctrl)
    {
        return;
    }
    if (!shift || m_focus < 0)
    {
        m_side.ClearSelection();
        Select(target, true);
        return;
    }
    if (wholeRange)
    {
        for (int place = std::min(m_focus, target); place <= std::max(m_focus, target); ++place)
        {
            Select(place, true);
        }
        return;
    }
    int const step = target < m_focus ? -1 : 1;
    for (int place = m_focus; place != target; place += step)
    {
        Select(place, !m_side.Find(ItemAt(place + step))->isSelected);
        Select(place + step, true);
    }
    Select(target, true);
}

void ModelUser::Type(std::string const& text)
{
    int const start = std::max(0, text.size() > 1 || m_focus < 0 ? m_focus : m_focus + 1);
    for (int i = 0; i < m_rowCount; ++i)
    {
        int const place = (start + i) % m_rowCount;
        std::string name = NameOf(ItemAt(place));
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::toupper(c); });
        if (name.starts_with(text))
        {
            m_side.ClearSelection();
            if (place >= m_fixedRows)
            {
                m_side.EnsureVisible(place - m_fixedRows);
            }
            Select(place, true);
            m_side.Focus(ItemAt(place));
            return;
        }
    }
}

void ModelUser::SortBy(int key, bool shift, bool ctrl)
{
    std::vector<SortLevel> levels = m_side.levels;
    auto const present = std::ranges::find(levels, key, &SortLevel::fieldId);
    if (shift)
    {
        levels.clear();
    }
    else if (ctrl && present != levels.end())
    {
        present->descending = !present->descending;
    }
    else if (ctrl)
    {
        levels.push_back({key, !levels.empty() && levels.back().descending});
    }
    else if (levels.size() == 1 && present != levels.end())
    {
        present->descending = !present->descending;
    }
    else
    {
        bool const descending = !levels.empty() && levels.front().descending;
        levels = {{key, descending}};
    }
    m_side.Sort(levels);
}

} // namespace Ostrel::Testing
