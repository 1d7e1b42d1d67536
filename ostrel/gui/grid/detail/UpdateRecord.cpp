#include <atomic>
#include <set>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// What is kept for the next burst; records beyond that go back to the heap.
constexpr int kKeptRecords = 1 << 16;

std::atomic<UpdateRecord*> g_delivered{nullptr};
std::atomic<int> g_deliveredCount{0};

void DeleteList(UpdateRecord* record) noexcept
{
    while (record != nullptr)
    {
        delete std::exchange(record, record->next);
    }
}

/// The records that one notifying thread has taken back and not used yet.
struct ThreadRecords
{
    UpdateRecord* first = nullptr;

    ThreadRecords() = default;
    ThreadRecords(ThreadRecords const&) = delete;
    ThreadRecords& operator=(ThreadRecords const&) = delete;
    ~ThreadRecords() { DeleteList(first); }
};

thread_local ThreadRecords t_records;
} // namespace

UpdateRecord* UpdateRecord::Take()
{
    if (t_records.first == nullptr)
    {
        // The whole list at once: nobody can take a record away between a look and a step, as it could one by one.
        t_records.first = g_delivered.exchange(nullptr, std::memory_order_acquire);
        g_deliveredCount.store(0, std::memory_order_relaxed);
    }
    if (t_records.first == nullptr)
    {
        return new UpdateRecord;
    }
    UpdateRecord* const record = std::exchange(t_records.first, t_records.first->next);
    record->next = nullptr;
    return record;
}

void UpdateRecord::GiveBack(UpdateRecord* record) noexcept
{
    record->snapshot.reset();
    if (g_deliveredCount.load(std::memory_order_relaxed) >= kKeptRecords)
    {
        delete record;
        return;
    }
    g_deliveredCount.fetch_add(1, std::memory_order_relaxed);
    record->next = g_delivered.load(std::memory_order_relaxed);
    while (
        !g_delivered.compare_exchange_weak(record->next, record, std::memory_order_release, std::memory_order_relaxed))
    {}
}

UpdateRecord* UpdateRecord::Copy() const
{
    UpdateRecord* const copy = Take();
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
