// The mouse over the header: a click on a caption sorts, dragging it moves the column, dragging its right edge resizes
// it.
#pragma once

#include <ostrel/gui/grid/detail/HeaderDrag.h>
#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::GUI
{
class CColumn;
}

namespace Ostrel::GUI::Detail
{
class GridCore;
struct GridPaintState;

class HeaderMouse
{
public:
    explicit HeaderMouse(GridCore& core) noexcept : m_core(core) {}

    [[nodiscard]] bool IsOver(CPoint clientPoint) const;
    /// Whether a press there would resize a column.
    [[nodiscard]] bool IsOverEdge(CPoint clientPoint) const;

    void Press(CPoint clientPoint);
    void DoubleClick(CPoint clientPoint);
    void Move(CPoint clientPoint);
    void Release(CPoint clientPoint, bool shift, bool ctrl);
    void Cancel();
    /// While a column is dragged: scrolls the columns if the pointer is at an edge of the window or beyond it.
    void OnTimer();
    [[nodiscard]] bool IsActive() const noexcept { return m_gesture.kind != Gesture::Kind::None; }
    [[nodiscard]] bool IsResizing() const noexcept { return m_gesture.kind == Gesture::Kind::Resize; }

    /// The pointer is over the caption (kNoField: over none).
    void SetHot(CPoint clientPoint);
    void ClearHot();
    void DescribePaintState(GridPaintState& state) const;

private:
    struct Gesture
    {
        enum class Kind
        {
            None,
            Click,
            Move,
            Resize
        };
        Kind kind = Kind::None;
        long fieldId = -2;
        CPoint from;
        CPoint pointer; ///< of a moved column
        int widthBefore = 0;
        bool hasMoved = false;
        ColumnDrop drop{}; ///< where a moved column would go
    };

    void Resize(CPoint clientPoint);
    void BeginMove();
    void MoveTo(CPoint clientPoint);
    /// Around the header: farther above or below there is no place, so that a drag can be taken back.
    [[nodiscard]] CRect DropZone() const;
    /// The gesture that was going on.
    Gesture EndGesture();
    void DropColumn(Gesture const& gesture) const;
    [[nodiscard]] CColumn* ColumnWithEdgeAt(CPoint clientPoint) const;
    [[nodiscard]] CColumn* ColumnOf(long fieldId) const;
    [[nodiscard]] long FieldAt(CPoint clientPoint) const;

    GridCore& m_core;
    Gesture m_gesture;
    long m_hotField = -2;
};
} // namespace Ostrel::GUI::Detail
