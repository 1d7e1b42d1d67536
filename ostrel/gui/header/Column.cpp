#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/ColumnImpl.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::GUI
{

using Common::CFormat;
using Common::CLock;

namespace
{

/// True when the value was another one.
template <class T>
bool Change(std::atomic<T>& property, T value)
{
    return property.exchange(value) != value;
}

template <class T>
std::unique_ptr<T const> CloneOf(SharedOwner<T> const& format)
{
    T const* const original = format.Get();
    return std::unique_ptr<T const>(original != nullptr ? original->Clone() : nullptr);
}

} // namespace

ColumnProperties CColumn::Impl::CloneProperties() const
{
    CLock const lock(propertyLock);
    return {.fid = fid,
            .name = Name(),
            .width = width,
            .cellPaintFormat = CloneOf(cellPaintFormat),
            .columnPaintFormat = CloneOf(columnPaintFormat),
            .alignment = alignment,
            .cellImageId = cellImageId,
            .columnImageId = columnImageId,
            .textFormat = CloneOf(textFormat),
            .visible = visible,
            .editable = editable,
            .description = m_description};
}

void CColumn::Impl::SetProperties(ColumnProperties&& properties)
{
    CLock const lock(propertyLock);
    fid = properties.fid;
    ReplaceName(properties.name);
    width = properties.width;
    properties.cellPaintFormat = cellPaintFormat.Exchange(std::move(properties.cellPaintFormat));
    properties.columnPaintFormat = columnPaintFormat.Exchange(std::move(properties.columnPaintFormat));
    alignment = properties.alignment;
    cellImageId = properties.cellImageId;
    columnImageId = properties.columnImageId;
    properties.textFormat = textFormat.Exchange(std::move(properties.textFormat));
    visible = properties.visible;
    editable = properties.editable;
    m_description = properties.description;
}

bool CColumn::Impl::ReplaceName(std::string const& name)
{
    Platform::MutexLock const lock(m_nameLock);
    if (*m_name == name)
    {
        return false;
    }
    m_previousName = std::exchange(m_name, std::make_unique<std::string const>(name));
    return true;
}

bool CColumn::Impl::ChangeName(std::string const& name)
{
    CLock const lock(propertyLock);
    return ReplaceName(name);
}

bool CColumn::Impl::ChangeDescription(std::string const& description)
{
    CLock const lock(propertyLock);
    if (m_description == description)
    {
        return false;
    }
    m_description = description;
    return true;
}

std::string const& CColumn::Impl::Name() const
{
    Platform::MutexLock const lock(m_nameLock);
    return *m_name;
}

std::string CColumn::Impl::Description() const
{
    CLock const lock(propertyLock);
    return m_description;
}

IMPLEMENT_SERIAL(CColumn, CObject, 1)

CColumn::CColumn() : m_impl(std::make_unique<Impl>(ColumnProperties{})) {}

CColumn::CColumn(long fid, std::string const& name, int width, Alignment alignment, bool editable, int cellImageId,
                 int columnImageId, CFormat const* textFormat, ICellPaintFormat const* cellPaintFormat,
                 IColumnPaintFormat const* columnPaintFormat, std::string const& description)
    : m_impl(std::make_unique<Impl>(
          ColumnProperties{.fid = Platform::NarrowToInt32(fid),
                           .name = name,
                           .width = width,
                           .cellPaintFormat = std::unique_ptr<ICellPaintFormat const>(cellPaintFormat),
                           .columnPaintFormat = std::unique_ptr<IColumnPaintFormat const>(columnPaintFormat),
                           .alignment = alignment,
                           .cellImageId = cellImageId,
                           .columnImageId = columnImageId,
                           .textFormat = std::unique_ptr<CFormat const>(textFormat),
                           .editable = editable,
                           .description = description}))
{}

CColumn::CColumn(CColumn const& other) : CObject(other), m_impl(std::make_unique<Impl>(other.m_impl->CloneProperties()))
{}

CColumn& CColumn::operator=(CColumn const& other)
{
    if (this != &other)
    {
        ColumnProperties properties = other.m_impl->CloneProperties();
        m_impl->SetProperties(std::move(properties));
    }
    return *this;
}

CColumn::~CColumn() = default;

long CColumn::GetFid() const noexcept
{
    return m_impl->fid;
}

std::string const& CColumn::GetName() const
{
    return m_impl->Name();
}

void CColumn::SetName(std::string const& name)
{
    if (m_impl->ChangeName(name))
    {
        Notify(NameChanged);
    }
}

std::string CColumn::GetDescription() const
{
    return m_impl->Description();
}

void CColumn::SetDescription(std::string const& description)
{
    if (m_impl->ChangeDescription(description))
    {
        Notify(DescriptionChanged);
    }
}

int CColumn::GetWidth() const noexcept
{
    return m_impl->width;
}

bool CColumn::SetWidth(int width)
{
    if (width <= 0)
    {
        return false;
    }
    if (Change(m_impl->width, width))
    {
        Notify(WidthChanged);
    }
    return true;
}

CColumn::Alignment CColumn::GetAlignment() const noexcept
{
    return m_impl->alignment;
}

void CColumn::SetAlignment(Alignment alignment)
{
    if (Change(m_impl->alignment, alignment))
    {
        Notify(AlignmentChanged);
    }
}

CFormat const* CColumn::GetTextFormat() const noexcept
{
    return m_impl->textFormat.Get();
}

CFormat const* CColumn::SetTextFormat(CFormat const* format)
{
    CFormat const* const previous = m_impl->ChangeFormat(m_impl->textFormat, format);
    if (previous != format)
    {
        Notify(TextFormatChanged);
    }
    return previous;
}

ICellPaintFormat const* CColumn::GetCellPaintFormat() const noexcept
{
    return m_impl->cellPaintFormat.Get();
}

ICellPaintFormat const* CColumn::SetCellPaintFormat(ICellPaintFormat const* format)
{
    ICellPaintFormat const* const previous = m_impl->ChangeFormat(m_impl->cellPaintFormat, format);
    if (previous != format)
    {
        Notify(CellPaintFormatChanged);
    }
    return previous;
}

IColumnPaintFormat const* CColumn::GetColumnPaintFormat() const noexcept
{
    return m_impl->columnPaintFormat.Get();
}

IColumnPaintFormat const* CColumn::SetColumnPaintFormat(IColumnPaintFormat const* format)
{
    IColumnPaintFormat const* const previous = m_impl->ChangeFormat(m_impl->columnPaintFormat, format);
    if (previous != format)
    {
        Notify(ColumnPaintFormatChanged);
    }
    return previous;
}

int CColumn::GetCellImageId() const noexcept
{
    return m_impl->cellImageId;
}

void CColumn::SetCellImageId(int imageId)
{
    if (Change(m_impl->cellImageId, imageId))
    {
        Notify(CellImageChanged);
    }
}

int CColumn::GetColumnImageId() const noexcept
{
    return m_impl->columnImageId;
}

void CColumn::SetColumnImageId(int imageId)
{
    if (Change(m_impl->columnImageId, imageId))
    {
        Notify(ColumnImageChanged);
    }
}

bool CColumn::IsVisible() const noexcept
{
    return m_impl->visible;
}

void CColumn::SetVisible(bool visible)
{
    if (Change(m_impl->visible, visible))
    {
        Notify(VisibilityChanged);
    }
}

bool CColumn::IsEditable() const noexcept
{
    return m_impl->editable;
}

void CColumn::SetEditable(bool editable)
{
    if (Change(m_impl->editable, editable))
    {
        Notify(EditabilityChanged);
    }
}

void CColumn::Subscribe(INotify* subscriber)
{
    m_impl->subscribers.Add(subscriber);
}

void CColumn::Unsubscribe(INotify* subscriber)
{
    m_impl->subscribers.Remove(subscriber);
}

void CColumn::Notify(NotificationType type)
{
    Platform::CallbackErrors errors;
    for (auto const subscribers = m_impl->subscribers.Copy(); INotify* const subscriber : *subscribers)
    {
        Platform::CallbackErrors::Keep([&]() { subscriber->OnColumnChanged(this, type); });
    }
    errors.Rethrow();
}

} // namespace Ostrel::GUI
