#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/clipboard/DragDropSettings.h>
#include <ostrel/gui/edit/IEditInPlace.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/CellPaintFormat.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/gui/paint/detail/Highlight.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

CAppearance const& AppearanceOf(CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    return snapshot != nullptr ? snapshot->appearance : context.GetGrid().GetAppearance();
}

Detail::CellEditors EditorsOf(CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    return snapshot != nullptr ? snapshot->editors : Detail::CellEditors::Of(context.GetGrid());
}

/// Of the marks at the place where dragged rows would go.
unsigned long DropColorOf(CPaintContext const& context)
{
    return context.GetGrid().GetDragDropSettings().GetDropColor();
}

bool IsNumber(Common::EnType type) noexcept
{
    switch (type)
    {
    case Common::TypeChar:
    case Common::TypeUChar:
    case Common::TypeShort:
    case Common::TypeUShort:
    case Common::TypeLong:
    case Common::TypeULong:
    case Common::TypeInt64:
    case Common::TypeFloat:
    case Common::TypeDouble:
        return true;
    default:
        return false;
    }
}

/// The type of the cell's value, without reading the value where the field tells it.
Common::EnType TypeOf(CGridCell const& cell)
{
    Common::CDataObject* const object = cell.GetGridLine().GetDataObject();
    Common::EnType const type =
        object != nullptr ? object->GetFieldType(cell.GetColumn()->GetFid()) : Common::TypeEmpty;
    return type != Common::TypeEmpty ? type : cell.GetValue().GetType();
}

CColumn::Alignment AlignmentOf(CGridCell const& cell, CPaintContext const& context)
{
    Detail::PaintSnapshot const* const snapshot = context.Snapshot();
    Detail::PaintColumn const* const column = snapshot != nullptr ? snapshot->Find(cell.GetColumn()) : nullptr;
    CColumn::Alignment const alignment = column != nullptr ? column->alignment : cell.GetColumn()->GetAlignment();
    if (alignment != CColumn::AlignAuto)
    {
        return alignment;
    }
    return IsNumber(TypeOf(cell)) ? CColumn::AlignRight : CColumn::AlignLeft;
}

UINT TextFlags(CColumn::Alignment alignment) noexcept
{
    constexpr UINT kFlags = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
    switch (alignment)
    {
    case CColumn::AlignRight:
        return kFlags | DT_RIGHT;
    case CColumn::AlignCenter:
        return kFlags | DT_CENTER;
    default:
        return kFlags | DT_LEFT;
    }
}

/// The background over the prepared picture: the row's colour with the picture's opacity, then every overlay.
void BlendOverPicture(CGridCell const& cell, CPaintContext const& context, unsigned int filter, CRect const& rect)
{
    CDC& dc = context.GetDC();
    CMsImg32::AlphaBlend(dc, rect, cell.GetPaintInfo().GetBackColor(),
                         context.GetGrid().GetBackgroundImage().GetOpacity());
    for (CColorBlend const& overlay : {CPaintHelper::GetHighlightBackColorBlend(cell, context, filter),
                                       CPaintHelper::GetSelectionColorBlend(cell, context, filter),
                                       CPaintHelper::GetSortedColumnColorBlend(cell, context, filter),
                                       CPaintHelper::GetFocusedRowColorBlend(cell, context, filter)})
    {
        if (overlay.GetOpacity() != 0)
        {
            CMsImg32::AlphaBlend(dc, rect, overlay.GetColor(), overlay.GetOpacity());
        }
    }
}

/// The space right of the last column lights up with a row that was updated as a whole, and goes out with it.
void RequestFillerPaint(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
{
    CGridItem* const item = cell.GetGridLine().GetItem();
    Detail::GridArea* const area = item != nullptr ? Detail::GridArea::Of(*item) : nullptr;
    if (area == nullptr || CPaintHelper::GetHighlightBackColorBlend(cell, context, filter).GetOpacity() == 0)
    {
        return;
    }
    int const elapsedMs = Detail::GridUpdates::ElapsedMs(*item, Detail::kNoField);
    int const delayMs = Detail::NextPaintDelay(elapsedMs, cell.GetPaintInfo().GetHighlightSettings());
    if (delayMs > 0)
    {
        area->Core().Repaints().RepaintPainted(*item, Detail::kNoField, delayMs);
    }
}

/// Tells the control over the cell, if there is one, how the cell is painted.
void PaintControlOver(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    CGridItem const* const item = cell.GetGridLine().GetItem();
    if ((filter & PaintControls) == 0 || cell.GetColumn() == nullptr || item == nullptr || item->Extras() == nullptr)
    {
        return;
    }
    if (CEmbeddedControlAdapter* const adapter = Detail::AdapterOf(*item, cell.GetColumn()->GetFid()))
    {
        CPaintInfo& info = cell.GetPaintInfo();
        unsigned long const foreColor = info.GetForeColor();
        unsigned long const backColor = info.GetBackColor();
        adapter->PaintControl(cell, context, filter);
        info.SetForeColor(foreColor);
        info.SetBackColor(backColor);
    }
}

void FillAround(CDC& dc, CRect const& outer, CRect const& inner, COLORREF color)
{
    dc.FillSolidRect(CRect(outer.left, outer.top, outer.right, inner.top), color);
    dc.FillSolidRect(CRect(outer.left, inner.bottom, outer.right, outer.bottom), color);
    dc.FillSolidRect(CRect(outer.left, inner.top, inner.left, inner.bottom), color);
    dc.FillSolidRect(CRect(inner.right, inner.top, outer.right, inner.bottom), color);
}

} // namespace

