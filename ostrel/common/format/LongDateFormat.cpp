#include <cstdint>
#include <ctime>
#include <limits>

#include <ostrel/common/format/LongDateFormat.h>
#include <ostrel/common/format/detail/DigitText.h>

namespace Ostrel::Common
{

namespace
{

/// Years in between stay as they are and so are out of range.
int WithCentury(int year) noexcept
{
    if (year >= 100 || (year > 38 && year < 70))
    {
        return year;
    }
    return year + (year <= 38 ? 2000 : 1900);
}

/// The local clock reading as seconds. Fields beyond their range carry over. False outside the range of the format.
bool ToSeconds(detail::DateFields const& fields, long& value)
{
    constexpr int kFarYear = 9999;
    int const year = WithCentury(fields.year);
    if (year < 1900 || year > kFarYear || fields.month == std::numeric_limits<int>::min())
    {
        return false;
    }
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = fields.month - 1;
    local.tm_mday = fields.day;
    local.tm_hour = fields.hour;
    local.tm_min = fields.minute;
    local.tm_sec = fields.second;
    local.tm_isdst = -1;
    std::time_t const seconds = std::mktime(&local);
    if (seconds < 0 || seconds > std::numeric_limits<std::int32_t>::max())
    {
        return false;
    }
    value = seconds;
    return true;
}

} // namespace

std::string CLongDateFormat::FormatStl(long value, CDataObject const* /*object*/, unsigned long style,
                                       CPreferences::DateType dateType)
{
    std::time_t const seconds = Platform::NarrowToInt32(value);
    std::tm local{};
    if (seconds < 0 || localtime_r(&seconds, &local) == nullptr)
    {
        return {};
    }
    std::string text;
    detail::AppendDate(
        text, {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec}, style,
        dateType, detail::DatePrecision::Seconds);
    return text;
}

bool CLongDateFormat::ParseStl(std::string const& text, long& value, CDataObject const* /*object*/, unsigned long style,
                               CPreferences::DateType dateType)
{
    detail::DateFields fields;
    return detail::ReadDate(detail::DigitSpan(text), style, dateType, fields) && ToSeconds(fields, value);
}

long CLongDateFormat::Now()
{
    return Platform::NarrowLong(std::time(nullptr));
}

} // namespace Ostrel::Common
