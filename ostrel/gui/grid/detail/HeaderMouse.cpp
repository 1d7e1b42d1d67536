#include <algorithm>
#include <cstdlib>
#include <utility>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/HeaderMouse.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/detail/GridPainter.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr int kEdgeZone = 4; ///< design pixels on each side of a caption's right edge
constexpr int kSmallestWidth = 8;
constexpr int kScrollZone = 8; ///< design pixels inside each side of the window where a dragged column scrolls
constexpr UINT kScrollStepMs = 50;

bool IsPastDragThreshold(CPoint from, CPoint to)
{
    return std::abs(to.x - from.x) > GetSystemMetrics(SM_CXDRAG) ||
           std::abs(to.y - from.y) > GetSystemMetrics(SM_CYDRAG);
}
} // namespace

bool HeaderMouse::IsOver(CPoint clientPoint) const
{
    return m_core.Columns().Header() != nullptr && m_core.View().Geometry().HeaderRect().PtInRect(clientPoint);
}

CColumn* HeaderMouse::ColumnWithEdgeAt(CPoint clientPoint) const
{
    CHeader const* const header = m_core.Columns().Header();
    if (!IsOver(clientPoint) || !header->CanResizeColumn())
    {
        return nullptr;
    }
    auto const layout = header->GetLayout();
    int const zone = Platform::Scaled(kEdgeZone);
    int const position = m_core.Scroller().HorizontalPosition();
    // An edge shows when the pixel left of it does; the hit test knows what the fixed columns cover.
    for (int const x : {static_cast<int>(clientPoint.x), static_cast<int>(clientPoint.x) - zone})
    {
        VisibleColumn const* const column = layout->HitTest(x, position);
        if (column == nullptr)
        {
            continue;
        }
        int const right = layout->VirtualRect(*column, position).right;
        if (clientPoint.x >= right - zone && clientPoint.x < right + zone)
        {
            return column->column;
        }
    }
    return nullptr;
}

bool HeaderMouse::IsOverEdge(CPoint clientPoint) const
{
    return ColumnWithEdgeAt(clientPoint) != nullptr;
}

CColumn* HeaderMouse::ColumnOf(long fieldId) const
{
    CHeader const* const header = m_core.Columns().Header();
    return header != nullptr ? header->GetColumnByFid(fieldId) : nullptr;
}

long HeaderMouse::FieldAt(CPoint clientPoint) const
{
    CColumn const* const column = IsOver(clientPoint) ? m_core.Columns().ColumnAt(clientPoint) : nullptr;
    return column != nullptr ? column->GetFid() : kNoField;
}

void HeaderMouse::Press(CPoint clientPoint)
{
    if (IsActive())
    {
        EndGesture(); // its release never came
    }
    m_gesture.from = clientPoint;
    if (CColumn const* const column = ColumnWithEdgeAt(clientPoint))
    {
        m_gesture.kind = Gesture::Kind::Resize;
        m_gesture.fieldId = column->GetFid();
        m_gesture.widthBefore = column->GetWidth();
    }
    else if (long const fieldId = FieldAt(clientPoint); fieldId != kNoField)
    {
        m_gesture.kind = Gesture::Kind::Click;
        m_gesture.fieldId = fieldId;
        m_core.View().InvalidateHeader();
    }
}

void HeaderMouse::DoubleClick(CPoint clientPoint)
{
    if (CColumn* const column = ColumnWithEdgeAt(clientPoint))
    {
        m_core.Columns().Adjust(column);
    }
    else
    {
        Press(clientPoint);
    }
}

void HeaderMouse::Move(CPoint clientPoint)
{
    bool const hadMoved = m_gesture.hasMoved;
    m_gesture.hasMoved = hadMoved || IsPastDragThreshold(m_gesture.from, clientPoint);
    if (m_gesture.hasMoved && !hadMoved && m_gesture.kind == Gesture::Kind::Click)
    {
        BeginMove();
    }
    if (m_gesture.kind == Gesture::Kind::Move)
    {
        MoveTo(clientPoint);
    }
    else if (m_gesture.kind == Gesture::Kind::Resize && m_gesture.hasMoved)
    {
        Resize(clientPoint);
    }
}

void HeaderMouse::Resize(CPoint clientPoint)
{
    if (CColumn* const column = ColumnOf(m_gesture.fieldId))
    {
        int const width = m_gesture.widthBefore + clientPoint.x - m_gesture.from.x;
        column->SetWidth(std::max(width, Platform::Scaled(kSmallestWidth)));
    }
}

