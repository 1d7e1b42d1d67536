// One row area: a tree of rows below an invisible root, with its sort order, its filter and its selection. It knows no
// window, no header and no lock: it changes the tree and says what changed, and the window repaints and notifies.
//
// A row is visible when the filter does not hide it, its parent is expanded, and its parent is the root or visible.
// There is no list of visible rows: every item's slot in its parent's children counts the rows that it and its visible
// descendants take, so a row number is a walk up, and finding a row a walk down. Changing one row costs
// O(depth x log n), whatever the number of rows. Costs below are for an area of n rows; m is the size of a subtree.
//
// The filter is asked only when a row would become visible, and then for every row that would become visible with it.
// All answers for one operation are collected before the first change, so a filter that throws changes nothing.
//
// Grid thread only. Items passed in must be live; items "of the area" must belong to it: check handles with Contains.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/SortOrder.h>

namespace Ostrel::GUI::Detail
{

/// Decides which rows are hidden. Asked from inside row operations; must change no row.
class IRowFilter
{
public:
    virtual ~IRowFilter() = default;
    [[nodiscard]] virtual bool IsHidden(CGridItem& item) = 0;
};

enum class Recursion : bool
{
    ItemOnly,
    WholeSubtree
};

/// What happened to one row, in the order in which the parent window is to hear of it.
enum class RowEventKind : std::uint8_t
{
    ExpandedChanged, ///< the expanded flag changed
    Shown,           ///< the row became visible (a row's event follows those of its descendants)
    Filtered         ///< the filter hid the row, or showed it again
};
struct RowEvent
{
    RowEventKind kind;
    CGridItem* item;

    friend bool operator==(RowEvent const&, RowEvent const&) = default;
};

/// What an operation did. Several operations may write to one. Rows from firstRow on are to be repainted.
struct RowChanges
{
    bool wantsEvents = true; ///< false: `events` stays empty, which saves the O(m) of listing shown rows
    std::vector<RowEvent> events{};
    int firstRow = -1;           ///< lowest row number at which the visible rows changed; -1: none did
    std::int64_t rowsShown = 0;  ///< rows that became visible
    std::int64_t rowsHidden = 0; ///< rows that ceased to be visible

    [[nodiscard]] bool HasRowsChanged() const noexcept { return firstRow >= 0; }
    void Touch(int row) noexcept { firstRow = firstRow < 0 || row < firstRow ? row : firstRow; }
};

struct RowSpan
{
    int first = -1;
    int count = 0;
};

/// The outcome of a repositioning: `count` rows went from row `from` to row `to` (both their first row number, before
/// and after). Rows are -1 and count 0 for a row that is not visible.
struct RowMove
{
    bool moved = false;
    int from = -1;
    int to = -1;
    int count = 0;
};

class RowArea
{
public:
    /// Row height 14, no levels, no filter. `values` is not owned and must outlive the area; null: a place where rows
    /// are never sorted.
    RowArea(ContextType type, IRowValues* values);
    RowArea(RowArea const&) = delete;
    RowArea& operator=(RowArea const&) = delete;
    /// Destroys all rows.
    ~RowArea();

    [[nodiscard]] ContextType Type() const noexcept { return m_type; }
    [[nodiscard]] CGridItem& Root() noexcept { return *m_root; }
    [[nodiscard]] CGridItem const& Root() const noexcept { return *m_root; }
    static constexpr int kTallestRow = 1 << 14; ///< so that what is measured in row heights stays far from overflowing
    /// Pixels; every row of the area has it. At most kTallestRow.
    [[nodiscard]] int RowHeight() const noexcept { return m_rowHeight; }
    void SetRowHeight(int height) noexcept { m_rowHeight = std::min(height, kTallestRow); }

    /// True for a row of this area (the root included). Any value may be asked.
    [[nodiscard]] bool Contains(CGridItem const* handle) const noexcept;
    /// The area in which rows live that are in no grid: of no type, shared, holding no tree. Any thread.
    [[nodiscard]] static RowArea& Detached() noexcept;

