// The rows of a grid as its public operations change and read them: the row areas, the object registry, the screen, the
// focus and the notifications, brought together in the stated order.
//
// Notifications are sent when everything is consistent again; the parent window may have changed the rows by then, so
// handles are checked once more afterwards.
#pragma once

#include <memory>
#include <vector>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/ValueCache.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

/// When the scroll bars follow a change of rows.
enum class BarsFollow
{
    Now,
    Posted, ///< once for many changes, when the grid's thread has time
    OnTimer ///< once for all rows that other threads add within some milliseconds
};

/// One change of the rows of an area. Made before the change; Finish brings everything else up to date.
class RowChangeScope
{
public:
    RowChangeScope(GridCore& core, GridArea& area);
    RowChangeScope(RowChangeScope const&) = delete;
    RowChangeScope& operator=(RowChangeScope const&) = delete;

    RowChanges changes;

    /// Repaints, moves the view, tells the parent window, and keeps or clears the focus.
    void Finish(BarsFollow bars);
    /// The two halves of it, for a change of both areas.
    void FinishRows(BarsFollow bars);
    void FinishFocus();

private:
    GridCore& m_core;
    GridArea& m_area;
    CGridItem* m_anchor;
    int m_focusedRow;
};

class GridRows
{
public:
    explicit GridRows(GridCore& core) noexcept : m_core(core) {}

    /// The snapshot is what the calling thread read of the object, null where the grid reads it itself.
    CGridItem* Add(Common::CDataObject* object, CGridItem* parent, CGridItem* after,
                   std::unique_ptr<ValueCache> snapshot, BarsFollow bars);
    bool Delete(CGridItem* item);
    void DeleteAll(ContextType mask);
    /// The row of an object that is going away, wherever it is.
    static void DeleteAnywhere(CGridItem& item);

    bool Attach(CGridItem* item, CGridItem* parent, CGridItem* after);
    bool Detach(CGridItem* item);
    bool Move(CGridItem* item, CGridItem* parent, CGridItem* reference, bool before);

    [[nodiscard]] std::vector<CGridItem*> Handles(Common::CDataObject const* object, bool onlyVisible,
                                                  ContextType mask) const;
    [[nodiscard]] CGridItem* ItemOf(Common::CDataObject const* object) const;
    [[nodiscard]] CGridItem* Parent(CGridItem* item) const;
    /// The topmost visible row of both areas.
    [[nodiscard]] CGridItem* FirstRow() const;
    [[nodiscard]] CGridItem* Next(CGridItem* item, bool crossAreas) const;
    [[nodiscard]] CGridItem* Previous(CGridItem* item, bool crossAreas) const;
    [[nodiscard]] std::vector<CGridItem*> Children(CGridItem* item, bool onlyVisible) const;
    [[nodiscard]] bool HasChildren(CGridItem* item) const;
    void ForEach(CGrid::IForEach& visitor, CGridItem* start);
    void ForEachVisible(CGrid::IForEach& visitor, CGridItem* start);

    void Expand(CGridItem* item, bool recursive, bool expand);

private:
    /// A row of this grid, or the root that a reserved handle stands for; null for everything else.
    [[nodiscard]] CGridItem* Resolve(CGridItem* handle) const;
    [[nodiscard]] static CGridItem* ResolveAfter(CGridItem* after, RowArea const& area) noexcept;
    using Step = CGridItem* (*)(CGridItem const&);
    bool Visit(CGrid::IForEach& visitor, CGridItem* first, Step next);

    /// Moves or clears the focus before a row goes. False when the row was gone already after that.
    [[nodiscard]] bool PrepareFocusForLeaving(CGridItem& item);
    /// Takes the controls of a row that is about to leave out of sight.
    [[nodiscard]] GridArea* AreaOfLeaving(CGridItem& item);
    [[nodiscard]] bool IsRootOrRow(CGridItem const* item) const;
    [[nodiscard]] CGridItem* NeighbourOf(CGridItem const& item) const;
    void RepaintBranch(CGridItem const& parent);
    static void Unregister(CGridItem& subtree);
    void TakeOut(CGridItem& item, BarsFollow bars);
    void PutIn(CGridItem& item, CGridItem& parent, CGridItem* after, BarsFollow bars);
    void DeleteAllOf(GridArea& area);
    /// What to insert after; null when the reference is no place below the parent.
    [[nodiscard]] CGridItem* MoveTarget(CGridItem const& item, CGridItem const& parent, CGridItem* reference,
                                        bool before) const;

    GridCore& m_core;
};
} // namespace Ostrel::GUI::Detail
