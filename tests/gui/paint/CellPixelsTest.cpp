#include <gtest/gtest.h>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/ProgressCellPaintFormat.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel::GUI;
using namespace PaintTest;
using Ostrel::Platform::Surface;

namespace
{

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kFrame = 0xB46464;
constexpr COLORREF kSelected = 0xEDDADA;

} // namespace

TEST(CellPixelsTest, OverlaysComeInTheirOrder)
{
    Scene scene({300, 100});
    scene.HideText();
    scene.AddRow();
    scene.AddRow();
    scene.header->SetSort(0, CSortInfo(kCountFid, false));
    scene.grid.Select(0, ScrollableContext, true);
    scene.grid.SetFocusedRow(0, ScrollableContext);
    Surface const pixels = scene.Paint();

    int const y = Scene::RowTop(0) + 8;
    auto const focused = static_cast<COLORREF>(CMsImg32::AlphaBlend(kSelected, 0xB46464UL, 30));
    auto const sorted = CMsImg32::AlphaBlend(kSelected, 0xB496B4UL, 50);
    EXPECT_EQ(pixels.ColorAt(50, y), focused);
    EXPECT_EQ(pixels.ColorAt(130, y), CMsImg32::AlphaBlend(sorted, 0xB46464UL, 30));
    EXPECT_EQ(pixels.ColorAt(130, y + kRowHeight), CMsImg32::AlphaBlend(kWhite, 0xB496B4UL, 50));
    EXPECT_EQ(pixels.ColorAt(50, y + kRowHeight), kWhite);
}

TEST(CellPixelsTest, FirstRowIsOddAndEmptyLinesGoOn)
{
    Scene scene({120, 120}, {40});
    scene.HideText();
    CAppearance& appearance = scene.grid.GetAppearance();
    appearance.SetBackOddColor(0x111111);
    appearance.SetBackEvenColor(0x222222);
    appearance.EnableVerticalLines(true);
    appearance.SetVerticalLinesColor(0x0000FF);
    scene.AddRow(FixedRoot);
    scene.AddRow();
    scene.grid.AllowDrawContextSeparator(false);
    Surface const pixels = scene.Paint();
    COLORREF const expected[] = {0x111111, 0x111111, 0x222222, 0x111111, 0x222222, 0x111111};
    for (int line = 0; line < 6; ++line)
    {
        EXPECT_EQ(pixels.ColorAt(80, Scene::RowTop(line) + 8), expected[line]) << "line " << line;
    }
    EXPECT_EQ(PixelsDown(pixels, {39, Scene::RowTop(3)}, 8, 0x0000FF), "#.#.#.#.") << "a line in an empty row";
}

TEST(CellPixelsTest, GridLinesAreTheEvenPixels)
{
    Scene scene({90, 60}, {33, 22});
    scene.HideText();
    scene.header->SetHeaderHeight(21);
    scene.state.scrollableRowHeight = 15;
    CAppearance& appearance = scene.grid.GetAppearance();
    appearance.EnableVerticalLines(true);
    appearance.EnableHorizontalLines(true);
    appearance.SetVerticalLinesColor(0x0000FF);
    appearance.SetHorizontalLinesColor(0x00FF00);
    scene.AddRow();
    Surface const pixels = scene.Paint();
    EXPECT_EQ(PixelsDown(pixels, {32, 20}, 8, 0x0000FF), "..#.#.#.");
    EXPECT_EQ(PixelsRight(pixels, {30, 35}, 8, 0x00FF00), "#.#.#.#.");
    EXPECT_EQ(PixelsRight(pixels, {80, 35}, 4, 0x00FF00), "#.#.") << "right of the last column";
}

TEST(CellPixelsTest, RunOfSelectedRowsHasOneFrame)
{
    Scene scene({300, 140});
    scene.HideText();
    for (int row = 0; row < 6; ++row)
    {
        scene.AddRow();
    }
    for (int row = 2; row <= 4; ++row)
    {
        scene.grid.Select(row, ScrollableContext, true);
    }
    Surface const pixels = scene.Paint();
    std::string edges;
    for (int row = 1; row <= 5; ++row)
    {
        edges += pixels.ColorAt(150, Scene::RowTop(row)) == kFrame ? 't' : '-';
        edges += pixels.ColorAt(150, Scene::RowTop(row + 1) - 1) == kFrame ? 'b' : '-';
    }
    EXPECT_EQ(edges, "--t----b--");
    EXPECT_EQ(PixelsDown(pixels, {0, Scene::RowTop(2)}, 48, kFrame), std::string(48, '#'));
    EXPECT_EQ(PixelsDown(pixels, {299, Scene::RowTop(2)}, 48, kFrame), std::string(48, '#'));
    EXPECT_EQ(pixels.ColorAt(100, Scene::RowTop(3) + 4), kSelected) << "no edge between columns";
}

