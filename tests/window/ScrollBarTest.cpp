#include <ostrel/platform/drawing/SystemLook.h>

#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

/// A child at the screen's (100, 100), 200 x 300, whose vertical bar shows 10 of 100,000 positions.
class ScrollBarTest : public WindowTest
{
protected:
    ScrollBarTest()
    {
        parent.MakeTopLevel({100, 100, 400, 500});
        window.MakeChild(parent, {0, 0, 200, 300}, 1);
        SetVertical(0, 99999, 10);
        window.On(WM_VSCROLL, [this](WPARAM wParam, LPARAM) { Note(LOWORD(wParam)); });
        ProcessPending();
    }

    void SetVertical(int minimum, int maximum, UINT page, UINT extra = 0)
    {
        SCROLLINFO info;
        info.fMask = SIF_RANGE | SIF_PAGE | extra;
        info.nMin = minimum;
        info.nMax = maximum;
        info.nPage = page;
        window.SetScrollInfo(SB_VERT, &info);
    }
    void Note(int code)
    {
        char const* const names[] = {"up", "down", "pageup", "pagedown", "position", "track", "top", "bottom", "end"};
        codes += std::string(codes.empty() ? "" : " ") + names[code];
        SCROLLINFO info;
        window.GetScrollInfo(SB_VERT, &info, SIF_TRACKPOS);
        trackPosition = code == SB_THUMBTRACK || code == SB_THUMBPOSITION ? info.nTrackPos : trackPosition;
    }
    std::string TakeCodes() { return std::exchange(codes, {}); }
    [[nodiscard]] int ClientWidth() const
    {
        CRect client;
        window.GetClientRect(&client);
        return client.Width();
    }

    int const kBarX = 300 - GetSystemMetrics(SM_CXVSCROLL) / 2;
    int const kArrow = GetSystemMetrics(SM_CYVSCROLL);
    HookedWnd parent;
    HookedWnd window;
    std::string codes;
    int trackPosition = -1;
};

TEST_F(ScrollBarTest, BarsHideWhenThereIsNothingToScroll)
{
    int const barWidth = GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(ClientWidth(), 200 - barWidth);
    SetVertical(0, 9, 10);
    EXPECT_EQ(ClientWidth(), 200);
    SetVertical(0, 9, 10, SIF_DISABLENOSCROLL);
    EXPECT_EQ(ClientWidth(), 200 - barWidth);
    Click({kBarX, 105});
    EXPECT_EQ(TakeCodes(), "") << "a greyed bar does nothing";
}

TEST_F(ScrollBarTest, ValuesAreKeptInsideTheRange)
{
    struct Case
    {
        int minimum, maximum;
        UINT page;
        int wanted, kept;
    };
    Case const cases[] = {{0, 99, 10, 95, 90},
                          {0, 99, 0, 500, 99},
                          {-50, 50, 1, -80, -50},
                          {10, 5, 3, 7, 10},
                          {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 5, 0, 0}};
    for (Case const& step : cases)
    {
        SetVertical(step.minimum, step.maximum, step.page);
        window.SetScrollPos(SB_VERT, step.wanted);
        EXPECT_EQ(window.GetScrollPos(SB_VERT), step.kept) << step.minimum << ".." << step.maximum;
    }
    SCROLLINFO info;
    EXPECT_FALSE(window.GetScrollInfo(SB_HORZ, &info)) << "the window never had that bar";
}

TEST_F(ScrollBarTest, ArrowsScrollALineAndRepeatWhileTheyAreHeld)
{
    Press({kBarX, 100 + kArrow / 2});
    EXPECT_EQ(TakeCodes(), "up");
    TurnClock(390);
    EXPECT_EQ(TakeCodes(), "");
    TurnClock(60);
    EXPECT_EQ(TakeCodes(), "up up");
    MoveTo({kBarX, 250}); // off the arrow: pauses
    TurnClock(500);
    EXPECT_EQ(TakeCodes(), "");
    MoveTo({kBarX, 100 + kArrow / 2});
    TurnClock(50);
    EXPECT_EQ(TakeCodes(), "up");
    Release();
    EXPECT_EQ(TakeCodes(), "end");
    TurnClock(1000);
    EXPECT_EQ(TakeCodes(), "");
    EXPECT_EQ(CWnd::GetCapture(), nullptr);

    Click({kBarX, 400 - kArrow / 2});
    EXPECT_EQ(TakeCodes(), "down end");
}

TEST_F(ScrollBarTest, TrackScrollsAPageTowardsThePointer)
{
    Click({kBarX, 300});
    EXPECT_EQ(TakeCodes(), "pagedown end");
    window.SetScrollPos(SB_VERT, 99000);
    Click({kBarX, 200});
    EXPECT_EQ(TakeCodes(), "pageup end");
}

TEST_F(ScrollBarTest, ThumbTracksWithAllBitsOfItsPosition)
{
    int const thumbY = 100 + kArrow + 3;
    Press({kBarX, thumbY});
    MoveTo({kBarX, 1000}); // beyond the end
    EXPECT_EQ(trackPosition, 99990) << "past 16 bits";
    MoveTo({kBarX, thumbY + 50});
    EXPECT_GT(trackPosition, 10000);
    EXPECT_LT(trackPosition, 40000);
    int const shown = trackPosition;
    EXPECT_EQ(window.GetScrollPos(SB_VERT), 0) << "only the program moves the position";
    Release();
    EXPECT_EQ(trackPosition, shown);
    EXPECT_EQ(TakeCodes(), "track track position end");
}

TEST_F(ScrollBarTest, LosingTheCaptureEndsTheDragWithoutAPosition)
{
    Press({kBarX, 100 + kArrow + 3});
    MoveTo({kBarX, 200});
    ReleaseCapture();
    EXPECT_EQ(TakeCodes(), "track end");
    MoveTo({kBarX, 300});
    EXPECT_EQ(TakeCodes(), "");
}

TEST_F(ScrollBarTest, ThumbIsProportional)
{
    auto const thumbPixels = [this]
    {
        ProcessPending();
        COLORREF const track = Screen().ColorAt({kBarX, 400 - kArrow - 2});
        int count = 0;
        for (int y = 100 + kArrow; y < 400 - kArrow; ++y)
        {
            count += Screen().ColorAt({kBarX, y}) != track;
        }
        return count;
    };
    int const room = 300 - 2 * kArrow;
    SetVertical(0, 99, 50);
    EXPECT_NEAR(thumbPixels(), room / 2, 6);
    SetVertical(0, 99, 25);
    EXPECT_NEAR(thumbPixels(), room / 4, 6);
}

} // namespace
} // namespace Ostrel::Platform
