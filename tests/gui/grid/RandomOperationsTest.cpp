// Long random runs: whatever is done in whatever order, the grid agrees with itself and with the plain list of rows
// that should exist.
#include <random>

#include <ostrel/gui/grid/IGridFilter.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class OddFilter : public IGridFilter
{
public:
    bool AutoDelete() const override { return false; }
    bool IsFiltered(CGrid*, CGridItem*, Common::CDataObject* object) override
    {
        return object->GetLong(TestObject::Quantity) % 3 == 1;
    }
};

class RandomOperationsTest : public GridTest, public testing::WithParamInterface<unsigned>
{
protected:
    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_random); }
    TestObject& PickObject() { return *m_objects[static_cast<std::size_t>(Pick(kObjects))]; }
    /// A row of any kind, visible or not, or null.
    CGridItem* PickRow()
    {
        std::vector<CGridItem*> const rows = Grid().GetHandles(&PickObject(), false, AllContexts);
        return rows.empty() ? nullptr : rows[static_cast<std::size_t>(Pick(static_cast<int>(rows.size())))];
    }
    CGridItem* PickParent()
    {
        CGridItem* const choices[] = {ScrollableRoot, ScrollableRoot, FixedRoot, PickRow()};
        return choices[Pick(4)];
    }

    void Step();
    void Check();

    static constexpr int kObjects = 30;

    std::mt19937 m_random{GetParam()};
    std::vector<std::unique_ptr<TestObject>> m_objects;
    std::vector<CGridItem*> m_detached;
    OddFilter m_filter;
};

void RandomOperationsTest::Step()
{
    CGrid& sut = Grid();
    switch (Pick(20))
    {
    case 0:
    case 1:
    case 2:
    case 3:
        sut.Add(&PickObject(), PickParent(), Pick(2) == 0 ? PickRow() : LastPosition);
        break;
    case 4:
        sut.Delete(PickRow());
        break;
    case 5:
        sut.Expand(PickRow(), Pick(2) == 0);
        break;
    case 6:
        sut.Collapse(PickRow(), Pick(3) == 0);
        break;
    case 7:
        sut.MoveBefore(PickRow(), PickParent(), PickRow());
        break;
    case 8:
        sut.MoveAfter(PickRow(), PickParent(), LastPosition);
        break;
    case 9:
        if (CGridItem* const item = PickRow(); sut.Detach(item))
        {
            m_detached.push_back(item);
        }
        break;
    case 10:
        if (!m_detached.empty())
        {
            sut.Attach(m_detached.back(), PickParent(), FirstPosition);
            m_detached.pop_back();
        }
        break;
    case 11:
        sut.SetFilter(sut.GetFilter() == nullptr ? &m_filter : nullptr);
        break;
    case 12:
        sut.SetSort(0, CSortInfo(Pick(2) == 0 ? kPrice : kQuantity, Pick(2) == 0), true);
        break;
    case 13:
        sut.ResetSort(true);
        break;
    case 14:
        PickObject().SetPrice(Pick(5));
        break;
    case 15:
        PickObject().SetQuantity(Pick(9));
        break;
    case 16:
        sut.Select(PickRow(), Pick(3) != 0);
        break;
    case 17:
        sut.SetFocusedRow(Pick(20), Pick(4) == 0 ? FixedContext : ScrollableContext);
        break;
    case 18:
        sut.SetCalmView(Pick(2) == 0);
        break;
    default:
        sut.SetFirstVisibleRow(Pick(40));
        break;
    }
    if (Pick(4) == 0)
    {
        driver.RunUntilIdle();
    }
}

void RandomOperationsTest::Check()
{
    int selected = 0;
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        int const rows = static_cast<int>(Grid().GetRowCount(type));
        for (int row = 0; row < rows; ++row)
        {
            CGridItem* const item = Grid().GetItem(row, type);
            ASSERT_TRUE(Grid().Exists(item));
            ASSERT_EQ(Grid().GetRow(item), row);
            ASSERT_EQ(Grid().GetContextType(item), type);
            selected += Grid().IsSelected(item) ? 1 : 0;
        }
    }
    ASSERT_EQ(static_cast<int>(Grid().GetSelection(AllContexts).size()), selected);
    ASSERT_GE(Grid().GetSelectedCount(), selected);
    int const first = Grid().GetFirstVisibleRow();
    ASSERT_LT(first, std::max(1, static_cast<int>(Grid().GetRowCount(ScrollableContext))));
    int const focused = Grid().GetFocusedRow();
    ASSERT_EQ(focused < 0, Grid().GetFocusedContext() == NoContext);
    ASSERT_LT(focused, static_cast<int>(Grid().GetRowCount(Grid().GetFocusedContext())) + (focused < 0 ? 1 : 0));
}

TEST_P(RandomOperationsTest, TheGridAgreesWithItself)
{
    for (int i = 0; i < kObjects; ++i)
    {
        m_objects.push_back(std::make_unique<TestObject>(TestRow{.name = "o" + std::to_string(i), .quantity = i}));
    }
    // Some of what the parent hears makes it change the rows while the grid is at work.
    int depth = 0;
    grid.Notifications().onNotification = [&](std::string const& line)
    {
        grid.Notifications().Clear();
        if (depth == 0 && Pick(25) == 0 && !line.starts_with("Header"))
        {
            ++depth;
            Pick(2) == 0 ? static_cast<void>(Grid().Delete(PickRow())) : Grid().Collapse(PickRow(), false);
            --depth;
        }
    };
    for (int step = 0; step < 4000; ++step)
    {
        Step();
        ASSERT_NO_FATAL_FAILURE(Check()) << "step " << step;
    }
    Grid().SetFilter(nullptr);
    m_objects.clear();
    driver.RunUntilIdle();
    EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 0U);
    EXPECT_EQ(Grid().GetRowCount(FixedContext), 0U);
    EXPECT_EQ(Grid().GetSelectedCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperationsTest, testing::Values(1U, 2U, 3U, 4U));
} // namespace
} // namespace Ostrel::Testing
