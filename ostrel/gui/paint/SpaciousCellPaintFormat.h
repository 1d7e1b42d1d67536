/// @file
/// Cells for grids that are drawn with room.
#pragma once

#include <ostrel/gui/paint/CellPaintFormat.h>

namespace Ostrel::GUI
{

/// A cell as CCellPaintFormat draws it, but with smaller expand buttons that tree lines lead to instead of into, in the
/// colour of the text, and with images of their own size in the middle of their square. A button is pressed in the
/// same square as by default.
class OSTREL_GUI_API CSpaciousCellPaintFormat : public CCellPaintFormat
{
public:
    // ICellPaintFormat
    ICellPaintFormat* Clone() const override;

protected:
    // CCellPaintFormat
    void OnDrawImage(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    void OnDrawHierarchy(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
};

} // namespace Ostrel::GUI
