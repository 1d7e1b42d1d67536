#include <algorithm>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridUpdates.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>
#include <ostrel/platform/base/Clock.h>

namespace Ostrel::GUI::Detail
{
std::int32_t GridTimeMs() noexcept
{
    return GridTimeMs(Platform::Clock::Milliseconds());
}

std::int32_t GridTimeMs(std::int64_t clockMs) noexcept
{
    constexpr std::int64_t kSlackMs = 1000; // the first reading may not be the oldest one
    static std::int64_t const start = clockMs - kSlackMs;
    return static_cast<std::int32_t>((clockMs - start) & 0x7FFFFFFF);
}

namespace
{
void TakeValues(CGridItem& item, UpdateRecord const& record)
{
    if (record.snapshot == nullptr)
    {
        return;
    }
    auto& cache = item.NeedExtras().valueCache;
    if (record.fieldId == kAllFields || cache == nullptr)
    {
        cache = std::make_unique<ValueCache>(*record.snapshot);
        return;
    }
    for (auto const& [fieldId, value] : *record.snapshot)
    {
        (*cache)[fieldId] = value;
    }
}
} // namespace

int GridUpdates::ElapsedMs(CGridItem const& item, long fieldId)
{
    CellUpdate const* const cell = IsField(fieldId) ? item.Updates().Find(fieldId) : nullptr;
    bool const hasOwnTime = cell != nullptr && cell->lastUpdateMs >= 0;
    std::int32_t const lastUpdateMs = hasOwnTime ? cell->lastUpdateMs : item.RowUpdateMs();
    return lastUpdateMs < 0 ? -1 : (GridTimeMs() - lastUpdateMs) & 0x7FFFFFFF;
}

void GridUpdates::Stamp(CGridItem& item, long fieldId, std::int32_t nowMs)
{
    if (fieldId == kAllFields)
    {
        item.SetRowUpdateMs(nowMs);
    }
    else if (fieldId != kNoField)
    {
        item.Updates().FindOrAdd(fieldId, nowMs).lastUpdateMs = nowMs;
    }
}

void GridUpdates::Apply(CGridItem& item, UpdateRecord const& record, std::int32_t nowMs)
{
    TakeValues(item, record);
    Stamp(item, record.fieldId, nowMs);
    if (GridArea* const area = GridArea::Of(item))
    {
        area->Core().Updates().ApplyAttached(*area, item, record.fieldId);
    }
}

void GridUpdates::Update(CGridItem& item, long fieldId)
{
    UpdateRecord record;
    record.object = item.Object();
    record.fieldId = fieldId;
    Apply(item, record, GridTimeMs());
}

void GridUpdates::Update(Posted const& update)
{
    CGridItem* const item = update.item != nullptr ? update.item : m_core.ItemAt(update.row, update.type);
    if (m_core.AreaOf(item) != nullptr)
    {
        Update(*item, update.fieldId);
    }
}

void GridUpdates::Post(Posted const& update)
{
    Platform::MutexLock const lock(m_lock);
    if (m_core.Thread().Post(GridOperation::Update))
    {
        m_posted.push_back(update);
    }
}

void GridUpdates::OnPosted()
{
    Posted update;
    {
        Platform::MutexLock const lock(m_lock);
        if (m_posted.empty())
        {
            return;
        }
        update = m_posted.front();
        m_posted.pop_front();
    }
    Update(update);
}

void GridUpdates::ApplyAttached(GridArea& area, CGridItem& item, long fieldId)
{
    if (item.Extras() != nullptr)
    {
        m_core.Cells().Reformat(item, fieldId);
    }
    if (!ApplyFilter(area, item))
    {
        return;
    }
    if (area.IsSorted() && m_core.Freeze().IsFrozen())
    {
        m_core.Freeze().Postpone(item);
    }
    else if (area.IsSorted())
    {
        Reposition(area, item);
        if (m_core.AreaOf(&item) != &area)
        {
            return;
        }
    }
    int const row = RowArea::RowOf(item);
    if (row >= 0)
    {
        m_core.View().InvalidateCell(row, area.Type(), fieldId);
    }
    m_core.Notifier().Row(ItemUpdated, item, row);
}

bool GridUpdates::ApplyFilter(GridArea& area, CGridItem& item)
{
    if (!m_core.Sorting().HasFilter() && !item.IsHiddenByFilter())
    {
        return true;
    }
    RowChangeScope scope(m_core, area);
    if (area.ApplyFilterTo(item, scope.changes))
    {
        m_core.Controls().OnVisibilityChanged(item);
        scope.Finish(BarsFollow::Posted);
        if (!m_core.IsCalm())
        {
            m_core.Selection().FocusItem(nullptr);
        }
    }
    return m_core.AreaOf(&item) == &area;
}

void GridUpdates::MoveToItsPlace(CGridItem& item)
{
    GridArea& area = *m_core.AreaOf(&item);
    if (area.IsSorted())
    {
        Reposition(area, item);
    }
}

void GridUpdates::Reposition(GridArea& area, CGridItem& item)
{
    bool const isScrollable = area.Type() == ScrollableContext;
    CGridItem* const anchor = isScrollable ? m_core.Scroller().Anchor() : nullptr;
    RowMove const move = area.Reposition(item);
    if (!move.moved)
    {
        return;
    }
    if (move.from >= 0)
    {
        int const first = std::min(move.from, move.to);
        int const last = std::max(move.from, move.to) + move.count - 1;
        bool const hasFrames = m_core.Fixed().SelectedCount() + m_core.Scrollable().SelectedCount() > 0;
        hasFrames ? m_core.View().InvalidateRowsAndBorders(first, last, area.Type())
                  : m_core.View().InvalidateRows(first, last, area.Type());
        if (isScrollable)
        {
            m_core.Scroller().OnRowMoved(move, anchor);
        }
    }
    if (!m_core.IsCalm())
    {
        m_core.Selection().FocusItem(nullptr);
    }
    if (m_core.AreaOf(&item) == &area)
    {
        m_core.Notifier().Row(ItemMoved, item);
    }
}
} // namespace Ostrel::GUI::Detail
