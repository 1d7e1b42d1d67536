/// @file
/// Column titles for grids that are drawn with room: a flat band with thin lines between the titles.
#pragma once

#include <ostrel/gui/paint/ColumnPaintFormat.h>

namespace Ostrel::GUI
{

/// A flat title whose text stands as far from its edges as the texts of the cells that CSpaciousDraw draws. Under the
/// pointer it is lit, pressed it is darker. The sort mark is grey and keeps away from the name and from the edge.
/// Right of the last column there is the band and nothing else.
class OSTREL_GUI_API CSpaciousColumnPaintFormat : public CColumnPaintFormat
{
public:
    // IColumnPaintFormat
    IColumnPaintFormat* Clone() const override;

    // CColumnPaintFormat
    void DrawBackground(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const override;
    void DrawSort(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const override;
    void DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const override;
};

} // namespace Ostrel::GUI
