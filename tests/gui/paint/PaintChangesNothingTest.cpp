// A grid is the same before and after it is painted: its settings, rows, selection, scroll positions and update times,
// and nobody is told anything.
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/testing/Driver.h>
#include <ostrel/testing/GridWindow.h>

#include "../header/ArchiveBytes.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace Ostrel::Testing;

namespace
{

constexpr long kFids[] = {TestObject::Name, TestObject::Price, TestObject::Quantity, -1};

class RandomGrid
{
public:
    explicit RandomGrid(unsigned seed) : m_random(seed)
    {
        for (int row = 0; row < 12; ++row)
        {
            CGridItem* const parents[] = {ScrollableRoot, FixedRoot, Row()};
            CGridItem* const parent = parents[Below(3)];
            m_window.Add({.name = "row" + std::to_string(row), .price = double(Below(100))},
                         parent != nullptr ? parent : ScrollableRoot);
        }
        Grid().AllowHighlight(true);
        m_driver.RunUntilIdle();
    }

    void Change()
    {
        CHighlightSettings settings = Grid().GetHighlightSettings();
        settings.SetMode(static_cast<CHighlightSettings::Mode>(Below(10)));
        Grid().SetHighlightSettings(settings);
        Grid().Select(Row(), Below(2) == 0);
        Grid().SetFocusedRow(Below(10), ScrollableContext);
        Below(2) == 0 ? Grid().Expand(Row(), true) : Grid().Collapse(Row(), true);
        m_window.Header().SetSort(0, CSortInfo(kFids[Below(3)], Below(2) == 0));
        Grid().UpdateItem(Row(), kFids[Below(4)]);
        Platform::Clock::Advance(Below(700)); // nothing is painted or due meanwhile
        Grid().UpdateItem(Row(), kFids[Below(4)]);
        Platform::Clock::Advance(Below(700));
    }

    void Paint()
    {
        Grid().RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_FALSE(Grid().GetUpdateRect(nullptr));
    }

    /// All that can be asked for.
    [[nodiscard]] std::string State()
    {
        std::string state = m_window.State() + '\n' + m_window.Notifications().Text() + '\n' +
                            GUI::Testing::Hex(GUI::Testing::Store(Grid())) + '\n';
        for (ContextType const area : {FixedContext, ScrollableContext})
        {
            for (int row = 0; row < static_cast<int>(Grid().GetRowCount(area)); ++row)
            {
                for (long const fid : kFids)
                {
                    state += std::to_string(Grid().GetTimeElapsedSinceLastUpdate(row, area, fid)) + ' ';
                }
            }
        }
        for (int const bar : {SB_HORZ, SB_VERT})
        {
            state += std::to_string(Grid().GetScrollPos(bar)) + ' ';
        }
        return state;
    }

private:
    CGrid& Grid() { return m_window.Grid(); }
    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    CGridItem* Row()
    {
        ContextType const area = Below(3) == 0 ? FixedContext : ScrollableContext;
        return Grid().GetItem(Below(8), area);
    }

    std::mt19937 m_random;
    Driver m_driver;
    GridWindow m_window{m_driver, {.columns = "Name:100|Price:80,Quantity:60", .size = {200, 160}}};
};

} // namespace

TEST(PaintChangesNothingTest, InAnyState)
{
    for (unsigned seed = 0; seed < 20; ++seed)
    {
        RandomGrid grid(seed);
        for (int step = 0; step < 20; ++step)
        {
            grid.Change();
            std::string const before = grid.State();
            grid.Paint();
            grid.Paint();
            ASSERT_EQ(grid.State(), before) << "seed " << seed << " step " << step;
        }
    }
}
