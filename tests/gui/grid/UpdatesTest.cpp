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
    /// Whether a delayed repaint is due, which is served then; nothing is painted.
    bool ServeTimer()
    {
        MSG message;
        bool const isDue = PeekMessage(&message, Grid().GetSafeHwnd(), WM_TIMER, WM_TIMER, PM_REMOVE) != FALSE;
        isDue ? DispatchMessage(&message) : 0;
        return isDue;
    }
};

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
    CGridItem* const item = Item("row3");
    for (auto const& [delayMs, dueMs] : {std::pair(300, 300), std::pair(5, 10)})
    {
        Grid().InvalidateCell(item, kPrice, delayMs);
        Platform::Clock::Advance(dueMs - 1);
        EXPECT_FALSE(ServeTimer()) << "due after " << dueMs;
        EXPECT_TRUE(Invalid().IsRectEmpty());
        Platform::Clock::Advance(1);
        EXPECT_TRUE(ServeTimer());
        EXPECT_EQ(Invalid(), Grid().GetCellVisibleRect(item, kPrice));
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
    EXPECT_TRUE(ServeTimer());
    EXPECT_EQ(Invalid().top, Grid().GetCellVisibleRect(item, kPrice).top) << "its own, now that it can be seen";
}

TEST_F(UpdatesTest, OneNotificationOfSeveralFieldsReachesEveryRowOnce)
{
    TestObject& object = grid.Object("row3");
    Grid().Add(&object, FixedRoot, LastPosition);
    driver.RunUntilIdle();
    Told();
    object.NotifyUpdate(std::set<long>{kPrice, kQuantity});
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemUpdated row3; ItemUpdated row3; ItemUpdated row3; ItemUpdated row3");
    Grid().UpdateDataObject(&object, kPrice);
    driver.RunUntilIdle();
    EXPECT_EQ(Told(), "ItemUpdated row3; ItemUpdated row3");
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
