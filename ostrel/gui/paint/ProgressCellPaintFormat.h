/// @file
/// A cell that shows an integer as a bar.
#pragma once

#include <ostrel/gui/paint/CellPaintFormat.h>

namespace Ostrel::GUI
{

/// Draws the cell's value as a bar between a minimum (empty) and a maximum (full) instead of text. Values that are no
/// integers draw nothing, nor does a maximum that is not above the minimum. Progress cells show no highlight. Stored in
/// an archive as a plain cell format.
class OSTREL_GUI_API CProgressCellPaintFormat : public CCellPaintFormat
{
public:
    /// The colour of the bar, 0x00BBGGRR, and the values of an empty and of a full bar.
    CProgressCellPaintFormat(unsigned long barColor, long minimum, long maximum) noexcept;

    // ICellPaintFormat
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    ICellPaintFormat* Clone() const override;

protected:
    // CCellPaintFormat
    void OnDrawText(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;

private:
    COLORREF m_barColor;
    LONG m_minimum;
    LONG m_maximum;
};

} // namespace Ostrel::GUI
