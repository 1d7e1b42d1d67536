#include <algorithm>
#include <utility>

#include <ostrel/gui/header/detail/HeaderImpl.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI
{

using Platform::MutexLock;

CHeader::Impl::Impl(CHeader& owner, bool autoDelete) : m_owner(owner), m_autoDelete(autoDelete)
{
    MutexLock const lock(m_layoutLock);
    PublishLocked({});
}

void CHeader::Impl::PublishLocked(HeaderLayout::Columns columns)
{
    m_layout = std::make_shared<HeaderLayout const>(std::move(columns), m_settings.fixedCount, m_settings.headerHeight,
                                                    m_settings.sortLevels);
}

void CHeader::Impl::Refresh()
{
    MutexLock const lock(m_layoutLock);
    PublishLocked(m_layout->AllColumns());
}

CHeader::Impl::Layout CHeader::Impl::GetLayout() const
{
    MutexLock const lock(m_layoutLock);
    return m_layout;
}

HeaderSettings CHeader::Impl::GetSettings() const
{
    MutexLock const lock(m_layoutLock);
    return m_settings;
}

bool CHeader::Impl::ChangeLayoutSetting(int HeaderSettings::*setting, int value)
{
    MutexLock const lock(m_layoutLock);
    if (std::exchange(m_settings.*setting, value) == value)
    {
        return false;
    }
    PublishLocked(m_layout->AllColumns());
    return true;
}

void CHeader::Impl::CopyFrom(CHeader::Impl const& other)
{
    HeaderLayout::Columns columns;
    Layout const layout = other.GetLayout();
    for (ColumnPtr const& original : layout->AllColumns())
    {
        auto const& copy = columns.emplace_back(std::make_shared<CColumn>(*original));
        copy->Subscribe(this);
    }
    HeaderSettings settings = other.GetSettings();
    settings.sortLevels.clear();
    MutexLock const lock(m_layoutLock);
    m_settings = std::move(settings);
    PublishLocked(std::move(columns));
}

CHeader::Impl::ColumnPtr CHeader::Impl::Append(CColumn* column)
{
    long const fid = column->GetFid();
    if (fid == -1 || fid == -2)
    {
        return nullptr;
    }
    ColumnPtr added;
    {
        MutexLock const lock(m_layoutLock);
        if (m_layout->PositionOf(fid) >= 0)
        {
            return nullptr;
        }
        added = ColumnPtr(column);
        HeaderLayout::Columns columns = m_layout->AllColumns();
        columns.push_back(added);
        PublishLocked(std::move(columns));
    }
    added->Subscribe(this);
    Refresh(); // for what another thread changed before the subscription
    return added;
}

CHeader::Impl::ColumnPtr CHeader::Impl::TakeOut(long fid)
{
    MutexLock const lock(m_layoutLock);
    int const position = m_layout->PositionOf(fid);
    if (position < 0)
    {
        return nullptr;
    }
    HeaderLayout::Columns columns = m_layout->AllColumns();
    auto const place = columns.begin() + position;
    ColumnPtr column = std::move(*place);
    columns.erase(place);
    PublishLocked(std::move(columns));
    return column;
}

HeaderLayout::Columns CHeader::Impl::TakeOutAll()
{
    MutexLock const lock(m_layoutLock);
    HeaderLayout::Columns columns = m_layout->AllColumns();
    PublishLocked({});
    return columns;
}

bool CHeader::Impl::SetVisible(long fid, bool visible)
{
    // The layout keeps the column alive while another thread removes it. The column's own notification does the rest.
    Layout const layout = GetLayout();
    CColumn* const column = layout->ColumnOf(fid);
    if (column != nullptr)
    {
        column->SetVisible(visible);
    }
    return column != nullptr;
}

bool CHeader::Impl::MayMoveLocked(long fid) const
{
    VisibleColumn const* const column = m_layout->VisibleOf(fid);
    if (column == nullptr)
    {
        return true;
    }
    return m_layout->IsFixed(*column) ? m_settings.allowFixedColumnMove : m_settings.allowScrollableColumnMove;
}

bool CHeader::Impl::Move(long fid, long targetFid, Side side)
{
    ColumnPtr column;
    {
        MutexLock const lock(m_layoutLock);
        int const source = m_layout->PositionOf(fid);
        int target = m_layout->PositionOf(targetFid);
        if (fid == targetFid || source < 0 || target < 0 || !MayMoveLocked(fid) || !MayMoveLocked(targetFid))
        {
            return false;
        }
        HeaderLayout::Columns columns = m_layout->AllColumns();
        column = columns[static_cast<std::size_t>(source)];
        columns.erase(columns.begin() + source);
        target -= source < target ? 1 : 0;
        columns.insert(columns.begin() + target + (side == Side::After ? 1 : 0), column);
        PublishLocked(std::move(columns));
    }
    Raise(column.get(), ColumnMoved);
    return true;
}

bool CHeader::Impl::SetSortLevel(int level, CSortInfo const& info)
{
    MutexLock const lock(m_layoutLock);
    std::vector<CSortInfo>& levels = m_settings.sortLevels;
    bool const isAllowed = m_settings.allowSort && (m_settings.allowMultiSort || level <= 0);
    if (!isAllowed || level < 0 || level >= kMaximalSortLevels || level > std::ssize(levels))
    {
        return false;
    }
    if (level == std::ssize(levels))
    {
        levels.push_back(info);
    }
    else if (CSortInfo& present = levels[static_cast<std::size_t>(level)]; present == info)
    {
        return false;
    }
    else
    {
        present = info;
    }
    PublishLocked(m_layout->AllColumns());
    return true;
}

bool CHeader::Impl::ClearSortLevels()
{
    MutexLock const lock(m_layoutLock);
    if (m_settings.sortLevels.empty())
    {
        return false;
    }
    m_settings.sortLevels.clear();
    PublishLocked(m_layout->AllColumns());
    return true;
}

CSortInfo CHeader::Impl::GetSortLevel(int level) const
{
    MutexLock const lock(m_layoutLock);
    std::vector<CSortInfo> const& levels = m_settings.sortLevels;
    return level >= 0 && level < std::ssize(levels) ? levels[static_cast<std::size_t>(level)] : CSortInfo(-2, false);
}

int CHeader::Impl::CountSortLevels() const
{
    MutexLock const lock(m_layoutLock);
    return static_cast<int>(m_settings.sortLevels.size());
}

void CHeader::Impl::RestoreSettings(HeaderSettings const& stored)
{
    MutexLock const lock(m_layoutLock);
    CFont* const font = m_settings.font;
    CImageList* const imageList = m_settings.imageList;
    m_settings = stored;
    m_settings.font = font;
    m_settings.imageList = imageList;
    PublishLocked(m_layout->AllColumns());
}

void CHeader::Impl::Raise(CColumn* column, CHeader::NotificationType type) const
{
    Platform::CallbackErrors errors;
    for (auto const subscribers = m_subscribers.Copy(); CHeader::INotify* const subscriber : *subscribers)
    {
        Platform::CallbackErrors::Keep([&]() { subscriber->OnHeaderChanged(&m_owner, column, type); });
    }
    errors.Rethrow();
}

CHeader::Impl::ColumnPtr CHeader::Impl::FindLocked(CColumn const* column) const
{
    HeaderLayout::Columns const& columns = m_layout->AllColumns();
    auto const found = std::ranges::find(columns, column, &ColumnPtr::get);
    return found != columns.end() ? *found : nullptr;
}

void CHeader::Impl::OnColumnChanged(CColumn* column, CColumn::NotificationType type)
{
    bool const isResized = type == CColumn::WidthChanged;
    bool const isShownOrHidden = type == CColumn::VisibilityChanged;
    ColumnPtr alive;
    {
        MutexLock const lock(m_layoutLock);
        alive = FindLocked(column);
        if (alive == nullptr)
        {
            return; // removed while the notification was on its way
        }
        if (isResized || isShownOrHidden)
        {
            PublishLocked(m_layout->AllColumns());
        }
    }
    Raise(column, isResized ? ColumnResized : isShownOrHidden ? ColumnVisibilityChanged : ColumnChanged);
}

} // namespace Ostrel::GUI
