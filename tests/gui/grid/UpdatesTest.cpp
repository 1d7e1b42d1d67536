#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class UpdatesTest : public GridTest
{
protected:
    void SetUp() override
    {
        grid.AddMany(100);
        driver.RunUntilIdle();
        Told();
    }

    /// What waits to be painted, empty for nothing.
    CRect Invalid()
    {
        CRect rect;
        Grid().GetUpdateRect(&rect);
        return rect;
    }
    /// Delivers what was posted, and paints nothing.
    void DeliverOnly()
    {
        MSG message;
        while (PeekMessage(&message, nullptr, WM_USER, 0xFFFF, PM_REMOVE) != FALSE)
        {
            DispatchMessage(&message);
        }
    }
};

TEST_F(UpdatesTest, OnlyTheCellIsRepainted)
{
    grid.Object("row3").SetPrice(1);
    DeliverOnly();
    EXPECT_EQ(Invalid(), Grid().GetCellVisibleRect(Item("row3"), kPrice));
    driver.RunUntilIdle();
    grid.Object("row3").NotifyUpdate(-1);
    DeliverOnly();
    EXPECT_EQ(Invalid(), Grid().GetLineVisibleRect(Item("row3")));
}

TEST_F(UpdatesTest, RowsOffTheScreenAndFieldsWithoutAColumnRepaintNothing)
{
    grid.Object("row99").SetPrice(1);
    grid.Object("row3").SetVolume(1);
    DeliverOnly();
    EXPECT_TRUE(Invalid().IsRectEmpty());
    EXPECT_EQ(Told(), "ItemUpdated row99; ItemUpdated row3");
}

TEST_F(UpdatesTest, AMoveRepaintsTheRowsBetween)
{
    SortByPrice();
    driver.RunUntilIdle();
    grid.Object("row5").SetPrice(-1);
    DeliverOnly();
    CRect const expected = Grid().GetLineVisibleRect(Grid().GetItem(0, ScrollableContext)) |
                           Grid().GetLineVisibleRect(Grid().GetItem(5, ScrollableContext));
    EXPECT_EQ(Invalid(), expected);
}

TEST_F(UpdatesTest, ElapsedTimesOfCellsAndRows)
{
    CGridItem* const item = Item("row3");
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, kPrice), -1);
    driver.Advance(50);
    grid.Object("row3").SetPrice(1);
    driver.RunUntilIdle();
    driver.Advance(30);
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, kPrice), 30);
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, kQuantity), -1);
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, -1), -1);
    Grid().UpdateRow(3, ScrollableContext, -1);
    driver.Advance(5);
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, kQuantity), 5) << "the row's";
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, kPrice), 35) << "its own";
    Grid().UpdateItem(item, -2);
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(item, -2), 5) << "an update without a field leaves no time";
}

TEST_F(UpdatesTest, DelayedRepaintsComeInTimeAndNotBefore)
{
    struct Case
    {
        int delayMs;
        int dueMs;
    };
    for (Case const each : {Case{300, 300}, Case{5, 10}})
    {
        int paints = 0;
        CGridItem* const item = Item("row3");
        CRect const cell = Grid().GetCellVisibleRect(item, kPrice);
        Grid().InvalidateCell(item, kPrice, each.delayMs);
        EXPECT_TRUE(Invalid().IsRectEmpty());
        Platform::Clock::Advance(each.dueMs - 1);
        MSG message;
        paints += PeekMessage(&message, Grid().GetSafeHwnd(), WM_TIMER, WM_TIMER, PM_REMOVE) != FALSE ? 1 : 0;
        EXPECT_EQ(paints, 0) << "due after " << each.dueMs;
        Platform::Clock::Advance(1);
        ASSERT_TRUE(PeekMessage(&message, Grid().GetSafeHwnd(), WM_TIMER, WM_TIMER, PM_REMOVE));
        DispatchMessage(&message);
        EXPECT_EQ(Invalid(), cell);
        driver.RunUntilIdle();
    }
}

TEST_F(UpdatesTest, RowsOffTheScreenKeepTheirDeadline)
{
    CGridItem* const item = Item("row80");
    Grid().InvalidateCell(item, kPrice, 20);
    driver.Advance(100);
    Grid().SetFirstVisibleItem(item);
    driver.RunUntilIdle();
    Grid().InvalidateRow(Item("row81"), 20);
    Platform::Clock::Advance(20);
    MSG message;
    ASSERT_TRUE(PeekMessage(&message, Grid().GetSafeHwnd(), WM_TIMER, WM_TIMER, PM_REMOVE));
    DispatchMessage(&message);
    EXPECT_EQ(Invalid().top, Grid().GetCellVisibleRect(item, kPrice).top) << "its own, now that it can be seen";
}

TEST_F(UpdatesTest, OneNotificationReachesEveryRowOfTheObjectOnce)
{
    TestObject& object = grid.Object("row3");
    GridWindow other(driver, {.title = "Other"});
    other.Grid().Add(&object, ScrollableRoot, LastPosition);
    Grid().Add(&object, FixedRoot, LastPosition);
    driver.RunUntilIdle();
    Told();
    other.Notifications().Clear();
    object.SetPrice(4);
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemUpdated row3; ItemUpdated row3");
    EXPECT_EQ(other.Notifications().Text(), "ItemUpdated row3");
    object.NotifyUpdate(std::set<long>{kPrice, kQuantity});
    Grid().UpdateDataObject(&object, kPrice);
    driver.RunUntilIdle();
    EXPECT_EQ(other.Notifications().Text(), "ItemUpdated row3; ItemUpdated row3; ItemUpdated row3; ItemUpdated row3");
    other.Grid().DeleteAll(AllContexts);
}
// Updates are prepared in groups before the first of them is applied: what it changes must count for the others.
TEST_F(UpdatesTest, RowsThatComeAndGoBetweenUpdatesThatWait)
{
    TestObject& again = grid.Object("row10");
    CGridItem* const gone = Item("row20");
    for (int i = 0; i < 40; ++i)
    {
        grid.Object("row" + std::to_string(i)).NotifyUpdate(kPrice);
    }
    grid.Notifications().onNotification = [&](std::string const& line)
    {
        if (line == "ItemUpdated row0")
        {
            Grid().Add(&again, ScrollableRoot, LastPosition);
            Grid().Delete(gone);
        }
    };
    driver.RunUntilIdle();
    std::string expected = "ItemUpdated row0; ItemShown row10; ItemAdded row10; ItemDeleting row20";
    for (int i = 1; i < 40; ++i)
    {
        expected += i == 20 ? "" : "; ItemUpdated row" + std::to_string(i);
        expected += i == 10 ? "; ItemUpdated row10" : "";
    }
    EXPECT_EQ(Told(), expected);
}

// Small identifiers of fields travel another way than large ones.
TEST_F(UpdatesTest, EveryFieldIdentifierArrives)
{
    for (long const fieldId : {-40000L, -32768L, -3L, 0L, 32767L, 32768L, 0x7FFFFFFFL})
    {
        grid.Object("row3").NotifyUpdate(fieldId);
        driver.RunUntilIdle();
        EXPECT_EQ(Told(), "ItemUpdated row3");
        EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(Item("row3"), fieldId), 0) << fieldId;
    }
    EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(Item("row3"), -1), -1) << "none of them is the whole row";
}
} // namespace
} // namespace Ostrel::Testing
