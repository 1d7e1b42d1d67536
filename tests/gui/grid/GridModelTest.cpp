// Two grids that exchange rows, against the row model in its most naive form: after every one of thousands of random
// operations, some of them made by another thread, the order, the row numbers, the selection, the focus, the first row
// and all that the parents were told must be the same.
//
// OSTREL_MODEL_SEEDS and OSTREL_MODEL_OPERATIONS ask for more seeds and longer sequences.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/IGridFilter.h>
#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/testing/Workers.h>

#include "ModelSide.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;
using GUI::Detail::ReferenceRow;
using GUI::Detail::ReferenceRows;

constexpr long kKeyFields[] = {TestObject::Quantity, TestObject::Volume};

unsigned FromEnvironment(char const* name, unsigned otherwise)
{
    char const* const value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

class RemainderFilter : public IGridFilter
{
public:
    explicit RemainderFilter(int hiddenRemainder) : m_hiddenRemainder(hiddenRemainder) {}

    bool AutoDelete() const override { return false; }
    bool IsFiltered(CGrid*, CGridItem*, Common::CDataObject* object) override
    {
        return object->GetLong(kKeyFields[0]) % 3 == m_hiddenRemainder;
    }

private:
    int m_hiddenRemainder;
};

class GridModelTest : public testing::TestWithParam<unsigned>
{
protected:
    struct Row
    {
        ModelSide* side = nullptr;
        ContextType type = NoContext;
        ReferenceRow* row = nullptr;

        [[nodiscard]] ReferenceRows& Area() const { return side->Area(type); }
        [[nodiscard]] CGridItem* Handle() const
        {
            return row != &Area().root ? row->item : type == FixedContext ? FixedRoot : ScrollableRoot;
        }
    };
    struct Place
    {
        Row parent;
        CGridItem* after = LastPosition;
        std::size_t position = 0;
    };
    struct Detached
    {
        ReferenceRow* row;
        ReferenceRows* owner;
    };

    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }
    Row PickRoot()
    {
        ModelSide& side = Pick(2) == 0 ? a : b;
        ContextType const type = Pick(4) == 0 ? FixedContext : ScrollableContext;
        return {&side, type, &side.Area(type).root};
    }
    /// A row of any kind in a tree; row null when the area that was picked has none.
    Row PickRow()
    {
        Row row = PickRoot();
        std::vector<ReferenceRow*> const all = row.Area().AllRows();
        row.row = all.empty() ? nullptr : all[static_cast<std::size_t>(Pick(static_cast<int>(all.size())))];
        return row;
    }
    Place PickPlace()
    {
        Row const parent = Pick(3) == 0 ? PickRoot() : PickRow();
        return PlaceBelow(parent.row != nullptr ? parent : PickRoot());
    }
    Place PlaceBelow(Row parent);

    /// Does it, now and then, on another thread, which waits for the grid's.
    template <class Operation>
    void Do(Operation const& operation)
    {
        if (Pick(60) != 0)
        {
            operation();
            return;
        }
        Workers workers;
        workers.Add("worker", operation);
        workers.Run();
    }

    void Add();
    void Delete();
    void DeleteObject();
    void DeleteAll();
    void Detach();
    void Attach();
    void Move();
    void ExpandOrCollapse();
    void Filter();
    void Sort();
    void Update();
    void Select();
    void SelectAllOrNone();
    void Focus();
    void Scroll();
    void ChangeView();
    void Step();
    void Check(ModelSide& side, bool whole);
    void CheckArea(ModelSide& side, ContextType type, bool whole);

    /// Where a row is; side null for a detached one.
    Row Find(CGridItem const* item);
    /// The rows of the objects are gone, or will be.
    void ForgetHandles(ReferenceRow const& top);
    void RemoveDetached(CGridItem const* item);

    std::mt19937 random{GetParam()};
    Driver driver;
    std::vector<std::unique_ptr<TestObject>> objects; // outlive the grids' rows
    std::map<Common::CDataObject const*, std::vector<CGridItem*>> handles;
    RemainderFilter filters[3]{RemainderFilter(0), RemainderFilter(1), RemainderFilter(2)};
    ModelSide a{driver, "A"};
    ModelSide b{driver, "B"};
    std::vector<Detached> detached;
    int nextName = 0;
};

