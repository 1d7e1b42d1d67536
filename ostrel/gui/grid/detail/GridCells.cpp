#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridCells.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{
ValueCache* CacheOf(CGridItem const& item) noexcept
{
    return item.Extras() != nullptr ? item.Extras()->valueCache.get() : nullptr;
}

CachedValue const* Cached(CGridItem const& item, long fieldId)
{
    ValueCache const* const cache = CacheOf(item);
    if (cache == nullptr || CPreferences::GetThreadingMode() != CPreferences::SnapshotOnNotify)
    {
        return nullptr;
    }
    auto const found = cache->find(fieldId);
    return found != cache->end() ? &found->second : nullptr;
}

void ReformatOne(CachedValue& cached, Common::CFormat const* format, Common::CDataObject const* object)
{
    if (format != nullptr)
    {
        CallbackErrors::Keep([&]() { cached.stlText = format->FormatStl(cached.value, object); });
        CallbackErrors::Keep([&]() { cached.mfcText = format->FormatMfc(cached.value, object); });
    }
}
} // namespace

Common::CFormat const* GridCells::FormatOf(long fieldId) const
{
    auto const layout = m_core.Columns().Layout();
    CColumn const* const column = layout != nullptr ? layout->ColumnOf(fieldId) : nullptr;
    return column != nullptr ? column->GetTextFormat() : nullptr;
}

Common::CFormat const* GridCells::FormatInUse(long fieldId, Common::CFormat const* format) const
{
    return format != nullptr ? format : FormatOf(fieldId);
}

Common::CValue GridCells::Value(CGridItem const& item, long fieldId) const
{
    if (CachedValue const* const cached = Cached(item, fieldId))
    {
        return cached->value;
    }
    Common::CDataObject* const object = ObjectToAsk(item);
    return object != nullptr ? object->GetValue(fieldId) : Common::CValue();
}

std::string GridCells::StlText(CGridItem const& item, long fieldId, Common::CFormat const* format) const
{
    if (CachedValue const* const cached = Cached(item, fieldId))
    {
        return cached->stlText;
    }
    Common::CFormat const* const used = FormatInUse(fieldId, format);
    Common::CDataObject* const object = ObjectToAsk(item);
    return object != nullptr ? object->GetFormattedStlString(fieldId, used) : std::string();
}

CString GridCells::MfcText(CGridItem const& item, long fieldId, Common::CFormat const* format) const
{
    if (CachedValue const* const cached = Cached(item, fieldId))
    {
        return cached->mfcText;
    }
    Common::CFormat const* const used = FormatInUse(fieldId, format);
    Common::CDataObject* const object = ObjectToAsk(item);
    return object != nullptr ? object->GetFormattedMfcString(fieldId, used) : CString();
}

void GridCells::Reformat(CGridItem& item, long fieldId) const
{
    ValueCache* const cache = CacheOf(item);
    auto const layout = m_core.Columns().Layout();
    if (cache == nullptr || layout == nullptr)
    {
        return;
    }
    if (IsField(fieldId))
    {
        if (auto const found = cache->find(fieldId); found != cache->end())
        {
            ReformatOne(found->second, FormatOf(fieldId), ObjectToAsk(item));
        }
        return;
    }
    for (auto const& column : layout->AllColumns())
    {
        if (auto const found = cache->find(column->GetFid()); found != cache->end())
        {
            ReformatOne(found->second, column->GetTextFormat(), ObjectToAsk(item));
        }
    }
}

Common::CValue GridCells::GetSortValue(CGridItem& item, long fieldId)
{
    return CallbackErrors::Ask([&]() { return Value(item, fieldId); });
}
} // namespace Ostrel::GUI::Detail
