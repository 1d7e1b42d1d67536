#include <gtest/gtest.h>

#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel::GUI;
using namespace PaintTest;
using Ostrel::Platform::Surface;

namespace
{

COLORREF Face()
{
    return GetSysColor(COLOR_BTNFACE);
}
COLORREF Highlight()
{
    return GetSysColor(COLOR_BTNHIGHLIGHT);
}
COLORREF Shadow()
{
    return GetSysColor(COLOR_BTNSHADOW);
}

/// How many pixels of the colour the rows of a rectangle have, top to bottom.
std::vector<int> RowWidths(Surface const& surface, CRect const& rect, COLORREF ink)
{
    std::vector<int> widths;
    for (int y = rect.top; y < rect.bottom; ++y)
    {
        std::string const row = PixelsRight(surface, {rect.left, y}, rect.Width(), ink);
        widths.push_back(static_cast<int>(std::count(row.begin(), row.end(), '#')));
    }
    return widths;
}

} // namespace

TEST(HeaderPixelsTest, TitlesAreRaisedAndFillTheBand)
{
    Scene scene({300, 60});
    Surface const pixels = scene.Paint();
    for (int const left : {0, 100, 160, 240})
    {
        EXPECT_EQ(pixels.ColorAt(left, 10), Highlight()) << left;
        EXPECT_EQ(pixels.ColorAt(left + 40, 0), Highlight()) << left;
        EXPECT_EQ(pixels.ColorAt(left + 40, 19), Shadow()) << left;
    }
    for (int const right : {100, 160, 240, 300})
    {
        EXPECT_EQ(pixels.ColorAt(right - 1, 10), Shadow()) << right;
        EXPECT_EQ(pixels.ColorAt(right - 3, 2), Face()) << right;
    }
    scene.grid.HideHeader();
    EXPECT_EQ(scene.Paint().ColorAt(50, 5), 0xFFFFFFU);
}

TEST(HeaderPixelsTest, TouchedTitleIsLit)
{
    Scene scene({300, 60});
    scene.state.hotColumn = &scene.Column(kCountFid);
    for (bool const captured : {false, true})
    {
        scene.state.headerCaptured = captured;
        Surface const pixels = scene.Paint();
        EXPECT_EQ(pixels.ColorAt(150, 3), Highlight());
        EXPECT_EQ(pixels.ColorAt(90, 3), Face());
    }
}

TEST(HeaderPixelsTest, SortMarksTellDirectionAndRank)
{
    Scene scene({300, 60});
    scene.header->SetSort(0, CSortInfo(kNameFid, false));
    scene.header->SetSort(1, CSortInfo(kCountFid, true));
    Surface const pixels = scene.Paint();
    CRect const first(88, 6, 99, 14);
    EXPECT_EQ(RowWidths(pixels, first, Shadow()), (std::vector<int>{0, 0, 2, 4, 6, 8, 0, 0}));
    // The second level: lower, pointing down, with four bars above it of which one is filled.
    CRect const second(148, 10, 159, 18);
    EXPECT_EQ(RowWidths(pixels, second, Shadow()), (std::vector<int>{6, 0, 8, 6, 4, 2, 0, 0}));
    EXPECT_EQ(PixelsRight(pixels, {139, 8}, 20, Shadow()), ".###..#.#..#.#..#.#.");
    EXPECT_EQ(PixelsRight(pixels, {139, 7}, 20, Shadow()), ".###..###..###..###.");
    // A column that is no level has none.
    EXPECT_EQ(RowWidths(pixels, CRect(228, 6, 239, 14), Shadow()), std::vector<int>(8, 0));
}

TEST(HeaderPixelsTest, MarksOfEveryLevelTakeTheSameRoom)
{
    Scene scene({300, 60}, {100, 100, 100});
    for (long const fid : {kNameFid, kCountFid})
    {
        scene.Column(fid).SetName("HHH");
        scene.Column(fid).SetAlignment(CColumn::AlignRight);
        scene.header->SetSort(static_cast<int>(fid), CSortInfo(fid, false));
    }
    Surface const pixels = scene.Paint();
    // Below the bars and left of the triangle both titles have the same pixels, up to four before the marks.
    for (int x = 40; x < 88; ++x)
    {
        EXPECT_EQ(pixels.ColorAt(x, 13), pixels.ColorAt(100 + x, 13)) << x;
    }
    EXPECT_NE(PixelsRight(pixels, {70, 13}, 14, Face()), std::string(14, '#'));
}

TEST(HeaderPixelsTest, NarrowTitleKeepsItsMarkToItself)
{
    Scene scene({300, 60}, {100, 5, 100});
    scene.Column(kNameFid).SetName("");
    std::string const before = PixelsRight(scene.Paint(), {80, 10}, 20, Face());
    scene.header->SetSort(0, CSortInfo(kPriceFid, false));
    scene.header->SetSort(1, CSortInfo(kCountFid, false));
    for (int const y : {8, 14})
    {
        EXPECT_EQ(PixelsRight(scene.Paint(), {80, y}, 20, Face()), before);
    }
}

TEST(HeaderPixelsTest, DraggedColumnShowsWhereItWouldGo)
{
    Scene scene({300, 60});
    scene.state.dropColumn = &scene.Column(kCountFid);
    scene.state.columnDropX = 160;
    EXPECT_EQ(PixelsRight(scene.Paint(), {157, 10}, 6, GetSysColor(COLOR_HIGHLIGHT)), "..##..");
}
