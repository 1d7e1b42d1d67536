// The order of a sorted grid stands still while the user holds the button down or scrolls.
#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class OrderFreezeTest : public GridTest
{
protected:
    void SetUp() override
    {
        int price = 0;
        for (char const* const name : {"a", "b", "c"})
        {
            grid.Add({.name = name, .price = static_cast<double>(++price)});
        }
        SortByPrice();
        Grid().SetOrderFreeze(true);
        Grid().SetCalmView(true); // the focus follows its row
        driver.RunUntilIdle();
    }
    std::string RowsAfter(std::string_view name, double price)
    {
        grid.Object(name).SetPrice(price);
        driver.RunUntilIdle();
        return grid.RowsText();
    }
};

TEST_F(OrderFreezeTest, RowsWaitForTheButton)
{
    driver.Press(Grid(), grid.RowPoint("b"));
    EXPECT_EQ(RowsAfter("a", 9), "rows=a,b,c");
    EXPECT_EQ(RowsAfter("c", 0), "rows=a,b,c");
    EXPECT_EQ(RowsAfter("c", 1), "rows=a,b,c");
    EXPECT_EQ(grid.CellText("a", "Price"), grid.Object("a").GetFormattedStlString(kPrice, nullptr));
    grid.Add({.name = "d", .price = 2.5});
    Told();
    driver.Release();
    EXPECT_EQ(grid.RowsText(), "rows=c,b,d,a");
    EXPECT_EQ(Told(), "ItemMoved a; ItemMoved c") << "each once, in the order of their updates";
    EXPECT_EQ(RowsAfter("b", 10), "rows=c,d,a,b");
}

TEST_F(OrderFreezeTest, RowsWaitForTheEndOfScrolling)
{
    grid.Wheel(-1);
    EXPECT_EQ(RowsAfter("a", 9), "rows=a,b,c");
    driver.Advance(300);
    grid.Wheel(-1);
    driver.Advance(300);
    EXPECT_EQ(grid.RowsText(), "rows=a,b,c");
    driver.Advance(200);
    EXPECT_EQ(grid.RowsText(), "rows=b,c,a");
    Grid().SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 0));
    driver.Advance(5000);
    EXPECT_EQ(RowsAfter("b", 20), "rows=b,c,a") << "a thumb that is held still";
    Grid().SendMessage(WM_VSCROLL, SB_ENDSCROLL);
    driver.Advance(1000);
    EXPECT_EQ(grid.RowsText(), "rows=c,a,b");
}

} // namespace
} // namespace Ostrel::Testing
