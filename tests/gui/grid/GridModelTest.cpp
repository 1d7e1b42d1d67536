// Two grids that exchange rows, against the row model in its most naive form: after every one of thousands of random
// operations the order, the row numbers, the selection, the focus and all that the parents were told must be the same.
#include <random>

#include <ostrel/gui/grid/IGridFilter.h>

#include "../model/ReferenceRows.h"
#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;
using GUI::Detail::ReferenceRow;
using GUI::Detail::ReferenceRows;
using GUI::Detail::RowEvent;
using GUI::Detail::RowEventKind;

constexpr long kKeyFields[] = {TestObject::Quantity, TestObject::Volume};

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

std::string NameOf(CGridItem const* item)
{
    return static_cast<TestObject*>(item->Object())->GetName();
}

/// A grid and what it should be like.
class Side
{
public:
    Side(Driver& driver, std::string const& title) : window(driver, {.title = title}) {}

    CGrid& Grid() { return window.Grid(); }
    ReferenceRows& Area(ContextType type) { return type == FixedContext ? fixed : scrollable; }
    void Expect(std::string const& line) { expected.push_back(line); }

    /// What the model's operations on an area have to say.
    void ExpectEvents(ReferenceRows& area)
    {
        for (RowEvent const& event : std::exchange(area.events, {}))
        {
            std::string const name = NameOf(event.item);
            CGridItem* const item = event.item;
            switch (event.kind)
            {
            case RowEventKind::ExpandedChanged:
                Expect("ItemExpanded " + name + (item->IsExpanded() ? " expanded" : " collapsed"));
                break;
            case RowEventKind::Shown:
                Expect("ItemShown " + name);
                break;
            case RowEventKind::Filtered:
                Expect("ItemFiltered " + name + (area.IsHidden(*item) ? " hidden" : " shown"));
                break;
            }
        }
    }
    void LoseFocus()
    {
        if (focused != nullptr)
        {
            Expect("FocusChanged " + NameOf(std::exchange(focused, nullptr)) + " lost");
        }
    }
    /// An operation that hides rows takes the focus of a row whose number changes.
    void ExpectFocusAfter(ReferenceRows& area, std::vector<CGridItem*> const& before)
    {
        std::vector<CGridItem*> const after = area.VisibleRows();
        auto const rowIn = [](std::vector<CGridItem*> const& rows, CGridItem* item)
        {
            auto const found = std::ranges::find(rows, item);
            return found != rows.end() ? static_cast<int>(found - rows.begin()) : -1;
        };
        int const row = rowIn(before, focused);
        bool const hasHidden = std::ranges::any_of(before, [&](CGridItem* item) { return rowIn(after, item) < 0; });
        if (row >= 0 && hasHidden && rowIn(after, focused) != row)
        {
            LoseFocus();
        }
    }
    /// Does something to the model of an area, with all that follows.
    template <class Change>
    void Run(ReferenceRows& area, Change const& change)
    {
        std::vector<CGridItem*> const before = area.VisibleRows();
        change();
        ExpectEvents(area);
        ExpectFocusAfter(area, before);
    }

    GridWindow window;
    ReferenceRows fixed;
    ReferenceRows scrollable;
    CGridItem* focused = nullptr;
    std::vector<std::string> expected;
};

class GridModelTest : public testing::TestWithParam<unsigned>
{
protected:
    struct Row
    {
        Side* side = nullptr;
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

    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }
    Row PickRoot()
    {
        Side& side = Pick(2) == 0 ? a : b;
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
        Row parent = Pick(3) == 0 ? PickRoot() : PickRow();
        return PlaceBelow(parent.row != nullptr ? parent : PickRoot());
    }
    Place PlaceBelow(Row parent)
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
    static ReferenceRow& Transfer(ReferenceRow const& row, ReferenceRows& to)
    {
        ReferenceRow& copy = to.NewRow(row.item, row.keys[0], row.keys[1]);
        copy.isExpanded = row.isExpanded;
        copy.isSelected = row.isSelected;
        for (ReferenceRow const* const child : row.children)
        {
            ReferenceRow& childCopy = Transfer(*child, to);
            childCopy.parent = &copy;
            copy.children.push_back(&childCopy);
        }
        return copy;
    }

