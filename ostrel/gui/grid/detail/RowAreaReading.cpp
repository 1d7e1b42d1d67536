// What can be asked of the tree: rows, levels, neighbours, children, selection.
#include <algorithm>
#include <bit>

#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/grid/detail/TreeWalk.h>

namespace Ostrel::GUI::Detail
{

CGridItem* RowArea::ItemAt(int row) const noexcept
{
    if (row < 0 || row >= RowCount())
    {
        return nullptr;
    }
    auto remaining = static_cast<std::uint32_t>(row);
    CGridItem* item = m_root;
    for (;;)
    {
        item = item->m_children.AtRow(remaining);
        if (remaining == 0)
        {
            return item;
        }
        --remaining;
    }
}

bool RowArea::IsVisible(CGridItem const& item) noexcept
{
    if (item.m_isRoot || item.m_isHidden || !item.m_parent)
    {
        return false;
    }
    return ShowsChildren(*item.m_parent);
}

bool RowArea::ShowsChildren(CGridItem const& item) noexcept
{
    CGridItem const* at = &item;
    while (at->m_isExpanded && !at->m_isHidden && at->m_parent)
    {
        at = at->m_parent;
    }
    return at->m_isRoot;
}

int RowArea::RowsAbove(CGridItem const& item) noexcept
{
    return RowsAbove(item, ChildSequence::PlaceOf(item));
}

int RowArea::RowsAbove(CGridItem const& item, SequencePlace place) noexcept
{
    std::uint32_t rows = ChildSequence::RowsBefore(place);
    for (CGridItem const* at = item.m_parent; at->m_leaf; at = at->m_parent)
    {
        rows += 1 + ChildSequence::RowsBefore(ChildSequence::PlaceOf(*at));
    }
    return static_cast<int>(rows);
}

int RowArea::RowOf(CGridItem const& item) noexcept
{
    return IsVisible(item) ? RowsAbove(item) : -1;
}

int RowArea::Level(CGridItem const& item) noexcept
{
    int level = -1;
    for (CGridItem const* at = &item; at && !at->m_isRoot; at = at->m_parent)
    {
        ++level;
    }
    return level;
}

int RowArea::VisibleDescendants(CGridItem const& item) noexcept
{
    return ShowsChildren(item) ? static_cast<int>(item.m_children.Rows()) : 0;
}

CGridItem* RowArea::NextVisible(CGridItem const& item) noexcept
{
    if (!IsVisible(item))
    {
        return nullptr;
    }
    if (!item.m_isExpanded || item.m_children.Rows() == 0)
    {
        CGridItem* const sibling = ChildSequence::Next(item);
        if (sibling && !sibling->m_isHidden)
        {
            return sibling;
        }
    }
    return item.m_area->ItemAt(RowsAbove(item) + 1);
}

CGridItem* RowArea::PreviousVisible(CGridItem const& item) noexcept
{
    return IsVisible(item) ? item.m_area->ItemAt(RowsAbove(item) - 1) : nullptr;
}

CGridItem* RowArea::VisibleInsteadOf(CGridItem& item) const noexcept
{
    if (IsVisible(item))
    {
        return &item;
    }
    CGridItem* top = &item;
    while (!top->m_parent->m_isRoot && !IsVisible(*top->m_parent))
    {
        top = top->m_parent;
    }
    if (!top->m_parent->m_isExpanded)
    {
        return top->m_parent;
    }
    return ItemAt(std::min(RowsAbove(*top), RowCount() - 1));
}

CGridItem* RowArea::NextInTree(CGridItem const& item) noexcept
{
    if (item.HasChildren())
    {
        return item.m_children.First();
    }
    for (CGridItem const* at = &item; at->m_leaf; at = at->m_parent)
    {
        if (CGridItem* const next = ChildSequence::Next(*at))
        {
            return next;
        }
    }
    return nullptr;
}

bool RowArea::IsAncestor(CGridItem const& ancestor, CGridItem const& item) noexcept
{
    CGridItem const* at = &item;
    while (at && at != &ancestor)
    {
        at = at->m_parent;
    }
    return at != nullptr;
}

std::vector<CGridItem*> RowArea::Children(CGridItem const& item, bool onlyVisible)
{
    std::vector<CGridItem*> children;
    if (onlyVisible && !ShowsChildren(item))
    {
        return children;
    }
    children.reserve(item.m_children.Count());
    item.m_children.ForEach(
        [&](CGridItem& child)
        {
            if (!onlyVisible || !child.m_isHidden)
            {
                children.push_back(&child);
            }
        });
    return children;
}

bool RowArea::Select(CGridItem& item, bool selected) noexcept
{
    if (item.m_isSelected == selected)
    {
        return false;
    }
    item.m_isSelected = selected;
    CarrySelected(item);
    RowArea& area = *item.m_area;
    area.m_selectedCount += area.m_type == NoContext ? 0 : selected ? 1 : -1;
    return true;
}

void RowArea::SelectAllVisible(std::vector<CGridItem*>* changed)
{
    WalkSubtree(*m_root,
                [&](CGridItem& item)
                {
                    if (!item.m_isRoot && !item.m_isHidden && Select(item, true) && changed)
                    {
                        changed->push_back(&item);
                    }
                    return item.m_isExpanded && !item.m_isHidden;
                });
}

std::vector<CGridItem*> RowArea::Selected(bool onlyVisible) const
{
    struct Pending
    {
        SequenceNode* node;
        std::uint64_t slots;
    };
    std::vector<CGridItem*> selected;
    std::vector<Pending> stack;
    auto const push = [&](SequenceNode* node)
    {
        if (node && node->m_selected != 0)
        {
            stack.push_back({node, node->m_selected});
        }
    };
    push(m_root->m_children.RootNode());
    while (!stack.empty())
    {
        Pending& top = stack.back();
        if (top.slots == 0)
        {
            stack.pop_back();
            continue;
        }
        auto const slot = static_cast<unsigned>(std::countr_zero(top.slots));
        top.slots &= top.slots - 1;
        SequenceNode& node = *top.node;
        if (!node.IsLeaf())
        {
            push(node.Child(slot));
            continue;
        }
        CGridItem& item = *node.ItemAt(slot);
        if (onlyVisible && item.m_isHidden)
        {
            continue;
        }
        if (item.m_isSelected)
        {
            selected.push_back(&item);
        }
        if (!onlyVisible || item.m_isExpanded)
        {
            push(item.m_children.RootNode());
        }
    }
    return selected;
}

} // namespace Ostrel::GUI::Detail
