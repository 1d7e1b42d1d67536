#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/ColumnPaintFormat.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

/// The sort level of a column and its direction.
struct SortMark
{
    int level = -1; ///< -1 when the column is not sorted by
    bool reverse = false;
};

SortMark SortMarkOf(CColumn const* column, CPaintContext const& context)
{
    if (column == nullptr || context.GetHeader() == nullptr)
    {
        return {};
    }
    Detail::SnapshotOf const snapshot(context);
    Detail::PaintColumn const* const found = snapshot->Find(column);
    return found != nullptr ? SortMark{found->sortLevel, found->reverseSort} : SortMark{};
}

bool HasImages(CPaintContext const& context, unsigned int filter)
{
    return (filter & PaintColumnImage) != 0 && context.GetHeader() != nullptr &&
           context.GetHeader()->GetImageList() != nullptr;
}

/// A filled triangle 8 units wide and 4 high in the middle of the area; `unit` pixels to the unit.
void DrawTriangle(CDC& dc, CRect const& area, int centerY, bool pointsUp, int unit, COLORREF color)
{
    int const center = area.left + area.Width() / 2;
    int const top = centerY - 2 * unit;
    int const rows = 4 * unit;
    for (int row = 0; row < rows; ++row)
    {
        int const half = pointsUp ? row + 1 : rows - row;
        dc.FillSolidRect(CRect(center - half, top + row, center + half, top + row + 1), color);
    }
}

constexpr int kRankBars = 4;
constexpr int kRankBarWidth = 3;
constexpr int kRankBarGap = 2;
constexpr int kRankBarMargin = 2; ///< right of the last bar

/// Four small bars that end right above the triangle, the first `rank` of them filled.
void DrawRankBars(CDC& dc, int right, int bottom, int rank, int unit, COLORREF color)
{
    int const width = kRankBarWidth * unit;
    int const step = width + kRankBarGap * unit;
    int const left = right - (kRankBars - 1) * step - width;
    for (int bar = 0; bar < kRankBars; ++bar)
    {
        CRect const rect(left + bar * step, bottom - 4 * unit, left + bar * step + width, bottom);
        if (bar < rank)
        {
            dc.FillSolidRect(rect, color);
        }
        else
        {
            Detail::DrawFrame(dc, rect, color);
        }
    }
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
    SortMark const mark = SortMarkOf(info.GetColumn(), context);
    if (mark.level < 0)
    {
        return;
    }
    int const unit = Platform::Scaled(1);
    CRect area = info.GetVirtualRect();
    area.left = area.right - GetRequiredSortInfoWidth();
    CDC& dc = context.GetDC();
    Detail::ClipScope const clip(dc, info.GetVirtualRect()); // a title can be narrower than its marks
    COLORREF const color = GetSysColor(COLOR_BTNSHADOW);
    int const centerY = area.top + area.Height() / 2 + (mark.level > 0 ? 4 * unit : 0);
    DrawTriangle(dc, area, centerY, !mark.reverse, unit, color);
    if (mark.level > 0)
    {
        DrawRankBars(dc, area.right - kRankBarMargin * unit, centerY - 3 * unit, mark.level, unit, color);
    }
}

void CColumnPaintFormat::DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const
{
    if (info.GetColumn() == nullptr)
    {
        return;
    }
    CRect rect = info.GetVirtualRect();
    if (SortMarkOf(info.GetColumn(), context).level >= 0)
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