    void Add();
    void DeleteRow();
    void Detach();
    void Attach();
    void Move();
    void ExpandOrCollapse();
    void Filter();
    void Sort();
    void Update();
    void Select();
    void Focus();
    void Step();
    void Check(Side& side);
    void CheckArea(Side& side, ContextType type);

    struct Detached
    {
        ReferenceRow* row;
        ReferenceRows* owner;
    };

    std::mt19937 random{GetParam()};
    Driver driver;
    std::vector<std::unique_ptr<TestObject>> objects; // outlive the grids' rows
    RemainderFilter filters[3]{RemainderFilter(0), RemainderFilter(1), RemainderFilter(2)};
    Side a{driver, "A"};
    Side b{driver, "B"};
    std::vector<Detached> detached;
    int nextName = 0;
};

void GridModelTest::Add()
{
    Place const place = PickPlace();
    if (place.parent.Area().AllRows().size() > 40)
    {
        return;
    }
    int const keys[] = {Pick(9), Pick(4)};
    std::string const name = "n" + std::to_string(nextName++);
    objects.push_back(std::make_unique<TestObject>(TestRow{.name = name, .quantity = keys[0], .volume = keys[1]}));
    Side& side = *place.parent.side;
    CGridItem* const item = side.Grid().Add(objects.back().get(), place.parent.Handle(), place.after);
    ASSERT_NE(item, nullptr);
    ReferenceRows& area = place.parent.Area();
    side.Run(area, [&]() { area.Insert(area.NewRow(item, keys[0], keys[1]), *place.parent.row, place.position); });
    side.Expect("ItemAdded " + name);
}

void GridModelTest::DeleteRow()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    ReferenceRows& area = row.Area();
    auto const all = area.AllRows();
    if (std::ranges::any_of(all, [&](auto* each) { return each->item == row.side->focused; }))
    {
        row.side->LoseFocus();
    }
    for (auto each = all.rbegin(); each != all.rend(); ++each)
    {
        if (ReferenceRows::IsInSubtree(*row.row, *each))
        {
            row.side->Expect("ItemDeleting " + NameOf((*each)->item));
        }
    }
    CGridItem* const item = row.row->item;
    bool const endsObject = row.row->isVisible && Pick(2) == 0;
    area.Remove(*row.row);
    area.Forget(*row.row);
    if (endsObject)
    {
        std::erase_if(objects, [&, object = item->Object()](auto const& each) { return each.get() == object; });
    }
    else
    {
        EXPECT_TRUE(row.side->Grid().Delete(item));
    }
    EXPECT_FALSE(row.side->Grid().Exists(item));
}

void GridModelTest::Detach()
{
    Row const row = PickRow();
    if (row.row == nullptr || detached.size() > 4)
    {
        return;
    }
    row.side->Expect("ItemDetaching " + NameOf(row.row->item));
    row.side->LoseFocus();
    EXPECT_TRUE(row.side->Grid().Detach(row.row->item));
    row.Area().Remove(*row.row);
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
    Side& side = *place.parent.side;
    ReferenceRows& area = place.parent.Area();
    CGridItem* const item = last.row->item;
    ReferenceRow* row = last.row;
    if (last.owner != &area)
    {
        row = &Transfer(*last.row, area);
        last.owner->Forget(*last.row);
    }
    EXPECT_TRUE(side.Grid().Attach(item, place.parent.Handle(), place.after));
    side.Run(area, [&]() { area.Insert(*row, *place.parent.row, place.position); });
    side.Expect("ItemAttached " + NameOf(item));
}

void GridModelTest::Move()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    Side& side = *row.side;
    Row parent = Pick(2) == 0 ? Row{&side, row.type, row.row->parent} : PickRow();
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
    bool const hasMoved = before ? side.Grid().MoveBefore(item, parent.Handle(), place.after)
                                 : side.Grid().MoveAfter(item, parent.Handle(), place.after);
    ASSERT_EQ(hasMoved, isPossible);
    if (!isPossible)
    {
        return;
    }
    side.Expect("ItemDetaching " + NameOf(item));
    side.LoseFocus();
    row.Area().Remove(*row.row);
    ReferenceRow* moved = row.row;
    if (parent.type != row.type)
    {
        moved = &Transfer(*row.row, parent.Area());
        row.Area().Forget(*row.row);
    }
    side.Run(parent.Area(), [&]() { parent.Area().Insert(*moved, *parent.row, position); });
    side.Expect("ItemAttached " + NameOf(item));
}

