#include "RowArea.h"

#include <algorithm>

#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/TreeWalk.h>

namespace Ostrel::GUI::Detail
{

RowArea::RowArea(ContextType type, IRowValues* values)
    : m_type(type), m_values(values), m_root(ItemPool::Create(nullptr))
{
    m_root->m_area = this;
    m_root->m_isRoot = true;
    m_root->m_isExpanded = true;
}

RowArea::~RowArea()
{
    DestroyAll();
    ItemPool::Destroy(m_root);
}

bool RowArea::Contains(CGridItem const* handle) const noexcept
{
    return ItemPool::IsLive(handle) && handle->m_area == this;
}

RowArea& RowArea::Detached() noexcept
{
    static RowArea* const area = new RowArea(NoContext, nullptr); // rows may outlive every static object
    return *area;
}

CGridItem* RowArea::CreateItem(Common::CDataObject* object)
{
    CGridItem* const item = ItemPool::Create(object);
    item->m_area = &Detached();
    return item;
}

void RowArea::DestroyDetached(CGridItem& item) noexcept
{
    WalkSubtree(
        item, [](CGridItem&) { return true; }, [](CGridItem& left) { ItemPool::Destroy(&left); });
}

void RowArea::DestroyAll() noexcept
{
    WalkSubtree(
        *m_root, [](CGridItem&) { return true; },
        [this](CGridItem& left)
        {
            if (&left != m_root)
            {
                ItemPool::Destroy(&left);
            }
        });
    m_root->m_children.Clear();
    m_selectedCount = 0;
    CountRowChange();
}

std::vector<CGridItem*> RowArea::DeletionOrder(CGridItem& item)
{
    std::vector<CGridItem*> items;
    WalkSubtree(item,
                [&](CGridItem& entered)
                {
                    if (!entered.m_isRoot)
                    {
                        items.push_back(&entered);
                    }
                    return true;
                });
    std::ranges::reverse(items);
    return items;
}

void RowArea::Insert(CGridItem& item, CGridItem& parent, CGridItem* after, RowChanges& changes)
{
    SetAreaOfSubtree(item, *this);
    item.m_parent = &parent;
    item.m_isHidden = true; // so that it takes no rows until the filter was asked
    try
    {
        if (IsSorted())
        {
            m_order.ComputeKeys(item, *m_values);
            if (Contains(&item)) // a getter may delete and move rows
            {
                SortBelow(item);
            }
            if (!Contains(&item) || item.m_leaf)
            {
                return;
            }
            item.m_parent = Contains(&parent) ? &parent : m_root;
        }
        CGridItem& home = *item.m_parent;
        home.m_children.Insert(IsSorted() ? home.m_children.Find(Bound::Upper, item, m_order) : PlaceAfter(home, after),
                               item);
        CountRowChange();
        CarrySelected(home);
        Show(item, changes);
    }
    catch (...)
    {
        Unlink(item);
        throw;
    }
}

SequencePlace RowArea::PlaceAfter(CGridItem const& parent, CGridItem* after) const noexcept
{
    if (after == FirstPosition || after == &parent)
    {
        return parent.m_children.Begin();
    }
    if (!Contains(after))
    {
        return parent.m_children.End();
    }
    while (after && after->m_parent != &parent)
    {
        after = after->m_parent;
    }
    if (!after)
    {
        return parent.m_children.End();
    }
    SequencePlace place = ChildSequence::PlaceOf(*after);
    ++place.slot;
    return place;
}

void RowArea::Remove(CGridItem& item, RowChanges& changes)
{
    if (IsVisible(item))
    {
        changes.Touch(RowOf(item));
        changes.rowsHidden += item.Rows();
    }
    Unlink(item);
}

void RowArea::Unlink(CGridItem& item) noexcept
{
    CGridItem& parent = *item.m_parent;
    item.m_area->CountRowChange();
    if (item.m_leaf)
    {
        parent.m_children.Erase(ChildSequence::PlaceOf(item));
        CarryRows(parent);
        CarrySelected(parent);
    }
    item.m_parent = nullptr;
    SetAreaOfSubtree(item, Detached());
}

void RowArea::SetAreaOfSubtree(CGridItem& item, RowArea& area) noexcept
{
    RowArea& from = *item.m_area;
    int selected = 0;
    WalkSubtree(item,
                [&](CGridItem& entered)
                {
                    entered.m_area = &area;
                    selected += entered.m_isSelected ? 1 : 0;
                    return true;
                });
    // The detached area is shared by threads and counts nothing.
    from.m_selectedCount -= from.m_type == NoContext ? 0 : selected;
    area.m_selectedCount += area.m_type == NoContext ? 0 : selected;
}

void RowArea::CarryRows(CGridItem& item) noexcept
{
    for (CGridItem* at = &item; at->m_leaf && ChildSequence::UpdateRows(*at) != 0; at = at->m_parent)
    {}
}

void RowArea::CarrySelected(CGridItem& item) noexcept
{
    for (CGridItem* at = &item; at->m_leaf && ChildSequence::UpdateSelected(*at); at = at->m_parent)
    {}
}

void RowArea::Sort(std::span<SortLevel const> levels)
{
    m_order.SetLevels(levels);
    if (IsSorted())
    {
        SortBelow(*m_root);
    }
}

// Keys come from the application, which may add and delete rows meanwhile: parents and children are looked at again.
void RowArea::SortBelow(CGridItem& item)
{
    std::vector<CGridItem*> parents;
    WalkSubtree(item,
                [&](CGridItem& entered)
                {
                    if (entered.HasChildren())
                    {
                        parents.push_back(&entered);
                    }
                    return true;
                });
    std::vector<CGridItem*> children;
    for (CGridItem* const parent : parents)
    {
        if (ItemPool::IsLive(parent))
        {
            SortChildren(*parent, children);
        }
    }
}

void RowArea::SortChildren(CGridItem& parent, std::vector<CGridItem*>& children)
{
    auto const collect = [&]()
    {
        children.clear();
        children.reserve(parent.m_children.Count());
        parent.m_children.ForEach([&](CGridItem& child) { children.push_back(&child); });
    };
    collect();
    std::uint32_t const changes = m_rowChanges;
    ComputeKeys(children);
    if (changes != m_rowChanges && ItemPool::IsLive(&parent))
    {
        collect();
    }
    if (IsSorted() && ItemPool::IsLive(&parent))
    {
        m_order.Sort(children);
        parent.m_children.Assign(children);
    }
}

/// Rows and their objects lie anywhere in memory, so those next in turn are fetched ahead.
void RowArea::ComputeKeys(std::span<CGridItem* const> items)
{
    constexpr std::size_t kItemsAhead = 24;
    constexpr std::size_t kObjectsAhead = 12;
    std::size_t const last = items.size() - 1;
    std::uint32_t const changes = m_rowChanges;
    for (std::size_t i = 0; i < items.size() && IsSorted(); ++i)
    {
        if (changes == m_rowChanges)
        {
            CGridItem const* const far = items[std::min(i + kItemsAhead, last)];
            __builtin_prefetch(far, 1);
            __builtin_prefetch(reinterpret_cast<std::byte const*>(far) + 64);
            CGridItem const* const near = items[std::min(i + kObjectsAhead, last)];
            __builtin_prefetch(near->m_object);
            __builtin_prefetch(near->m_sortValues.get(), 1);
        }
        else if (!ItemPool::IsLive(items[i]))
        {
            continue;
        }
        m_order.ComputeKeys(*items[i], *m_values);
    }
}

RowMove RowArea::Reposition(CGridItem& item)
{
    if (!IsSorted() || !item.m_leaf)
    {
        return {};
    }
    ChildSequence::Fetch(item);
    m_order.ComputeKeys(item, *m_values);
    if (!ItemPool::IsLive(&item) || item.m_area != this || !IsSorted())
    {
        return {}; // a getter took the row away, or its order
    }
    SequencePlace const place = ChildSequence::PlaceOf(item);
    Ordering const toPrevious = ChildSequence::CompareWithPrevious(place, item, m_order);
    Ordering const toNext = ChildSequence::CompareWithNext(place, item, m_order);
    auto const isInOrder = [](Ordering ordering)
    { return ordering == Ordering::Before || ordering == Ordering::Equal; };
    if (isInOrder(toPrevious) && isInOrder(toNext))
    {
        ChildSequence::UpdateKey(place);
        return {};
    }
    bool const goesBack = toPrevious == Ordering::After;
    bool const goesForward = !goesBack && toPrevious != Ordering::Incomparable && toNext == Ordering::After;
    Bound const bound = goesBack ? Bound::Upper : Bound::Lower;
    // The leaf to which it goes comes into the cache while the item is taken out of its own.
    bool const knowsLeaf = (goesBack || goesForward) && place.leaf->Tags()[place.slot] == item.m_sortTag;
    SequenceNode* const leaf = knowsLeaf ? item.m_parent->m_children.FindLeaf(bound, item, m_order) : nullptr;
    bool const isVisible = IsVisible(item);
    int const from = isVisible ? RowsAbove(item, place) : -1;
    SequencePlace const target =
        goesBack || goesForward ? MoveTo(leaf, bound, item, place) : MoveEitherWay(item, place);
    if (!target.leaf)
    {
        return {};
    }
    return {true, from, isVisible ? RowsAbove(item, target) : -1, isVisible ? static_cast<int>(item.Rows()) : 0};
}

/// The leaf in which the bound was before the item left its place, null where that is not known.
SequencePlace RowArea::MoveTo(SequenceNode* leaf, Bound bound, CGridItem& item, SequencePlace place)
{
    ChildSequence& siblings = item.m_parent->m_children;
    bool const othersStay = siblings.Erase(place);
    leaf = leaf && othersStay ? leaf : siblings.FindLeaf(bound, item, m_order);
    return siblings.Insert(ChildSequence::FindIn(*leaf, bound, item, m_order), item);
}

/// A neighbour does not compare and so says nothing: searches first among the siblings before the item, then among
/// those behind it. Returns no place if it stays.
SequencePlace RowArea::MoveEitherWay(CGridItem& item, SequencePlace place)
{
    ChildSequence& siblings = item.m_parent->m_children;
    std::uint32_t const oldPosition = ChildSequence::PositionOf(place);
    siblings.Erase(place);
    SequencePlace target = siblings.Find(Bound::Upper, item, m_order);
    if (ChildSequence::PositionOf(target) >= oldPosition)
    {
        target = siblings.Find(Bound::Lower, item, m_order);
        target = ChildSequence::PositionOf(target) > oldPosition ? target : siblings.PlaceAt(oldPosition);
    }
    target = siblings.Insert(target, item);
    return ChildSequence::PositionOf(target) != oldPosition ? target : SequencePlace();
}

} // namespace Ostrel::GUI::Detail
