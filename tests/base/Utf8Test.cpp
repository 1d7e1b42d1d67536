#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/base/Utf8.h>

namespace
{

using namespace Ostrel::Platform;

struct Utf8Case
{
    char const* name;
    std::string_view text;
    std::vector<char32_t> characters;
    bool isValid;
};

std::vector<Utf8Case> const kCases = {
    {"empty", "", {}, true},
    {"all lengths", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", {'a', 0xE9, 0x20AC, 0x1F600}, true},
    {"zero byte", std::string_view("a\0b", 3), {'a', 0, 'b'}, true},
    {"first and last of each length",
     "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
     {0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF},
     true},
    {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", {0xD7FF, 0xE000}, true},
    {"stray continuation", "a\x80z", {'a', 0x80, 'z'}, false},
    {"continuation too many", "\xC3\xA9\xA9", {0xE9, 0xA9}, false},
    {"Latin-1 text", "caf\xE9!", {'c', 'a', 'f', 0xE9, '!'}, false},
    {"lead before a lead", "\xE2\xC3\xA9", {0xE2, 0xE9}, false},
    {"cut after one", "\xC3", {0xC3}, false},
    {"cut after two", "\xE2\x82", {0xE2, 0x82}, false},
    {"cut after three", "\xF0\x9F\x98", {0xF0, 0x9F, 0x98}, false},
    {"the rest lies behind the end", std::string_view("\xE2\x82\xAC", 2), {0xE2, 0x82}, false},
    {"broken at the last byte", "\xF0\x9F\x98z", {0xF0, 0x9F, 0x98, 'z'}, false},
    {"overlong slash in two", "\xC0\xAF", {0xC0, 0xAF}, false},
    {"overlong in two, highest", "\xC1\xBF", {0xC1, 0xBF}, false},
    {"overlong in three", "\xE0\x9F\xBF", {0xE0, 0x9F, 0xBF}, false},
    {"overlong in four", "\xF0\x8F\xBF\xBF", {0xF0, 0x8F, 0xBF, 0xBF}, false},
    {"surrogates", "\xED\xA0\x80\xED\xBF\xBF", {0xED, 0xA0, 0x80, 0xED, 0xBF, 0xBF}, false},
    {"above the last", "\xF4\x90\x80\x80", {0xF4, 0x90, 0x80, 0x80}, false},
    {"five-byte lead", "\xF8\x88\x80\x80\x80", {0xF8, 0x88, 0x80, 0x80, 0x80}, false},
    {"never a byte", "\xFE\xFF", {0xFE, 0xFF}, false},
};

TEST(Utf8Test, DecodesAndCleansByOneRule)
{
    for (Utf8Case const& each : kCases)
    {
        SCOPED_TRACE(each.name);
        std::vector<char32_t> characters;
        std::string encoded;
        for (std::size_t at = 0; at < each.text.size(); at += DecodeUtf8(each.text, at).length)
        {
            characters.push_back(DecodeUtf8(each.text, at).codePoint);
            AppendUtf8(encoded, characters.back());
        }
        EXPECT_EQ(characters, each.characters);
        EXPECT_EQ(IsValidUtf8(each.text), each.isValid);
        EXPECT_EQ(CountUtf8(each.text), each.characters.size());
        EXPECT_EQ(CleanUtf8(each.text), encoded);
        EXPECT_TRUE(IsValidUtf8(encoded));
        EXPECT_EQ(encoded == each.text, each.isValid);
    }
}

TEST(Utf8Test, BoundariesAreTheSameInBothDirections)
{
    for (Utf8Case const& each : kCases)
    {
        SCOPED_TRACE(each.name);
        std::size_t previous = 0;
        for (std::size_t boundary = 0; boundary < each.text.size();)
        {
            std::size_t const next = NextUtf8(each.text, boundary);
            ASSERT_GT(next, boundary);
            EXPECT_EQ(PreviousUtf8(each.text, boundary), previous);
            for (std::size_t inside = boundary; inside < next; ++inside)
            {
                EXPECT_EQ(Utf8BoundaryAt(each.text, inside), boundary);
                EXPECT_EQ(NextUtf8(each.text, inside), next);
                EXPECT_EQ(PreviousUtf8(each.text, inside + 1), boundary);
            }
            previous = boundary;
            boundary = next;
        }
        EXPECT_EQ(NextUtf8(each.text, each.text.size() + 5), each.text.size());
        EXPECT_EQ(Utf8BoundaryAt(each.text, each.text.size() + 5), each.text.size());
    }
}

TEST(Utf8Test, WhatIsNoCharacterIsEncodedAsTheReplacement)
{
    for (char32_t const codePoint : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}})
    {
        std::string text;
        AppendUtf8(text, codePoint);
        EXPECT_EQ(text, "\xEF\xBF\xBD");
    }
}

} // namespace
