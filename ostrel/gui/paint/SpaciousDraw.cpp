#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/gui/paint/detail/SpaciousSizes.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

// At scale 1.
constexpr int kRowRoom = 3;
constexpr int kHeaderRoom = 4;

void MoveTextFromEdges(CGridCell& cell)
{
    cell.GetPaintInfo().SetLeftTextOffset(Platform::Scaled(Detail::kSpaciousTextOffset));
    cell.GetPaintInfo().SetRightTextOffset(Platform::Scaled(Detail::kSpaciousTextOffset));
}

} // namespace

void CSpaciousDraw::DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    CColumn const* const column = info.GetColumn();
    IColumnPaintFormat const* const own = column != nullptr ? column->GetColumnPaintFormat() : nullptr;
    (own != nullptr ? own : &m_title)->DrawColumn(info, context, filter);
}

void CSpaciousDraw::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    MoveTextFromEdges(cell);
    CSpaciousDraw::GetCellPaintFormat(cell.GetColumn(), nullptr, nullptr, NoContext, -1)
        .DrawCell(cell, context, filter);
}

ICellPaintFormat const& CSpaciousDraw::GetCellPaintFormat(CColumn const* column, Common::CDataObject const* /*object*/,
                                                          CGridItem* /*item*/, ContextType /*context*/,
                                                          int /*row*/) const
{
    ICellPaintFormat const* const own = column != nullptr ? column->GetCellPaintFormat() : nullptr;
    return own != nullptr ? *own : m_cell;
}

int CSpaciousDraw::GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                                          unsigned int filter) const
{
    return CCustomDraw::GetOptimalHeaderHeight(info, context, filter) + Platform::Scaled(kHeaderRoom);
}

int CSpaciousDraw::GetOptimalRowHeight(CFont* font, CDC& dc) const
{
    int const height = CCustomDraw::GetOptimalRowHeight(font, dc);
    return height > 0 ? height + Platform::Scaled(kRowRoom) : 0;
}

int CSpaciousDraw::GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    MoveTextFromEdges(cell);
    return CCustomDraw::GetOptimalCellWidth(cell, context, filter);
}

} // namespace Ostrel::GUI
