#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/SpaciousColumnPaintFormat.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/gui/paint/detail/SortMark.h>
#include <ostrel/gui/paint/detail/SpaciousSizes.h>

namespace Ostrel::GUI
{
namespace
{

// At scale 1.
constexpr int kMarkOffset = 3; ///< between the sort mark and the right edge
constexpr int kMarkGap = 3;    ///< between the name and the bars of a further level
constexpr int kLeastText = 12; ///< room in which an ellipsis is whole

constexpr unsigned char kPressedOpacity = 64;

COLORREF GroundOf(CColumnPaintInfo::State state)
{
    switch (state)
    {
    case CColumnPaintInfo::Hot:
        return GetSysColor(COLOR_BTNHIGHLIGHT);
    case CColumnPaintInfo::Captured:
        return static_cast<COLORREF>(
            CMsImg32::AlphaBlend(GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_3DDKSHADOW), kPressedOpacity));
    default:
        return GetSysColor(COLOR_BTNFACE);
    }
}

} // namespace

IColumnPaintFormat* CSpaciousColumnPaintFormat::Clone() const
{
    return new CSpaciousColumnPaintFormat(*this);
}

void CSpaciousColumnPaintFormat::DrawBackground(CColumnPaintInfo& info, CPaintContext const& context,
                                                unsigned int /*filter*/) const
{
    CRect const& visible = info.GetVisibleRect();
    CDC& dc = context.GetDC();
    dc.FillSolidRect(visible, GroundOf(info.GetState()));
    COLORREF const line = GetSysColor(COLOR_BTNSHADOW);
    int const width = Detail::LineWidth();
    Detail::DrawSolidHorizontal(dc, visible.left, visible.right, visible.bottom - width, line);
    if (info.GetColumn() != nullptr)
    {
        Detail::DrawSolidVertical(dc, info.GetVirtualRect().right - width, visible.top, visible.bottom, line);
    }
}

void CSpaciousColumnPaintFormat::DrawSort(CColumnPaintInfo& info, CPaintContext const& context,
                                          unsigned int /*filter*/) const
{
    CRect title = info.GetVirtualRect();
    title.right -= Platform::Scaled(kMarkOffset);
    Detail::DrawSortMark(context.GetDC(), title, GetRequiredSortInfoWidth(),
                         Detail::SortMarkOf(info.GetColumn(), context), GetSysColor(COLOR_GRAYTEXT));
}

void CSpaciousColumnPaintFormat::DrawText(CColumnPaintInfo& info, CPaintContext const& context,
                                          unsigned int filter) const
{
    constexpr int kLeftOfBase = 2;
    constexpr int kRightOfBase = 4;
    CColumnPaintInfo inner = info;
    CRect rect = info.GetVirtualRect();
    rect.left += Platform::Scaled(Detail::kSpaciousTextOffset - kLeftOfBase);
    rect.right -= Platform::Scaled(Detail::kSpaciousTextOffset - kRightOfBase);
    int const level = Detail::SortMarkOf(info.GetColumn(), context).level;
    if (level > 0)
    {
        rect.right -= Detail::RankBarsWidth() - GetRequiredSortInfoWidth() + Platform::Scaled(kMarkGap - kRightOfBase);
    }
    int const taken = Platform::Scaled(kLeftOfBase + kRightOfBase) + (level >= 0 ? GetRequiredSortInfoWidth() : 0);
    if (rect.Width() - taken < Platform::Scaled(kLeastText))
    {
        return;
    }
    inner.SetVirtualRect(rect);
    CColumnPaintFormat::DrawText(inner, context, filter);
}

} // namespace Ostrel::GUI
