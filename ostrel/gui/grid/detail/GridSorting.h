// The header's sort levels as the rows follow them, and the filter.
#pragma once

#include <ostrel/gui/grid/IGridFilter.h>
#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/header/SortInfo.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridSorting final : private IRowFilter
{
public:
    explicit GridSorting(GridCore& core) noexcept : m_core(core) {}

    // --- Sorting ---
    ContextType sortedAreas = AllContexts;

    void SetLevel(int level, CSortInfo const& info, bool update);
    void Reset(bool redraw);
    /// Takes the header's levels and sorts the sorted areas anew.
    void Update();
    /// What a click on a caption does to the header's levels.
    void SortByUser(long fieldId, bool shift, bool ctrl);
    /// The header's levels have changed.
    void OnSortChanged();

    // --- Filtering ---
    IGridFilter* SetFilter(IGridFilter* filter);
    [[nodiscard]] IGridFilter* Filter() const noexcept { return m_filter; }
    [[nodiscard]] bool HasFilter() const noexcept { return m_filter != nullptr; }
    /// Asks the filter for every row.
    void UpdateFilter();

private:
    // IRowFilter
    bool IsHidden(CGridItem& item) override;

    void AddUserLevel(long fieldId);
    void SetOnlyUserLevel(long fieldId);

    GridCore& m_core;
    IGridFilter* m_filter = nullptr;
    bool m_hasJustSorted = false;
};
} // namespace Ostrel::GUI::Detail
