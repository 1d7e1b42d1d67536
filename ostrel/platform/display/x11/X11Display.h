// The display on an X server: one connection, its windows, and the pump that turns its events into ours.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

#include <ostrel/platform/display/x11/X11Clipboard.h>
#include <ostrel/platform/display/x11/X11Connection.h>
#include <ostrel/platform/display/x11/X11Keyboard.h>
#include <ostrel/platform/window/Display.h>

struct xcb_cursor_context_t;

namespace Ostrel::Platform
{

/// The display on the server that DISPLAY names, for the calling thread. Null, with the reason, when none answers.
[[nodiscard]] std::unique_ptr<Display> MakeX11Display(std::string& whyNot);

} // namespace Ostrel::Platform

namespace Ostrel::Platform::X11
{

class Buffer;
class XWindow;

class XDisplay final : public Display
{
public:
    explicit XDisplay(std::unique_ptr<Connection> connection);
    ~XDisplay() override;

    [[nodiscard]] std::string_view Name() const override { return "x11"; }
    std::unique_ptr<NativeWindow> CreateNativeWindow(NativeWindowOptions const& options) override;
    [[nodiscard]] int EventFd() const override;
    bool PrepareToBlock() override;
    void PumpEvents(DisplaySink& sink) override;
    void Flush() override;
    [[nodiscard]] bool IsAlive() const override { return m_connection->IsAlive(); }
    [[nodiscard]] std::string LostReason() const override;
    [[nodiscard]] CSize ScreenSize() const override;
    [[nodiscard]] CRect WorkArea(CPoint nearScreenPoint) const override;
    [[nodiscard]] double Scale() const override { return m_scale; }
    [[nodiscard]] CPoint PointerPosition() const override;
    [[nodiscard]] InputState CurrentInputState() const override;
    UINT RegisterFormat(std::string_view name) override;
    bool SetClipboardText(std::string_view text, InputStamp stamp) override;
    std::optional<std::string> ClipboardText() override;

    // For the windows and the clipboard of this display.
    [[nodiscard]] Connection& GetConnection() noexcept { return *m_connection; }
    void Enter(XWindow& window);
    void Leave(XWindow& window) noexcept;
    [[nodiscard]] xcb_cursor_t CursorFor(CursorShape shape);
    /// Server time of the newest event that carried one: what focus and selections have to be asked for with.
    [[nodiscard]] xcb_timestamp_t LastTime() const noexcept { return m_lastTime; }
    void WaitForBuffer(Buffer& buffer);
    /// Waits a second at most for an event; the others keep their order for the next pump.
    Reply<xcb_generic_event_t> WaitForEvent(std::function<bool(xcb_generic_event_t const&)> const& isWanted);

private:
    using Event = Reply<xcb_generic_event_t>;

    [[nodiscard]] XWindow* WindowOf(xcb_window_t id) const noexcept;
    [[nodiscard]] Event NextEvent();
    bool HandleCompletion(xcb_generic_event_t const& event) noexcept;
    void Handle(xcb_generic_event_t const& event, DisplaySink& sink);
    void HandleWindowEvent(xcb_generic_event_t const& event, DisplaySink& sink);
    void HandleKey(xcb_key_press_event_t const& event, bool down, DisplaySink& sink);
    void HandleButton(xcb_button_press_event_t const& event, bool down, DisplaySink& sink);
    void HandleMotion(xcb_motion_notify_event_t const& event, DisplaySink& sink);
    void HandleCrossing(xcb_enter_notify_event_t const& event, bool entered, DisplaySink& sink);
    void HandleConfigure(xcb_configure_notify_event_t const& event, DisplaySink& sink);
    void HandleMessage(xcb_client_message_event_t const& event, DisplaySink& sink);
    void HandleFocus(xcb_focus_in_event_t const& event, bool gained, DisplaySink& sink);
    void HandleStateChange(xcb_property_notify_event_t const& event, DisplaySink& sink);
    [[nodiscard]] MouseEvent MakeMouseEvent(xcb_button_press_event_t const& event, MouseEvent::Kind kind) const;
    [[nodiscard]] InputState StateFrom(std::uint16_t mask) const;

    std::unique_ptr<Connection> m_connection;
    Keyboard m_keyboard;
    std::unordered_map<xcb_window_t, XWindow*> m_windows;
    std::deque<Event> m_waiting; ///< read while waiting for something else
    xcb_cursor_context_t* m_cursorContext = nullptr;
    std::map<CursorShape, xcb_cursor_t> m_cursors;
    Clipboard m_clipboard;
    xcb_timestamp_t m_lastTime = XCB_CURRENT_TIME;
    double m_scale = 1;
};

} // namespace Ostrel::Platform::X11