GridModelTest::Place GridModelTest::PlaceBelow(Row parent)
{
    auto const& children = parent.row->children;
    int const count = static_cast<int>(children.size());
    switch (int const choice = Pick(3); children.empty() ? 0 : choice)
    {
    case 0:
        return {parent, LastPosition, children.size()};
    case 1:
        return {parent, FirstPosition, 0};
    default: {
        auto const at = static_cast<std::size_t>(Pick(count));
        return {parent, children[at]->item, at + 1};
    }
    }
}

GridModelTest::Row GridModelTest::Find(CGridItem const* item)
{
    for (ModelSide* const side : {&a, &b})
    {
        for (ContextType const type : {FixedContext, ScrollableContext})
        {
            std::vector<ReferenceRow*> const rows = side->Area(type).AllRows();
            auto const found = std::ranges::find(rows, item, &ReferenceRow::item);
            if (found != rows.end())
            {
                return {side, type, *found};
            }
        }
    }
    return {};
}

void GridModelTest::ForgetHandles(ReferenceRow const& top)
{
    std::erase(handles[top.item->Object()], top.item);
    std::ranges::for_each(top.children, [this](ReferenceRow const* child) { ForgetHandles(*child); });
}

void GridModelTest::RemoveDetached(CGridItem const* item)
{
    for (auto each = detached.begin(); each != detached.end(); ++each)
    {
        std::vector<ReferenceRow*> rows{each->row};
        for (std::size_t i = 0; i < rows.size(); ++i)
        {
            std::vector<ReferenceRow*> const children = rows[i]->children;
            rows.insert(rows.end(), children.begin(), children.end());
        }
        auto const found = std::ranges::find(rows, item, &ReferenceRow::item);
        if (found == rows.end())
        {
            continue;
        }
        ForgetHandles(**found);
        if (*found != each->row)
        {
            std::erase((*found)->parent->children, *found);
        }
        each->owner->Forget(**found);
        if (found == rows.begin())
        {
            detached.erase(each);
        }
        return;
    }
}

void GridModelTest::Add()
{
    Place const place = PickPlace();
    bool const isNew = objects.empty() || (Pick(4) != 0 && objects.size() < 100);
    if (place.parent.Area().AllRows().size() > 60)
    {
        return;
    }
    if (isNew)
    {
        int const quantity = Pick(9);
        int const volume = Pick(4);
        std::string name("n");
        name += std::to_string(nextName++);
        objects.push_back(std::make_unique<TestObject>(TestRow{.name = name, .quantity = quantity, .volume = volume}));
    }
    TestObject& object =
        isNew ? *objects.back() : *objects[static_cast<std::size_t>(Pick(static_cast<int>(objects.size())))];
    ModelSide& side = *place.parent.side;
    CGridItem* item = nullptr;
    Do([&]() { item = side.Grid().Add(&object, place.parent.Handle(), place.after); });
    ASSERT_NE(item, nullptr);
    handles[&object].push_back(item);
    ReferenceRows& area = place.parent.Area();
    ReferenceRow& row = area.NewRow(item, static_cast<int>(object.GetQuantity()), static_cast<int>(object.GetVolume()));
    side.Insert(area, row, *place.parent.row, place.position);
    side.Expect("ItemAdded " + object.GetName());
}

void GridModelTest::Delete()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    CGridItem* const item = row.row->item;
    ForgetHandles(*row.row);
    row.side->Delete(row.Area(), *row.row);
    Do([&]() { EXPECT_TRUE(row.side->Grid().Delete(item)); });
    EXPECT_FALSE(row.side->Grid().Exists(item));
}

// With all its rows, in the order in which they were made, wherever they are.
void GridModelTest::DeleteObject()
{
    if (objects.empty())
    {
        return;
    }
    auto const at = objects.begin() + Pick(static_cast<int>(objects.size()));
    for (CGridItem* const item : std::vector<CGridItem*>(handles[at->get()]))
    {
        if (std::ranges::find(handles[at->get()], item) == handles[at->get()].end())
        {
            continue; // it went with a row above it
        }
        if (Row const row = Find(item); row.side != nullptr)
        {
            ForgetHandles(*row.row);
            row.side->Delete(row.Area(), *row.row);
        }
        else
        {
            RemoveDetached(item);
        }
    }
    handles.erase(at->get());
    Do([&]() { at->reset(); });
    objects.erase(at);
}

