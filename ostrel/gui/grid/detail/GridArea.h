// A row area with its way back to the grid that owns it.
#pragma once

#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridArea final : public RowArea
{
public:
    GridArea(ContextType type, IRowValues* values, GridCore& core) : RowArea(type, values), m_core(core) {}

    [[nodiscard]] GridCore& Core() const noexcept { return m_core; }

    /// The area of a live row; null while the row is in no grid. Every area that holds attached rows is a GridArea.
    [[nodiscard]] static GridArea* Of(CGridItem const& item) noexcept
    {
        RowArea* const area = item.Area();
        return area == nullptr || area->Type() == NoContext ? nullptr : static_cast<GridArea*>(area);
    }

private:
    GridCore& m_core;
};
} // namespace Ostrel::GUI::Detail
