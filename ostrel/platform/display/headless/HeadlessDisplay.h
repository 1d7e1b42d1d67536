/// @file
/// A complete display without a screen: windows are surfaces in memory with a place and an order, the pointer and the
/// keyboard are moved by calls, and what a window presented can be read. Events that the calls cause go through the
/// same queue as those of a real server: nothing is handled before the thread's loop turns.
///
///     HeadlessDisplay& display = HeadlessDisplay::OfThread();
///     display.MovePointer({120, 45});
///     display.Press(MouseButton::Left);
///     display.Release(MouseButton::Left);
///     ProcessPending();
///
/// Each thread has a display, and with it a screen, a pointer and a keyboard, of its own; the clipboard is shared by
/// the process. Time is the process clock.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include <ostrel/platform/drawing/Surface.h>
#include <ostrel/platform/window/Display.h>

namespace Ostrel::Platform
{

class HeadlessDisplay;

/// A window of the headless display.
class OSTREL_PLATFORM_API HeadlessWindow final : public NativeWindow
{
public:
    /// Made by the display.
    HeadlessWindow(HeadlessDisplay& display, NativeWindowOptions const& options);
    ~HeadlessWindow() override;

    CRect Bounds() const override { return m_bounds; }
    void SetBounds(CRect const& screenBounds) override;
    void SetTitle(std::string_view title) override { m_options.title = title; }
    void Show(bool activate) override;
    void Hide() override;
    void Minimize() override;
    void Maximize() override;
    void Restore() override;
    void Raise() override;
    void Lower() override;
    void Focus() override;
    void SetCursor(CursorShape shape) override { m_cursor = shape; }
    void CapturePointer(InputStamp stamp) override;
    void ReleasePointer() override;
    bool IsBufferFree() const override { return true; }
    Surface& BackBuffer() override;
    void Present(std::span<CRect const> dirty) override;

    /// Whether it is shown.
    [[nodiscard]] bool IsVisible() const noexcept { return m_isVisible; }
    /// Its title.
    [[nodiscard]] std::string const& Title() const noexcept { return m_options.title; }
    /// The pointer's look over it.
    [[nodiscard]] CursorShape Cursor() const noexcept { return m_cursor; }
    /// What it was made with.
    [[nodiscard]] NativeWindowOptions const& Options() const noexcept { return m_options; }
    /// What a person would see.
    [[nodiscard]] Surface const& Pixels() const noexcept { return m_copiesPresented ? m_front : m_back; }
    /// How often something was presented.
    [[nodiscard]] int PresentCount() const noexcept { return m_presentCount; }
    /// How many pixels were presented in all.
    [[nodiscard]] std::int64_t PresentedPixels() const noexcept { return m_presentedPixels; }

private:
    void Copy(std::span<CRect const> dirty);

    HeadlessDisplay& m_display;
    NativeWindowOptions m_options;
    CRect m_bounds;
    CRect m_restoreBounds;
    bool m_isVisible = false;
    CursorShape m_cursor = CursorShape::Arrow;
    bool m_copiesPresented;
    Surface m_back;
    Surface m_front; ///< only where it copies
    int m_presentCount = 0;
    std::int64_t m_presentedPixels = 0;
};

/// A display in memory.
class OSTREL_PLATFORM_API HeadlessDisplay final : public Display
{
public:
    /// What the screen shows of a window.
    enum class Shows
    {
        Presented, ///< what was presented last, of which it keeps a copy: as on a real screen
        Drawn      ///< what the window draws on, with nothing copied
    };

    /// With a screen of so many pixels.
    explicit HeadlessDisplay(CSize screen = {1920, 1080}, Shows shows = Shows::Presented);
    ~HeadlessDisplay() override;

    /// The calling thread's display. Gives the thread a headless one when it has none yet; ends the program with a
    /// message when it has one of another kind.
    static HeadlessDisplay& OfThread();