void GridModelTest::DeleteAll()
{
    if (Pick(4) != 0)
    {
        return; // it leaves nothing to work with for a while
    }
    ModelSide& side = Pick(2) == 0 ? a : b;
    auto const mask = static_cast<ContextType>(Pick(4));
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        if (HasContext(mask, type))
        {
            std::ranges::for_each(side.Area(type).root.children, [this](auto const* row) { ForgetHandles(*row); });
        }
    }
    side.DeleteAll(mask);
    Do([&]() { side.Grid().DeleteAll(mask); });
}

void GridModelTest::Detach()
{
    Row const row = PickRow();
    if (row.row == nullptr || detached.size() > 4)
    {
        return;
    }
    CGridItem* const item = row.row->item;
    Do([&]() { EXPECT_TRUE(row.side->Grid().Detach(item)); });
    row.side->Detach(row.Area(), *row.row);
    detached.push_back({row.row, &row.Area()});
}

void GridModelTest::Attach()
{
    if (detached.empty())
    {
        return;
    }
    Detached const last = detached.back();
    detached.pop_back();
    Place const place = PickPlace();
    ModelSide& side = *place.parent.side;
    ReferenceRows& area = place.parent.Area();
    CGridItem* const item = last.row->item;
    ReferenceRow* row = last.row;
    if (last.owner != &area)
    {
        row = &Transfer(*last.row, area);
        last.owner->Forget(*last.row);
    }
    Do([&]() { EXPECT_TRUE(side.Grid().Attach(item, place.parent.Handle(), place.after)); });
    side.Insert(area, *row, *place.parent.row, place.position);
    side.Expect("ItemAttached " + NameOf(item));
}

void GridModelTest::Move()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    ModelSide& side = *row.side;
    Row const parent = Pick(2) == 0 ? Row{&side, row.type, row.row->parent} : PickRow();
    if (parent.side != &side || parent.row == nullptr)
    {
        return;
    }
    bool const before = Pick(2) == 0;
    Place const place = PlaceBelow(parent);
    CGridItem* const item = row.row->item;
    bool const isPossible =
        place.after != item && (parent.type != row.type || !ReferenceRows::IsInSubtree(*row.row, parent.row));
    std::size_t position = place.position;
    if (!IsReservedHandle(place.after))
    {
        position -= before ? 1 : 0;
        auto const& siblings = parent.row->children;
        auto const own = std::ranges::find(siblings, row.row) - siblings.begin();
        position -= row.row->parent == parent.row && static_cast<std::size_t>(own) < position ? 1 : 0;
    }
    else if (place.after == LastPosition)
    {
        position -= row.row->parent == parent.row ? 1 : 0;
    }
    bool hasMoved = false;
    Do(
        [&]()
        {
            hasMoved = before ? side.Grid().MoveBefore(item, parent.Handle(), place.after)
                              : side.Grid().MoveAfter(item, parent.Handle(), place.after);
        });
    ASSERT_EQ(hasMoved, isPossible);
    if (isPossible)
    {
        side.Move(row.Area(), *row.row, parent.Area(), *parent.row, position);
    }
}

void GridModelTest::ExpandOrCollapse()
{
    Row const row = Pick(8) == 0 ? PickRoot() : PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    bool const recursive = Pick(3) == 0;
    bool const expand = Pick(5) < 3;
    CGrid& grid = row.side->Grid();
    Do([&]() { expand ? grid.Expand(row.Handle(), recursive) : grid.Collapse(row.Handle(), recursive); });
    row.side->ExpandOrCollapse(row.Area(), *row.row, expand, recursive);
}

void GridModelTest::Filter()
{
    ModelSide& side = Pick(2) == 0 ? a : b;
    int const remainder = Pick(5);
    IGridFilter* const filter = remainder < 3 ? &filters[remainder] : nullptr;
    IGridFilter* const previous = side.Grid().GetFilter();
    IGridFilter* replaced = nullptr;
    Do([&]() { replaced = side.Grid().SetFilter(filter); });
    EXPECT_EQ(replaced, previous);
    if (filter != nullptr || previous != nullptr)
    {
        side.Filter(filter != nullptr ? remainder : -1);
    }
}

