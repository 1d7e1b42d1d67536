// What the parent window hears, in which order, and what it does not hear.
#include <ostrel/gui/grid/IGridFilter.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class QuantityFilter : public IGridFilter
{
public:
    bool AutoDelete() const override { return false; }
    bool IsFiltered(CGrid*, CGridItem*, Common::CDataObject* object) override
    {
        return object->GetLong(TestObject::Quantity) < minimum;
    }

    long minimum = 0;
};

class NotificationsTest : public GridTest
{
protected:
    void SetUp() override
    {
        grid.Add({.name = "metals"});
        grid.AddChild("metals", {.name = "iron"});
        grid.Grid().Expand(Item("metals"), false);
        grid.AddChild("metals", {.name = "gold"});
        grid.Add({.name = "woods"});
        Told();
    }
};

TEST_F(NotificationsTest, AddingTellsOfVisibleRowsOnlyThatTheyAreShown)
{
    grid.Add({.name = "stones"});
    EXPECT_EQ(Told(), "ItemShown stones; ItemAdded stones");
    Common::CDataObject& granite = grid.AddChild("stones", {.name = "granite"});
    EXPECT_EQ(Told(), "ItemAdded granite") << "below a collapsed row";
    EXPECT_FALSE(Grid().IsVisible(&granite));
    Grid().Expand(Item("stones"), false);
    EXPECT_EQ(Told(), "ItemExpanded stones expanded; ItemShown granite");
    Grid().Expand(Item("stones"), false);
    EXPECT_EQ(Told(), "") << "expanded already";
}

TEST_F(NotificationsTest, DeletingGoesFromTheLastChildToTheParent)
{
    Grid().Delete(Item("metals"));
    EXPECT_EQ(Told(), "ItemDeleting gold; ItemDeleting iron; ItemDeleting metals");
    EXPECT_EQ(grid.RowsText(), "rows=woods");
    Grid().DeleteAll(AllContexts);
    EXPECT_EQ(Told(), "ItemDeleting woods");
}

TEST_F(NotificationsTest, TheFocusIsLostBeforeARowIsDeleted)
{
    Grid().SetFocusedRow(3, ScrollableContext);
    EXPECT_EQ(Told(), "FocusChanged woods gained");
    Grid().Delete(Item("iron"));
    EXPECT_EQ(Told(), "FocusChanged woods lost; ItemDeleting iron");
}

TEST_F(NotificationsTest, DetachingAndAttachingTellOfTheSubtreeOnce)
{
    CGridItem* const metals = Item("metals");
    ASSERT_TRUE(Grid().Detach(metals));
    EXPECT_EQ(Told(), "ItemDetaching metals");
    EXPECT_EQ(grid.RowsText(), "rows=woods");
    ASSERT_TRUE(Grid().Attach(metals, FixedRoot, LastPosition));
    std::string const told = Told();
    EXPECT_EQ(told.substr(told.rfind("; ")), "; ItemAttached metals");
    EXPECT_EQ(grid.RowsText(), "fixed=metals,>iron,>gold rows=woods") << "expanded as before";
}

TEST_F(NotificationsTest, AnUpdateTellsOfAMoveThenOfItself)
{
    grid.Object("iron").SetPrice(2);
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemUpdated iron");
    SortByPrice();
    EXPECT_EQ(Told(), "SortUpdated");
    grid.Object("gold").SetPrice(2); // now beside iron, equal: stays
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemUpdated gold");
    grid.Object("gold").SetPrice(3);
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemMoved gold; ItemUpdated gold");
    EXPECT_EQ(grid.RowsText(), "rows=metals,>iron,>gold,woods");
}

TEST_F(NotificationsTest, FilteringTellsOfEachRowThatChangesSides)
{
    QuantityFilter filter;
    Grid().SetFilter(&filter);
    EXPECT_EQ(Told(), "");
    filter.minimum = 1;
    grid.Object("woods").NotifyUpdate(kQuantity);
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemFiltered woods hidden; ItemUpdated woods");
    Grid().UpdateFilter();
    EXPECT_EQ(Told(), "ItemFiltered metals hidden");
    EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 0U);
    EXPECT_EQ(Grid().GetChildren(ScrollableRoot, false).size(), 2U) << "hidden rows stay in the tree";
    EXPECT_EQ(Grid().SetFilter(nullptr), &filter);
    EXPECT_EQ(grid.RowsText(), "rows=metals,>iron,>gold,woods");
}

TEST_F(NotificationsTest, SilenceIsKept)
{
    Grid().AllowNotifications(false);
    grid.Add({.name = "stones"});
    Grid().SelectAll();
    Grid().SetFocusedRow(0, ScrollableContext);
    grid.Header().GetColumnByFid(kPrice)->SetWidth(33);
    SortByPrice();
    Grid().DeleteAll(AllContexts);
    EXPECT_EQ(Told(), "");
}

TEST_F(NotificationsTest, HeaderEventsBecomeNotifications)
{
    CHeader& header = grid.Header();
    header.GetColumnByFid(kPrice)->SetWidth(33);
    header.HideColumn(kPrice);
    header.MoveBefore(kQuantity, TestObject::Name);
    header.Remove(kPrice);
    EXPECT_EQ(Told(), "HeaderColumnResized Price; HeaderColumnChanged Price; HeaderColumnMoved Quantity; "
                      "HeaderColumnRemoved Price");
}

TEST_F(NotificationsTest, AHandlerMayDeleteTheRowItHearsOf)
{
    grid.Notifications().onNotification = [&](std::string const& line)
    {
        if (line == "ItemAdded stones" || line == "ItemUpdated woods" || line == "ItemDeleting iron")
        {
            grid.Notifications().onNotification = nullptr;
            Grid().Delete(Item(line.substr(line.find(' ') + 1)));
        }
    };
    auto const again = grid.Notifications().onNotification;
    TestObject stones({.name = "stones"});
    EXPECT_EQ(Grid().Add(&stones, ScrollableRoot, LastPosition), nullptr) << "gone when Add returns";
    grid.Notifications().onNotification = again;
    grid.Object("woods").SetPrice(1);
    driver.RunUntilIdle();
    grid.Notifications().onNotification = again;
    EXPECT_TRUE(Grid().Delete(Item("metals")));
    EXPECT_EQ(grid.RowsText(), "rows=-");
}
} // namespace
} // namespace Ostrel::Testing
