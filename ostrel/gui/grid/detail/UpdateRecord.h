// One notification on its way from the thread that changed an object to the thread that shows it.
#pragma once

#include <memory>

#include <ostrel/gui/grid/detail/ValueCache.h>
#include <ostrel/platform/base/Types.h>

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

    [[nodiscard]] std::unique_ptr<UpdateRecord> Copy() const;
};

/// Reads one field, or all of them, with their texts in the fields' own formats.
[[nodiscard]] std::unique_ptr<ValueCache> TakeSnapshot(Common::CDataObject& object, long fieldId);

/// What a posted message carries of an update, in its lParam.
///
/// Millions of updates a second consist of an object and a small field identifier. Those travel in the 64 bits
/// themselves (address, identifier, and a set lowest bit), so that nothing is allocated and nothing but the queue has
/// to be read before the object is known. All others are records on the heap, whose addresses are even.
class UpdateCargo
{
public:
    explicit UpdateCargo(LPARAM argument) noexcept : m_bits(static_cast<std::uint64_t>(argument)) {}

    [[nodiscard]] static bool FitsPacked(Common::CDataObject const* object, long fieldId) noexcept
    {
        bool const isFieldShort = fieldId == static_cast<std::int16_t>(fieldId);
        return isFieldShort && reinterpret_cast<std::uintptr_t>(object) >> kAddressBits == 0;
    }
    /// For what fits.
    [[nodiscard]] static LPARAM Pack(Common::CDataObject const* object, long fieldId) noexcept
    {
        std::uint64_t const field = static_cast<std::uint16_t>(fieldId);
        return static_cast<LPARAM>(reinterpret_cast<std::uintptr_t>(object) << kObjectShift | field << 1U | 1U);
    }

    [[nodiscard]] bool IsPacked() const noexcept { return (m_bits & 1U) != 0; }
    /// Of a packed update.
    [[nodiscard]] long FieldId() const noexcept { return static_cast<std::int16_t>(m_bits >> 1U); }
    /// Of one that is not packed; owned by the message.
    [[nodiscard]] UpdateRecord* Record() const noexcept { return reinterpret_cast<UpdateRecord*>(m_bits); }
    [[nodiscard]] Common::CDataObject const* Object() const noexcept
    {
        return IsPacked() ? reinterpret_cast<Common::CDataObject const*>(m_bits >> kObjectShift) : Record()->object;
    }

private:
    static constexpr unsigned kAddressBits = 47; ///< of a program's addresses on nearly every machine
    static constexpr unsigned kObjectShift = 64 - kAddressBits;

    std::uint64_t m_bits;
};
} // namespace Ostrel::GUI::Detail
