// The overlays and measures of a cell, and the plain fills and texts. The tree, the frames, the lines and the marks are
// in PaintHelperShapes.cpp.
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/gui/paint/detail/Highlight.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/ImageList.h>

namespace Ostrel::GUI
{
namespace
{

constexpr long kNoField = -2;

CAppearance const& AppearanceOf(CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    return snapshot != nullptr ? snapshot->appearance : context.GetGrid().GetAppearance();
}

bool IsHighlightAllowed(CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    return snapshot != nullptr ? snapshot->highlightAllowed : context.GetGrid().CanHighlight();
}

CColumn const* HierarchicalColumn(CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    return snapshot != nullptr ? snapshot->hierarchicalColumn : context.GetGrid().GetHierarchicalColumn();
}

bool IsSorted(CColumn const& column, CPaintContext const& context)
{
    if (Detail::PaintSnapshot const* const snapshot = context.Snapshot())
    {
        Detail::PaintColumn const* const found = snapshot->Find(&column);
        return found != nullptr && found->sortLevel >= 0;
    }
    VisibleColumn const* const visible =
        context.GetHeader() != nullptr ? context.GetHeader()->GetLayout()->VisibleOf(column.GetFid()) : nullptr;
    return visible != nullptr && visible->sortLevel >= 0;
}

int ElapsedSinceUpdate(CGridCell const& cell, CPaintContext const& context)
{
    long const fid = cell.GetColumn() != nullptr ? cell.GetColumn()->GetFid() : kNoField;
    CGridItem* const item = cell.GetGridLine().GetItem();
    if (Detail::PaintSnapshot const* const snapshot = context.Snapshot())
    {
        return snapshot->ElapsedSinceUpdate(context.GetGrid(), item, fid);
    }
    return item != nullptr ? context.GetGrid().GetTimeElapsedSinceLastUpdate(item, fid) : -1;
}

Detail::CellHighlight HighlightOf(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
{
    CHighlightSettings const& settings = cell.GetPaintInfo().GetHighlightSettings();
    if ((filter & PaintHighlight) == 0 || settings.GetHighlightPeriod() <= 0 || !IsHighlightAllowed(context))
    {
        return {};
    }
    return Detail::HighlightAfter(ElapsedSinceUpdate(cell, context), settings, cell.GetPaintInfo().GetForeColor(),
                                  cell.GetPaintInfo().GetBackColor());
}

unsigned long Blend(unsigned long base, CColorBlend const& overlay)
{
    return overlay.GetOpacity() == 0 ? base : CMsImg32::AlphaBlend(base, overlay.GetColor(), overlay.GetOpacity());
}

} // namespace

void CPaintHelper::DrawBackground(CRect rect, unsigned long color, CPaintContext const& context)
{
    rect &= context.GetClipRect();
    if (!rect.IsRectEmpty())
    {
        context.GetDC().FillSolidRect(rect, static_cast<COLORREF>(color));
    }
}

void CPaintHelper::DrawMouseTrackSelection(CRect rect, CColorBlend blend, unsigned long frameColor,
                                           CPaintContext const& context)
{
    CRect const band = context.GetMouseSelection();
    CRect const inside = rect & band & context.GetClipRect();
    if (inside.IsRectEmpty())
    {
        return;
    }
    CDC& dc = context.GetDC();
    dc.BlendRect(inside, static_cast<COLORREF>(blend.GetColor()), blend.GetOpacity());
    Detail::ClipScope const clip(dc, inside);
    Detail::DrawFrame(dc, band, static_cast<COLORREF>(frameColor));
}

void CPaintHelper::DrawText(std::string const& text, unsigned long color, CRect const& rect, unsigned int format,
                            CPaintInfo const& paintInfo, CPaintContext const& context)
{
    if (text.empty())
    {
        return;
    }
    CDC& dc = context.GetDC();
    Detail::FontScope const font(dc, paintInfo.GetFont());
    int const previousMode = dc.SetBkMode(TRANSPARENT);
    COLORREF const previousColor = dc.SetTextColor(static_cast<COLORREF>(color));
    dc.DrawText(text, rect, format);
    dc.SetTextColor(previousColor);
    dc.SetBkMode(previousMode);
}

CColorBlend CPaintHelper::GetSelectionColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                 unsigned int filter)
{
    bool const applies = (filter & PaintSelection) != 0 && cell.GetGridLine().IsRowSelected();
    return applies ? AppearanceOf(context).GetSelectedLineColor() : CColorBlend();
}

CColorBlend CPaintHelper::GetFocusedRowColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                  unsigned int filter)
{
    CGridLine const& line = cell.GetGridLine();
    bool const applies = (filter & PaintFocusedRow) != 0 && context.GetFocusedContext() == line.GetContextType() &&
                         context.GetFocusedRow() == line.GetRow();
    return applies ? AppearanceOf(context).GetFocusedLineColor() : CColorBlend();
}

