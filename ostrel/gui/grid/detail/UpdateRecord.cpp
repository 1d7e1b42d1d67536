#include <set>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
std::unique_ptr<UpdateRecord> UpdateRecord::Copy() const
{
    auto copy = std::make_unique<UpdateRecord>();
    copy->object = object;
    copy->fieldId = fieldId;
    copy->snapshot = snapshot != nullptr ? std::make_unique<ValueCache>(*snapshot) : nullptr;
    return copy;
}

std::unique_ptr<ValueCache> TakeSnapshot(Common::CDataObject& object, long fieldId)
{
    std::set<long> fieldIds;
    if (fieldId == kAllFields)
    {
        object.GetAllFids(fieldIds);
    }
    else
    {
        fieldIds.insert(fieldId);
    }
    auto snapshot = std::make_unique<ValueCache>();
    for (long const id : fieldIds)
    {
        CachedValue& cached = (*snapshot)[id];
        Platform::CallbackErrors::Keep([&]() { cached.value = object.GetValue(id); });
        Platform::CallbackErrors::Keep([&]() { cached.stlText = object.GetFormattedStlString(id, nullptr); });
        Platform::CallbackErrors::Keep([&]() { cached.mfcText = object.GetFormattedMfcString(id, nullptr); });
    }
    return snapshot;
}
} // namespace Ostrel::GUI::Detail
