// Texts, fonts and their sizes. What holds for texts of every script is in TextRulesTest.
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <cairo/cairo.h>
#include <gtest/gtest.h>
#include <pango/pangocairo.h>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/text/TextEngine.h>

#include "DrawingTesting.h"

using namespace Ostrel::Platform;

namespace
{

constexpr UINT kCell = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

TEST(TextTest, BadBytesAreLatin1AndControlCharactersBlanks)
{
    struct Case
    {
        char const* text;
        char const* same;
    };
    for (Case const& test : {Case{"\xE9t\xE9 \xFF", "été ÿ"}, Case{"a\tb\nc\r\x7F.", "a b c  ."},
                             Case{"\xE6\x97\xA5\t\xE9", "日 é"}, Case{"\xC3", "Ã"}})
    {
        Canvas a(120, 24);
        Canvas b(120, 24);
        a.dc.DrawText(std::string_view(test.text), CRect(2, 0, 120, 24), kCell);
        b.dc.DrawText(std::string_view(test.same), CRect(2, 0, 120, 24), kCell);
        EXPECT_TRUE(SamePixels(a, b)) << test.same;
    }
}

// The table's way and Pango's own way differ only where smoothed pixels of neighbouring letters meet.
TEST(TextTest, TableAndShapingAgree)
{
    for (int const size : {9, 11, 12, 13, 16, 26})
    {
        LOGFONT description = DefaultFontDescription();
        description.lfHeight = -size;
        CFont font;
        font.CreateFontIndirect(&description);
        for (std::string const text : {"Price 12,345.67 (AVATo) fi", "Ångström Żółć €", "Ξεσκεπάζω", "Съешь ещё"})
        {
            TextFont& textFont = TextEngine::OfThread().Font(font.GetFontId());
            GlibPointer<PangoLayout> const layout = textFont.MakeLayout(text);
            int pangoWidth = 0;
            pango_layout_get_pixel_size(layout.get(), &pangoWidth, nullptr);
            Canvas table(pangoWidth + 20, 3 * size);
            table.dc.SelectObject(&font);
            ASSERT_EQ(table.dc.GetTextExtent(CString(text.c_str())).cx, pangoWidth) << text << ' ' << size;
            table.dc.TextOut(5, 5, CString(text.c_str()));

            Canvas shaped(pangoWidth + 20, 3 * size);
            cairo_surface_t* const view = cairo_image_surface_create_for_data(
                reinterpret_cast<unsigned char*>(shaped.surface.Row(0)), CAIRO_FORMAT_ARGB32, shaped.surface.Width(),
                shaped.surface.Height(), shaped.surface.StrideInPixels() * 4);
            cairo_t* const context = cairo_create(view);
            cairo_move_to(context, 5, 5 + textFont.Metrics().tmAscent);
            pango_cairo_show_layout_line(context, pango_layout_get_line_readonly(layout.get(), 0));
            cairo_destroy(context);
            cairo_surface_destroy(view);

            int different = 0;
            int greatest = 0;
            for (int y = 0; y < table.surface.Height(); ++y)
            {
                for (int x = 0; x < table.surface.Width(); ++x)
                {
                    int const delta =
                        std::abs(GetRValue(table.surface.ColorAt(x, y)) - GetRValue(shaped.surface.ColorAt(x, y)));
                    different += delta > 0 ? 1 : 0;
                    greatest = std::max(greatest, delta);
                }
            }
            EXPECT_LE(greatest, 31) << text << ' ' << size;
            EXPECT_LE(different, 11) << text << ' ' << size;
        }
    }
}

TEST(TextTest, SimpleTextIsDrawnWithoutAllocation)
{
    Canvas canvas(200, 24);
    std::string const text = "Ångström 12,345.67 – Ж";
    CRect const cell(2, 0, 90, 24);
    auto const drawAndMeasure = [&]
    {
        canvas.dc.DrawText(std::string_view(text), cell, kCell | DT_END_ELLIPSIS);
        (void)canvas.dc.GetTextExtent(text.data(), static_cast<int>(text.size()));
    };
    drawAndMeasure(); // meets the characters
    long const before = CountAllocations();
    drawAndMeasure();
    EXPECT_EQ(CountAllocations() - before, 0);
}

TEST(TextTest, LinesBreakAtBlanksAndLineEnds)
{
    Canvas canvas(300, 100);
    TEXTMETRIC metrics{};
    canvas.dc.GetTextMetrics(&metrics);
    auto const heightIn = [&](char const* text, int width, UINT format)
    {
        CRect rect(0, 0, width, 0);
        canvas.dc.DrawText(text, -1, &rect, format | DT_CALCRECT);
        return rect.Height() / metrics.tmHeight;
    };
    EXPECT_EQ(heightIn("one two three", 1000, DT_WORDBREAK), 1);
    EXPECT_EQ(heightIn("one two three", 60, DT_WORDBREAK), 2);
    EXPECT_EQ(heightIn("one two three", 1, DT_WORDBREAK), 3);
    EXPECT_EQ(heightIn("one\r\ntwo\rthree\nfour", 1000, DT_LEFT), 4);
    EXPECT_EQ(heightIn("one\ntwo", 1000, DT_SINGLELINE), 1);
    EXPECT_EQ(heightIn("  ", 1, DT_WORDBREAK), 1);
}

TEST(TextTest, AmpersandsMarkLettersOnlyWhereAsked)
{
    Canvas canvas(1, 1);
    auto const width = [&](char const* text, UINT format)
    {
        CRect rect;
        canvas.dc.DrawText(text, -1, &rect, DT_SINGLELINE | DT_CALCRECT | format);
        return rect.Width();
    };
    EXPECT_EQ(width("S&ave && go&", DT_LEFT), width("Save & go", DT_NOPREFIX));
    EXPECT_GT(width("S&ave", DT_NOPREFIX), width("Save", DT_NOPREFIX));
}

TEST(TextTest, FontsHaveTheSizesAskedFor)
{
    Canvas canvas(1, 1);
    auto const metricsOf = [&](LONG height)
    {
        LOGFONT description = DefaultFontDescription();
        description.lfHeight = height;
        CFont font;
        font.CreateFontIndirect(&description);
        CFont* const before = canvas.dc.SelectObject(&font);
        TEXTMETRIC metrics{};
        canvas.dc.GetTextMetrics(&metrics);
        canvas.dc.SelectObject(before);
        return metrics;
    };
    for (LONG const size : {8, 13, 20, 40})
    {
        TEXTMETRIC const metrics = metricsOf(-size);
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
        EXPECT_EQ(metrics.tmInternalLeading, metrics.tmHeight - size);
        LONG const lineHeight = metricsOf(size).tmHeight;
        EXPECT_TRUE(lineHeight <= size && lineHeight >= size - 2) << lineHeight;
    }
    EXPECT_GT(metricsOf(std::numeric_limits<LONG>::min()).tmHeight, 300);
    EXPECT_GT(metricsOf(1).tmHeight, 0);
    for (char const digit : std::string("023456789"))
    {
        EXPECT_EQ(canvas.dc.GetTextExtent(&digit, 1).cx, canvas.dc.GetTextExtent("1", 1).cx);
    }
}

TEST(TextTest, LinesUnderAndThroughATextAreAsWideAsIt)
{
    for (bool const isUnderlined : {true, false})
    {
        LOGFONT description = DefaultFontDescription();
        description.lfUnderline = isUnderlined ? 1 : 0;
        description.lfStrikeOut = isUnderlined ? 0 : 1;
        CFont font;
        font.CreateFontIndirect(&description);
        Canvas canvas(60, 30);
        canvas.dc.SelectObject(&font);
        canvas.dc.TextOut(10, 5, "   ", 3);
        int const right = 10 + canvas.dc.GetTextExtent("   ", 3).cx;
        TEXTMETRIC metrics{};
        canvas.dc.GetTextMetrics(&metrics);
        CRect const ink = canvas.Ink();
        EXPECT_EQ(ink.left, 10);
        EXPECT_EQ(ink.right, right);
        EXPECT_EQ(ink.top >= 5 + metrics.tmAscent, isUnderlined) << "below the baseline";
    }
}

TEST(TextTest, TheDefaultFontFollowsTheScale)
{
    Canvas canvas(1, 1);
    int const single = canvas.dc.GetTextExtent("12,345.67", 9).cx;
    SetScale(2);
    CDC scaled;
    scaled.CreateCompatibleDC(nullptr);
    LOGFONT description{};
    CFont::FromHandle(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)))->GetLogFont(&description);
    EXPECT_EQ(description.lfHeight, -26);
    EXPECT_NEAR(scaled.GetTextExtent("12,345.67", 9).cx, 2 * single, single / 5); // letters do not grow evenly
    SetScale(1);
}

