// Checks that all that is cached in the tree agrees with the rows. For tests.
#include <string>

#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/grid/detail/TreeWalk.h>

namespace Ostrel::GUI::Detail
{
namespace
{

constexpr char const* kInOrder = nullptr;

/// Walks one counted tree from its root and compares every cached number with what it stands for.
class SequenceCheck
{
public:
    explicit SequenceCheck(CGridItem const& owner) noexcept : m_owner(owner) {}

    [[nodiscard]] char const* Check(SequenceNode& node, bool isRoot, bool isOnRightSpine, int depth)
    {
        if (node.m_count == 0 || node.m_count > node.m_capacity)
        {
            return "a node is empty or overfull";
        }
        unsigned const capacity = node.IsLeaf() ? kLeafCapacity : kInnerCapacity;
        if (!isRoot && (node.m_capacity != capacity || (!isOnRightSpine && node.m_count < capacity / 4)))
        {
            return "a node is too small";
        }
        if (node.IsLeaf() && m_leafDepth >= 0 && m_leafDepth != depth)
        {
            return "leaves at different depths";
        }
        m_leafDepth = node.IsLeaf() ? depth : m_leafDepth;
        std::uint32_t rows = 0;
        std::uint32_t items = 0;
        for (unsigned slot = 0; slot < node.m_count; ++slot)
        {
            bool const isLast = slot + 1U == node.m_count;
            char const* const fault =
                node.IsLeaf() ? CheckItem(node, slot) : CheckChild(node, slot, isOnRightSpine && isLast, depth);
            if (fault)
            {
                return fault;
            }
            rows += node.Rows()[slot];
            items += node.IsLeaf() ? 1U : node.Counts()[slot];
        }
        bool const hasStrayBits = node.m_count < 64 && node.m_selected >> node.m_count != 0;
        return rows != node.m_rows || items != node.m_items || hasStrayBits ? "a node's totals are wrong" : kInOrder;
    }

private:
    [[nodiscard]] char const* CheckItem(SequenceNode& leaf, unsigned slot) const
    {
        CGridItem const& item = *leaf.ItemAt(slot);
        SequencePlace const place = ChildSequence::PlaceOf(item);
        if (item.Parent() != &m_owner || place.leaf != &leaf || place.slot != slot)
        {
            return "an item does not know its place";
        }
        if (leaf.Rows()[slot] != item.Rows())
        {
            return "an item's rows are not those of its slot";
        }
        return ((leaf.m_selected >> slot & 1U) != 0) != item.HasSelected() ? "a selected bit is wrong" : kInOrder;
    }

    [[nodiscard]] char const* CheckChild(SequenceNode& node, unsigned slot, bool isOnRightSpine, int depth)
    {
        SequenceNode& child = *node.Child(slot);
        if (child.m_parent != &node || child.m_slot != slot)
        {
            return "a node does not know its place";
        }
        if (char const* const fault = Check(child, false, isOnRightSpine, depth + 1))
        {
            return fault;
        }
        if (node.Rows()[slot] != child.m_rows || node.Counts()[slot] != child.m_items ||
            ((node.m_selected >> slot & 1U) != 0) != (child.m_selected != 0))
        {
            return "a child's totals are cached wrongly";
        }
        return node.ItemAt(slot) != child.ItemAt(0) || node.Prefixes()[slot] != child.Prefixes()[0] ||
                       node.Tags()[slot] != child.Tags()[0]
                   ? "a child's first item is cached wrongly"
                   : kInOrder;
    }

    CGridItem const& m_owner;
    int m_leafDepth = -1;
};

} // namespace

char const* ChildSequence::CheckInvariants(CGridItem const& owner) const
{
    return !m_root            ? nullptr
           : m_root->m_parent ? "a root node has a parent"
                              : SequenceCheck(owner).Check(*m_root, true, true, 0);
}

std::string RowArea::CheckInvariants() const
{
    std::string fault;
    int selected = 0;
    WalkSubtree(*m_root,
                [&](CGridItem& item)
                {
                    char const* const found = item.m_children.CheckInvariants(item);
                    if (fault.empty() && found)
                    {
                        fault = found;
                    }
                    if (fault.empty() && (item.m_area != this || !ItemPool::IsLive(&item)))
                    {
                        fault = "an item is not of this area";
                    }
                    selected += item.m_isSelected ? 1 : 0;
                    if (fault.empty() && item.m_leaf &&
                        (item.m_leaf->Prefixes()[item.m_leaf->SlotOf(&item)] != item.m_sortPrefix ||
                         item.m_leaf->Tags()[item.m_leaf->SlotOf(&item)] != item.m_sortTag))
                    {
                        fault = "an item's key is not that of its slot";
                    }
                    return fault.empty();
                });
    return fault.empty() && selected != m_selectedCount ? "the count of selected rows is wrong" : fault;
}

} // namespace Ostrel::GUI::Detail