TEST(CellPixelsTest, FrameCrossesTheSeparatorOnlyBetweenSelectedRows)
{
    for (bool const isFixedSelected : {false, true})
    {
        Scene scene({300, 100});
        scene.HideText();
        scene.AddRow(FixedRoot);
        scene.AddRow();
        scene.grid.Select(0, FixedContext, isFixedSelected);
        scene.grid.Select(0, ScrollableContext, true);
        Surface const pixels = scene.Paint();
        int const scrollableTop = Scene::RowTop(1) + scene.grid.GetContextSeparatorHeight();
        EXPECT_EQ(pixels.ColorAt(150, scrollableTop) == kFrame, !isFixedSelected);
        EXPECT_NE(pixels.ColorAt(150, Scene::RowTop(1) - 1), kFrame);
    }
}

TEST(CellPixelsTest, FocusFrameIsDotted)
{
    Scene scene({301, 100}, {101, 60, 80});
    scene.HideText();
    scene.AddRow();
    scene.grid.SetFocusedRow(0, ScrollableContext);
    Surface const pixels = scene.Paint();
    EXPECT_EQ(PixelsRight(pixels, {96, Scene::RowTop(0)}, 10, kFrame), "#.#.#.#.#.") << "across an odd column edge";
    EXPECT_EQ(PixelsRight(pixels, {0, Scene::RowTop(1) - 1}, 6, kFrame), "#.#.#.");
    EXPECT_EQ(PixelsDown(pixels, {0, Scene::RowTop(0)}, 6, kFrame), "#.#.#.");
    EXPECT_EQ(PixelsDown(pixels, {300, Scene::RowTop(0)}, 6, kFrame), "#.#.#.");
    EXPECT_EQ(PixelsDown(pixels, {100, Scene::RowTop(0) + 1}, 6, kFrame), "......");
}

