#include <ostrel/platform/window/FrameWnd.h>

#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

using WindowLifeTest = WindowTest;

TEST_F(WindowLifeTest, TellsItsLifeInOrderParentsFirstChildrenFirstAtTheEnd)
{
    std::string log;
    std::vector<std::pair<UINT, std::string>> const names{{WM_DESTROY, "destroy"}, {WM_NCDESTROY, "gone"}};
    HookedWnd parent;
    parent.MakeTopLevel({0, 0, 200, 100});
    HookedWnd child;
    child.MakeChild(parent, {0, 0, 50, 50});
    MessageLog const parentLog(parent, "parent-", names, log);
    MessageLog const childLog(child, "child-", names, log);

    parent.DestroyWindow();
    EXPECT_EQ(log, "parent-destroy child-destroy child-gone parent-gone");
    EXPECT_EQ(child.m_hWnd, nullptr);
}

TEST_F(WindowLifeTest, StaleHandlesAreRecognisedWhenTheirPlaceServesAnotherWindow)
{
    HookedWnd parent;
    parent.MakeTopLevel({0, 0, 200, 100});
    HookedWnd first;
    first.MakeChild(parent, {0, 0, 10, 10}, 5);
    HWND const stale = first;
    first.DestroyWindow();
    // Slots come back into use after some thousand windows.
    for (int number = 0; number < 3000; ++number)
    {
        HookedWnd other;
        other.MakeChild(parent, {0, 0, 10, 10}, 5);
        ASSERT_NE(other.m_hWnd, stale);
    }
    RECT rect{1, 1, 1, 1};
    EXPECT_FALSE(IsWindow(stale));
    EXPECT_FALSE(::PostMessage(stale, WM_NULL));
    EXPECT_FALSE(::SetWindowText(stale, "x"));
    EXPECT_FALSE(::GetClientRect(stale, &rect));
    EXPECT_TRUE(CRect(rect).IsRectNull());
    EXPECT_EQ(::SetTimer(stale, 1, 10), 0U);
    EXPECT_EQ(::GetParent(stale), nullptr);
    EXPECT_FALSE(IsWindow(reinterpret_cast<HWND>(std::uintptr_t{0x123456789ABCDEF0})));
}

TEST_F(WindowLifeTest, RefusedCreationLeavesNothing)
{
    HookedWnd parent;
    parent.MakeTopLevel({0, 0, 200, 100});
    for (UINT const refused : {WM_NCCREATE, WM_CREATE})
    {
        HookedWnd child;
        child.hook = [&](UINT message, WPARAM, LPARAM, LRESULT& result)
        {
            result = refused == WM_CREATE ? -1 : 0;
            return message == refused;
        };
        EXPECT_FALSE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 10, 10), &parent, 1));
        EXPECT_EQ(child.m_hWnd, nullptr);
    }
    EXPECT_EQ(::GetWindow(parent, GW_CHILD), nullptr);
    EXPECT_EQ(CreateWindowEx(0, "no such class", "", 0, 0, 0, 1, 1, nullptr, 0), nullptr);
    EXPECT_EQ(CreateWindowEx(0, "Ostrel.Window", "", WS_CHILD, 0, 0, 1, 1, nullptr, 0), nullptr);
}

// ---- subclassing

WNDPROC g_before;
std::string g_chain;

LRESULT Outer(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_chain += message == WM_APP ? "outer " : "";
    return CallWindowProc(g_before, window, message, wParam, lParam);
}

LRESULT Plain(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_chain += message == WM_APP ? "class" : "";
    return DefWindowProc(window, message, wParam, lParam);
}

