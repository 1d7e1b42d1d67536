/// @file
/// The default customisation hook: it hands every element to its paint format.
#pragma once

#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// Draws everything as the formats say. Derive from it to draw some of it differently. Keeps no state, so one serves
/// any number of grids.
class OSTREL_GUI_API CCustomDraw : public ICustomDraw
{
public:
    /// `autoDelete` is what AutoDelete() tells the holder.
    explicit CCustomDraw(bool autoDelete) noexcept : m_autoDelete(autoDelete) {}

    // IAutoDelete
    [[nodiscard]] bool AutoDelete() const override { return m_autoDelete; }

    // ICustomDraw
    void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter) override;
    void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) override;
    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) override;
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override;
    ILinePaintFormat const& GetLinePaintFormat(Common::CDataObject const* object, CGridItem* item, ContextType context,
                                               int row) const override;
    ICellPaintFormat const& GetCellPaintFormat(CColumn const* column, Common::CDataObject const* object,
                                               CGridItem* item, ContextType context, int row) const override;
    /// 20 without a font or a header; else the text height, its internal leading and 4 pixels.
    int GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                               unsigned int filter) const override;
    /// The text height and half its internal leading; 0 without a font.
    int GetOptimalRowHeight(CFont* font, CDC& dc) const override;
    int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;

private:
    bool m_autoDelete;
};

} // namespace Ostrel::GUI
