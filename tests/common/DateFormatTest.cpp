#include <cstdlib>
#include <ctime>
#include <optional>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

namespace Ostrel::Common
{
namespace
{

using Prefs = CPreferences;

/// A zone that is not UTC and has no summer time, and the default preferences afterwards.
class DateFormatTest : public ::testing::Test
{
protected:
    DateFormatTest()
    {
        char const* const zone = std::getenv("TZ");
        m_zone = zone != nullptr ? std::optional<std::string>(zone) : std::nullopt;
        SetZone("OST-2");
    }
    ~DateFormatTest() override
    {
        SetZone(m_zone ? m_zone->c_str() : nullptr);
        Prefs::SetDateType(Prefs::DayMonthYear);
        Prefs::SetDateSeparator("/");
        Prefs::SetTimeSeparator(":");
        Prefs::SetMillisecondSeparator(".");
    }

    static void SetZone(char const* zone)
    {
        if (zone != nullptr)
        {
            setenv("TZ", zone, 1);
        }
        else
        {
            unsetenv("TZ");
        }
        tzset();
    }

private:
    std::optional<std::string> m_zone;
};

constexpr long kNewYearsEve = 1230725109;                 // 2008-12-31 12:05:09 UTC, two hours later here
constexpr __int64 kNewYearsEveTicks = 128752059092500000; // 2008-12-31 14:05:09.250
constexpr unsigned long kDateAndTime = 13 + 112;

TEST_F(DateFormatTest, TheStyleChoosesThePartsAndThePreferencesTheirOrder)
{
    struct Case
    {
        unsigned long style;
        char const* dayMonthYear;
        char const* monthDayYear;
        char const* yearMonthDay;
    };
    for (auto const& [style, dayMonthYear, monthDayYear, yearMonthDay] :
         {Case{0, "", "", ""},
          {1, "2008", "2008", "2008"},
          {2, "08", "08", "08"},
          {3, "", "", ""},
          {4, "12", "12", "12"},
          {5, "12/2008", "12/2008", "2008/12"},
          {6, "12/08", "12/08", "08/12"},
          {7, "", "", ""},
          {8, "31", "31", "31"},
          {9, "", "", ""},
          {10, "", "", ""},
          {11, "", "", ""},
          {12, "31/12", "12/31", "12/31"},
          {13, "31/12/2008", "12/31/2008", "2008/12/31"},
          {14, "31/12/08", "12/31/08", "08/12/31"},
          {15, "", "", ""}})
    {
        EXPECT_EQ(CLongDateFormat::FormatStl(kNewYearsEve, nullptr, style, Prefs::DayMonthYear), dayMonthYear) << style;
        EXPECT_EQ(CLongDateFormat::FormatStl(kNewYearsEve, nullptr, style, Prefs::MonthDayYear), monthDayYear) << style;
        EXPECT_EQ(CInt64DateFormat::FormatStl(kNewYearsEveTicks, nullptr, style, Prefs::YearMonthDay), yearMonthDay)
            << style;
    }
    Prefs::SetDateType(Prefs::YearMonthDay);
    Prefs::SetDateSeparator("--");
    EXPECT_EQ(CLongDateFormat(13).FormatStl(kNewYearsEve), "2008--12--31");
}

TEST_F(DateFormatTest, TimesAreRunsOfUnits)
{
    struct Case
    {
        unsigned long style;
        char const* seconds;
        char const* milliseconds;
    };
    Prefs::SetTimeSeparator("h"); // the finer format keeps its own
    for (auto const& [style, seconds, milliseconds] : {Case{16, "14", "14"},
                                                       {32, "05", "05"},
                                                       {48, "14h05", "14:05"},
                                                       {64, "09", "09"},
                                                       {80, "", ""},
                                                       {96, "05h09", "05:09"},
                                                       {112, "14h05h09", "14:05:09"},
                                                       {128, "", "250"},
                                                       {192, "09", "09.250"},
                                                       {224, "05h09", "05:09.250"},
                                                       {240, "14h05h09", "14:05:09.250"},
                                                       {144, "14", ""},
                                                       {1 + 80, "2008 ", "2008 "},
                                                       {1 + 128, "2008", "2008 250"},
                                                       {3 + 16, "14", "14"}})
    {
        EXPECT_EQ(CLongDateFormat(style).FormatStl(kNewYearsEve), seconds) << style;
        EXPECT_EQ(CInt64DateFormat(style).FormatStl(kNewYearsEveTicks), milliseconds) << style;
    }
}

TEST_F(DateFormatTest, ValuesOutsideTheCalendarHaveNoText)
{
    EXPECT_EQ(CLongDateFormat(kDateAndTime).FormatStl(-1L), "");
    EXPECT_EQ(CLongDateFormat(kDateAndTime).FormatStl(2147483647L), "19/01/2038 05:14:07");
    CInt64DateFormat const ticks(13 + 240);
    EXPECT_EQ(ticks.FormatStl(static_cast<__int64>(0)), "01/01/1601 00:00:00.000");
    EXPECT_EQ(ticks.FormatStl(static_cast<__int64>(-1)), "");
    EXPECT_EQ(ticks.FormatStl(std::numeric_limits<__int64>::max()), "");
}

TEST_F(DateFormatTest, SecondsAreReadFromWhatTheStyleExpects)
{
    struct Case
    {
        unsigned long style;
        Prefs::DateType dateType;
        char const* text;
        char const* expected; ///< null when it is refused
    };
    using enum Prefs::DateType;
    for (auto const& [style, dateType, text, expected] :
         {Case{kDateAndTime, DayMonthYear, "31/12/2008 14:05:09", "31/12/2008 14:05:09"},
          {kDateAndTime, DayMonthYear, "14:05:09 31/12/2008", "31/12/2008 14:05:09"},
          {kDateAndTime, DayMonthYear, " at 31/12/2008, 14:05:09.999!", "31/12/2008 14:05:09"},
          {kDateAndTime, DayMonthYear, "31/12/2008", "31/12/2008 01:00:00"},
          {13, MonthDayYear, "12/31/2008", "31/12/2008 01:00:00"},
          {13, YearMonthDay, "2008/12/31", "31/12/2008 01:00:00"},
          {13, DayMonthYear, "12/2008", "01/12/2008 01:00:00"},
          {13, DayMonthYear, "1/2/3/2008", "02/03/2008 01:00:00"},
          {14, DayMonthYear, "31/12/08", "31/12/2008 01:00:00"},
          {14, DayMonthYear, "1/1/38", "01/01/2038 01:00:00"},
          {14, DayMonthYear, "1/1/39", nullptr},
          {14, DayMonthYear, "1/1/50", nullptr},
          {14, DayMonthYear, "1/1/69", nullptr},
          {14, DayMonthYear, "2/1/70", "02/01/1970 01:00:00"},
          {14, DayMonthYear, "31/2/09", "03/03/2009 01:00:00"}, // carries over
          {48, DayMonthYear, "14:30", "01/01/2000 14:30:00"},
          {16, DayMonthYear, "7", "01/01/2000 07:00:00"},
          {8 + 16, DayMonthYear, "7 8", "07/01/2000 08:00:00"},
          {14, DayMonthYear, "abc", "01/01/2000 01:00:00"},
          {14, DayMonthYear, "", nullptr},
          {14, DayMonthYear, " \t ", nullptr},
          {13, DayMonthYear, "1/99999999999/2008", nullptr}})
    {
        long value = 77;
        bool const read = CLongDateFormat::ParseStl(text, value, nullptr, style, dateType);
        std::string const shown = CLongDateFormat::FormatStl(value, nullptr, kDateAndTime, Prefs::DayMonthYear);
        EXPECT_EQ(read ? shown : "refused", expected != nullptr ? expected : "refused") << "\"" << text << "\"";
        EXPECT_TRUE(read || value == 77);
    }
}

TEST_F(DateFormatTest, TicksAreReadWithMilliseconds)
{
    struct Case
    {
        unsigned long style;
        char const* text;
        char const* expected;
    };
    constexpr unsigned long kAll = 13 + 240;
    for (auto const& [style, text, expected] : {Case{kAll, "31/12/2008 14:05:09,25", "31/12/2008 14:05:09.250"},
                                                {kAll, "31/12/2008 14:05:09.5", "31/12/2008 14:05:09.500"},
                                                {kAll, "31/12/2008 14:05:09.1234", "31/12/2008 14:05:09.123"},
                                                {kAll, "31/2/2008", nullptr},
                                                {kAll, "29/2/2008", "29/02/2008 01:00:00.000"},
                                                {kAll, "1/13/2008", nullptr},
                                                {kAll, "1/1/1600", nullptr},
                                                {kAll, "31/12/30827", "31/12/30827 01:00:00.000"},
                                                {kAll, "1/1/30828", nullptr},
                                                {14, "1/1/50", "01/01/2050 01:00:00.000"},
                                                {14, "1/1/70", "01/01/1970 01:00:00.000"},
                                                {14, "abc", "01/01/2000 01:00:00.000"},
                                                {14, "", "01/01/2000 01:00:00.000"},
                                                {48, "14:30", "01/01/2000 14:30:00.000"},
                                                {48, "24:30", nullptr},
                                                {128, "250", "01/01/2000 01:00:00.250"},
                                                {128, "1250", nullptr},
                                                {128, "1.25", "01/01/2000 01:00:00.250"}})
    {
        __int64 value = 77;
        bool const read = CInt64DateFormat(style).ParseStl(text, value);
        EXPECT_EQ(read ? CInt64DateFormat(kAll).FormatStl(value) : "refused",
                  expected != nullptr ? expected : "refused")
            << "\"" << text << "\"";
        EXPECT_TRUE(read || value == 77);
    }
}

TEST_F(DateFormatTest, ThePreferredSeparatorIsReadBesideTheSlash)
{
    Prefs::SetDateSeparator("-");
    for (char const* text : {"31-12-2008", "31/12/2008"})
    {
        long value = 0;
        EXPECT_TRUE(CLongDateFormat(13).ParseStl(text, value)) << text;
        EXPECT_EQ(CLongDateFormat(13).FormatStl(value), "31-12-2008");
    }
}

TEST_F(DateFormatTest, ClocksAgree)
{
    constexpr __int64 kSecond = 10'000'000;
    __int64 const utc = CInt64DateFormat::UtcNow();
    __int64 const here = CInt64DateFormat::Now();
    EXPECT_NEAR(static_cast<double>(here - utc), 2.0 * 3600 * kSecond, 60.0 * kSecond);
    EXPECT_NEAR(static_cast<double>(utc / kSecond - 11644473600), static_cast<double>(CLongDateFormat::Now()), 60);
    FILETIME const fileTime = CInt64DateFormat::Int64ToFileTime(0x0102030405060708);
    EXPECT_EQ(fileTime.dwLowDateTime, 0x05060708U);
    EXPECT_EQ(fileTime.dwHighDateTime, 0x01020304U);
    EXPECT_EQ(CInt64DateFormat::FileTimeToInt64(fileTime), 0x0102030405060708);
}

} // namespace
} // namespace Ostrel::Common
