// Dragging a caption moves its column.
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class HeaderDragTest : public testing::Test
{
protected:
    void SetUp() override
    {
        grid.AddRows({"a", "b"});
        driver.RunUntilIdle();
    }

    CPoint At(int x) { return {x, grid.CaptionPoint("Name").y}; }
    std::string Order() { return grid.ColumnsText(); }
    /// Where the mark of the drop is painted in the header, -1 for nowhere.
    int MarkX()
    {
        driver.RunUntilIdle();
        for (int x = 0; x < 390; ++x)
        {
            if (driver.ColorAt(grid.Grid(), At(x)) == GetSysColor(COLOR_HIGHLIGHT))
            {
                return x;
            }
        }
        return -1;
    }

    Driver driver;
    GridWindow grid{driver, {.columns = "Name:100|Price:80,Quantity:60,Volume:50"}};
};

TEST_F(HeaderDragTest, TheColumnGoesToTheMark)
{
    struct Case
    {
        int from;
        int to;
        char const* order;
    };
    // Name 0-100 (fixed), Price 100-180, Quantity 180-240, Volume 240-290
    constexpr Case kCases[] = {
        {140, 210, "Name:100|Quantity:60,Price:80,Volume:50"}, // onto a caption to the right: takes its place
        {265, 140, "Name:100|Volume:50,Price:80,Quantity:60"}, // and to the left
        {140, 245, "Name:100|Quantity:60,Price:80,Volume:50"}, // onto an edge: between the two
        {265, 235, "Name:100|Price:80,Quantity:60,Volume:50"}, // onto its own edge: nothing
        {140, 380, "Name:100|Quantity:60,Volume:50,Price:80"}, // behind all
        {265, 2, "Volume:50|Name:100,Price:80,Quantity:60"},   // before all: there is one fixed column still
        {50, 120, "Price:80|Name:100,Quantity:60,Volume:50"},
        {140, 142, "Name:100|Price:80,Quantity:60,Volume:50"}, // less than a drag, so it sorts
    };
    for (Case const& each : kCases)
    {
        GridWindow fresh(driver, {.title = "Fresh", .columns = "Name:100|Price:80,Quantity:60,Volume:50"});
        driver.Drag(fresh.Grid(), At(each.from), At(each.to));
        EXPECT_EQ(fresh.ColumnsText(), each.order) << each.from << " to " << each.to;
        EXPECT_EQ(fresh.Grid().GetSortLevels(), each.to == 142 ? 1 : 0) << each.from << " to " << each.to;
    }
}

TEST_F(HeaderDragTest, TheMarkShowsThePlaceUntilTheEnd)
{
    driver.Press(grid.Grid(), At(140));
    driver.MovePointer(grid.Grid(), At(142));
    EXPECT_EQ(MarkX(), -1) << "not before the threshold";
    driver.MovePointer(grid.Grid(), At(210));
    EXPECT_NEAR(MarkX(), 240, 2);
    driver.MovePointer(grid.Grid(), At(150));
    EXPECT_EQ(MarkX(), -1) << "its own place";
    driver.MovePointer(grid.Grid(), At(185));
    EXPECT_EQ(MarkX(), -1) << "the gap beside it";
    driver.MovePointer(grid.Grid(), At(5));
    EXPECT_NEAR(MarkX(), 0, 2);
    driver.MovePointer(grid.Grid(), {210, 200});
    EXPECT_EQ(MarkX(), -1) << "far from the header";
    driver.Release();
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
}

TEST_F(HeaderDragTest, EscCancels)
{
    driver.Drag(grid.Grid(), At(140), At(265), Modifier::None, Driver::DragEnd::Escape);
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
    EXPECT_EQ(MarkX(), -1);
    EXPECT_EQ(grid.Grid().GetSortLevels(), 0);
}

TEST_F(HeaderDragTest, ThePermissionsOfTheHeaderHold)
{
    grid.Header().AllowFixedColumnMove(false);
    driver.Drag(grid.Grid(), At(50), At(210));
    driver.Drag(grid.Grid(), At(210), At(50));
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
    grid.Header().AllowScrollableColumnMove(false);
    driver.Drag(grid.Grid(), At(140), At(265));
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
    EXPECT_EQ(grid.Grid().GetSortLevels(), 0) << "a drag is no click";
}

