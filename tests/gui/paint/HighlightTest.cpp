#include <gtest/gtest.h>

#include <ostrel/gui/paint/detail/Highlight.h>

using namespace Ostrel::GUI;
using Mode = CHighlightSettings::Mode;

namespace
{

constexpr unsigned long kRowText = 0x112233;
constexpr unsigned long kRowBack = 0xFFEEDD;

CHighlightSettings Settings(Mode mode, int periodMs = 2000, int spanMs = 30)
{
    return {periodMs, 0x0000FF, 0x00FF00, 100, 150, spanMs, mode};
}

Detail::CellHighlight After(int elapsedMs, CHighlightSettings const& settings)
{
    return Detail::HighlightAfter(elapsedMs, settings, kRowText, kRowBack);
}

} // namespace

TEST(HighlightTest, EveryModeHasItsOverlays)
{
    CColorBlend const none;
    struct
    {
        Mode mode;
        CColorBlend fore;
        CColorBlend back;
    } const cases[] = {
        {CHighlightSettings::Invert, {kRowBack, 255}, {kRowText, 255}},
        {CHighlightSettings::Fore, {0x0000FF, 255}, none},
        {CHighlightSettings::Back, none, {0x00FF00, 255}},
        {CHighlightSettings::ForeAndBack, {0x0000FF, 255}, {0x00FF00, 255}},
        {CHighlightSettings::ForeAlpha, {0x0000FF, 100}, none},
        {CHighlightSettings::BackAlpha, none, {0x00FF00, 150}},
        {CHighlightSettings::ForeAndBackAlpha, {0x0000FF, 100}, {0x00FF00, 150}},
        {CHighlightSettings::ForeFading, {0x0000FF, 75}, none},
        {CHighlightSettings::BackFading, none, {0x00FF00, 112}},
        {CHighlightSettings::ForeAndBackFading, {0x0000FF, 75}, {0x00FF00, 112}},
        {static_cast<Mode>(10), none, none},
        {static_cast<Mode>(-1), none, none},
    };
    for (auto const& test : cases)
    {
        Detail::CellHighlight const highlight = After(500, Settings(test.mode));
        EXPECT_EQ(highlight.fore, test.fore) << "mode " << test.mode;
        EXPECT_EQ(highlight.back, test.back) << "mode " << test.mode;
    }
}

TEST(HighlightTest, LastsFromTheUpdateUpToThePeriod)
{
    struct
    {
        int elapsedMs;
        int periodMs;
        int opacity;
    } const cases[] = {{0, 2000, 150}, {1999, 2000, 0}, {1986, 2000, 1}, {2000, 2000, 0},
                       {-1, 2000, 0},  {0, 0, 0},       {0, -5, 0},      {1, 2'000'000'000, 149}};
    for (auto const& test : cases)
    {
        CHighlightSettings const settings = Settings(CHighlightSettings::BackFading, test.periodMs);
        EXPECT_EQ(After(test.elapsedMs, settings).back.GetOpacity(), test.opacity)
            << test.elapsedMs << " of " << test.periodMs;
    }
}

TEST(HighlightTest, AsksForTheNextPaintWhenTheCellLooksDifferent)
{
    struct
    {
        Mode mode;
        int elapsedMs;
        int spanMs;
        int delayMs;
    } const cases[] = {
        {CHighlightSettings::BackFading, 500, 30, 30},  {CHighlightSettings::BackFading, 1990, 30, 10},
        {CHighlightSettings::ForeFading, 500, 0, 1500}, {CHighlightSettings::ForeAndBackFading, 500, -1, 1500},
        {CHighlightSettings::Back, 500, 30, 1500},      {CHighlightSettings::Invert, 0, 30, 2000},
        {CHighlightSettings::BackFading, 2000, 30, 0},  {CHighlightSettings::BackFading, -1, 30, 0},
    };
    for (auto const& test : cases)
    {
        EXPECT_EQ(Detail::NextPaintDelay(test.elapsedMs, Settings(test.mode, 2000, test.spanMs)), test.delayMs)
            << "mode " << test.mode << " after " << test.elapsedMs;
    }
}
