#include "ModelSide.h"

#include <algorithm>
#include <utility>

namespace Ostrel::Testing
{
using namespace GUI;
using GUI::Detail::ReferenceRow;
using GUI::Detail::ReferenceRows;
using GUI::Detail::RowEvent;
using GUI::Detail::RowEventKind;

namespace
{
int RowIn(ModelSide::Items const& rows, CGridItem const* item)
{
    auto const found = std::ranges::find(rows, item);
    return found != rows.end() ? static_cast<int>(found - rows.begin()) : -1;
}

ReferenceRow* Find(ReferenceRows const& area, CGridItem const* item)
{
    for (ReferenceRow* const row : area.AllRows())
    {
        if (row->item == item)
        {
            return row;
        }
    }
    return nullptr;
}

/// The row itself, the collapsed row that it is below, or, where the filter hides it, the next one.
CGridItem* VisibleInsteadOf(ReferenceRows const& area, ReferenceRow* row)
{
    ReferenceRow const* above = row;
    while (!above->isVisible)
    {
        above = above->parent;
    }
    if (above == row || (above->item != nullptr && !above->isExpanded))
    {
        return above->item;
    }
    std::vector<ReferenceRow*> const all = area.AllRows();
    auto const next = std::find_if(std::ranges::find(all, row), all.end(), [](auto* each) { return each->isVisible; });
    ModelSide::Items const rows = area.VisibleRows();
    return next != all.end() ? (*next)->item : rows.empty() ? nullptr : rows.back();
}
} // namespace

std::string NameOf(CGridItem const* item)
{
    return static_cast<TestObject*>(item->Object())->GetName();
}

ReferenceRow& Transfer(ReferenceRow const& row, ReferenceRows& to)
{
    ReferenceRow& copy = to.NewRow(row.item, row.values[0], row.values[1]);
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

ModelSide::ModelSide(Driver& driver, std::string const& title, CPoint position)
    : window(driver,
             {.title = title, .columns = "Name:80,Quantity:80,Volume:80", .size = {300, 180}, .position = position})
{
    Grid().SetOrderFreeze(true);

    CRect const rows = Grid().GetContextVisibleRect(ScrollableContext);
    m_layout = {rows.Height(), Grid().GetOptimalRowHeight(FixedContext), Grid().GetOptimalRowHeight(ScrollableContext),
                Grid().GetContextSeparatorHeight()};
}

void ModelSide::Adopt()
{
    for (ReferenceRows* const area : {&fixed, &scrollable})
    {
        std::ranges::for_each(std::exchange(area->root.children, {}), [area](auto* row) { area->Forget(*row); });
    }
    AdoptChildren(fixed, fixed.root, FixedRoot);
    AdoptChildren(scrollable, scrollable.root, ScrollableRoot);
    Sort();
    focused = Grid().GetItem(Grid().GetFocusedRow(), Grid().GetFocusedContext());
    firstRow = Scrolled(Grid().GetFirstVisibleRow());
    expected.clear();
    window.Notifications().Clear();
}

void ModelSide::AdoptChildren(ReferenceRows& area, ReferenceRow& parent, CGridItem* handle)
{
    for (CGridItem* const item : Grid().GetChildren(handle, false))
    {
        auto const& object = static_cast<TestObject&>(*item->Object());
        ReferenceRow& row =
            area.NewRow(item, static_cast<int>(object.GetQuantity()), static_cast<int>(object.GetVolume()));
        row.parent = &parent;
        parent.children.push_back(&row);
        row.isExpanded = Grid().IsExpanded(item);
        row.isSelected = Grid().IsSelected(item);
        row.isVisible = parent.isVisible && parent.isExpanded && !area.IsHidden(*item);
        AdoptChildren(area, row, item);
    }
}

// --- What follows from a change ---

ModelSide::Before ModelSide::Look(ReferenceRows const& area) const
{
    Items rows = area.VisibleRows();
    bool const isFollowed = isCalm && &area == &scrollable && firstRow > 0 && !rows.empty();
    CGridItem* const first = isFollowed ? rows[static_cast<std::size_t>(firstRow)] : nullptr;
    return {std::move(rows), first};
}

void ModelSide::ExpectEvents(ReferenceRows& area)
{
    for (RowEvent const& event : std::exchange(area.events, {}))
    {
        std::string const name = NameOf(event.item);
        switch (event.kind)
        {
        case RowEventKind::ExpandedChanged:
            Expect("ItemExpanded " + name + (Testing::Find(area, event.item)->isExpanded ? " expanded" : " collapsed"));
            break;
        case RowEventKind::Shown:
            Expect("ItemShown " + name);
            break;
        case RowEventKind::Filtered:
            Expect("ItemFiltered " + name + (area.IsHidden(*event.item) ? " hidden" : " shown"));
            break;
        }
    }
}

ReferenceRow* ModelSide::Find(CGridItem const* item) const
{
    ReferenceRow* const row = Testing::Find(scrollable, item);
    return row != nullptr ? row : Testing::Find(fixed, item);
}

int ModelSide::FittingRows() const
{
    int const fixedRows = static_cast<int>(fixed.VisibleRows().size());
    int const taken = fixedRows * m_layout.fixedRow + (fixedRows > 0 ? m_layout.separator : 0);
    return std::max(1, (m_layout.height - taken) / m_layout.scrollableRow);
}

int ModelSide::Scrolled(int row) const
{
    int const rows = static_cast<int>(scrollable.VisibleRows().size());
    return std::clamp(row, 0, std::max(0, rows - FittingRows()));
}

void ModelSide::EnsureVisible(int row)
{
    int const page = FittingRows();
    SetFirstRow(row < firstRow ? row : row >= firstRow + page ? row - page + 1 : firstRow);
}

void ModelSide::FollowFirstRow(ReferenceRows const& area, Before const& before)
{
    Items const after = area.VisibleRows();
    if (after == before.rows)
    {
        return;
    }
    int wanted = firstRow;
    if (before.first != nullptr)
    {
        ReferenceRow* const first = Testing::Find(area, before.first);
        auto const changed = std::ranges::mismatch(before.rows, after).in1 - before.rows.begin();
        CGridItem const* const shown = first != nullptr ? VisibleInsteadOf(area, first) : nullptr;
        wanted = shown != nullptr ? RowIn(after, shown) : std::min(firstRow, static_cast<int>(changed));
    }
    firstRow = Scrolled(wanted);
}

void ModelSide::FollowFocus(ReferenceRows const& area, Before const& before)
{
    Items const after = area.VisibleRows();
    int const row = RowIn(before.rows, focused);
    if (row < 0)
    {
        return;
    }
    if (isCalm)
    {
        Focus(VisibleInsteadOf(area, Testing::Find(area, focused)));
        return;
    }
    bool const hasHidden = std::ranges::any_of(before.rows, [&](CGridItem* item) { return RowIn(after, item) < 0; });
    if (hasHidden && RowIn(after, focused) != row)
    {
        Focus(nullptr);
    }
}

bool ModelSide::IsFocusIn(ReferenceRows const& area) const
{
    return focused != nullptr && Testing::Find(area, focused) != nullptr;
}

bool ModelSide::IsFocusBelow(ReferenceRows const& area, ReferenceRow const& top) const
{
    return focused != nullptr && ReferenceRows::IsInSubtree(top, Testing::Find(area, focused));
}

void ModelSide::HandFocusOn(ReferenceRows const& area, ReferenceRow const& leaving)
{
    if (!IsFocusBelow(area, leaving))
    {
        return;
    }
    CGridItem* before = nullptr;
    CGridItem* after = nullptr;
    bool hasPassed = false;
    for (ReferenceRow const* const row : area.AllRows())
    {
        bool const leaves = ReferenceRows::IsInSubtree(leaving, row);
        hasPassed = hasPassed || leaves;
        CGridItem*& neighbour = hasPassed ? after : before;
        if (row->isVisible && !leaves && (!hasPassed || after == nullptr))
        {
            neighbour = row->item;
        }
    }
    Focus(after != nullptr ? after : before);
}

void ModelSide::Focus(CGridItem* item)
{
    if (item == focused)
    {
        return;
    }
    if (focused != nullptr)
    {
        Expect("FocusChanged " + NameOf(focused) + " lost");
    }
    focused = item;
    if (focused != nullptr)
    {
        Expect("FocusChanged " + NameOf(focused) + " gained");
    }
}

// --- The operations ---

void ModelSide::Insert(ReferenceRows& area, ReferenceRow& row, ReferenceRow& parent, std::size_t position)
{
    Before const before = Look(area);
    area.Insert(row, parent, position);
    ExpectEvents(area);
    FollowFirstRow(area, before);
}

void ModelSide::Remove(ReferenceRows& area, ReferenceRow& row)
{
    Before const before = Look(area);
    area.Remove(row);
    FollowFirstRow(area, before);
}

void ModelSide::ExpectDeletions(ReferenceRows const& area, ReferenceRow const& top)
{
    std::vector<ReferenceRow*> const all = area.AllRows();
    for (auto each = all.rbegin(); each != all.rend(); ++each)
    {
        if (ReferenceRows::IsInSubtree(top, *each))
        {
            Expect("ItemDeleting " + NameOf((*each)->item));
        }
    }
}

void ModelSide::Delete(ReferenceRows& area, ReferenceRow& row)
{
    if (isCalm)
    {
        HandFocusOn(area, row);
    }
    else if (IsFocusIn(area))
    {
        Focus(nullptr);
    }
    ExpectDeletions(area, row);
    Remove(area, row);
    area.Forget(row);
}

void ModelSide::DeleteAll(ContextType mask)
{
    bool const goes = (HasContext(mask, FixedContext) && IsFocusIn(fixed)) ||
                      (HasContext(mask, ScrollableContext) && IsFocusIn(scrollable));
    if (!isCalm || goes)
    {
        Focus(nullptr);
    }
    for (ContextType const type : {ScrollableContext, FixedContext})
    {
        if (HasContext(mask, type))
        {
            ReferenceRows& area = Area(type);
            ExpectDeletions(area, area.root);
            while (!area.root.children.empty())
            {
                ReferenceRow& row = *area.root.children.back();
                area.Remove(row);
                area.Forget(row);
            }
        }
    }
    firstRow = Scrolled(firstRow);
    Sort(); // rows that waited in a frozen order go to their places
}

void ModelSide::Detach(ReferenceRows& area, ReferenceRow& row)
{
    Expect("ItemDetaching " + NameOf(row.item));
    isCalm ? HandFocusOn(area, row) : Focus(nullptr);
    Remove(area, row);
}

void ModelSide::Move(ReferenceRows& from, ReferenceRow& row, ReferenceRows& to, ReferenceRow& parent,
                     std::size_t position)
{
    CGridItem* const item = row.item;
    Expect("ItemDetaching " + NameOf(item));
    bool const isCarried = isCalm && IsFocusBelow(from, row);
    if (!isCalm)
    {
        Focus(nullptr);
    }
    Remove(from, row);
    ReferenceRow* moved = &row;
    if (&from != &to)
    {
        moved = &Transfer(row, to);
        from.Forget(row);
    }
    Insert(to, *moved, parent, position);
    if (isCarried)
    {
        Focus(VisibleInsteadOf(to, Testing::Find(to, focused)));
    }
    Expect("ItemAttached " + NameOf(item));
}

void ModelSide::ExpandOrCollapse(ReferenceRows& area, ReferenceRow& row, bool expand, bool recursive)
{
    Before const before = Look(area);
    expand ? area.Expand(row, recursive) : area.Collapse(row, recursive);
    ExpectEvents(area);
    FollowFirstRow(area, before);
    FollowFocus(area, before);
}

void ModelSide::Filter(int hiddenRemainder)
{
    Before before[2];
    for (int i = 0; i < 2; ++i)
    {
        ReferenceRows& area = i == 0 ? fixed : scrollable;
        before[i] = Look(area);
        area.hiddenRemainder = hiddenRemainder;
        area.ApplyFilter();
        ExpectEvents(area);
        FollowFirstRow(area, before[i]);
    }
    if (!isCalm)
    {
        Focus(nullptr);
        return;
    }
    FollowFocus(fixed, before[0]);
    FollowFocus(scrollable, before[1]);
}

void ModelSide::Sort(std::vector<GUI::Detail::SortLevel> const& newLevels)
{
    levels = newLevels;
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        Area(type).levels = HasContext(sortedAreas, type) ? levels : std::vector<GUI::Detail::SortLevel>();
        Area(type).Sort();
    }
}

void ModelSide::Update(ReferenceRows& area, ReferenceRow& row)
{
    Before before = Look(area);
    bool const wasVisible = row.isVisible;
    area.ApplyFilterTo(row);
    ExpectEvents(area);
    FollowFirstRow(area, before);
    if (wasVisible != row.isVisible)
    {
        isCalm ? FollowFocus(area, before) : Focus(nullptr);
    }
    if (area.levels.empty() || !isFrozen)
    {
        Reposition(area, row);
    }
    else if (std::ranges::find(postponed, row.item) == postponed.end())
    {
        postponed.push_back(row.item);
    }
    Expect("ItemUpdated " + NameOf(row.item));
}

void ModelSide::Thaw()
{
    isFrozen = false;
    for (CGridItem* const item : std::exchange(postponed, {}))
    {
        if (ReferenceRow* const row = Find(item))
        {
            Reposition(Testing::Find(fixed, item) != nullptr ? fixed : scrollable, *row);
        }
    }
}

void ModelSide::Reposition(ReferenceRows& area, ReferenceRow& row)
{
    if (area.levels.empty())
    {
        return;
    }
    Before const before = Look(area);
    std::vector<ReferenceRow*> const siblings = row.parent->children;
    area.Reposition(row);
    if (row.parent->children != siblings)
    {
        bool const holdsFirst =
            before.first != nullptr && ReferenceRows::IsInSubtree(row, Testing::Find(area, before.first));
        if (before.first != nullptr && !holdsFirst)
        {
            FollowFirstRow(area, before);
        }
        if (!isCalm)
        {
            Focus(nullptr);
        }
        Expect("ItemMoved " + NameOf(row.item));
    }
}

void ModelSide::Select(ReferenceRow& row, bool select)
{
    if (row.isSelected != select && (row.isVisible || !select))
    {
        row.isSelected = select;
        Expect("SelectionChanged " + NameOf(row.item) + (select ? " selected" : " deselected"));
    }
}

void ModelSide::SelectAll()
{
    for (ReferenceRows* const area : {&fixed, &scrollable})
    {
        std::ranges::for_each(area->AllRows(), [this](ReferenceRow* row) { Select(*row, true); });
    }
}

void ModelSide::ClearSelection()
{
    for (ReferenceRows* const area : {&fixed, &scrollable})
    {
        std::ranges::for_each(area->AllRows(), [this](ReferenceRow* row) { Select(*row, false); });
    }
}

} // namespace Ostrel::Testing
