#include "ChildSequence.h"

#include <algorithm>
#include <bit>
#include <new>
#include <numeric>

#include <ostrel/gui/grid/detail/SequenceEditor.h>
#include <ostrel/gui/grid/detail/SortOrder.h>

namespace Ostrel::GUI::Detail
{
namespace
{

/// The slot that holds the n-th thing, counting by the array; `n` becomes relative to that slot.
unsigned Descend(std::uint32_t const* amounts, std::uint32_t& n) noexcept
{
    unsigned slot = 0;
    while (n >= amounts[slot])
    {
        n -= amounts[slot++];
    }
    return slot;
}

// Looks at all slots and takes those from `end` on for zero. That is a handful of vector operations, quicker than a
// loop of which the processor cannot guess where it ends.
template <unsigned Capacity>
std::uint32_t SumOfAll(std::uint32_t const* amounts, unsigned end) noexcept
{
    constexpr std::uint32_t kAll = ~std::uint32_t{0};
    std::uint32_t sum = 0;
    for (int i = 0; i < static_cast<int>(Capacity); ++i)
    {
        sum += amounts[i] & (i < static_cast<int>(end) ? kAll : 0U);
    }
    return sum;
}

std::uint32_t SumBefore(std::uint32_t const* amounts, unsigned slot, unsigned capacity) noexcept
{
    switch (capacity)
    {
    case kLeafCapacity:
        return SumOfAll<kLeafCapacity>(amounts, slot);
    case kInnerCapacity:
        return SumOfAll<kInnerCapacity>(amounts, slot);
    default:
        return std::accumulate(amounts, amounts + slot, std::uint32_t{0});
    }
}

SequenceNode* FirstLeaf(SequenceNode* node) noexcept
{
    while (!node->IsLeaf())
    {
        node = node->Child(0);
    }
    return node;
}

SequenceNode* LastLeaf(SequenceNode* node) noexcept
{
    while (!node->IsLeaf())
    {
        node = node->Child(node->m_count - 1U);
    }
    return node;
}

SequenceNode* NextLeaf(SequenceNode* node) noexcept
{
    while (node->m_parent && node->m_slot + 1U == node->m_parent->m_count)
    {
        node = node->m_parent;
    }
    return node->m_parent ? FirstLeaf(node->m_parent->Child(node->m_slot + 1U)) : nullptr;
}

SequenceNode* PreviousLeaf(SequenceNode* node) noexcept
{
    while (node->m_parent && node->m_slot == 0)
    {
        node = node->m_parent;
    }
    return node->m_parent ? LastLeaf(node->m_parent->Child(node->m_slot - 1U)) : nullptr;
}

/// Finds where the children begin that an item is not to be placed behind.
class Bisection
{
public:
    Bisection(Bound bound, CGridItem const& item, std::uint64_t prefix, std::uint8_t tag,
              SortOrder const& order) noexcept
        : m_item(item), m_prefix(prefix), m_tag(tag), m_bound(bound), m_order(order)
    {}

    [[nodiscard]] SequenceNode* FindLeaf(SequenceNode* node) const noexcept
    {
        for (unsigned level = node->m_level; level > 0; --level)
        {
            node = node->Child(FindSlot(*node, 1) - 1U);
            level > 1 ? node->FetchInner() : node->FetchLeaf(); // its level is known before it can be read
        }
        return node;
    }

    /// From that slot on.
    [[nodiscard]] unsigned FindSlot(SequenceNode& node, unsigned from) const noexcept
    {
        return m_bound == Bound::Upper ? FindSlot<Bound::Upper>(node, from) : FindSlot<Bound::Lower>(node, from);
    }

private:
    template <Bound kBound>
    [[nodiscard]] unsigned FindSlot(SequenceNode& node, unsigned from) const noexcept
    {
        std::uint64_t const* const prefixes = node.Prefixes();
        std::uint8_t const* const tags = node.Tags();
        CGridItem* const* const items = node.Items();
        unsigned to = node.m_count;
        while (from < to)
        {
            unsigned const middle = (from + to) / 2;
            bool const goes = GoesBehind<kBound>(prefixes[middle], tags[middle], items[middle]);
            from = goes ? middle + 1 : from;
            to = goes ? to : middle;
        }
        return from;
    }