CString CCellPaintFormat::GetFormatClassName()
{
    return "GUI::CCellPaintFormat";
}

void CCellPaintFormat::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if (IEditInPlace* const editor = EditorsOf(context).before)
    {
        filter = editor->PrePaintCell(cell, context, filter);
    }
    OnNextPaintRequest(cell, context, filter);
    OnDrawBackGround(cell, context, filter);
    OnDrawMouseSelection(cell, context, filter);
    OnDrawText(cell, context, filter);
    OnDrawImage(cell, context, filter);
    OnDrawFocusedLineFrame(cell, context, filter);
    OnDrawSelectedLineFrame(cell, context, filter);
    OnDrawHierarchy(cell, context, filter);
    OnDrawDropPosition(cell, context, filter);
    OnDrawDropParentPosition(cell, context, filter);
    OnDrawVerticalLines(cell, context, filter);
    OnDrawHorizontalLines(cell, context, filter);
    PaintControlOver(cell, context, filter);
    OnDrawEditInPlace(cell, context, filter);
}

unsigned long CCellPaintFormat::GetBackColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    return CPaintHelper::GetResultingBackColor(cell, context, filter);
}

unsigned long CCellPaintFormat::GetForeColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    return CPaintHelper::GetResultingTextColor(cell, context, filter);
}

int CCellPaintFormat::GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CPaintInfo const& info = cell.GetPaintInfo();
    Detail::FontScope const font(context.GetDC(), info.GetFont());
    std::string const text = cell.GetFormattedStlString();
    return context.GetDC().GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx + info.GetLeftTextOffset() +
           info.GetRightTextOffset() + CPaintHelper::GetIndentation(cell, context, filter) +
           CPaintHelper::GetImageWidth(cell, filter);
}

CRect CCellPaintFormat::GetImageRect(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    return CPaintHelper::GetImageRect(cell, context, filter);
}

CRect CCellPaintFormat::GetTextRect(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    CPaintInfo const& info = cell.GetPaintInfo();
    CRect const& rect = info.GetVirtualRect();
    int const left = std::max(GetImageRect(cell, context, filter).right, rect.left) + info.GetLeftTextOffset();
    return {left, rect.top, rect.right - info.GetRightTextOffset(), rect.bottom};
}

ICellPaintFormat* CCellPaintFormat::Clone() const
{
    return new CCellPaintFormat(*this);
}

int CCellPaintFormat::IsSerializableType() const
{
    return 1;
}

CString CCellPaintFormat::GetFormatName()
{
    return GetFormatClassName();
}

void CCellPaintFormat::OnNextPaintRequest(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if (cell.GetColumn() == nullptr)
    {
        RequestFillerPaint(cell, context, filter);
    }
    else if (int const delayMs = CPaintHelper::GetNextPaintDelay(cell, context, filter); delayMs > 0)
    {
        cell.RequestNextPaint(delayMs);
    }
}

void CCellPaintFormat::OnDrawBackGround(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintBackground) == 0)
    {
        return;
    }
    CPaintInfo const& info = cell.GetPaintInfo();
    CDC& dc = context.GetDC();
    bool const hasPicture =
        context.GetBackgroundImage() != nullptr && context.GetGrid().GetBackgroundImage().GetOpacity() < 255;
    CRect const overPicture =
        hasPicture ? info.GetClipRect() & context.GetBackgroundImageRc() & info.GetVisibleRect() : CRect();
    auto const color = static_cast<COLORREF>(GetBackColor(cell, context, filter));
    if (overPicture.IsRectEmpty())
    {
        dc.FillSolidRect(info.GetClipRect(), color);
        return;
    }
    FillAround(dc, info.GetClipRect(), overPicture, color);
    BlendOverPicture(cell, context, filter, overPicture);
}