void GridModelTest::Sort()
{
    ModelSide& side = Pick(2) == 0 ? a : b;
    std::vector<GUI::Detail::SortLevel> levels;
    int const count = Pick(4);
    for (int level = 0; level < count; ++level)
    {
        int const key = Pick(2);
        bool const descending = Pick(2) == 0;
        levels.push_back({key, descending});
    }
    Do(
        [&]()
        {
            side.Grid().ResetSort(true);
            for (int level = 0; level < count; ++level)
            {
                auto const& [key, descending] = levels[static_cast<std::size_t>(level)];
                side.Grid().SetSort(level, CSortInfo(kKeyFields[key], descending), true);
            }
        });
    side.Sort(levels);
}

void GridModelTest::Update()
{
    Row const shown = PickRow();
    if (shown.row == nullptr)
    {
        return;
    }
    auto& object = static_cast<TestObject&>(*shown.row->item->Object());
    int const key = Pick(2);
    int const value = Pick(9);
    Do([&]() { key == 0 ? object.SetQuantity(value) : object.SetVolume(value); });
    driver.RunUntilIdle();
    for (ReferenceRows* const area : {&a.fixed, &a.scrollable, &b.fixed, &b.scrollable})
    {
        area->SetValue(object, key, value);
    }
    for (CGridItem* const item : handles[&object])
    {
        if (Row const row = Find(item); row.side != nullptr)
        {
            row.side->Update(row.Area(), *row.row);
        }
    }
}

void GridModelTest::Select()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    bool const select = Pick(4) != 0;
    Do([&]() { EXPECT_TRUE(row.side->Grid().Select(row.row->item, select)); });
    row.side->Select(*row.row, select);
}

void GridModelTest::SelectAllOrNone()
{
    ModelSide& side = Pick(2) == 0 ? a : b;
    bool const all = Pick(3) == 0;
    Do([&]() { all ? side.Grid().SelectAll() : side.Grid().ClearSelection(); });
    all ? side.SelectAll() : side.ClearSelection();
}

void GridModelTest::Focus()
{
    Row const root = PickRoot();
    std::vector<CGridItem*> const rows = root.Area().VisibleRows();
    int const row = Pick(24) - 1;
    bool const exists = row >= 0 && row < static_cast<int>(rows.size());
    Do([&]() { EXPECT_EQ(root.side->Grid().SetFocusedRow(row, root.type), exists); });
    if (exists)
    {
        root.side->Focus(rows[static_cast<std::size_t>(row)]);
    }
}

void GridModelTest::Scroll()
{
    ModelSide& side = Pick(2) == 0 ? a : b;
    int const row = Pick(40);
    Do([&]() { side.Grid().SetFirstVisibleRow(row); });
    side.SetFirstRow(row);
}

void GridModelTest::ChangeView()
{
    ModelSide& side = Pick(2) == 0 ? a : b;
    side.isCalm = Pick(2) == 0;
    Do([&]() { side.Grid().SetCalmView(side.isCalm); });
}

void GridModelTest::Step()
{
    using Self = GridModelTest;
    struct Operation
    {
        int share;
        void (Self::*perform)();
    };
    constexpr Operation kOperations[] = {
        {60, &Self::Add},    {8, &Self::Delete},  {8, &Self::DeleteObject}, {1, &Self::DeleteAll},
        {14, &Self::Detach}, {26, &Self::Attach}, {30, &Self::Move},        {34, &Self::ExpandOrCollapse},
        {12, &Self::Filter}, {12, &Self::Sort},   {44, &Self::Update},      {30, &Self::Select},
        {35, &Self::Focus},  {14, &Self::Scroll}, {3, &Self::ChangeView},   {3, &Self::SelectAllOrNone}};
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
    ASSERT_EQ(side.Grid().GetSelectedCount(),
              std::ssize(side.fixed.SelectedRows(false)) + std::ssize(side.scrollable.SelectedRows(false)));
    ASSERT_EQ(side.Grid().GetItem(side.Grid().GetFocusedRow(), side.Grid().GetFocusedContext()), side.focused);
    ASSERT_EQ(side.Grid().GetFirstVisibleRow(), side.scrollable.VisibleRows().empty() ? -1 : side.firstRow);
}

TEST_P(GridModelTest, BothGridsAreWhatTheModelSays)
{
    int const operations = static_cast<int>(FromEnvironment("OSTREL_MODEL_OPERATIONS", 20000));
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
} // namespace
} // namespace Ostrel::Testing
