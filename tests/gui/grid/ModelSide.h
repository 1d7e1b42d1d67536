// One of the grids of the model test with what it should be like: its rows, its focus, its first row and what its
// parent should be told. Knows the rules of the default view and of the calm view in their most naive form.
#pragma once

#include <ostrel/testing/GridWindow.h>

#include "../model/ReferenceRows.h"

namespace Ostrel::Testing
{

[[nodiscard]] std::string NameOf(GUI::CGridItem const* item);

class ModelSide
{
public:
    using ReferenceRow = GUI::Detail::ReferenceRow;
    using ReferenceRows = GUI::Detail::ReferenceRows;
    using Items = std::vector<GUI::CGridItem*>;

    ModelSide(Driver& driver, std::string const& title, CPoint position);

    [[nodiscard]] GUI::CGrid& Grid() { return window.Grid(); }
    [[nodiscard]] ReferenceRows& Area(GUI::ContextType type) { return type == GUI::FixedContext ? fixed : scrollable; }
    void Expect(std::string const& line) { expected.push_back(line); }

    // --- What the operations do to the model, with all that follows ---
    void Insert(ReferenceRows& area, ReferenceRow& row, ReferenceRow& parent, std::size_t position);
    /// Takes a row out that is told of already.
    void Remove(ReferenceRows& area, ReferenceRow& row);
    void Delete(ReferenceRows& area, ReferenceRow& row);
    void DeleteAll(GUI::ContextType mask);
    void Detach(ReferenceRows& area, ReferenceRow& row);
    /// `moved` is the row in its new area.
    void Move(ReferenceRows& from, ReferenceRow& row, ReferenceRows& to, ReferenceRow& parent, std::size_t position);
    void ExpandOrCollapse(ReferenceRows& area, ReferenceRow& row, bool expand, bool recursive);
    void Filter(int hiddenRemainder);
    void Sort(std::vector<GUI::Detail::SortLevel> const& levels);
    /// By the levels that there are.
    void Sort() { Sort(levels); }
    void Update(ReferenceRows& area, ReferenceRow& row);
    void Freeze() { isFrozen = true; }
    void Thaw();
    void SelectAll();
    void ClearSelection();
    void Select(ReferenceRow& row, bool select);
    void Focus(GUI::CGridItem* item);
    void SetFirstRow(int row) { firstRow = Scrolled(row); }
    /// Scrolls just enough.
    void EnsureVisible(int row);
    /// Scrollable rows that fit, at least one.
    [[nodiscard]] int FittingRows() const;
    [[nodiscard]] ReferenceRow* Find(GUI::CGridItem const* item) const;
    /// Makes the model anew from the tree of the grid, its focus and its first row; what follows from the tree follows
    /// by the rules.
    void Adopt();

    GridWindow window;
    ReferenceRows fixed;
    ReferenceRows scrollable;
    GUI::CGridItem* focused = nullptr;
    int firstRow = 0;
    GUI::IGridFilter* filter = nullptr;
    bool isCalm = false;
    bool isFrozen = false;
    std::vector<GUI::CGridItem*> postponed; ///< by a frozen order; may hold rows that have gone
    std::vector<GUI::Detail::SortLevel> levels;
    GUI::ContextType sortedAreas = GUI::AllContexts;
    std::vector<std::string> expected;

private:
    struct Layout ///< in pixels
    {
        int height; ///< of both areas
        int fixedRow;
        int scrollableRow;
        int separator;
    };
    struct Before
    {
        Items rows;
        GUI::CGridItem* first;
    };

    void AdoptChildren(ReferenceRows& area, ReferenceRow& parent, GUI::CGridItem* handle);
    [[nodiscard]] Before Look(ReferenceRows const& area) const;
    void ExpectEvents(ReferenceRows& area);
    void ExpectDeletions(ReferenceRows const& area, ReferenceRow const& top);
    void Reposition(ReferenceRows& area, ReferenceRow& row);
    void FollowFirstRow(ReferenceRows const& area, Before const& before);
    void FollowFocus(ReferenceRows const& area, Before const& before);
    /// Before a row with its subtree goes, in the calm view.
    void HandFocusOn(ReferenceRows const& area, ReferenceRow const& leaving);
    /// The nearest first row that leaves no room below the last one.
    [[nodiscard]] int Scrolled(int row) const;
    [[nodiscard]] bool IsFocusIn(ReferenceRows const& area) const;
    [[nodiscard]] bool IsFocusBelow(ReferenceRows const& area, ReferenceRow const& top) const;

    Layout m_layout;
};

/// Brings a row with its subtree from the rows of one model into those of another; it is in no tree there yet.
[[nodiscard]] GUI::Detail::ReferenceRow& Transfer(GUI::Detail::ReferenceRow const& row, GUI::Detail::ReferenceRows& to);

} // namespace Ostrel::Testing