    // --- Making and ending rows ---

    /// A row for the object, in the detached area, collapsed and not selected. Any thread.
    [[nodiscard]] static CGridItem* CreateItem(Common::CDataObject* object);
    /// Destroys a row that is in no tree, with its subtree. O(m).
    static void DestroyDetached(CGridItem& item) noexcept;
    /// Destroys every row below the root. Levels and filter stay. O(n).
    void DestroyAll() noexcept;
    /// The rows of a subtree in the order in which their deletion is told: children before parents, later siblings
    /// before earlier ones. The root itself is left out.
    [[nodiscard]] static std::vector<CGridItem*> DeletionOrder(CGridItem& item);

    // --- Placing rows ---

    /// Inserts a detached row with its subtree below `parent`, a row of this area or its root. A sorted area places it
    /// behind all siblings that do not come after it and sorts its subtree; otherwise it goes: `after` null or
    /// LastPosition (or a root handle): to the end; FirstPosition or the parent itself: to the front; a row: right
    /// after the child of `parent` that is or holds that row, else to the end. A selected row joins the selection.
    /// A getter that is asked for sort keys may delete rows: where the parent goes the row comes below the root, and a
    /// row that goes itself is not inserted.
    void Insert(CGridItem& item, CGridItem& parent, CGridItem* after, RowChanges& changes);
    /// Takes a row of this area with its subtree out, into the detached area, flags and children kept.
    void Remove(CGridItem& item, RowChanges& changes);

    // --- Expanding and filtering ---

    void Expand(CGridItem& item, Recursion recursion, RowChanges& changes);
    /// The root itself stays expanded.
    void Collapse(CGridItem& item, Recursion recursion, RowChanges& changes);
    /// Not owned; null shows everything. Rows keep their state until ApplyFilter.
    void SetFilter(IRowFilter* filter) noexcept { m_filter = filter; }
    /// Asks the filter for the row. Returns true if that showed or hid it.
    bool ApplyFilterTo(CGridItem& item, RowChanges& changes);
    /// Asks the filter for all visible rows and for those that may become visible. O(n), plus O(log n) per change.
    void ApplyFilter(RowChanges& changes);

    // --- Sorting ---

    [[nodiscard]] SortOrder const& Order() const noexcept { return m_order; }
    [[nodiscard]] bool IsSorted() const noexcept { return !m_order.IsEmpty(); }
    /// Takes up to five levels and sorts all rows by them, stably. No levels: rows keep their places.
    void Sort(std::span<SortLevel const> levels);
    /// Recomputes the keys of an updated row and moves it, if its place is no longer right, to the nearest right one.
    RowMove Reposition(CGridItem& item);

    // --- Reading ---

    [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(m_root->m_children.Rows()); }
    [[nodiscard]] CGridItem* ItemAt(int row) const noexcept;             ///< null when out of range
    [[nodiscard]] static int RowOf(CGridItem const& item) noexcept;      ///< -1: not visible
    [[nodiscard]] static bool IsVisible(CGridItem const& item) noexcept; ///< false for a root
    [[nodiscard]] static int Level(CGridItem const& item) noexcept;      ///< 0 for a top-level row, -1 for a root
    /// Visible rows below the row, 0 while the row itself is not visible.
    [[nodiscard]] static int VisibleDescendants(CGridItem const& item) noexcept;
    [[nodiscard]] static CGridItem* NextVisible(CGridItem const& item) noexcept; ///< the row below; null at the end
    [[nodiscard]] static CGridItem* PreviousVisible(CGridItem const& item) noexcept;
    [[nodiscard]] CGridItem* FirstVisible() const noexcept { return ItemAt(0); }
    /// What a person would point at for a row of this area: the row itself while it is visible, the collapsed row that
    /// it is below, or, where the filter hides it, the next visible row, else the last one. Null when there is none.
    [[nodiscard]] CGridItem* VisibleInsteadOf(CGridItem& item) const noexcept;
    /// The next row in pre-order, visible or not; null behind the last one of the area.
    [[nodiscard]] static CGridItem* NextInTree(CGridItem const& item) noexcept;
    [[nodiscard]] static bool IsAncestor(CGridItem const& ancestor, CGridItem const& item) noexcept; ///< or the same
    /// The children in order; onlyVisible leaves out the invisible ones.
    [[nodiscard]] static std::vector<CGridItem*> Children(CGridItem const& item, bool onlyVisible);

