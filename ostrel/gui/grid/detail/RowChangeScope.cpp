#include <algorithm>

#include <ostrel/gui/grid/detail/GridCore.h>

namespace Ostrel::GUI::Detail
{
RowChangeScope::RowChangeScope(GridCore& core, GridArea& area)
    : m_core(core),
      m_area(area),
      m_anchor(area.Type() == ScrollableContext ? core.Scroller().Anchor() : nullptr),
      m_focusedRow(core.Selection().FocusedContext() == area.Type() ? core.Selection().FocusedRow() : -1)
{
    changes.wantsEvents = core.Notifier().IsHeard();
}

void RowChangeScope::Finish(BarsFollow bars)
{
    if (changes.HasRowsChanged())
    {
        m_core.View().InvalidateFrom(changes.firstRow, m_area.Type());
        m_core.Scroller().OnRowsChanged(
            m_area.Type() == ScrollableContext ? changes.firstRow : m_core.Scroller().FirstRow(), m_anchor);
        switch (bars)
        {
        case BarsFollow::Now:
            m_core.Scroller().UpdateBars();
            break;
        case BarsFollow::Posted:
            m_core.Scroller().PostUpdateBars();
            break;
        case BarsFollow::OnTimer:
            m_core.Grid().SetTimer(LayoutTimer, kShortDelayMs);
            break;
        }
    }
    m_core.Notifier().Events(changes.events);
    FinishFocus();
}

void RowChangeScope::FinishFocus()
{
    GridSelection& selection = m_core.Selection();
    CGridItem* const focused = selection.FocusedItem();
    if (focused == nullptr || m_focusedRow < 0 || changes.rowsHidden == 0 || m_core.AreaOf(focused) != &m_area)
    {
        return;
    }
    if (!m_core.IsCalm())
    {
        if (RowArea::RowOf(*focused) != m_focusedRow)
        {
            selection.FocusItem(nullptr);
        }
    }
    else if (!RowArea::IsVisible(*focused))
    {
        selection.FocusItem(FocusNeighbour());
    }
}

// The collapsed row that now stands for the focused one, else the next visible row in the tree, else the last row.
CGridItem* RowChangeScope::FocusNeighbour() const
{
    CGridItem* const focused = m_core.Selection().FocusedItem();
    for (CGridItem* above = focused->Parent(); above != nullptr && !above->IsRoot(); above = above->Parent())
    {
        if (!above->IsExpanded() && RowArea::IsVisible(*above))
        {
            return above;
        }
    }
    for (CGridItem* next = RowArea::NextInTree(*focused); next != nullptr; next = RowArea::NextInTree(*next))
    {
        if (RowArea::IsVisible(*next))
        {
            return next;
        }
    }
    return m_area.ItemAt(std::min(m_focusedRow, m_area.RowCount()) - 1);
}
} // namespace Ostrel::GUI::Detail