TEST(CellPixelsTest, SeparatorNeedsFixedRows)
{
    Scene scene({200, 100});
    scene.HideText();
    scene.grid.SetContextSeparatorHeight(4);
    scene.AddRow();
    EXPECT_EQ(scene.Paint().ColorAt(150, kHeaderHeight), kWhite);
    scene.AddRow(FixedRoot);
    Surface const pixels = scene.Paint();
    int const top = Scene::RowTop(1);
    EXPECT_EQ(pixels.ColorAt(150, top), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(pixels.ColorAt(150, top + 1), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(pixels.ColorAt(150, top + 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(pixels.ColorAt(150, top + 3), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(pixels.ColorAt(150, top + 4), kWhite);
}

TEST(CellPixelsTest, TreeButtonsAndLines)
{
    Scene scene({300, 140});
    scene.HideText();
    COLORREF const gray = GetSysColor(COLOR_GRAYTEXT);
    CGridItem* const parent = scene.AddRow();
    CGridItem* const first = scene.AddRow(parent);
    scene.AddRow(first);
    scene.AddRow(parent);
    scene.grid.Expand(parent, false);
    Surface const pixels = scene.Paint();

    // An open button of level 0: outline from (3, 3) to (13, 13), a minus at half height.
    int const top = Scene::RowTop(0);
    EXPECT_EQ(PixelsRight(pixels, {2, top + 3}, 13, gray), ".###########.");
    EXPECT_EQ(PixelsRight(pixels, {2, top + 8}, 13, RGB(0, 0, 0)), "...#######...");
    EXPECT_EQ(PixelsDown(pixels, {8, top + 5}, 7, RGB(0, 0, 0)), "...#...");
    // A closed one of level 1 has a plus, and the line from its parent reaches its edge.
    int const childTop = Scene::RowTop(1);
    EXPECT_EQ(PixelsDown(pixels, {24, childTop + 5}, 7, RGB(0, 0, 0)), "#######");
    EXPECT_EQ(PixelsDown(pixels, {8, childTop}, 16, gray), "#.#.#.###.#.#.#.");
    // The last child: the line down ends in its middle and turns to the right.
    int const lastTop = Scene::RowTop(2);
    EXPECT_EQ(PixelsDown(pixels, {8, lastTop}, 16, gray), "#.#.#.##........");
    EXPECT_EQ(PixelsRight(pixels, {8, lastTop + 7}, 26, gray), "#.#.#.#.#.#.#.#.#.#.#.#...");
}

TEST(CellPixelsTest, ScrolledButtonKeepsItsShape)
{
    Scene scene({200, 60}, {100, 60, 400});
    scene.HideText();
    scene.AddRow(scene.AddRow());
    int const top = Scene::RowTop(0);
    for (int const scrolled : {0, 7, 8, 9, 10})
    {
        scene.ScrollTo(scrolled);
        Surface const pixels = scene.Paint();
        EXPECT_EQ(PixelsRight(pixels, {0, top + 8}, 14 - scrolled, RGB(0, 0, 0)),
                  std::string(".....#######..").substr(static_cast<std::size_t>(scrolled)));
        EXPECT_EQ(PixelsRight(pixels, {0, top + 6}, 14 - scrolled, RGB(0, 0, 0)),
                  std::string("........#.....").substr(static_cast<std::size_t>(scrolled)));
    }
}

TEST(CellPixelsTest, ExpandedRowWithoutShownChildrenHasNoButton)
{
    Scene scene({300, 140});
    scene.HideText();
    CGridItem* const parent = scene.AddRow();
    scene.AddRow();
    scene.grid.Expand(parent, false);
    EXPECT_EQ(scene.Paint().ColorAt(3, Scene::RowTop(0) + 3), kWhite);
}

TEST(CellPixelsTest, ProgressBarFillsItsShare)
{
    struct
    {
        long value;
        int filled; ///< of the 50 pixels between the insets
    } const cases[] = {{50, 25}, {-5, 0}, {150, 50}, {1, 0}, {100, 50}, {58, 29}, {99, 49}};
    for (auto const& test : cases)
    {
        Scene scene({300, 60}, {100, 56, 80});
        delete scene.Column(kCountFid).SetCellPaintFormat(new CProgressCellPaintFormat(0x00AA00, 0, 100));
        scene.AddRow(ScrollableRoot, "", test.value);
        std::string const row = PixelsRight(scene.Paint(), {100, Scene::RowTop(0) + 1}, 56, 0x00AA00);
        EXPECT_EQ(row, "..." + std::string(static_cast<std::size_t>(test.filled), '#') +
                           std::string(static_cast<std::size_t>(53 - test.filled), '.'))
            << test.value;
    }
}

TEST(CellPixelsTest, HighlightFadesAndProgressCellsShowNone)
{
    Ostrel::Platform::Clock::SetManual(1000);
    Scene scene({300, 60});
    scene.HideText();
    delete scene.Column(kPriceFid).SetCellPaintFormat(new CProgressCellPaintFormat(0x00AA00, 0, 100));
    CGridItem* const item = scene.AddRow();
    scene.grid.UpdateItem(item, kCountFid);
    scene.grid.UpdateItem(item, kPriceFid);
    int const y = Scene::RowTop(0) + 8;
    EXPECT_EQ(scene.Paint().ColorAt(130, y), kWhite) << "not allowed";

    scene.grid.AllowHighlight(true);
    Ostrel::Platform::Clock::Advance(500);
    Surface const pixels = scene.Paint();
    EXPECT_EQ(pixels.ColorAt(130, y), CMsImg32::AlphaBlend(kWhite, 0x0000FFUL, 112));
    EXPECT_EQ(pixels.ColorAt(50, y), kWhite) << "another field";
    EXPECT_EQ(pixels.ColorAt(200, y), kWhite) << "a progress cell";
    EXPECT_EQ(pixels.ColorAt(280, y), kWhite) << "right of the last column";
    scene.grid.UpdateItem(item, -1);
    EXPECT_EQ(scene.Paint().ColorAt(280, y), CMsImg32::AlphaBlend(kWhite, 0x0000FFUL, 150)) << "the whole row";
    Ostrel::Platform::Clock::Advance(1500);
    EXPECT_EQ(scene.Paint().ColorAt(130, y), kWhite);
    Ostrel::Platform::Clock::SetRunning();
}

TEST(CellPixelsTest, ScrolledColumnsPassUnderTheFixedOnes)
{
    Scene scene({200, 60}, {50, 120, 120});
    scene.HideText();
    CAppearance& appearance = scene.grid.GetAppearance();
    appearance.EnableVerticalLines(true);
    appearance.SetVerticalLinesColor(0x0000FF);
    scene.header->SetFixedColumnsCount(1);
    scene.AddRow();
    scene.ScrollTo(100);
    Surface const pixels = scene.Paint();
    // Fixed 0..50, then Count 50-100..170-100 of which 50..70 shows, then Price 70..190.
    std::string expected(200, '.');
    for (int edge : {49, 69, 189})
    {
        expected[static_cast<std::size_t>(edge)] = '#';
    }
    EXPECT_EQ(PixelsRight(pixels, {0, Scene::RowTop(0)}, 200, 0x0000FF), expected);
    EXPECT_EQ(PixelsRight(pixels, {0, 2}, 199, GetSysColor(COLOR_BTNSHADOW)), expected.substr(0, 199)) << "titles";
}

TEST(CellPixelsTest, RubberBandIsBlendedAndFramed)
{
    Scene scene({300, 100});
    scene.HideText();
    scene.AddRow();
    scene.state.mouseSelection = CRect(20, 30, 150, 70);
    Surface const pixels = scene.Paint();
    EXPECT_EQ(PixelsRight(pixels, {18, 45}, 4, 0xB4B4B4), "..#.");
    EXPECT_EQ(PixelsRight(pixels, {147, 45}, 5, 0xB4B4B4), "..#..");
    EXPECT_EQ(PixelsDown(pixels, {100, 28}, 4, 0xB4B4B4), "..#.") << "on the edge of two columns";
    EXPECT_EQ(PixelsDown(pixels, {60, 68}, 4, 0xB4B4B4), ".#..");
    EXPECT_EQ(pixels.ColorAt(60, 45), CMsImg32::AlphaBlend(kWhite, 0xB4B4B4UL, 128));
    EXPECT_EQ(pixels.ColorAt(10, 45), kWhite);
    scene.grid.GetAppearance().SetMouseSelectionColor(CColorBlend(0x336699, 77));
    EXPECT_EQ(scene.Paint().ColorAt(60, 45), CMsImg32::AlphaBlend(kWhite, 0x336699UL, 77)) << "truncated";
}

TEST(CellPixelsTest, DropMarkLiesBetweenTwoRows)
{
    constexpr COLORREF kMark = 0xDF8020;
    Scene scene({300, 140});
    scene.HideText();
    for (int row = 0; row < 6; ++row)
    {
        scene.AddRow();
    }
    scene.state.dropPosition = CDropPosition(ScrollableContext, 2, true, -1);
    int const below = Scene::RowTop(3);
    EXPECT_EQ(PixelsDown(scene.Paint(), {150, below - 2}, 4, kMark), ".##.");
    scene.state.dropPosition = CDropPosition(ScrollableContext, 2, false, -1);
    EXPECT_EQ(PixelsDown(scene.Paint(), {150, Scene::RowTop(2) - 1}, 4, kMark), ".##.");
    scene.state.dropPosition = CDropPosition(ScrollableContext, 6, false, -1);
    EXPECT_EQ(PixelsDown(scene.Paint(), {150, 0}, 140, kMark), std::string(140, '.')) << "no such row";
}

TEST(CellPixelsTest, ImagesAreCentredOrStretched)
{
    Pictures red({8, 4}, 0xFFFF0000);
    constexpr COLORREF kRed = RGB(255, 0, 0);

    Scene scene({300, 60});
    scene.HideText();
    scene.AddRow();
    scene.Column(kCountFid).SetCellImageId(0);
    scene.grid.SetImageList(&red.list, false);
    Surface const plain = scene.Paint();
    EXPECT_EQ(PixelsRight(plain, {100, Scene::RowTop(0) + 7}, 18, kRed), "########..........");
    EXPECT_EQ(PixelsDown(plain, {103, Scene::RowTop(0)}, 16, kRed), "......####......");

    scene.grid.AllowStretchImageInCell(true);
    Surface const stretched = scene.Paint();
    EXPECT_EQ(PixelsRight(stretched, {100, Scene::RowTop(0) + 7}, 34, kRed), "." + std::string(30, '#') + "...");
    EXPECT_EQ(PixelsDown(stretched, {103, Scene::RowTop(0)}, 16, kRed), "." + std::string(14, '#') + ".");
}
