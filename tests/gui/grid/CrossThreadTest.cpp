// Other threads that call the grid, change its objects and destroy them.
#include <atomic>
#include <thread>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/Hooker.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/header/Column.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class CrossThreadTest : public GridTest
{
protected:
    void OnWorker(std::function<void()> const& work)
    {
        Workers workers;
        workers.Add("worker", work);
        workers.Run();
    }
};

TEST_F(CrossThreadTest, AWindowThatWasThereBeforeItsObjectTakesCallsToo)
{
    TestObject object({.name = "a"});
    CGrid late;
    HWND const window =
        CreateWindowEx(0, "Ostrel.Grid", "", WS_CHILD | WS_VISIBLE, 0, 0, 200, 90, grid.Frame().GetSafeHwnd(), 77);
    ASSERT_TRUE(late.SubclassWindow(window));
    driver.RunUntilIdle();
    OnWorker([&]() { EXPECT_NE(late.Add(&object, ScrollableRoot, LastPosition), nullptr); });
    EXPECT_EQ(late.GetContextVisibleRect(ScrollableContext), CRect(0, 0, 200, 90));
    EXPECT_EQ(late.GetLastVisibleRow(ScrollableContext), 0);
}

TEST_F(CrossThreadTest, AWindowThatIsGoneGivesTheNeutralResult)
{
    grid.AddRows({"a"});
    TestObject object({.name = "late"});
    Grid().DestroyWindow();
    OnWorker(
        [&]()
        {
            EXPECT_EQ(Grid().Add(&object, ScrollableRoot, LastPosition), nullptr);
            EXPECT_EQ(Grid().GetFocusedRow(), -1);
            EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 0U);
            EXPECT_TRUE(Grid().GetHandles(&object, false, AllContexts).empty());
            EXPECT_TRUE(Grid().GetContextVisibleRect(ScrollableContext).IsRectEmpty());
            EXPECT_EQ(Grid().GetHeader(), nullptr);
            Grid().UpdateRow(0, ScrollableContext, kPrice);
        });
}

TEST_F(CrossThreadTest, MessagesThatCarryNoCallAnswerZero)
{
    UINT const message = RegisterWindowMessage("Ostrel.Grid.SyncMessage");
    for (WPARAM code = 0; code < 300; ++code)
    {
        EXPECT_EQ(Grid().SendMessage(message, code, 0), 0) << code;
        EXPECT_EQ(Grid().SendMessage(message, code, 0x1234), 0) << code;
    }
}

/// The codes of the calls that come to a grid, with what they answer.
class CallLog : public CHooker
{
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        LRESULT const answer = CHooker::WindowProc(message, wParam, lParam);
        if (message == m_message)
        {
            calls.emplace_back(wParam, answer);
        }
        return answer;
    }

    std::vector<std::pair<WPARAM, LRESULT>> calls;

private:
    UINT const m_message = RegisterWindowMessage("Ostrel.Grid.SyncMessage");
};

TEST_F(CrossThreadTest, CallsHaveTheirCodeAndAnswerTheirResult)
{
    grid.AddRows({"a", "b", "c"});
    CGridItem* const b = Item("b");
    CallLog log;
    log.Hook(Grid());
    OnWorker(
        [&]()
        {
            Grid().GetRowCount(ScrollableContext);
            Grid().GetItem(1, ScrollableContext);
            Grid().GetFocusedRow();
            Grid().InvalidateRow(b, 0);
            Grid().InvalidateCell(b, kPrice, 0);
            Grid().GetContextVisibleRect(ScrollableContext);
        });
    std::vector<std::pair<WPARAM, LRESULT>> const expected{
        {34, 3}, {27, reinterpret_cast<LRESULT>(b)}, {64, -1}, {78, 0}, {79, 0}, {38, 0}};
    EXPECT_EQ(log.calls, expected);
}

TEST_F(CrossThreadTest, RowsAddedElsewhereAreLaidOutTogetherLater)
{
    std::vector<std::unique_ptr<TestObject>> objects;
    OnWorker(
        [&]()
        {
            for (int i = 0; i < 60; ++i)
            {
                objects.push_back(std::make_unique<TestObject>(TestRow{.name = "x"}));
                Grid().Add(objects.back().get(), ScrollableRoot, LastPosition);
            }
        });
    driver.Advance(20);
    SCROLLINFO info;
    ASSERT_TRUE(Grid().GetScrollInfo(SB_VERT, &info, SIF_ALL));
    EXPECT_EQ(info.nMax, 59);
    OnWorker([&]() { objects.clear(); });
    EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 0U);
}

TEST_F(CrossThreadTest, SnapshotsAreReadOnTheNotifyingThreadOnly)
{
    class Watched : public TestObject
    {
    public:
        using TestObject::TestObject;
        Common::CValue GetValue(long fid) override
        {
            readers |= std::this_thread::get_id() == home ? 1 : 2;
            return TestObject::GetValue(fid);
        }
        std::string GetFormattedStlString(long fid, Common::CFormat const* format) override
        {
            readers |= std::this_thread::get_id() == home ? 1 : 2;
            return TestObject::GetFormattedStlString(fid, format);
        }
        std::thread::id const home = std::this_thread::get_id();
        std::atomic<int> readers{0};
    };
    struct Mode
    {
        Mode() { CPreferences::SetThreadingMode(CPreferences::SnapshotOnNotify); }
        ~Mode() { CPreferences::SetThreadingMode(CPreferences::DirectRead); }
    } const mode;
    Watched object(TestRow{.name = "w", .price = 1});
    SortByPrice();
    CGridItem* item = nullptr;
    OnWorker(
        [&]()
        {
            item = Grid().Add(&object, ScrollableRoot, LastPosition);
            object.SetQuantity(42);
            object.NotifyUpdate(-1);
        });
    driver.RunUntilIdle();
    EXPECT_EQ(Grid().GetFormattedStlString(item, kQuantity), "42");
    EXPECT_EQ(object.readers, 2) << "never on the grid's thread";
    Grid().Delete(&object);
}
} // namespace
} // namespace Ostrel::Testing
