#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

/// A top-level window at (100, 100) with two children side by side, each 100 x 100.
class InputTest : public WindowTest
{
protected:
    InputTest()
    {
        parent.MakeTopLevel({100, 100, 300, 200});
        left.MakeChild(parent, {0, 0, 100, 100}, 1);
        right.MakeChild(parent, {100, 0, 200, 100}, 2);
        ProcessPending();
    }

    /// Notes messages of the two children with their client point.
    void LogMouse()
    {
        for (HookedWnd* const window : {&left, &right})
        {
            window->hook = [this, window](UINT message, WPARAM, LPARAM lParam, LRESULT&)
            {
                for (auto const& [number, name] : kNames)
                {
                    if (number == message)
                    {
                        CPoint const at(lParam);
                        bool const hasPlace = message != WM_MOUSELEAVE && message != WM_CAPTURECHANGED;
                        log += window == &left ? "left." : "right.";
                        log += name + (hasPlace ? "(" + std::to_string(at.x) + "," + std::to_string(at.y) + ") " : " ");
                    }
                }
                return false;
            };
        }
    }
    std::string TakeLog() { return std::exchange(log, {}); }

    std::vector<std::pair<UINT, std::string>> const kNames{
        {WM_MOUSEMOVE, "move"},   {WM_LBUTTONDOWN, "down"}, {WM_LBUTTONUP, "up"},       {WM_LBUTTONDBLCLK, "double"},
        {WM_MOUSELEAVE, "leave"}, {WM_MOUSEHOVER, "hover"}, {WM_CAPTURECHANGED, "lost"}};
    HookedWnd parent;
    HookedWnd left;
    HookedWnd right;
    std::string log;
};

TEST_F(InputTest, MouseGoesToTheWindowBelowItOrToTheCapture)
{
    LogMouse();
    MoveTo({110, 120});
    MoveTo({210, 120});
    EXPECT_EQ(TakeLog(), "left.move(10,20) right.move(10,20) ");

    left.SetCapture();
    MoveTo({220, 120});
    MoveTo({90, 500}); // outside of every window
    EXPECT_EQ(TakeLog(), "left.move(120,20) left.move(-10,400) ");

    right.SetCapture();
    EXPECT_EQ(TakeLog(), "left.lost ");
    right.ShowWindow(SW_HIDE);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_EQ(TakeLog(), "right.lost ");
}

TEST_F(InputTest, SecondPressCountsAsDoubleClickOnlyNearAndSoon)
{
    LogMouse();
    struct Case
    {
        int delayMs;
        int distance;
        char const* expected;
    };
    Case const cases[] = {{400, 0, "double"}, {600, 0, "down"}, {100, 30, "down"}, {100, 1, "double"}};
    for (Case const& step : cases)
    {
        Click({150, 150});
        TurnClock(step.delayMs);
        MoveTo({150 + step.distance, 150});
        TakeLog();
        Click({150 + step.distance, 150});
        EXPECT_NE(TakeLog().find(step.expected), std::string::npos) << step.delayMs << " ms, " << step.distance;
        TurnClock(2000);
    }
    // Three quick presses are a double click and a single one.
    Click({150, 150});
    Click({150, 150});
    TakeLog();
    Click({150, 150});
    EXPECT_NE(TakeLog().find("down"), std::string::npos);
}

TEST_F(InputTest, HoverAndLeaveComeOnceWhenAskedFor)
{
    LogMouse();
    MoveTo({110, 120});
    TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_HOVER | TME_LEAVE, left, 300};
    EXPECT_TRUE(TrackMouseEvent(&track));
    TakeLog();
    TurnClock(200);
    MoveTo({130, 120}); // moving starts the rest anew
    TurnClock(200);
    EXPECT_EQ(TakeLog(), "left.move(30,20) ");
    TurnClock(100);
    EXPECT_EQ(TakeLog(), "left.hover(30,20) ");
    TurnClock(1000);
    MoveTo({210, 120});
    MoveTo({110, 120});
    MoveTo({210, 120});
    EXPECT_EQ(TakeLog(), "left.leave right.move(10,20) left.move(10,20) right.move(10,20) ");

    EXPECT_TRUE(TrackMouseEvent(&track)); // the pointer is not over it
    ProcessPending();
    EXPECT_EQ(TakeLog(), "left.leave ");
}

TEST_F(InputTest, FocusIsToldToBothAndFollowsClicksOnlyWhenTheyAskForIt)
{
    std::string text;
    std::vector<std::pair<UINT, std::string>> const names{{WM_SETFOCUS, "gets"}, {WM_KILLFOCUS, "loses"}};
    left.SetFocus();
    MessageLog const leftLog(left, "left-", names, text);
    MessageLog const rightLog(right, "right-", names, text);
    right.SetFocus();
    EXPECT_EQ(std::exchange(text, {}), "left-loses right-gets");

    Click({110, 110});
    EXPECT_EQ(text, "") << "a click alone moves no focus";

    right.ShowWindow(SW_HIDE);
    EXPECT_EQ(std::exchange(text, {}), "right-loses");
    EXPECT_EQ(CWnd::GetFocus(), &parent);
    right.ShowWindow(SW_SHOW);
    right.EnableWindow(FALSE);
    right.SetFocus();
    EXPECT_EQ(CWnd::GetFocus(), &parent) << "a disabled window takes no focus";
}

