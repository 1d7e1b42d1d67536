#include <cmath>
#include <limits>
#include <optional>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Bytes.h"

namespace Ostrel::Common
{
namespace
{

/// What a format reads, nothing if it refuses the text; a refused text must leave the value alone.
template <class T>
std::optional<T> Read(CFormat const& format, std::string const& text)
{
    T value = 77;
    CString const mfc(text);
    T twin = 77;
    bool const read = format.ParseStl(text, value);
    EXPECT_EQ(format.ParseMfc(mfc, twin), read) << text;
    EXPECT_EQ(twin, value) << text;
    EXPECT_TRUE(read || value == T(77)) << text;
    return read ? std::optional<T>(value) : std::nullopt;
}

template <class T>
struct ReadCase
{
    char const* text;
    std::optional<T> expected;
};

template <class T>
void ExpectReads(CFormat const& format, std::initializer_list<ReadCase<T>> cases)
{
    for (auto const& [text, expected] : cases)
    {
        EXPECT_EQ(Read<T>(format, text), expected) << "\"" << text << "\"";
    }
}

TEST(HexFormatterTest, WritesDigitsOfTheWidth)
{
    EXPECT_EQ(CHexFormatter::ToString(255L, false), "FF");
    EXPECT_EQ(CHexFormatter::ToString(255L, true), "000000FF");
    EXPECT_EQ(CHexFormatter::ToString(-1L, false), "FFFFFFFF");
    EXPECT_EQ(CHexFormatter::ToString(0UL, false), "0");
    EXPECT_EQ(CHexFormatter::ToString(char(-1), true), "FF");
    EXPECT_EQ(CHexFormatter::ToString(short(-2), true), "FFFE");
    EXPECT_EQ(CHexFormatter::ToString(static_cast<__int64>(-1), false), "FFFFFFFFFFFFFFFF");
    EXPECT_EQ(CHexFormatter::ToString(static_cast<__int64>(0x1234), 3, false), "234");
    EXPECT_EQ(CHexFormatter::ToString(static_cast<__int64>(0x12), 0, true), "0");
}

TEST(HexFormatterTest, ReadsFromTheFirstDigitThatCounts)
{
    struct Case
    {
        char const* text;
        std::optional<__int64> expected;
    };
    for (auto const& [text, expected] : {Case{"0x1F", 31},
                                         {"1f", 31},
                                         {" 001F ", 31},
                                         {"-1F", 31},
                                         {"1 F", std::nullopt},
                                         {"", 0},
                                         {"xyz", 0},
                                         {"0000", 0},
                                         {"1 ", std::nullopt}, // a single digit keeps what follows it
                                         {"zebra", std::nullopt},
                                         {"FFFFFFFFFFFFFFFF", -1},
                                         {"123456789ABCDEF01", std::nullopt},
                                         {"0000000000000000001", 1}})
    {
        __int64 value = 77;
        bool const read = CHexFormatter::ToHex(text, value);
        EXPECT_EQ(read, expected.has_value()) << text;
        EXPECT_EQ(value, expected.value_or(77)) << text;
    }
    char narrow = 7;
    EXPECT_FALSE(CHexFormatter::ToHex("100", narrow));
    EXPECT_FALSE(CHexFormatter::ToHex("FFFFFFFFFFFFFFFF", narrow));
    EXPECT_EQ(narrow, 7);
    EXPECT_TRUE(CHexFormatter::ToHex("FF", narrow));
    EXPECT_EQ(narrow, -1);
    long number = 7;
    EXPECT_FALSE(CHexFormatter::ToHex("100000000", number));
    EXPECT_TRUE(CHexFormatter::ToHex("FFFFFFFE", number));
    EXPECT_EQ(number, -2);
}

TEST(IntegerFormatTest, WritesGroupsOfThree)
{
    struct Case
    {
        long value;
        char separator;
        char const* text;
    };
    for (auto const& [value, separator, text] : {Case{0, ' ', "0"},
                                                 {5, ' ', "5"},
                                                 {999, ' ', "999"},
                                                 {1000, ' ', "1 000"},
                                                 {1234567, ' ', "1 234 567"},
                                                 {-1234, ' ', "-1 234"},
                                                 {-123, ' ', "-123"},
                                                 {1234567, '\0', "1234567"},
                                                 {1234567, '\x80', "1234567"},
                                                 {1234567, '\x1F', "1234567"},
                                                 {1234567, '\x7F',
                                                  "1\x7F"
                                                  "234\x7F"
                                                  "567"},
                                                 {-2147483648L, '.', "-2.147.483.648"},
                                                 {0x1'0000'0001L, ' ', "1"}})
    {
        CLongFormat const format(CLongFormat::Decimal, true, separator);
        EXPECT_EQ(format.FormatStl(value), text);
        EXPECT_EQ(format.FormatMfc(value), CString(text));
    }
    EXPECT_EQ(CShortFormat().FormatStl(short(-32768)), "-32 768");
    EXPECT_EQ(CUShortFormat().FormatStl(static_cast<unsigned short>(65535)), "65 535");
    EXPECT_EQ(CULongFormat().FormatStl(0xFFFFFFFFUL), "4 294 967 295");
    EXPECT_EQ(CInt64Format().FormatStl(std::numeric_limits<__int64>::min()), "-9 223 372 036 854 775 808");
    CLongFormat const noZero(CLongFormat::Hex, false);
    EXPECT_EQ(noZero.FormatStl(0L), "");
    EXPECT_EQ(noZero.FormatStl(5L), "0x5");
}

TEST(IntegerFormatTest, WritesHexadecimal)
{
    using Long = CLongFormat;
    EXPECT_EQ(Long(Long::Hex, true, ' ', true, false).FormatStl(255L), "0xFF");
    EXPECT_EQ(Long(Long::Hex, true, ' ', true, true).FormatStl(255L), "0x000000FF");
    EXPECT_EQ(Long(Long::Hex, true, ' ', false, false).FormatStl(-1L), "FFFFFFFF");
    EXPECT_EQ(CShortFormat(CShortFormat::Hex).FormatStl(short(255)), "0x00FF");
    EXPECT_EQ(CShortFormat(CShortFormat::Hex, true, ' ', true, false).FormatStl(short(-1)), "0xFFFF");
    EXPECT_EQ(CInt64Format(CInt64Format::Hex).FormatStl(static_cast<__int64>(-1)), "0xFFFFFFFFFFFFFFFF");
    EXPECT_EQ(Long(static_cast<Long::Style>(9)).FormatStl(255L), "0xFF"); // whatever is not decimal
}

TEST(IntegerFormatTest, ReadsWhateverLooksLikeANumber)
{
    ExpectReads<long>(CLongFormat(), {{"1 234 567", 1234567},
                                      {"abc", 0},
                                      {"", 0},
                                      {"-", 0},
                                      {"12-3", 12},
                                      {"--5", 0},
                                      {"x-1y2z", -12},
                                      {"5abc", 5},
                                      {"0x10", 16},
                                      {"-0x10", 16},
                                      {"0xZ 1 F", std::nullopt},
                                      {"-2147483648", -2147483648L},
                                      {"4294967295", -1}}); // wraps
    ExpectReads<long>(CLongFormat(CLongFormat::Hex), {{"1F", 31}, {"-1F", 31}, {"1FFFFFFFF", std::nullopt}});
    ExpectReads<unsigned long>(CULongFormat(), {{"4 294 967 295", 0xFFFFFFFFUL}, {"-1", 0xFFFFFFFFUL}});
    ExpectReads<short>(CShortFormat(), {{"40000", short(-25536)},
                                        {"65535", short(-1)},
                                        {"65536", std::nullopt},
                                        {"4294967297", std::nullopt},
                                        {"99999999999999999999999", std::nullopt},
                                        {"-5", short(-5)},
                                        {"-70000", static_cast<short>(-70000 + 65536)}});
    using UShort = unsigned short;
    ExpectReads<UShort>(CUShortFormat(), {{"-1", UShort(65535)}, {"65536", std::nullopt}});
    ExpectReads<__int64>(CInt64Format(), {{"-9 223 372 036 854 775 808", std::numeric_limits<__int64>::min()},
                                          {"9223372036854775807", std::numeric_limits<__int64>::max()}});
}

TEST(ByteFormatTest, WritesAndReadsEachStyle)
{
    CCharFormat const number(CCharFormat::Decimal);
    CUCharFormat const unsignedNumber(CUCharFormat::Decimal);
    EXPECT_EQ(number.FormatStl(char(-128)), "-128");
    EXPECT_EQ(unsignedNumber.FormatStl(static_cast<unsigned char>(255)), "255");
    ExpectReads<char>(number, {{"-128", char(-128)},
                               {"200", char(-56)},
                               {"-200", char(56)},
                               {"-0-05", char(-5)},
                               {"", char(0)},
                               {"-", char(0)},
                               {"256", std::nullopt},
                               {"1000", std::nullopt},
                               {"5-", std::nullopt},
                               {" 5", std::nullopt},
                               {"0x5", std::nullopt}});
    using UChar = unsigned char;
    ExpectReads<UChar>(
        unsignedNumber,
        {{"255", UChar(255)}, {"0255", UChar(255)}, {"256", std::nullopt}, {"-1", std::nullopt}, {"-0", std::nullopt}});

    CUCharFormat hex(CUCharFormat::Hex);
    EXPECT_EQ(hex.FormatStl(UChar(10)), "0x0A");
    EXPECT_EQ(CCharFormat(CCharFormat::Hex, true, false, false).FormatStl(char(10)), "A");
    ExpectReads<UChar>(hex, {{"0xfF", UChar(255)}, {"100", std::nullopt}});
    hex.SetStyle(CUCharFormat::Character);
    EXPECT_EQ(hex.FormatStl(UChar('A')), "A");
    EXPECT_EQ(hex.FormatStl(UChar(0)), "");
    ExpectReads<UChar>(hex, {{"xyz", UChar('x')}, {"", UChar(0)}});

    CCharFormat const unknown(static_cast<CCharFormat::Style>(3));
    EXPECT_EQ(unknown.FormatStl('A'), "");
    ExpectReads<char>(unknown, {{"A", std::nullopt}});
}

template <class Format, class F>
struct WriteCase
{
    Format format;
    F value;
    char const* text;
};

TEST(FloatFormatTest, DoublesHaveTheirTexts)
{
    CDoubleFormat const standard;
    double const infinity = std::numeric_limits<double>::infinity();
    CDoubleFormat const dressed(3, false, true, '$', '%', ' ');
    CDoubleFormat const noZero(3, true, false);
    for (auto const& [format, value, text] : std::initializer_list<WriteCase<CDoubleFormat, double>>{
             {standard, 1234567.891, "1 234 567,891"},
             {standard, 2.5, "2,5"},
             {standard, 2.0, "2"},
             {standard, 0.0, "0"},
             {standard, -0.0004, "-0"},
             {standard, -0.0005, "-0,001"},
             {standard, 0.05, "0,05"},
             {standard, 999.9996, "1 000"},
             {standard, 1e-12, "0"},
             {standard, 5e-11, "0"},
             {standard, 5e-10, "5e-10"},
             {standard, -5e-10, "-5e-10"},
             {standard, 1e-9, "0"},
             {standard, 9.9e12, "9 900 000 000 000"},
             {standard, 1e13, "1e+13"},
             {standard, 1.5e15, "1.5e+15"},
             {standard, -1e13, "-10 000 000 000 000"},
             {standard, -1e19, "-1e+19"},
             {standard, infinity, "inf"},
             {standard, -infinity, "-inf"},
             {standard, std::nan(""), "0"},
             {CDoubleFormat(3, true), 2.5, "2,500"},
             {CDoubleFormat(3, true), 2.0, "2,000"},
             {CDoubleFormat(3, true), 0.0, "0"},
             {CDoubleFormat(0), 2.5, "3"},
             {CDoubleFormat(0, true), -1.4, "-1"},
             {CDoubleFormat(0), 1e13, "1e+13"},
             {CDoubleFormat(9), 0.123456789, "0,123456789"},
             {CDoubleFormat(12), 0.123456789, "0,123456789"},
             {CDoubleFormat(-1), 2.4, "2"},
             {CDoubleFormat(3, false, true, 0, 0, 0), 1234567.0, "1234567"},
             {dressed, 2.5, "$2,5%"},
             {dressed, -2.5, "$-2,5%"},
             {dressed, 0.0, "$0%"},
             {dressed, 1e13, "1e+13"},
             {noZero, 0.0, ""},
             {noZero, 1e-11, ""},
             {noZero, 0.0001, "0,000"}})
    {
        EXPECT_EQ(format.FormatStl(value), text) << value;
    }
}

TEST(FloatFormatTest, FloatsHaveTheirTexts)
{
    CFloatFormat const standard;
    for (auto const& [format, value, text] :
         std::initializer_list<WriteCase<CFloatFormat, float>>{{standard, 1234.5F, "1 234,5"},
                                                               {standard, 2e10F, "2e+10"},
                                                               {standard, 1e10F, "1e+10"},
                                                               {standard, 9.9e9F, "9 900 000 256"}, // the nearest float
                                                               {standard, -2e10F, "-20 000 000 000"},
                                                               {standard, 5e-8F, "0"},
                                                               {standard, 5e-7F, "5e-07"},
                                                               {standard, 1e-6F, "0"},
                                                               {standard, 0.005F, "0,01"},
                                                               {CFloatFormat(9), 0.5F, "0,5"},
                                                               {CFloatFormat(6), 0.1234567F, "0,123457"}})
    {
        EXPECT_EQ(format.FormatStl(value), text) << value;
    }
}

TEST(FloatFormatTest, ReadsPointsCommasAndExponents)
{
    ExpectReads<double>(CDoubleFormat(), {{"1 234,5", 1234.5},
                                          {"1.5", 1.5},
                                          {"1,5", 1.5},
                                          {",5", 0.5},
                                          {".5", 0.5},
                                          {" ,5", 5}, // only a leading point or comma gets its zero
                                          {"-,5", -0.5},
                                          {"abc", 0},
                                          {"", 0},
                                          {"-", 0},
                                          {"$2,5%", 2.5},
                                          {"1.5E3", 1500},
                                          {"1.5d3", 1500},
                                          {"1.5D-3", 0.0015},
                                          {"1e5e3", 100000},
                                          {"1,2,3", 1.2},
                                          {"1e", 1},
                                          {"--5", 0},
                                          {"1e999", std::numeric_limits<double>::infinity()},
                                          {"-1e999", -std::numeric_limits<double>::infinity()},
                                          {"1e-999", 0}});
    CDoubleFormat const points(3, false, true, 0, 0, '.');
    ExpectReads<double>(points, {{"1.234,5", 12345}, {"1.234", 1234}});
    ExpectReads<float>(CFloatFormat(), {{"0,1", 0.1F}, {"1e39", std::numeric_limits<float>::infinity()}});
}

TEST(FloatFormatTest, ARestoredPrecisionIsBroughtIntoRange)
{
    CFloatFormat format;
    CSerializer stream = testing::FromHexText("01 00 00 00 63 01 01 00 00 20");
    stream >> format;
    EXPECT_EQ(format.FormatStl(0.5F), "0,500000");
    CSerializer negative = testing::FromHexText("01 00 00 00 FF 01 01 00 00 20");
    negative >> format;
    EXPECT_EQ(format.FormatStl(1.5F), "2");
}

} // namespace
} // namespace Ostrel::Common
