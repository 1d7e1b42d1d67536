#include <ostrel/platform/window/SystemParameters.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class ScrollingTest : public GridTest
{
protected:
    void SetUp() override
    {
        grid.AddMany(100);
        driver.RunUntilIdle();
        page = Grid().GetLinesPerPage(true);
        ASSERT_GT(page, 5);
        ASSERT_LT(page, 40);
    }

    int First() { return Grid().GetFirstVisibleRow(); }
    void Scroll(int command) { Grid().SendMessage(WM_VSCROLL, static_cast<WPARAM>(command)); }

    int page = 0;
};

TEST_F(ScrollingTest, LinesPagesAndEnds)
{
    Scroll(SB_LINEUP);
    EXPECT_EQ(First(), 0);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(First(), 1);
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(First(), page) << "the last row of the page is the first of the next one";
    Scroll(SB_PAGEUP);
    EXPECT_EQ(First(), 1);
    Scroll(SB_BOTTOM);
    EXPECT_EQ(First(), 100 - page);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(First(), 100 - page) << "the last page stays full";
    Scroll(SB_TOP);
    EXPECT_EQ(First(), 0);
    Grid().SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 20));
    EXPECT_EQ(First(), 20);
    Grid().SetFirstVisibleRow(99);
    EXPECT_EQ(First(), 100 - page) << "the last page stays full";
    for (int const row : {100, -1})
    {
        Grid().SetFirstVisibleRow(row);
        EXPECT_EQ(First(), 100 - page) << "there is no such row";
    }
    Grid().SetFirstVisibleRow(0);
    grid.Wheel(-1);
    EXPECT_EQ(First(), 3);
    grid.Wheel(2);
    EXPECT_EQ(First(), 0);
}

TEST_F(ScrollingTest, ANotchOfTheWheelScrollsWhatTheUserWants)
{
    struct Setting
    {
        explicit Setting(UINT lines) { SystemParametersInfo(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0); }
        ~Setting() { SystemParametersInfo(SPI_SETWHEELSCROLLLINES, 3, nullptr, 0); }
    };
    struct Case
    {
        UINT lines;
        int firstRow;
    };
    for (Case const& each : {Case{1, 2}, Case{5, 10}, Case{0, 0}, Case{WHEEL_PAGESCROLL, 2 * (page - 1)}})
    {
        Setting const setting(each.lines);
        GridWindow other(driver, {.title = "Other"});
        other.AddMany(100);
        driver.RunUntilIdle();
        other.Wheel(-2);
        EXPECT_EQ(other.Grid().GetFirstVisibleRow(), each.firstRow) << each.lines;
        other.Wheel(3);
        EXPECT_EQ(other.Grid().GetFirstVisibleRow(), 0) << each.lines;
    }
}

TEST_F(ScrollingTest, TheBarFollowsTheRows)
{
    SCROLLINFO info;
    ASSERT_TRUE(Grid().GetScrollInfo(SB_VERT, &info, SIF_ALL));
    EXPECT_EQ(info.nMax, 99);
    EXPECT_EQ(static_cast<int>(info.nPage), page);
    Scroll(SB_BOTTOM);
    for (int row = 99; row >= 90; --row)
    {
        Grid().Delete(row, ScrollableContext);
    }
    EXPECT_EQ(First(), 90 - page);
    driver.RunUntilIdle();
    ASSERT_TRUE(Grid().GetScrollInfo(SB_VERT, &info, SIF_ALL));
    EXPECT_EQ(info.nMax, 89);
    EXPECT_EQ(info.nPos, 90 - page);
    Grid().DeleteAll(ScrollableContext);
    EXPECT_EQ(First(), -1);
}

