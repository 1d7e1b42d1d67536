#include "SequenceEditor.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <new>
#include <numeric>
#include <vector>

#include <ostrel/gui/grid/detail/SlabPool.h>

namespace Ostrel::GUI::Detail
{
namespace
{

constexpr unsigned CapacityOf(bool isLeaf) noexcept
{
    return isLeaf ? kLeafCapacity : kInnerCapacity;
}

using LeafPool = SlabPool<SequenceNode::Size(true, kLeafCapacity)>;
using InnerPool = SlabPool<SequenceNode::Size(false, kInnerCapacity)>;

// Where full nodes live. Never destroyed: rows may outlive every static object.
LeafPool& Leaves()
{
    static auto* const pool = new LeafPool();
    return *pool;
}
InnerPool& Inners()
{
    static auto* const pool = new InnerPool();
    return *pool;
}

void* AllocateNode(bool isLeaf, unsigned capacity)
{
    if (capacity != CapacityOf(isLeaf))
    {
        return ::operator new(SequenceNode::Size(isLeaf, capacity));
    }
    return isLeaf ? Leaves().Allocate() : Inners().Allocate();
}

/// Below this a node is merged with a neighbour, if both fit into three quarters of one, or refilled.
constexpr unsigned ThinLimit(bool isLeaf) noexcept
{
    return CapacityOf(isLeaf) / 4;
}

constexpr unsigned MergeLimit(bool isLeaf) noexcept
{
    return CapacityOf(isLeaf) / 4 * 3;
}

/// Nodes into which so many things are built; several are not quite full, to leave room for the insertions to come.
constexpr std::size_t NodesFor(std::size_t count, bool isLeaf) noexcept
{
    std::size_t const capacity = CapacityOf(isLeaf);
    return count <= capacity ? (count + capacity - 1) / capacity : 1 + (count - 1) / (capacity / 8 * 7);
}

constexpr unsigned LeafCapacityFor(std::size_t count) noexcept
{
    return count <= 4 ? 4 : count <= 12 ? 12 : kLeafCapacity;
}

std::uint64_t BitsBelow(unsigned slot) noexcept
{
    return slot >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << slot) - 1;
}
std::uint64_t ShiftUp(std::uint64_t bits, unsigned slots) noexcept
{
    return slots >= 64 ? 0 : bits << slots;
}
std::uint64_t ShiftDown(std::uint64_t bits, unsigned slots) noexcept
{
    return slots >= 64 ? 0 : bits >> slots;
}

bool IsOnRightSpine(SequenceNode const* node) noexcept
{
    while (node->m_parent && node->m_slot + 1U == node->m_parent->m_count)
    {
        node = node->m_parent;
    }
    return !node->m_parent;
}

/// Calls the function with every array of both nodes, which are of one kind.
template <class Function>
void ForEachArray(SequenceNode& a, SequenceNode& b, Function function) noexcept
{
    function(a.Prefixes(), b.Prefixes());
    function(a.Rows(), b.Rows());
    function(a.Tags(), b.Tags());
    function(a.Entries(), b.Entries());
    if (!a.IsLeaf())
    {
        function(a.Items(), b.Items());
        function(a.Counts(), b.Counts());
    }
}

template <class T>
void Move(T* to, T const* from, unsigned count) noexcept
{
    std::memmove(to, from, count * sizeof(T)); // NOLINT(bugprone-sizeof-expression): some arrays hold pointers
}

} // namespace

SequenceNode* SequenceEditor::NewNode(unsigned level, unsigned capacity)
{
    auto* const node = new (AllocateNode(level == 0, capacity)) SequenceNode();
    node->m_capacity = static_cast<std::uint8_t>(capacity);
    node->m_level = static_cast<std::uint8_t>(level);
    node->Entries()[0] = nullptr; // an empty node may be linked, and its first slot cached, for a moment
    node->Prefixes()[0] = 0;
    node->ItemAt(0) = nullptr;
    node->Tags()[0] = 0;
    return node;
}

void SequenceEditor::FreeNode(SequenceNode* node) noexcept
{
    if (node->m_capacity != CapacityOf(node->IsLeaf()))
    {
        ::operator delete(node);
    }
    else if (node->IsLeaf())
    {
        Leaves().Free(node);
    }
    else
    {
        Inners().Free(node);
    }
}

void SequenceEditor::SetLeafSlot(SequenceNode& leaf, unsigned slot, CGridItem& item) noexcept
{
    leaf.ItemAt(slot) = &item;
    leaf.Prefixes()[slot] = item.m_sortPrefix;
    leaf.Tags()[slot] = item.m_sortTag;
    leaf.Rows()[slot] = item.Rows();
    leaf.m_selected = (leaf.m_selected & ~(std::uint64_t{1} << slot)) | (std::uint64_t{item.HasSelected()} << slot);
    item.m_leaf = &leaf;
    item.m_slotHint = static_cast<std::uint8_t>(slot);
}

