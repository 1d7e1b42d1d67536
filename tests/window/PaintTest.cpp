#include <ostrel/platform/drawing/Rgn.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kGreen = RGB(0, 200, 0);
constexpr COLORREF kBlue = RGB(0, 0, 200);

/// A window at (100, 100), 200 x 100.
class PaintTest : public WindowTest
{
protected:
    PaintTest()
    {
        parent.color = kRed;
        parent.MakeTopLevel({100, 100, 300, 200});
        ProcessPending();
    }
    /// In the parent's client area, as a person sees it.
    COLORREF ColorAt(int x, int y) { return Screen().ColorAt({100 + x, 100 + y}); }
    HeadlessWindow& Native() { return static_cast<HeadlessWindow&>(*NativeWindowOf(parent)); }

    HookedWnd parent;
};

TEST_F(PaintTest, ChildrenAndSiblingsKeepToTheirPlaces)
{
    HookedWnd low;
    HookedWnd high;
    low.color = kGreen;
    high.color = kBlue;
    low.MakeChild(parent, {10, 10, 60, 60});
    high.MakeChild(parent, {40, 40, 250, 90}); // reaches beyond the parent
    ProcessPending();
    EXPECT_EQ(ColorAt(5, 5), kRed);
    EXPECT_EQ(ColorAt(10, 10), kGreen);
    EXPECT_EQ(ColorAt(45, 45), kBlue);
    EXPECT_EQ(ColorAt(199, 50), kBlue);

    low.color = kRed;
    low.Invalidate();
    ProcessPending();
    EXPECT_EQ(ColorAt(39, 39), kRed);
    EXPECT_EQ(ColorAt(45, 45), kBlue) << "a window below must not paint over the one above";

    low.BringWindowToTop();
    ProcessPending();
    EXPECT_EQ(ColorAt(45, 45), kRed);
}

TEST_F(PaintTest, BordersAreAsWideAsTheSpaceForThem)
{
    for (double const scale : {1.0, 2.0})
    {
        SetScale(scale);
        for (bool const isField : {false, true})
        {
            HookedWnd child;
            child.color = kGreen;
            ASSERT_TRUE(child.CreateEx(isField ? WS_EX_CLIENTEDGE : 0, nullptr, "",
                                       WS_CHILD | WS_VISIBLE | (isField ? 0 : WS_BORDER), CRect(10, 10, 60, 60),
                                       &parent, 0));
            ProcessPending();
            CPoint inside;
            child.ClientToScreen(&inside);
            int const width = inside.x - 110;
            EXPECT_GE(width, 1);
            EXPECT_EQ(ColorAt(10, 30), GetSysColor(COLOR_WINDOWFRAME));
            EXPECT_EQ(ColorAt(10 + width - 1, 30), GetSysColor(isField ? COLOR_WINDOW : COLOR_WINDOWFRAME));
            EXPECT_EQ(ColorAt(59 - (width - 1), 30), GetSysColor(isField ? COLOR_WINDOW : COLOR_WINDOWFRAME));
            EXPECT_EQ(ColorAt(10 + width, 30), kGreen);
        }
    }
    SetScale(1);
}

TEST_F(PaintTest, ClipChildrenLeavesThemAlone)
{
    for (DWORD const style : {DWORD{0}, WS_CLIPCHILDREN})
    {
        HookedWnd child;
        child.color = kGreen;
        child.MakeChild(parent, {10, 10, 60, 60});
        parent.ModifyStyle(WS_CLIPCHILDREN, style);
        ProcessPending();
        int const before = child.paintCount;
        parent.Invalidate();
        ProcessPending();
        EXPECT_EQ(ColorAt(20, 20), kGreen);
        EXPECT_EQ(child.paintCount - before, style == 0 ? 1 : 0);
    }
}

TEST_F(PaintTest, HidingMovingAndEndingChildrenShowsWhatWasBelow)
{
    HookedWnd child;
    child.color = kGreen;
    child.MakeChild(parent, {10, 10, 60, 60});
    ProcessPending();
    child.MoveWindow(100, 10, 50, 50);
    ProcessPending();
    EXPECT_EQ(ColorAt(20, 20), kRed);
    EXPECT_EQ(ColorAt(110, 20), kGreen);
    child.ShowWindow(SW_HIDE);
    ProcessPending();
    EXPECT_EQ(ColorAt(110, 20), kRed);
    child.ShowWindow(SW_SHOW);
    ProcessPending();
    EXPECT_EQ(ColorAt(110, 20), kGreen);
    child.DestroyWindow();
    ProcessPending();
    EXPECT_EQ(ColorAt(110, 20), kRed);
}

TEST_F(PaintTest, UpdateRegionsMergeAndEmptyWithThePaint)
{
    int const before = parent.paintCount;
    CRect const first(10, 10, 20, 20);
    CRect const second(50, 50, 60, 60);
    parent.InvalidateRect(&first);
    parent.InvalidateRect(&second);
    CRgn region;
    EXPECT_EQ(parent.GetUpdateRgn(&region), COMPLEXREGION);
    EXPECT_EQ(region.GetRegion().Rects().size(), 2U);
    parent.ValidateRect(&second);
    CRect bounds;
    EXPECT_TRUE(parent.GetUpdateRect(&bounds));
    EXPECT_EQ(bounds, first);

    parent.color = kBlue;
    ProcessPending();
    EXPECT_EQ(parent.paintCount, before + 1);
    EXPECT_EQ(parent.lastPaint, first);
    EXPECT_EQ(ColorAt(15, 15), kBlue);
    EXPECT_EQ(ColorAt(25, 25), kRed) << "painting is clipped to what was invalid";
    EXPECT_FALSE(parent.GetUpdateRect(&bounds));
    EXPECT_EQ(parent.GetUpdateRgn(&region), NULLREGION);
}

