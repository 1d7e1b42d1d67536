/// @file
/// Does with the windows of a program what a person does.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/Surface.h>
#include <ostrel/platform/window/Wnd.h>
#include <ostrel/testing/DriverError.h>
#include <ostrel/testing/Keys.h>

namespace Ostrel::Testing
{

namespace Detail
{
class Alarm;
}

using Platform::CursorShape;
using Platform::MouseButton;

/// How a Driver is set up.
struct DriverOptions
{
    /// Which clock the program sees.
    enum class Time
    {
        Manual, ///< stands still; Advance turns it
        Running ///< the system's
    };

    CSize screen{1920, 1080}; ///< in pixels
    Time time = Time::Manual; ///< stands still unless the test asks for the system's
    /// The default font of the grids while the driver lives.
    std::optional<LOGFONT> font{};
    /// A font configuration file that replaces the machine's, so that texts look alike everywhere. The first text that
    /// a process draws or measures decides: give the same in all tests of a program.
    std::string fontConfiguration{};
    /// Real time after which a wait that cannot end is a failure, in milliseconds.
    int stuckLimitMs = 20000;
};

/// Does with the windows of a program what a person does with mouse and keyboard, and sees what a person sees - without
/// a screen. Everything goes the way of real input: through the display, the message queue and the window procedures.
///
///     Driver driver;                      // first: the windows made after it live on a screen in memory
///     MainWindow window;
///     driver.Click(window, {20, 10});
///     driver.TypeText("blue");
///     driver.Advance(500);                // half a second, every timer in its order
///     EXPECT_EQ(driver.Window("Search").GetFocus(), ...);
///
/// One driver a test, on the thread of the windows; the windows die before it. Every action returns when the program is
/// idle again: all messages handled, everything painted. Time stands still unless Advance turns it, so that nothing
/// depends on the speed of the machine; a test that wants the real time asks for Time::Running.
/// A window whose WM_PAINT always leaves something to paint would never be idle: a DriverError says so.
///
/// When a handler opens a modal loop (a dialog, a drag), an action returns only after that loop. What is to be done
/// inside is told before:
///
///     driver.OnModalLoop([&] { driver.PressKey(Key::Escape); });
///     driver.Click(window, deleteButton);
///
/// Each step runs when a modal loop has nothing left to do. A modal loop that waits with no step left would wait for
/// ever: after the limit of the options (real time) the wait ends with a DriverError, thrown out of the loop.
class OSTREL_TESTING_API Driver
{
public:
    using Options = DriverOptions;    ///< screen, clock, fonts
    using Time = DriverOptions::Time; ///< which clock the program sees

    /// Gives the calling thread a headless display. The thread has no top-level window yet.
    explicit Driver(Options options = {});
    Driver(Driver const&) = delete;
    Driver& operator=(Driver const&) = delete;
    /// Destroys windows that are still there, handles what is left in the queue, takes the display away and lets the
    /// clock run.
    ~Driver();

    /// The display, for what has no function here.
    [[nodiscard]] Platform::HeadlessDisplay& Display() noexcept { return *m_display; }

    // ---- mouse. Points without a window are on the screen, with one in its client area.
    ///@{
    /// Moves the mouse there at once.
    void MovePointer(CPoint screenPoint);
    void MovePointer(CWnd const& window, CPoint clientPoint) { MovePointer(OnScreen(window, clientPoint)); }
    ///@}
    /// Where the pointer is on the screen.
    [[nodiscard]] CPoint PointerPosition() const { return m_display->PointerPosition(); }

    ///@{
    /// A single click. A click that would make a double click of an earlier one lets the double-click time pass first.
    void Click(CPoint screenPoint, Modifier modifiers = Modifier::None, MouseButton button = MouseButton::Left);
    void Click(CWnd const& window, CPoint clientPoint, Modifier modifiers = Modifier::None,
               MouseButton button = MouseButton::Left)
    {
        Click(OnScreen(window, clientPoint), modifiers, button);
    }
    ///@}

    ///@{
    /// Two clicks within the double-click time.
    void DoubleClick(CPoint screenPoint, Modifier modifiers = Modifier::None, MouseButton button = MouseButton::Left);
    void DoubleClick(CWnd const& window, CPoint clientPoint, Modifier modifiers = Modifier::None,
                     MouseButton button = MouseButton::Left)
    {
        DoubleClick(OnScreen(window, clientPoint), modifiers, button);
    }
    ///@}

    ///@{
    /// The beginning of a gesture, for tests that look at what is in between. MovePointer moves while a button is down.
    void Press(CPoint screenPoint, MouseButton button = MouseButton::Left);
    void Press(CWnd const& window, CPoint clientPoint, MouseButton button = MouseButton::Left)
    {
        Press(OnScreen(window, clientPoint), button);
    }
    ///@}
    /// The end of a gesture.
    void Release(MouseButton button = MouseButton::Left);

    /// How a drag ends.
    enum class DragEnd
    {
        Drop,  ///< the button is released at the end
        Escape ///< Esc is pressed at the end, then the button released
    };
    ///@{
    /// Press, several moves, and the end. The steps after the press also run inside a modal loop that the drag starts.
    void Drag(CPoint fromScreenPoint, CPoint toScreenPoint, Modifier modifiers = Modifier::None,
              DragEnd end = DragEnd::Drop, MouseButton button = MouseButton::Left);
    void Drag(CWnd const& window, CPoint from, CPoint to, Modifier modifiers = Modifier::None,
              DragEnd end = DragEnd::Drop, MouseButton button = MouseButton::Left)
    {
        Drag(OnScreen(window, from), OnScreen(window, to), modifiers, end, button);
    }
    ///@}

