#include <chrono>
#include <cstdint>
#include <ctime>

#include <ostrel/common/format/Int64DateFormat.h>
#include <ostrel/common/format/detail/DigitText.h>

namespace Ostrel::Common
{

namespace
{

using std::chrono::days;
using std::chrono::milliseconds;
using std::chrono::sys_days;
using Ticks = std::chrono::duration<__int64, std::ratio<1, 10'000'000>>;

constexpr sys_days kFirstDay = std::chrono::January / 1 / 1601;
constexpr int kLastYear = 30827;

/// False for a value before the first day or beyond the last year.
bool ToFields(__int64 value, detail::DateFields& fields)
{
    if (value < 0)
    {
        return false;
    }
    Ticks const ticks(value);
    auto const wholeDays = std::chrono::floor<days>(ticks);
    std::chrono::year_month_day const date(kFirstDay + wholeDays);
    if (static_cast<int>(date.year()) > kLastYear)
    {
        return false;
    }
    std::chrono::hh_mm_ss const time(std::chrono::floor<milliseconds>(ticks - wholeDays));
    fields = {static_cast<int>(date.year()),
              static_cast<int>(static_cast<unsigned>(date.month())),
              static_cast<int>(static_cast<unsigned>(date.day())),
              static_cast<int>(time.hours().count()),
              static_cast<int>(time.minutes().count()),
              static_cast<int>(time.seconds().count()),
              static_cast<int>(time.subseconds().count())};
    return true;
}

/// False for an impossible date or time.
bool ToTicks(detail::DateFields const& fields, __int64& value)
{
    auto const within = [](int number, int first, int last) { return number >= first && number <= last; };
    if (!within(fields.year, 1601, kLastYear) || !within(fields.month, 1, 12) || !within(fields.day, 1, 31) ||
        !within(fields.hour, 0, 23) || !within(fields.minute, 0, 59) || !within(fields.second, 0, 59) ||
        !within(fields.millisecond, 0, 999))
    {
        return false;
    }
    std::chrono::year_month_day const date(std::chrono::year(fields.year),
                                           std::chrono::month(static_cast<unsigned>(fields.month)),
                                           std::chrono::day(static_cast<unsigned>(fields.day)));
    if (!date.ok())
    {
        return false;
    }
    auto const time = std::chrono::hours(fields.hour) + std::chrono::minutes(fields.minute) +
                      std::chrono::seconds(fields.second) + milliseconds(fields.millisecond);
    value = (Ticks(sys_days(date) - kFirstDay) + Ticks(time)).count();
    return true;
}

/// Up to three digits of a second's fraction: "5" is 500.
int ReadFraction(std::string_view text) noexcept
{
    int fraction = 0;
    int weight = 100;
    for (std::size_t i = 0; i < text.size() && i < 3 && text[i] >= '0' && text[i] <= '9'; ++i)
    {
        fraction += weight * (text[i] - '0');
        weight /= 10;
    }
    return fraction;
}

/// Takes the milliseconds off the end of a text.
int TakeMilliseconds(std::string& text, unsigned long style)
{
    if (std::size_t const comma = text.find(','); comma != std::string::npos)
    {
        text[comma] = '.';
    }
    int result = 0;
    if (std::size_t const point = text.find('.'); point != std::string::npos)
    {
        result = ReadFraction(std::string_view(text).substr(point + 1));
        text.erase(point);
    }
    else if (style == detail::DateMilliseconds)
    {
        result = detail::ReadNumber(text);
        text.clear();
    }
    return result;
}

} // namespace

std::string CInt64DateFormat::FormatStl(__int64 value, CDataObject const* /*object*/, unsigned long style,
                                        CPreferences::DateType dateType)
{
    detail::DateFields fields;
    std::string text;
    if (ToFields(value, fields))
    {
        detail::AppendDate(text, fields, style, dateType, detail::DatePrecision::Milliseconds);
    }
    return text;
}

bool CInt64DateFormat::ParseStl(std::string const& text, __int64& value, CDataObject const* /*object*/,
                                unsigned long style, CPreferences::DateType dateType)
{
    std::string words(detail::DigitSpan(text));
    detail::DateFields fields;
    fields.millisecond = TakeMilliseconds(words, style);
    detail::ReadDate(words, style, dateType, fields); // no words leave the fields as they start
    if (fields.year < 100)
    {
        fields.year += fields.year < 70 ? 2000 : 1900;
    }
    return ToTicks(fields, value);
}

__int64 CInt64DateFormat::Now()
{
    auto const now = std::chrono::floor<milliseconds>(std::chrono::system_clock::now());
    std::time_t const seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    if (localtime_r(&seconds, &local) == nullptr)
    {
        return 0;
    }
    __int64 value = 0;
    ToTicks({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
             static_cast<int>(now.time_since_epoch().count() % 1000)},
            value);
    return value;
}

__int64 CInt64DateFormat::UtcNow()
{
    return Ticks(std::chrono::floor<milliseconds>(std::chrono::system_clock::now()) - kFirstDay).count();
}

__int64 CInt64DateFormat::FileTimeToInt64(FILETIME fileTime) noexcept
{
    return static_cast<__int64>((static_cast<std::uint64_t>(fileTime.dwHighDateTime) << 32U) | fileTime.dwLowDateTime);
}

FILETIME CInt64DateFormat::Int64ToFileTime(__int64 value) noexcept
{
    auto const bits = static_cast<std::uint64_t>(value);
    return {static_cast<DWORD>(bits), static_cast<DWORD>(bits >> 32U)};
}

} // namespace Ostrel::Common
