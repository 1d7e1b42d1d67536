/// @file
/// What may be copied, cut and pasted in a grid, and where pasted rows go. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// What may be copied, cut and pasted. A grid keeps and stores them; in this version nothing acts on them yet.
class OSTREL_GUI_API CCopyPasteSettings
{
public:
    /// Where pasted rows go, seen from the focused row.
    enum PasteType : int
    {
        PasteAsFirstChild = 0, ///< below it, before its children
        PasteAsLastChild = 1,  ///< below it, after its children
        PasteAsSibling = 2,    ///< right after it, below its parent
        PasteAtTopLevel = 3,   ///< at the top level, after its top-level ancestor
    };
    /// The row that is scrolled into view after a paste. Rows of the fixed area never are.
    enum EnsureVisibleMode : int
    {
        EnsureVisibleNone = 0,           ///< the grid does not scroll
        EnsureVisibleFirst = 1,          ///< the first pasted row
        EnsureVisibleLastDescendant = 2, ///< the last shown descendant of the last pasted row
        EnsureVisibleFocused = 3,        ///< the row that has the focus then
    };
    /// The row that has the focus after a paste.
    enum FocusMode : int
    {
        FocusNone = 0,           ///< the focus is removed
        FocusFirst = 1,          ///< the first pasted row
        FocusLastDescendant = 2, ///< the last shown descendant of the last pasted row
        FocusLast = 3,           ///< the last pasted row
    };

    ///@{
    /// Whether fixed rows may be copied; true unless set.
    [[nodiscard]] bool CanCopyFromFixedContext() const noexcept { return m_canCopyFromFixedContext; }
    void EnableCopyFromFixedContext(bool enable) noexcept { m_canCopyFromFixedContext = enable; }
    ///@}

    ///@{
    /// Whether scrollable rows may be copied; true unless set.
    [[nodiscard]] bool CanCopyFromScrollableContext() const noexcept { return m_canCopyFromScrollableContext; }
    void EnableCopyFromScrollableContext(bool enable) noexcept { m_canCopyFromScrollableContext = enable; }
    ///@}

    ///@{
    /// Whether the children of a copied row go along when they are not selected; true unless set.
    [[nodiscard]] bool CanCopyNonSelectedChildren() const noexcept { return m_canCopyNonSelectedChildren; }
    void EnableCopyNonSelectedChildren(bool enable) noexcept { m_canCopyNonSelectedChildren = enable; }
    ///@}

    ///@{
    /// Whether the children of a copied row go along when the filter hides them; true unless set.
    [[nodiscard]] bool CanCopyFilteredChildren() const noexcept { return m_canCopyFilteredChildren; }
    void EnableCopyFilteredChildren(bool enable) noexcept { m_canCopyFilteredChildren = enable; }
    ///@}

    ///@{
    /// Whether fixed rows may be cut; true unless set.
    [[nodiscard]] bool CanCutFromFixedContext() const noexcept { return m_canCutFromFixedContext; }
    void EnableCutFromFixedContext(bool enable) noexcept { m_canCutFromFixedContext = enable; }
    ///@}

    ///@{
    /// Whether scrollable rows may be cut; true unless set.
    [[nodiscard]] bool CanCutFromScrollableContext() const noexcept { return m_canCutFromScrollableContext; }
    void EnableCutFromScrollableContext(bool enable) noexcept { m_canCutFromScrollableContext = enable; }
    ///@}

    ///@{
    /// Whether rows may be pasted into the fixed area; true unless set.
    [[nodiscard]] bool CanPasteToFixedContext() const noexcept { return m_canPasteToFixedContext; }
    void EnablePasteToFixedContext(bool enable) noexcept { m_canPasteToFixedContext = enable; }
    ///@}

    ///@{
    /// Whether rows may be pasted into the scrollable area; true unless set.
    [[nodiscard]] bool CanPasteToScrollableContext() const noexcept { return m_canPasteToScrollableContext; }
    void EnablePasteToScrollableContext(bool enable) noexcept { m_canPasteToScrollableContext = enable; }
    ///@}

    ///@{
    /// Whether rows may be pasted while no row has the focus; true unless set.
    [[nodiscard]] bool CanPasteWhenNoFocus() const noexcept { return m_canPasteWhenNoFocus; }
    void EnablePasteWhenNoFocus(bool enable) noexcept { m_canPasteWhenNoFocus = enable; }
    ///@}

    ///@{
    /// Whether they then go to the end of the area rather than to its front; true unless set.
    [[nodiscard]] bool CanPasteWhenNoFocusToEnd() const noexcept { return m_canPasteWhenNoFocusToEnd; }
    void EnablePasteWhenNoFocusToEnd(bool enable) noexcept { m_canPasteWhenNoFocusToEnd = enable; }
    ///@}

    ///@{
    /// Whether rows that another process copied may be pasted; false unless set.
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
    /// Where pasted rows go; PasteAtTopLevel unless set.
    [[nodiscard]] PasteType GetPasteType() const noexcept { return m_pasteType; }
    void SetPasteType(PasteType type) noexcept { m_pasteType = type; }
    ///@}

    ///@{
    /// The row that is scrolled into view after a paste; EnsureVisibleFocused unless set.
    [[nodiscard]] EnsureVisibleMode GetEnsureVisibleMode() const noexcept { return m_ensureVisibleMode; }
    void SetEnsureVisibleMode(EnsureVisibleMode mode) noexcept { m_ensureVisibleMode = mode; }
    ///@}

    ///@{
    /// The row that has the focus after a paste; FocusLast unless set.
    [[nodiscard]] FocusMode GetFocusMode() const noexcept { return m_focusMode; }
    void SetFocusMode(FocusMode mode) noexcept { m_focusMode = mode; }
    ///@}

    /// Equality of all settings.
    friend bool operator==(CCopyPasteSettings const&, CCopyPasteSettings const&) noexcept = default;

    /// Stores or loads 27 bytes: the 32-bit version, then the fields in the order above, a byte for a switch and 32
    /// bits for anything else. Loading throws CArchiveException (badSchema) for a newer version; a version below 1
    /// reads nothing further. Nothing changes in either case.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    bool m_canCopyFromFixedContext = true;
    bool m_canCopyFromScrollableContext = true;
    bool m_canCopyNonSelectedChildren = true;
    bool m_canCopyFilteredChildren = true;
    bool m_canCutFromFixedContext = true;
    bool m_canCutFromScrollableContext = true;
    bool m_canPasteToFixedContext = true;
    bool m_canPasteToScrollableContext = true;
    bool m_canPasteWhenNoFocus = true;
    bool m_canPasteWhenNoFocusToEnd = true;
    bool m_canImportDataFromAnotherApplication = false;
    PasteType m_pasteType = PasteAtTopLevel;
    EnsureVisibleMode m_ensureVisibleMode = EnsureVisibleFocused;
    FocusMode m_focusMode = FocusLast;
};

} // namespace Ostrel::GUI
