/// @file
/// Where pasted rows go.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;
class CGridItem;

/// Parent and position mean what they mean for CGrid::Attach, the reserved handles included. Null leaves the choice to
/// the settings of the grid.
class OSTREL_GUI_API CPasteTarget
{
public:
    /// A place in a grid.
    CPasteTarget(CGrid& grid, CGridItem* parent, CGridItem* position) noexcept
        : m_grid(grid), m_parent(parent), m_position(position)
    {}

    /// The grid that takes the rows.
    [[nodiscard]] CGrid& GetGrid() const noexcept { return m_grid; }
    /// The row or root below which they go.
    [[nodiscard]] CGridItem* GetPasteParent() const noexcept { return m_parent; }
    /// The row after which they go.
    [[nodiscard]] CGridItem* GetPastePosition() const noexcept { return m_position; }

private:
    CGrid& m_grid;
    CGridItem* m_parent;
    CGridItem* m_position;
};
} // namespace Ostrel::GUI
