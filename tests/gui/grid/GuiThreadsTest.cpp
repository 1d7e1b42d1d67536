// Grids on several threads that show the same objects: each row is touched on the thread of its grid only.
#include <atomic>
#include <future>
#include <thread>

#include <ostrel/gui/grid/GridNotifications.h>
#include <ostrel/platform/base/ThreadId.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

constexpr UINT kQuit = WM_APP + 1;
constexpr UINT kPaint = WM_APP + 2;

/// A window with a grid that watches on which thread its parent hears of updates.
class Pane : public CWnd
{
public:
    ~Pane() override { DestroyWindow(); }

    void Make(DWORD style)
    {
        m_thread = GetCurrentThreadId();
        ASSERT_TRUE(CreateEx(0, nullptr, "", style, CRect(0, 0, 300, 200), nullptr, 0));
        ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 300, 200), this, 1));
        TestObject sample;
        grid.SetHeader(MakeHeader("Name:100,Price:80", sample).release());
        grid.SetSort(0, CSortInfo(TestObject::Price, false), true);
    }

    CGrid grid;
    std::atomic<int> updates{0};
    std::atomic<int> deletions{0};
    std::atomic<int> strays{0}; ///< notifications on another thread

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == kQuit)
        {
            DestroyWindow();
            PostQuitMessage(0);
            return 0;
        }
        if (message == kPaint)
        {
            grid.InvalidateRect(nullptr);
            grid.UpdateWindow();
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    BOOL OnNotify(WPARAM, LPARAM lParam, LRESULT*) override
    {
        UINT const code = reinterpret_cast<NMHDR const*>(lParam)->code;
        updates += code == ItemUpdated ? 1 : 0;
        deletions += code == ItemDeleting ? 1 : 0;
        strays += GetCurrentThreadId() == m_thread ? 0 : 1;
        return TRUE;
    }

private:
    DWORD m_thread = 0;
};

/// A second thread with a grid and a loop of its own.
class PaneThread
{
public:
    PaneThread()
    {
        std::promise<void> ready;
        m_thread = std::thread(
            [this, &ready]()
            {
                Platform::SetThreadDisplay(std::make_unique<Platform::HeadlessDisplay>(CSize(640, 480)));
                pane.Make(WS_POPUP | WS_VISIBLE);
                window = pane;
                ready.set_value();
                Platform::RunMessageLoop();
                Platform::SetThreadDisplay(nullptr);
            });
        ready.get_future().wait();
    }
    ~PaneThread() { End(); }
    void End()
    {
        if (m_thread.joinable())
        {
            ::PostMessage(window, kQuit);
            m_thread.join();
        }
    }
    /// Everything that was posted to the thread has been handled, and what it changed is painted.
    void Settle() const { ::SendMessage(window, kPaint); }

    Pane pane;
    HWND window = nullptr;

private:
    std::thread m_thread;
};

class GuiThreadsTest : public testing::Test
{
protected:
    void SetUp() override { here.Make(WS_POPUP | WS_VISIBLE); }

    template <class Done>
    void WaitUntil(Done&& done)
    {
        Workers waiter;
        waiter.Add("until it has happened",
                   [&]()
                   {
                       while (!done())
                       {
                           std::this_thread::yield();
                       }
                   });
        waiter.Run();
    }

    Driver driver;
    std::vector<std::unique_ptr<TestObject>> objects;
    PaneThread there;
    Pane here;
};

TEST_F(GuiThreadsTest, EachGridIsServedOnItsOwnThread)
{
    constexpr int kObjects = 20;
    constexpr int kUpdates = 50;
    for (int i = 0; i < kObjects; ++i)
    {
        objects.push_back(std::make_unique<TestObject>(TestRow{.name = "row", .price = double(i)}));
        here.grid.Add(objects.back().get(), ScrollableRoot, LastPosition);
        there.pane.grid.Add(objects.back().get(), ScrollableRoot, LastPosition);
    }
    Workers workers;
    workers.AddMany(2, "prices",
                    [&](int worker)
                    {
                        for (int i = 0; i < kUpdates; ++i)
                        {
                            objects[static_cast<std::size_t>((i + worker) % kObjects)]->SetPrice(100 - i);
                        }
                    });
    workers.AddMany(1, "paint", [&](int) { there.Settle(); });
    workers.Run();
    WaitUntil([&]() { return there.pane.updates == 2 * kUpdates && here.updates == 2 * kUpdates; });
    Workers deleters;
    deleters.Add("deleter",
                 [&]()
                 {
                     while (!objects.empty())
                     {
                         Common::CDataObject const* const address = objects.back().get();
                         objects.pop_back();
                         EXPECT_FALSE(here.grid.Exists(address));
                         EXPECT_FALSE(there.pane.grid.Exists(address));
                     }
                 });
    deleters.Run();
    EXPECT_EQ(here.deletions, kObjects);
    EXPECT_EQ(there.pane.deletions, kObjects);
    EXPECT_EQ(here.strays + there.pane.strays, 0);
}

TEST_F(GuiThreadsTest, ARowGoesWithItsGridToAnotherThread)
{
    objects.push_back(std::make_unique<TestObject>(TestRow{.name = "traveller"}));
    CGridItem* const item = here.grid.Add(objects[0].get(), ScrollableRoot, LastPosition);
    ASSERT_TRUE(here.grid.Detach(item));
    ASSERT_TRUE(there.pane.grid.Attach(item, ScrollableRoot, LastPosition));
    EXPECT_FALSE(here.grid.Exists(item));
    EXPECT_TRUE(here.grid.GetHandles(objects[0].get(), false, AllContexts).empty());
    objects[0]->SetPrice(7);
    WaitUntil([&]() { return there.pane.updates == 1; });
    EXPECT_EQ(there.pane.grid.GetTimeElapsedSinceLastUpdate(item, TestObject::Quantity), -1);
    EXPECT_GE(there.pane.grid.GetTimeElapsedSinceLastUpdate(item, TestObject::Price), 0);
    objects.clear();
    EXPECT_EQ(there.pane.grid.GetRowCount(ScrollableContext), 0U);
    EXPECT_EQ(here.strays + there.pane.strays, 0);
}

TEST_F(GuiThreadsTest, ObjectsOutliveTheThreadThatShowedThem)
{
    objects.push_back(std::make_unique<TestObject>(TestRow{.name = "a"}));
    there.pane.grid.Add(objects[0].get(), ScrollableRoot, LastPosition);
    here.grid.Add(objects[0].get(), ScrollableRoot, LastPosition);
    there.End();
    objects[0]->SetPrice(7);
    driver.RunUntilIdle();
    EXPECT_EQ(here.updates, 1);
    objects.clear();
    EXPECT_EQ(here.grid.GetRowCount(ScrollableContext), 0U);
}
} // namespace
} // namespace Ostrel::Testing
