/// @file
/// The format of `long` fields that hold a duration in milliseconds, such as 1:02:03.004.
#pragma once

#include <string>

#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common
{

/// No calendar, no time zone, no preferences: the separators are ':' and '.'. A style whose units have a gap shows no
/// time and reads nothing.
class OSTREL_COMMON_API CLongMsecTimeFormat : public detail::TypedFormat<CLongMsecTimeFormat, long>
{
public:
    static constexpr char const* kClassName = "CLongMsecTimeFormat"; ///< the bare class name

    /// The units shown, to be combined. The largest one counts everything above it as well.
    enum Style : unsigned long
    {
        Days = 1,         ///< days of 24 hours, in front of the time
        Hours = 2,        ///< hours; 0 to 23 beside Days
        Minutes = 4,      ///< minutes; 0 to 59 beside Hours
        Seconds = 8,      ///< seconds; 0 to 59 beside Minutes
        Milliseconds = 16 ///< milliseconds; 0 to 999 beside Seconds
    };

    /// `style`: the units shown, a combination of Style. `leadingZeros`: whether each unit is written with its full
    /// width; if not, leading units that are 0 are left out. The suffixes stand behind the time and behind the number
    /// of days.
    CLongMsecTimeFormat(unsigned long style, bool leadingZeros, std::string const& timeSuffix,
                        std::string const& daysSuffix);

    using TypedFormat::ParseStl;
    /// Reads the units from the last to the first; a text without digits is 0. Returns false only if the style's units
    /// have a gap.
    bool ParseStl(std::string const& text, long& value, CDataObject const* object = nullptr) const override;
    [[nodiscard]] bool IsDate() const override { return true; }
    void Serialize(CSerializer& serializer) override;

    /// The units shown, a combination of Style.
    [[nodiscard]] virtual unsigned long GetStyle() const { return m_style; }

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, long value) const;

protected:
    /// Hours to milliseconds, without leading zeros and suffixes.
    CLongMsecTimeFormat() = default;

private:
    friend class detail::RegisteredFormat<CLongMsecTimeFormat>;

    unsigned long m_style = Hours | Minutes | Seconds | Milliseconds;
    bool m_leadingZeros = false;
    std::string m_daysSuffix;
    std::string m_timeSuffix;
};

} // namespace Ostrel::Common
