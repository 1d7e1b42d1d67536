// Expanding, collapsing and filtering: which rows of the tree are visible. Every operation first finds out what will
// change (asking the filter, which may throw), then changes it, then lists what happened.
#include <algorithm>

#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/grid/detail/TreeWalk.h>

namespace Ostrel::GUI::Detail
{
namespace
{

/// Steps through a list of items in pre-order along with a walk that meets the same items.
class Companion
{
public:
    explicit Companion(std::vector<CGridItem*> const& items) noexcept : m_next(items.begin()), m_end(items.end()) {}

    [[nodiscard]] bool Meets(CGridItem const& item) noexcept
    {
        bool const meets = m_next != m_end && *m_next == &item;
        m_next += meets ? 1 : 0;
        return meets;
    }

private:
    std::vector<CGridItem*>::const_iterator m_next;
    std::vector<CGridItem*>::const_iterator m_end;
};

void AppendIf(bool condition, CGridItem& item, std::vector<CGridItem*>& items)
{
    if (condition)
    {
        items.push_back(&item);
    }
}

/// The row, if it is not hidden, and what it shows: each row after its descendants.
void AddShownEvents(CGridItem& top, RowChanges& changes)
{
    if (!changes.wantsEvents)
    {
        return;
    }
    WalkSubtree(
        top, [](CGridItem& item) { return item.IsExpanded() && !item.IsHiddenByFilter(); },
        [&](CGridItem& item)
        {
            if (!item.IsHiddenByFilter())
            {
                changes.events.push_back({RowEventKind::Shown, &item});
            }
        });
}

void AddEvent(RowEventKind kind, CGridItem& item, RowChanges& changes)
{
    if (changes.wantsEvents)
    {
        changes.events.push_back({kind, &item});
    }
}

} // namespace

bool RowArea::AsksToHide(CGridItem& item) const
{
    return m_filter && m_filter->IsHidden(item);
}

/// Which rows of a subtree, that is about to become visible, change their hidden flag; in pre-order.
void RowArea::FindFlips(CGridItem& top, std::vector<CGridItem*>& flips) const
{
    WalkSubtree(top,
                [&](CGridItem& item)
                {
                    bool const hides = AsksToHide(item);
                    AppendIf(hides != item.m_isHidden, item, flips);
                    return !hides && item.m_isExpanded;
                });
}

/// Descendants before ancestors, so that a row still hidden keeps the changes below it from being carried further up.
void RowArea::Flip(std::vector<CGridItem*> const& items) noexcept
{
    for (auto item = items.rbegin(); item != items.rend(); ++item)
    {
        (*item)->m_isHidden = !(*item)->m_isHidden;
        CarryRows(**item);
    }
}

void RowArea::SetExpanded(CGridItem& item, bool expanded) noexcept
{
    item.m_isExpanded = expanded;
    CarryRows(item);
}

/// A row that was just put into the tree, as a hidden one.
void RowArea::Show(CGridItem& item, RowChanges& changes)
{
    if (!ShowsChildren(*item.m_parent))
    {
        Flip({&item});
        return;
    }
    if (!item.HasChildren())
    {
        if (AsksToHide(item))
        {
            return;
        }
        item.m_isHidden = false;
        CarryRows(item);
    }
    else
    {
        std::vector<CGridItem*> flips;
        FindFlips(item, flips);
        Flip(flips);
    }
    ReportShown(item, changes);
}

void RowArea::ReportShown(CGridItem& item, RowChanges& changes)
{
    if (!item.m_isHidden)
    {
        changes.rowsShown += item.Rows();
        changes.Touch(RowsAbove(item));
        AddShownEvents(item, changes);
    }
}

/// What an expansion will do: flags to set, hidden flags to change, and the rows that become visible (with what they
/// show) below rows that are visible already; each in pre-order.
struct RowArea::ExpansionPlan
{
    std::vector<CGridItem*> expanded;
    std::vector<CGridItem*> flips;
    std::vector<CGridItem*> shown;
};

RowArea::ExpansionPlan RowArea::PlanExpansion(CGridItem& top, Recursion recursion) const
{
    bool const isRecursive = recursion == Recursion::WholeSubtree;
    bool const isShown = top.m_isRoot || IsVisible(top);
    ExpansionPlan plan;
    CGridItem* newlyShown = nullptr; // the row itself or the ancestor that was invisible below a visible row
    CGridItem* hidden = nullptr;     // the row itself or the ancestor that stays hidden
    WalkSubtree(
        top,
        [&](CGridItem& item)
        {
            bool const isTop = &item == &top;
            if ((isTop || isRecursive) && !item.m_isExpanded)
            {
                plan.expanded.push_back(&item);
            }
            if (isTop || !isShown)
            {
                return isRecursive || (isTop && isShown);
            }
            if (!newlyShown && item.m_parent->m_isExpanded && !item.m_isHidden)
            {
                return isRecursive;
            }
            newlyShown = newlyShown ? newlyShown : &item;
            if (!hidden)
            {
                bool const hides = AsksToHide(item);
                hidden = hides ? &item : nullptr;
                AppendIf(hides != item.m_isHidden, item, plan.flips);
                AppendIf(!hides && newlyShown == &item, item, plan.shown);
            }
            return isRecursive || (!hidden && item.m_isExpanded);
        },
        [&](CGridItem& item)
        {
            newlyShown = newlyShown == &item ? nullptr : newlyShown;
            hidden = hidden == &item ? nullptr : hidden;
        });
    return plan;
}

void RowArea::Expand(CGridItem& item, Recursion recursion, RowChanges& changes)
{
    ExpansionPlan const plan = PlanExpansion(item, recursion);
    if (plan.expanded.empty() && plan.shown.empty())
    {
        return;
    }
    int const rowsBefore = VisibleDescendants(item);
    Flip(plan.flips);
    // Descendants before ancestors, for the same reason as in Flip.
    std::for_each(plan.expanded.rbegin(), plan.expanded.rend(), [](CGridItem* each) { SetExpanded(*each, true); });
    if (ShowsChildren(item))
    {
        changes.Touch(item.m_isRoot ? 0 : RowsAbove(item));
        changes.rowsShown += VisibleDescendants(item) - rowsBefore;
    }
    if (changes.wantsEvents)
    {
        ReportExpansion(item, recursion, plan, changes);
    }
}

void RowArea::ReportExpansion(CGridItem& top, Recursion recursion, ExpansionPlan const& plan, RowChanges& changes)
{
    Companion expanded(plan.expanded);
    Companion shown(plan.shown);
    WalkSubtree(
        top,
        [&](CGridItem& item)
        {
            if (expanded.Meets(item))
            {
                AddEvent(RowEventKind::ExpandedChanged, item, changes);
            }
            return &item == &top || recursion == Recursion::WholeSubtree;
        },
        [&](CGridItem& item)
        {
            if (shown.Meets(item))
            {
                AddShownEvents(item, changes);
            }
        });
}

void RowArea::Collapse(CGridItem& item, Recursion recursion, RowChanges& changes)
{
    int const rowsBefore = VisibleDescendants(item);
    bool const isShown = ShowsChildren(item);
    bool hasChanged = false;
    WalkSubtree(item,
                [&](CGridItem& entered)
                {
                    if (entered.m_isExpanded && !entered.m_isRoot)
                    {
                        SetExpanded(entered, false);
                        AddEvent(RowEventKind::ExpandedChanged, entered, changes);
                        hasChanged = true;
                    }
                    return recursion == Recursion::WholeSubtree;
                });
    if (isShown && hasChanged)
    {
        changes.Touch(item.m_isRoot ? 0 : RowsAbove(item));
        changes.rowsHidden += rowsBefore - VisibleDescendants(item);
    }
}

bool RowArea::ApplyFilterTo(CGridItem& item, RowChanges& changes)
{
    if (!item.m_parent || !ShowsChildren(*item.m_parent))
    {
        return false;
    }
    bool const hides = AsksToHide(item);
    if (hides == item.m_isHidden)
    {
        return false;
    }
    std::vector<CGridItem*> flips;
    if (!hides && item.m_isExpanded)
    {
        item.m_children.ForEach([&](CGridItem& child) { FindFlips(child, flips); });
    }
    if (hides)
    {
        changes.rowsHidden += item.Rows();
        changes.Touch(RowsAbove(item));
    }
    Flip(flips);
    item.m_isHidden = hides;
    CarryRows(item);
    ReportShown(item, changes);
    AddEvent(RowEventKind::Filtered, item, changes);
    return true;
}

void RowArea::ApplyFilter(RowChanges& changes)
{
    std::vector<CGridItem*> flips;
    std::vector<CGridItem*> filtered; // those of them whose visibility changes by themselves, not with an ancestor
    CGridItem* newlyShown = nullptr;
    WalkSubtree(
        *m_root,
        [&](CGridItem& item)
        {
            if (item.m_isRoot)
            {
                return true;
            }
            bool const hides = AsksToHide(item);
            if (hides != item.m_isHidden)
            {
                flips.push_back(&item);
                AppendIf(!newlyShown, item, filtered);
                newlyShown = newlyShown || hides ? newlyShown : &item;
            }
            return !hides && item.m_isExpanded;
        },
        [&](CGridItem& item) { newlyShown = newlyShown == &item ? nullptr : newlyShown; });
    if (flips.empty())
    {
        return;
    }
    changes.Touch(RowsAbove(*filtered.front()));
    for (CGridItem* const item : filtered)
    {
        changes.rowsHidden += item->m_isHidden ? 0 : item->Rows();
    }
    Flip(flips);
    for (CGridItem* const item : filtered)
    {
        changes.rowsShown += item->Rows();
        if (changes.wantsEvents)
        {
            AddShownEvents(*item, changes);
            AddEvent(RowEventKind::Filtered, *item, changes);
        }
    }
}

} // namespace Ostrel::GUI::Detail
