// A real grid does what the driver's actions say, and shows what the driver reads.
#include <gtest/gtest.h>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/testing/GridWindow.h>
#include <ostrel/testing/PaintRecorder.h>

namespace Ostrel::Testing
{
namespace
{

class GridDriverTest : public testing::Test
{
protected:
    Driver driver;
    GridWindow grid{driver};
};

/// What a DriverError says; empty when none is thrown.
template <class Action>
std::string ErrorOf(Action const& action)
{
    try
    {
        action();
    }
    catch (DriverError const& error)
    {
        return error.what();
    }
    return "";
}

TEST_F(GridDriverTest, CellsCaptionsAndEdgesAreReached)
{
    grid.AddRows({"red", "green", "blue"});
    grid.ClickCell("green", "Price");
    EXPECT_EQ(grid.SelectionText(), "selected=green focus=green");
    grid.TypeText("bl");
    EXPECT_EQ(grid.SelectionText(), "selected=blue focus=blue");
    grid.DragCaptionEdge("Price", 30);
    grid.DragCaption("Quantity", "Name");
    EXPECT_EQ(grid.ColumnsText(), "Quantity:60,Name:100,Price:110");
    EXPECT_EQ(grid.SortText(), "sort=-");
}

TEST_F(GridDriverTest, WheelAndScrollBarScroll)
{
    grid.AddMany(200);
    driver.RunUntilIdle();
    int const page = grid.Grid().GetLinesPerPage(true);
    ASSERT_GT(page, 4);
    struct Case
    {
        int expectedFirst;
        std::function<void()> act;
    };
    using enum GridDriver::ScrollBarPart;
    Case const cases[] = {
        {6, [&] { grid.Wheel(-2); }},
        {3, [&] { grid.Wheel(1); }},
        {4, [&] { grid.ClickScrollBar(LineDown); }},
        {3, [&] { grid.ClickScrollBar(LineUp); }},
        {3 + page - 1, [&] { grid.ClickScrollBar(PageDown); }},
        {3, [&] { grid.ClickScrollBar(PageUp); }},
        {200 - page, [&] { grid.DragThumb(1000); }},
        {0, [&] { grid.DragThumb(-1000); }},
    };
    for (Case const& each : cases)
    {
        each.act();
        EXPECT_EQ(grid.Grid().GetFirstVisibleRow(), each.expectedFirst);
    }
    EXPECT_NE(ErrorOf([&] { grid.ClickRow("row150"); }).find("not on the screen; first=0"), std::string::npos);
    grid.ScrollTo("row150");
    grid.ClickRow("row150");
    EXPECT_EQ(grid.SelectionText(), "selected=row150 focus=row150");
    EXPECT_GE(grid.RowsOnScreen().size(), static_cast<std::size_t>(page));
}

TEST_F(GridDriverTest, CellsAreReadAndWaitedFor)
{
    TestObject& red = grid.Add({.name = "red", .price = 2.5, .quantity = 7});
    EXPECT_EQ(grid.CellText("red", "Quantity"), "7");
    EXPECT_EQ(grid.RowText("red"), "red | " + grid.CellText("red", "Price") + " | 7");
    red.SetQuantity(8);
    grid.WaitUntilCell("red", "Quantity", "8");
    EXPECT_NE(ErrorOf([&] { grid.WaitUntilState("rows=blue", 20); }).find("the grid is: rows=red"), std::string::npos);
}

TEST_F(GridDriverTest, WhatIsNotThereIsNamed)
{
    grid.AddRows({"red", "green"});
    EXPECT_EQ(ErrorOf([&] { grid.ClickRow("blue"); }), "no row \"blue\"; there are: rows=red,green");
    EXPECT_EQ(ErrorOf([&] { grid.ClickCaption("Weight"); }),
              "no column \"Weight\"; there are: Name:100,Price:80,Quantity:60");
    grid.Header().HideColumn(TestObject::Price);
    EXPECT_EQ(ErrorOf([&] { grid.ClickCaption("Price"); }), "the caption \"Price\" is not on the screen");
    grid.SetKeyColumn("Quantity");
    EXPECT_EQ(grid.RowsText(), "rows=0,0");
}

TEST_F(GridDriverTest, ColoursTellTheSelection)
{
    grid.AddRows({"red", "green"});
    auto const plain = grid.CellColors("red", "Name");
    EXPECT_NE(plain.back, plain.text);
    EXPECT_EQ(grid.CellColors("red", "Price").back, plain.back);
    grid.ClickRow("red");
    EXPECT_NE(grid.CellColors("red", "Name").back, plain.back);
    EXPECT_EQ(grid.CellColors("green", "Name").back, plain.back);
}

TEST_F(GridDriverTest, PaintIsCounted)
{
    grid.AddRows({"red", "green", "blue"});
    PaintRecorder recorder(grid);
    grid.Object("green").SetPrice(3);
    driver.RunUntilIdle();
    EXPECT_EQ(recorder.CellsText(), "green.Price");
    EXPECT_EQ(recorder.HeaderCount(), 0);
    recorder.Clear();
    grid.Grid().Invalidate();
    driver.RunUntilIdle();
    EXPECT_EQ(recorder.Cells().size(), 9U);
    EXPECT_EQ(recorder.LineCount(), 3);
    EXPECT_EQ(recorder.HeaderCount(), 1);
}

} // namespace
} // namespace Ostrel::Testing
