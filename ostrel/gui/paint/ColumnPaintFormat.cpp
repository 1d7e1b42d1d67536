#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/ColumnPaintFormat.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/gui/paint/detail/SortMark.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

bool HasImages(CPaintContext const& context, unsigned int filter)
{
    return (filter & PaintColumnImage) != 0 && context.GetHeader() != nullptr &&
           context.GetHeader()->GetImageList() != nullptr;
}

UINT TitleFlags(CColumn::Alignment alignment) noexcept
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

} // namespace

CString CColumnPaintFormat::GetFormatClassName()
{
    return "GUI::CColumnPaintFormat";
}

IColumnPaintFormat* CColumnPaintFormat::CreateFormat()
{
    return new CColumnPaintFormat();
}

void CColumnPaintFormat::DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const
{
    DrawBackground(info, context, filter);
    DrawSort(info, context, filter);
    DrawText(info, context, filter);
    if (HasImages(context, filter) && info.GetImageId() >= 0)
    {
        CRect rect = info.GetVirtualRect();
        rect.right = rect.left + rect.Height();
        DrawImage(context.GetHeader()->GetImageList(), info.GetImageId(), rect & info.GetVirtualRect(),
                  context.GetDC());
    }
}

IColumnPaintFormat* CColumnPaintFormat::Clone() const
{
    return new CColumnPaintFormat(*this);
}

int CColumnPaintFormat::IsSerializableType() const
{
    return 1;
}

CString CColumnPaintFormat::GetFormatName()
{
    return GetFormatClassName();
}

int CColumnPaintFormat::GetRequiredSortInfoWidth() const
{
    return Platform::Scaled(12);
}

void CColumnPaintFormat::DrawBackground(CColumnPaintInfo& info, CPaintContext const& context,
                                        unsigned int /*filter*/) const
{
    bool const isTouched = info.GetState() != CColumnPaintInfo::Normal;
    CDC& dc = context.GetDC();
    dc.FillSolidRect(info.GetVisibleRect(), GetSysColor(isTouched ? COLOR_BTNHIGHLIGHT : COLOR_BTNFACE));
    Detail::DrawFrame(dc, info.GetVirtualRect(), GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
}

void CColumnPaintFormat::DrawSort(CColumnPaintInfo& info, CPaintContext const& context, unsigned int /*filter*/) const
{
    Detail::DrawSortMark(context.GetDC(), info.GetVirtualRect(), GetRequiredSortInfoWidth(),
                         Detail::SortMarkOf(info.GetColumn(), context), GetSysColor(COLOR_BTNSHADOW));
}

void CColumnPaintFormat::DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const
{
    if (info.GetColumn() == nullptr)
    {
        return;
    }
    CRect rect = info.GetVirtualRect();
    if (Detail::SortMarkOf(info.GetColumn(), context).level >= 0)
    {
        // The bars of a further level reach over the end of a long title.
        rect.right -= GetRequiredSortInfoWidth();
    }
    if (HasImages(context, filter) && info.GetImageId() >= 0)
    {
        rect.left += rect.Height();
    }
    rect.DeflateRect(Platform::Scaled(2), 0, Platform::Scaled(4), 0);
    CDC& dc = context.GetDC();
    Detail::FontScope const font(dc, info.GetFont());
    int const previousMode = dc.SetBkMode(TRANSPARENT);
    COLORREF const previousColor = dc.SetTextColor(static_cast<COLORREF>(info.GetTextColor()));
    dc.DrawText(std::string_view(info.GetColumn()->GetName()), rect, TitleFlags(info.GetColumn()->GetAlignment()));
    dc.SetTextColor(previousColor);
    dc.SetBkMode(previousMode);
}

void CColumnPaintFormat::DrawImage(CImageList* imageList, int imageId, CRect rect, CDC& dc) const
{
    IMAGEINFO image{};
    if (imageList == nullptr || rect.IsRectEmpty() || !imageList->GetImageInfo(imageId, &image))
    {
        return;
    }
    CSize const size = CRect(image.rcImage).Size();
    Detail::ClipScope const clip(dc, rect);
    CPoint const at(rect.left + (rect.Width() - size.cx) / 2, rect.top + (rect.Height() - size.cy) / 2);
    imageList->Draw(&dc, imageId, at, ILD_TRANSPARENT);
}

} // namespace Ostrel::GUI