void SequenceEditor::SetInnerSlot(SequenceNode& inner, unsigned slot, SequenceNode& child) noexcept
{
    inner.Entries()[slot] = &child;
    inner.Prefixes()[slot] = child.Prefixes()[0];
    inner.Tags()[slot] = child.Tags()[0];
    inner.ItemAt(slot) = child.ItemAt(0);
    inner.Rows()[slot] = child.m_rows;
    inner.Counts()[slot] = child.m_items;
    inner.m_selected =
        (inner.m_selected & ~(std::uint64_t{1} << slot)) | (std::uint64_t{child.m_selected != 0} << slot);
    child.m_parent = &inner;
    child.m_slot = static_cast<std::uint8_t>(slot);
}

void SequenceEditor::OpenSlots(SequenceNode& node, unsigned slot, unsigned count) noexcept
{
    ForEachArray(node, node,
                 [&](auto* array, auto*) { Move(array + slot + count, array + slot, node.m_count - slot); });
    node.m_selected = (node.m_selected & BitsBelow(slot)) | ShiftUp(node.m_selected & ~BitsBelow(slot), count);
    node.m_count = static_cast<std::uint8_t>(node.m_count + count);
}

void SequenceEditor::CloseSlots(SequenceNode& node, unsigned slot, unsigned count) noexcept
{
    unsigned const behind = slot + count;
    ForEachArray(node, node, [&](auto* array, auto*) { Move(array + slot, array + behind, node.m_count - behind); });
    node.m_selected = (node.m_selected & BitsBelow(slot)) | ShiftDown(node.m_selected & ~BitsBelow(behind), count);
    node.m_count = static_cast<std::uint8_t>(node.m_count - count);
}

void SequenceEditor::AdoptSlots(SequenceNode& node, unsigned from, unsigned to) noexcept
{
    for (unsigned slot = from; slot < to; ++slot)
    {
        if (node.IsLeaf())
        {
            node.ItemAt(slot)->m_leaf = &node;
            node.ItemAt(slot)->m_slotHint = static_cast<std::uint8_t>(slot);
        }
        else
        {
            node.Child(slot)->m_parent = &node;
            node.Child(slot)->m_slot = static_cast<std::uint8_t>(slot);
        }
    }
}

void SequenceEditor::MoveSlots(SequenceNode& to, unsigned toSlot, SequenceNode& from, unsigned fromSlot,
                               unsigned count) noexcept
{
    OpenSlots(to, toSlot, count);
    ForEachArray(to, from, [&](auto* target, auto* source) { Move(target + toSlot, source + fromSlot, count); });
    std::uint64_t const moved = ShiftDown(from.m_selected, fromSlot) & BitsBelow(count);
    to.m_selected = (to.m_selected & ~ShiftUp(BitsBelow(count), toSlot)) | ShiftUp(moved, toSlot);
    CloseSlots(from, fromSlot, count);
    AdoptSlots(to, toSlot, to.IsLeaf() ? toSlot + count : to.m_count);
    AdoptSlots(from, fromSlot, from.IsLeaf() ? fromSlot : from.m_count);
    Recount(to);
    Recount(from);
}

void SequenceEditor::Recount(SequenceNode& node) noexcept
{
    node.m_rows = std::accumulate(node.Rows(), node.Rows() + node.m_count, 0U);
    node.m_items = node.IsLeaf() ? node.m_count : std::accumulate(node.Counts(), node.Counts() + node.m_count, 0U);
}

void SequenceEditor::AddToTotals(SequenceNode& leaf, std::uint32_t items, std::uint32_t rows) noexcept
{
    for (SequenceNode* node = &leaf;; node = node->m_parent)
    {
        node->m_items += items;
        node->m_rows += rows;
        if (!node->m_parent)
        {
            return;
        }
        node->m_parent->Counts()[node->m_slot] += items;
        node->m_parent->Rows()[node->m_slot] += rows;
    }
}

void SequenceEditor::RefreshUp(SequenceNode& start) noexcept
{
    for (SequenceNode* node = &start;; node = node->m_parent)
    {
        Recount(*node);
        if (!node->m_parent)
        {
            return;
        }
        SetInnerSlot(*node->m_parent, node->m_slot, *node);
    }
}

void SequenceEditor::PublishFirst(SequenceNode& start) noexcept
{
    for (SequenceNode* node = &start; node->m_parent; node = node->m_parent)
    {
        SequenceNode& parent = *node->m_parent;
        parent.Prefixes()[node->m_slot] = node->Prefixes()[0];
        parent.Tags()[node->m_slot] = node->Tags()[0];
        parent.ItemAt(node->m_slot) = node->ItemAt(0);
        if (node->m_slot != 0)
        {
            return;
        }
    }
}

