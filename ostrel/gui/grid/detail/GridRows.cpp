#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridRows.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>

namespace Ostrel::GUI::Detail
{
namespace
{
/// A row that no tree holds yet: destroyed unless it finds its place.
class NewRow
{
public:
    NewRow(Common::CDataObject* object, DWORD home) : m_item(RowArea::CreateItem(object))
    {
        m_item->m_home = home;
        ObjectRegistry::Instance().Register(object, *m_item);
    }
    NewRow(NewRow const&) = delete;
    NewRow& operator=(NewRow const&) = delete;
    ~NewRow()
    {
        if (m_item != nullptr)
        {
            ObjectRegistry::Instance().Unregister(m_item->Object(), *m_item);
            RowArea::DestroyDetached(*m_item);
        }
    }

    [[nodiscard]] CGridItem& Item() const noexcept { return *m_item; }
    void Keep() noexcept { m_item = nullptr; }

private:
    CGridItem* m_item;
};

bool IsAttachable(CGridItem const* item) noexcept
{
    return item != nullptr && !IsReservedHandle(item) && ItemPool::IsLive(item) && !item->IsRoot() &&
           item->Parent() == nullptr && GridArea::Of(*item) == nullptr;
}
} // namespace

CGridItem* GridRows::Resolve(CGridItem* handle) const
{
    if (handle == ScrollableRoot)
    {
        return &m_core.Scrollable().Root();
    }
    if (handle == FixedRoot)
    {
        return &m_core.Fixed().Root();
    }
    return m_core.AreaOf(handle) != nullptr ? handle : nullptr;
}

// Anything that is no place in the area means the end, a root too.
CGridItem* GridRows::ResolveAfter(CGridItem* after, RowArea const& area) noexcept
{
    bool const isPlace = after == FirstPosition || (!IsReservedHandle(after) && area.Contains(after));
    return isPlace ? after : LastPosition;
}

// The expand button of the parent and the tree lines of the siblings depend on which child is the last one. Below a
// collapsed parent only its button can change, with the first child that comes and the last one that goes.
void GridRows::RepaintBranch(CGridItem const& parent)
{
    int const row = parent.IsRoot() ? -1 : RowArea::RowOf(parent);
    if (row < 0)
    {
        return;
    }
    if (parent.IsExpanded())
    {
        m_core.View().InvalidateFrom(row, parent.Area()->Type());
    }
    else if (parent.Children().Count() <= 1)
    {
        m_core.View().InvalidateRow(row, parent.Area()->Type());
    }
}

void GridRows::PutIn(CGridItem& item, CGridItem& parent, CGridItem* after, BarsFollow bars)
{
    GridArea& area = *GridArea::Of(parent);
    RowChangeScope scope(m_core, area);
    area.Insert(item, parent, ResolveAfter(after, area), scope.changes);
    if (area.Contains(&item))
    {
        RepaintBranch(*item.Parent());
        m_core.Controls().OnEntered(item);
    }
    scope.Finish(bars);
}

void GridRows::TakeOut(CGridItem& item, BarsFollow bars)
{
    GridArea& area = *GridArea::Of(item);
    CGridItem& parent = *item.Parent();
    RowChangeScope scope(m_core, area);
    area.Remove(item, scope.changes);
    RepaintBranch(parent);
    scope.Finish(bars);
}

CGridItem* GridRows::Add(Common::CDataObject* object, CGridItem* parent, CGridItem* after,
                         std::unique_ptr<ValueCache> snapshot, BarsFollow bars)
{
    CGridItem* const parentItem = Resolve(parent);
    if (object == nullptr || parentItem == nullptr)
    {
        return nullptr;
    }
    NewRow row(object, m_core.Thread().Home());
    CGridItem& item = row.Item();
    if (snapshot != nullptr)
    {
        item.NeedExtras().valueCache = std::move(snapshot);
        m_core.Cells().Reformat(item, kAllFields);
    }
    GridArea& area = *GridArea::Of(*parentItem);
    RowChangeScope scope(m_core, area);
    area.Insert(item, *parentItem, ResolveAfter(after, area), scope.changes);
    row.Keep();
    if (area.Contains(&item))
    {
        RepaintBranch(*item.Parent());
    }
    scope.Finish(bars);
    if (m_core.AreaOf(&item) != nullptr)
    {
        m_core.Notifier().Row(ItemAdded, item);
    }
    return m_core.AreaOf(&item) != nullptr ? &item : nullptr;
}

// --- Leaving ---

CGridItem* GridRows::NeighbourOf(CGridItem const& item) const
{
    int const row = RowArea::RowOf(item);
    if (row < 0)
    {
        return nullptr;
    }
    RowArea const& area = *item.Area();
    CGridItem* const next = area.ItemAt(row + 1 + RowArea::VisibleDescendants(item));
    return next != nullptr ? next : area.ItemAt(row - 1);
}

bool GridRows::PrepareFocusForLeaving(CGridItem& item)
{
    GridSelection& selection = m_core.Selection();
    CGridItem* const focused = selection.FocusedItem();
    if (focused != nullptr && focused->Area() == item.Area())
    {
        if (!m_core.IsCalm())
        {
            selection.FocusItem(nullptr);
        }
        else if (RowArea::IsAncestor(item, *focused))
        {
            selection.FocusItem(NeighbourOf(item));
        }
    }
    return m_core.AreaOf(&item) != nullptr;
}

// Null when the row has gone while its controls were hidden.
GridArea* GridRows::AreaOfLeaving(CGridItem& item)
{
    if (m_core.Controls().HasAny() && m_core.AreaOf(&item) != nullptr)
    {
        m_core.Controls().OnLeaving(item);
    }
    return m_core.AreaOf(&item);
}

void GridRows::Unregister(CGridItem& subtree)
{
    ObjectRegistry& registry = ObjectRegistry::Instance();
    if (!subtree.HasChildren())
    {
        registry.Unregister(subtree.Object(), subtree);
        return;
    }
    for (CGridItem* const item : RowArea::DeletionOrder(subtree))
    {
        registry.Unregister(item->Object(), *item);
    }
}

bool GridRows::Delete(CGridItem* item)
{
    if (m_core.AreaOf(item) == nullptr)
    {
        return false;
    }
    if (!PrepareFocusForLeaving(*item))
    {
        return true;
    }
    if (m_core.Notifier().IsHeard())
    {
        m_core.Notifier().Rows(ItemDeleting, RowArea::DeletionOrder(*item));
    }
    GridArea* const area = AreaOfLeaving(*item);
    if (area == nullptr)
    {
        return true;
    }
    GridSelection& selection = m_core.Selection();
    if (selection.FocusedItem() != nullptr && RowArea::IsAncestor(*item, *selection.FocusedItem()))
    {
        selection.AdoptFocus(nullptr);
    }
    Unregister(*item);
    CGridItem& parent = *item->Parent();
    RowChangeScope scope(m_core, *area);
    area->Remove(*item, scope.changes);
    RowArea::DestroyDetached(*item);
    RepaintBranch(parent);
    scope.Finish(BarsFollow::Posted);
    return true;
}

void GridRows::DeleteAnywhere(CGridItem& item)
{
    if (GridArea* const area = GridArea::Of(item))
    {
        area->Core().Rows().Delete(&item);
        return;
    }
    if (item.Parent() != nullptr)
    {
        RowChanges changes;
        RowArea::Detached().Remove(item, changes);
    }
    Unregister(item);
    RowArea::DestroyDetached(item);
}

void GridRows::DeleteAllOf(GridArea& area)
{
    if (m_core.Notifier().IsHeard())
    {
        m_core.Notifier().Rows(ItemDeleting, RowArea::DeletionOrder(area.Root()));
    }
    m_core.Controls().OnLeaving(area);
    if (CGridItem* const focused = m_core.Selection().FocusedItem(); m_core.AreaOf(focused) == &area)
    {
        m_core.Selection().AdoptFocus(nullptr);
    }
    for (CGridItem* const item : RowArea::DeletionOrder(area.Root()))
    {
        ObjectRegistry::Instance().Unregister(item->Object(), *item);
    }
    area.DestroyAll();
}

void GridRows::DeleteAll(ContextType mask)
{
    CGridItem const* const focused = m_core.Selection().FocusedItem();
    if (!m_core.IsCalm() || focused == nullptr || HasContext(mask, focused->Area()->Type()))
    {
        m_core.Selection().FocusItem(nullptr);
    }
    m_core.Scrollable().Sort({});
    m_core.Fixed().Sort({});
    for (GridArea* const area : {&m_core.Scrollable(), &m_core.Fixed()})
    {
        if (HasContext(mask, area->Type()))
        {
            DeleteAllOf(*area);
        }
    }
    m_core.Scroller().OnRowsChanged(0, nullptr);
    m_core.Scroller().UpdateBars();
    m_core.View().InvalidateAll();
    m_core.Sorting().Update();
}

// --- Moving ---

bool GridRows::Attach(CGridItem* item, CGridItem* parent, CGridItem* after)
{
    CGridItem* const parentItem = Resolve(parent);
    if (parentItem == nullptr || !IsAttachable(item))
    {
        return false;
    }
    std::vector<CGridItem*> const subtree = RowArea::DeletionOrder(*item);
    if (item->m_home != m_core.Thread().Home())
    {
        ObjectRegistry::Instance().SetHome(subtree, m_core.Thread().Home());
    }
    for (CGridItem* const each : subtree)
    {
        m_core.Cells().Reformat(*each, kAllFields);
    }
    PutIn(*item, *parentItem, after, BarsFollow::Now);
    if (m_core.AreaOf(item) != nullptr)
    {
        m_core.Notifier().Row(ItemAttached, *item);
    }
    return true;
}

bool GridRows::Detach(CGridItem* item)
{
    if (m_core.AreaOf(item) == nullptr)
    {
        return false;
    }
    m_core.Notifier().Row(ItemDetaching, *item);
    if (m_core.AreaOf(item) == nullptr)
    {
        return false;
    }
    if (!m_core.IsCalm())
    {
        m_core.Selection().FocusItem(nullptr);
    }
    if (!PrepareFocusForLeaving(*item) || AreaOfLeaving(*item) == nullptr)
    {
        return false;
    }
    TakeOut(*item, BarsFollow::Now);
    return true;
}

CGridItem* GridRows::MoveTarget(CGridItem const& item, CGridItem const& parent, CGridItem* reference, bool before) const
{
    if (reference == FirstPosition || reference == LastPosition)
    {
        return reference;
    }
    if (m_core.AreaOf(reference) == nullptr || reference->Parent() != &parent || reference == &item)
    {
        return nullptr;
    }
    if (!before)
    {
        return reference;
    }
    CGridItem* previous = ChildSequence::Previous(*reference);
    if (previous == &item)
    {
        previous = ChildSequence::Previous(item);
    }
    return previous != nullptr ? previous : FirstPosition;
}

bool GridRows::IsRootOrRow(CGridItem const* item) const
{
    return item == &m_core.Scrollable().Root() || item == &m_core.Fixed().Root() || m_core.AreaOf(item) != nullptr;
}

bool GridRows::Move(CGridItem* item, CGridItem* parent, CGridItem* reference, bool before)
{
    if (m_core.AreaOf(item) == nullptr)
    {
        return false;
    }
    CGridItem* const newParent = parent == nullptr ? item->Parent() : Resolve(parent);
    CGridItem* const after = newParent != nullptr && !RowArea::IsAncestor(*item, *newParent)
                                 ? MoveTarget(*item, *newParent, reference, before)
                                 : nullptr;
    if (after == nullptr)
    {
        return false;
    }
    CGridItem* const focused = m_core.Selection().FocusedItem();
    bool const carriesFocus = m_core.IsCalm() && focused != nullptr && RowArea::IsAncestor(*item, *focused);
    m_core.Notifier().Row(ItemDetaching, *item);
    if (m_core.AreaOf(item) == nullptr || !IsRootOrRow(newParent))
    {
        return false;
    }
    if (carriesFocus || !m_core.IsCalm())
    {
        carriesFocus ? m_core.Selection().AdoptFocus(nullptr) : m_core.Selection().FocusItem(nullptr);
    }
    GridArea* const oldArea = AreaOfLeaving(*item);
    if (oldArea == nullptr)
    {
        return false;
    }
    TakeOut(*item, BarsFollow::Posted);
    if (!IsAttachable(item))
    {
        return false;
    }
    // A handler may have deleted the new parent: then the row stays in its area.
    bool const hasParent = IsRootOrRow(newParent);
    PutIn(*item, hasParent ? *newParent : oldArea->Root(), hasParent ? after : LastPosition, BarsFollow::Now);
    if (carriesFocus && m_core.AreaOf(focused) != nullptr && m_core.Selection().FocusedItem() == nullptr)
    {
        m_core.Selection().AdoptFocus(focused);
        m_core.Selection().FocusItem(m_core.AreaOf(focused)->VisibleInsteadOf(*focused));
    }
    if (m_core.AreaOf(item) != nullptr)
    {
        m_core.Notifier().Row(ItemAttached, *item);
    }
    return true;
}

// --- Expanding ---

void GridRows::Expand(CGridItem* handle, bool recursive, bool expand)
{
    CGridItem* const item = Resolve(handle);
    if (item == nullptr)
    {
        return;
    }
    GridArea& area = *GridArea::Of(*item);
    Recursion const recursion = recursive ? Recursion::WholeSubtree : Recursion::ItemOnly;
    RowChangeScope scope(m_core, area);
    expand ? area.Expand(*item, recursion, scope.changes) : area.Collapse(*item, recursion, scope.changes);
    if (int const row = item->IsRoot() ? -1 : RowArea::RowOf(*item); row >= 0)
    {
        m_core.View().InvalidateRow(row, area.Type());
    }
    m_core.Controls().OnVisibilityChanged(*item);
    scope.Finish(BarsFollow::Now);
}

// --- Reading ---

std::vector<CGridItem*> GridRows::Handles(Common::CDataObject const* object, bool onlyVisible, ContextType mask) const
{
    std::vector<CGridItem*> handles;
    ItemList const items = ObjectRegistry::Instance().Items(object, m_core.Thread().Home());
    for (std::size_t i = 0; i < items.Size(); ++i)
    {
        GridArea const* const area = m_core.AreaOf(items[i]);
        if (area != nullptr && HasContext(mask, area->Type()) && (!onlyVisible || RowArea::IsVisible(*items[i])))
        {
            handles.push_back(items[i]);
        }
    }
    return handles;
}

CGridItem* GridRows::ItemOf(Common::CDataObject const* object) const
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        CGridItem* best = nullptr;
        for (CGridItem* const item : Handles(object, false, type))
        {
            if (best == nullptr || RowArea::RowOf(*item) < RowArea::RowOf(*best))
            {
                best = item;
            }
        }
        if (best != nullptr)
        {
            return best;
        }
    }
    return nullptr;
}

