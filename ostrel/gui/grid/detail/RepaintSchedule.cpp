#include <algorithm>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/RepaintSchedule.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr std::int32_t kNever = -1;

std::optional<int> Earlier(std::optional<int> a, std::optional<int> b) noexcept
{
    return a && b ? std::min(*a, *b) : (a ? a : b);
}

// A deadline is never negative, so that -1 can mean none.
std::int32_t DeadlineIn(int delayMs) noexcept
{
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(GridTimeMs()) + static_cast<std::uint32_t>(delayMs)) &
                                     0x7FFFFFFFU);
}

// Right across the wrap of the 31-bit clock: the sign of the difference in 31 bits.
int UntilDeadline(std::int32_t deadlineMs, std::int32_t nowMs) noexcept
{
    std::uint32_t const difference = static_cast<std::uint32_t>(deadlineMs) - static_cast<std::uint32_t>(nowMs);
    return static_cast<std::int32_t>(difference << 1U) / 2;
}
} // namespace

void RepaintSchedule::RepaintRow(CGridItem& item, int delayMs)
{
    if (delayMs < 1)
    {
        if (int const row = RowArea::RowOf(item); row >= 0)
        {
            m_core.View().InvalidateRow(row, item.Area()->Type());
        }
        return;
    }
    item.SetRowDeadlineMs(DeadlineIn(delayMs));
    Schedule(delayMs);
}

void RepaintSchedule::RepaintCell(CGridItem& item, long fieldId, int delayMs)
{
    if (!IsField(fieldId))
    {
        RepaintRow(item, delayMs);
        return;
    }
    if (delayMs >= 1)
    {
        std::int32_t const nowMs = GridTimeMs();
        CellUpdate& cell = item.Updates().FindOrAdd(fieldId, nowMs);
        cell.lastUpdateMs = cell.lastUpdateMs >= 0 ? cell.lastUpdateMs : nowMs;
    }
    RepaintPainted(item, fieldId, delayMs);
}

// The space right of the last column has its deadline in the records of the cells, under the identifier of no field.
void RepaintSchedule::RepaintPainted(CGridItem& item, long fieldId, int delayMs)
{
    if (delayMs >= 1)
    {
        item.Updates().FindOrAdd(fieldId, kNever).repaintDeadlineMs = DeadlineIn(delayMs);
        Schedule(delayMs);
    }
    else if (int const row = RowArea::RowOf(item); row >= 0)
    {
        InvalidateNow(row, item.Area()->Type(), fieldId);
    }
}

void RepaintSchedule::InvalidateNow(int row, ContextType type, long fieldId)
{
    fieldId == kNoField ? m_core.View().InvalidateFiller(row, type) : m_core.View().InvalidateCell(row, type, fieldId);
}

void RepaintSchedule::Schedule(int delayMs)
{
    if (m_core.Grid().GetSafeHwnd() == nullptr)
    {
        return;
    }
    if (delayMs <= 0)
    {
        OnTimer();
        return;
    }
    int const delay = std::max(delayMs, static_cast<int>(kShortDelayMs));
    if (m_isPending && UntilDeadline(m_dueMs, GridTimeMs()) <= delay)
    {
        return;
    }
    m_isPending = true;
    m_dueMs = DeadlineIn(delay);
    m_core.Grid().SetTimer(RepaintTimer, static_cast<UINT>(delay));
}

std::optional<int> RepaintSchedule::CheckRow(CGridItem& item, int row, std::int32_t nowMs)
{
    std::optional<int> earliest;
    ContextType const type = item.Area()->Type();
    if (item.RowDeadlineMs() >= 0)
    {
        int const left = UntilDeadline(item.RowDeadlineMs(), nowMs);
        if (left <= 0)
        {
            item.SetRowDeadlineMs(-1);
            m_core.View().InvalidateRow(row, type);
        }
        else
        {
            earliest = left;
        }
    }
    for (CellUpdate& cell : item.Updates().All())
    {
        if (cell.repaintDeadlineMs < 0)
        {
            continue;
        }
        int const left = UntilDeadline(cell.repaintDeadlineMs, nowMs);
        if (left <= 0)
        {
            cell.repaintDeadlineMs = -1;
            InvalidateNow(row, type, cell.fieldId);
        }
        else
        {
            earliest = Earlier(earliest, left);
        }
    }
    return earliest;
}

std::optional<int> RepaintSchedule::CheckArea(ContextType type, std::int32_t nowMs)
{
    std::optional<int> earliest;
    RowRange const shown = m_core.View().ShownRows(type);
    CGridItem* item = shown.IsEmpty() ? nullptr : m_core.Area(type)->ItemAt(shown.first);
    for (int row = shown.first; item != nullptr && row <= shown.last; ++row)
    {
        earliest = Earlier(earliest, CheckRow(*item, row, nowMs));
        item = RowArea::NextVisible(*item);
    }
    return earliest;
}

void RepaintSchedule::OnTimer()
{
    m_core.Grid().KillTimer(RepaintTimer);
    m_isPending = false;
    std::int32_t const nowMs = GridTimeMs();
    std::optional<int> const earliest = Earlier(CheckArea(FixedContext, nowMs), CheckArea(ScrollableContext, nowMs));
    if (earliest)
    {
        Schedule(*earliest);
    }
}
} // namespace Ostrel::GUI::Detail
