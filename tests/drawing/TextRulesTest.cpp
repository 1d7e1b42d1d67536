// Rules that every text keeps, tried on many random texts that mix scripts, marks, emoji and bad bytes: it is as wide
// as measured, an ellipsis takes whole characters only, right alignment is exact, and nothing is drawn outside the
// clip.
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/SystemLook.h>

#include "DrawingTesting.h"

using namespace Ostrel::Platform;

namespace
{

constexpr UINT kCell = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
constexpr char const* kEllipsis = "\xE2\x80\xA6";

/// What a reader takes for one character. Any two beside each other stay two.
constexpr char const* kSimple[] = {"a", "W", "i", "-", ",", "0", "7", "9", " ", "é", "ß", "Ω", "Ж", "€", "…", "→"};
constexpr char const* kLeftToRight[] = {"日",
                                        "本",
                                        "語",
                                        "カ",
                                        "。",
                                        "e\xCC\x81",
                                        "n\xCC\x83",
                                        "o\xCC\x88",
                                        "a\xCC\xA3\xCC\x82",
                                        "क",
                                        "नि",
                                        "ก",
                                        "한",
                                        "😀",
                                        "👩‍💻",
                                        "👍🏽",
                                        "🇩🇪",
                                        "❤️",
                                        "\t",
                                        "\xE9",
                                        "\xFF",
                                        "\xC3",
                                        "\xF3\xB0\x80\x80"};
constexpr char const* kRightToLeft[] = {"ع", "ر", "ب", "ي", "لا", "بَ", "ש", "ל", "שָ", " "};

class RandomText
{
public:
    explicit RandomText(unsigned seed) : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    enum Kind
    {
        Simple,
        LeftToRight,
        All
    };
    std::vector<std::string> Characters(Kind kind)
    {
        std::vector<std::string> characters;
        for (int count = Below(14) + 1; count > 0; --count)
        {
            int const choice = kind == Simple ? 0 : Below(kind == LeftToRight ? 2 : 3);
            characters.emplace_back(choice == 0 ? AnyOf(kSimple)
                                                : (choice == 1 ? AnyOf(kLeftToRight) : AnyOf(kRightToLeft)));
        }
        return characters;
    }

private:
    template <std::size_t N>
    char const* AnyOf(char const* const (&list)[N])
    {
        return list[static_cast<std::size_t>(Below(static_cast<int>(N)))];
    }

    std::mt19937 m_random;
};

std::string Join(std::vector<std::string> const& characters, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
    {
        text += characters[i];
    }
    return text;
}

std::string Escaped(std::string const& text)
{
    std::string escaped;
    for (char const byte : text)
    {
        char hex[8];
        std::snprintf(hex, sizeof hex, byte >= ' ' && byte <= '~' ? "%c" : "\\x%02X", static_cast<unsigned char>(byte));
        escaped += hex;
    }
    return escaped;
}

struct Look
{
    char const* name;
    int scale;
    BYTE pitch;
    LONG weight;
};

class TextRulesTest : public testing::TestWithParam<Look>
{
protected:
    TextRulesTest()
    {
        SetScale(GetParam().scale);
        LOGFONT description{};
        description.lfHeight = -Scaled(13);
        description.lfPitchAndFamily = GetParam().pitch;
        description.lfWeight = GetParam().weight;
        m_font.CreateFontIndirect(&description);
        m_height = Scaled(24);
        m_measuring.dc.SelectObject(&m_font);
    }
    ~TextRulesTest() override
    {
        m_measuring.dc.SelectStockObject(DEFAULT_GUI_FONT);
        SetScale(1);
    }

    int WidthOf(std::string const& text)
    {
        return m_measuring.dc.GetTextExtent(text.data(), static_cast<int>(text.size())).cx;
    }

    /// The text in a box that begins at kMargin, with room on both sides.
    std::unique_ptr<Canvas> Draw(std::string const& text, int boxWidth, UINT format)
    {
        auto canvas = std::make_unique<Canvas>(boxWidth + 2 * kMargin, m_height);
        CFont* const before = canvas->dc.SelectObject(&m_font);
        canvas->dc.DrawText(std::string_view(text), CRect(kMargin, 0, kMargin + boxWidth, m_height), kCell | format);
        canvas->dc.SelectObject(before);
        return canvas;
    }

