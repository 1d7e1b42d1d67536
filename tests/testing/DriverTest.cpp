// What a person does arrives as messages; time, modal loops and waits that can not end are under control.
#include <cstdio>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/window/FrameWnd.h>

#include "Probe.h"

namespace Ostrel::Testing
{
namespace
{

using Platform::Clock;

class NeverPainted : public CFrameWnd
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == WM_PAINT ? 0 : CFrameWnd::WindowProc(message, wParam, lParam);
    }
};

TEST(DriverTest, AWindowThatIsNeverPaintedIsToldInsteadOfPaintedForEver)
{
    Driver driver;
    NeverPainted window;
    window.SetAutoDelete(false);
    window.Create(nullptr, "bare", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 200, 100));
    std::string told;
    try
    {
        driver.MovePointer({5, 5});
    }
    catch (DriverError const& error)
    {
        told = error.what();
    }
    EXPECT_NE(told.find("\"bare\""), std::string::npos) << told;
    window.DestroyWindow();
    driver.MovePointer({6, 6});
}

TEST(DriverTest, ActionsArriveAsInput)
{
    Driver driver;
    Probe probe(driver);
    struct Case
    {
        char const* expected;
        std::function<void()> act;
    };
    Case const cases[] = {
        {"down10,20 up10,20",
         [&] {
             driver.Click(probe, {10, 20});
         }},
        {"down10,20 up10,20 down11,20 up11,20",
         [&] {
             driver.Click(probe, {10, 20}), driver.Click(probe, {11, 20});
         }},
        {"down10,20 up10,20 double10,20 up10,20",
         [&] {
             driver.DoubleClick(probe, {10, 20});
         }},
        {"key16 key17 ^+down5,5 up5,5",
         [&] {
             driver.Click(probe, {5, 5}, Modifier::Ctrl | Modifier::Shift);
         }},
        {"right7,8",
         [&] {
             driver.Click(probe, {7, 8}, Modifier::None, MouseButton::Right);
         }},
        {"down10,10 up90,30",
         [&] {
             driver.Drag(probe, {10, 10}, {90, 30});
         }},
        {"down10,10 key27 '\x1b' up90,30",
         [&] {
             driver.Drag(probe, {10, 10}, {90, 30}, Modifier::None, Driver::DragEnd::Escape);
         }},
        {"wheel-240", [&] { driver.Wheel(-2); }},
        {"key16 key40", [&] { driver.PressKey(Key::Down, Modifier::Shift); }},
        {"key66 'b' key16 key49 '!'", [&] { driver.TypeText("b!"); }},
        {"size300x200",
         [&] {
             driver.Resize(probe, {300, 200});
         }},
    };
    for (Case const& each : cases)
    {
        each.act();
        EXPECT_EQ(probe.TakeLog(), each.expected);
    }
}

TEST(DriverTest, WaitsEndWithThePredicateOrTheLimit)
{
    Driver driver;
    Probe probe(driver);
    int ticks = 0;
    probe.onTimer = [&](UINT_PTR) { ++ticks; };
    probe.SetTimer(1, 20);
    std::int64_t const start = Clock::Milliseconds();
    EXPECT_TRUE(driver.RunUntil([&] { return ticks == 3; }, 1000));
    EXPECT_EQ(Clock::Milliseconds() - start, 60);
    EXPECT_FALSE(driver.RunUntil([&] { return ticks == 100; }, 50));
    EXPECT_EQ(Clock::Milliseconds() - start, 110);
}

TEST(DriverTest, TimersRunByThemselvesOnARunningClock)
{
    Driver driver({.time = Driver::Time::Running});
    Probe probe(driver);
    int ticks = 0;
    probe.onTimer = [&](UINT_PTR) { ++ticks; };
    probe.SetTimer(1, 10);
    EXPECT_TRUE(driver.RunUntil([&] { return ticks == 3; }));
}

TEST(DriverTest, StepsRunInsideModalLoops)
{
    Driver driver;
    Probe probe(driver);
    probe.onPress = [&] { probe.WaitForEscape(); };
    driver.OnModalLoop([&] { driver.TypeText("x"); });
    driver.OnModalLoop([&] { driver.PressKey(Key::Escape); });
    driver.OnModalLoop([&] { driver.TypeText("too late"); });
    driver.Click(probe, {10, 10});
    EXPECT_EQ(probe.TakeLog(), "down10,10 wait up10,10 key88 'x' key27 '\x1b' go");
    EXPECT_EQ(driver.PendingModalSteps(), 1);
}

TEST(DriverTest, ADragGoesOnInTheModalLoopThatItStarts)
{
    Driver driver;
    Probe probe(driver);
    probe.onPress = [&] { probe.WaitForEscape(); };
    driver.Drag(probe, {10, 10}, {60, 10}, Modifier::None, Driver::DragEnd::Escape);
    EXPECT_EQ(driver.PointerPosition(), Driver::OnScreen(probe, {60, 10}));
    EXPECT_EQ(probe.TakeLog().substr(0, 21), "down10,10 wait key27 ");
}

TEST(DriverTest, AModalLoopThatNothingCanEndIsAFailure)
{
    Driver driver({.stuckLimitMs = 30});
    Probe probe(driver);
    probe.onPress = [&] { probe.WaitForEscape(); };
    EXPECT_THROW(driver.Click(probe, {10, 10}), DriverError);
    probe.onPress = nullptr;
    probe.TakeLog();
    driver.Click(probe, {50, 50});
    EXPECT_EQ(probe.TakeLog(), "down50,50 up50,50");
}

TEST(DriverTest, WindowsAreFoundByTheirTitles)
{
    Driver driver;
    Probe first(driver, "first");
    Probe second(driver, "second");
    EXPECT_EQ(driver.Titles(), (std::vector<std::string>{"second", "first"}));
    EXPECT_EQ(&driver.Window("first"), &first);
    EXPECT_THROW(static_cast<void>(driver.Window("third")), DriverError);
    second.SetQuitOnDestroy(true);
    driver.RequestClose(second);
    EXPECT_FALSE(driver.HasWindow("second"));
    EXPECT_EQ(driver.QuitCode(), 0);
}

TEST(DriverTest, PicturesShowTheClientArea)
{
    Driver driver;
    Probe probe(driver);
    COLORREF const back = driver.ColorAt(probe, {3, 4});
    EXPECT_NE(back, Platform::HeadlessDisplay::kBackdrop);
    EXPECT_EQ(driver.ColorAt(CPoint(1000, 900)), Platform::HeadlessDisplay::kBackdrop);

    std::string const path = testing::TempDir() + "DriverTest.png";
    driver.SavePng(probe, path);
    Platform::Surface picture;
    ASSERT_TRUE(picture.LoadPng(path));
    std::remove(path.c_str());
    EXPECT_EQ(picture.Bounds(), CRect(0, 0, 200, 100));
    EXPECT_EQ(picture.ColorAt(3, 4), back);
    EXPECT_THROW(driver.SavePng("/nowhere/at/all.png"), DriverError);
}

TEST(DriverTest, TheGridsFontIsPinnedWhileTheDriverLives)
{
    LOGFONT font{};
    font.lfHeight = -37;
    {
        Driver driver({.font = font});
        LOGFONT used{};
        GUI::CPreferences::GetFont()->GetLogFont(&used);
        EXPECT_EQ(used.lfHeight, -37);
    }
    LOGFONT after{};
    GUI::CPreferences::GetFont()->GetLogFont(&after);
    EXPECT_NE(after.lfHeight, -37);
}

} // namespace
} // namespace Ostrel::Testing