void CCellPaintFormat::OnDrawMouseSelection(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintMouseSelection) != 0 && !context.GetMouseSelection().IsRectEmpty())
    {
        CColorBlend const blend = AppearanceOf(context).GetMouseSelectionColor();
        CPaintHelper::DrawMouseTrackSelection(cell.GetPaintInfo().GetClipRect(), blend, blend.GetColor(), context);
    }
}

void CCellPaintFormat::OnDrawText(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintText) == 0 || cell.GetColumn() == nullptr || cell.GetGridLine().GetItem() == nullptr)
    {
        return;
    }
    std::string const text = cell.GetFormattedStlString();
    if (text.empty())
    {
        return;
    }
    // Measuring where the text goes changes nothing; the operation is not const for the sake of derived formats.
    CRect const rect = const_cast<CCellPaintFormat*>(this)->GetTextRect(cell, context, filter);
    CPaintHelper::DrawText(text, GetForeColor(cell, context, filter), rect, TextFlags(AlignmentOf(cell, context)),
                           cell.GetPaintInfo(), context);
}

void CCellPaintFormat::OnDrawImage(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintImage) == 0)
    {
        return;
    }
    CRect const rect = const_cast<CCellPaintFormat*>(this)->GetImageRect(cell, context, filter);
    if (!rect.IsRectEmpty())
    {
        CPaintHelper::DrawImage(cell, context, rect, GetBackColor(cell, context, filter), true);
    }
}

void CCellPaintFormat::OnDrawFocusedLineFrame(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintFocusFrame) != 0)
    {
        CPaintHelper::DrawFocus(cell, AppearanceOf(context).GetFocusedLineColor().GetColor(), context);
    }
}

void CCellPaintFormat::OnDrawSelectedLineFrame(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintSelectionFrame) != 0)
    {
        CPaintHelper::DrawSelectionFrame(cell, AppearanceOf(context).GetSelectedLineColor().GetColor(), context);
    }
}

void CCellPaintFormat::OnDrawHierarchy(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if (cell.GetGridLine().GetItem() == nullptr || CPaintHelper::GetIndentation(cell, context, filter) == 0)
    {
        return;
    }
    COLORREF const color = GetSysColor(COLOR_GRAYTEXT);
    if ((filter & PaintExpandButton) != 0)
    {
        CPaintHelper::DrawCollapseExpandIcon(cell, color, context);
    }
    if ((filter & PaintTreeLines) != 0)
    {
        CPaintHelper::DrawHierarchicalLines(cell, color, context);
    }
}

void CCellPaintFormat::OnDrawDropPosition(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if ((filter & PaintDropPosition) != 0 && context.GetDropPosition().GetDropContext() != NoContext)
    {
        // Half of the bar lies in the row above it and half in the row below; each row draws its own half.
        Detail::ClipScope const clip(context.GetDC(), cell.GetPaintInfo().GetClipRect());
        CPaintHelper::DrawDropPosition(cell, DropColorOf(context), context);
    }
}

void CCellPaintFormat::OnDrawDropParentPosition(CGridCell& cell, CPaintContext const& context,
                                                unsigned int filter) const
{
    if ((filter & PaintDropParentPosition) != 0 && context.GetDropPosition().GetDropContext() != NoContext)
    {
        CPaintHelper::DrawDropParentPosition(cell, DropColorOf(context), context);
    }
}

void CCellPaintFormat::OnDrawVerticalLines(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CAppearance const& appearance = AppearanceOf(context);
    if ((filter & PaintVerticalLines) != 0 && appearance.IsVerticalLinesEnabled() && cell.GetColumn() != nullptr)
    {
        CPaintHelper::DrawVerticalLines(cell, appearance.GetVerticalLinesColor(), context);
    }
}

void CCellPaintFormat::OnDrawHorizontalLines(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    CAppearance const& appearance = AppearanceOf(context);
    if ((filter & PaintHorizontalLines) != 0 && appearance.IsHorizontalLinesEnabled())
    {
        CPaintHelper::DrawHorizontalLines(cell, appearance.GetHorizontalLinesColor(), context);
    }
}

void CCellPaintFormat::OnDrawEditInPlace(CGridCell& cell, CPaintContext const& context, unsigned int filter) const
{
    if (IEditInPlace* const editor = EditorsOf(context).after)
    {
        editor->PostPaintCell(cell, context, filter);
    }
}

} // namespace Ostrel::GUI