TEST_F(InputTest, ActivationComesBackToTheWindowThatHadTheFocus)
{
    left.SetFocus();
    HookedWnd other;
    other.MakeTopLevel({400, 100, 500, 200});
    ProcessPending();
    EXPECT_EQ(CWnd::GetFocus(), &other);
    Click({250, 150});
    EXPECT_EQ(CWnd::GetActiveWindow(), &parent);
    EXPECT_EQ(CWnd::GetFocus(), &left);

    Screen().LeaveProgram();
    ProcessPending();
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
    Screen().ReturnToProgram();
    ProcessPending();
    EXPECT_EQ(CWnd::GetFocus(), &left);
}

TEST_F(InputTest, DisabledWindowsTakeNoInput)
{
    LogMouse();
    left.EnableWindow(FALSE);
    left.SetFocus();
    Click({110, 110});
    EXPECT_EQ(TakeLog(), "");
    parent.EnableWindow(FALSE);
    right.On(WM_LBUTTONDOWN, [](WPARAM, LPARAM) { ADD_FAILURE(); });
    Click({210, 110});
}

TEST_F(InputTest, KeysComeWithStateAndTheirCharactersByteByByte)
{
    std::string text;
    right.SetFocus();
    ProcessPending();
    right.hook = [&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&)
    {
        if (message == WM_KEYDOWN)
        {
            text += "down" + std::to_string(wParam) + (GetKeyState(VK_SHIFT) < 0 ? "+shift" : "") +
                    ((lParam & (1 << 30)) != 0 ? "+again " : " ");
        }
        if (message == WM_CHAR)
        {
            text += "char" + std::to_string(wParam) + " ";
        }
        return false;
    };
    Screen().KeyDown(VK_DOWN);
    Screen().KeyDown(VK_DOWN);
    Screen().KeyUp(VK_DOWN);
    ProcessPending();
    EXPECT_EQ(std::exchange(text, {}), "down40 down40+again ");

    Screen().TypeText("aB\xC3\xBC");
    ProcessPending();
    EXPECT_EQ(std::exchange(text, {}), "down65 char97 down16+shift down66+shift char66 down231 char195 char188 ");

    Screen().KeyDown(VK_CONTROL);
    Screen().PressKey('C');
    Screen().KeyUp(VK_CONTROL);
    ProcessPending();
    EXPECT_EQ(text, "down17 down67 char3 ");
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
}

TEST_F(InputTest, AltMakesSystemKeys)
{
    std::string text;
    right.SetFocus();
    MessageLog const noted(right, "", {{WM_KEYDOWN, "key"}, {WM_SYSKEYDOWN, "system"}, {WM_SYSCHAR, "char"}}, text);
    Screen().KeyDown(VK_MENU);
    Screen().PressKey('X');
    Screen().KeyUp(VK_MENU);
    Screen().PressKey('X');
    ProcessPending();
    EXPECT_EQ(text, "system system char key");
}

TEST_F(InputTest, WheelGoesToTheWindowBelowThePointerAndUpUntilSomebodyTakesIt)
{
    int parentDelta = 0;
    parent.On(WM_MOUSEWHEEL, [&](WPARAM wParam, LPARAM) { parentDelta += GET_WHEEL_DELTA_WPARAM(wParam); });
    left.SetFocus();
    MoveTo({210, 110});
    Screen().Wheel(-240);
    ProcessPending();
    EXPECT_EQ(parentDelta, -240);
    right.hook = [](UINT message, WPARAM, LPARAM, LRESULT&) { return message == WM_MOUSEWHEEL; };
    Screen().Wheel(120);
    ProcessPending();
    EXPECT_EQ(parentDelta, -240);
}

TEST_F(InputTest, CursorIsTheWindowsOwnOrItsClass)
{
    right.hook = [](UINT message, WPARAM, LPARAM, LRESULT& result)
    {
        if (message == WM_SETCURSOR)
        {
            SetCursor(LoadCursor(nullptr, IDC_SIZEWE));
            result = TRUE;
        }
        return message == WM_SETCURSOR;
    };
    MoveTo({210, 110});
    EXPECT_EQ(Screen().Cursor(), CursorShape::SizeWE);
    MoveTo({110, 110});
    EXPECT_EQ(Screen().Cursor(), CursorShape::Arrow);
    SetCursor(nullptr);
    EXPECT_EQ(Screen().Cursor(), CursorShape::Hidden);
}

TEST_F(InputTest, RefusedActivationKeepsTheOtherWindowActive)
{
    HookedWnd palette;
    ASSERT_TRUE(
        palette.CreateEx(WS_EX_NOACTIVATE, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(400, 300, 500, 400), &parent, 0));
    parent.SetFocus();
    ProcessPending();
    int presses = 0;
    palette.On(WM_LBUTTONDOWN, [&](WPARAM, LPARAM) { ++presses; });
    Click({450, 350});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(CWnd::GetActiveWindow(), &parent);
    EXPECT_EQ(CWnd::GetFocus(), &parent);
}

TEST_F(InputTest, PointsMapBetweenWindowsAndFindThem)
{
    CPoint point(5, 6);
    right.ClientToScreen(&point);
    EXPECT_EQ(point, CPoint(205, 106));
    left.ScreenToClient(&point);
    EXPECT_EQ(point, CPoint(105, 6));
    EXPECT_EQ(CWnd::WindowFromPoint(CPoint(205, 106)), &right);
    EXPECT_EQ(CWnd::WindowFromPoint(CPoint(700, 500)), nullptr);
    EXPECT_EQ(parent.ChildWindowFromPoint(CPoint(150, 50)), &right);
    right.ShowWindow(SW_HIDE);
    EXPECT_EQ(CWnd::WindowFromPoint(CPoint(205, 106)), &parent);
    EXPECT_EQ(parent.ChildWindowFromPoint(CPoint(150, 50), CWP_SKIPINVISIBLE), &parent);
}

} // namespace
} // namespace Ostrel::Platform
