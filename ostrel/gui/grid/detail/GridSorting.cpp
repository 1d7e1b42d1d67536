#include <utility>
#include <vector>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridSorting.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

void GridSorting::SetLevel(int level, CSortInfo const& info, bool update)
{
    CHeader* const header = m_core.Columns().Header();
    if (header == nullptr)
    {
        return;
    }
    // A level that really changes sorts the rows by way of the header's event; twice would be for nothing.
    m_hasJustSorted = false;
    CallbackErrors::Keep([&]() { header->SetSort(level, info); });
    if (update && !std::exchange(m_hasJustSorted, false))
    {
        Update();
    }
}

void GridSorting::Reset(bool redraw)
{
    if (CHeader* const header = m_core.Columns().Header())
    {
        CallbackErrors::Keep([&]() { header->ResetSort(); });
    }
    m_core.Fixed().Sort({});
    m_core.Scrollable().Sort({});
    if (redraw)
    {
        m_core.View().InvalidateAll(true);
    }
}

void GridSorting::Update()
{
    CHeader const* const header = m_core.Columns().Header();
    std::vector<SortLevel> levels;
    int const count = header != nullptr ? header->GetSortLevels() : 0;
    for (int level = 0; level < count; ++level)
    {
        CSortInfo const info = header->GetSort(level);
        levels.push_back({info.GetFid(), info.GetReverseSort()});
    }
    for (GridArea* const area : {&m_core.Fixed(), &m_core.Scrollable()})
    {
        bool const follows = HasContext(sortedAreas, area->Type());
        area->Sort(follows ? std::span<SortLevel const>(levels) : std::span<SortLevel const>());
    }
    m_hasJustSorted = true;
    m_core.View().InvalidateAll();
}

void GridSorting::OnSortChanged()
{
    Update();
    m_core.Notifier().Sort();
}

void GridSorting::AddUserLevel(long fieldId)
{
    CHeader& header = *m_core.Columns().Header();
    int const count = header.GetSortLevels();
    for (int level = 0; level < count; ++level)
    {
        if (CSortInfo info = header.GetSort(level); info.GetFid() == fieldId)
        {
            info.SetReverseSort(!info.GetReverseSort());
            header.SetSort(level, info);
            return;
        }
    }
    bool const reverse = count > 0 && header.GetSort(count - 1).GetReverseSort();
    header.SetSort(count, CSortInfo(fieldId, reverse));
}

void GridSorting::SetOnlyUserLevel(long fieldId)
{
    CHeader& header = *m_core.Columns().Header();
    int const count = header.GetSortLevels();
    CSortInfo const first = header.GetSort(0);
    if (count == 1 && first.GetFid() == fieldId)
    {
        header.SetSort(0, CSortInfo(fieldId, !first.GetReverseSort()));
        return;
    }
    if (count > 0)
    {
        CallbackErrors::Keep([&]() { header.ResetSort(); });
    }
    header.SetSort(0, CSortInfo(fieldId, count > 0 && first.GetReverseSort()));
}

void GridSorting::SortByUser(long fieldId, bool shift, bool ctrl)
{
    CHeader* const header = m_core.Columns().Header();
    if (header == nullptr || !header->CanSort())
    {
        return;
    }
    if (shift)
    {
        header->ResetSort();
    }
    else if (ctrl)
    {
        AddUserLevel(fieldId);
    }
    else
    {
        SetOnlyUserLevel(fieldId);
    }
}

IGridFilter* GridSorting::SetFilter(IGridFilter* filter)
{
    IGridFilter* const previous = std::exchange(m_filter, filter);
    for (GridArea* const area : {&m_core.Fixed(), &m_core.Scrollable()})
    {
        area->SetFilter(filter != nullptr ? this : nullptr);
    }
    if (previous != nullptr || filter != nullptr)
    {
        UpdateFilter();
    }
    return previous;
}

void GridSorting::UpdateFilter()
{
    RowChangeScope fixed(m_core, m_core.Fixed());
    m_core.Fixed().ApplyFilter(fixed.changes);
    m_core.Controls().OnVisibilityChanged(m_core.Fixed().Root());
    fixed.FinishRows(BarsFollow::Now);
    RowChangeScope scrollable(m_core, m_core.Scrollable());
    m_core.Scrollable().ApplyFilter(scrollable.changes);
    m_core.Controls().OnVisibilityChanged(m_core.Scrollable().Root());
    scrollable.FinishRows(BarsFollow::Now);
    if (!m_core.IsCalm())
    {
        m_core.Selection().FocusItem(nullptr);
        return;
    }
    fixed.FinishFocus();
    scrollable.FinishFocus();
}

bool GridSorting::IsHidden(CGridItem& item)
{
    Common::CDataObject* const object = ObjectToAsk(item);
    if (m_filter == nullptr || object == nullptr)
    {
        return m_filter != nullptr && item.IsHiddenByFilter();
    }
    return CallbackErrors::Ask([&]() { return m_filter->IsFiltered(&m_core.Grid(), &item, object); });
}
} // namespace Ostrel::GUI::Detail