    template <Bound kBound>
    [[nodiscard]] bool GoesBehind(std::uint64_t prefix, std::uint8_t tag, CGridItem* const& other) const noexcept
    {
        if (prefix == m_prefix && other == &m_item) // where it was: values of that time are no longer known
        {
            return kBound == Bound::Lower;
        }
        Ordering const ordering = m_order.Compare(prefix, tag, *other, m_prefix, m_tag, m_item);
        return kBound == Bound::Upper ? ordering != Ordering::After : ordering == Ordering::Before;
    }

    CGridItem const& m_item;
    std::uint64_t m_prefix;
    std::uint8_t m_tag;
    Bound m_bound;
    SortOrder const& m_order;
};

} // namespace

unsigned SequenceNode::SlotOf(CGridItem const* item) noexcept
{
    CGridItem* const* const items = Items();
    return static_cast<unsigned>(std::find(items, items + m_count, item) - items);
}

SequencePlace ChildSequence::PlaceOf(CGridItem const& item) noexcept
{
    SequenceNode& leaf = *item.m_leaf;
    if (item.m_slotHint >= leaf.m_count || leaf.ItemAt(item.m_slotHint) != &item)
    {
        item.m_slotHint = static_cast<std::uint8_t>(leaf.SlotOf(&item));
    }
    return {&leaf, item.m_slotHint};
}

CGridItem* ChildSequence::At(std::uint32_t position) const noexcept
{
    SequencePlace place = PlaceAt(position);
    return ItemOf(place);
}

SequencePlace ChildSequence::PlaceAt(std::uint32_t position) const noexcept
{
    if (position >= Count())
    {
        return End();
    }
    SequenceNode* node = m_root;
    while (!node->IsLeaf())
    {
        node = node->Child(Descend(node->Counts(), position));
    }
    return {node, position};
}

CGridItem* ChildSequence::First() const noexcept
{
    return m_root ? FirstLeaf(m_root)->ItemAt(0) : nullptr;
}

CGridItem* ChildSequence::Last() const noexcept
{
    SequencePlace const end = End();
    return end.leaf ? end.leaf->ItemAt(end.slot - 1) : nullptr;
}

SequencePlace ChildSequence::Begin() const noexcept
{
    return {m_root ? FirstLeaf(m_root) : nullptr, 0};
}

SequencePlace ChildSequence::End() const noexcept
{
    SequenceNode* const leaf = m_root ? LastLeaf(m_root) : nullptr;
    return {leaf, leaf ? leaf->m_count : 0U};
}

CGridItem* ChildSequence::AtRow(std::uint32_t& row) const noexcept
{
    SequenceNode* node = m_root;
    while (!node->IsLeaf())
    {
        node = node->Child(Descend(node->Rows(), row));
    }
    return node->ItemAt(Descend(node->Rows(), row));
}

SequencePlace ChildSequence::Find(Bound bound, CGridItem const& item, SortOrder const& order) const noexcept
{
    SequenceNode* const leaf = FindLeaf(bound, item, order);
    return leaf ? FindIn(*leaf, bound, item, order) : SequencePlace();
}

SequenceNode* ChildSequence::FindLeaf(Bound bound, CGridItem const& item, SortOrder const& order) const noexcept
{
    return m_root ? Bisection(bound, item, item.m_sortPrefix, item.m_sortTag, order).FindLeaf(m_root) : nullptr;
}

SequencePlace ChildSequence::FindIn(SequenceNode& leaf, Bound bound, CGridItem const& item,
                                    SortOrder const& order) noexcept
{
    return {&leaf, Bisection(bound, item, item.m_sortPrefix, item.m_sortTag, order).FindSlot(leaf, 0)};
}

SequencePlace ChildSequence::Insert(SequencePlace place, CGridItem& item)
{
    return SequenceEditor(m_root).Insert(place, item);
}

bool ChildSequence::Erase(SequencePlace place) noexcept
{
    return SequenceEditor(m_root).Erase(place);
}

void ChildSequence::Assign(std::span<CGridItem* const> items)
{
    SequenceNode* built = nullptr;
    SequenceEditor(built).Build(items);
    Clear();
    m_root = built;
}

void ChildSequence::Clear() noexcept
{
    SequenceEditor(m_root).FreeAll();
}

std::uint32_t ChildSequence::PositionOf(CGridItem const& item) noexcept
{
    return PositionOf(PlaceOf(item));
}

std::uint32_t ChildSequence::PositionOf(SequencePlace place) noexcept
{
    std::uint32_t position = place.slot;
    if (place.leaf)
    {
        for (SequenceNode* node = place.leaf; node->m_parent; node = node->m_parent)
        {
            position += SumBefore(node->m_parent->Counts(), node->m_slot, kInnerCapacity);
        }
    }
    return position;
}

std::uint32_t ChildSequence::RowsBefore(SequencePlace place) noexcept
{
    std::uint32_t rows = SumBefore(place.leaf->Rows(), place.slot, place.leaf->m_capacity);
    for (SequenceNode* node = place.leaf; node->m_parent; node = node->m_parent)
    {
        rows += SumBefore(node->m_parent->Rows(), node->m_slot, kInnerCapacity);
    }
    return rows;
}

CGridItem* ChildSequence::ItemOf(SequencePlace& place) noexcept
{
    if (place.leaf && place.slot == place.leaf->m_count)
    {
        place = {NextLeaf(place.leaf), 0};
    }
    return place.leaf ? place.leaf->ItemAt(place.slot) : nullptr;
}

Ordering ChildSequence::CompareWithPrevious(SequencePlace place, CGridItem const& item, SortOrder const& order) noexcept
{
    if (place.slot == 0)
    {
        CGridItem const* const previous = Previous(place);
        return previous ? order.Compare(*previous, item) : Ordering::Before;
    }
    unsigned const slot = place.slot - 1;
    SequenceNode& leaf = *place.leaf;
    return order.Compare(leaf.Prefixes()[slot], leaf.Tags()[slot], *leaf.ItemAt(slot), item.m_sortPrefix,
                         item.m_sortTag, item);
}

Ordering ChildSequence::CompareWithNext(SequencePlace place, CGridItem const& item, SortOrder const& order) noexcept
{
    ++place.slot;
    CGridItem const* const next = ItemOf(place);
    return next ? order.Compare(item.m_sortPrefix, item.m_sortTag, item, place.leaf->Prefixes()[place.slot],
                                place.leaf->Tags()[place.slot], *next)
                : Ordering::Before;
}

CGridItem* ChildSequence::Next(CGridItem const& item) noexcept
{
    SequencePlace place = PlaceOf(item);
    ++place.slot;
    return ItemOf(place);
}

CGridItem* ChildSequence::Previous(CGridItem const& item) noexcept
{
    return Previous(PlaceOf(item));
}

CGridItem* ChildSequence::Previous(SequencePlace place) noexcept
{
    if (place.slot > 0)
    {
        return place.leaf->ItemAt(place.slot - 1);
    }
    SequenceNode* const leaf = PreviousLeaf(place.leaf);
    return leaf ? leaf->ItemAt(leaf->m_count - 1U) : nullptr;
}

void ChildSequence::Fetch(CGridItem const& item) noexcept
{
    if (item.m_leaf)
    {
        item.m_leaf->FetchLeaf();
    }
}

std::int32_t ChildSequence::UpdateRows(CGridItem& item) noexcept
{
    return UpdateRows(PlaceOf(item));
}

std::int32_t ChildSequence::UpdateRows(SequencePlace place) noexcept
{
    std::uint32_t& rows = place.leaf->Rows()[place.slot];
    std::uint32_t const change = place.leaf->ItemAt(place.slot)->Rows() - rows; // modulo 2^32, as the sums below
    rows += change;
    for (SequenceNode* node = place.leaf; change != 0; node = node->m_parent)
    {
        node->m_rows += change;
        if (!node->m_parent)
        {
            break;
        }
        node->m_parent->Rows()[node->m_slot] += change;
    }
    return static_cast<std::int32_t>(change);
}

void ChildSequence::UpdateKey(SequencePlace place) noexcept
{
    CGridItem const& item = *place.leaf->ItemAt(place.slot);
    place.leaf->Prefixes()[place.slot] = item.m_sortPrefix;
    place.leaf->Tags()[place.slot] = item.m_sortTag;
    if (place.slot == 0)
    {
        SequenceEditor::PublishFirst(*place.leaf);
    }
}

bool ChildSequence::UpdateSelected(CGridItem& item) noexcept
{
    SequencePlace const place = PlaceOf(item);
    return SequenceEditor::SetSelectedBit(*place.leaf, place.slot, item.HasSelected());
}

} // namespace Ostrel::GUI::Detail
