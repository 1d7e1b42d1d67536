#include <utility>

#include <ostrel/gui/grid/detail/GridColumns.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
GridColumns::~GridColumns()
{
    if (m_header != nullptr)
    {
        m_header->Unsubscribe(this);
    }
}

CHeader* GridColumns::SetHeader(CHeader* header)
{
    if (header == m_header)
    {
        return header;
    }
    CHeader* const previous = std::exchange(m_header, header);
    if (previous != nullptr)
    {
        previous->Unsubscribe(this);
    }
    if (header != nullptr)
    {
        header->Subscribe(this);
    }
    m_height = header != nullptr ? header->GetHeaderHeight() : 0;
    m_core.Looks().RebuildBuffers();
    m_core.Sorting().Update();
    LayOutAnew();
    return previous;
}

std::shared_ptr<HeaderLayout const> GridColumns::Layout() const
{
    return m_header != nullptr ? m_header->GetLayout() : nullptr;
}

void GridColumns::Show(bool show)
{
    if (m_isShown != show)
    {
        m_isShown = show;
        m_core.Looks().RebuildBuffers();
        m_core.Scroller().OnResized();
        m_core.View().InvalidateAll(true);
    }
}

int GridColumns::FixedWidth() const
{
    return m_header != nullptr ? m_header->GetFixedColumnWidth() : 0;
}

int GridColumns::TotalWidth() const
{
    return m_header != nullptr ? m_header->GetFixedColumnWidth() + m_header->GetScrollableColumnWidth() : 0;
}

CColumn* GridColumns::ColumnAt(CPoint clientPoint) const
{
    return m_header != nullptr ? m_header->HitTest(m_core.Grid(), clientPoint) : nullptr;
}

CColumn* GridColumns::NavigationColumn() const
{
    return m_header != nullptr ? m_header->GetColumnByIndex(m_header->GetNavigationColumn()) : nullptr;
}

CColumn* GridColumns::HierarchicalColumn() const
{
    return m_header != nullptr ? m_header->GetFirstVisibleColumn() : nullptr;
}

void GridColumns::EnsureVisible(long fieldId)
{
    auto const layout = Layout();
    VisibleColumn const* const column = layout != nullptr ? layout->VisibleOf(fieldId) : nullptr;
    if (column == nullptr || layout->IsFixed(*column))
    {
        return;
    }
    int const position = m_core.Scroller().HorizontalPosition();
    int const right = m_core.View().Geometry().client.cx;
    CRect const title = layout->VirtualRect(*column, position);
    if (title.left < layout->FixedWidth())
    {
        m_core.Scroller().SetHorizontalPosition(position - (layout->FixedWidth() - title.left));
    }
    else if (title.right > right)
    {
        int const room = title.left - layout->FixedWidth();
        m_core.Scroller().SetHorizontalPosition(position + std::min<int>(title.right - right, room));
    }
}

// Whatever thread has changed the header, and whether its lock-free call comes before or after the change is painted:
// the grid follows on its own thread before the change returns.
void GridColumns::OnHeaderChanged(CHeader* header, CColumn* column, CHeader::NotificationType type)
{
    m_core.Thread().Call<GridOperation::HeaderEvent>(
        [&]()
        {
            if (header == m_header)
            {
                Handle(column, type);
            }
        });
}

void GridColumns::LayOutAnew()
{
    m_core.Scroller().OnResized();
    m_core.View().InvalidateAll();
}

void GridColumns::Handle(CColumn* column, CHeader::NotificationType type)
{
    GridNotifier const& notifier = m_core.Notifier();
    switch (type)
    {
    case CHeader::ColumnAdded:
        notifier.Column(HeaderColumnAdded, column);
        LayOutAnew();
        break;
    case CHeader::ColumnRemoved:
        notifier.Column(HeaderColumnRemoved, column);
        LayOutAnew();
        break;
    case CHeader::ColumnResized:
        notifier.Column(HeaderColumnResized, column);
        m_core.Grid().SetTimer(ColumnResizeTimer, kShortDelayMs);
        break;
    case CHeader::ColumnVisibilityChanged:
        notifier.Column(HeaderColumnChanged, column);
        LayOutAnew();
        break;
    case CHeader::ColumnMoved:
        notifier.Column(HeaderColumnMoved, column);
        LayOutAnew();
        break;
    case CHeader::FixedColumnsChanged:
        m_core.View().InvalidateAll();
        break;
    case CHeader::SortChanged:
        m_core.Sorting().OnSortChanged();
        break;
    case CHeader::HeaderHeightChanged:
        m_height = m_header->GetHeaderHeight();
        m_core.Looks().RebuildBuffers();
        LayOutAnew();
        break;
    case CHeader::FontChanged:
        notifier.Column(HeaderColumnChanged, column);
        if (m_header != nullptr) // the parent may have taken it away
        {
            Platform::CallbackErrors::Keep([this]() { m_header->SetHeaderHeight(OptimalHeaderHeight()); });
        }
        LayOutAnew();
        break;
    default:
        notifier.Column(HeaderColumnChanged, column);
        m_core.View().InvalidateAll();
        break;
    }
}
} // namespace Ostrel::GUI::Detail