bool SequenceEditor::SetSelectedBit(SequenceNode& start, unsigned slot, bool selected) noexcept
{
    for (SequenceNode* node = &start;; node = node->m_parent)
    {
        bool const before = node->m_selected != 0;
        std::uint64_t const bit = std::uint64_t{1} << slot;
        node->m_selected = selected ? node->m_selected | bit : node->m_selected & ~bit;
        if (before == (node->m_selected != 0))
        {
            return false;
        }
        if (!node->m_parent)
        {
            return true;
        }
        slot = node->m_slot;
    }
}

SequencePlace SequenceEditor::Insert(SequencePlace place, CGridItem& item)
{
    SequenceNode* leaf = place.leaf;
    unsigned slot = place.slot;
    SequenceNode* split = nullptr;
    if (!leaf)
    {
        m_root = leaf = NewNode(0, LeafCapacityFor(1));
    }
    else if (leaf->m_count == leaf->m_capacity && leaf->m_capacity < kLeafCapacity)
    {
        leaf = GrowRootLeaf();
    }
    else if (leaf->m_count == leaf->m_capacity)
    {
        split = Split(*leaf, SplitSlot(*leaf, slot));
        if (slot > leaf->m_count || leaf->m_count == kLeafCapacity)
        {
            slot -= leaf->m_count;
            std::swap(leaf, split);
        }
    }
    OpenSlots(*leaf, slot, 1);
    SetLeafSlot(*leaf, slot, item);
    if (split)
    {
        RefreshUp(*split);
        RefreshUp(*leaf);
        return {leaf, slot};
    }
    leaf->m_selected &= ~(std::uint64_t{1} << slot);
    SetSelectedBit(*leaf, slot, item.HasSelected());
    AddToTotals(*leaf, 1, item.Rows());
    if (slot == 0)
    {
        PublishFirst(*leaf);
    }
    return {leaf, slot};
}

SequenceNode* SequenceEditor::GrowRootLeaf()
{
    SequenceNode* const small = m_root;
    m_root = NewNode(0, LeafCapacityFor(small->m_count + 1U));
    MoveSlots(*m_root, 0, *small, 0, small->m_count);
    FreeNode(small);
    return m_root;
}

/// Appending leaves full nodes behind; any other insertion halves.
unsigned SequenceEditor::SplitSlot(SequenceNode const& node, unsigned insertionSlot) noexcept
{
    return insertionSlot == node.m_count && IsOnRightSpine(&node) ? node.m_count : node.m_count / 2U;
}

/// Moves the slots from splitSlot on to a new node right after this one; it stays empty, with the sums above not yet
/// right, until the caller has put something there and refreshed both.
SequenceNode* SequenceEditor::Split(SequenceNode& node, unsigned splitSlot)
{
    if (!node.m_parent)
    {
        SequenceNode* const root = NewNode(node.m_level + 1U, kInnerCapacity);
        OpenSlots(*root, 0, 1);
        SetInnerSlot(*root, 0, node);
        Recount(*root);
        m_root = root;
    }
    SequenceNode* const right = NewNode(node.m_level, CapacityOf(node.IsLeaf()));
    MoveSlots(*right, 0, node, splitSlot, node.m_count - splitSlot);
    InsertNodeAfter(node, *right);
    return right;
}

void SequenceEditor::InsertNodeAfter(SequenceNode& left, SequenceNode& right)
{
    SequenceNode* parent = left.m_parent;
    unsigned slot = left.m_slot + 1U;
    if (parent->m_count == parent->m_capacity)
    {
        SequenceNode* const rightParent = Split(*parent, SplitSlot(*parent, slot));
        bool const isAppend = rightParent->m_count == 0;
        parent = isAppend ? rightParent : left.m_parent;
        slot = isAppend ? 0 : left.m_slot + 1U;
    }
    OpenSlots(*parent, slot, 1);
    SetInnerSlot(*parent, slot, right);
    AdoptSlots(*parent, slot, parent->m_count);
    SetInnerSlot(*left.m_parent, left.m_slot, left);
    Recount(*left.m_parent);
    Recount(*parent);
}

bool SequenceEditor::Erase(SequencePlace place) noexcept
{
    SequenceNode& leaf = *place.leaf;
    unsigned const slot = place.slot;
    leaf.ItemAt(slot)->m_leaf = nullptr;
    AddToTotals(leaf, ~0U, 0U - leaf.Rows()[slot]);
    SetSelectedBit(leaf, slot, false);
    CloseSlots(leaf, slot, 1);
    bool const othersStay = AfterRemoval(leaf, slot);
    DropThinRoot();
    return othersStay;
}