void HeaderMouse::BeginMove()
{
    CHeader const* const header = m_core.Columns().Header();
    if (header != nullptr && CanDragColumn(*header, m_gesture.fieldId))
    {
        m_gesture.kind = Gesture::Kind::Move;
        m_core.Grid().SetTimer(MouseSelectionTimer, kScrollStepMs);
    }
}

CRect HeaderMouse::DropZone() const
{
    CRect zone = m_core.View().Geometry().HeaderRect();
    zone.InflateRect(0, zone.Height());
    return zone;
}

void HeaderMouse::MoveTo(CPoint clientPoint)
{
    m_gesture.pointer = clientPoint;
    CHeader const* const header = m_core.Columns().Header();
    CRect const zone = DropZone();
    ColumnDrop drop;
    if (header != nullptr && clientPoint.y >= zone.top && clientPoint.y < zone.bottom && zone.right > 0)
    {
        int const x = std::clamp<int>(clientPoint.x, zone.left, zone.right - 1);
        drop = FindColumnDrop(*header, m_gesture.fieldId, x, m_core.Scroller().HorizontalPosition());
    }
    if (std::exchange(m_gesture.drop, drop) != drop)
    {
        m_core.View().InvalidateHeader();
    }
}

void HeaderMouse::OnTimer()
{
    CRect const zone = DropZone();
    CPoint const pointer = m_gesture.pointer;
    if (m_gesture.kind != Gesture::Kind::Move || pointer.y < zone.top || pointer.y >= zone.bottom)
    {
        return;
    }
    int const width = Platform::Scaled(kScrollZone);
    if (pointer.x < zone.left + width)
    {
        m_core.Scroller().OnHorizontalScroll(SB_LINELEFT);
    }
    else if (pointer.x >= zone.right - width)
    {
        m_core.Scroller().OnHorizontalScroll(SB_LINERIGHT);
    }
    MoveTo(pointer);
}

HeaderMouse::Gesture HeaderMouse::EndGesture()
{
    if (m_gesture.kind == Gesture::Kind::Move)
    {
        m_core.Grid().KillTimer(MouseSelectionTimer);
    }
    m_core.View().InvalidateHeader();
    return std::exchange(m_gesture, {});
}

void HeaderMouse::DropColumn(Gesture const& gesture) const
{
    CHeader* const header = m_core.Columns().Header();
    if (header == nullptr || !gesture.drop.IsPlace())
    {
        return;
    }
    if (gesture.drop.goesBefore)
    {
        header->MoveBefore(gesture.fieldId, gesture.drop.fieldId);
    }
    else
    {
        header->MoveAfter(gesture.fieldId, gesture.drop.fieldId);
    }
}

void HeaderMouse::Release(CPoint clientPoint, bool shift, bool ctrl)
{
    Gesture const gesture = EndGesture();
    if (gesture.kind == Gesture::Kind::Click && !gesture.hasMoved && FieldAt(clientPoint) == gesture.fieldId)
    {
        m_core.Sorting().SortByUser(gesture.fieldId, shift, ctrl);
    }
    else if (gesture.kind == Gesture::Kind::Move)
    {
        DropColumn(gesture);
    }
}

void HeaderMouse::Cancel()
{
    Gesture const gesture = EndGesture();
    CColumn* const column = gesture.kind == Gesture::Kind::Resize ? ColumnOf(gesture.fieldId) : nullptr;
    if (column != nullptr && gesture.hasMoved)
    {
        column->SetWidth(gesture.widthBefore);
    }
}

void HeaderMouse::SetHot(CPoint clientPoint)
{
    long const fieldId = FieldAt(clientPoint);
    if (fieldId != m_hotField)
    {
        m_hotField = fieldId;
        m_core.View().InvalidateHeader();
    }
}

void HeaderMouse::ClearHot()
{
    if (std::exchange(m_hotField, kNoField) != kNoField)
    {
        m_core.View().InvalidateHeader();
    }
}

void HeaderMouse::DescribePaintState(GridPaintState& state) const
{
    state.hotColumn = ColumnOf(m_hotField);
    state.headerCaptured = m_gesture.kind == Gesture::Kind::Click || m_gesture.kind == Gesture::Kind::Move;
    if (m_gesture.drop.IsPlace())
    {
        state.dropColumn = ColumnOf(m_gesture.drop.fieldId);
        state.columnDropX = m_gesture.drop.markX;
    }
}
} // namespace Ostrel::GUI::Detail