TEST_F(ScrollingTest, BarsThatAreNeededOnlyBecauseOfEachOtherGo)
{
    constexpr int kRows = 5;
    constexpr DWORD kBoth = WS_VSCROLL | WS_HSCROLL;
    GridWindow other(driver, {.title = "Other", .columns = "Name:395", .size = {100, 80}});
    other.AddMany(kRows);
    driver.RunUntilIdle();
    CGrid& small = other.Grid();
    EXPECT_EQ(small.GetStyle() & kBoth, kBoth);
    auto const resize = [&](int width)
    {
        int const height =
            small.GetHeader()->GetHeaderHeight() + kRows * small.GetOptimalRowHeight(ScrollableContext) + 6;
        small.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        driver.RunUntilIdle();
        return small.GetStyle() & kBoth;
    };
    EXPECT_EQ(resize(400), 0U);
    EXPECT_EQ(resize(394), kBoth);
    EXPECT_EQ(resize(420), 0U);
}

TEST_F(ScrollingTest, AHorizontalPositionIsShownHoweverItCame)
{
    GridWindow wide(driver, {.title = "Wide", .columns = "Name:100|Price:300,Quantity:300"});
    CGrid& other = wide.Grid();
    auto const isPaintedAnew = [&](auto const& scroll)
    {
        driver.RunUntilIdle();
        scroll();
        return other.GetUpdateRect(nullptr) != FALSE;
    };
    SCROLLINFO info;
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = 80;
    EXPECT_TRUE(isPaintedAnew([&] { other.SetScrollPos(SB_HORZ, 50); }));
    EXPECT_FALSE(isPaintedAnew([&] { other.SetScrollPos(SB_HORZ, 50); }));
    EXPECT_TRUE(isPaintedAnew([&] { other.SetScrollInfo(SB_HORZ, &info); }));
    EXPECT_TRUE(isPaintedAnew([&] { other.SendMessage(WM_HSCROLL, SB_LEFT); }));
}

TEST_F(ScrollingTest, ScrollsIntoViewJustEnoughAndMergesUntilThePaint)
{
    Grid().EnsureVisible(page - 1);
    EXPECT_EQ(First(), 0) << "it is fully shown";
    Grid().EnsureVisible(50);
    EXPECT_EQ(First(), 50 - page + 1) << "the first one at once";
    Grid().EnsureVisible(2);
    Grid().EnsureVisible(Item("row90"));
    EXPECT_EQ(First(), 50 - page + 1) << "not painted yet";
    Grid().Delete(0, ScrollableContext);
    driver.Advance(20);
    EXPECT_EQ(First(), 89 - page + 1) << "the last one wins, and goes by its row";
    Grid().EnsureVisible(10);
    EXPECT_EQ(First(), 10) << "painted meanwhile";
    Grid().EnsureVisible(80);
    Grid().UpdateWindow();
    Grid().EnsureVisible(5);
    driver.Advance(20);
    EXPECT_EQ(First(), 5) << "what was wished before the paint counts no more";
}

TEST_F(ScrollingTest, ARecordedRowThatGoesIsForgotten)
{
    Grid().EnsureVisible(50);
    int const first = First();
    Grid().EnsureVisible(Item("row90"));
    grid.Destroy("row90");
    driver.Advance(20);
    EXPECT_EQ(First(), first);
}

TEST_F(ScrollingTest, TheAreasMeetBelowHeaderAndSeparator)
{
    int const headerHeight = grid.Header().GetHeaderHeight();
    EXPECT_EQ(Grid().GetContextVisibleRect(ScrollableContext).top, headerHeight);
    grid.AddFixed({.name = "x"});
    int const rowHeight = Grid().GetItemHeight(Item("x"));
    EXPECT_EQ(Grid().GetContextVisibleRect(FixedContext).bottom, headerHeight + rowHeight);
    EXPECT_EQ(Grid().GetContextVisibleRect(ScrollableContext).top, headerHeight + rowHeight + 2);
    Grid().HideHeader();
    EXPECT_EQ(Grid().GetContextVisibleRect(FixedContext).top, 0);
    CRect const cell = Grid().GetCellVisibleRect(Item("row1"), kPrice);
    EXPECT_EQ(cell.left, 100);
    EXPECT_EQ(cell.right, 180);
    EXPECT_EQ(Grid().GetItem(cell.CenterPoint()), Item("row1"));
    EXPECT_TRUE(Grid().GetLineVisibleRect(Item("row99")).IsRectEmpty());
}

} // namespace
} // namespace Ostrel::Testing