/// Puts right what the removal of a slot can break: the first item above, an empty or thin node.
bool SequenceEditor::AfterRemoval(SequenceNode& node, unsigned slot) noexcept
{
    if (node.m_count == 0)
    {
        RemoveEmpty(node);
        return false;
    }
    if (slot == 0)
    {
        PublishFirst(node);
    }
    if (node.m_count < ThinLimit(node.IsLeaf()) && node.m_parent && node.m_parent->m_count > 1)
    {
        Refill(node);
        return false;
    }
    return true;
}

void SequenceEditor::RemoveEmpty(SequenceNode& node) noexcept
{
    SequenceNode* const parent = node.m_parent;
    unsigned const slot = node.m_slot;
    FreeNode(&node);
    if (!parent)
    {
        m_root = nullptr;
        return;
    }
    CloseSlots(*parent, slot, 1);
    AdoptSlots(*parent, slot, parent->m_count);
    AfterRemoval(*parent, slot);
}

/// Merges the node with a neighbour below the same parent, or takes some of the neighbour's slots.
void SequenceEditor::Refill(SequenceNode& node) noexcept
{
    SequenceNode& parent = *node.m_parent;
    unsigned const leftSlot = node.m_slot > 0 ? node.m_slot - 1U : 0U;
    SequenceNode& left = *parent.Child(leftSlot);
    SequenceNode& right = *parent.Child(leftSlot + 1);
    unsigned const sum = left.m_count + right.m_count;
    if (sum <= MergeLimit(node.IsLeaf()))
    {
        MoveSlots(left, left.m_count, right, 0, right.m_count);
        SetInnerSlot(parent, leftSlot, left);
        RemoveEmpty(right);
        return;
    }
    unsigned const half = sum / 2;
    if (left.m_count < half)
    {
        MoveSlots(left, left.m_count, right, 0, half - left.m_count);
    }
    else
    {
        MoveSlots(right, 0, left, half, left.m_count - half);
    }
    SetInnerSlot(parent, leftSlot, left);
    SetInnerSlot(parent, leftSlot + 1, right);
}

void SequenceEditor::DropThinRoot() noexcept
{
    while (m_root && !m_root->IsLeaf() && m_root->m_count == 1)
    {
        SequenceNode* const thin = m_root;
        m_root = thin->Child(0);
        m_root->m_parent = nullptr;
        m_root->m_slot = 0;
        FreeNode(thin);
    }
}

void SequenceEditor::Build(std::span<CGridItem* const> items)
{
    constexpr std::size_t kPrefetchAhead = 16;
    std::size_t const leafCount = NodesFor(items.size(), true);
    std::vector<SequenceNode*> level;
    level.reserve(leafCount);
    for (std::size_t leafIndex = 0; leafIndex < leafCount; ++leafIndex)
    {
        std::size_t const from = items.size() * leafIndex / leafCount;
        std::size_t const to = items.size() * (leafIndex + 1) / leafCount;
        SequenceNode* const leaf = NewNode(0, leafCount == 1 ? LeafCapacityFor(to) : kLeafCapacity);
        level.push_back(leaf);
        leaf->m_count = static_cast<std::uint8_t>(to - from);
        for (std::size_t i = from; i < to; ++i)
        {
            __builtin_prefetch(items[std::min(i + kPrefetchAhead, items.size() - 1)], 1);
            SetLeafSlot(*leaf, static_cast<unsigned>(i - from), *items[i]);
        }
        Recount(*leaf);
    }
    while (level.size() > 1)
    {
        level = BuildLevel(level);
    }
    m_root = level.empty() ? nullptr : level.front();
}

std::vector<SequenceNode*> SequenceEditor::BuildLevel(std::span<SequenceNode* const> below)
{
    std::size_t const count = NodesFor(below.size(), false);
    std::vector<SequenceNode*> level;
    level.reserve(count);
    for (std::size_t index = 0; index < count; ++index)
    {
        std::size_t const from = below.size() * index / count;
        std::size_t const to = below.size() * (index + 1) / count;
        SequenceNode* const node = level.emplace_back(NewNode(below.front()->m_level + 1U, kInnerCapacity));
        node->m_count = static_cast<std::uint8_t>(to - from);
        for (std::size_t i = from; i < to; ++i)
        {
            SetInnerSlot(*node, static_cast<unsigned>(i - from), *below[i]);
        }
        Recount(*node);
    }
    return level;
}

void SequenceEditor::FreeTree(SequenceNode* node) noexcept
{
    for (unsigned slot = 0; !node->IsLeaf() && slot < node->m_count; ++slot)
    {
        FreeTree(node->Child(slot));
    }
    FreeNode(node);
}

void SequenceEditor::FreeAll() noexcept
{
    if (m_root)
    {
        FreeTree(m_root);
        m_root = nullptr;
    }
}

} // namespace Ostrel::GUI::Detail
