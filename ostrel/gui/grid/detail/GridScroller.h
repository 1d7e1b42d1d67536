// Which scrollable row is the first on the screen, and everything that changes that: the scroll bars, the wheel,
// scrolling into view, and rows that come and go.
#pragma once

#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridScroller
{
public:
    explicit GridScroller(GridCore& core) noexcept : m_core(core) {}

    /// -1 while there is no scrollable row.
    [[nodiscard]] int FirstRow() const;
    void SetFirstRow(int row);
    /// Pixels by which the scrollable columns are moved left.
    [[nodiscard]] int HorizontalPosition() const;
    void SetHorizontalPosition(int position);
    /// Repaints when the position is no longer that of before.
    void OnHorizontalPosition(int before);

    /// SB_ commands. thumb: the low 16 bits of the thumb's place, which the scroll bar knows whole.
    void OnVerticalScroll(int command, int thumb = 0);
    void OnHorizontalScroll(int command, int thumb = 0);
    void OnWheel(int delta);
    /// Asks how far the user wants a notch of the wheel to scroll.
    void ReadWheelLines();

    // --- Scrolling into view: at once the first time after a paint, merged until the next paint afterwards ---
    void EnsureVisible(int row);
    void EnsureVisible(CGridItem& item);
    void OnEnsureVisibleTimer();
    void OnPainted() noexcept { m_hasScrolledIntoView = false; }

    // --- When rows come and go ---

    /// In a calm view the row that is to stay the first one, null otherwise. To be asked before rows change.
    [[nodiscard]] CGridItem* Anchor() const;
    /// The scrollable rows have changed from changedRow on; the anchor is the answer from before (null keeps the row
    /// number).
    void OnRowsChanged(int changedRow, CGridItem* anchor);
    /// As OnRowsChanged for one row that went from one place to another.
    void OnRowMoved(RowMove const& move, CGridItem* anchor);

    // --- Scroll bars ---
    void UpdateBars();
    /// Once for any number of calls before the message comes back.
    void PostUpdateBars();
    void OnPostedUpdateBars();
    void OnResized();
    /// The grid may get another window.
    void OnDestroy() noexcept;

private:
    [[nodiscard]] int ThumbPosition(int bar, int thumb) const;
    void ApplyFirstRow(int row);
    void ForgetTarget();
    void ScrollPixels(int rowsUp);
    void UpdateVerticalBar();
    void UpdateHorizontalBar();
    void DropNeedlessBars();

    struct Bar
    {
        int last = -1;
        int page = -1;
        int position = -1;

        friend bool operator==(Bar const&, Bar const&) = default;
    };
    void SetBar(int which, Bar const& wanted, Bar& present);

    GridCore& m_core;
    int m_firstRow = 0;
    UINT m_wheelLines = 3; ///< a notch, or WHEEL_PAGESCROLL
    Bar m_vertical;
    Bar m_horizontal;
    bool m_hasScrolledIntoView = false;
    int m_targetRow = -1;              ///< recorded for the timer
    CGridItem* m_targetItem = nullptr; ///< recorded for the timer; checked before use
    bool m_isUpdatePosted = false;
};
} // namespace Ostrel::GUI::Detail
