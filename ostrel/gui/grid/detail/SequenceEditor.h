// Changes of the counted B-tree behind ChildSequence: inserting, erasing, splitting, merging and building nodes.
#pragma once

#include <span>
#include <vector>

#include <ostrel/gui/grid/detail/ChildSequence.h>
#include <ostrel/gui/grid/detail/GridItem.h>

namespace Ostrel::GUI::Detail
{

class SequenceEditor
{
public:
    /// Works on the tree of that root; an empty tree has none.
    explicit SequenceEditor(SequenceNode*& root) noexcept : m_root(root) {}

    SequencePlace Insert(SequencePlace place, CGridItem& item);
    /// Returns true if every other item is in the same leaf as before.
    bool Erase(SequencePlace place) noexcept;
    /// Builds the tree, which must be empty, from items that are in the wanted order.
    void Build(std::span<CGridItem* const> items);
    void FreeAll() noexcept;

    /// Carries the node's first item and key to where its ancestors cache them.
    static void PublishFirst(SequenceNode& node) noexcept;
    /// Returns true if the root's answer to "is anything selected" changed.
    static bool SetSelectedBit(SequenceNode& node, unsigned slot, bool selected) noexcept;

private:
    [[nodiscard]] static SequenceNode* NewNode(unsigned level, unsigned capacity);
    static void FreeNode(SequenceNode* node) noexcept;
    static void FreeTree(SequenceNode* node) noexcept;
    [[nodiscard]] static std::vector<SequenceNode*> BuildLevel(std::span<SequenceNode* const> below);

    // Slots of one node. The node's own sums and what its ancestors cache are the caller's to put right.
    static void SetLeafSlot(SequenceNode& leaf, unsigned slot, CGridItem& item) noexcept;
    static void SetInnerSlot(SequenceNode& inner, unsigned slot, SequenceNode& child) noexcept;
    static void OpenSlots(SequenceNode& node, unsigned slot, unsigned count) noexcept;
    static void CloseSlots(SequenceNode& node, unsigned slot, unsigned count) noexcept;
    /// Tells what is in these slots where it is now.
    static void AdoptSlots(SequenceNode& node, unsigned from, unsigned to) noexcept;
    /// Also recounts both nodes.
    static void MoveSlots(SequenceNode& to, unsigned toSlot, SequenceNode& from, unsigned fromSlot,
                          unsigned count) noexcept;
    static void Recount(SequenceNode& node) noexcept;

    /// Modulo 2^32, so that amounts can be taken away too.
    static void AddToTotals(SequenceNode& leaf, std::uint32_t items, std::uint32_t rows) noexcept;
    /// Recounts the node and its ancestors, and what they cache of it.
    static void RefreshUp(SequenceNode& start) noexcept;
    [[nodiscard]] SequenceNode* GrowRootLeaf();
    [[nodiscard]] static unsigned SplitSlot(SequenceNode const& node, unsigned insertionSlot) noexcept;
    [[nodiscard]] SequenceNode* Split(SequenceNode& node, unsigned splitSlot);
    void InsertNodeAfter(SequenceNode& left, SequenceNode& right);
    /// Returns true if nothing else moved to another node.
    bool AfterRemoval(SequenceNode& node, unsigned slot) noexcept;
    void RemoveEmpty(SequenceNode& node) noexcept;
    void Refill(SequenceNode& node) noexcept;
    void DropThinRoot() noexcept;

    SequenceNode*& m_root;
};

} // namespace Ostrel::GUI::Detail
