// The shapes of a cell: frames, grid lines, the tree, drop marks and images. Frames and lines follow the cell's virtual
// rectangle from top to bottom and its visible one from left to right, so that a cell cut by the fixed columns or by
// the window draws the same pixels whatever part of it is painted.
#include <optional>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

/// Pixels of stretched images that stay transparent.
constexpr COLORREF kKeyColor = 0xEAEEED;

/// The visible part of a cell or line; all of it where an application has not said.
CRect const& VisibleOf(CPaintInfo const& info) noexcept
{
    return info.GetVisibleRect().IsRectEmpty() ? info.GetVirtualRect() : info.GetVisibleRect();
}

/// Where the frame of a line runs in a cell, and which of its sides are in it.
struct CellFrame
{
    explicit CellFrame(CGridCell const& cell) : rect(cell.GetPaintInfo().GetVirtualRect())
    {
        CRect const& line = VisibleOf(cell.GetGridLine().GetPaintInfo());
        CRect const& visible = VisibleOf(cell.GetPaintInfo());
        rect.left = visible.left;
        rect.right = visible.right;
        isFirst = visible.left == line.left;
        isLast = visible.right == line.right;
    }

    CRect rect;
    bool isFirst;
    bool isLast;
};

/// Keeps shapes that end at `right` inside a cell that ends before, and lines inside a cell that is narrower or lower
/// than they are: the cell beside it may be translucent, or not be painted.
class CellClip
{
public:
    CellClip(CDC& dc, CGridCell const& cell, int right)
    {
        CRect const& visible = VisibleOf(cell.GetPaintInfo());
        if (right > visible.right || std::min(visible.Width(), visible.Height()) < Detail::LineWidth())
        {
            m_scope.emplace(dc, visible);
        }
    }

private:
    std::optional<Detail::ClipScope> m_scope;
};

bool IsFocused(CGridLine const& line, CPaintContext const& context)
{
    return context.GetFocusedContext() == line.GetContextType() && context.GetFocusedRow() == line.GetRow();
}

bool IsValidRow(int row, CGridLine const& line, CPaintContext const& context)
{
    return row >= 0 && static_cast<unsigned>(row) < context.GetGrid().GetRowCount(line.GetContextType());
}

/// Black; in the dark scheme, white on what is dark.
COLORREF StrokeColor(unsigned long backColor)
{
    auto const back = static_cast<COLORREF>(backColor);
    int const brightness = 299 * GetRValue(back) + 587 * GetGValue(back) + 114 * GetBValue(back);
    bool const isDark = Platform::GetColorScheme() == Platform::ColorScheme::Dark && brightness < 96 * 1000;
    return isDark ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

/// Where a stroke begins that lies in the middle between two edges; the same pixel of the shape left of the window,
/// too.
int StrokeAt(int low, int high)
{
    return low + (high - low - (Detail::LineWidth() - 1)) / 2;
}

void DrawFilledTriangle(CDC& dc, CPoint const (&corners)[3], COLORREF fill, COLORREF outline)
{
    CBrush brush(fill);
    CPen pen(PS_SOLID, Detail::LineWidth(), outline);
    CBrush* const previousBrush = dc.SelectObject(&brush);
    CPen* const previousPen = dc.SelectObject(&pen);
    dc.Polygon(corners, 3);
    dc.SelectObject(previousPen);
    dc.SelectObject(previousBrush);
}

/// The image scaled to the rectangle; pixels of the key colour stay transparent.
bool DrawStretched(CGridCell const& cell, CPaintContext const& context, CRect const& target, CSize imageSize,
                   COLORREF ground)
{
    Detail::StretchedImages ownImages; // where no pass shares them
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    Detail::StretchedImages& images = snapshot != nullptr ? snapshot->Images() : ownImages;
    Detail::ImageOnGround& image = images.Get(*cell.GetImageList(), cell.GetImageId(), imageSize, ground);
    int const drawn =
        CMsImg32::TransparentBlt(&context.GetDC(), target.left, target.top, target.Width(), target.Height(),
                                 &image.GetDC(), 0, 0, imageSize.cx, imageSize.cy, kKeyColor);
    return drawn != 0;
}

void DrawPlain(CGridCell const& cell, CDC& dc, CRect const& rect, CSize imageSize)
{
    CPoint const at(rect.left, rect.top + std::max((rect.Height() - imageSize.cy) / 2, 0));
    CSize const part(std::min<int>(imageSize.cx, rect.Width()), std::min<int>(imageSize.cy, rect.Height()));
    cell.GetImageList()->DrawEx(&dc, cell.GetImageId(), at, part, CLR_NONE, CLR_DEFAULT, ILD_TRANSPARENT);
}

} // namespace

