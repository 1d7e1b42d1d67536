// Everything at once: workers that change columns, notify, add, delete and query, while the thread of the grids paints,
// sorts, and destroys and makes grids. Nothing may wait for ever; the workers' limit watches over that.
#include <array>
#include <memory>

#include <ostrel/gui/header/Column.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

#if defined(__SANITIZE_THREAD__)
constexpr int kRounds = 60;
#else
constexpr int kRounds = 250;
#endif

constexpr UINT kMakeAnew = WM_APP + 1;
constexpr UINT kSortAnew = WM_APP + 2;

/// Has a second grid that it destroys and makes anew, and sorts both, when a message asks for it.
class Stage : public CWnd
{
public:
    Stage(CGrid& lasting, std::vector<std::unique_ptr<TestObject>> const& objects)
        : m_lasting(lasting), m_objects(objects)
    {
        CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(500, 500, 700, 600), nullptr, 0);
        MakeAnew();
    }
    ~Stage() override { DestroyWindow(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case kMakeAnew:
            MakeAnew();
            return 0;
        case kSortAnew:
            m_lasting.SetSort(0, CSortInfo(wParam % 3 == 0 ? TestObject::Name : TestObject::Price, wParam % 2 == 0),
                              true);
            m_lasting.InvalidateRect(nullptr);
            m_lasting.UpdateWindow();
            return 0;
        default:
            return CWnd::WindowProc(message, wParam, lParam);
        }
    }

private:
    void MakeAnew()
    {
        m_other = std::make_unique<CGrid>();
        m_other->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 100), this, 1);
        TestObject sample;
        m_other->SetHeader(MakeHeader("Name,Price", sample).release());
        m_other->SetSort(0, CSortInfo(TestObject::Price, false), true);
        for (auto const& object : m_objects)
        {
            m_other->Add(object.get(), ScrollableRoot, LastPosition);
        }
    }

    CGrid& m_lasting;
    std::vector<std::unique_ptr<TestObject>> const& m_objects;
    std::unique_ptr<CGrid> m_other;
};

class DeadlockTest : public GridTest
{
protected:
    void ChangeColumns(int round)
    {
        CHeader& header = grid.Header();
        CColumn& column = *header.GetColumnByIndex(round % 3);
        column.SetWidth(40 + round % 60);
        column.SetName("name " + std::to_string(round));
        round % 2 == 0 ? header.HideColumn(column.GetFid()) : header.ShowColumn(column.GetFid());
        header.SetFixedColumnsCount(round % 2);
        header.SetHeaderHeight(16 + round % 8);
    }

    void AddAndDelete(int round)
    {
        auto own = std::make_unique<TestObject>(TestRow{.name = "short", .price = double(round)});
        CGridItem* const item = Grid().Add(own.get(), ScrollableRoot, LastPosition);
        Grid().Add(own.get(), FixedRoot, FirstPosition);
        own->SetPrice(round + 1);
        Grid().Select(item, true);
        if (round % 2 == 0)
        {
            EXPECT_TRUE(Grid().Delete(item));
        }
        own.reset();
        EXPECT_FALSE(Grid().Exists(item));
    }

    void Query(int round)
    {
        CGridItem* const item = Grid().GetItem(round % 10, ScrollableContext);
        Grid().GetFormattedStlString(item, kPrice, nullptr);
        Grid().GetRow(item);
        Grid().GetSelection(AllContexts);
        Grid().GetColumn(CPoint(30, 5));
        Grid().EnsureVisible(item);
        Grid().UpdateItem(item, kPrice);
        Grid().InvalidateCell(item, kPrice, 20);
    }
};

TEST_F(DeadlockTest, WorkersAndTheGridsThreadNeverStopEachOther)
{
    std::vector<std::unique_ptr<TestObject>> objects;
    for (int i = 0; i < 40; ++i)
    {
        objects.push_back(std::make_unique<TestObject>(TestRow{.name = "row", .price = double(i)}));
        Grid().Add(objects.back().get(), ScrollableRoot, LastPosition);
    }
    SortByPrice();
    Grid().AllowHighlight(true);
    Stage stage(Grid(), objects);
    HWND const stageWindow = stage;
    // The parent asks back in the middle of whatever the grid does.
    grid.Notifications().onNotification = [&](std::string const&) { Grid().GetRowCount(ScrollableContext); };

    Workers workers(std::chrono::seconds(120));
    auto const repeat = [&](std::string const& name, auto&& work)
    {
        workers.Add(name,
                    [=]()
                    {
                        for (int round = 0; round < kRounds; ++round)
                        {
                            work(round);
                        }
                    });
    };
    repeat("columns", [this](int round) { ChangeColumns(round); });
    repeat("notifies", [&](int round) { objects[static_cast<std::size_t>(round) % 40]->SetPrice(1000 - round); });
    repeat("notifies all", [&](int round) { objects[static_cast<std::size_t>(round) % 40]->NotifyUpdate(-1); });
    repeat("adds and deletes", [this](int round) { AddAndDelete(round); });
    repeat("queries", [this](int round) { Query(round); });
    repeat("sorts", [=](int round) { ::PostMessage(stageWindow, kSortAnew, static_cast<WPARAM>(round)); });
    repeat("makes grids", [=](int round) { round % 10 == 0 ? ::SendMessage(stageWindow, kMakeAnew) : 0; });
    workers.Run();
    driver.RunUntilIdle();
    EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 40U);
    EXPECT_EQ(Grid().GetRowCount(FixedContext), 0U);
    for (auto const& object : objects)
    {
        Grid().Delete(object.get());
    }
}
} // namespace
} // namespace Ostrel::Testing
