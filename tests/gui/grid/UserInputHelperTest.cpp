// Which call belongs to which message of the user, and with which arguments.
#include <string>

#include <gtest/gtest.h>

#include <ostrel/gui/edit/UserInputHelper.h>
#include <ostrel/platform/window/Messages.h>

namespace Ostrel::GUI
{
namespace
{

/// Says what it was called with, and answers 7.
class Listener : public CUserInputHelper
{
public:
    std::string heard;

private:
    LRESULT Hear(char const* what, UINT a, int b, int c)
    {
        heard = std::string(what) + " " + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c);
        return 7;
    }

    LRESULT OnMouseMove(UINT keys, CPoint at) override { return Hear("move", keys, at.x, at.y); }
    LRESULT OnLButtonDown(UINT keys, CPoint at) override { return Hear("left down", keys, at.x, at.y); }
    LRESULT OnLButtonUp(UINT keys, CPoint at) override { return Hear("left up", keys, at.x, at.y); }
    LRESULT OnLButtonDblClk(UINT keys, CPoint at) override { return Hear("left twice", keys, at.x, at.y); }
    LRESULT OnRButtonDown(UINT keys, CPoint at) override { return Hear("right down", keys, at.x, at.y); }
    LRESULT OnRButtonUp(UINT keys, CPoint at) override { return Hear("right up", keys, at.x, at.y); }
    LRESULT OnRButtonDblClk(UINT keys, CPoint at) override { return Hear("right twice", keys, at.x, at.y); }
    LRESULT OnMButtonDown(UINT keys, CPoint at) override { return Hear("middle down", keys, at.x, at.y); }
    LRESULT OnMButtonUp(UINT keys, CPoint at) override { return Hear("middle up", keys, at.x, at.y); }
    LRESULT OnMButtonDblClk(UINT keys, CPoint at) override { return Hear("middle twice", keys, at.x, at.y); }
    LRESULT OnMouseHover(UINT keys, CPoint at) override { return Hear("hover", keys, at.x, at.y); }
    LRESULT OnMouseLeave() override { return Hear("leave", 0, 0, 0); }
    LRESULT OnCaptureChanged(HWND owner) override { return Hear("capture", owner != nullptr ? 1U : 0U, 0, 0); }
    LRESULT OnKeyDown(UINT key, UINT count, UINT flags) override { return HearKey("down", key, count, flags); }
    LRESULT OnKeyUp(UINT key, UINT count, UINT flags) override { return HearKey("up", key, count, flags); }
    LRESULT OnSysKeyDown(UINT key, UINT count, UINT flags) override { return HearKey("sys down", key, count, flags); }
    LRESULT OnSysKeyUp(UINT key, UINT count, UINT flags) override { return HearKey("sys up", key, count, flags); }
    LRESULT OnChar(UINT c, UINT count, UINT flags) override { return HearKey("char", c, count, flags); }
    LRESULT OnDeadChar(UINT c, UINT count, UINT flags) override { return HearKey("dead", c, count, flags); }
    LRESULT OnSysChar(UINT c, UINT count, UINT flags) override { return HearKey("sys char", c, count, flags); }
    LRESULT OnSysDeadChar(UINT c, UINT count, UINT flags) override { return HearKey("sys dead", c, count, flags); }
    LRESULT OnSize(UINT kind, CSize client) override { return Hear("size", kind, client.cx, client.cy); }
    LRESULT OnHScroll(UINT command, UINT position) override { return HearKey("hscroll", command, position, 0); }
    LRESULT OnVScroll(UINT command, UINT position) override { return HearKey("vscroll", command, position, 0); }
    LRESULT OnSetCursor(UINT hitTest) override { return Hear("cursor", hitTest, 0, 0); }

    LRESULT HearKey(char const* what, UINT a, UINT b, UINT c)
    {
        return Hear(what, a, static_cast<int>(b), static_cast<int>(c));
    }
};

class Silent : public CUserInputHelper
{};

TEST(UserInputHelperTest, CallsWhatBelongsToTheMessage)
{
    struct Case
    {
        UINT message;
        char const* heard;
    };
    for (auto const& [message, heard] : {Case{WM_MOUSEMOVE, "move 9 3 -4"},
                                         Case{WM_LBUTTONDOWN, "left down 9 3 -4"},
                                         Case{WM_LBUTTONUP, "left up 9 3 -4"},
                                         Case{WM_LBUTTONDBLCLK, "left twice 9 3 -4"},
                                         Case{WM_RBUTTONDOWN, "right down 9 3 -4"},
                                         Case{WM_RBUTTONUP, "right up 9 3 -4"},
                                         Case{WM_RBUTTONDBLCLK, "right twice 9 3 -4"},
                                         Case{WM_MBUTTONDOWN, "middle down 9 3 -4"},
                                         Case{WM_MBUTTONUP, "middle up 9 3 -4"},
                                         Case{WM_MBUTTONDBLCLK, "middle twice 9 3 -4"},
                                         Case{WM_MOUSEHOVER, "hover 9 3 -4"},
                                         Case{WM_MOUSELEAVE, "leave 0 0 0"},
                                         Case{WM_CAPTURECHANGED, "capture 1 0 0"},
                                         Case{WM_KEYDOWN, "down 9 3 65532"},
                                         Case{WM_KEYUP, "up 9 3 65532"},
                                         Case{WM_SYSKEYDOWN, "sys down 9 3 65532"},
                                         Case{WM_SYSKEYUP, "sys up 9 3 65532"},
                                         Case{WM_CHAR, "char 9 3 65532"},
                                         Case{WM_DEADCHAR, "dead 9 3 65532"},
                                         Case{WM_SYSCHAR, "sys char 9 3 65532"},
                                         Case{WM_SYSDEADCHAR, "sys dead 9 3 65532"},
                                         Case{WM_SIZE, "size 9 3 65532"},
                                         Case{WM_HSCROLL, "hscroll 9 0 0"},
                                         Case{WM_VSCROLL, "vscroll 9 0 0"},
                                         Case{WM_SETCURSOR, "cursor 3 0 0"}})
    {
        Listener listener;
        Silent silent;
        EXPECT_EQ(listener.OnInput(message, 9, MAKELPARAM(3, -4)), 7) << heard;
        EXPECT_EQ(listener.heard, heard);
        EXPECT_EQ(silent.OnInput(message, 9, MAKELPARAM(3, -4)), 0) << "by itself it does nothing";
    }
    Listener listener;
    EXPECT_EQ(listener.OnInput(WM_TIMER, 9, 0), 0);
    EXPECT_EQ(listener.OnInput(WM_VSCROLL, MAKEWPARAM(5, 40000), 0), 7);
    EXPECT_EQ(listener.heard, "vscroll 5 40000 0");
}

} // namespace
} // namespace Ostrel::GUI
