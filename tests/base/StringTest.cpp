#include <gtest/gtest.h>

#include <ostrel/platform/base/String.h>

namespace
{

TEST(StringTest, PositionsAndCountsAreClamped)
{
    CString const text("abcdef");
    struct
    {
        CString result;
        char const* expected;
    } const cases[] = {
        {text.Mid(2, 3), "cde"}, {text.Mid(-5, 2), "ab"}, {text.Mid(4, 99), "ef"}, {text.Mid(9), ""},
        {text.Mid(1, -1), ""},   {text.Left(99), text},   {text.Left(-1), ""},     {text.Right(2), "ef"},
        {text.Right(99), text},  {text.Right(-1), ""},    {CString('x', -3), ""},  {CString("abc", 2), "ab"},
        {CString(nullptr), ""},
    };
    for (auto const& each : cases)
    {
        EXPECT_EQ(each.result, each.expected);
    }
    EXPECT_EQ(text.GetAt(6), '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
}

TEST(StringTest, SearchesBehindTheEndFindNothing)
{
    CString const text("abcabc");
    EXPECT_EQ(text.Find('a', 1), 3);
    EXPECT_EQ(text.Find("bc", 2), 4);
    EXPECT_EQ(text.Find('a', 99), -1);
    EXPECT_EQ(text.Find("abcabcd"), -1);
    EXPECT_EQ(text.ReverseFind('a'), 3);
    EXPECT_EQ(CString().ReverseFind('a'), -1);
    EXPECT_EQ(text.FindOneOf("xcb"), 1);
}

TEST(StringTest, ReplaceNeverLooksAtWhatItPut)
{
    struct
    {
        char const* text;
        char const* from;
        char const* to;
        char const* expected;
        int count;
    } const cases[] = {
        {"aaa", "a", "aa", "aaaaaa", 3}, {"aaaa", "aa", "a", "aa", 2}, {"abab", "ab", "", "", 2},
        {"abc", "", "x", "abc", 0},      {"abc", "d", "x", "abc", 0},  {"xay", "a", nullptr, "xy", 1},
    };
    for (auto const& each : cases)
    {
        CString text(each.text);
        EXPECT_EQ(text.Replace(each.from, each.to), each.count);
        EXPECT_EQ(text, each.expected);
    }
    CString own("ab");
    own.Replace("b", own);
    EXPECT_EQ(own, "aab");
}

TEST(StringTest, EditsInPlace)
{
    CString text("  \tabc \n");
    text.Trim();
    EXPECT_EQ(text.Insert(99, "!"), 4);
    EXPECT_EQ(text.Insert(-1, "<"), 5);
    EXPECT_EQ(text, "<abc!");
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Delete(0, -1), 3);
    EXPECT_EQ(text.Remove('a'), 1);
    EXPECT_EQ(text, "<b");
    text = CString(" \t ");
    EXPECT_TRUE(text.Trim().IsEmpty());
    CString utf8("\xC3\x84z");
    EXPECT_EQ(utf8.MakeUpper(), "\xC3\x84Z");
}

TEST(StringTest, FormatMayUseItsOwnText)
{
    CString text("abc");
    text.Format("%s-%05d-%s", text.GetString(), 42, std::string(5000, 'x').c_str());
    EXPECT_EQ(text.GetLength(), 5010);
    EXPECT_EQ(text.Left(11), "abc-00042-x");
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTest, ACharacterIsAppendedNotAddedToTheAddress)
{
    EXPECT_EQ(CString("ab") + 'c', CString("abc"));
    EXPECT_EQ('a' + CString("bc"), CString("abc"));
}

TEST(StringTest, ComparesBytesUnsignedAndWhole)
{
    CString const withZero(std::string("a\0b", 3));
    EXPECT_EQ(withZero.GetLength(), 3);
    EXPECT_NE(withZero, "a");
    EXPECT_LT(CString("Z"), "a");
    EXPECT_LT(CString("z"), CString("\xC3\xA4"));
    EXPECT_EQ(CString("aBc").CompareNoCase("AbC"), 0);
    EXPECT_GT(CString("abcd").CompareNoCase("ABC"), 0);
    EXPECT_LT(CString("_").CompareNoCase("A"), 0);
    EXPECT_EQ(CString().Compare(nullptr), 0);
}

} // namespace
