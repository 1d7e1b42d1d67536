// The formats of `long` fields that are not numbers to the reader: names and durations.
#include <optional>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Bytes.h"

namespace Ostrel::Common
{
namespace
{

using testing::FromHexText;
using testing::StoredBytes;

using Items = std::vector<std::pair<long, std::string>>;

std::optional<long> Read(CFormat const& format, std::string const& text)
{
    long value = 77;
    bool const read = format.ParseStl(text, value);
    EXPECT_TRUE(read || value == 77);
    return read ? std::optional(value) : std::nullopt;
}

TEST(LongEnumFormatTest, TheFirstTextOfAValueStays)
{
    CLongEnumFormat const format({{3, "A"}, {1, "B"}, {3, "C"}, {2, "A"}});
    EXPECT_TRUE(format.IsEnum());
    EXPECT_EQ(format.FormatStl(3L), "A");
    EXPECT_EQ(format.FormatMfc(1L), CString("B"));
    EXPECT_EQ(format.FormatStl(7L), "");
    EXPECT_EQ(Read(format, "A"), 3);
    EXPECT_EQ(Read(format, "C"), std::nullopt);
    EXPECT_EQ(Read(format, "a"), std::nullopt);
    EXPECT_EQ(Read(format, " A"), std::nullopt);
    Items items = {{0, "before"}};
    EXPECT_TRUE(format.GetItems(items));
    EXPECT_EQ(items, (Items{{0, "before"}, {3, "A"}, {1, "B"}, {2, "A"}}));
}

TEST(LongEnumFormatTest, TablesMayHoldNullTextsAndBeNull)
{
    CLongEnumFormat::Item const table[] = {{1, "one"}, {2, nullptr}, {1, "again"}};
    Items items;
    EXPECT_TRUE(CLongEnumFormat(table, 3).GetItems(items));
    EXPECT_EQ(items, (Items{{1, "one"}, {2, ""}}));
    EXPECT_FALSE(CLongEnumFormat(nullptr, 3).GetItems(items));
    EXPECT_FALSE(CLongEnumFormat(table, -1).GetItems(items));
}

TEST(LongEnumFormatTest, TheListKeepsItsOrderAndTheTextsAreSorted)
{
    CLongEnumFormat format({{3, "x"}, {1, "y"}});
    char const* const bytes = "01 00 00 00 02 00 00 00 03 00 00 00 01 00 00 00 "
                              "02 00 00 00 01 00 00 00 01 00 00 00 79 00 03 00 00 00 01 00 00 00 78 00";
    EXPECT_EQ(StoredBytes(format), bytes);
    CLongEnumFormat restored(nullptr, 0);
    CSerializer stream = FromHexText(bytes);
    stream >> restored;
    EXPECT_EQ(StoredBytes(restored), bytes);

    // A list that repeats itself and does not fit its texts harms nobody.
    CSerializer odd = FromHexText("01 00 00 00 02 00 00 00 05 00 00 00 05 00 00 00 FF FF FF FF");
    odd >> restored;
    Items items;
    EXPECT_TRUE(restored.GetItems(items));
    EXPECT_EQ(items, (Items{{5, ""}}));
    EXPECT_EQ(Read(restored, ""), std::nullopt);
    CSerializer huge = FromHexText("01 00 00 00 FF FF FF 7F 01 00 00 00");
    EXPECT_THROW(huge >> restored, CSerializer::SerializationException);
}

constexpr bool kFull = true;
constexpr bool kShort = false;

TEST(LongMsecTimeFormatTest, WritesTheUnitsOfItsStyle)
{
    using F = CLongMsecTimeFormat;
    constexpr unsigned long kAllTimes = F::Hours | F::Minutes | F::Seconds | F::Milliseconds;
    struct Case
    {
        unsigned long style;
        bool leadingZeros;
        long value;
        char const* text;
    };
    for (auto const& [style, leadingZeros, value, text] :
         std::initializer_list<Case>{{kAllTimes, kShort, 3723004, "1:02:03.004"},
                                     {kAllTimes, kShort, 63004, "1:03.004"},
                                     {kAllTimes, kShort, 4, "4"},
                                     {kAllTimes, kShort, 0, "0"},
                                     {kAllTimes, kShort, 1000, "1.000"},
                                     {kAllTimes, kShort, 60000, "1:00.000"},
                                     {kAllTimes, kShort, -3723004, "-1:02:03.004"},
                                     {kAllTimes, kShort, -2147483648L, "-596:31:23.648"},
                                     {kAllTimes, kFull, 0, "00:00:00.000"},
                                     {kAllTimes, kFull, -1, "-00:00:00.001"},
                                     {31, kFull, 93784005, "1 02:03:04.005"},
                                     {31, kShort, 3723004, "1:02:03.004"},
                                     {31, kShort, 86400004, "1 4"},
                                     {31, kFull, 4, "0 00:00:00.004"},
                                     {F::Days, kShort, 0, "0"},
                                     {F::Days, kShort, 3 * 86400000L - 1, "2"},
                                     {F::Days, kShort, -5, "0"}, // no unit shown is more than 0
                                     {F::Days | F::Hours, kFull, 90000000, "1 01"},
                                     {F::Days | F::Hours, kShort, 90000000, "1 1"},
                                     {F::Hours, kFull, 90000000, "25"},
                                     {F::Hours | F::Minutes, kShort, 59 * 60000, "59"},
                                     {F::Hours | F::Minutes, kShort, 61 * 60000, "1:01"},
                                     {F::Minutes, kFull, 3723004, "62"},
                                     {F::Minutes | F::Seconds, kShort, 3723004, "62:03"},
                                     {F::Minutes | F::Seconds, kFull, 3004, "00:03"},
                                     {F::Seconds | F::Milliseconds, kFull, 4, "00.004"},
                                     {F::Seconds | F::Milliseconds, kShort, 61004, "61.004"},
                                     {F::Milliseconds, kFull, 4, "004"},
                                     {F::Milliseconds, kShort, 61004, "61004"},
                                     {F::Hours | F::Seconds, kFull, 3723004, ""},
                                     {F::Hours | F::Seconds, kFull, -3723004, ""},
                                     {0, kFull, 5, ""}})
    {
        EXPECT_EQ(F(style, leadingZeros, "", "").FormatStl(value), text) << style << " " << value;
    }
    EXPECT_EQ(F(31, kFull, "h", "d").FormatStl(93784005L), "1d 02:03:04.005h");
    EXPECT_TRUE(F(31, kFull, "", "").IsDate());
}

TEST(LongMsecTimeFormatTest, ReadsUnitsFromTheLast)
{
    struct Case
    {
        unsigned long style;
        char const* text;
        std::optional<long> value;
    };
    for (auto const& [style, text, value] : {Case{30, "1:02:03.004", 3723004},
                                             {30, "2:03", 2003},
                                             {30, "5", 5},
                                             {30, "-0:00:01.000", -1000},
                                             {30, "", 0},
                                             {30, "abc", 0},
                                             {30, "9 1:02:03.004", 3723004},
                                             {30, "x-y1m2s", -12},
                                             {31, "1 2:3:4.5", 93784005},
                                             {31, "1d 02:03:04.005", 93784005},
                                             {31, "1:2:3:4.5 ", 93784005},
                                             {31, "1 5", 1005},
                                             {2, "3", 3 * 3600000},
                                             {1, "2", 2 * 86400000},
                                             {10, "1:2", std::nullopt},
                                             {17, "1", std::nullopt},
                                             {13, "1", std::nullopt},
                                             {5, "1", std::nullopt},
                                             {0, "5", 0}})
    {
        EXPECT_EQ(Read(CLongMsecTimeFormat(style, kFull, "", ""), text), value) << style << " \"" << text << "\"";
    }
}

} // namespace
} // namespace Ostrel::Common
