// The mark in the title of a column that rows are sorted by.
#pragma once

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/drawing/DrawingTypes.h>

class CDC;

namespace Ostrel::GUI
{
class CColumn;
class CPaintContext;
} // namespace Ostrel::GUI

namespace Ostrel::GUI::Detail
{

/// The sort level of a column and its direction.
struct SortMark
{
    int level = -1; ///< -1 when the column is not sorted by
    bool reverse = false;
};

[[nodiscard]] SortMark SortMarkOf(CColumn const* column, CPaintContext const& context);
/// A triangle in the middle of the title's last `width` pixels. Further levels have bars above it, which reach further
/// to the left.
void DrawSortMark(CDC& dc, CRect const& title, int width, SortMark mark, COLORREF color);
/// Pixels that the bars of a further level begin left of the title's right edge.
[[nodiscard]] int RankBarsWidth();

} // namespace Ostrel::GUI::Detail