    // --- Selection: any set of rows; whether a row may be selected is the window's rule ---

    [[nodiscard]] int SelectedCount() const noexcept { return m_selectedCount; }
    /// Returns true if the flag changed. O(depth x log n).
    static bool Select(CGridItem& item, bool selected) noexcept;
    /// Selects all visible rows. Appends those that changed, in row order, when a list is given. O(n).
    void SelectAllVisible(std::vector<CGridItem*>* changed);
    /// Selected rows in pre-order; onlyVisible leaves out the invisible ones. O(k x log n) for k selected rows.
    [[nodiscard]] std::vector<CGridItem*> Selected(bool onlyVisible) const;

    /// Empty when everything agrees with everything, else what is wrong. O(n), for tests.
    [[nodiscard]] std::string CheckInvariants() const;

private:
    struct ExpansionPlan;

    // Placing.
    [[nodiscard]] SequencePlace PlaceAfter(CGridItem const& parent, CGridItem* after) const noexcept;
    static void Unlink(CGridItem& item) noexcept;
    /// The detached area, which threads share, counts nothing.
    void CountRowChange() noexcept { m_rowChanges += m_type == NoContext ? 0 : 1; }
    static void SetAreaOfSubtree(CGridItem& item, RowArea& area) noexcept;

    /// Carry a change of the item's rows, or of whether something at or below it is selected, to its ancestors' sums.
    static void CarryRows(CGridItem& item) noexcept;
    static void CarrySelected(CGridItem& item) noexcept;

    // Sorting.
    void SortBelow(CGridItem& item);
    void SortChildren(CGridItem& parent, std::vector<CGridItem*>& children);
    void ComputeKeys(std::span<CGridItem* const> items);
    SequencePlace MoveTo(SequenceNode* leaf, Bound bound, CGridItem& item, SequencePlace place);
    SequencePlace MoveEitherWay(CGridItem& item, SequencePlace place);

    // Visibility.
    /// True for a root, and for a visible row that is expanded.
    [[nodiscard]] static bool ShowsChildren(CGridItem const& item) noexcept;
    /// Visible rows above the place of an item whose parent shows its children.
    [[nodiscard]] static int RowsAbove(CGridItem const& item) noexcept;
    [[nodiscard]] static int RowsAbove(CGridItem const& item, SequencePlace place) noexcept;
    [[nodiscard]] bool AsksToHide(CGridItem& item) const;
    void FindFlips(CGridItem& top, std::vector<CGridItem*>& flips) const;
    static void Flip(std::vector<CGridItem*> const& items) noexcept;
    static void SetExpanded(CGridItem& item, bool expanded) noexcept;
    void Show(CGridItem& item, RowChanges& changes);
    static void ReportShown(CGridItem& item, RowChanges& changes);
    [[nodiscard]] ExpansionPlan PlanExpansion(CGridItem& top, Recursion recursion) const;
    static void ReportExpansion(CGridItem& top, Recursion recursion, ExpansionPlan const& plan, RowChanges& changes);

    ContextType m_type;
    int m_rowHeight = 14;
    int m_selectedCount = 0;
    std::uint32_t m_rowChanges = 0; ///< counts rows that came and went
    IRowValues* m_values;
    IRowFilter* m_filter = nullptr;
    SortOrder m_order;
    CGridItem* m_root;
};

} // namespace Ostrel::GUI::Detail
