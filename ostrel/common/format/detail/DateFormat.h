/// @file
/// What the two date formats have in common: the style and its flags. A derived class has the static operations that
/// convert with a style and a date type.
#pragma once

#include <string>

#include <ostrel/common/format/Preferences.h>
#include <ostrel/common/format/detail/DateText.h>
#include <ostrel/common/format/detail/TypedFormat.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common::detail
{

/// What CLongDateFormat and CInt64DateFormat have in common.
template <class Derived, FieldValue T>
class OSTREL_COMMON_API DateFormat : public TypedFormat<Derived, T>
{
public:
    /// The parts shown, to be combined.
    enum Style : unsigned long
    {
        Year4 = DateYear4,              ///< the year with four digits
        Year2 = DateYear2,              ///< the year with two digits
        Month = DateMonth,              ///< the month, 01 to 12
        Day = DateDay,                  ///< the day of the month, 01 to 31
        Hours = DateHours,              ///< the hours, 00 to 23
        Minutes = DateMinutes,          ///< the minutes
        Seconds = DateSeconds,          ///< the seconds
        Milliseconds = DateMilliseconds ///< the milliseconds, three digits; CInt64DateFormat only
    };

    using TypedFormat<Derived, T>::FormatStl;
    using TypedFormat<Derived, T>::ParseStl;
    /// Reads the parts that the style shows, in the order of CPreferences; see the static ParseStl of the format.
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override
    {
        return Derived::ParseStl(text, value, object, m_style, CPreferences::GetDateType());
    }
    /// True.
    [[nodiscard]] bool IsDate() const override { return true; }

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, T value) const
    {
        text.append(Derived::FormatStl(value, nullptr, m_style, CPreferences::GetDateType()));
    }

    /// Stores the version and the settings, or restores them; see CFormat::Serialize.
    void Serialize(CSerializer& serializer) override
    {
        this->SerializeSettings(
            serializer, [&] { serializer << m_style; }, [&] { serializer >> m_style; });
    }

protected:
    /// The parts shown, a combination of Style.
    explicit DateFormat(unsigned long style) noexcept : m_style(Platform::NarrowULong(style)) {}
    /// Copies the settings; for Clone.
    DateFormat(DateFormat const&) = default;

    unsigned long m_style; ///< the parts shown
};

} // namespace Ostrel::Common::detail
