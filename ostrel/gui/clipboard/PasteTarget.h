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
    CPasteTarget(CGrid& grid, CGridItem* parent, CGridItem* position) noexcept
        : m_grid(grid), m_parent(parent), m_position(position)
    {}

    [[nodiscard]] CGrid& GetGrid() const noexcept { return m_grid; }
    [[nodiscard]] CGridItem* GetPasteParent() const noexcept { return m_parent; }
    [[nodiscard]] CGridItem* GetPastePosition() const noexcept { return m_position; }

private:
    CGrid& m_grid;
    CGridItem* m_parent;
    CGridItem* m_position;
};
} // namespace Ostrel::GUI
