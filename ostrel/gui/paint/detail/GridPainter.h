// The paint pass of a grid: header band, fixed rows, separator, scrollable rows and empty lines of every area that
// needs painting, directly or through an off-screen buffer. It reads the grid and changes nothing.
#pragma once

#include <span>

#include <ostrel/gui/paint/DropPosition.h>
#include <ostrel/platform/base/Geometry.h>

class CBitmap;
class CDC;

namespace Ostrel::GUI
{
class CColumn;
class CGrid;
} // namespace Ostrel::GUI

namespace Ostrel::GUI::Detail
{

/// What a pass needs to know of the grid's window beyond the grid's public face. Nothing here is owned.
struct GridPaintState
{
    CRect clientRect;
    int fixedRowHeight = 0;              ///< of every row of the area, in pixels
    int scrollableRowHeight = 0;         ///< the same; also of the empty lines
    CDropPosition dropPosition;          ///< of rows dragged over the grid
    CRect mouseSelection;                ///< the rubber band in client pixels, empty when none
    CBitmap* offScreenBuffer = nullptr;  ///< at least as large as the client area; null paints directly
    CBitmap* backgroundImage = nullptr;  ///< the prepared picture, as large as the client area, or null
    CRect backgroundImageRect;           ///< where the prepared picture shows
    CColumn const* hotColumn = nullptr;  ///< the title under the pointer
    bool headerCaptured = false;         ///< the mouse is captured by the header
    CColumn const* dropColumn = nullptr; ///< the column beside which a dragged column would go
    int columnDropX = -1;                ///< the x of its mark in client pixels
};

/// Paints the areas, in client pixels and in their order, onto the target. Grid thread only. Application code is called
/// through the grid's ICustomDraw and the paint formats; they must not change the grid meanwhile.
void PaintGrid(CGrid const& grid, GridPaintState const& state, CDC& target, std::span<CRect const> areas);

} // namespace Ostrel::GUI::Detail
