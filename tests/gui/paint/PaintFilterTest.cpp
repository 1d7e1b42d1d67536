// Each bit of the paint filter takes one element out of a page that has all of them, and leaves all others as they are.
#include <gtest/gtest.h>

#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/ImageList.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::Surface;

namespace
{

constexpr int kWidth = 300;
constexpr int kHeight = 200;
constexpr int kRows = 5;

/// Name, Count and Price end at 100, 160 and 240; a parent with a child, then single rows, then empty lines.
class FullPage
{
public:
    FullPage() : m_scene({kWidth, kHeight})
    {
        CGrid& grid = m_scene.grid;
        CGridItem* const parent = m_scene.AddRow(ScrollableRoot, "parent", 1);
        CGridItem* const child = m_scene.AddRow(parent, "child", 2);
        grid.Expand(parent, false);
        for (int row = 2; row < kRows; ++row)
        {
            m_scene.AddRow(ScrollableRoot, "row", row + 1);
        }
        m_scene.Column(kCountFid).SetCellImageId(0);
        m_scene.Column(kCountFid).SetColumnImageId(0);
        m_scene.header->SetImageList(&m_pictures.list);
        m_scene.header->SetSort(0, CSortInfo(kPriceFid, false));
        grid.SetImageList(&m_pictures.list, false);
        grid.GetAppearance().EnableHorizontalLines(true);
        grid.GetAppearance().EnableVerticalLines(true);
        grid.Select(2, ScrollableContext, true);
        grid.Select(3, ScrollableContext, true);
        grid.SetFocusedRow(3, ScrollableContext);
        grid.AllowHighlight(true);
        grid.UpdateItem(child, kCountFid);
        m_scene.state.mouseSelection = CRect(20, 120, 80, 150);
        m_scene.state.dropPosition = CDropPosition(ScrollableContext, 4, true, 0);
    }

    Surface Paint(unsigned int filter)
    {
        m_scene.grid.SetPaintFilter(filter);
        return m_scene.Paint();
    }

private:
    Pictures m_pictures{{8, 8}, 0xFF2060C0};
    Scene m_scene;
};

/// The band of rows from one to another, and columns from x to x.
CRect Cells(int firstRow, int lastRow, int left = 0, int right = kWidth)
{
    return {left, Scene::RowTop(firstRow), right, Scene::RowTop(lastRow + 1)};
}

} // namespace

TEST(PaintFilterTest, EachBitTakesOneElementAway)
{
    Platform::Clock::SetManual(1000);
    FullPage page;
    Surface const full = page.Paint(PaintAll);
    CRect const body(0, kHeaderHeight, kWidth, kHeight);
    struct
    {
        unsigned int bit;
        CRect place; ///< where the element is
    } const cases[] = {{PaintText, Cells(0, kRows - 1, 0, 240)},
                       {PaintImage, Cells(0, kRows - 1, 100, 160)},
                       {PaintColumnImage, CRect(100, 0, 160, kHeaderHeight)},
                       {PaintBackground, body},
                       {PaintSelection, Cells(2, 3)},
                       {PaintSelectionFrame, Cells(2, 3)},
                       {PaintSortedColumn, CRect(160, kHeaderHeight, 240, kHeight)},
                       {PaintMouseSelection, CRect(20, 120, 80, 150)},
                       {PaintFocusedRow, Cells(3, 3)},
                       {PaintFocusFrame, Cells(3, 3)},
                       {PaintHighlight, Cells(1, 1, 100, 160)},
                       {PaintDropPosition, CRect(0, Scene::RowTop(kRows) - 1, kWidth, Scene::RowTop(kRows) + 1)},
                       {PaintDropParentPosition, Cells(0, 0, 0, 100)},
                       {PaintHierarchy, Cells(0, kRows - 1, 0, 100)},
                       {PaintExpandButton, Cells(0, 0, 3, 14)},
                       {PaintTreeLines, Cells(1, 1, 8, 31)},
                       {PaintHorizontalLines, body},
                       {PaintVerticalLines, body},
                       {PaintControls, CRect()}};
    unsigned int all = 0;
    for (auto const& test : cases)
    {
        all |= test.bit;
        Surface const without = page.Paint(PaintAll & ~test.bit);
        CRect changed;
        for (int y = 0; y < kHeight; ++y)
        {
            for (int x = 0; x < kWidth; ++x)
            {
                if (without.ColorAt(x, y) != full.ColorAt(x, y))
                {
                    changed |= CRect(x, y, x + 1, y + 1);
                    bool const isRowEnd = (y - kHeaderHeight) % kRowHeight == kRowHeight - 1;
                    EXPECT_TRUE(test.bit != PaintHorizontalLines || isRowEnd) << y;
                    EXPECT_TRUE(test.bit != PaintVerticalLines || x == 99 || x == 159 || x == 239) << x;
                }
            }
        }
        EXPECT_EQ(changed & test.place, changed) << "bit " << test.bit;
        EXPECT_EQ(changed.IsRectEmpty(), test.place.IsRectEmpty()) << "bit " << test.bit;
    }
    EXPECT_EQ(all, PaintAll);
    Platform::Clock::SetRunning();
}
