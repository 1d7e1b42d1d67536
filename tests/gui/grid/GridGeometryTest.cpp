#include <gtest/gtest.h>

#include <ostrel/gui/grid/detail/GridGeometry.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// 100 pixels high: header 20, two fixed rows of 10, separator 2, which leaves 58 for rows of 14: four whole ones.
GridGeometry Sample(int scrollableRows, int firstRow)
{
    return {.client = {200, 100},
            .headerHeight = 20,
            .separatorHeight = 2,
            .fixedRows = 2,
            .fixedRowHeight = 10,
            .scrollableRows = scrollableRows,
            .scrollableRowHeight = 14,
            .firstRow = firstRow};
}

TEST(GridGeometryTest, BandsLieBelowEachOther)
{
    GridGeometry geometry = Sample(10, 0);
    EXPECT_EQ(geometry.FixedRect(), CRect(0, 20, 200, 40));
    EXPECT_EQ(geometry.ScrollableRect(), CRect(0, 42, 200, 100));
    geometry.fixedRows = 0;
    EXPECT_EQ(geometry.ScrollableRect(), CRect(0, 20, 200, 100)) << "no separator without fixed rows";
    geometry.fixedRows = 50;
    EXPECT_EQ(geometry.FixedRect(), CRect(0, 20, 200, 100)) << "cut at the client's edge";
    EXPECT_TRUE(geometry.ScrollableRect().IsRectEmpty());
    EXPECT_EQ(geometry.ScrollableRowRect(0), CRect(0, 522, 200, 536)) << "below the window";
    EXPECT_EQ(geometry.FittingRows(), 0);
}

TEST(GridGeometryTest, RowsUnderPoints)
{
    GridGeometry const geometry = Sample(6, 3);
    struct Case
    {
        int y;
        int fixedRow;
        int scrollableRow;
    };
    for (Case const each : {Case{0, -1, -1}, Case{20, 0, -1}, Case{39, 1, -1}, Case{40, -1, -1}, Case{42, -1, 3},
                            Case{83, -1, 5}, Case{84, -1, -1}, Case{-5, -1, -1}, Case{1000, -1, -1}})
    {
        EXPECT_EQ(geometry.FixedRowAt(each.y), each.fixedRow) << "y " << each.y;
        EXPECT_EQ(geometry.ScrollableRowAt(each.y), each.scrollableRow) << "y " << each.y;
    }
}

TEST(GridGeometryTest, FarRowsStayInRange)
{
    GridGeometry const geometry = Sample(2'000'000'000, 0);
    EXPECT_GT(geometry.ScrollableRowRect(1'999'999'999).top, geometry.client.cy);
    EXPECT_EQ(geometry.ShownScrollableRows().last, 4);
}
} // namespace
} // namespace Ostrel::GUI::Detail
