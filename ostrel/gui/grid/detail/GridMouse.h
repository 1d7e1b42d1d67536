// The mouse over the rows: clicks that select and focus, expand buttons, and selecting by dragging over rows, with the
// rubber band and with scrolling while the pointer is outside. What happens over the header goes to HeaderMouse.
#pragma once

#include <ostrel/gui/grid/detail/GridSelection.h>
#include <ostrel/gui/grid/detail/HeaderMouse.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI::Detail
{
class GridMouse
{
public:
    explicit GridMouse(GridCore& core) noexcept : m_core(core), m_header(core) {}

    void OnLeftDown(CPoint clientPoint, WPARAM keys, bool isDoubleClick);
    void OnMove(CPoint clientPoint);
    void OnLeftUp(CPoint clientPoint, WPARAM keys);
    /// Ends a drag in the header without its effect. False when there is none.
    bool CancelHeaderGesture();
    void OnLeave() { m_header.ClearHot(); }
    /// The capture went elsewhere: whatever was going on ends.
    void OnCaptureLost();
    /// Selecting with the pointer outside the rows, or dragging a column at the window's edge.
    void OnTimer();
    /// True when it has set the cursor.
    bool OnSetCursor();

    [[nodiscard]] bool IsPressed() const noexcept { return m_isPressed; }
    /// In client pixels, empty while nothing is being selected by dragging.
    [[nodiscard]] CRect RubberBand() const;
    void DescribePaintState(GridPaintState& state) const;

private:
    using Place = GridSelection::Place;
    /// A row that a gesture holds on to while rows come and go around it.
    struct Hold
    {
        Place place;
        CGridItem* item = nullptr;
    };

    [[nodiscard]] bool IsOnExpandButton(CPoint clientPoint, CGridItem const& item, CRect const& rowRect) const;
    bool PressExpandButton(CPoint clientPoint, Place place);
    [[nodiscard]] bool WaitsForRelease(Place place, WPARAM keys) const;
    void Click(Place place, bool shift, bool ctrl);
    void ClickPlain(Place place);
    void ClickWithShift(Place place);
    void ClickWithCtrl(Place place);

    void BeginTracking();
    void Track(CPoint clientPoint);
    void ExtendTo(Place place);
    void EndTracking();
    [[nodiscard]] bool IsPointerOutside() const;
    /// Moves the rows under the pointer step by step, or no longer.
    void ScrollFromNowOn(bool scroll);
    /// The row that the pointer stands for while selecting: outside, the nearest shown one.
    [[nodiscard]] Place PlaceNear(CPoint clientPoint) const;
    [[nodiscard]] Hold HoldOn(Place place) const;
    /// Where the row is now; where it was when it has gone.
    [[nodiscard]] Place PlaceNow(Hold const& hold) const;
    [[nodiscard]] int SequenceOf(Place place) const;
    [[nodiscard]] Place PlaceOf(int sequence) const;
    void MoveBand(CPoint to);

    GridCore& m_core;
    HeaderMouse m_header;
    bool m_isPressed = false;
    bool m_mayTrack = false;   ///< the press was on a row and may become a selection by dragging
    bool m_isClickDue = false; ///< the press changed nothing yet, since it may begin a drag of the selected rows
    bool m_isTracking = false;
    bool m_isScrolling = false;
    CPoint m_pressPoint;
    CPoint m_pointer;
    Hold m_pressed;
    Hold m_tracked;
};
} // namespace Ostrel::GUI::Detail
