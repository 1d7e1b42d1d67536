// Four threads that change the same rows as fast as they can while the grid is sorted by what they change.
#include <memory>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/GridNotifications.h>
#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/testing/GridWindow.h>
#include <ostrel/testing/Workers.h>

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

constexpr int kThreads = 4;
constexpr int kUpdatesEach = 200000;
constexpr int kObjects = 40;
constexpr long kPrice = TestObject::Price;

/// Counts the updates that its grid delivers. Twenty of them take a millisecond of the clock, which stands otherwise.
class CountingFrame : public CFrameWnd
{
public:
    static constexpr int kUpdatesPerMs = 20;

    CountingFrame() { SetAutoDelete(false); }

    int delivered = 0;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        if (reinterpret_cast<NMHDR const*>(lParam)->code == ItemUpdated && ++delivered % kUpdatesPerMs == 0)
        {
            Platform::Clock::Advance(1);
        }
        return CFrameWnd::OnNotify(wParam, lParam, result);
    }
};

/// Writes down the longest time between two paints.
class PaintWatch : public CCustomDraw
{
public:
    PaintWatch() : CCustomDraw(false) {}

    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) override
    {
        Note();
        CCustomDraw::DrawLine(line, context, filter);
    }
    void Note()
    {
        std::int64_t const nowMs = Platform::Clock::Milliseconds();
        longestMs = std::max(longestMs, nowMs - std::exchange(m_lastMs, nowMs));
    }

    std::int64_t longestMs = 0;

private:
    std::int64_t m_lastMs = Platform::Clock::Milliseconds();
};

void Feed(std::vector<std::unique_ptr<TestObject>> const& objects, int number)
{
    unsigned random = 17U + static_cast<unsigned>(number);
    for (int i = 0; i < kUpdatesEach; ++i)
    {
        random = random * 1664525U + 1013904223U;
        objects[(random >> 8U) % kObjects]->SetPrice((random >> 4U) % 1000);
    }
}

TEST(FloodTest, AFloodIsDeliveredWholeAndInOrderAndPaintedMeanwhile)
{
    Driver driver;
    std::vector<std::unique_ptr<TestObject>> objects;
    PaintWatch paints;
    CountingFrame frame;
    CGrid grid;
    ASSERT_TRUE(frame.Create(nullptr, "Flood", WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300)));
    ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 400, 300), &frame, 1));
    for (int i = 0; i < kObjects; ++i)
    {
        objects.push_back(std::make_unique<TestObject>(TestRow{.name = "row" + std::to_string(i)}));
        grid.Add(objects.back().get(), ScrollableRoot, LastPosition);
    }
    grid.SetHeader(MakeHeader("Name:100,Price:80", *objects.front()).release());
    grid.SetSort(0, CSortInfo(kPrice, false), true);
    grid.SetCustomDraw(&paints);
    frame.ShowWindow(SW_SHOW);
    driver.RunUntilIdle();

    Workers workers(std::chrono::minutes(5));
    workers.AddMany(kThreads, "feeds", [&](int number) { Feed(objects, number); });
    workers.Run();
    driver.RunUntilIdle();
    paints.Note();

    EXPECT_EQ(frame.delivered, kThreads * kUpdatesEach);
    EXPECT_LE(paints.longestMs, 50);
    double last = -1;
    for (int row = 0; row < kObjects; ++row)
    {
        double const price = grid.GetDataObject(row, ScrollableContext)->GetDouble(kPrice);
        EXPECT_LE(last, price) << "row " << row;
        last = price;
    }
    grid.SetCustomDraw(nullptr);
    frame.DestroyWindow();
}
} // namespace
} // namespace Ostrel::Testing
