// Windows on a real X server, driven by a foreign program (xdotool) and looked at through a second connection: what is
// checked was not written here. Runs under with-x-server.
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <ostrel/GUI.h>
#include <ostrel/platform/window/Display.h>
#include <ostrel/testing/TestObject.h>

using namespace Ostrel::GUI;
using namespace Ostrel::Platform;
using Ostrel::Testing::TestObject;

namespace
{

constexpr COLORREF kPaint = RGB(0x20, 0x80, 0xE0);
constexpr COLORREF kCover = RGB(0xE0, 0x40, 0x20);

/// Notes what reaches it and paints itself in one colour.
class CProbe : public CFrameWnd
{
public:
    explicit CProbe(COLORREF color) : m_color(color) { SetAutoDelete(false); }

    std::string text;
    std::set<WPARAM> keys;
    std::vector<CPoint> presses;
    int doubleClicks = 0;
    int wheel = 0;
    CSize size;
    bool isAskedToClose = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_CHAR:
            text += static_cast<char>(wParam);
            break;
        case WM_KEYDOWN:
            keys.insert(wParam);
            break;
        case WM_LBUTTONDOWN:
            presses.emplace_back(lParam);
            break;
        case WM_LBUTTONDBLCLK:
            ++doubleClicks;
            break;
        case WM_MOUSEWHEEL:
            wheel += static_cast<short>(HIWORD(wParam));
            break;
        case WM_SIZE:
            size = CSize(LOWORD(static_cast<DWORD_PTR>(lParam)), HIWORD(static_cast<DWORD_PTR>(lParam)));
            break;
        case WM_CLOSE:
            isAskedToClose = true;
            return 0;
        case WM_PAINT: {
            CPaintDC dc(this);
            CRect client;
            GetClientRect(&client);
            dc.FillSolidRect(client, m_color);
            return 0;
        }
        default:
            break;
        }
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }

private:
    COLORREF m_color;
};

/// A second client of the server.
class Witness
{
public:
    Witness() : m_connection(xcb_connect(nullptr, nullptr)) {}
    Witness(Witness const&) = delete;
    Witness& operator=(Witness const&) = delete;
    ~Witness() { xcb_disconnect(m_connection); }

    /// The colour that the screen shows.
    COLORREF ColorAt(CPoint screenPoint)
    {
        xcb_screen_t const* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> const image(
            xcb_get_image_reply(m_connection,
                                xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                                              static_cast<std::int16_t>(screenPoint.x),
                                              static_cast<std::int16_t>(screenPoint.y), 1, 1, ~0U),
                                nullptr),
            &std::free);
        if (!image)
        {
            return 0xFFFFFFFF;
        }
        std::uint8_t const* bytes = xcb_get_image_data(image.get());
        return RGB(bytes[2], bytes[1], bytes[0]);
    }

private:
    xcb_connection_t* m_connection;
};

class X11Test : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(ThreadDisplay().Name(), "x11");
        ASSERT_TRUE(m_window.Create(nullptr, "Probe", WS_OVERLAPPEDWINDOW, CRect(100, 100, 500, 400)));
        m_window.ShowWindow(SW_SHOW);
        ASSERT_TRUE(Until([this] { return Shows({200, 150}, kPaint); })) << "the window does not appear";
        ASSERT_TRUE(Until([] { return OutputOf("xdotool getwindowfocus getwindowname") == "Probe\n"; }))
            << "the window does not get the keyboard";
    }

    /// Turns the loop until it holds; false after a time in which any server does it.
    static bool Until(std::function<bool()> const& isDone)
    {
        constexpr DWORD kLimitMs = 20000;
        DWORD const start = GetTickCount();
        CWnd timer;
        timer.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 1, 1), nullptr, 0);
        timer.SetTimer(1, 20);  // keeps the loop turning while nothing comes
        bool isReached = false; // asked once: the window manager may move the window right after
        RunModalLoop(
            [&]
            {
                isReached = isDone();
                return isReached || TicksSince(GetTickCount(), start) > kLimitMs;
            });
        return isReached;
    }
    bool Shows(CPoint clientPoint, COLORREF color)
    {
        m_window.ClientToScreen(&clientPoint);
        return m_witness.ColorAt(clientPoint) == color;
    }
    static std::string OutputOf(std::string const& command)
    {
        std::string output;
        if (FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r"))
        {
            std::array<char, 256> buffer{};
            output.assign(buffer.data(), std::fread(buffer.data(), 1, buffer.size(), pipe));
            pclose(pipe);
        }
        return output;
    }
    void Xdotool(std::string const& arguments) { ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0); }
    std::string MoveTo(CPoint clientPoint)
    {
        m_window.ClientToScreen(&clientPoint);
        return "mousemove " + std::to_string(clientPoint.x) + " " + std::to_string(clientPoint.y) + " ";
    }

    Witness m_witness;
    CProbe m_window{kPaint};
};

