// The window made for tests: columns from a line of text, and names of rows that are gone.
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

} // namespace
} // namespace Ostrel::Testing