    /// Turns the wheel where the pointer is; positive away from the user (up).
    void Wheel(int notches, Modifier modifiers = Modifier::None);
    /// The same to the right.
    void WheelRight(int notches);
    ///@{
    /// Moves the pointer there and lets it rest for so many milliseconds.
    void Hover(CPoint screenPoint, int restMs = 1000);
    void Hover(CWnd const& window, CPoint clientPoint, int restMs = 1000)
    {
        Hover(OnScreen(window, clientPoint), restMs);
    }
    ///@}

    // ---- keyboard: goes to the window that has the focus
    /// A key, a VK_ code, down and up with the modifiers held.
    void PressKey(UINT key, Modifier modifiers = Modifier::None);
    ///@{
    /// Half of a key press.
    void KeyDown(UINT key);
    void KeyUp(UINT key);
    ///@}
    /// Types whole UTF-8 characters.
    void TypeText(std::string_view text);

    // ---- windows
    /// Titles of the visible top-level windows, the topmost first.
    [[nodiscard]] std::vector<std::string> Titles() const;
    /// The visible top-level window with this title. Throws DriverError, naming the titles, when there is none. For a
    /// window that was made without an object a temporary one, good until the program waits the next time.
    [[nodiscard]] CWnd& Window(std::string_view title) const;
    /// True when there is a visible top-level window with this title.
    [[nodiscard]] bool HasWindow(std::string_view title) const;
    /// As by the close button of the frame.
    void RequestClose(CWnd const& window);
    /// As by dragging the border of the frame. `size` is that of the inner area.
    void Resize(CWnd const& window, CSize size);
    /// Another program takes the keyboard.
    void LeaveProgram();
    /// The user comes back: the window that had the keyboard gets it again.
    void ReturnToProgram();

    // ---- time and messages
    /// Lets time pass. On a manual clock every timer that is due fires at its moment, in order, and everything that it
    /// caused is handled before the next one; on a running clock the loop turns for so long.
    void Advance(int milliseconds);
    /// Handles everything that is there: messages, input, timers that are due, painting.
    void RunUntilIdle();
    /// Lets time pass until the predicate answers true, but no longer than the limit (of the clock: virtual time on a
    /// manual one). Returns the predicate's last answer.
    bool RunUntil(std::function<bool()> const& predicate, int limitMs = 5000);
    /// The exit code once somebody has posted WM_QUIT.
    [[nodiscard]] std::optional<int> QuitCode() const noexcept { return m_quitCode; }

    /// Queues a step for the modal loops to come; see above.
    void OnModalLoop(std::function<void()> step) { m_modalSteps.push_back(std::move(step)); }
    /// Steps that no modal loop has run yet.
    [[nodiscard]] int PendingModalSteps() const noexcept { return static_cast<int>(m_modalSteps.size()); }

    // ---- what is to be seen, after everything has been painted
    ///@{
    /// The colour of a pixel.
    [[nodiscard]] COLORREF ColorAt(CPoint screenPoint);
    [[nodiscard]] COLORREF ColorAt(CWnd const& window, CPoint clientPoint)
    {
        return ColorAt(OnScreen(window, clientPoint));
    }
    ///@}

    ///@{
    /// The screen, or the part of it where the client area of a window is.
    [[nodiscard]] Platform::Surface Picture();
    [[nodiscard]] Platform::Surface Picture(CWnd const& window);
    ///@}

    ///@{
    /// Writes the screen, or a window's client area, to a PNG file. Throws DriverError when that fails.
    void SavePng(std::string const& path);
    void SavePng(CWnd const& window, std::string const& path);
    ///@}
    /// The cursor where the pointer is.
    [[nodiscard]] CursorShape Cursor();

    // ---- clipboard: that of the process, empty text when it holds none
    ///@{
    /// The text on the clipboard; empty when it holds none.
    [[nodiscard]] std::string ClipboardText() const;
    void SetClipboardText(std::string_view text);
    ///@}

    /// A point of a window's client area as a point of the screen.
    [[nodiscard]] static CPoint OnScreen(CWnd const& window, CPoint clientPoint);

private:
    using Step = std::function<void()>;
    class FontPin;

    [[nodiscard]] Platform::HeadlessWindow& NativeOf(CWnd const& window) const;
    [[nodiscard]] Platform::HeadlessWindow* FindWindow(std::string_view title) const noexcept;
    void Perform(std::vector<Step> steps);
    void RunNextStep();
    void HandlePending();
    void PassTime(std::function<bool()> const& isEnough, int limitMs);
    void WaitForMessage();
    bool OnIdle();
    void NotePress(CPoint screenPoint, MouseButton button);
    void AvoidDoubleClick(CPoint screenPoint, MouseButton button);
    [[nodiscard]] std::vector<Step> WithModifiers(Modifier modifiers, std::vector<Step> steps);

    struct LastPress
    {
        CPoint screenPoint;
        MouseButton button;
        std::int64_t timeMs;
    };

    Options const m_options;
    Platform::HeadlessDisplay* m_display; ///< owned by the thread
    std::unique_ptr<FontPin> m_fontPin;
    std::function<bool()> m_hookBefore;
    std::deque<Step> m_steps;               ///< what is left of the action under way
    std::deque<Step> m_modalSteps;          ///< the user's, for modal loops
    std::unique_ptr<Detail::Alarm> m_alarm; ///< set while a modal loop waits with no step left
    int m_idleDepth = 0;                    ///< calls of OnIdle in progress
    bool m_isWaiting = false;               ///< the driver itself waits: an idle loop is not a modal one
    std::optional<LastPress> m_lastPress;
    std::optional<int> m_quitCode;
};

} // namespace Ostrel::Testing
