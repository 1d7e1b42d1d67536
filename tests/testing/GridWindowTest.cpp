// The window made for tests: columns from a line of text, rows from test objects, notifications as lines.
#include <optional>

#include <gtest/gtest.h>

#include <ostrel/testing/GridWindow.h>

namespace Ostrel::Testing
{
namespace
{

TEST(GridWindowTest, ColumnsAreMadeFromALineAndReadBack)
{
    Driver driver;
    GridWindow grid(driver, {.title = "stock", .columns = "Name:100| Price:70 ,Note"});
    EXPECT_EQ(grid.ColumnsText(), "Name:100|Price:70,Note:80");
    EXPECT_EQ(&driver.Window("stock"), &grid.Frame());
    TestObject sample;
    for (char const* const wrong : {"Weight:10", "Name:wide", "Name:5,Name:6"})
    {
        EXPECT_THROW(static_cast<void>(MakeHeader(wrong, sample)), DriverError) << wrong;
    }
}

TEST(GridWindowTest, FixedRowsStandFirst)
{
    Driver driver;
    GridWindow grid(driver);
    grid.AddRows({"red"});
    grid.AddFixed({.name = "sum"});
    grid.ClickRow("sum");
    EXPECT_EQ(grid.State(), "fixed=sum rows=red selected=sum focus=sum first=0 sort=-");
    EXPECT_EQ(grid.RowsOnScreen(), (std::vector<std::string>{"sum", "red"}));
}

TEST(GridWindowTest, NotificationsAreLines)
{
    Driver driver;
    GridWindow grid(driver);
    auto const take = [&]
    {
        std::string const text = grid.Notifications().Text();
        grid.Notifications().Clear();
        return text;
    };
    grid.AddRows({"red", "green"});
    EXPECT_EQ(take(), "ItemShown red; ItemAdded red; ItemShown green; ItemAdded green");
    grid.ClickRow("red");
    EXPECT_EQ(take(), "SelectionChanged red selected; FocusChanged red gained");
    grid.Object("green").SetPrice(4);
    driver.RunUntilIdle();
    EXPECT_EQ(take(), "ItemUpdated green");
    grid.DragCaptionEdge("Name", 10);
    EXPECT_NE(take().find("HeaderColumnResized Name"), std::string::npos);
    grid.Destroy("green");
    EXPECT_NE(take().find("ItemDeleting green"), std::string::npos);
    EXPECT_EQ(grid.RowsText(), "rows=red");
}

TEST(GridWindowTest, AnObjectIsNotCalledByTheNameOfOneThatLayInItsPlace)
{
    Driver driver;
    GridWindow from(driver, {.title = "From"});
    GridWindow to(driver, {.title = "To"});
    TestObject parent({.name = "parent"});
    std::optional<TestObject> place;
    place.emplace(TestRow{.name = "old"});
    to.Grid().Add(&*place, GUI::ScrollableRoot, GUI::LastPosition);
    place.reset();
    place.emplace(TestRow{.name = "new"});
    GUI::CGridItem* const item = from.Grid().Add(&parent, GUI::ScrollableRoot, GUI::LastPosition);
    from.Grid().Add(&*place, item, GUI::LastPosition);
    from.Grid().Detach(item);
    to.Grid().Attach(item, GUI::ScrollableRoot, GUI::LastPosition);
    to.Notifications().Clear();
    to.Grid().Delete(item);
    EXPECT_EQ(to.Notifications().Text(), "ItemDeleting new; ItemDeleting parent");
}

TEST(GridWindowTest, ATestMayActInsideANotification)
{
    Driver driver;
    GridWindow grid(driver);
    grid.AddRows({"red", "green"});
    grid.Notifications().onNotification = [&](std::string const& line)
    {
        if (line == "SelectionChanged red selected")
        {
            grid.Grid().Delete(&grid.Object("red"));
        }
    };
    grid.ClickRow("red");
    EXPECT_EQ(grid.RowsText(), "rows=green");
}

} // namespace
} // namespace Ostrel::Testing
