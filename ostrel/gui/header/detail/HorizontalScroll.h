// How far a grid is scrolled horizontally.
#pragma once

namespace Ostrel::GUI
{

class CGrid;

/// In pixels; 0 when the grid has no window or no horizontal scroll bar.
[[nodiscard]] int HorizontalScrollPosition(CGrid const& grid);

} // namespace Ostrel::GUI
