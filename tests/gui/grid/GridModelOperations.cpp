#include <algorithm>

#include <ostrel/gui/grid/KeyManager.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/header/SortInfo.h>

#include "GridModelFixture.h"
#include "ModelUser.h"

namespace Ostrel::Testing
{
using namespace GUI;

namespace
{
constexpr int kScrollDelayMs = 10; ///< of a row that is scrolled into view for the second time since the last paint
} // namespace

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
    TestObject& object = isNew ? *objects.back() : AnyObject();
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
    Do(
        [item, &grid = row.side->Grid()]()
        {
            EXPECT_TRUE(grid.Delete(item));
            EXPECT_FALSE(grid.Exists(item));
        });
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
    ModelSide& side = PickSide();
    auto const mask = static_cast<ContextType>(Pick(4));
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        if (HasContext(mask, type))
        {
            std::ranges::for_each(side.Area(type).root.children, [this](auto const* row) { ForgetHandles(*row); });
        }
    }
    side.DeleteAll(mask);
    Do([mask, &grid = side.Grid()]() { grid.DeleteAll(mask); });
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
    Do(
        [=, handle = parent.Handle(), after = place.after, &grid = side.Grid()]()
        {
            bool const hasMoved = before ? grid.MoveBefore(item, handle, after) : grid.MoveAfter(item, handle, after);
            EXPECT_EQ(hasMoved, isPossible);
        });
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
    Do([=, handle = row.Handle(), &grid = row.side->Grid()]()
       { expand ? grid.Expand(handle, recursive) : grid.Collapse(handle, recursive); });
    row.side->ExpandOrCollapse(row.Area(), *row.row, expand, recursive);
}

void GridModelTest::Filter()
{
    ModelSide& side = PickSide();
    int const remainder = Pick(5);
    IGridFilter* const filter = remainder < 3 ? &filters[remainder] : nullptr;
    IGridFilter* const previous = side.filter;
    if (Pick(4) == 0)
    {
        Do([&grid = side.Grid()]() { grid.UpdateFilter(); }); // which finds nothing new
        if (previous != nullptr)
        {
            side.Filter(side.fixed.hiddenRemainder);
        }
        return;
    }
    side.filter = filter;
    Do([=, &grid = side.Grid()]() { EXPECT_EQ(grid.SetFilter(filter), previous); });
    if (filter != nullptr || previous != nullptr)
    {
        side.Filter(filter != nullptr ? remainder : -1);
    }
}

