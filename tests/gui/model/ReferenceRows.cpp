#include "ReferenceRows.h"

#include <algorithm>

namespace Ostrel::GUI::Detail
{
namespace
{
template <class Function>
void PreOrder(ReferenceRow const& parent, Function function)
{
    for (ReferenceRow* const child : parent.children)
    {
        function(*child);
        PreOrder(*child, function);
    }
}
} // namespace

ReferenceRows::ReferenceRows()
{
    root.isExpanded = true;
    root.isVisible = true;
}

Common::CValue ReferenceRows::GetSortValue(CGridItem& item, long fieldId)
{
    return Common::CValue(static_cast<long>(m_rows.at(&item)->values[fieldId]));
}

bool ReferenceRows::IsHidden(CGridItem& item)
{
    return m_rows.at(&item)->values[0] % 3 == hiddenRemainder;
}

ReferenceRow& ReferenceRows::NewRow(CGridItem* item, int firstValue, int secondValue)
{
    auto row = std::make_unique<ReferenceRow>();
    row->item = item;
    row->values[0] = firstValue;
    row->values[1] = secondValue;
    return *(m_rows[item] = std::move(row));
}

void ReferenceRows::SetValue(Common::CDataObject const& object, int which, int value)
{
    for (auto const& [item, row] : m_rows)
    {
        if (item->Object() == &object)
        {
            row->values[which] = value;
        }
    }
}

void ReferenceRows::Insert(ReferenceRow& row, ReferenceRow& parent, std::size_t position)
{
    row.parent = &parent;
    if (!levels.empty())
    {
        std::ranges::copy(row.values, row.keys);
        SortBelow(row);
        auto const place = std::ranges::find_if(parent.children, [&](auto* other) { return IsBefore(row, *other); });
        position = static_cast<std::size_t>(place - parent.children.begin());
    }
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(position), &row);
    Show(row);
}

void ReferenceRows::Remove(ReferenceRow& row)
{
    Hide(row);
    std::erase(row.parent->children, &row);
    row.parent = nullptr;
}

void ReferenceRows::Forget(ReferenceRow& row)
{
    while (!row.children.empty())
    {
        ReferenceRow* const child = row.children.back();
        row.children.pop_back();
        Forget(*child);
    }
    m_rows.erase(row.item);
}

void ReferenceRows::Expand(ReferenceRow& row, bool recursive)
{
    if (!row.isExpanded)
    {
        row.isExpanded = true;
        events.push_back({RowEventKind::ExpandedChanged, row.item});
    }
    for (ReferenceRow* const child : row.children)
    {
        if (recursive)
        {
            Expand(*child, true);
        }
        if (!child->isVisible)
        {
            Show(*child);
        }
    }
}

void ReferenceRows::Collapse(ReferenceRow& row, bool recursive)
{
    if (row.isExpanded && &row != &root)
    {
        row.isExpanded = false;
        events.push_back({RowEventKind::ExpandedChanged, row.item});
        std::ranges::for_each(row.children, [this](ReferenceRow* child) { Hide(*child); });
    }
    for (ReferenceRow* const child : row.children)
    {
        if (recursive)
        {
            Collapse(*child, true);
        }
    }
}

void ReferenceRows::Show(ReferenceRow& row)
{
    if (!row.parent->isVisible || !row.parent->isExpanded || IsHidden(*row.item))
    {
        return;
    }
    row.isVisible = true;
    if (row.isExpanded)
    {
        std::ranges::for_each(row.children, [this](ReferenceRow* child) { Show(*child); });
    }
    events.push_back({RowEventKind::Shown, row.item});
}

void ReferenceRows::Hide(ReferenceRow& row)
{
    row.isVisible = false;
    PreOrder(row, [](ReferenceRow& below) { below.isVisible = false; });
}

void ReferenceRows::ApplyFilterTo(ReferenceRow& row)
{
    bool const hides = IsHidden(*row.item);
    if (hides && row.isVisible)
    {
        Hide(row);
        events.push_back({RowEventKind::Filtered, row.item});
    }
    else if (!hides && !row.isVisible && row.parent->isExpanded && row.parent->isVisible)
    {
        Show(row);
        events.push_back({RowEventKind::Filtered, row.item});
    }
}

void ReferenceRows::ApplyFilter()
{
    FilterChildren(root);
}

void ReferenceRows::FilterChildren(ReferenceRow& parent)
{
    for (ReferenceRow* const child : parent.children)
    {
        bool const wasVisible = child->isVisible;
        ApplyFilterTo(*child);
        if (wasVisible && child->isVisible)
        {
            FilterChildren(*child);
        }
    }
}

void ReferenceRows::Sort()
{
    SortBelow(root);
}

void ReferenceRows::SortBelow(ReferenceRow& parent)
{
    if (!levels.empty())
    {
        std::ranges::for_each(parent.children, [](auto* child) { std::ranges::copy(child->values, child->keys); });
        std::ranges::stable_sort(parent.children, [this](auto* a, auto* b) { return IsBefore(*a, *b); });
        std::ranges::for_each(parent.children, [this](ReferenceRow* child) { SortBelow(*child); });
    }
}

bool ReferenceRows::IsBefore(ReferenceRow const& a, ReferenceRow const& b) const
{
    for (SortLevel const& level : levels)
    {
        int const keyA = a.keys[level.fieldId];
        int const keyB = b.keys[level.fieldId];
        if (keyA != keyB)
        {
            return level.descending ? keyA > keyB : keyA < keyB;
        }
    }
    return false;
}

void ReferenceRows::Reposition(ReferenceRow& row)
{
    std::ranges::copy(row.values, row.keys);
    std::vector<ReferenceRow*>& siblings = row.parent->children;
    auto const at = std::ranges::find(siblings, &row);
    auto const back = std::find_if(siblings.begin(), at, [&](auto* other) { return IsBefore(row, *other); });
    if (back != at)
    {
        std::rotate(back, at, at + 1);
        return;
    }
    auto const forward = std::find_if(at + 1, siblings.end(), [&](auto* other) { return !IsBefore(*other, row); });
    std::rotate(at, at + 1, forward);
}

std::vector<CGridItem*> ReferenceRows::VisibleRows() const
{
    std::vector<CGridItem*> items;
    items.reserve(m_rows.size());
    PreOrder(root,
             [&](ReferenceRow& row)
             {
                 if (row.isVisible)
                 {
                     items.push_back(row.item);
                 }
             });
    return items;
}

std::vector<CGridItem*> ReferenceRows::SelectedRows(bool onlyVisible) const
{
    std::vector<CGridItem*> items;
    PreOrder(root,
             [&](ReferenceRow& row)
             {
                 if (row.isSelected && (row.isVisible || !onlyVisible))
                 {
                     items.push_back(row.item);
                 }
             });
    return items;
}

std::vector<ReferenceRow*> ReferenceRows::AllRows() const
{
    std::vector<ReferenceRow*> rows;
    rows.reserve(m_rows.size());
    PreOrder(root, [&](ReferenceRow& row) { rows.push_back(&row); });
    return rows;
}

bool ReferenceRows::IsInSubtree(ReferenceRow const& top, ReferenceRow const* row)
{
    while (row && row != &top)
    {
        row = row->parent;
    }
    return row != nullptr;
}

} // namespace Ostrel::GUI::Detail