    // ---- what a person does
    /// Moves the pointer to a point of the screen. Windows that the pointer leaves and enters are told.
    void MovePointer(CPoint screenPoint);
    ///@{
    /// A button goes down, or up, where the pointer is.
    void Press(MouseButton button);
    void Release(MouseButton button);
    ///@}
    /// Turns the wheel: 120 a notch, positive away from the user, or to the right.
    void Wheel(int delta, bool horizontal = false);
    ///@{
    /// A key, VK_*, goes down or up. A press types the text that an American keyboard types with the modifiers that are
    /// down, Ctrl with a letter its control character. Pressing a key that is down is a repeat.
    void KeyDown(UINT virtualKey);
    void KeyUp(UINT virtualKey);
    ///@}
    /// Both.
    void PressKey(UINT virtualKey)
    {
        KeyDown(virtualKey);
        KeyUp(virtualKey);
    }
    /// Types whole UTF-8 characters, with Shift where an American keyboard needs it.
    void TypeText(std::string_view text);
    /// As the user does with the close button.
    void RequestClose(NativeWindow& window);
    /// As the user does with the border of the frame.
    void ResizeByUser(NativeWindow& window, CRect const& screenBounds);
    ///@{
    /// Another program takes the keyboard, or gives it back to the window that had it.
    void LeaveProgram();
    void ReturnToProgram();
    ///@}
    /// The server dies.
    void LoseServer(std::string reason);

    // ---- what a person sees
    /// From the lowest to the topmost, hidden ones too.
    [[nodiscard]] std::vector<HeadlessWindow*> const& Windows() const noexcept { return m_windows; }
    /// The topmost shown window at a point; null without one.
    [[nodiscard]] HeadlessWindow* WindowAt(CPoint screenPoint) const noexcept;
    /// Who has the keyboard; null for none.
    [[nodiscard]] HeadlessWindow* FocusedWindow() const noexcept { return m_focused; }
    /// The colour on the screen, the backdrop's where no window is.
    [[nodiscard]] COLORREF ColorAt(CPoint screenPoint) const noexcept;
    /// The cursor that shows now.
    [[nodiscard]] CursorShape Cursor() const noexcept;
    /// All windows as they lie on the screen.
    [[nodiscard]] Surface Screenshot() const;

    static constexpr COLORREF kBackdrop = RGB(0x3A, 0x6E, 0xA5); ///< the screen where no window is

    // ---- Display
    std::string_view Name() const override { return "headless"; }
    std::unique_ptr<NativeWindow> CreateNativeWindow(NativeWindowOptions const& options) override;
    int EventFd() const override { return -1; }
    bool PrepareToBlock() override { return m_events.empty() && m_focused == m_reportedFocus; }
    void PumpEvents(DisplaySink& sink) override;
    void Flush() override {}
    bool IsAlive() const override { return m_lostReason.empty(); }
    std::string LostReason() const override { return m_lostReason; }
    CSize ScreenSize() const override { return m_screen; }
    CRect WorkArea(CPoint nearScreenPoint) const override;
    double Scale() const override;
    CPoint PointerPosition() const override { return m_pointer; }
    InputState CurrentInputState() const override { return m_state; }
    bool SetClipboardText(std::string_view text, InputStamp stamp) override;
    std::optional<std::string> ClipboardText() override;

private:
    friend class HeadlessWindow;
    using Event = std::function<void(DisplaySink&)>;
    struct PendingEvent
    {
        HeadlessWindow* window; ///< the event goes with it
        Event report;
    };

    void Add(HeadlessWindow& window);
    void Remove(HeadlessWindow& window);
    void SetFocused(HeadlessWindow* window) { m_focused = window; }
    void FocusTopmost();
    void Restack(HeadlessWindow& window, bool onTop);
    void PutEvent(HeadlessWindow& window, Event report);
    void PutBounds(HeadlessWindow& window);
    void UpdatePointerWindow();
    void PutMouse(HeadlessWindow& window, MouseEvent::Kind kind, MouseButton button = MouseButton::Left,
                  int wheelDelta = 0);
    void PutButton(MouseButton button, bool down);
    void PutKey(UINT virtualKey, bool down, std::string text);
    [[nodiscard]] HeadlessWindow* PointerTarget() const noexcept;
    [[nodiscard]] InputStamp NextStamp() noexcept;
    void ReportFocus(DisplaySink& sink);

    CSize m_screen;
    Shows m_shows;
    std::vector<HeadlessWindow*> m_windows;
    std::deque<PendingEvent> m_events;
    CPoint m_pointer{0, 0};
    InputState m_state;
    std::vector<bool> m_keysDown;
    HeadlessWindow* m_pointerWindow = nullptr; ///< told that the pointer is in it
    HeadlessWindow* m_captured = nullptr;      ///< by CapturePointer
    HeadlessWindow* m_pressed = nullptr;       ///< implicit capture while a button is down
    HeadlessWindow* m_focused = nullptr;
    HeadlessWindow* m_reportedFocus = nullptr;
    HeadlessWindow* m_leftFocus = nullptr; ///< who had the keyboard before LeaveProgram
    std::uint32_t m_serial = 0;
    std::string m_lostReason;
};

} // namespace Ostrel::Platform
