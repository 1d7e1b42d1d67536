#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderImpl.h>
#include <ostrel/gui/header/detail/HorizontalScroll.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::GUI
{

using Platform::NarrowLong;

IMPLEMENT_SERIAL(CHeader, CObject, 1)

CHeader::CHeader(bool autoDelete) : m_impl(std::make_unique<Impl>(*this, autoDelete)) {}

CHeader::CHeader(CHeader const& other, bool autoDelete)
    : IAutoDelete(other), CObject(other), m_impl(std::make_unique<Impl>(*this, autoDelete))
{
    m_impl->CopyFrom(*other.m_impl);
}

CHeader::~CHeader()
{
    Platform::CallbackErrors errors;
    Platform::CallbackErrors::Keep([this]() { CHeader::RemoveAll(); });
    errors.Report();
}

bool CHeader::AutoDelete() const
{
    return m_impl->AutoDelete();
}

std::shared_ptr<HeaderLayout const> CHeader::GetLayout() const
{
    return m_impl->GetLayout();
}

bool CHeader::Add(CColumn* column)
{
    // Held during the event: another thread may remove the column meanwhile.
    Impl::ColumnPtr const added = column != nullptr ? m_impl->Append(column) : nullptr;
    if (added == nullptr)
    {
        return false;
    }
    m_impl->Raise(added.get(), ColumnAdded);
    return true;
}

bool CHeader::Remove(long fid)
{
    Impl::ColumnPtr const column = m_impl->TakeOut(NarrowLong(fid));
    if (column == nullptr)
    {
        return false;
    }
    column->Unsubscribe(m_impl.get());
    m_impl->Raise(column.get(), ColumnRemoved);
    return true;
}

void CHeader::RemoveAll()
{
    Platform::CallbackErrors errors;
    for (Impl::ColumnPtr& column : m_impl->TakeOutAll())
    {
        column->Unsubscribe(m_impl.get());
        Platform::CallbackErrors::Keep([&]() { m_impl->Raise(column.get(), ColumnRemoved); });
        column.reset();
    }
    errors.Rethrow();
}

int CHeader::GetColumnCount() const
{
    return static_cast<int>(m_impl->GetLayout()->AllColumns().size());
}

int CHeader::GetVisibleColumnCount() const
{
    return static_cast<int>(m_impl->GetLayout()->VisibleColumns().size());
}

void CHeader::SetFixedColumnsCount(int count)
{
    if (m_impl->ChangeLayoutSetting(&HeaderSettings::fixedCount, count))
    {
        m_impl->Raise(nullptr, FixedColumnsChanged);
    }
}

int CHeader::GetFixedColumnsCount() const
{
    return m_impl->Get(&HeaderSettings::fixedCount);
}

bool CHeader::IsFixed(long fid) const
{
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->VisibleOf(NarrowLong(fid));
    return column != nullptr && layout->IsFixed(*column);
}

bool CHeader::ShowColumn(long fid)
{
    return m_impl->SetVisible(NarrowLong(fid), true);
}

bool CHeader::HideColumn(long fid)
{
    return m_impl->SetVisible(NarrowLong(fid), false);
}

bool CHeader::CanMoveFixedColumns() const
{
    return m_impl->Get(&HeaderSettings::allowFixedColumnMove);
}

bool CHeader::CanMoveScrollableColumns() const
{
    return m_impl->Get(&HeaderSettings::allowScrollableColumnMove);
}

bool CHeader::CanResizeColumn() const
{
    return m_impl->Get(&HeaderSettings::allowColumnResize);
}

void CHeader::AllowFixedColumnMove(bool allow)
{
    m_impl->Exchange(&HeaderSettings::allowFixedColumnMove, allow);
}

void CHeader::AllowScrollableColumnMove(bool allow)
{
    m_impl->Exchange(&HeaderSettings::allowScrollableColumnMove, allow);
}

void CHeader::AllowColumnResize(bool allow)
{
    m_impl->Exchange(&HeaderSettings::allowColumnResize, allow);
}

bool CHeader::MoveBefore(long fid, long beforeFid)
{
    return m_impl->Move(NarrowLong(fid), NarrowLong(beforeFid), Impl::Side::Before);
}

bool CHeader::MoveAfter(long fid, long afterFid)
{
    return m_impl->Move(NarrowLong(fid), NarrowLong(afterFid), Impl::Side::After);
}

bool CHeader::MoveToPosition(long fid, int position)
{
    Impl::Layout const layout = m_impl->GetLayout();
    if (CColumn const* const target = layout->ColumnAt(position))
    {
        return MoveBefore(fid, target->GetFid());
    }
    HeaderLayout::Columns const& columns = layout->AllColumns();
    return !columns.empty() && position == std::ssize(columns) && MoveAfter(fid, columns.back()->GetFid());
}

bool CHeader::MoveToVisiblePosition(long fid, int visiblePosition)
{
    Impl::Layout const layout = m_impl->GetLayout();
    if (VisibleColumn const* const target = layout->VisibleAt(visiblePosition))
    {
        return MoveBefore(fid, target->fid);
    }
    auto const columns = layout->VisibleColumns();
    return !columns.empty() && visiblePosition == std::ssize(columns) && MoveAfter(fid, columns.back().fid);
}

CColumn* CHeader::GetColumnByIndex(int position) const
{
    return m_impl->GetLayout()->ColumnAt(position);
}

CColumn* CHeader::GetVisibleColumnByIndex(int visiblePosition) const
{
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->VisibleAt(visiblePosition);
    return column != nullptr ? column->column : nullptr;
}

CColumn* CHeader::GetColumnByFid(long fid) const
{
    return m_impl->GetLayout()->ColumnOf(NarrowLong(fid));
}

CColumn* CHeader::GetVisibleColumnByFid(long fid) const
{
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->VisibleOf(NarrowLong(fid));
    return column != nullptr ? column->column : nullptr;
}

int CHeader::GetColumnIndex(long fid) const
{
    return m_impl->GetLayout()->PositionOf(NarrowLong(fid));
}

int CHeader::GetVisibleColumnIndex(long fid) const
{
    return m_impl->GetLayout()->VisiblePositionOf(NarrowLong(fid));
}

CColumn* CHeader::GetFirstColumn() const
{
    return m_impl->GetLayout()->ColumnAt(0);
}

CColumn* CHeader::GetFirstVisibleColumn() const
{
    return CHeader::GetVisibleColumnByIndex(0);
}

CColumn* CHeader::GetLastColumn() const
{
    Impl::Layout const layout = m_impl->GetLayout();
    return layout->ColumnAt(static_cast<int>(layout->AllColumns().size()) - 1);
}

CColumn* CHeader::GetLastVisibleColumn() const
{
    Impl::Layout const layout = m_impl->GetLayout();
    return layout->VisibleColumns().empty() ? nullptr : layout->VisibleColumns().back().column;
}

CColumn* CHeader::HitTest(CGrid const& grid, CPoint clientPoint) const
{
    int const scrollPosition = HorizontalScrollPosition(grid);
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->HitTest(clientPoint.x, scrollPosition);
    return column != nullptr ? column->column : nullptr;
}

CRect CHeader::GetVirtualRect(CGrid const& grid, long fid) const
{
    int const scrollPosition = HorizontalScrollPosition(grid);
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->VisibleOf(NarrowLong(fid));
    return column != nullptr ? layout->VirtualRect(*column, scrollPosition) : CRect(0, 0, 0, layout->HeaderHeight());
}

CRect CHeader::GetVisibleRect(CGrid const& grid, long fid) const
{
    int const scrollPosition = HorizontalScrollPosition(grid);
    Impl::Layout const layout = m_impl->GetLayout();
    VisibleColumn const* const column = layout->VisibleOf(NarrowLong(fid));
    return column != nullptr ? layout->VisibleRect(*column, scrollPosition) : CRect(0, 0, 0, layout->HeaderHeight());
}

int CHeader::GetHeaderHeight() const
{
    return m_impl->Get(&HeaderSettings::headerHeight);
}

void CHeader::SetHeaderHeight(int height)
{
    if (m_impl->ChangeLayoutSetting(&HeaderSettings::headerHeight, height))
    {
        m_impl->Raise(nullptr, HeaderHeightChanged);
    }
}

int CHeader::GetFixedColumnWidth() const
{
    return m_impl->GetLayout()->FixedWidth();
}

int CHeader::GetScrollableColumnWidth() const
{
    return m_impl->GetLayout()->ScrollableWidth();
}

void CHeader::SetNavigationColumn(int position)
{
    m_impl->Exchange(&HeaderSettings::navigationColumn, position);
}

int CHeader::GetNavigationColumn() const
{
    return m_impl->Get(&HeaderSettings::navigationColumn);
}

void CHeader::AllowSort(bool allow)
{
    Platform::CallbackErrors errors;
    if (!allow)
    {
        Platform::CallbackErrors::Keep([this]() { ResetSort(); });
    }
    m_impl->Exchange(&HeaderSettings::allowSort, allow);
    errors.Rethrow();
}

bool CHeader::CanSort() const
{
    return m_impl->Get(&HeaderSettings::allowSort);
}

void CHeader::AllowMultiSort(bool allow)
{
    Platform::CallbackErrors errors;
    if (!allow && GetSortLevels() > 1)
    {
        Platform::CallbackErrors::Keep([this]() { ResetSort(); });
    }
    m_impl->Exchange(&HeaderSettings::allowMultiSort, allow);
    errors.Rethrow();
}

bool CHeader::CanMultiSort() const
{
    return m_impl->Get(&HeaderSettings::allowMultiSort);
}

void CHeader::SetSort(int level, CSortInfo info) // NOLINT(performance-unnecessary-value-param): callers see a value
{
    if (m_impl->SetSortLevel(level, info))
    {
        m_impl->Raise(nullptr, SortChanged);
    }
}

CSortInfo CHeader::GetSort(int level) const
{
    return m_impl->GetSortLevel(level);
}

int CHeader::GetSortLevels() const
{
    return m_impl->CountSortLevels();
}

void CHeader::ResetSort()
{
    if (m_impl->ClearSortLevels())
    {
        m_impl->Raise(nullptr, SortChanged);
    }
}

CFont* CHeader::SetFont(CFont* font)
{
    CFont* const previous = m_impl->Exchange(&HeaderSettings::font, font);
    m_impl->Raise(nullptr, FontChanged);
    return previous;
}

CFont* CHeader::GetFont() const
{
    return m_impl->Get(&HeaderSettings::font);
}

CImageList* CHeader::SetImageList(CImageList* imageList)
{
    CImageList* const previous = m_impl->Exchange(&HeaderSettings::imageList, imageList);
    m_impl->Raise(nullptr, ImageListChanged);
    return previous;
}

CImageList* CHeader::GetImageList() const
{
    return m_impl->Get(&HeaderSettings::imageList);
}

void CHeader::Subscribe(INotify* subscriber)
{
    m_impl->Subscribe(subscriber);
}

void CHeader::Unsubscribe(INotify* subscriber)
{
    m_impl->Unsubscribe(subscriber);
}

} // namespace Ostrel::GUI
