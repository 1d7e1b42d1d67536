/// @file
/// The format of `__int64` fields that hold a point in time in ticks.
#pragma once

#include <ostrel/common/format/detail/DateFormat.h>
#include <ostrel/platform/base/FileTime.h>

namespace Ostrel::Common
{

/// Ticks of 100 nanoseconds since 1601-01-01, shown as they are, without a time zone; the years 1601 to 30827. The
/// order of the parts and the date separator come from CPreferences; the time is written with ':' and '.'.
class OSTREL_COMMON_API CInt64DateFormat : public detail::DateFormat<CInt64DateFormat, __int64>
{
public:
    static constexpr char const* kClassName = "CInt64DateFormat"; ///< the bare class name

    /// `style`: the parts shown, a combination of Style.
    explicit CInt64DateFormat(unsigned long style) noexcept : DateFormat(style) {}

    /// The parts shown.
    [[nodiscard]] virtual unsigned long GetStyle() const { return m_style; }

    using DateFormat::FormatStl;
    using DateFormat::ParseStl;
    ///@{
    /// The conversions with a style and an order of their own. A value outside the range gives an empty text. Reading
    /// starts from 2000-01-01 01:00:00; years below 70 are 20xx and below 100 19xx; false for an impossible date.
    [[nodiscard]] static std::string FormatStl(__int64 value, CDataObject const* object, unsigned long style,
                                               CPreferences::DateType dateType);
    static bool ParseStl(std::string const& text, __int64& value, CDataObject const* object, unsigned long style,
                         CPreferences::DateType dateType);
    ///@}

    /// The current reading of the local clock as ticks, exact to the millisecond.
    [[nodiscard]] static __int64 Now();
    /// The current time of UTC as ticks, exact to the millisecond.
    [[nodiscard]] static __int64 UtcNow();

    ///@{
    /// The two halves of a FILETIME as one number of ticks, and back.
    [[nodiscard]] static __int64 FileTimeToInt64(FILETIME fileTime) noexcept;
    [[nodiscard]] static FILETIME Int64ToFileTime(__int64 value) noexcept;
    ///@}

private:
    friend class detail::RegisteredFormat<CInt64DateFormat>;
    CInt64DateFormat() noexcept : DateFormat(Year2 | Month | Day) {}
};

} // namespace Ostrel::Common
