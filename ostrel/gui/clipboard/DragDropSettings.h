/// @file
/// Which rows may be dragged, where they may be dropped, and how a drop finds its parent. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// What may be dragged and dropped. A grid keeps and stores them; in this version nothing acts on them yet.
class OSTREL_GUI_API CDragDropSettings
{
public:
    ///@{
    /// Whether fixed rows may be dragged; true unless set.
    [[nodiscard]] bool CanDragFromFixedContext() const noexcept { return m_canDragFromFixedContext; }
    void EnableDragFromFixedContext(bool enable) noexcept { m_canDragFromFixedContext = enable; }
    ///@}

    ///@{
    /// Whether scrollable rows may be dragged; true unless set.
    [[nodiscard]] bool CanDragFromScrollableContext() const noexcept { return m_canDragFromScrollableContext; }
    void EnableDragFromScrollableContext(bool enable) noexcept { m_canDragFromScrollableContext = enable; }
    ///@}

    ///@{
    /// Whether the children of a dragged row go along when they are not selected; true unless set.
    [[nodiscard]] bool CanDragNonSelectedChildren() const noexcept { return m_canDragNonSelectedChildren; }
    void EnableDragNonSelectedChildren(bool enable) noexcept { m_canDragNonSelectedChildren = enable; }
    ///@}

    ///@{
    /// Whether the children of a dragged row go along when the filter hides them; true unless set.
    [[nodiscard]] bool CanDragFilteredChildren() const noexcept { return m_canDragFilteredChildren; }
    void EnableDragFilteredChildren(bool enable) noexcept { m_canDragFilteredChildren = enable; }
    ///@}

    ///@{
    /// Whether rows may be dropped into the fixed area; true unless set.
    [[nodiscard]] bool CanDropToFixedContext() const noexcept { return m_canDropToFixedContext; }
    void EnableDropToFixedContext(bool enable) noexcept { m_canDropToFixedContext = enable; }
    ///@}

    ///@{
    /// Whether rows may be dropped into the scrollable area; true unless set.
    [[nodiscard]] bool CanDropToScrollableContext() const noexcept { return m_canDropToScrollableContext; }
    void EnableDropToScrollableContext(bool enable) noexcept { m_canDropToScrollableContext = enable; }
    ///@}

    ///@{
    /// Whether a drag within one grid may copy; false unless set.
    [[nodiscard]] bool CanLocalGridCopy() const noexcept { return m_canLocalGridCopy; }
    void EnableLocalGridCopy(bool enable) noexcept { m_canLocalGridCopy = enable; }
    ///@}

    ///@{
    /// Whether a drag within one grid may move; true unless set.
    [[nodiscard]] bool CanLocalGridMove() const noexcept { return m_canLocalGridMove; }
    void EnableLocalGridMove(bool enable) noexcept { m_canLocalGridMove = enable; }
    ///@}

    ///@{
    /// Whether a drag from another grid of the same process may copy; false unless set.
    [[nodiscard]] bool CanRemoteGridCopy() const noexcept { return m_canRemoteGridCopy; }
    void EnableRemoteGridCopy(bool enable) noexcept { m_canRemoteGridCopy = enable; }
    ///@}

    ///@{
    /// Whether a drag from another grid of the same process may move; false unless set.
    [[nodiscard]] bool CanRemoteGridMove() const noexcept { return m_canRemoteGridMove; }
    void EnableRemoteGridMove(bool enable) noexcept { m_canRemoteGridMove = enable; }
    ///@}

    ///@{
    /// Whether rows of another process may be dropped; false unless set.
    [[nodiscard]] bool CanImportDataFromAnotherApplication() const noexcept
    {
        return m_canImportDataFromAnotherApplication;
    }
    void EnableImportDataFromAnotherApplication(bool enable) noexcept
    {
        m_canImportDataFromAnotherApplication = enable;
    }
    ///@}

    ///@{
    /// Whether a picture of the rows goes with the pointer; false unless set.
    [[nodiscard]] bool CanGenerateDragImage() const noexcept { return m_canGenerateDragImage; }
    void EnableGenerateDragImage(bool enable) noexcept { m_canGenerateDragImage = enable; }
    ///@}

    ///@{
    /// Whether the place of the pointer chooses the parent of dropped rows; false unless set.
    [[nodiscard]] bool CanHierarchicalDrop() const noexcept { return m_canHierarchicalDrop; }
    void EnableHierarchicalDrop(bool enable) noexcept { m_canHierarchicalDrop = enable; }
    ///@}

    ///@{
    /// Whether dropped rows stay on their level of the tree; true unless set.
    [[nodiscard]] bool MustKeepLevel() const noexcept { return m_mustKeepLevel; }
    void SetKeepLevel(bool enable) noexcept { m_mustKeepLevel = enable; }
    ///@}

    ///@{
    /// Whether dropped rows stay below their parent; false unless set.
    [[nodiscard]] bool MustKeepParent() const noexcept { return m_mustKeepParent; }
    void SetKeepParent(bool enable) noexcept { m_mustKeepParent = enable; }
    ///@}

    ///@{
    /// The colour, 0x00BBGGRR, of the mark that shows where rows would go.
    [[nodiscard]] unsigned long GetDropColor() const noexcept { return m_dropColor; }
    void SetDropColor(unsigned long color) noexcept { m_dropColor = static_cast<COLORREF>(color); }
    ///@}

    /// Equality of all settings.
    friend bool operator==(CDragDropSettings const&, CDragDropSettings const&) noexcept = default;

    /// Stores or loads 23 bytes: the 32-bit version, then the fields in the order above, a byte for a switch and 32
    /// bits for anything else. Loading throws CArchiveException (badSchema) for a newer version; a version below 1
    /// reads nothing further. Nothing changes in either case.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    bool m_canDragFromFixedContext = true;
    bool m_canDragFromScrollableContext = true;
    bool m_canDragNonSelectedChildren = true;
    bool m_canDragFilteredChildren = true;
    bool m_canDropToFixedContext = true;
    bool m_canDropToScrollableContext = true;
    bool m_canLocalGridCopy = false;
    bool m_canLocalGridMove = true;
    bool m_canRemoteGridCopy = false;
    bool m_canRemoteGridMove = false;
    bool m_canImportDataFromAnotherApplication = false;
    bool m_canGenerateDragImage = false;
    bool m_canHierarchicalDrop = false;
    bool m_mustKeepLevel = true;
    bool m_mustKeepParent = false;
    COLORREF m_dropColor = 0xDF8020;
};

} // namespace Ostrel::GUI
