// What the parent window hears beside the changes of rows, and what it may do meanwhile.
#include <ostrel/common/dataobject/FieldMapBuilder.h>
#include <ostrel/common/value/Value.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

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
    SortByPrice();
    header.Remove(kPrice);
    EXPECT_EQ(Told(), "HeaderColumnResized Price; HeaderColumnChanged Price; HeaderColumnMoved Quantity; SortUpdated; "
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

/// An object that tells of its end as late as it can: what this class adds has gone by then.
class PlainObject : public Common::CDataObject
{
public:
    std::string GetName() const { return "plain"; }
    Common::CFieldMap const* GetFieldMap() const override
    {
        static auto const map =
            Common::CFieldMapBuilder<PlainObject>().Field(1, "Name", &PlainObject::GetName, nullptr).Build();
        return map.get();
    }
};

TEST_F(NotificationsTest, AHandlerMayLookAtTheRowOfADyingObject)
{
    auto object = std::make_unique<PlainObject>();
    CGridItem* const item = Grid().Add(object.get(), FixedRoot, LastPosition);
    Grid().SetFocusedRow(0, FixedContext);
    Told();
    std::string seen;
    grid.Notifications().onNotification = [&](std::string const&)
    {
        seen += Grid().GetFormattedStlString(item, TestObject::Name) + '.';
        EXPECT_FALSE(Grid().SetValue(item, TestObject::Name, Common::CValue()));
        Grid().GetOptimalColumnWidth(AllContexts, TestObject::Name);
        Grid().UpdateFilter();
        SortByPrice();
        driver.RunUntilIdle();
    };
    object.reset();
    EXPECT_EQ(Told(), "FocusChanged plain lost; SortUpdated; ItemDeleting plain");
    EXPECT_EQ(seen, "...");
}

TEST_F(NotificationsTest, AHandlerMayTakeTheHeaderAway)
{
    std::unique_ptr<CHeader> taken;
    grid.Notifications().onNotification = [&](std::string const&)
    {
        if (taken == nullptr)
        {
            taken.reset(Grid().SetHeader(nullptr));
        }
    };
    grid.Header().SetFont(nullptr);
    EXPECT_EQ(taken->GetHeaderHeight(), 20) << "no longer measured by the grid";
}
} // namespace
} // namespace Ostrel::Testing