TEST(TextTest, ShapedRunsAreForgottenInTheEnd)
{
    Canvas canvas(60, 24);
    canvas.dc.DrawText(std::string_view("日 0"), CRect(0, 0, 60, 24), kCell);
    for (int i = 1; i < 4200; ++i)
    {
        (void)canvas.dc.GetTextExtent(CString(("日 " + std::to_string(i)).c_str()));
    }
    EXPECT_LE(TextEngine::OfThread().KeptRuns(), 4096U);
    Canvas again(60, 24);
    again.dc.DrawText(std::string_view("日 0"), CRect(0, 0, 60, 24), kCell);
    EXPECT_TRUE(SamePixels(canvas, again));
}

TEST(TextTest, ThreadsDrawTheSamePixels)
{
    constexpr char const* kScripts[] = {"-1,234,567.89",
                                        "AVAToWa fi ffl ÀÉîõü ß Żółć",
                                        "Ξεσκεπάζω τὴν ψυχή",
                                        "Съешь же ещё",
                                        "日本語の文字 漢字",
                                        "العربية نص",
                                        "e\xCC\x81o\xCC\x88n\xCC\x83 xyz",
                                        "ok \xF0\x9F\x98\x80 \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x92\xBB",
                                        "bad \xE9\xFF\xC3 \xF0\x9F end\xE2",
                                        "\xF3\xB0\x80\x80 box"};
    auto const draw = [&](Canvas& canvas)
    {
        int y = 0;
        for (char const* const text : kScripts)
        {
            canvas.dc.DrawText(std::string_view(text), CRect(0, y, 200, y + 22), kCell | DT_END_ELLIPSIS);
            y += 22;
        }
    };
    Canvas here(200, 250);
    Canvas there(200, 250);
    Canvas elsewhere(200, 250);
    std::thread first([&] { draw(there); });
    std::thread second([&] { draw(elsewhere); });
    draw(here);
    first.join();
    second.join();
    EXPECT_TRUE(SamePixels(here, there));
    EXPECT_TRUE(SamePixels(here, elsewhere));
}

} // namespace