TEST_F(HeaderDragTest, AtTheEdgesOfTheWindowTheColumnsScroll)
{
    grid.Header().GetColumnByFid(TestObject::Quantity)->SetWidth(400); // Quantity 180-580, Volume 580-630
    driver.Advance(20);
    driver.Press(grid.Grid(), At(140));
    driver.MovePointer(grid.Grid(), At(450)); // outside
    driver.Advance(5000);
    int const scrolled = grid.Grid().GetScrollPos(SB_HORZ);
    EXPECT_EQ(grid.Header().GetVisibleRect(grid.Grid(), TestObject::Volume).right, 630 - scrolled);
    EXPECT_GE(scrolled, 630 - 400) << "to the end";
    driver.MovePointer(grid.Grid(), {450, 200});
    driver.MovePointer(grid.Grid(), At(200));
    driver.Advance(1000);
    EXPECT_EQ(grid.Grid().GetScrollPos(SB_HORZ), scrolled) << "only at the edge";
    driver.MovePointer(grid.Grid(), At(2));
    driver.Advance(60);
    EXPECT_LT(grid.Grid().GetScrollPos(SB_HORZ), scrolled);
    driver.Advance(5000);
    EXPECT_EQ(grid.Grid().GetScrollPos(SB_HORZ), 0);
    driver.MovePointer(grid.Grid(), At(399));
    driver.Advance(5000);
    driver.Release();
    EXPECT_EQ(Order(), "Name:100|Quantity:400,Volume:50,Price:80");
    driver.Advance(1000);
    EXPECT_EQ(grid.Grid().GetScrollPos(SB_HORZ), scrolled) << "not after the end";
}

TEST_F(HeaderDragTest, TheEdgeResizesAtOnceAndTakesItBack)
{
    driver.Press(grid.Grid(), At(179));
    driver.MovePointer(grid.Grid(), At(199));
    EXPECT_EQ(Order(), "Name:100|Price:100,Quantity:60,Volume:50");
    driver.MovePointer(grid.Grid(), {20, 200});
    EXPECT_EQ(Order(), "Name:100|Price:8,Quantity:60,Volume:50") << "never to nothing";
    EXPECT_EQ(driver.Cursor(), CursorShape::SizeWE) << "until the release";
    driver.PressKey(Key::Escape);
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
    driver.MovePointer(grid.Grid(), At(250));
    driver.Release();
    EXPECT_EQ(Order(), "Name:100|Price:80,Quantity:60,Volume:50");
}

TEST_F(HeaderDragTest, ADoubleClickOnTheEdgeFitsTheColumn)
{
    grid.AddRows({"a name that is much wider than the column of names"});
    driver.RunUntilIdle();
    driver.DoubleClick(grid.Grid(), At(101));
    int const width = grid.Header().GetColumnByFid(TestObject::Name)->GetWidth();
    EXPECT_GT(width, 150);
    EXPECT_EQ(grid.Grid().GetSortLevels(), 0);
    grid.Header().AllowColumnResize(false);
    grid.Header().GetColumnByFid(TestObject::Name)->SetWidth(100);
    driver.DoubleClick(grid.Grid(), At(101));
    EXPECT_EQ(grid.Header().GetColumnByFid(TestObject::Name)->GetWidth(), 100);
}

TEST_F(HeaderDragTest, AColumnThatGoesMeanwhileIsNotMoved)
{
    driver.Press(grid.Grid(), At(140));
    driver.MovePointer(grid.Grid(), At(265));
    grid.Header().Remove(TestObject::Volume);
    driver.RunUntilIdle();
    driver.MovePointer(grid.Grid(), At(210));
    grid.Header().Remove(TestObject::Price);
    driver.MovePointer(grid.Grid(), At(215));
    driver.Release();
    EXPECT_EQ(Order(), "Name:100|Quantity:60");
}
} // namespace
} // namespace Ostrel::Testing
