#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

// At scale 1.
constexpr int kTextOffset = 7;
constexpr int kRowRoom = 3;
constexpr int kHeaderRoom = 4;

void MoveTextFromEdges(CGridCell& cell)
{
    cell.GetPaintInfo().SetLeftTextOffset(Platform::Scaled(kTextOffset));
    cell.GetPaintInfo().SetRightTextOffset(Platform::Scaled(kTextOffset));
}

} // namespace

IColumnPaintFormat* CSpaciousColumnPaintFormat::Clone() const
{
    return new CSpaciousColumnPaintFormat(*this);
}

void CSpaciousColumnPaintFormat::DrawText(CColumnPaintInfo& info, CPaintContext const& context,
                                          unsigned int filter) const
{
    constexpr int kLeftOfBase = 2;
    constexpr int kRightOfBase = 4;
    CColumnPaintInfo inner = info;
    CRect rect = info.GetVirtualRect();
    rect.DeflateRect(Platform::Scaled(kTextOffset - kLeftOfBase), 0, Platform::Scaled(kTextOffset - kRightOfBase), 0);
    inner.SetVirtualRect(rect);
    CColumnPaintFormat::DrawText(inner, context, filter);
}

void CSpaciousDraw::DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    CColumn const* const column = info.GetColumn();
    IColumnPaintFormat const* const own = column != nullptr ? column->GetColumnPaintFormat() : nullptr;
    (own != nullptr ? own : &m_title)->DrawColumn(info, context, filter);
}

void CSpaciousDraw::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    MoveTextFromEdges(cell);
    CCustomDraw::DrawCell(cell, context, filter);
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
