/// @file
/// The default look with more room: for grids that are read for hours rather than packed with as many rows as possible.
///
///     grid.SetHeader(header);
///     grid.SetCustomDraw(new CSpaciousDraw(true));
///     header->SetHeaderHeight(grid.GetOptimalHeaderHeight());
#pragma once

#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/SpaciousCellPaintFormat.h>
#include <ostrel/gui/paint/SpaciousColumnPaintFormat.h>

namespace Ostrel::GUI
{

/// Rows 3 pixels and the header 4 pixels higher than by default, texts 7 pixels away from the edges of their columns;
/// at scale 1. Titles and cells whose columns have no formats of their own are drawn by the spacious formats,
/// everything else as by CCustomDraw.
class OSTREL_GUI_API CSpaciousDraw : public CCustomDraw
{
public:
    /// `autoDelete` is what AutoDelete() tells the holder.
    explicit CSpaciousDraw(bool autoDelete) noexcept : CCustomDraw(autoDelete) {}

    // ICustomDraw
    void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) override;
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override;
    ICellPaintFormat const& GetCellPaintFormat(CColumn const* column, Common::CDataObject const* object,
                                               CGridItem* item, ContextType context, int row) const override;
    int GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                               unsigned int filter) const override;
    int GetOptimalRowHeight(CFont* font, CDC& dc) const override;
    int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;

private:
    CSpaciousColumnPaintFormat m_title;
    CSpaciousCellPaintFormat m_cell;
};

} // namespace Ostrel::GUI
