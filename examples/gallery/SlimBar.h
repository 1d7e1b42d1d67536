// Progress bars with air between them.
#pragma once

#include <ostrel/GUI.h>

namespace Gallery
{

class CSlimBar : public Ostrel::GUI::CProgressCellPaintFormat
{
public:
    using CProgressCellPaintFormat::CProgressCellPaintFormat;

    // CProgressCellPaintFormat
    CRect GetTextRect(Ostrel::GUI::CGridCell& cell, Ostrel::GUI::CPaintContext const& context,
                      unsigned int filter) override
    {
        CRect rect = CProgressCellPaintFormat::GetTextRect(cell, context, filter);
        rect.DeflateRect(0, rect.Height() / 5);
        return rect;
    }
    ICellPaintFormat* Clone() const override { return new CSlimBar(*this); }
};

} // namespace Gallery