    static constexpr int kMargin = 40;
    CFont m_font;
    int m_height = 24;
    Canvas m_measuring{1, 1};
};

INSTANTIATE_TEST_SUITE_P(Fonts, TextRulesTest,
                         testing::Values(Look{"Plain", 1, DEFAULT_PITCH, FW_NORMAL},
                                         Look{"Fixed", 1, FIXED_PITCH, FW_NORMAL},
                                         Look{"Bold", 1, DEFAULT_PITCH, FW_BOLD},
                                         Look{"PlainTwice", 2, DEFAULT_PITCH, FW_NORMAL},
                                         Look{"FixedTwice", 2, FIXED_PITCH, FW_NORMAL}),
                         [](testing::TestParamInfo<Look> const& look) { return std::string(look.param.name); });

TEST_P(TextRulesTest, TextIsAsWideAsMeasured)
{
    RandomText random(1);
    for (int round = 0; round < 400; ++round)
    {
        auto const characters = random.Characters(RandomText::All);
        std::string const text = Join(characters, characters.size());
        int const width = WidthOf(text);
        CRect const ink = Draw(text, width, DT_NOCLIP)->Ink();
        if (!ink.IsRectEmpty())
        {
            EXPECT_GE(ink.left, kMargin - Scaled(1)) << Escaped(text);
            EXPECT_LE(ink.right, kMargin + width + Scaled(1)) << Escaped(text);
        }
        CRect calculated(20, 0, 21, 1);
        m_measuring.dc.DrawText(text.data(), static_cast<int>(text.size()), &calculated, kCell | DT_CALCRECT);
        EXPECT_EQ(calculated.Width(), width) << Escaped(text);
    }
}

TEST_P(TextRulesTest, AlignmentMovesThePictureByWholePixels)
{
    RandomText random(5);
    for (int round = 0; round < 200; ++round)
    {
        auto const characters = random.Characters(RandomText::All);
        std::string const text = Join(characters, characters.size());
        int const width = WidthOf(text);
        int const room = random.Below(40);
        bool const isCentered = round % 2 == 0;
        int const shift = isCentered ? room / 2 : room;
        EXPECT_EQ(Draw(text, width + room, isCentered ? DT_CENTER : DT_RIGHT)
                      ->Picture(CRect(kMargin + shift, 0, kMargin + shift + width, m_height)),
                  Draw(text, width, DT_LEFT)->Picture(CRect(kMargin, 0, kMargin + width, m_height)))
            << Escaped(text);
    }
}

TEST_P(TextRulesTest, EllipsisFollowsWholeCharacters)
{
    RandomText random(2);
    for (int round = 0; round < 300; ++round)
    {
        auto const characters = random.Characters(round % 2 == 0 ? RandomText::LeftToRight : RandomText::All);
        std::string const text = Join(characters, characters.size());
        int const whole = WidthOf(text);
        for (int const boxWidth : {whole, whole + 1, whole - 1, random.Below(whole + 1), random.Below(whole + 1)})
        {
            std::string shown = text;
            if (boxWidth < whole)
            {
                std::size_t count = characters.size();
                while (count > 0 && WidthOf(Join(characters, count) + kEllipsis) > boxWidth)
                {
                    --count;
                }
                shown = Join(characters, count) + kEllipsis;
            }
            ASSERT_TRUE(SamePixels(*Draw(text, boxWidth, DT_END_ELLIPSIS), *Draw(shown, boxWidth, DT_LEFT)))
                << Escaped(text) << " in " << boxWidth << " of " << whole << " is not " << Escaped(shown);
        }
    }
}

TEST_P(TextRulesTest, NumbersAlignedRightEndAtTheSamePixel)
{
    RandomText random(3);
    int const digit = WidthOf("0");
    for (int round = 0; round < 300; ++round)
    {
        auto const characters = random.Characters(RandomText::LeftToRight);
        std::string const number = std::to_string(100 + random.Below(900));
        int const boxWidth = WidthOf(Join(characters, characters.size()) + number) + random.Below(30);
        CRect const lastDigits(kMargin + boxWidth - 2 * digit, 0, kMargin + boxWidth, m_height);
        EXPECT_EQ(Draw(Join(characters, characters.size()) + number, boxWidth, DT_RIGHT)->Picture(lastDigits),
                  Draw(number, boxWidth, DT_RIGHT)->Picture(lastDigits))
            << Escaped(Join(characters, characters.size()));
    }
}

TEST_P(TextRulesTest, NothingIsDrawnOutsideTheClipAndTheSameInside)
{
    RandomText random(4);
    constexpr UINT kAlignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    for (int round = 0; round < 300; ++round)
    {
        auto const characters = random.Characters(RandomText::All);
        std::string const text = Join(characters, characters.size());
        UINT const format = kCell | kAlignments[round % 3] | (random.Below(2) != 0 ? DT_END_ELLIPSIS : 0U) |
                            (random.Below(2) != 0 ? DT_NOCLIP : 0U);
        CRect const box(CPoint(random.Below(40), random.Below(10)), CSize(random.Below(120), random.Below(m_height)));
        CRect const clip(CPoint(random.Below(90), random.Below(20)), CSize(random.Below(90), random.Below(m_height)));
        Canvas whole(160, m_height + 10);
        Canvas part(160, m_height + 10);
        whole.dc.SelectObject(&m_font);
        part.dc.SelectObject(&m_font);
        part.dc.IntersectClipRect(&clip);
        whole.dc.DrawText(std::string_view(text), box, format);
        part.dc.DrawText(std::string_view(text), box, format);
        for (int y = 0; y < whole.surface.Height(); ++y)
        {
            for (int x = 0; x < whole.surface.Width(); ++x)
            {
                COLORREF const expected = clip.PtInRect({x, y}) ? whole.surface.ColorAt(x, y) : kWhite;
                ASSERT_EQ(part.surface.ColorAt(x, y), expected) << Escaped(text) << " at " << x << ", " << y;
            }
        }
        CRect const ink = whole.Ink();
        EXPECT_TRUE((format & DT_NOCLIP) != 0 || (ink & box) == ink) << Escaped(text);
    }
}

TEST_P(TextRulesTest, MarksThatTakeNoRoomDoNotHideTheRest)
{
    std::string text = "a";
    for (int mark = 0; mark < 1000; ++mark)
    {
        text += "\xCC\x81";
    }
    int const boxWidth = WidthOf("abc");
    EXPECT_TRUE(
        SamePixels(*Draw(text + "bcdefghij", boxWidth, DT_END_ELLIPSIS),
                   *Draw((WidthOf("ab\xE2\x80\xA6") > boxWidth ? text : text + "b") + kEllipsis, boxWidth, DT_LEFT)));
}

} // namespace
