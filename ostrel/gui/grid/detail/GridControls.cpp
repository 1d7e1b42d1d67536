#include <algorithm>
#include <iterator>
#include <utility>

#include <ostrel/gui/grid/detail/GridControls.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/TreeWalk.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{
/// A control that lies in another grid goes with its row.
void FollowTo(CGrid& grid, CEmbeddedControlAdapter const& adapter)
{
    CWnd* const control = adapter.GetControl();
    CWnd* const parent = control != nullptr ? control->GetParent() : nullptr;
    if (parent != &grid && grid.GetSafeHwnd() != nullptr && dynamic_cast<CGrid*>(parent) != nullptr)
    {
        CallbackErrors::Keep([&]() { control->SetParent(&grid); });
    }
}
} // namespace

CEmbeddedControlAdapter* GridControls::Attach(CWnd* control, CGridItem* item, long fieldId,
                                              CEmbeddedControlParams const& params)
{
    GridArea const* const area = m_core.AreaOf(item);
    if (control == nullptr || area == nullptr || !IsField(fieldId) || Has(item, fieldId))
    {
        return nullptr;
    }
    RowControls::Entry entry;
    entry.fieldId = fieldId;
    entry.isShown = RowArea::IsVisible(*item);
    entry.adapter.reset(new CEmbeddedControlAdapter(control, params));
    CEmbeddedControlAdapter& adapter = *entry.adapter;
    if (!adapter.IsWatching())
    {
        return nullptr;
    }
    // The controls are painted when their cells are, not with every change somewhere in the grid.
    m_core.Grid().ModifyStyle(0, WS_CLIPCHILDREN);
    RowControls::Need(*item).Put(std::move(entry));
    m_rows.insert(item);
    CRect const cell = m_core.View().ControlRect(*item, fieldId);
    if (cell.IsRectEmpty())
    {
        CallbackErrors::Keep([&]() { adapter.MoveAway(); });
    }
    else
    {
        m_placed.push_back({item, fieldId});
        CallbackErrors::Keep([&]() { adapter.MoveControl(cell); });
    }
    if (Find({item, fieldId}) == nullptr)
    {
        return nullptr;
    }
    m_core.View().InvalidateCell(RowArea::RowOf(*item), m_core.AreaOf(item)->Type(), fieldId);
    return AdapterOf(*item, fieldId);
}

RowControls::Entry* GridControls::Find(Cell const& cell) const
{
    if (!m_rows.contains(cell.item))
    {
        return nullptr;
    }
    RowControls* const controls = RowControls::Of(*cell.item);
    return controls != nullptr ? controls->Find(cell.fieldId) : nullptr;
}

bool GridControls::Has(CGridItem* item, long fieldId) const
{
    RowControls::Entry const* const entry = Find({item, fieldId});
    return entry != nullptr && entry->adapter->IsWatching();
}

// Whichever is shorter: the rows with controls, or the row's own.
std::vector<CGridItem*> GridControls::RowsBelow(CGridItem& top) const
{
    constexpr std::size_t kFew = 64;
    std::vector<CGridItem*> rows;
    if (m_rows.empty() || !top.HasChildren())
    {
        if (m_rows.contains(&top))
        {
            rows.push_back(&top);
        }
    }
    else if (m_rows.size() <= kFew)
    {
        std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(rows),
                     [&](CGridItem const* item) { return RowArea::IsAncestor(top, *item); });
    }
    else
    {
        WalkSubtree(top,
                    [&](CGridItem& item)
                    {
                        if (m_rows.contains(&item))
                        {
                            rows.push_back(&item);
                        }
                        return true;
                    });
    }
    return rows;
}

void GridControls::Show(CGridItem& item, bool show)
{
    for (std::size_t i = 0; m_rows.contains(&item) && i < RowControls::Of(item)->Count(); ++i)
    {
        RowControls::Entry& entry = RowControls::Of(item)->At(i);
        if (std::exchange(entry.isShown, show) != show)
        {
            CallbackErrors::Keep([&]() { show ? entry.adapter->ShowControl() : entry.adapter->HideControl(); });
        }
    }
}

void GridControls::OnVisibilityChanged(CGridItem& top)
{
    for (CGridItem* const item : RowsBelow(top))
    {
        if (m_rows.contains(item))
        {
            Show(*item, RowArea::IsVisible(*item));
        }
    }
}

void GridControls::OnEntered(CGridItem& top)
{
    if (!top.HasChildren() && RowControls::Of(top) == nullptr)
    {
        return;
    }
    std::vector<CGridItem*> entered;
    WalkSubtree(top,
                [&](CGridItem& item)
                {
                    if (RowControls::Of(item) != nullptr)
                    {
                        entered.push_back(&item);
                    }
                    return true;
                });
    m_rows.insert(entered.begin(), entered.end());
    for (CGridItem* const item : entered)
    {
        for (std::size_t i = 0; m_rows.contains(item) && i < RowControls::Of(*item)->Count(); ++i)
        {
            FollowTo(m_core.Grid(), *RowControls::Of(*item)->At(i).adapter);
        }
        if (m_rows.contains(item))
        {
            Show(*item, RowArea::IsVisible(*item));
        }
    }
}

void GridControls::OnLeaving(CGridItem& top)
{
    for (CGridItem* const item : RowsBelow(top))
    {
        if (!m_rows.contains(item))
        {
            continue;
        }
        Show(*item, false);
        for (std::size_t i = 0; m_rows.contains(item) && i < RowControls::Of(*item)->Count(); ++i)
        {
            CEmbeddedControlAdapter& adapter = *RowControls::Of(*item)->At(i).adapter;
            adapter.ForgetCell();
            CallbackErrors::Keep([&]() { adapter.MoveAway(); });
        }
        m_rows.erase(item);
    }
}

void GridControls::PlaceRow(CGridItem& item)
{
    for (std::size_t i = 0; m_rows.contains(&item) && i < RowControls::Of(item)->Count(); ++i)
    {
        RowControls::Entry& entry = RowControls::Of(item)->At(i);
        CRect const cell = m_core.View().ControlRect(item, entry.fieldId);
        if (!cell.IsRectEmpty())
        {
            entry.placementPass = m_pass;
            m_placed.push_back({&item, entry.fieldId});
            CallbackErrors::Keep([&]() { entry.adapter->MoveControl(cell); });
        }
    }
}

void GridControls::Place()
{
    if (m_rows.empty())
    {
        return;
    }
    ++m_pass;
    std::vector<Cell> const before = std::exchange(m_placed, {});
    for (GridArea* const area : {&m_core.Fixed(), &m_core.Scrollable()})
    {
        RowRange const shown = m_core.View().ShownRows(area->Type());
        for (int row = shown.first; row <= shown.last; ++row)
        {
            if (CGridItem* const item = area->ItemAt(row); m_rows.contains(item))
            {
                PlaceRow(*item);
            }
        }
    }
    for (Cell const& cell : before)
    {
        RowControls::Entry const* const entry = Find(cell);
        if (entry != nullptr && entry->placementPass != m_pass)
        {
            CallbackErrors::Keep([&]() { entry->adapter->MoveAway(); });
        }
    }
}
} // namespace Ostrel::GUI::Detail
