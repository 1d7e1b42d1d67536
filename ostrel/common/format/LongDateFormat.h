/// @file
/// The format of `long` fields that hold a point in time in seconds.
#pragma once

#include <ostrel/common/format/detail/DateFormat.h>

namespace Ostrel::Common
{

/// Seconds since 1970-01-01 00:00:00 UTC, shown in local time; from 1970 to 2038. The order of the parts and the
/// separators come from CPreferences.
class OSTREL_COMMON_API CLongDateFormat : public detail::DateFormat<CLongDateFormat, long>
{
public:
    static constexpr char const* kClassName = "CLongDateFormat"; ///< the bare class name

    /// `style`: the parts shown, a combination of Style.
    explicit CLongDateFormat(unsigned long style) noexcept : DateFormat(style) {}

    /// The parts shown.
    [[nodiscard]] unsigned long GetStyle() const noexcept { return m_style; }

    using DateFormat::FormatStl;
    using DateFormat::ParseStl;
    ///@{
    /// The conversions with a style and an order of their own. A value outside the range gives an empty text. Reading
    /// starts from 2000-01-01 01:00:00; years up to 38 are 20xx and from 70 on 19xx; false if the text has no word or
    /// the time is outside the range.
    [[nodiscard]] static std::string FormatStl(long value, CDataObject const* object, unsigned long style,
                                               CPreferences::DateType dateType);
    static bool ParseStl(std::string const& text, long& value, CDataObject const* object, unsigned long style,
                         CPreferences::DateType dateType);
    ///@}

    /// The current time in seconds since 1970-01-01 00:00:00 UTC.
    [[nodiscard]] static long Now();

private:
    friend class detail::RegisteredFormat<CLongDateFormat>;
    CLongDateFormat() noexcept : DateFormat(Year2 | Month | Day) {}
};

} // namespace Ostrel::Common
