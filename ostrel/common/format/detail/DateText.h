// Calendar fields to text and back, after the flags of a style and the date preferences. Knows no clock and no zone.
#pragma once

#include <string>
#include <string_view>

#include <ostrel/common/format/Preferences.h>

namespace Ostrel::Common::detail
{

/// The parts of a date that a style shows.
enum DateStyle : unsigned long
{
    DateYear4 = 1,
    DateYear2 = 2,
    DateMonth = 4,
    DateDay = 8,
    DateHours = 16,
    DateMinutes = 32,
    DateSeconds = 64,
    DateMilliseconds = 128
};

/// What a reader starts from: parts that a text does not give stay so. The hour is 1.
struct DateFields
{
    int year = 2000;
    int month = 1; ///< 1 to 12
    int day = 1;
    int hour = 1;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

/// Seconds precision, with the preferences' time separator; or milliseconds, with ':' and '.'.
enum class DatePrecision
{
    Seconds,
    Milliseconds
};

void AppendDate(std::string& text, DateFields const& fields, unsigned long style, CPreferences::DateType dateType,
                DatePrecision precision);

/// Reads the parts of the style that a text, cut to its digits, holds. Years are as written. Returns false and changes
/// nothing if the text has no word at all.
bool ReadDate(std::string_view text, unsigned long style, CPreferences::DateType dateType, DateFields& fields);

} // namespace Ostrel::Common::detail
