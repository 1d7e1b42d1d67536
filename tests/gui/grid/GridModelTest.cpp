// Two grids that exchange rows, against the row model in its most naive form: after every one of thousands of random
// operations, some of them made by another thread, the order, the row numbers, the selection, the focus, the first row
// and all that the parents were told must be the same.
//
// OSTREL_MODEL_SEEDS and OSTREL_MODEL_OPERATIONS ask for more seeds and longer sequences.
#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "GridModelFixture.h"

namespace Ostrel::Testing
{
using namespace GUI;

namespace
{
unsigned FromEnvironment(char const* name, unsigned otherwise)
{
    char const* const value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

#if defined(__SANITIZE_THREAD__)
constexpr unsigned kLongSequence = 10000; // with that sanitizer everything takes many times as long
#else
constexpr unsigned kLongSequence = 100000;
#endif
constexpr unsigned kShortSequence = 4000; ///< of all seeds but the first

struct Visitor : CGrid::IForEach
{
    bool Visit(CGrid*, CGridItem* item, Common::CDataObject*) override
    {
        items.push_back(item);
        return true;
    }
    std::vector<CGridItem*> items;
};
} // namespace

void GridModelTest::Step()
{
    using Self = GridModelTest;
    struct Operation
    {
        int share;
        void (Self::*perform)();
    };
    constexpr Operation kOperations[] = {
        {60, &Self::Add},         {8, &Self::Delete},       {8, &Self::DeleteObject}, {1, &Self::DeleteAll},
        {14, &Self::Detach},      {26, &Self::Attach},      {30, &Self::Move},        {34, &Self::ExpandOrCollapse},
        {12, &Self::Filter},      {12, &Self::Sort},        {44, &Self::Update},      {30, &Self::Select},
        {35, &Self::Focus},       {14, &Self::Scroll},      {3, &Self::ChangeView},   {3, &Self::SelectAllOrNone},
        {2, &Self::SelectAreas},  {3, &Self::FreezeOrThaw}, {6, &Self::Navigate},     {1, &Self::Type},
        {1, &Self::ClickCaption}, {3, &Self::WorkTogether}, {16, &Self::Interfere}};
    static int const shares =
        std::accumulate(std::begin(kOperations), std::end(kOperations), 0,
                        [](int sum, Operation const& operation) { return sum + operation.share; });
    int choice = Pick(shares);
    for (Operation const& operation : kOperations)
    {
        choice -= operation.share;
        if (choice < 0)
        {
            (this->*operation.perform)();
            return;
        }
    }
}

void GridModelTest::CheckArea(ModelSide& side, ContextType type, bool whole)
{
    ReferenceRows& area = side.Area(type);
    std::vector<CGridItem*> const rows = area.VisibleRows();
    ASSERT_EQ(side.Grid().GetRowCount(type), rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        ASSERT_EQ(side.Grid().GetItem(static_cast<int>(row), type), rows[row]);
    }
    // The way back costs as much again: for all rows now and then, and for every fourth one always.
    for (std::size_t row = whole ? 0 : random() % 4; row < rows.size(); row += whole ? 1 : 4)
    {
        ASSERT_EQ(side.Grid().GetRow(rows[row]), static_cast<int>(row));
    }
    ASSERT_EQ(side.Grid().GetSelection(type), area.SelectedRows(true));
    if (!whole)
    {
        return;
    }
    for (ReferenceRow const* const row : area.AllRows())
    {
        std::vector<CGridItem*> children;
        std::ranges::transform(row->children, std::back_inserter(children), &ReferenceRow::item);
        ASSERT_EQ(side.Grid().GetChildren(row->item, false), children) << NameOf(row->item);
        ASSERT_EQ(side.Grid().IsExpanded(row->item), row->isExpanded) << NameOf(row->item);
    }
}

// The rows of an object in the order in which they were made, and all rows in the order of the tree.
void GridModelTest::CheckHandles(ModelSide& side)
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        Visitor visitor;
        side.Grid().ForEach(visitor, type == FixedContext ? FixedRoot : ScrollableRoot);
        std::vector<CGridItem*> expected;
        std::vector<ReferenceRow*> all = side.Area(type).AllRows();
        if (type == FixedContext && !all.empty())
        {
            std::ranges::copy(side.scrollable.AllRows(), std::back_inserter(all));
        }
        std::ranges::transform(all, std::back_inserter(expected), &ReferenceRow::item);
        ASSERT_EQ(visitor.items, expected);
    }
    if (objects.empty())
    {
        return;
    }
    Common::CDataObject const* const object = &AnyObject();
    std::vector<CGridItem*> expected = handles[object];
    std::erase_if(expected, [&](CGridItem* item) { return side.Find(item) == nullptr; });
    ASSERT_EQ(side.Grid().GetHandles(object, false, AllContexts), expected);
}

void GridModelTest::Check(ModelSide& side, bool whole)
{
    std::vector<std::string> told = side.window.Notifications().Lines();
    side.window.Notifications().Clear();
    std::erase(told, "SortUpdated");
    ASSERT_EQ(told, std::exchange(side.expected, {}));
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        ASSERT_NO_FATAL_FAILURE(CheckArea(side, type, whole));
    }
    if (whole)
    {
        ASSERT_NO_FATAL_FAILURE(CheckHandles(side));
    }
    ASSERT_EQ(side.Grid().GetSelectedCount(),
              std::ssize(side.fixed.SelectedRows(false)) + std::ssize(side.scrollable.SelectedRows(false)));
    ASSERT_EQ(side.Grid().GetItem(side.Grid().GetFocusedRow(), side.Grid().GetFocusedContext()), side.focused);
    ASSERT_EQ(side.Grid().GetFirstVisibleRow(), side.scrollable.VisibleRows().empty() ? -1 : side.firstRow);
}

TEST_P(GridModelTest, BothGridsAreWhatTheModelSays)
{
    unsigned const length = GetParam() == 1 ? kLongSequence : kShortSequence;
    int const operations = static_cast<int>(FromEnvironment("OSTREL_MODEL_OPERATIONS", length));
    for (int operation = 0; operation < operations; ++operation)
    {
        bool const whole = operation % 8 == 0;
        ASSERT_NO_FATAL_FAILURE(Step()) << "operation " << operation;
        ASSERT_NO_FATAL_FAILURE(Check(a, whole)) << "operation " << operation;
        ASSERT_NO_FATAL_FAILURE(Check(b, whole)) << "operation " << operation;
        if (operation % 50 == 0)
        {
            driver.RunUntilIdle();
        }
    }
    objects.clear();
    for (ModelSide* const side : {&a, &b})
    {
        EXPECT_EQ(side->Grid().GetRowCount(FixedContext) + side->Grid().GetRowCount(ScrollableContext), 0U);
        side->Grid().SetFilter(nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, GridModelTest, testing::Range(1U, 1U + FromEnvironment("OSTREL_MODEL_SEEDS", 5)));
} // namespace Ostrel::Testing
