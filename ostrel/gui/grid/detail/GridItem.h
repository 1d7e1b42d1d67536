// A row: what the grid keeps for each object that it shows. Lean, since there are a million of them: what a row rarely
// has (cell update records, cached values, children, whole sort values) costs one pointer until it has it, and nothing
// is stored that the tree can tell (row number, place among the siblings, visible descendants).
//
// Rows live in a process-wide pool (ItemPool.h) that answers whether an address is a row without touching it.
// All fields belong to the thread of the row's home, but for those of the object registry, which its lock guards.
#pragma once

#include <cstdint>
#include <memory>

#include <ostrel/gui/grid/GridItem.h>
#include <ostrel/gui/grid/detail/CellUpdates.h>
#include <ostrel/gui/grid/detail/ChildSequence.h>

namespace Ostrel::Common
{
class CDataObject;
class CValue;
} // namespace Ostrel::Common

namespace Ostrel::GUI
{

namespace Detail
{
class ItemExtras;
class RowArea;

// Deleters of what is not defined here.
struct ItemExtrasDeleter
{
    void operator()(ItemExtras* extras) const noexcept;
};
struct SortValuesDeleter
{
    void operator()(Common::CValue* values) const noexcept;
};
} // namespace Detail

class alignas(64) CGridItem
{
public:
    explicit CGridItem(Common::CDataObject* object) noexcept : m_object(object) {}
    CGridItem(CGridItem const&) = delete;
    CGridItem& operator=(CGridItem const&) = delete;
    ~CGridItem() = default;

    /// Not owned; null for the roots.
    [[nodiscard]] Common::CDataObject* Object() const noexcept { return m_object; }
    /// Null for a root and for a row in no tree. A top-level row's parent is its area's root.
    [[nodiscard]] CGridItem* Parent() const noexcept { return m_parent; }
    /// Never null for a row that RowArea made: the detached area when the row is in no grid.
    [[nodiscard]] Detail::RowArea* Area() const noexcept { return m_area; }
    [[nodiscard]] Detail::ChildSequence const& Children() const noexcept { return m_children; }
    [[nodiscard]] bool HasChildren() const noexcept { return !m_children.IsEmpty(); }

    [[nodiscard]] bool IsRoot() const noexcept { return m_isRoot; }
    [[nodiscard]] bool IsExpanded() const noexcept { return m_isExpanded; }
    [[nodiscard]] bool IsSelected() const noexcept { return m_isSelected; }
    /// The filter's last answer for this row; says nothing while the row is below a collapsed one.
    [[nodiscard]] bool IsHiddenByFilter() const noexcept { return m_isHidden; }
    /// Rows of the item and of what it shows below, were its parent visible: 0 when the filter hides it.
    [[nodiscard]] std::uint32_t Rows() const noexcept
    {
        return m_isHidden ? 0 : 1U + (m_isExpanded ? m_children.Rows() : 0U);
    }
    [[nodiscard]] bool HasSelected() const noexcept { return m_isSelected || m_children.HasSelected(); }

    [[nodiscard]] std::int32_t RowUpdateMs() const noexcept { return m_rowUpdateMs; } ///< -1: never
    void SetRowUpdateMs(std::int32_t nowMs) noexcept { m_rowUpdateMs = nowMs; }
    [[nodiscard]] std::int32_t RowDeadlineMs() const noexcept { return m_rowDeadlineMs; } ///< -1: none
    void SetRowDeadlineMs(std::int32_t deadlineMs) noexcept { m_rowDeadlineMs = deadlineMs; }
    [[nodiscard]] Detail::CellUpdates& Updates() noexcept { return m_updates; }
    [[nodiscard]] Detail::CellUpdates const& Updates() const noexcept { return m_updates; }

    /// Null while the row has none.
    [[nodiscard]] Detail::ItemExtras* Extras() const noexcept { return m_extras.get(); }
    Detail::ItemExtras& NeedExtras();
    void DropExtras() noexcept { m_extras.reset(); }

private:
    friend class Detail::RowArea;
    friend class Detail::ChildSequence;
    friend class Detail::SequenceEditor;
    friend class Detail::SortOrder;

    // What searches, walks and updates read comes first: one cache line.
    std::uint64_t m_sortPrefix = 0;
    Detail::SequenceNode* m_leaf = nullptr; ///< of the parent's children
    CGridItem* m_parent = nullptr;
    Detail::ChildSequence m_children;
    std::uint8_t m_sortTag = 0;
    std::uint8_t m_sortValueCount = 0;
    /// Where in the leaf the item was last seen. Others may have moved it since.
    mutable std::uint8_t m_slotHint = 0;
    bool m_isExpanded : 1 = false;
    bool m_isSelected : 1 = false;
    bool m_isHidden : 1 = false;
    bool m_isRoot : 1 = false;
    std::int32_t m_rowUpdateMs = -1;
    Detail::CellUpdates m_updates;
    Common::CDataObject* m_object;
    Detail::RowArea* m_area = nullptr;
    std::unique_ptr<Common::CValue[], Detail::SortValuesDeleter> m_sortValues;
    std::unique_ptr<Detail::ItemExtras, Detail::ItemExtrasDeleter> m_extras;
    std::int32_t m_rowDeadlineMs = -1;

public:
    // Of the object registry, guarded by its lock: the number of the thread whose grid has, or last had, the row; and
    // the rows of one object in the order of their registration.
    std::uint32_t m_home = 0;
    CGridItem* m_nextOfObject = nullptr;
    CGridItem* m_previousOfObject = nullptr;
};

} // namespace Ostrel::GUI
