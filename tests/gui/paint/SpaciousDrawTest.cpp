// What the spacious look does better than the default one: nothing touches or crosses what it does not belong to.
#include <set>

#include <gtest/gtest.h>

#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel::GUI;
using namespace PaintTest;
using Ostrel::Platform::Surface;

namespace
{

constexpr int kHigh = 22;

class SpaciousDrawTest : public testing::Test
{
protected:
    SpaciousDrawTest()
    {
        scene.grid.SetCustomDraw(&look);
        scene.state.scrollableRowHeight = kHigh;
    }
    ~SpaciousDrawTest() override { Ostrel::Platform::SetScale(1); }

    CSpaciousDraw look{false};
    Scene scene{{400, 120}};
};

bool IsAll(Surface const& surface, CRect const& rect, COLORREF color)
{
    for (int y = rect.top; y < rect.bottom; ++y)
    {
        if (PixelsRight(surface, {rect.left, y}, rect.Width(), color) != std::string(rect.Width(), '#'))
        {
            return false;
        }
    }
    return true;
}

} // namespace

TEST_F(SpaciousDrawTest, TitlesAtRestUnderThePointerAndPressedDiffer)
{
    std::set<COLORREF> grounds{scene.Paint().ColorAt(130, 2)};
    scene.state.hotColumn = &scene.Column(kCountFid);
    for (bool const captured : {false, true})
    {
        scene.state.headerCaptured = captured;
        Surface const pixels = scene.Paint();
        grounds.insert(pixels.ColorAt(130, 2));
        EXPECT_TRUE(IsAll(pixels, CRect(240, 0, 400, kHeaderHeight - 1), GetSysColor(COLOR_BTNFACE)))
            << "no title, no line, to the right of the columns";
    }
    EXPECT_EQ(grounds.size(), 3U);
}

TEST_F(SpaciousDrawTest, NamesKeepAwayFromSortMarks)
{
    scene.header->SetSort(0, CSortInfo(kCountFid, false));
    scene.header->SetSort(1, CSortInfo(kNameFid, false));
    for (int const scale : {1, 2})
    {
        Ostrel::Platform::SetScale(scale);
        for (long const fid : {kNameFid, kCountFid})
        {
            int const markWidth = fid == kNameFid ? 20 : 10;
            for (auto const alignment : {CColumn::AlignLeft, CColumn::AlignCenter, CColumn::AlignRight})
            {
                scene.Column(fid).SetAlignment(alignment);
                scene.Column(fid).SetName(std::string(40, 'W'));
                int const right = scene.header->GetVirtualRect(scene.grid, fid).right;
                CRect const gap(right - (6 + markWidth) * scale, 0, right - (3 + markWidth) * scale,
                                kHeaderHeight - scale);
                EXPECT_TRUE(IsAll(scene.Paint(), gap, GetSysColor(COLOR_BTNFACE)))
                    << fid << " aligned " << alignment << " at " << scale;
            }
        }
    }
}

TEST_F(SpaciousDrawTest, TreeLinesLeadToTheButtonAndNotIntoIt)
{
    CGridItem* const parent = scene.AddRow();
    CGridItem* const child = scene.AddRow(parent);
    scene.AddRow(child);
    scene.grid.Expand(parent, false);
    scene.grid.Collapse(child, false);
    scene.HideText();
    Surface const lines = scene.Paint();
    scene.grid.SetPaintFilter(scene.grid.GetPaintFilter() & ~static_cast<unsigned int>(PaintTreeLines));
    Surface const plain = scene.Paint();

    int const top = kHeaderHeight + kHigh;
    int const middle = top + kHigh / 2 - 1;
    COLORREF const gray = GetSysColor(COLOR_GRAYTEXT);
    EXPECT_EQ(PixelsRight(plain, {kHigh, middle}, kHigh, gray), "......#.........#.....");
    for (int y = top; y < top + kHigh; ++y)
    {
        EXPECT_EQ(PixelsRight(lines, {kHigh + 6, y}, 11, gray), PixelsRight(plain, {kHigh + 6, y}, 11, gray)) << y;
    }
    EXPECT_EQ(PixelsRight(lines, {kHigh / 2, middle}, 18, gray), "#.#.#.#.#.#.#.#.##");
    EXPECT_EQ(PixelsDown(lines, {kHigh / 2, middle + 6 - kHigh}, 8, gray), "#.#.#.#.") << "from the parent's button";
}

TEST_F(SpaciousDrawTest, ImagesOfTheirOwnSizeStandInTheMiddle)
{
    Pictures red({8, 4}, 0xFFFF0000);

    scene.HideText();
    scene.AddRow();
    scene.Column(kCountFid).SetCellImageId(0);
    scene.grid.SetImageList(&red.list, false);
    EXPECT_EQ(PixelsRight(scene.Paint(), {100, kHeaderHeight + kHigh / 2}, kHigh, RGB(255, 0, 0)),
              ".......########.......");
}