CGridItem* GridRows::Parent(CGridItem* item) const
{
    GridArea const* const area = m_core.AreaOf(item);
    if (area == nullptr)
    {
        return nullptr;
    }
    if (!item->Parent()->IsRoot())
    {
        return item->Parent();
    }
    return area->Type() == FixedContext ? FixedRoot : ScrollableRoot;
}

CGridItem* GridRows::FirstRow() const
{
    CGridItem* const fixed = m_core.Fixed().FirstVisible();
    return fixed != nullptr ? fixed : m_core.Scrollable().FirstVisible();
}

CGridItem* GridRows::Next(CGridItem* item, bool crossAreas) const
{
    GridArea const* const area = m_core.AreaOf(item);
    if (area == nullptr || !RowArea::IsVisible(*item))
    {
        return nullptr;
    }
    CGridItem* const next = RowArea::NextVisible(*item);
    return next == nullptr && crossAreas && area->Type() == FixedContext ? m_core.Scrollable().ItemAt(0) : next;
}

CGridItem* GridRows::Previous(CGridItem* item, bool crossAreas) const
{
    GridArea const* const area = m_core.AreaOf(item);
    if (area == nullptr || !RowArea::IsVisible(*item))
    {
        return nullptr;
    }
    CGridItem* const previous = RowArea::PreviousVisible(*item);
    bool const crosses = previous == nullptr && crossAreas && area->Type() == ScrollableContext;
    return crosses ? m_core.Fixed().ItemAt(m_core.Fixed().RowCount() - 1) : previous;
}

