/// @file
/// The elements of a grid that painting can switch on and off. A paint filter is an unsigned int of these bits; an
/// element is drawn only while its bit is set.
#pragma once

namespace Ostrel::GUI
{

/// One element each, to be combined.
enum PaintFilter : unsigned int
{
    PaintText = 0x00001,               ///< cell text
    PaintImage = 0x00002,              ///< cell image
    PaintColumnImage = 0x00004,        ///< the image in a column's title
    PaintBackground = 0x00008,         ///< cell background
    PaintSelection = 0x00010,          ///< overlay of selected lines
    PaintSelectionFrame = 0x00020,     ///< frame around blocks of selected rows
    PaintSortedColumn = 0x00040,       ///< overlay of sorted columns
    PaintMouseSelection = 0x00080,     ///< rubber band
    PaintFocusedRow = 0x00100,         ///< overlay of the focused line
    PaintFocusFrame = 0x00200,         ///< dotted frame of the focused line
    PaintHighlight = 0x00400,          ///< highlight of changed values
    PaintDropPosition = 0x00800,       ///< insertion bar while dragging
    PaintDropParentPosition = 0x01000, ///< arrows at the row that would become the parent
    PaintHierarchy = 0x02000,          ///< tree indentation in the hierarchical column
    PaintExpandButton = 0x04000,       ///< expand and collapse button
    PaintTreeLines = 0x08000,          ///< dotted tree lines
    PaintHorizontalLines = 0x10000,    ///< horizontal grid lines
    PaintVerticalLines = 0x20000,      ///< vertical grid lines
    PaintControls = 0x40000,           ///< what a control reflector paints over its cell
    PaintAll = 0x7FFFF,                ///< everything; the filter of a new grid
};

} // namespace Ostrel::GUI