TEST_F(X11Test, TypedTextArrivesInTheLayoutOfTheMoment)
{
    // The layout changes while the program runs: keys that had no meaning get one.
    ASSERT_EQ(std::system("xmodmap -e 'keycode 8 = udiaeresis Udiaeresis' -e 'keycode 93 = EuroSign U65E5'"), 0);
    ProcessPending();
    Xdotool("type --delay 20 'aZ9 üÜ€日'");
    std::string const typed = "aZ9 üÜ€日";
    EXPECT_TRUE(Until([&] { return m_window.text.size() >= typed.size(); }));
    EXPECT_EQ(m_window.text, typed);
}

TEST_F(X11Test, KeysHaveTheirCodes)
{
    Xdotool("key F5 Page_Down ctrl+c Left KP_Add Delete");
    std::set<WPARAM> const expected = {VK_F5, VK_NEXT, VK_CONTROL, 'C', VK_LEFT, VK_ADD, VK_DELETE};
    EXPECT_TRUE(Until([&] { return m_window.keys.size() >= expected.size(); }));
    EXPECT_EQ(m_window.keys, expected);
}

TEST_F(X11Test, ClicksWheelAndDoubleClicks)
{
    Xdotool(MoveTo({50, 60}) + "click 1 " + MoveTo({150, 90}) +
            "click --repeat 2 --delay 20 1 click 4 click 5 click 5");
    EXPECT_TRUE(Until([this] { return m_window.doubleClicks == 1 && m_window.wheel == -120; }));
    ASSERT_EQ(m_window.presses.size(), 2U);
    EXPECT_EQ(m_window.presses[0], CPoint(50, 60));
    EXPECT_EQ(m_window.presses[1], CPoint(150, 90));
}

TEST_F(X11Test, CaptureHoldsThePointerOutside)
{
    m_window.SetCapture();
    Xdotool(MoveTo({-30, -60}) + "click 1");
    EXPECT_TRUE(Until([this] { return !m_window.presses.empty(); }));
    ReleaseCapture();
    ASSERT_FALSE(m_window.presses.empty());
    EXPECT_EQ(m_window.presses[0], CPoint(-30, -60));
}

TEST_F(X11Test, AWindowThatGrowsIsPaintedToItsNewCorner)
{
    Xdotool("search --name '^Probe$' windowsize 640 480");
    EXPECT_TRUE(Until([this] { return m_window.size == CSize(640, 480) && Shows({639, 479}, kPaint); }));
}

TEST_F(X11Test, WhatWasCoveredComesBack)
{
    {
        CProbe cover(kCover);
        CRect place(0, 0, 100, 100);
        m_window.ClientToScreen(&place);
        ASSERT_TRUE(cover.CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, place, nullptr, 0));
        ASSERT_TRUE(Until([this] { return Shows({50, 50}, kCover); }));
    }
    EXPECT_TRUE(Until([this] { return Shows({50, 50}, kPaint); }));
}