void GridModelTest::Sort()
{
    ModelSide& side = PickSide();
    std::vector<GUI::Detail::SortLevel> levels;
    int const count = Pick(4);
    for (int level = 0; level < count; ++level)
    {
        int const key = Pick(2);
        bool const descending = Pick(2) == 0;
        levels.push_back({key, descending});
    }
    Do(
        [=, &grid = side.Grid()]()
        {
            grid.ResetSort(true);
            for (int level = 0; level < count; ++level)
            {
                auto const& [key, descending] = levels[static_cast<std::size_t>(level)];
                grid.SetSort(level, CSortInfo(kKeyFields[key], descending), true);
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
    if (Pick(6) == 0)
    {
        CGridItem* const item = shown.row->item;
        long const fieldId = kKeyFields[Pick(2)];
        Do([=, &grid = shown.side->Grid()]() { grid.UpdateItem(item, fieldId); });
        driver.RunUntilIdle();
        shown.side->Update(shown.Area(), *shown.row);
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
    Do([=, item = row.row->item, &grid = row.side->Grid()]() { EXPECT_TRUE(grid.Select(item, select)); });
    row.side->Select(*row.row, select);
}

void GridModelTest::SelectAllOrNone()
{
    ModelSide& side = PickSide();
    bool const all = Pick(3) == 0;
    Do([all, &grid = side.Grid()]() { all ? grid.SelectAll() : grid.ClearSelection(); });
    all ? side.SelectAll() : side.ClearSelection();
}

void GridModelTest::Focus()
{
    Row const root = PickRoot();
    std::vector<CGridItem*> const rows = root.Area().VisibleRows();
    int const row = Pick(24) - 1;
    bool const exists = row >= 0 && row < static_cast<int>(rows.size());
    Do([=, type = root.type, &grid = root.side->Grid()]() { EXPECT_EQ(grid.SetFocusedRow(row, type), exists); });
    if (exists)
    {
        root.side->Focus(rows[static_cast<std::size_t>(row)]);
    }
}

void GridModelTest::Scroll()
{
    ModelSide& side = PickSide();
    int const row = Pick(40) - 1;
    Do([row, &grid = side.Grid()]() { grid.SetFirstVisibleRow(row); });
    if (row >= 0 && row < std::ssize(side.scrollable.VisibleRows()))
    {
        side.SetFirstRow(row);
    }
}

void GridModelTest::ChangeView()
{
    ModelSide& side = PickSide();
    side.isCalm = Pick(2) == 0;
    Do([&]() { side.Grid().SetCalmView(side.isCalm); });
}

void GridModelTest::SelectAreas()
{
    ModelSide& side = PickSide();
    side.sortedAreas = static_cast<ContextType>(Pick(4));
    Do(
        [&]()
        {
            side.Grid().SetSortedContext(side.sortedAreas);
            side.Grid().UpdateSort();
        });
    side.Sort();
}

// A thumb that is dragged freezes the order until it is let go.
void GridModelTest::FreezeOrThaw()
{
    ModelSide& side = PickSide();
    CGrid& grid = side.Grid();
    if (side.isFrozen)
    {
        grid.SetOrderFreeze(false);
        grid.SetOrderFreeze(true);
        side.Thaw();
        return;
    }
    int const row = Pick(20);
    grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, row));
    side.Freeze();
    side.SetFirstRow(row);
}

void GridModelTest::Navigate()
{
    ModelSide& side = PickSide();
    auto const key = static_cast<NavigationKey>(Pick(8));
    bool const shift = Pick(3) == 0;
    bool const ctrl = Pick(4) == 0;
    using Keys = IKeyManager;
    constexpr void (Keys::*kByManager[])(CGrid&, bool, bool) = {
        &Keys::NavigateKeyUp,   &Keys::NavigateKeyDown, &Keys::NavigateKeyPageUp, &Keys::NavigateKeyPageDown,
        &Keys::NavigateKeyHome, &Keys::NavigateKeyEnd,  &Keys::NavigateKeyLeft,   &Keys::NavigateKeyRight};
    constexpr void (CGrid::*kByGrid[])(bool, bool) = {&CGrid::NavigateUp,     &CGrid::NavigateDown,
                                                      &CGrid::NavigatePageUp, &CGrid::NavigatePageDown,
                                                      &CGrid::NavigateHome,   &CGrid::NavigateEnd};
    auto const which = static_cast<std::size_t>(key);
    if (which >= std::size(kByGrid))
    {
        (CPreferences::GetDefaultKeyManager()->*kByManager[which])(side.Grid(), shift, ctrl);
    }
    else if (!side.scrollable.VisibleRows().empty())
    {
        Do([&]() { (side.Grid().*kByGrid[which])(shift, ctrl); });
    }
    else
    {
        (side.Grid().*kByGrid[which])(shift, ctrl);
        return; // the keys of an empty area go nowhere
    }
    ModelUser(side).Press(key, shift, ctrl);
    driver.Advance(kScrollDelayMs);
}

void GridModelTest::Type()
{
    ModelSide& side = PickSide();
    driver.Advance(1000); // the last search is over
    std::string text;
    for (char const key : "N" + std::to_string(Pick(std::max(1, nextName))))
    {
        text += key;
        side.Grid().SendMessage(WM_KEYDOWN, static_cast<WPARAM>(key));
        if (!side.fixed.VisibleRows().empty() || !side.scrollable.VisibleRows().empty())
        {
            ModelUser(side).Type(text);
        }
        driver.Advance(kScrollDelayMs);
    }
}

void GridModelTest::ClickCaption()
{
    ModelSide& side = PickSide();
    int const key = Pick(2);
    int const modifier = Pick(6);
    side.window.ClickCaption(key == 0 ? "Quantity" : "Volume", modifier == 0  ? Modifier::Shift
                                                               : modifier < 3 ? Modifier::Ctrl
                                                                              : Modifier::None);
    ModelUser(side).SortBy(key, modifier == 0, modifier > 0 && modifier < 3);
}

// Two threads change a grid each at the same time, while a third one reads both.
void GridModelTest::WorkTogether()
{
    using Self = GridModelTest;
    constexpr void (Self::*kOperations[])() = {&Self::Delete, &Self::Move,     &Self::ExpandOrCollapse, &Self::Filter,
                                               &Self::Sort,   &Self::Select,   &Self::SelectAllOrNone,  &Self::Focus,
                                               &Self::Scroll, &Self::DeleteAll};
    std::vector<std::function<void()>> work[2];
    for (int i = 0; i < 2; ++i)
    {
        m_only = i == 0 ? &a : &b;
        m_deferred = &work[i];
        for (int each = 0; each < 3; ++each)
        {
            (this->*kOperations[Pick(static_cast<int>(std::size(kOperations)))])();
        }
    }
    m_only = nullptr;
    m_deferred = nullptr;
    Workers workers;
    for (auto const& list : work)
    {
        workers.Add("changes", [&list]() { std::ranges::for_each(list, [](auto const& each) { each(); }); });
    }
    workers.Add("reads",
                [this]()
                {
                    for (ModelSide* const side : {&a, &b})
                    {
                        CGridItem* const item = side->Grid().GetItem(0, ScrollableContext);
                        EXPECT_LE(side->Grid().GetRow(item), static_cast<int>(objects.size()) * 100);
                        EXPECT_GE(side->Grid().GetSelectedCount(), 0);
                    }
                });
    workers.Run();
}

// Somebody who hears of a change makes the next one while the grid is still at work.
void GridModelTest::Interfere()
{
    if (objects.empty())
    {
        return;
    }
    ModelSide& side = PickSide();
    bool isActing = false;
    side.window.Notifications().onNotification = [&](std::string const& line)
    {
        if (!isActing && Pick(3) == 0)
        {
            isActing = true;
            std::string name = line.substr(line.find(' ') + 1);
            name = name.substr(0, name.find(' '));
            auto const heardOf =
                std::ranges::find_if(objects, [&](auto const& object) { return object->GetName() == name; });
            DoAnything(side, heardOf != objects.end() && Pick(4) != 0 ? heardOf->get() : nullptr);
            isActing = false;
        }
    };
    for (ModelSide* const each : {&a, &b}) // rows that wait would move at a moment of their own
    {
        each->Grid().SetOrderFreeze(false);
        each->Grid().SetOrderFreeze(true);
        each->isFrozen = false;
        each->postponed.clear();
    }
    for (int i = 0; i < 3; ++i)
    {
        DoAnything(side, nullptr);
    }
    TestObject& object = AnyObject();
    int const value = Pick(9);
    object.SetQuantity(value);
    driver.RunUntilIdle();
    side.window.Notifications().onNotification = nullptr;
    Adopt();
    for (ReferenceRows* const area : {&a.fixed, &a.scrollable, &b.fixed, &b.scrollable})
    {
        area->SetValue(object, 0, value);
    }
}

void GridModelTest::DoAnything(ModelSide& side, TestObject* favourite)
{
    CGrid& grid = side.Grid();
    auto const anyObject = [&] { return favourite != nullptr ? favourite : &AnyObject(); };
    auto const anyRow = [&]
    {
        std::vector<CGridItem*> const rows = grid.GetHandles(anyObject(), false, AllContexts);
        return rows.empty() ? nullptr : AnyOf(rows);
    };
    CGridItem* const row = anyRow();
    CGridItem* const parents[] = {ScrollableRoot, FixedRoot, anyRow()};
    CGridItem* const parent = parents[Pick(3)];
    std::function<void()> const actions[] = {
        [&] { grid.Add(anyObject(), parent, Pick(2) == 0 ? anyRow() : LastPosition); },
        [&] { grid.Delete(row); },
        [&] { grid.MoveBefore(row, parent, anyRow()); },
        [&] { grid.MoveAfter(row, parent, LastPosition); },
        [&] { grid.Expand(parent, Pick(2) == 0); },
        [&] { grid.Collapse(parent, Pick(2) == 0); },
        [&] { grid.Select(row, Pick(3) != 0); },
        [&] { grid.SetFocusedRow(Pick(10), Pick(3) == 0 ? FixedContext : ScrollableContext); },
        [&] { Pick(2) == 0 ? grid.SelectAll() : grid.ClearSelection(); },
        [&]
        {
            int const remainder = Pick(4);
            side.filter = remainder < 3 ? &filters[remainder] : nullptr;
            side.fixed.hiddenRemainder = side.scrollable.hiddenRemainder = remainder < 3 ? remainder : -1;
            grid.SetFilter(side.filter);
        }};
    constexpr int kDelete = 1; // most often what was just heard of
    actions[favourite != nullptr && Pick(2) == 0 ? kDelete : Pick(10)]();
}

void GridModelTest::Adopt()
{
    a.Adopt();
    b.Adopt();
    for (auto& each : handles)
    {
        std::vector<CGridItem*>& items = each.second;
        std::erase_if(items, [](CGridItem* item) { return !GUI::Detail::ItemPool::IsLive(item); });
        for (ModelSide* const side : {&a, &b})
        {
            std::ranges::copy_if(side->Grid().GetHandles(each.first, false, AllContexts), std::back_inserter(items),
                                 [&](CGridItem* item) { return std::ranges::find(items, item) == items.end(); });
        }
    }
}

} // namespace Ostrel::Testing
