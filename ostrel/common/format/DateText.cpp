#include <array>
#include <span>
#include <utility>

#include <ostrel/common/format/detail/DateText.h>
#include <ostrel/common/format/detail/DigitText.h>
#include <ostrel/common/format/detail/PreferencesRecord.h>

namespace Ostrel::Common::detail
{

namespace
{

constexpr unsigned long kYearBits = DateYear4 | DateYear2;
constexpr unsigned long kDateBits = kYearBits | DateMonth | DateDay;

/// The parts in the order in which they are written.
std::span<unsigned long const, 3> WrittenOrder(CPreferences::DateType dateType) noexcept
{
    static constexpr std::array<unsigned long, 3> kDayMonthYear = {DateDay, DateMonth, kYearBits};
    static constexpr std::array<unsigned long, 3> kMonthDayYear = {DateMonth, DateDay, kYearBits};
    static constexpr std::array<unsigned long, 3> kYearMonthDay = {kYearBits, DateMonth, DateDay};
    switch (dateType)
    {
    case CPreferences::MonthDayYear:
        return kMonthDayYear;
    case CPreferences::YearMonthDay:
        return kYearMonthDay;
    case CPreferences::DayMonthYear:
        break;
    }
    return kDayMonthYear;
}

/// No date is written for both years at once, nor for a day and a year without the month between them.
bool HasDateText(unsigned long style) noexcept
{
    bool const bothYears = (style & kYearBits) == kYearBits;
    bool const gap = (style & DateDay) != 0 && (style & kYearBits) != 0 && (style & DateMonth) == 0;
    return (style & kDateBits) != 0 && !bothYears && !gap;
}

void AppendDatePart(std::string& text, DateFields const& fields, unsigned long bits, unsigned long style)
{
    if (bits == kYearBits)
    {
        bool const four = (style & DateYear4) != 0;
        AppendDigits(text, static_cast<std::uint32_t>(four ? fields.year : fields.year % 100), four ? 4 : 2);
    }
    else
    {
        AppendDigits(text, static_cast<std::uint32_t>(bits == DateMonth ? fields.month : fields.day), 2);
    }
}

/// A part of the time with the separator in front of it.
struct TimePart
{
    unsigned long bit;
    int value;
    int width;
    std::string_view separator;
};

/// Nothing when a part between two others is missing.
void AppendTime(std::string& text, std::span<TimePart const> parts, unsigned long timeBits)
{
    unsigned long const lowest = timeBits & (~timeBits + 1);
    if (timeBits == 0 || ((timeBits + lowest) & timeBits) != 0)
    {
        return;
    }
    bool started = false;
    for (TimePart const& part : parts)
    {
        if ((timeBits & part.bit) != 0)
        {
            text.append(started ? part.separator : std::string_view());
            AppendDigits(text, static_cast<std::uint32_t>(part.value), part.width);
            started = true;
        }
    }
}

} // namespace

void AppendDate(std::string& text, DateFields const& fields, unsigned long style, CPreferences::DateType dateType,
                DatePrecision precision)
{
    PreferencesRecord const& preferences = ThePreferences();
    bool started = false;
    if (HasDateText(style))
    {
        for (unsigned long const bits : WrittenOrder(dateType))
        {
            if ((style & bits) != 0)
            {
                text.append(started ? std::string_view(preferences.dateSeparator) : std::string_view());
                AppendDatePart(text, fields, bits, style);
                started = true;
            }
        }
    }
    bool const fine = precision == DatePrecision::Milliseconds;
    unsigned long const usedBits = DateHours | DateMinutes | DateSeconds | (fine ? DateMilliseconds : 0UL);
    unsigned long const timeBits = style & usedBits;
    if (started && timeBits != 0)
    {
        text.push_back(' ');
    }
    std::string_view const separator = fine ? std::string_view(":") : std::string_view(preferences.timeSeparator);
    AppendTime(text,
               std::array<TimePart, 4>{{{DateHours, fields.hour, 2, separator},
                                        {DateMinutes, fields.minute, 2, separator},
                                        {DateSeconds, fields.second, 2, separator},
                                        {DateMilliseconds, fields.millisecond, 3, "."}}},
               timeBits);
}

namespace
{

/// The words of a text that hold its date and its time; the same word may hold both.
struct DateWords
{
    std::string_view date;
    std::string_view time;
};

/// From the first digit to the last; the whole text without a digit, but nothing of mere blanks.
std::string_view WordOf(std::string_view text) noexcept
{
    return text.find_first_not_of(" \t") == std::string_view::npos ? std::string_view() : DigitSpan(text);
}

bool SplitWords(std::string_view text, unsigned long style, std::string_view dateCharacters,
                std::string_view timeCharacters, DateWords& words)
{
    std::size_t const blank = text.find_first_of(" \t");
    std::string_view const first = DigitSpan(text.substr(0, blank));
    std::string_view const rest = blank == std::string_view::npos ? std::string_view() : WordOf(text.substr(blank + 1));
    auto const pick = [&](std::string_view characters)
    {
        bool const inFirst = first.find_first_of(characters) != std::string_view::npos;
        bool const inRest = rest.find_first_of(characters) != std::string_view::npos;
        return std::pair(inFirst || inRest, inFirst ? first : rest);
    };
    auto const [hasDate, date] = pick(dateCharacters);
    auto const [hasTime, time] = pick(timeCharacters);
    auto const otherThan = [&](std::string_view word) { return word.data() == first.data() ? rest : first; };
    if (hasDate || hasTime)
    {
        words = {hasDate ? date : otherThan(time), hasTime ? time : otherThan(date)};
        return true;
    }
    if (first.empty() && rest.empty())
    {
        return false;
    }
    bool const oneWord = first.empty() || rest.empty();
    std::string_view const only = first.empty() ? rest : first;
    if (!oneWord)
    {
        words = {first, rest};
    }
    else
    {
        words = (style & kDateBits) != 0 ? DateWords{only, {}} : DateWords{{}, only};
    }
    return true;
}

/// Gives the pieces of a text, the last one first, to those of the parts whose bits are set.
void AssignPieces(std::string_view text, std::string_view separators, unsigned long style,
                  std::span<std::pair<unsigned long, int*> const> parts)
{
    bool more = !text.empty();
    for (auto const& [bit, target] : parts)
    {
        if ((style & bit) == 0 || !more)
        {
            continue;
        }
        std::size_t const cut = text.find_last_of(separators);
        more = cut != std::string_view::npos;
        *target = ReadNumber(more ? text.substr(cut + 1) : text);
        text = text.substr(0, more ? cut : 0);
    }
}

void ReadDateParts(std::string_view text, std::string_view separators, unsigned long style,
                   CPreferences::DateType dateType, DateFields& fields)
{
    using Parts = std::array<std::pair<unsigned long, int*>, 4>;
    std::pair const year4(static_cast<unsigned long>(DateYear4), &fields.year);
    std::pair const year2(static_cast<unsigned long>(DateYear2), &fields.year);
    std::pair const month(static_cast<unsigned long>(DateMonth), &fields.month);
    std::pair const day(static_cast<unsigned long>(DateDay), &fields.day);
    Parts parts = {{year4, year2, month, day}};
    if (dateType == CPreferences::MonthDayYear)
    {
        parts = {{year4, year2, day, month}};
    }
    else if (dateType == CPreferences::YearMonthDay)
    {
        parts = {{day, month, year4, year2}};
    }
    AssignPieces(text, separators, style, parts);
}

} // namespace

bool ReadDate(std::string_view text, unsigned long style, CPreferences::DateType dateType, DateFields& fields)
{
    PreferencesRecord const& preferences = ThePreferences();
    std::string const dateCharacters = preferences.dateSeparator + "/";
    std::string const fractionCharacters = preferences.millisecondSeparator + ".,";
    std::string const clockCharacters = preferences.timeSeparator + ":";
    DateWords words;
    if (!SplitWords(text, style, dateCharacters, clockCharacters + fractionCharacters, words))
    {
        return false;
    }
    ReadDateParts(words.date, dateCharacters, style, dateType, fields);
    std::string_view const clock = words.time.substr(0, words.time.find_last_of(fractionCharacters));
    std::array<std::pair<unsigned long, int*>, 3> const parts = {
        {{DateSeconds, &fields.second}, {DateMinutes, &fields.minute}, {DateHours, &fields.hour}}};
    AssignPieces(clock, clockCharacters, style, parts);
    return true;
}

} // namespace Ostrel::Common::detail
