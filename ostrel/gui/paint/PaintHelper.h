/// @file
/// The drawing primitives of cells and the rules that tell which overlays a cell shows. Painters of an application's
/// own formats use them as the default formats do. None of them changes the grid.
#pragma once

#include <string>

#include <ostrel/gui/paint/ColorBlend.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::GUI
{

/// What painters draw with.
class OSTREL_GUI_API CPaintHelper
{
public:
    CPaintHelper() = delete;

    /// Fills the part of a rectangle inside the context's clip rectangle.
    static void DrawBackground(CRect rect, unsigned long color, CPaintContext const& context);
    /// Draws the part of the rubber band that falls into a cell's rectangle, with those of its edges that do.
    static void DrawMouseTrackSelection(CRect rect, CColorBlend blend, unsigned long frameColor,
                                        CPaintContext const& context);
    /// Draws text transparently; `format` are the flags of CDC::DrawText. Uses the paint info's font when there is one.
    static void DrawText(std::string const& text, unsigned long color, CRect const& rect, unsigned int format,
                         CPaintInfo const& paintInfo, CPaintContext const& context);

    /// The frame around a block of selected rows: what of it lies in this cell.
    static void DrawSelectionFrame(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    /// The dotted frame of the focused row: what of it lies in this cell.
    static void DrawFocus(CGridCell const& cell, unsigned long color, CPaintContext const& context);

    /// The button of the tree that expands or collapses a row, where the row has one.
    static void DrawCollapseExpandIcon(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    /// The dotted lines of the tree to the row's parent and siblings.
    static void DrawHierarchicalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    /// True when the item has a parent and is its last child.
    static bool IsLastLevelItem(CGridItem* item);
    /// True when the row has children to show or to hide; an expanded row whose children are all filtered out has none.
    static bool CanShowExpandOrCollapseIcon(CGridLine const& line, CPaintContext const& context);

    /// The bar where dragged rows would go: what of it lies in this cell.
    static void DrawDropPosition(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    /// The arrows at the row that would become the parent of dragged rows; in the row's first cell.
    static void DrawDropParentPosition(CGridCell const& cell, unsigned long color, CPaintContext const& context);

    ///@{
    /// The dotted grid line at the cell's right, or bottom, edge: every other pixel, the even ones of the window.
    static void DrawVerticalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    static void DrawHorizontalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context);
    ///@}

    /// The cell's image, stretched into the rectangle when the cell says so, else at its own size at the left edge and
    /// centred vertically. An opaque stretched image is laid on `backColor`.
    static void DrawImage(CGridCell const& cell, CPaintContext const& context, CRect const& rect,
                          unsigned long backColor, bool transparent);

    ///@{
    /// The overlay that applies to the cell; opacity 0 when it does not.
    static CColorBlend GetSelectionColorBlend(CGridCell const& cell, CPaintContext const& context, unsigned int filter);
    static CColorBlend GetFocusedRowColorBlend(CGridCell const& cell, CPaintContext const& context,
                                               unsigned int filter);
    static CColorBlend GetSortedColumnColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                 unsigned int filter);
    ///@}

    ///@{
    /// The overlay of a value that changed lately; it depends on the time since the change. Opacity 0 for none.
    static CColorBlend GetHighlightForeColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                  unsigned int filter);
    static CColorBlend GetHighlightBackColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                  unsigned int filter);
    ///@}
    /// The row's colour with all overlays blended onto it, in the order highlight, selection, sorted column, focus.
    static unsigned long GetResultingBackColor(CGridCell const& cell, CPaintContext const& context,
                                               unsigned int filter);
    /// The row's text colour with the highlight blended onto it.
    static unsigned long GetResultingTextColor(CGridCell const& cell, CPaintContext const& context,
                                               unsigned int filter);

    /// The cell's virtual rectangle less the tree indentation and the image on the left; empty rather than inverted.
    static CRect GetCellPaintableRectangle(CGridCell& cell, CPaintContext const& context, unsigned int filter);
    /// Milliseconds after which a highlighted cell must be painted again to fade or to end; 0 for never.
    static int GetNextPaintDelay(CGridCell const& cell, CPaintContext const& context, unsigned int filter);

    /// Pixels that the tree takes on the left of the cell: (level + 1) * height in the hierarchical column, else 0.
    static int GetIndentation(CGridCell const& cell, CPaintContext const& context, unsigned int filter);
    /// Pixels that the cell's image takes, 0 without one.
    static int GetImageWidth(CGridCell const& cell, unsigned int filter);
    /// Where the image goes: behind the indentation, over the cell's full height; without an image its width is 0.
    static CRect GetImageRect(CGridCell const& cell, CPaintContext const& context, unsigned int filter);
};

} // namespace Ostrel::GUI