void GridModelTest::ExpandOrCollapse()
{
    Row const row = Pick(8) == 0 ? PickRoot() : PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    bool const recursive = Pick(3) == 0;
    if (Pick(5) < 3)
    {
        row.side->Grid().Expand(row.Handle(), recursive);
        row.side->Run(row.Area(), [&]() { row.Area().Expand(*row.row, recursive); });
    }
    else
    {
        row.side->Grid().Collapse(row.Handle(), recursive);
        row.side->Run(row.Area(), [&]() { row.Area().Collapse(*row.row, recursive); });
    }
}

void GridModelTest::Filter()
{
    Side& side = Pick(2) == 0 ? a : b;
    int const remainder = Pick(5);
    side.Grid().SetFilter(remainder < 3 ? &filters[remainder] : nullptr);
    bool const isFollowed = remainder < 3 || side.fixed.hiddenRemainder >= 0;
    for (ReferenceRows* const area : {&side.fixed, &side.scrollable})
    {
        area->hiddenRemainder = remainder < 3 ? remainder : -1;
        side.Run(*area, [&]() { area->ApplyFilter(); });
    }
    if (isFollowed)
    {
        side.LoseFocus();
    }
}

void GridModelTest::Sort()
{
    Side& side = Pick(2) == 0 ? a : b;
    std::vector<GUI::Detail::SortLevel> levels;
    side.Grid().ResetSort(true);
    int const count = Pick(4);
    for (int level = 0; level < count; ++level)
    {
        int const key = Pick(2);
        bool const descending = Pick(2) == 0;
        side.Grid().SetSort(level, CSortInfo(kKeyFields[key], descending), true);
        levels.push_back({key, descending});
        for (ReferenceRows* const area : {&side.fixed, &side.scrollable})
        {
            area->levels = levels;
            area->Sort();
        }
    }
    if (levels.empty())
    {
        side.fixed.levels.clear();
        side.scrollable.levels.clear();
    }
}

void GridModelTest::Update()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    auto* const object = static_cast<TestObject*>(row.row->item->Object());
    int const key = Pick(2);
    int const value = Pick(9);
    row.row->keys[key] = value;
    key == 0 ? object->SetQuantity(value) : object->SetVolume(value);
    driver.RunUntilIdle();

    ReferenceRows& area = row.Area();
    std::vector<CGridItem*> const before = area.VisibleRows();
    bool const wasVisible = row.row->isVisible;
    row.side->Run(area, [&]() { area.ApplyFilterTo(*row.row); });
    if (wasVisible != row.row->isVisible)
    {
        row.side->LoseFocus();
    }
    auto const siblingsBefore = row.row->parent->children;
    if (!area.levels.empty())
    {
        area.Reposition(*row.row);
    }
    if (row.row->parent->children != siblingsBefore)
    {
        row.side->LoseFocus();
        row.side->Expect("ItemMoved " + object->GetName());
    }
    row.side->Expect("ItemUpdated " + object->GetName());
}

void GridModelTest::Select()
{
    Row const row = PickRow();
    if (row.row == nullptr)
    {
        return;
    }
    if (Pick(12) == 0)
    {
        row.side->Grid().ClearSelection();
        for (ContextType const type : {FixedContext, ScrollableContext})
        {
            for (ReferenceRow* const each : row.side->Area(type).AllRows())
            {
                if (std::exchange(each->isSelected, false))
                {
                    row.side->Expect("SelectionChanged " + NameOf(each->item) + " deselected");
                }
            }
        }
        return;
    }
    bool const select = Pick(4) != 0;
    row.side->Grid().Select(row.row->item, select);
    if (row.row->isSelected != select && (row.row->isVisible || !select))
    {
        row.row->isSelected = select;
        row.side->Expect("SelectionChanged " + NameOf(row.row->item) + (select ? " selected" : " deselected"));
    }
}

