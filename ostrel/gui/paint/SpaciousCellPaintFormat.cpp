#include <ostrel/gui/grid/GridItem.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/gui/paint/SpaciousCellPaintFormat.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/ImageList.h>

namespace Ostrel::GUI
{
namespace
{

// Of an expand button, in line widths from its middle to its edge, and to the end of the strokes inside.
constexpr int kButtonReach = 5;
constexpr int kStrokeReach = 2;

/// The square around a middle point that is a line wide.
CRect Around(CPoint middle, int reach)
{
    int const width = Detail::LineWidth();
    return {middle.x - reach * width, middle.y - reach * width, middle.x + (reach + 1) * width,
            middle.y + (reach + 1) * width};
}

/// Where the button's middle lies, which the tree lines of the row and of its children lead to.
CPoint ButtonMiddle(CGridCell const& cell)
{
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    int const height = rect.Height();
    return {rect.left + cell.GetGridLine().GetHierarchicalLevel() * height + height / 2,
            rect.top + height / 2 - Detail::LineWidth()};
}

void DrawButton(CDC& dc, CPoint middle, bool isExpanded, COLORREF frame, COLORREF stroke)
{
    Detail::DrawFrame(dc, Around(middle, kButtonReach), frame);
    CRect const inside = Around(middle, kStrokeReach);
    Detail::DrawSolidHorizontal(dc, inside.left, inside.right, middle.y, stroke);
    if (!isExpanded)
    {
        Detail::DrawSolidVertical(dc, middle.x, inside.top, inside.bottom, stroke);
    }
}

/// From the button down to where the line of the first child begins, whose dots it continues.
void DrawLineToChildren(CDC& dc, CPoint middle, int bottom, COLORREF color)
{
    int const dot = 2 * Detail::LineWidth();
    int const room = bottom - Around(middle, kButtonReach).bottom;
    Detail::DrawDottedVertical(dc, middle.x, bottom - room / dot * dot, bottom, color);
}

} // namespace

ICellPaintFormat* CSpaciousCellPaintFormat::Clone() const
{
    return new CSpaciousCellPaintFormat(*this);
}

void CSpaciousCellPaintFormat::OnDrawImage(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    IMAGEINFO image{};
    if ((filter & PaintImage) == 0 || cell.GetStretchImage() || cell.GetImageList() == nullptr ||
        !cell.GetImageList()->GetImageInfo(cell.GetImageId(), &image))
    {
        CCellPaintFormat::OnDrawImage(cell, context, filter);
        return;
    }
    CRect rect = CPaintHelper::GetImageRect(cell, context, filter);
    rect.left += std::max((rect.Width() - CRect(image.rcImage).Width()) / 2, 0);
    if (!rect.IsRectEmpty())
    {
        CPaintHelper::DrawImage(cell, context, rect, GetBackColor(cell, context, filter), true);
    }
}

void CSpaciousCellPaintFormat::OnDrawHierarchy(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CGridLine const& line = cell.GetGridLine();
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    CPoint const middle = ButtonMiddle(cell);
    CRect const button = Around(middle, kButtonReach);
    if ((filter & PaintExpandButton) == 0 || line.GetItem() == nullptr || button.top < rect.top ||
        CPaintHelper::GetIndentation(cell, context, filter) == 0 ||
        !CPaintHelper::CanShowExpandOrCollapseIcon(line, context))
    {
        CCellPaintFormat::OnDrawHierarchy(cell, context, filter);
        return;
    }
    CDC& dc = context.GetDC();
    Detail::ClipScope const inCell(dc, cell.GetPaintInfo().GetVisibleRect());
    COLORREF const frame = GetSysColor(COLOR_GRAYTEXT);
    DrawButton(dc, middle, line.IsExpanded(), frame, static_cast<COLORREF>(GetForeColor(cell, context, filter)));
    if ((filter & PaintTreeLines) != 0)
    {
        if (line.IsExpanded())
        {
            DrawLineToChildren(dc, middle, rect.bottom, frame);
        }
        dc.ExcludeClipRect(&button);
        CPaintHelper::DrawHierarchicalLines(cell, frame, context);
    }
}

} // namespace Ostrel::GUI
