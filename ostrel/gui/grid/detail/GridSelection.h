// Which rows are selected and which one has the focus, and what is allowed. The focus is held as the row itself, so
// that its row number is always right; where a change of rows takes the focus away is decided by whoever makes it.
#pragma once

#include <vector>

#include <ostrel/gui/grid/detail/GridArea.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridSelection
{
public:
    explicit GridSelection(GridCore& core) noexcept : m_core(core) {}

    // Permissions
    bool allowSelection = true;
    bool allowMultiSelection = true;
    bool allowMouseTrack = true;
    ContextType selectable = AllContexts;
    ContextType focusable = AllContexts;
    ContextType navigable = AllContexts;

    // --- Selection ---
    bool Select(int row, ContextType type, bool select);
    bool Select(CGridItem& item, bool select);
    /// Sets every row between two places, in the order fixed rows, scrollable rows, to one state.
    struct Place
    {
        int row = -1;
        ContextType type = NoContext;

        friend bool operator==(Place const&, Place const&) = default;
    };
    void SelectRange(Place from, Place to, bool select);
    void SelectAll();
    void Clear();
    [[nodiscard]] int Count() const;
    [[nodiscard]] std::vector<CGridItem*> Selected(ContextType mask) const;

    // --- Focus ---
    bool SetFocus(int row, ContextType type);
    /// As SetFocus for a visible row; null takes the focus away.
    void FocusItem(CGridItem* item);
    /// Never a row that has gone.
    [[nodiscard]] CGridItem* FocusedItem() const noexcept { return m_focused; }
    [[nodiscard]] int FocusedRow() const;
    [[nodiscard]] ContextType FocusedContext() const;
    /// Without notification and repaint: the row is about to go, or null, or comes back from a move.
    void AdoptFocus(CGridItem* item) noexcept { m_focused = item; }

private:
    [[nodiscard]] bool MayBeSelected(ContextType type) const;
    bool SetSelected(CGridItem& item, bool select);
    void Repaint(CGridItem const* item);

    GridCore& m_core;
    CGridItem* m_focused = nullptr;
};
} // namespace Ostrel::GUI::Detail
