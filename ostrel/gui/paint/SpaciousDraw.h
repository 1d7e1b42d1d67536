/// @file
/// The default look with more room: for grids that are read for hours rather than packed with as many rows as possible.
///
///     grid.SetHeader(header);
///     grid.SetCustomDraw(new CSpaciousDraw(true));
///     header->SetHeaderHeight(grid.GetOptimalHeaderHeight());
#pragma once

#include <ostrel/gui/paint/ColumnPaintFormat.h>
#include <ostrel/gui/paint/CustomDraw.h>

namespace Ostrel::GUI
{

/// A title whose text stands as far from its edges as the texts of the cells that CSpaciousDraw draws.
class OSTREL_GUI_API CSpaciousColumnPaintFormat : public CColumnPaintFormat
{
public:
    // IColumnPaintFormat
    IColumnPaintFormat* Clone() const override;
    /// The column's name, further from the edges.
    void DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const override;
};

/// Rows 3 pixels and the header 4 pixels higher than by default, texts 7 pixels away from the edges of their columns;
/// at scale 1. Everything else, formats of columns included, is drawn as by CCustomDraw.
class OSTREL_GUI_API CSpaciousDraw : public CCustomDraw
{
public:
    /// `autoDelete` is what AutoDelete() tells the holder.
    explicit CSpaciousDraw(bool autoDelete) noexcept : CCustomDraw(autoDelete) {}

    // ICustomDraw
    void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) override;
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override;
    int GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                               unsigned int filter) const override;
    int GetOptimalRowHeight(CFont* font, CDC& dc) const override;
    int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;

private:
    CSpaciousColumnPaintFormat m_title;
};

} // namespace Ostrel::GUI
