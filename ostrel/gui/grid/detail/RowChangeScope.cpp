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
    FinishRows(bars);
    FinishFocus();
}

void RowChangeScope::FinishRows(BarsFollow bars)
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
        selection.FocusItem(m_area.VisibleInsteadOf(*focused));
    }
}
} // namespace Ostrel::GUI::Detail