void CPaintHelper::DrawSelectionFrame(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CGridLine const& line = cell.GetGridLine();
    if (!line.IsRowSelected())
    {
        return;
    }
    CellFrame const frame(cell);
    CRect const& rect = frame.rect;
    CDC& dc = context.GetDC();
    CellClip const clip(dc, cell, rect.right);
    auto const ink = static_cast<COLORREF>(color);
    int const width = Detail::LineWidth();
    if (!line.IsPreviusRowSelected())
    {
        Detail::DrawSolidHorizontal(dc, rect.left, rect.right, rect.top, ink);
    }
    if (!line.IsNextRowSelected())
    {
        Detail::DrawSolidHorizontal(dc, rect.left, rect.right, rect.bottom - width, ink);
    }
    if (frame.isFirst)
    {
        Detail::DrawSolidVertical(dc, rect.left, rect.top, rect.bottom, ink);
    }
    if (frame.isLast)
    {
        Detail::DrawSolidVertical(dc, rect.right - width, rect.top, rect.bottom, ink);
    }
}

void CPaintHelper::DrawFocus(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    if (!IsFocused(cell.GetGridLine(), context))
    {
        return;
    }
    CellFrame const frame(cell);
    CRect const& rect = frame.rect;
    CDC& dc = context.GetDC();
    CellClip const clip(dc, cell, rect.right);
    auto const ink = static_cast<COLORREF>(color);
    int const width = Detail::LineWidth();
    int const left = Detail::NextDot(rect.left);
    Detail::DrawDottedHorizontal(dc, left, rect.right, rect.top, ink);
    Detail::DrawDottedHorizontal(dc, left, rect.right, rect.bottom - width, ink);
    if (frame.isFirst)
    {
        Detail::DrawDottedVertical(dc, rect.left, rect.top, rect.bottom, ink);
    }
    if (frame.isLast)
    {
        Detail::DrawDottedVertical(dc, rect.right - width, rect.top, rect.bottom, ink);
    }
}

bool CPaintHelper::IsLastLevelItem(CGridItem* item)
{
    return item != nullptr && item->Parent() != nullptr && item->Parent()->Children().Last() == item;
}

bool CPaintHelper::CanShowExpandOrCollapseIcon(CGridLine const& line, CPaintContext const& /*context*/)
{
    CGridItem const* const item = line.GetItem();
    if (item == nullptr || !item->HasChildren())
    {
        return false;
    }
    if (!item->IsExpanded())
    {
        return true;
    }
    CGridItem const* const next = Detail::RowArea::NextVisible(*item);
    return next != nullptr && next->Parent() == item;
}

void CPaintHelper::DrawCollapseExpandIcon(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CGridLine const& line = cell.GetGridLine();
    if (!CanShowExpandOrCollapseIcon(line, context))
    {
        return;
    }
    CRect const button = Detail::ExpandButtonRect(cell.GetPaintInfo().GetVirtualRect(), line.GetHierarchicalLevel());
    if (button.IsRectEmpty())
    {
        return;
    }
    CDC& dc = context.GetDC();
    CellClip const clip(dc, cell, button.right);
    COLORREF const stroke = StrokeColor(cell.GetPaintInfo().GetBackColor());
    Detail::DrawFrame(dc, button, static_cast<COLORREF>(color));
    CRect inside = button;
    inside.DeflateRect(Platform::Scaled(2), Platform::Scaled(2));
    Detail::DrawSolidHorizontal(dc, inside.left, inside.right, StrokeAt(button.top, button.bottom), stroke);
    if (!line.IsExpanded())
    {
        Detail::DrawSolidVertical(dc, StrokeAt(button.left, button.right), inside.top, inside.bottom, stroke);
    }
}

void CPaintHelper::DrawHierarchicalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CGridLine const& line = cell.GetGridLine();
    int const level = line.GetHierarchicalLevel();
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    if (level < 1 || rect.Height() < 4)
    {
        return;
    }
    CDC& dc = context.GetDC();
    auto const ink = static_cast<COLORREF>(color);
    int const height = rect.Height();
    int const half = height / 2;
    int const width = Detail::LineWidth();
    int const x = rect.left + (level - 1) * height + half;
    int const middle = rect.top + half - width;
    CellClip const clip(dc, cell, x + height + half);
    bool const hasButton = CanShowExpandOrCollapseIcon(line, context);
    Detail::DrawDottedVertical(dc, x, rect.top, IsLastLevelItem(line.GetItem()) ? middle : rect.bottom - width, ink);
    int const end = hasButton ? x + height - Platform::Scaled(3) : x + height + half - width;
    Detail::DrawDottedHorizontal(dc, x, end, middle, ink);

    CGridItem* ancestor = line.GetItem()->Parent();
    for (int ancestorLevel = level - 1; ancestorLevel >= 1; --ancestorLevel, ancestor = ancestor->Parent())
    {
        if (!IsLastLevelItem(ancestor))
        {
            int const ancestorX = rect.left + (ancestorLevel - 1) * height + half;
            Detail::DrawDottedVertical(dc, ancestorX, rect.top, rect.bottom, ink);
        }
    }
}

