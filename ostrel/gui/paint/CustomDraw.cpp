#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/HeaderPaintInfo.h>
#include <ostrel/gui/paint/ICellPaintFormat.h>
#include <ostrel/gui/paint/IColumnPaintFormat.h>
#include <ostrel/gui/paint/IHeaderPaintFormat.h>
#include <ostrel/gui/paint/ILinePaintFormat.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

ICellPaintFormat const& FormatOf(CColumn const* column)
{
    ICellPaintFormat const* const own = column != nullptr ? column->GetCellPaintFormat() : nullptr;
    return own != nullptr ? *own : *CPreferences::GetDefaultCellPaintFormat();
}

TEXTMETRIC MetricsOf(CFont* font, CDC& dc)
{
    Detail::FontScope const scope(dc, font);
    TEXTMETRIC metrics{};
    dc.GetTextMetrics(&metrics);
    return metrics;
}

} // namespace

void CCustomDraw::DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    CPreferences::GetDefaultHeaderPaintFormat()->DrawHeader(info, context, filter, this);
}

void CCustomDraw::DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    IColumnPaintFormat const* const own =
        info.GetColumn() != nullptr ? info.GetColumn()->GetColumnPaintFormat() : nullptr;
    (own != nullptr ? own : CPreferences::GetDefaultColumnPaintFormat())->DrawColumn(info, context, filter);
}

void CCustomDraw::DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter)
{
    GetLinePaintFormat(line.GetDataObject(), line.GetItem(), line.GetContextType(), line.GetRow())
        .DrawLine(line, context, filter, this);
}

void CCustomDraw::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    FormatOf(cell.GetColumn()).DrawCell(cell, context, filter);
}

ILinePaintFormat const& CCustomDraw::GetLinePaintFormat(Common::CDataObject const* /*object*/, CGridItem* /*item*/,
                                                        ContextType /*context*/, int /*row*/) const
{
    return *CPreferences::GetDefaultLinePaintFormat();
}

ICellPaintFormat const& CCustomDraw::GetCellPaintFormat(CColumn const* column, Common::CDataObject const* /*object*/,
                                                        CGridItem* /*item*/, ContextType /*context*/, int /*row*/) const
{
    return FormatOf(column);
}

int CCustomDraw::GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                                        unsigned int /*filter*/) const
{
    if (info.GetFont() == nullptr || context.GetHeader() == nullptr)
    {
        return Platform::Scaled(20);
    }
    TEXTMETRIC const metrics = MetricsOf(info.GetFont(), context.GetDC());
    return metrics.tmHeight + metrics.tmInternalLeading + Platform::Scaled(4);
}

int CCustomDraw::GetOptimalRowHeight(CFont* font, CDC& dc) const
{
    if (font == nullptr)
    {
        return 0;
    }
    TEXTMETRIC const metrics = MetricsOf(font, dc);
    return metrics.tmHeight + metrics.tmInternalLeading / 2;
}

int CCustomDraw::GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CGridLine const& line = cell.GetGridLine();
    return GetCellPaintFormat(cell.GetColumn(), line.GetDataObject(), line.GetItem(), line.GetContextType(),
                              line.GetRow())
        .GetOptimalCellWidth(cell, context, filter);
}

} // namespace Ostrel::GUI