std::vector<CGridItem*> GridRows::Children(CGridItem* item, bool onlyVisible) const
{
    CGridItem const* const resolved = Resolve(item);
    return resolved != nullptr ? RowArea::Children(*resolved, onlyVisible) : std::vector<CGridItem*>();
}

bool GridRows::HasChildren(CGridItem* item) const
{
    CGridItem const* const resolved = Resolve(item);
    return resolved != nullptr && resolved->HasChildren();
}

bool GridRows::Visit(CGrid::IForEach& visitor, CGridItem* first, Step next)
{
    CGridItem* item = first;
    while (item != nullptr)
    {
        if (!visitor.Visit(&m_core.Grid(), item, item->Object()) || m_core.AreaOf(item) == nullptr)
        {
            return false;
        }
        item = next(*item);
    }
    return true;
}

void GridRows::ForEach(CGrid::IForEach& visitor, CGridItem* start)
{
    Step const next = [](CGridItem const& item) { return RowArea::NextInTree(item); };
    CGridItem* first = nullptr;
    if (start == nullptr || start == FirstPosition || start == FixedRoot)
    {
        first = m_core.Fixed().Root().Children().First();
        if (first == nullptr && start == FixedRoot)
        {
            return;
        }
    }
    else if (start != ScrollableRoot)
    {
        first = Resolve(start);
        if (first == nullptr)
        {
            return;
        }
    }
    bool const startsInScrollable = first != nullptr && first->Area()->Type() == ScrollableContext;
    if (Visit(visitor, first, next) && !startsInScrollable)
    {
        Visit(visitor, m_core.Scrollable().Root().Children().First(), next);
    }
}

void GridRows::ForEachVisible(CGrid::IForEach& visitor, CGridItem* start)
{
    Step const next = [](CGridItem const& item) { return RowArea::NextVisible(item); };
    CGridItem* first = nullptr;
    if (start == nullptr || start == FirstPosition || start == FixedRoot)
    {
        first = m_core.Fixed().ItemAt(0);
    }
    else if (start != ScrollableRoot)
    {
        first = Resolve(start);
        if (first == nullptr || !RowArea::IsVisible(*first))
        {
            return;
        }
    }
    bool const startsInScrollable = first != nullptr && first->Area()->Type() == ScrollableContext;
    if (Visit(visitor, first, next) && !startsInScrollable)
    {
        Visit(visitor, m_core.Scrollable().ItemAt(0), next);
    }
}
} // namespace Ostrel::GUI::Detail
