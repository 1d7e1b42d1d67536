#include <algorithm>
#include <utility>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridSelection.h>

namespace Ostrel::GUI::Detail
{
bool GridSelection::MayBeSelected(ContextType type) const
{
    return allowSelection && HasContext(selectable, type) && (allowMultiSelection || Count() == 0);
}

bool GridSelection::SetSelected(CGridItem& item, bool select)
{
    if (!RowArea::Select(item, select))
    {
        return false;
    }
    int const row = RowArea::RowOf(item);
    ContextType const type = item.Area()->Type();
    m_core.Notifier().Row(SelectionChanged, item);
    if (row >= 0)
    {
        m_core.View().InvalidateRowsAndBorders(row, row, type);
    }
    return true;
}

bool GridSelection::Select(int row, ContextType type, bool select)
{
    GridArea* const area = m_core.Area(type);
    CGridItem* const item = area != nullptr ? area->ItemAt(row) : nullptr;
    if (item == nullptr || (select && !MayBeSelected(type)))
    {
        return false;
    }
    SetSelected(*item, select);
    return true;
}

bool GridSelection::Select(CGridItem& item, bool select)
{
    int const row = RowArea::RowOf(item);
    if (row >= 0)
    {
        return Select(row, item.Area()->Type(), select);
    }
    if (!select)
    {
        SetSelected(item, false);
    }
    return true;
}

void GridSelection::SelectRange(Place from, Place to, bool select)
{
    auto const isBehind = [](Place a, Place b)
    { return a.type != b.type ? a.type == ScrollableContext : a.row > b.row; };
    if (isBehind(from, to))
    {
        std::swap(from, to);
    }
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        if (from.type > type || to.type < type)
        {
            continue;
        }
        int const first = from.type == type ? from.row : 0;
        int const last = to.type == type ? to.row : m_core.Area(type)->RowCount() - 1;
        for (int row = first; row <= last; ++row)
        {
            Select(row, type, select);
        }
    }
}

void GridSelection::SelectAll()
{
    if (!allowSelection || !allowMultiSelection)
    {
        return;
    }
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        if (HasContext(selectable, type))
        {
            std::vector<CGridItem*> changed;
            m_core.Area(type)->SelectAllVisible(m_core.Notifier().IsHeard() ? &changed : nullptr);
            m_core.View().InvalidateRowsAndBorders(0, m_core.Area(type)->RowCount() - 1, type);
            m_core.Notifier().Rows(SelectionChanged, changed);
        }
    }
}

void GridSelection::Clear()
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        for (CGridItem* const item : m_core.Area(type)->Selected(false))
        {
            if (m_core.AreaOf(item) != nullptr)
            {
                SetSelected(*item, false);
            }
        }
    }
}

int GridSelection::Count() const
{
    return m_core.Fixed().SelectedCount() + m_core.Scrollable().SelectedCount();
}

std::vector<CGridItem*> GridSelection::Selected(ContextType mask) const
{
    std::vector<CGridItem*> selected;
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        if (HasContext(mask, type))
        {
            std::vector<CGridItem*> const ofArea = m_core.Area(type)->Selected(true);
            selected.insert(selected.end(), ofArea.begin(), ofArea.end());
        }
    }
    return selected;
}

int GridSelection::FocusedRow() const
{
    return m_focused != nullptr ? RowArea::RowOf(*m_focused) : -1;
}

ContextType GridSelection::FocusedContext() const
{
    return FocusedRow() >= 0 ? m_focused->Area()->Type() : NoContext;
}

void GridSelection::Repaint(CGridItem const* item)
{
    int const row = item != nullptr ? RowArea::RowOf(*item) : -1;
    if (row >= 0)
    {
        m_core.View().InvalidateRow(row, item->Area()->Type());
    }
}

bool GridSelection::SetFocus(int row, ContextType type)
{
    GridArea* const area = m_core.Area(type);
    CGridItem* const item = area != nullptr ? area->ItemAt(row) : nullptr;
    bool const clears = type == NoContext && row == -1;
    if (item == nullptr && !clears)
    {
        return false;
    }
    if (item != m_focused && item != nullptr && !HasContext(focusable, type))
    {
        return false;
    }
    FocusItem(item);
    return true;
}

void GridSelection::FocusItem(CGridItem* item)
{
    if (item == m_focused)
    {
        return;
    }
    CGridItem* const loser = std::exchange(m_focused, item);
    Repaint(loser);
    Repaint(item);
    if (loser != nullptr)
    {
        m_core.Notifier().Row(FocusChanged, *loser);
    }
    // The parent's answer to the first notification may have moved the focus on.
    if (item != nullptr && m_focused == item)
    {
        m_core.Notifier().Row(FocusChanged, *item);
    }
}
} // namespace Ostrel::GUI::Detail
