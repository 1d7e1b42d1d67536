#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/gui/paint/detail/SortMark.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI::Detail
{
namespace
{

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
            DrawFrame(dc, rect, color);
        }
    }
}

} // namespace

SortMark SortMarkOf(CColumn const* column, CPaintContext const& context)
{
    if (column == nullptr || context.GetHeader() == nullptr)
    {
        return {};
    }
    SnapshotOf const snapshot(context);
    PaintColumn const* const found = snapshot->Find(column);
    return found != nullptr ? SortMark{found->sortLevel, found->reverseSort} : SortMark{};
}

void DrawSortMark(CDC& dc, CRect const& title, int width, SortMark mark, COLORREF color)
{
    if (mark.level < 0)
    {
        return;
    }
    int const unit = Platform::Scaled(1);
    CRect area = title;
    area.left = area.right - width;
    ClipScope const clip(dc, title); // a title can be narrower than its marks
    int const centerY = area.top + area.Height() / 2 + (mark.level > 0 ? 4 * unit : 0);
    DrawTriangle(dc, area, centerY, !mark.reverse, unit, color);
    if (mark.level > 0)
    {
        DrawRankBars(dc, area.right - kRankBarMargin * unit, centerY - 3 * unit, mark.level, unit, color);
    }
}

int RankBarsWidth()
{
    return (kRankBars * (kRankBarWidth + kRankBarGap) - kRankBarGap + kRankBarMargin) * Platform::Scaled(1);
}

} // namespace Ostrel::GUI::Detail