CColorBlend CPaintHelper::GetSortedColumnColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                    unsigned int filter)
{
    bool const applies =
        (filter & PaintSortedColumn) != 0 && cell.GetColumn() != nullptr && IsSorted(*cell.GetColumn(), context);
    return applies ? AppearanceOf(context).GetSortedColumnColor() : CColorBlend();
}

CColorBlend CPaintHelper::GetHighlightForeColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                     unsigned int filter)
{
    return cell.GetColumn() != nullptr ? HighlightOf(cell, context, filter).fore : CColorBlend();
}

CColorBlend CPaintHelper::GetHighlightBackColorBlend(CGridCell const& cell, CPaintContext const& context,
                                                     unsigned int filter)
{
    return HighlightOf(cell, context, filter).back;
}

unsigned long CPaintHelper::GetResultingBackColor(CGridCell const& cell, CPaintContext const& context,
                                                  unsigned int filter)
{
    unsigned long color = cell.GetPaintInfo().GetBackColor();
    color = Blend(color, GetHighlightBackColorBlend(cell, context, filter));
    color = Blend(color, GetSelectionColorBlend(cell, context, filter));
    color = Blend(color, GetSortedColumnColorBlend(cell, context, filter));
    return Blend(color, GetFocusedRowColorBlend(cell, context, filter));
}

unsigned long CPaintHelper::GetResultingTextColor(CGridCell const& cell, CPaintContext const& context,
                                                  unsigned int filter)
{
    return Blend(cell.GetPaintInfo().GetForeColor(), GetHighlightForeColorBlend(cell, context, filter));
}

int CPaintHelper::GetNextPaintDelay(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
{
    CHighlightSettings const& settings = cell.GetPaintInfo().GetHighlightSettings();
    if ((filter & PaintHighlight) == 0 || cell.GetColumn() == nullptr || settings.GetHighlightPeriod() <= 0 ||
        !IsHighlightAllowed(context))
    {
        return 0;
    }
    return Detail::NextPaintDelay(ElapsedSinceUpdate(cell, context), settings);
}

int CPaintHelper::GetIndentation(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
{
    bool const applies = (filter & PaintHierarchy) != 0 && context.GetHeader() != nullptr &&
                         cell.GetColumn() != nullptr && cell.GetColumn() == HierarchicalColumn(context);
    return applies ? (cell.GetGridLine().GetHierarchicalLevel() + 1) * cell.GetPaintInfo().GetVirtualRect().Height()
                   : 0;
}

int CPaintHelper::GetImageWidth(CGridCell const& cell, unsigned int filter)
{
    IMAGEINFO info{};
    if ((filter & PaintImage) == 0 || cell.GetImageId() < 0 || cell.GetImageList() == nullptr ||
        cell.GetGridLine().GetItem() == nullptr || !cell.GetImageList()->GetImageInfo(cell.GetImageId(), &info))
    {
        return 0;
    }
    CRect const image(info.rcImage);
    int const height = cell.GetPaintInfo().GetVirtualRect().Height();
    if (image.IsRectEmpty())
    {
        return 0;
    }
    return cell.GetStretchImage() ? height * image.Width() / image.Height() : height;
}

CRect CPaintHelper::GetImageRect(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
{
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    int const left = rect.left + GetIndentation(cell, context, filter);
    return {left, rect.top, left + GetImageWidth(cell, filter), rect.bottom};
}

CRect CPaintHelper::GetCellPaintableRectangle(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    CRect rect = cell.GetPaintInfo().GetVirtualRect();
    rect.left = std::min(GetImageRect(cell, context, filter).right, rect.right);
    return rect;
}

} // namespace Ostrel::GUI