TEST_F(PaintTest, OnlyWhatWasDrawnIsPresented)
{
    std::int64_t const before = Native().PresentedPixels();
    int const presents = Native().PresentCount();
    CRect const small(10, 10, 20, 20);
    parent.InvalidateRect(&small);
    ProcessPending();
    ProcessPending();
    EXPECT_EQ(Native().PresentedPixels() - before, 100);
    EXPECT_EQ(Native().PresentCount() - presents, 1);
}

TEST_F(PaintTest, HiddenWindowsCollectNothing)
{
    HookedWnd child;
    child.MakeChild(parent, {10, 10, 60, 60}, 0, WS_CHILD);
    child.Invalidate();
    ProcessPending();
    EXPECT_EQ(child.paintCount, 0);
    EXPECT_FALSE(child.GetUpdateRect(nullptr));
    CClientDC dc(&child);
    dc.FillSolidRect(CRect(0, 0, 50, 50), kGreen);
    PresentNow();
    EXPECT_EQ(ColorAt(20, 20), kRed);
}

/// Paints rows of ten pixels whose colour tells their number.
void PaintRows(CWnd& window, int firstRow)
{
    CClientDC dc(&window);
    for (int row = 0; row < 10; ++row)
    {
        dc.FillSolidRect(CRect(0, row * 10, 200, row * 10 + 10), RGB(firstRow + row, 0, 0));
    }
}

TEST_F(PaintTest, ScrollWindowMovesPixelsAndAsksForTheStripOnly)
{
    struct Case
    {
        int dy;
        CRect clip;
        CRect uncovered;
        int probe; ///< y of a moved pixel
        int row;   ///< the row that must be there
    };
    Case const cases[] = {{-20, {0, 0, 200, 100}, {0, 80, 200, 100}, 5, 2},
                          {30, {0, 0, 200, 100}, {0, 0, 200, 30}, 95, 6},
                          {-10, {0, 30, 200, 80}, {0, 70, 200, 80}, 35, 4},
                          {10, {50, 30, 150, 80}, {50, 30, 150, 40}, 75, 6},
                          {-500, {0, 0, 200, 100}, {0, 0, 200, 100}, -1, 0}};
    for (Case const& step : cases)
    {
        parent.ValidateRect(nullptr);
        PaintRows(parent, 0);
        parent.ScrollWindow(0, step.dy, &step.clip, &step.clip);
        CRect bounds;
        EXPECT_TRUE(parent.GetUpdateRect(&bounds));
        EXPECT_EQ(bounds, step.uncovered) << step.dy;
        PresentNow();
        if (step.probe >= 0)
        {
            EXPECT_EQ(ColorAt(100, step.probe), RGB(step.row, 0, 0)) << step.dy;
        }
        EXPECT_EQ(ColorAt(0, step.clip.top > 0 ? 25 : 99),
                  RGB(step.clip.top > 0 ? 2 : GetRValue(ColorAt(0, 99)), 0, 0));
        parent.ValidateRect(nullptr);
    }
}

TEST_F(PaintTest, WhatWaitsToBePaintedMovesAlongWhenScrolling)
{
    PaintRows(parent, 0);
    CRect const stale(0, 50, 200, 60);
    parent.InvalidateRect(&stale);
    parent.ScrollWindow(0, -20);
    Region region;
    ASSERT_TRUE(GetUpdateRegion(parent, region));
    EXPECT_TRUE(region.Contains(CRect(0, 30, 200, 40)));
    EXPECT_TRUE(region.Contains(CRect(0, 80, 200, 100)));
    EXPECT_FALSE(region.Intersects(CRect(0, 40, 200, 80))) << "the old place holds good pixels now";
}

TEST_F(PaintTest, ScrollingMovesChildrenAlong)
{
    HookedWnd child;
    child.color = kGreen;
    child.MakeChild(parent, {10, 50, 60, 80});
    ProcessPending();
    int const paints = child.paintCount;
    parent.ScrollWindow(0, -30);
    ProcessPending();
    EXPECT_EQ(ColorAt(20, 25), kGreen);
    EXPECT_EQ(ColorAt(20, 60), kRed);
    EXPECT_EQ(child.paintCount, paints) << "its pixels came along";
    CRect const part(100, 0, 200, 100);
    parent.ScrollWindow(0, 10, &part, &part);
    CRect place;
    child.GetWindowRect(&place);
    EXPECT_EQ(place, CRect(110, 120, 160, 150)) << "scrolling a part moves no child";
}

TEST_F(PaintTest, EraseComesBeforePaintAndOnlyWhenAskedFor)
{
    std::string log;
    MessageLog const noted(parent, "", {{WM_ERASEBKGND, "erase"}, {WM_PAINT, "paint"}}, log);
    parent.Invalidate(FALSE);
    ProcessPending();
    EXPECT_EQ(std::exchange(log, {}), "paint");
    parent.Invalidate();
    parent.UpdateWindow();
    EXPECT_EQ(log, "paint erase");
}

TEST_F(PaintTest, ResizingRepaintsAndTells)
{
    CSize told;
    parent.On(WM_SIZE, [&](WPARAM, LPARAM lParam) { told = CPoint(lParam) - CPoint(0, 0); });
    Screen().ResizeByUser(Native(), {100, 100, 500, 400});
    ProcessPending();
    EXPECT_EQ(told, CSize(400, 300));
    EXPECT_EQ(ColorAt(399, 299), kRed);
    EXPECT_EQ(Screen().ColorAt({501, 401}), HeadlessDisplay::kBackdrop);
}

} // namespace
} // namespace Ostrel::Platform
