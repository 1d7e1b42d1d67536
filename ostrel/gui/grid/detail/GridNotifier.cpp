#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridNotifier.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
namespace
{
NotificationCode CodeOf(RowEventKind kind) noexcept
{
    switch (kind)
    {
    case RowEventKind::ExpandedChanged:
        return ItemExpanded;
    case RowEventKind::Shown:
        return ItemShown;
    default:
        return ItemFiltered;
    }
}

UINT BitIf(bool condition, UINT bit) noexcept
{
    return condition ? bit : 0U;
}

UINT StateOf(CGridItem const& item, bool isVisible, bool isFocused, bool isFiltered) noexcept
{
    return BitIf(item.IsSelected(), ItemStateSelected) | BitIf(isFocused, ItemStateFocused) |
           BitIf(isVisible, ItemStateVisible) | BitIf(item.IsExpanded(), ItemStateExpanded) |
           BitIf(isFiltered, ItemStateFiltered) | ItemStateAttached;
}

bool IsSortedBy(CHeader const& header, long fieldId)
{
    int const levels = header.GetSortLevels();
    for (int level = 0; level < levels; ++level)
    {
        if (header.GetSort(level).GetFid() == fieldId)
        {
            return true;
        }
    }
    return false;
}
} // namespace

HWND GridNotifier::Target() const
{
    CGrid const& grid = m_core.Grid();
    if (!m_isAllowed || grid.GetSafeHwnd() == nullptr)
    {
        return nullptr;
    }
    CWnd const* const owner = grid.GetOwner();
    return owner != nullptr ? owner->GetSafeHwnd() : nullptr;
}

bool GridNotifier::IsHeard() const
{
    return Target() != nullptr;
}

NMHDR GridNotifier::Head(NotificationCode code) const
{
    CGrid const& grid = m_core.Grid();
    return {grid.GetSafeHwnd(), static_cast<UINT_PTR>(grid.GetDlgCtrlID()), code};
}

void GridNotifier::Send(HWND target, NMHDR const& head) const
{
    Platform::CallbackErrors::Keep([&]()
                                   { ::SendMessage(target, WM_NOTIFY, head.idFrom, reinterpret_cast<LPARAM>(&head)); });
}

void GridNotifier::Row(NotificationCode code, CGridItem& item) const
{
    Row(code, item, IsHeard() ? RowArea::RowOf(item) : -1);
}

void GridNotifier::Row(NotificationCode code, CGridItem& item, int row) const
{
    RowArea const* const area = GridArea::Of(item);
    HWND const target = area != nullptr && !item.IsRoot() ? Target() : nullptr;
    if (target == nullptr)
    {
        return;
    }
    NM_GRIDITEM notification{};
    notification.hdr = Head(code);
    notification.code = code;
    notification.grid = &m_core.Grid();
    // What an earlier filter said of a row below a collapsed one counts no more.
    bool const isFiltered = item.IsHiddenByFilter() && m_core.Sorting().HasFilter();
    notification.state = StateOf(item, row >= 0, m_core.Selection().FocusedItem() == &item, isFiltered);
    notification.item = &item;
    notification.object = item.Object();
    notification.context = area->Type();
    notification.row = row;
    Send(target, notification.hdr);
}

void GridNotifier::Rows(NotificationCode code, std::span<CGridItem* const> items) const
{
    for (CGridItem* const item : items)
    {
        if (m_core.AreaOf(item) != nullptr)
        {
            Row(code, *item);
        }
    }
}

void GridNotifier::Events(std::vector<RowEvent> const& events) const
{
    for (RowEvent const& event : events)
    {
        if (m_core.AreaOf(event.item) != nullptr)
        {
            Row(CodeOf(event.kind), *event.item);
        }
    }
}

void GridNotifier::Column(NotificationCode code, CColumn const* column) const
{
    HWND const target = Target();
    CHeader* const header = m_core.Columns().Header();
    if (target == nullptr)
    {
        return;
    }
    NM_GRIDCOLUMN notification{};
    notification.hdr = Head(code);
    notification.code = code;
    notification.grid = &m_core.Grid();
    notification.header = header;
    notification.column = column;
    if (column != nullptr && header != nullptr)
    {
        notification.state = BitIf(column->IsVisible(), ColumnStateVisible) |
                             BitIf(header->IsFixed(column->GetFid()), ColumnStateFixed) |
                             BitIf(IsSortedBy(*header, column->GetFid()), ColumnStateSorted);
    }
    Send(target, notification.hdr);
}

void GridNotifier::Sort() const
{
    if (HWND const target = Target())
    {
        NM_GRIDSORT notification{};
        notification.hdr = Head(SortUpdated);
        notification.code = SortUpdated;
        notification.grid = &m_core.Grid();
        notification.header = m_core.Columns().Header();
        Send(target, notification.hdr);
    }
}
} // namespace Ostrel::GUI::Detail