TEST_F(X11Test, TheWindowManagerMayAskToClose)
{
    Xdotool("key alt+F4");
    EXPECT_TRUE(Until([this] { return m_window.isAskedToClose; }));
    EXPECT_TRUE(m_window.IsWindowVisible()) << "only the program decides";
}

TEST_F(X11Test, TextGoesToAndComesFromOtherPrograms)
{
    std::string const text = "Grüße, 日本 €";
    ASSERT_TRUE(ThreadDisplay().SetClipboardText(text, {}));
    // The reader waits for us: it runs in the background while our loop serves it.
    std::string const file = testing::TempDir() + "x11-clipboard.txt";
    std::remove(file.c_str());
    Xdotool("getactivewindow >/dev/null; (xclip -selection clipboard -o -target UTF8_STRING >" + file + ".part && mv " +
            file + ".part " + file + ") &");
    auto const read = [&] { return OutputOf("cat " + file); };
    EXPECT_TRUE(Until([&] { return read() == text; })) << read();

    ASSERT_EQ(std::system("printf 'from elsewhere ü' | xclip -selection clipboard -i >/dev/null 2>&1"), 0);
    EXPECT_TRUE(Until([] { return ThreadDisplay().ClipboardText() == "from elsewhere ü"; }));
}

class X11GridTest : public X11Test
{
protected:
    void SetUp() override
    {
        X11Test::SetUp();
        for (int i = 0; i < 200; ++i)
        {
            m_rows.push_back(std::make_unique<TestObject>(
                Ostrel::Testing::TestRow{.name = "row " + std::to_string(i), .quantity = 1000 - i}));
        }
        ASSERT_TRUE(m_grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(), &m_window, 1));
        m_grid.SetFont(CPreferences::GetFont());
        auto* header = new CHeader;
        header->Add(new CColumn(TestObject::Name, "Name", 150));
        header->Add(new CColumn(TestObject::Quantity, "Quantity", 100, CColumn::AlignRight));
        m_grid.SetHeader(header);
        for (auto const& row : m_rows)
        {
            m_grid.Add(row.get(), ScrollableRoot, LastPosition);
        }
        m_window.SetClientWindow(&m_grid);
        m_grid.SetFocus();
        ProcessPending();
    }
    void TearDown() override { m_grid.DestroyWindow(); }

    std::vector<std::unique_ptr<TestObject>> m_rows;
    CGrid m_grid;
};

TEST_F(X11GridTest, ACaptionSortsTheWheelScrollsTheArrowsMoveTheFocus)
{
    ASSERT_EQ(m_grid.GetDataObject(0, ScrollableContext), m_rows.front().get());
    Xdotool(MoveTo({200, 8}) + "click 1");
    EXPECT_TRUE(Until([this] { return m_grid.GetDataObject(0, ScrollableContext) == m_rows.back().get(); }));
    EXPECT_EQ(m_grid.GetSort(0), CSortInfo(TestObject::Quantity, false));

    Xdotool(MoveTo({200, 150}) + "click 5");
    EXPECT_TRUE(Until([this] { return m_grid.GetFirstVisibleRow() == 3; }));

    Xdotool(MoveTo({50, 150}) + "click 1");
    EXPECT_TRUE(Until([this] { return m_grid.GetFocusedRow() >= 0; }));
    int const clicked = m_grid.GetFocusedRow();
    EXPECT_EQ(m_grid.GetItem(CPoint(50, 150)), m_grid.GetItem(clicked, ScrollableContext));
    Xdotool("key Down Down Down Up");
    EXPECT_TRUE(Until([&] { return m_grid.GetFocusedRow() == clicked + 2; }));
    EXPECT_TRUE(m_grid.IsSelected(clicked + 2, ScrollableContext));
    EXPECT_EQ(m_grid.GetSelectedCount(), 1);
}

} // namespace
