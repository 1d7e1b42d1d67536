// At twice the scale a page is the same page with every pixel doubled: lines, dots, frames, buttons and insets, all but
// what becomes sharper (texts, images and slanted edges, which are left out here).
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/paint/CellPaintFormat.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/ProgressCellPaintFormat.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::Surface;

namespace
{

/// Gives rows that are exactly twice as high at twice the scale, as those for a font are not, so that the grid has the
/// same scroll bars at any scale.
class ScaledRows : public CCustomDraw
{
public:
    ScaledRows() : CCustomDraw(false) {}

    int GetOptimalRowHeight(CFont* /*font*/, CDC& /*dc*/) const override { return Platform::Scaled(kRowHeight); }
};

/// The same random page at any scale.
Surface PageAt(int scale, unsigned seed)
{
    Platform::SetScale(scale);
    std::mt19937 random(seed);
    auto const below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    auto const maybe = [&below] { return below(2) == 0; };
    CSize const size(60 + below(150), 60 + below(100));
    std::vector<int> widths;
    for (int column = 0; column < 2; ++column)
    {
        widths.push_back((10 + below(90)) * scale);
    }
    ScaledRows rows;
    Scene scene(CSize(size.cx * scale, size.cy * scale), widths);
    CGrid& grid = scene.grid;
    grid.SetCustomDraw(&rows);
    for (long fid = 0; fid < 2; ++fid)
    {
        scene.Column(fid).SetName("");
    }
    scene.header->SetHeaderHeight((8 + below(14)) * scale);
    scene.header->SetFixedColumnsCount(below(3));
    delete scene.Column(kCountFid).SetCellPaintFormat(new CProgressCellPaintFormat(0x30A030, 0, 128));
    std::vector<CGridItem*> parents{ScrollableRoot, FixedRoot};
    for (int row = 2 + below(9); row > 0; --row)
    {
        CGridItem* const item = scene.AddRow(parents[static_cast<std::size_t>(below(static_cast<int>(parents.size())))],
                                             "", maybe() ? 128 : 0);
        parents.push_back(item);
        maybe() ? grid.Expand(item, false) : grid.Collapse(item, false);
        grid.Select(item, maybe());
    }
    grid.SetFocusedRow(below(4), maybe() ? FixedContext : ScrollableContext);
    grid.GetAppearance().EnableVerticalLines(maybe());
    grid.GetAppearance().EnableHorizontalLines(maybe());
    grid.SetContextSeparatorHeight((2 + below(3)) * scale);
    scene.state.fixedRowHeight = (8 + 2 * below(6)) * scale;
    scene.state.scrollableRowHeight = (8 + 2 * below(6)) * scale;
    scene.state.dropPosition = CDropPosition(maybe() ? FixedContext : ScrollableContext, below(4), maybe(), -1);
    scene.state.hotColumn = scene.header->GetVisibleColumnByIndex(below(4));
    CRect const band(CPoint(below(size.cx), below(size.cy)), CSize(below(size.cx), below(size.cy)));
    scene.state.mouseSelection = CRect(band.left * scale, band.top * scale, band.right * scale, band.bottom * scale);
    scene.ScrollTo(below(60) * scale); // last: a change of the layout would limit it
    return scene.Paint();
}

std::string FirstUnlike(Surface const& plain, Surface const& doubled)
{
    for (int y = 0; y < doubled.Height(); ++y)
    {
        for (int x = 0; x < doubled.Width(); ++x)
        {
            if (doubled.ColorAt(x, y) != plain.ColorAt(x / 2, y / 2))
            {
                return "pixel " + std::to_string(x) + ", " + std::to_string(y) + ": " +
                       std::to_string(doubled.ColorAt(x, y)) + " instead of " +
                       std::to_string(plain.ColorAt(x / 2, y / 2));
            }
        }
    }
    return {};
}

/// Writes down where texts and images go.
class RectRecorder : public CCustomDraw
{
public:
    RectRecorder() : CCustomDraw(false) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        CCellPaintFormat format;
        for (CRect const& rect :
             {format.GetTextRect(cell, context, filter), format.GetImageRect(cell, context, filter)})
        {
            sides.insert(sides.end(), {rect.left, rect.top, rect.right, rect.bottom});
        }
    }

    std::vector<int> sides;
};

} // namespace

TEST(ScaleTest, TwiceTheScaleDoublesEveryPixel)
{
    for (unsigned seed = 0; seed < 150; ++seed)
    {
        Surface const plain = PageAt(1, seed);
        EXPECT_EQ(FirstUnlike(plain, PageAt(2, seed)), "") << "seed " << seed;
    }
    Platform::SetScale(1);
}

TEST(ScaleTest, TextsStandTwiceAsFarFromTheEdges)
{
    std::vector<int> sides[2];
    for (int const scale : {1, 2})
    {
        Platform::SetScale(scale);
        RectRecorder recorder;
        Scene scene(CSize(200 * scale, 60 * scale), {100 * scale, 60 * scale, 80 * scale});
        scene.grid.SetCustomDraw(&recorder);
        scene.header->SetHeaderHeight(20 * scale);
        CGridItem* const parent = scene.AddRow();
        scene.AddRow(parent);
        scene.grid.Expand(parent, false);
        scene.state.scrollableRowHeight = 16 * scale;
        static_cast<void>(scene.Paint());
        sides[scale - 1] = recorder.sides;
    }
    Platform::SetScale(1);
    std::ranges::transform(sides[0], sides[0].begin(), [](int side) { return 2 * side; });
    EXPECT_EQ(sides[0], sides[1]);
}
