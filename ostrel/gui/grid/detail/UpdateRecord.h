// One notification on its way from the thread that changed an object to the thread that shows it.
//
// Millions of records a second go from many threads to one: a record that has been delivered goes onto a list that the
// notifying threads take back whole, so that a steady stream of updates allocates nothing.
#pragma once

#include <memory>

#include <ostrel/gui/grid/detail/ValueCache.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI::Detail
{
inline constexpr long kAllFields = -1;
inline constexpr long kNoField = -2;

/// Whether the identifier names one field.
constexpr bool IsField(long fieldId) noexcept
{
    return fieldId != kAllFields && fieldId != kNoField;
}

struct UpdateRecord
{
    Common::CDataObject const* object = nullptr;
    long fieldId = kNoField; ///< kAllFields: the whole object
    /// What the notifying thread read: the one field, or all of them for kAllFields. Null when the grid's thread reads
    /// the object itself.
    std::unique_ptr<ValueCache> snapshot;
    UpdateRecord* next = nullptr; ///< of the list of free records

    /// Any thread.
    [[nodiscard]] static UpdateRecord* Take();
    static void GiveBack(UpdateRecord* record) noexcept;
    [[nodiscard]] UpdateRecord* Copy() const;
};

/// Reads one field, or all of them, with their texts in the fields' own formats.
[[nodiscard]] std::unique_ptr<ValueCache> TakeSnapshot(Common::CDataObject& object, long fieldId);
} // namespace Ostrel::GUI::Detail
