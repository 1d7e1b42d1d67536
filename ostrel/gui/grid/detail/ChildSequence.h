// The ordered children of a row: a counted B-tree. Every node knows its parent and its slot there, and every item knows
// its leaf, so that questions can be asked from below ("which place am I, how many rows are above me") as well as from
// above ("the n-th child, the child that holds the n-th row").
//
// Costs: insert, erase, n-th child, place of a child, rows above a child, child of a row: O(log n). Building from a
// list and clearing: O(n). An item without children pays one pointer; few children share one small leaf.
//
// A slot of a node carries, each in its own array, so that a search reads few cache lines:
//   entries  the item (leaf) or the child node (inner)
//   prefixes, tags   the cached first sort key of the item, or of the first item below the child node
//   rows     visible rows of the item with its descendants, or of all items below the child node
//   counts, firsts   (inner only) number of items below, and the first of them
// and a node carries totals and a bit per slot that says "something below is selected".
//
// Invariants: all leaves are at one depth; no node is empty; a node that is neither the root nor on the right spine has
// at least a quarter of its capacity in entries; only a root leaf has less than the full capacity; an item's slot holds
// its present rows, key and selected bit (whoever changes one of these in the item calls Update...).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <ostrel/gui/grid/detail/Prefetch.h>

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{
class SequenceEditor;
class SortOrder;
enum class Ordering : std::int8_t;

/// Slots of a full node. Leaves are smaller: an update shifts the slots of two of them, and a search reads many.
inline constexpr unsigned kLeafCapacity = 32;
inline constexpr unsigned kInnerCapacity = 64;

/// One node; its arrays follow it in the same block of memory. What a search reads comes first. In full nodes each
/// array begins a cache line, but for the tags, which share the first one with the members.
struct SequenceNode
{
    SequenceNode* m_parent = nullptr;
    std::uint64_t m_selected = 0; ///< bit per slot
    std::uint32_t m_rows = 0;     ///< sum of the slots' visible rows
    std::uint32_t m_items = 0;    ///< items below
    std::uint8_t m_count = 0;
    std::uint8_t m_capacity = 0;
    std::uint8_t m_slot = 0;  ///< in the parent
    std::uint8_t m_level = 0; ///< above the leaves

    [[nodiscard]] bool IsLeaf() const noexcept { return m_level == 0; }
    /// Of a node with its arrays.
    static constexpr std::size_t Size(bool isLeaf, unsigned capacity) noexcept
    {
        std::size_t const perSlot = sizeof(std::uint64_t) + sizeof(void*) + sizeof(std::uint32_t);
        std::size_t const perInnerSlot = perSlot + sizeof(std::uint32_t) + sizeof(void*);
        return sizeof(SequenceNode) + TagBytes(isLeaf, capacity) + capacity * (isLeaf ? perSlot : perInnerSlot);
    }

    [[nodiscard]] std::uint8_t* Tags() noexcept { return reinterpret_cast<std::uint8_t*>(this + 1); }
    [[nodiscard]] std::uint64_t* Prefixes() noexcept
    {
        return reinterpret_cast<std::uint64_t*>(Tags() + TagBytes(IsLeaf(), m_capacity));
    }
    [[nodiscard]] void** Entries() noexcept { return reinterpret_cast<void**>(Prefixes() + m_capacity); }
    [[nodiscard]] std::uint32_t* Rows() noexcept { return reinterpret_cast<std::uint32_t*>(Entries() + m_capacity); }
    /// Inner nodes only.
    [[nodiscard]] std::uint32_t* Counts() noexcept { return Rows() + m_capacity; }
    /// The items of a leaf; of an inner node the first item below each slot.
    [[nodiscard]] CGridItem** Items() noexcept
    {
        return IsLeaf() ? reinterpret_cast<CGridItem**>(Entries())
                        : reinterpret_cast<CGridItem**>(Counts() + m_capacity);
    }
    [[nodiscard]] SequenceNode* Child(unsigned slot) noexcept { return static_cast<SequenceNode*>(Entries()[slot]); }

    // These have brought into the cache what will be needed soon of a full leaf or an inner node. They read nothing.
    void FetchLeaf() const noexcept { Prefetch(this, Size(true, kLeafCapacity)); }
    /// What a search and a sum of rows read.
    void FetchInner() const noexcept { Prefetch(this, kInnerRows + kInnerCapacity * sizeof(std::uint32_t)); }
    /// What a sum of rows reads.
    void FetchInnerRows() const noexcept
    {
        Prefetch(this, sizeof(SequenceNode));
        Prefetch(reinterpret_cast<std::byte const*>(this) + kInnerRows, kInnerCapacity * sizeof(std::uint32_t));
    }

    [[nodiscard]] CGridItem*& ItemAt(unsigned slot) noexcept { return Items()[slot]; }
    [[nodiscard]] unsigned SlotOf(CGridItem const* item) noexcept;

private:
    static constexpr std::size_t TagBytes(bool isLeaf, unsigned capacity) noexcept
    {
        return isLeaf ? (capacity + 7U) / 8U * 8U : kInnerTagBytes;
    }

    static constexpr std::size_t kCacheLine = 64;
    static constexpr std::size_t kMemberBytes = 32;
    static constexpr std::size_t kInnerTagBytes = 2 * kCacheLine - kMemberBytes;
    static constexpr std::size_t kInnerRows = ///< where they begin
        kMemberBytes + kInnerTagBytes + kInnerCapacity * (sizeof(std::uint64_t) + sizeof(void*));
};
static_assert(sizeof(SequenceNode) == 32);

/// A place among the children: before the item in that slot, or behind the leaf's last one.
struct SequencePlace
{
    SequenceNode* leaf = nullptr; ///< null only while there are no children
    unsigned slot = 0;
};

/// Where an item belongs: before the children that do not come before it, or after those that do not come after it.
enum class Bound : std::uint8_t
{
    Lower,
    Upper
};

class ChildSequence
{
public:
    ChildSequence() = default;
    ChildSequence(ChildSequence const&) = delete;
    ChildSequence& operator=(ChildSequence const&) = delete;
    ~ChildSequence() { Clear(); }

    [[nodiscard]] bool IsEmpty() const noexcept { return m_root == nullptr; }
    [[nodiscard]] std::uint32_t Count() const noexcept { return m_root ? m_root->m_items : 0; }
    [[nodiscard]] std::uint32_t Rows() const noexcept { return m_root ? m_root->m_rows : 0; }
    [[nodiscard]] bool HasSelected() const noexcept { return m_root && m_root->m_selected != 0; }

    [[nodiscard]] CGridItem* At(std::uint32_t position) const noexcept; ///< null when out of range
    [[nodiscard]] CGridItem* First() const noexcept;
    [[nodiscard]] CGridItem* Last() const noexcept;
    [[nodiscard]] SequencePlace PlaceAt(std::uint32_t position) const noexcept; ///< the end when out of range
    [[nodiscard]] SequencePlace Begin() const noexcept;
    [[nodiscard]] SequencePlace End() const noexcept;

    /// The child that holds the row, and the row relative to that child's own. `row` must be below Rows().
    [[nodiscard]] CGridItem* AtRow(std::uint32_t& row) const noexcept;

    [[nodiscard]] SequencePlace Find(Bound bound, CGridItem const& item, SortOrder const& order) const noexcept;
    // The same in two steps: the leaf of that place, which is then on its way into the cache, and the place in it; null
    // while there are no children. The first step may be taken while the item is still at its place by a former key of
    // the same type, from which it will go back to an upper bound or forward to a lower one.
    [[nodiscard]] SequenceNode* FindLeaf(Bound bound, CGridItem const& item, SortOrder const& order) const noexcept;
    [[nodiscard]] static SequencePlace FindIn(SequenceNode& leaf, Bound bound, CGridItem const& item,
                                              SortOrder const& order) noexcept;

    /// Calls the function with each child in order; it may not change the sequence.
    template <class Function>
    void ForEach(Function function) const
    {
        SequencePlace place = Begin();
        for (CGridItem* child = ItemOf(place); child; ++place.slot, child = ItemOf(place))
        {
            function(*child);
        }
    }
    /// Null while there are no children.
    [[nodiscard]] SequenceNode* RootNode() const noexcept { return m_root; }

    /// Returns where the item is now.
    SequencePlace Insert(SequencePlace place, CGridItem& item);
    /// Returns true if every other item is in the same leaf as before.
    bool Erase(SequencePlace place) noexcept;
    /// Replaces the children (which must all be in the list already, or nowhere) by the list in its order.
    void Assign(std::span<CGridItem* const> items);
    /// Forgets the children; touches none of them.
    void Clear() noexcept;

    // --- From a child's point of view; the item must be in a sequence ---
    [[nodiscard]] static SequencePlace PlaceOf(CGridItem const& item) noexcept;
    [[nodiscard]] static std::uint32_t PositionOf(CGridItem const& item) noexcept;
    [[nodiscard]] static std::uint32_t PositionOf(SequencePlace place) noexcept;
    [[nodiscard]] static std::uint32_t RowsBefore(SequencePlace place) noexcept;
    [[nodiscard]] static CGridItem* Next(CGridItem const& item) noexcept;     ///< null behind the last
    [[nodiscard]] static CGridItem* Previous(CGridItem const& item) noexcept; ///< null before the first
    [[nodiscard]] static CGridItem* Previous(SequencePlace place) noexcept;
    /// The item of a place, null at the end; steps over the end of a leaf.
    [[nodiscard]] static CGridItem* ItemOf(SequencePlace& place) noexcept;
    /// The item's neighbour relative to the item, and the item relative to its other neighbour, by the neighbour's
    /// cached key; Before when there is none.
    [[nodiscard]] static Ordering CompareWithPrevious(SequencePlace place, CGridItem const& item,
                                                      SortOrder const& order) noexcept;
    [[nodiscard]] static Ordering CompareWithNext(SequencePlace place, CGridItem const& item,
                                                  SortOrder const& order) noexcept;

    /// Has what the questions above read brought into the cache, and what Erase changes. Any live item.
    static void Fetch(CGridItem const& item) noexcept;

    /// Takes over the item's rows; returns by how much the sum changed.
    static std::int32_t UpdateRows(CGridItem& item) noexcept;
    static std::int32_t UpdateRows(SequencePlace place) noexcept;
    /// Takes over the item's first sort key.
    static void UpdateKey(SequencePlace place) noexcept;
    /// Takes over whether something below or at the item is selected; true if the whole sequence's answer changed.
    static bool UpdateSelected(CGridItem& item) noexcept;

    /// Empty when every invariant holds, else what is wrong.
    [[nodiscard]] char const* CheckInvariants(CGridItem const& owner) const;

private:
    friend class SequenceEditor;

    SequenceNode* m_root = nullptr;
};

} // namespace Ostrel::GUI::Detail