TEST_F(WindowLifeTest, SubclassedProceduresCallWhatTheyReplaced)
{
    WNDCLASS plain;
    plain.lpszClassName = "Ostrel.Test.Plain";
    plain.lpfnWndProc = &Plain;
    RegisterClass(&plain);
    EXPECT_EQ(RegisterClass(&plain), 0) << "a name is registered once";
    HookedWnd parent;
    parent.MakeTopLevel({0, 0, 200, 100});
    HWND const window = CreateWindowEx(0, "Ostrel.Test.Plain", "", WS_CHILD, 0, 0, 9, 9, parent, 3);

    HookedWnd object;
    ASSERT_TRUE(object.SubclassWindow(window));
    EXPECT_EQ(CWnd::FromHandle(window), &object);
    EXPECT_FALSE(HookedWnd().SubclassWindow(window)) << "a window has one object";
    object.On(WM_APP, [](WPARAM, LPARAM) { g_chain += "object "; });
    g_before = reinterpret_cast<WNDPROC>(SetWindowLongPtr(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Outer)));
    g_chain.clear();
    ::SendMessage(window, WM_APP);
    EXPECT_EQ(g_chain, "outer object class");

    SetWindowLong(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(g_before));
    object.UnsubclassWindow();
    g_chain.clear();
    ::SendMessage(window, WM_APP);
    EXPECT_EQ(g_chain, "class");
    EXPECT_TRUE(IsWindow(window)) << "the window outlives its object";
}

TEST_F(WindowLifeTest, NotificationsGoToTheParentAndComeBackToTheChildFirst)
{
    class Reflecting : public HookedWnd
    {
    public:
        int seen = 0;
        bool handles = false;

    protected:
        BOOL OnChildNotify(UINT message, WPARAM, LPARAM, LRESULT* result) override
        {
            seen += message == WM_NOTIFY;
            *result = 42;
            return handles;
        }
    };
    HookedWnd parent;
    parent.MakeTopLevel({0, 0, 200, 100});
    Reflecting child;
    child.MakeChild(parent, {0, 0, 50, 50}, 8);
    NMHDR header{child, 8, NM_CLICK};
    auto const parameter = reinterpret_cast<LPARAM>(&header);

    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 8, parameter), 0);
    child.handles = true;
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 8, parameter), 42);
    EXPECT_EQ(child.seen, 2);
}

// ---- ending inside handlers

/// Deletes itself with its window.
class Mortal : public HookedWnd
{
public:
    explicit Mortal(int& alive) : m_alive(alive) { ++m_alive; }
    ~Mortal() override { --m_alive; }

protected:
    void PostNcDestroy() override { delete this; }

private:
    int& m_alive;
};

class EndInHandlerTest : public WindowLifeTest, public testing::WithParamInterface<UINT>
{};

TEST_P(EndInHandlerTest, AWindowMayDestroyItselfAndItsObject)
{
    UINT const fatal = GetParam();
    int alive = 0;
    HookedWnd parent;
    parent.MakeTopLevel({100, 100, 300, 200});
    auto* const mortal = new Mortal(alive);
    mortal->MakeChild(parent, {0, 0, 100, 100}, 4, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
    HWND const handle = *mortal;
    parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&)
    {
        if (message == WM_NOTIFY && fatal == WM_NOTIFY)
        {
            ::DestroyWindow(reinterpret_cast<NMHDR const*>(lParam)->hwndFrom);
        }
        return false;
    };
    mortal->hook = [handle, fatal, &parent](UINT message, WPARAM, LPARAM, LRESULT&)
    {
        HWND const above = parent;
        if (message == WM_LBUTTONUP && fatal == WM_NOTIFY)
        {
            NMHDR header{handle, 4, NM_CLICK};
            ::SendMessage(above, WM_NOTIFY, 4, reinterpret_cast<LPARAM>(&header));
            return true;
        }
        bool const dies = message == fatal;
        if (dies)
        {
            ::DestroyWindow(handle);
        }
        return dies;
    };
    SCROLLINFO info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = 100;
    info.nPage = 10;
    mortal->SetScrollInfo(SB_VERT, &info);
    mortal->SetTimer(1, 10);
    mortal->SetFocus();
    TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_HOVER | TME_LEAVE, handle, 20};
    MoveTo({150, 150});
    TrackMouseEvent(&track);
    TurnClock(50);
    Click({150, 150});
    Screen().PressKey('A');
    Screen().Wheel(120);
    Click({195, 195}); // an arrow of the scroll bar
    MoveTo({700, 500});
    ::InvalidateRect(handle, nullptr);
    ProcessPending();
    parent.SetFocus();
    ::DestroyWindow(handle);
    ProcessPending();

    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(IsWindow(handle));
}

