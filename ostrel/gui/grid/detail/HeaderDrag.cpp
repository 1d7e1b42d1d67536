#include <algorithm>

#include <ostrel/gui/grid/detail/HeaderDrag.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>

namespace Ostrel::GUI::Detail
{
namespace
{
bool MayMove(CHeader const& header, bool isFixed)
{
    return isFixed ? header.CanMoveFixedColumns() : header.CanMoveScrollableColumns();
}
// Near its edges a caption stands for the gap there; in between for its own place, which the dragged column takes.
bool GoesBefore(CRect const& title, int clientX, bool comesFromRight)
{
    int const nearEdge = title.Width() / 4;
    return clientX < title.left + nearEdge || (comesFromRight && clientX < title.right - nearEdge);
}
} // namespace

bool CanDragColumn(CHeader const& header, long fieldId)
{
    auto const layout = header.GetLayout();
    VisibleColumn const* const column = layout->VisibleOf(fieldId);
    return column != nullptr && MayMove(header, layout->IsFixed(*column));
}

ColumnDrop FindColumnDrop(CHeader const& header, long fieldId, int clientX, int scrollPosition)
{
    auto const layout = header.GetLayout();
    int const source = layout->VisiblePositionOf(fieldId);
    VisibleColumn const* target = layout->HitTest(clientX, scrollPosition);
    bool const isBeyondAll = target == nullptr;
    if (isBeyondAll && !layout->VisibleColumns().empty())
    {
        target = &layout->VisibleColumns().back();
    }
    if (source < 0 || target == nullptr || !MayMove(header, layout->IsFixed(*target)))
    {
        return {};
    }
    CRect const title = layout->VirtualRect(*target, scrollPosition);
    int const position = layout->VisiblePositionOf(target->fid);
    bool const goesBefore = !isBeyondAll && GoesBefore(title, clientX, position < source);
    int const place = position + (goesBefore ? 0 : 1);
    if (place == source || place == source + 1)
    {
        return {};
    }
    int const edge = goesBefore ? title.left : title.right;
    return {target->fid, goesBefore, std::max(edge, layout->IsFixed(*target) ? 0 : layout->FixedWidth())};
}
} // namespace Ostrel::GUI::Detail
