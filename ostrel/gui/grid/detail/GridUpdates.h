// What one update does to one row: its stamp, its filter, its place, its cell on the screen, and the word to the parent
// window. This is the path that live data take, so it touches nothing that the update does not concern.
#pragma once

#include <deque>

#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

/// Milliseconds since the process first asked; never negative in the first 24 days.
[[nodiscard]] std::int32_t GridTimeMs() noexcept;
/// The same for a reading of the clock that is at hand.
[[nodiscard]] std::int32_t GridTimeMs(std::int64_t clockMs) noexcept;

class GridUpdates
{
public:
    explicit GridUpdates(GridCore& core) noexcept : m_core(core) {}

    /// Applies a record to a live row, attached or not.
    static void Apply(CGridItem& item, UpdateRecord const& record, std::int32_t nowMs);

    /// As if the row's object had told of the field, for this row only.
    static void Update(CGridItem& item, long fieldId);

    /// Gives an attached row the place that its sort keys ask for now.
    void MoveToItsPlace(CGridItem& item);

    /// The same later, on the grid's thread: a row by its handle or, where that is null, by its number.
    struct Posted
    {
        CGridItem* item = nullptr;
        int row = -1;
        ContextType type = NoContext;
        long fieldId = kNoField;
    };
    /// Any thread.
    void Post(Posted const& update) OSTREL_EXCLUDES(m_lock);
    void OnPosted() OSTREL_EXCLUDES(m_lock);
    void Update(Posted const& update);

    /// Milliseconds since the last update of the cell, or of the row where the cell has none; -1 for never.
    [[nodiscard]] static int ElapsedMs(CGridItem const& item, long fieldId);

private:
    static void Stamp(CGridItem& item, long fieldId, std::int32_t nowMs);
    void ApplyAttached(GridArea& area, CGridItem& item, long fieldId);
    [[nodiscard]] bool ApplyFilter(GridArea& area, CGridItem& item);
    void Reposition(GridArea& area, CGridItem& item);

    GridCore& m_core;
    Platform::Mutex m_lock;
    std::deque<Posted> m_posted OSTREL_GUARDED_BY(m_lock); ///< as many as there are messages on their way
};
} // namespace Ostrel::GUI::Detail