void CPaintHelper::DrawDropPosition(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CGridLine const& line = cell.GetGridLine();
    CDropPosition const& drop = context.GetDropPosition();
    if (drop.GetDropContext() != line.GetContextType() || !IsValidRow(drop.GetDropIndex(), line, context))
    {
        return;
    }
    bool const isDropRow = line.GetRow() == drop.GetDropIndex();
    bool const isRowBelow = line.GetRow() == drop.GetDropIndex() + 1;
    if (!isDropRow && !(isRowBelow && drop.GetDropAfter()))
    {
        return;
    }
    CRect const rect = CellFrame(cell).rect;
    int const half = Detail::LineWidth();
    int top = rect.top;
    if (drop.GetDropAfter())
    {
        top = isDropRow ? rect.bottom - half : rect.top - half;
    }
    context.GetDC().FillSolidRect(CRect(rect.left, top, rect.right, top + 2 * half), static_cast<COLORREF>(color));
}

void CPaintHelper::DrawDropParentPosition(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CGridLine const& line = cell.GetGridLine();
    CDropPosition const& drop = context.GetDropPosition();
    if (drop.GetDropContext() != line.GetContextType() || drop.GetDropParentIndex() != line.GetRow() ||
        !IsValidRow(drop.GetDropParentIndex(), line, context) || !CellFrame(cell).isFirst)
    {
        return;
    }
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    int const side = rect.Height();
    int const inset = Platform::Scaled(2);
    CRect start(CPoint(rect.left + inset, rect.top), CSize(side, side));
    CRect end(CPoint(rect.right - inset - side, rect.top), CSize(side, side));
    start.DeflateRect(inset, inset);
    end.DeflateRect(inset, inset);
    if (start.IsRectEmpty())
    {
        return;
    }
    auto const fill = static_cast<COLORREF>(color);
    auto const outline = static_cast<COLORREF>(CMsImg32::AlphaBlend(color, cell.GetPaintInfo().GetBackColor(), 120));
    CDC& dc = context.GetDC();
    CellClip const clip(dc, cell, start.right + Detail::LineWidth());
    DrawFilledTriangle(dc, {{start.left, start.top}, {start.right, start.CenterPoint().y}, {start.left, start.bottom}},
                       fill, outline);
    DrawFilledTriangle(dc, {{end.right, end.top}, {end.left, end.CenterPoint().y}, {end.right, end.bottom}}, fill,
                       outline);
}

void CPaintHelper::DrawVerticalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CRect const& rect = cell.GetPaintInfo().GetVirtualRect();
    CellClip const clip(context.GetDC(), cell, VisibleOf(cell.GetPaintInfo()).right);
    Detail::DrawDottedVertical(context.GetDC(), rect.right - Detail::LineWidth(), Detail::NextDot(rect.top),
                               rect.bottom, static_cast<COLORREF>(color));
}

void CPaintHelper::DrawHorizontalLines(CGridCell const& cell, unsigned long color, CPaintContext const& context)
{
    CRect const rect = CellFrame(cell).rect;
    CellClip const clip(context.GetDC(), cell, rect.right);
    Detail::DrawDottedHorizontal(context.GetDC(), Detail::NextDot(rect.left), rect.right,
                                 rect.bottom - Detail::LineWidth(), static_cast<COLORREF>(color));
}

void CPaintHelper::DrawImage(CGridCell const& cell, CPaintContext const& context, CRect const& rect,
                             unsigned long backColor, bool transparent)
{
    IMAGEINFO info{};
    if (cell.GetImageList() == nullptr || !cell.GetImageList()->GetImageInfo(cell.GetImageId(), &info))
    {
        return;
    }
    CSize const size = CRect(info.rcImage).Size();
    CRect target = rect;
    target.DeflateRect(Platform::Scaled(1), Platform::Scaled(1));
    CellClip const clip(context.GetDC(), cell, rect.right);
    COLORREF const ground = transparent ? kKeyColor : static_cast<COLORREF>(backColor);
    if (!cell.GetStretchImage() || !DrawStretched(cell, context, target, size, ground))
    {
        DrawPlain(cell, context.GetDC(), rect, size);
    }
}

} // namespace Ostrel::GUI