INSTANTIATE_TEST_SUITE_P(Messages, EndInHandlerTest,
                         testing::Values(WM_NOTIFY, WM_TIMER, WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_KEYDOWN,
                                         WM_CHAR, WM_MOUSEWHEEL, WM_VSCROLL, WM_PAINT, WM_ERASEBKGND, WM_NCPAINT,
                                         WM_SETFOCUS, WM_KILLFOCUS, WM_MOUSELEAVE, WM_MOUSEHOVER, WM_SETCURSOR,
                                         WM_NCHITTEST, WM_MOUSEACTIVATE, WM_CAPTURECHANGED, WM_DESTROY));

TEST_F(WindowLifeTest, OwnedWindowsDieWithTheirOwner)
{
    HookedWnd owner;
    owner.MakeTopLevel({0, 0, 200, 100});
    HookedWnd popup;
    ASSERT_TRUE(popup.CreateEx(0, nullptr, "", WS_POPUP, CRect(10, 10, 50, 50), &owner, 0));
    EXPECT_EQ(popup.GetParent(), &owner);
    owner.DestroyWindow();
    EXPECT_EQ(popup.m_hWnd, nullptr);
}

TEST_F(WindowLifeTest, FrameKeepsItsClientAsLargeAsItselfAndQuits)
{
    auto* const frame = new CFrameWnd;
    ASSERT_TRUE(frame->Create(nullptr, "Frame", WS_OVERLAPPEDWINDOW, CRect(10, 10, 310, 210)));
    HookedWnd client;
    client.MakeChild(*frame, {0, 0, 1, 1});
    frame->SetClientWindow(&client);
    frame->SetQuitOnDestroy(true);
    frame->ShowWindow(SW_SHOW);
    ProcessPending();
    EXPECT_EQ(CWnd::GetFocus(), &client);

    Screen().ResizeByUser(*NativeWindowOf(*frame), {20, 20, 420, 120});
    ProcessPending();
    CRect rect;
    client.GetClientRect(&rect);
    EXPECT_EQ(rect, CRect(0, 0, 400, 100));
    EXPECT_EQ(Screen().Windows().front()->Title(), "Frame");

    Screen().RequestClose(*NativeWindowOf(*frame));
    EXPECT_FALSE(ProcessPending()) << "closing the window ends the program";
    MSG quit;
    EXPECT_FALSE(GetMessage(&quit));
}

TEST_F(WindowLifeTest, PreTranslateIsOfferedFromTheTargetUp)
{
    class Curious : public HookedWnd
    {
    public:
        std::string* log = nullptr;
        bool consumes = false;
        BOOL PreTranslateMessage(MSG* message) override
        {
            *log += message->message == WM_APP ? GetParent() != nullptr ? "child " : "parent " : "";
            return consumes && message->message == WM_APP;
        }
    };
    std::string log;
    Curious parent;
    Curious child;
    parent.log = child.log = &log;
    parent.MakeTopLevel({0, 0, 200, 100});
    child.MakeChild(parent, {0, 0, 10, 10});
    child.PostMessage(WM_APP);
    ProcessPending();
    EXPECT_EQ(log, "child parent ");
    child.consumes = true;
    log.clear();
    child.PostMessage(WM_APP);
    ProcessPending();
    EXPECT_EQ(log, "child ");
}

} // namespace
} // namespace Ostrel::Platform