void GridModelTest::Focus()
{
    Row const root = PickRoot();
    std::vector<CGridItem*> const rows = root.Area().VisibleRows();
    int const row = Pick(12) - 1;
    bool const exists = row >= 0 && row < static_cast<int>(rows.size());
    EXPECT_EQ(root.side->Grid().SetFocusedRow(row, root.type), exists);
    CGridItem* const item = exists ? rows[static_cast<std::size_t>(row)] : nullptr;
    if (item != nullptr && item != root.side->focused)
    {
        root.side->LoseFocus();
        root.side->focused = item;
        root.side->Expect("FocusChanged " + NameOf(item) + " gained");
    }
}

void GridModelTest::Step()
{
    using Operation = void (GridModelTest::*)();
    constexpr Operation kOperations[] = {
        &GridModelTest::Add,    &GridModelTest::Add,    &GridModelTest::Add,    &GridModelTest::DeleteRow,
        &GridModelTest::Detach, &GridModelTest::Attach, &GridModelTest::Attach, &GridModelTest::Move,
        &GridModelTest::Filter, &GridModelTest::Sort,   &GridModelTest::Update, &GridModelTest::Update,
        &GridModelTest::Select, &GridModelTest::Focus,  &GridModelTest::Update, &GridModelTest::ExpandOrCollapse,
        &GridModelTest::Select, &GridModelTest::Focus,  &GridModelTest::Move,   &GridModelTest::ExpandOrCollapse};
    (this->*kOperations[Pick(static_cast<int>(std::size(kOperations)))])();
}

void GridModelTest::CheckArea(Side& side, ContextType type)
{
    ReferenceRows& area = side.Area(type);
    std::vector<CGridItem*> const rows = area.VisibleRows();
    ASSERT_EQ(side.Grid().GetRowCount(type), rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        ASSERT_EQ(side.Grid().GetItem(static_cast<int>(row), type), rows[row]);
        ASSERT_EQ(side.Grid().GetRow(rows[row]), static_cast<int>(row));
    }
    for (ReferenceRow const* const row : area.AllRows())
    {
        std::vector<CGridItem*> children;
        std::ranges::transform(row->children, std::back_inserter(children), &ReferenceRow::item);
        ASSERT_EQ(side.Grid().GetChildren(row->item, false), children) << NameOf(row->item);
        ASSERT_EQ(side.Grid().IsExpanded(row->item), row->isExpanded) << NameOf(row->item);
    }
    ASSERT_EQ(side.Grid().GetSelection(type), area.SelectedRows(true));
}

void GridModelTest::Check(Side& side)
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        ASSERT_NO_FATAL_FAILURE(CheckArea(side, type));
    }
    ASSERT_EQ(side.Grid().GetSelectedCount(),
              std::ssize(side.fixed.SelectedRows(false)) + std::ssize(side.scrollable.SelectedRows(false)));
    ASSERT_EQ(side.Grid().GetItem(side.Grid().GetFocusedRow(), side.Grid().GetFocusedContext()), side.focused);
    std::vector<std::string> told = side.window.Notifications().Lines();
    side.window.Notifications().Clear();
    std::erase(told, "SortUpdated");
    ASSERT_EQ(told, std::exchange(side.expected, {}));
}

TEST_P(GridModelTest, BothGridsAreWhatTheModelSays)
{
    for (int step = 0; step < 5000; ++step)
    {
        ASSERT_NO_FATAL_FAILURE(Step()) << "step " << step;
        ASSERT_NO_FATAL_FAILURE(Check(a)) << "step " << step;
        ASSERT_NO_FATAL_FAILURE(Check(b)) << "step " << step;
        if (step % 50 == 0)
        {
            driver.RunUntilIdle();
        }
    }
    objects.clear();
    for (Side* const side : {&a, &b})
    {
        EXPECT_EQ(side->Grid().GetRowCount(FixedContext) + side->Grid().GetRowCount(ScrollableContext), 0U);
        side->Grid().SetFilter(nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, GridModelTest, testing::Values(1U, 2U, 3U));
} // namespace
} // namespace Ostrel::Testing
