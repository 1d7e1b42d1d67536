#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/GridCell.h>

namespace Ostrel::GUI
{
namespace
{

/// What the row remembers of the cell where the notifying threads take snapshots; null where values are read directly.
Detail::CachedValue const* CachedValueOf(CGridItem const& item, long fid)
{
    if (CPreferences::GetThreadingMode() != CPreferences::SnapshotOnNotify || item.Extras() == nullptr ||
        item.Extras()->valueCache == nullptr)
    {
        return nullptr;
    }
    auto const found = item.Extras()->valueCache->find(fid);
    return found != item.Extras()->valueCache->end() ? &found->second : nullptr;
}

/// Calls fromCache or fromObject for a cell that has a value, else returns the empty result.
template <class Result, class FromCache, class FromObject>
Result ReadCell(CGridCell const& cell, FromCache&& fromCache, FromObject&& fromObject)
{
    CGridItem const* const item = cell.GetGridLine().GetItem();
    if (item == nullptr || cell.GetColumn() == nullptr)
    {
        return {};
    }
    long const fid = cell.GetColumn()->GetFid();
    if (Detail::CachedValue const* const cached = CachedValueOf(*item, fid))
    {
        return fromCache(*cached);
    }
    Common::CDataObject* const object = Detail::ObjectToAsk(*item);
    return object != nullptr ? fromObject(*object, fid) : Result{};
}

} // namespace

Common::CValue CGridCell::GetValue() const
{
    return ReadCell<Common::CValue>(
        *this, [](Detail::CachedValue const& cached) { return cached.value; },
        [](Common::CDataObject& object, long fid) { return object.GetValue(fid); });
}

std::string CGridCell::GetFormattedStlString() const
{
    return ReadCell<std::string>(
        *this, [](Detail::CachedValue const& cached) { return cached.stlText; },
        [this](Common::CDataObject& object, long fid) { return object.GetFormattedStlString(fid, m_textFormat); });
}

CString CGridCell::GetFormattedMfcString() const
{
    return ReadCell<CString>(
        *this, [](Detail::CachedValue const& cached) { return cached.mfcText; },
        [this](Common::CDataObject& object, long fid) { return object.GetFormattedMfcString(fid, m_textFormat); });
}

void CGridCell::RequestNextPaint(int delayMs) const
{
    CGridItem* const item = m_line.GetItem();
    Detail::GridArea* const area = item != nullptr && m_column != nullptr ? Detail::GridArea::Of(*item) : nullptr;
    if (area != nullptr)
    {
        Detail::RepaintSchedule& repaints = area->Core().Repaints();
        long const fid = m_column->GetFid();
        Detail::IsField(fid) ? repaints.RepaintPainted(*item, fid, delayMs) : repaints.RepaintRow(*item, delayMs);
    }
}

} // namespace Ostrel::GUI
