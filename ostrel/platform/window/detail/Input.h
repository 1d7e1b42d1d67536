// Mouse and keyboard of a thread: events of the display on their way to become messages, who has the focus and the
// capture, which keys are down, what the pointer rests on.
#pragma once

#include <array>
#include <deque>
#include <optional>
#include <variant>

#include <ostrel/platform/window/Display.h>
#include <ostrel/platform/window/WindowApi.h>
#include <ostrel/platform/window/detail/PostedMessages.h>

namespace Ostrel::Platform
{

class ThreadState;
struct Window;

class Input final : public DisplaySink
{
public:
    explicit Input(ThreadState& state) noexcept : m_state(state) {}

    // ---- messages
    [[nodiscard]] bool HasEvents() const noexcept { return !m_events.empty() || !m_ready.empty(); }
    /// Makes events into messages until one is there that the filter wants. Runs window procedures.
    bool Next(MSG& message, MessageFilter const& filter, bool take);
    /// The characters that a key message typed, as messages that come next. False when it typed none.
    bool Translate(MSG const& key);
    /// Characters made by Translate come before everything else.
    [[nodiscard]] bool NextTranslated(MSG& message, MessageFilter const& filter, bool take)
    {
        return !m_translated.empty() && TakeFrom(m_translated, message, filter, take);
    }

    // ---- focus, activation, capture
    HWND SetFocus(HWND window);
    [[nodiscard]] HWND Focus() const noexcept { return m_focus; }
    void Activate(HWND topLevel, WORD how);
    [[nodiscard]] HWND Active() const noexcept { return m_active; }
    HWND SetCapture(HWND window);
    bool ReleaseCapture();
    [[nodiscard]] HWND Capture() const noexcept { return m_capture; }
    /// A window is hidden, disabled or about to die: it gives up what it holds.
    void WindowGoesAway(HWND window);
    void Forget(HWND window);
    /// Another display: what the one before saw is void.
    void DisplayChanged();

    // ---- pointer
    [[nodiscard]] HWND WindowAt(CPoint screenPoint) const;
    BOOL Track(TRACKMOUSEEVENT& event);
    HCURSOR SetCursor(HCURSOR cursor);
    [[nodiscard]] HCURSOR Cursor() const noexcept { return m_cursor; }
    [[nodiscard]] CPoint Pointer() const noexcept { return m_pointer; }
    [[nodiscard]] DWORD Time() const noexcept { return m_stamp.timeMs; }

    // ---- keys
    [[nodiscard]] short KeyState(int virtualKey) const noexcept;
    std::array<BYTE, 256>& Keys() noexcept { return m_keys; }

    // ---- DisplaySink
    void OnMouse(NativeWindow& window, MouseEvent const& event) override;
    void OnKey(NativeWindow& window, KeyEvent const& event) override;
    void OnExpose(NativeWindow& window, CRect const& area) override;
    void OnBounds(NativeWindow& window, CRect const& screenBounds) override;
    void OnCloseRequest(NativeWindow& window) override;
    void OnFocus(NativeWindow& window, bool gained) override;
    void OnMinimized(NativeWindow& window, bool minimized) override;
    void OnCaptureLost(NativeWindow& window) override;

private:
    struct BoundsEvent
    {};
    struct CloseEvent
    {};
    struct FocusEvent
    {
        bool gained;
    };
    struct MinimizedEvent
    {
        bool minimized;
    };
    struct CaptureLostEvent
    {};
    struct Event
    {
        HWND topLevel;
        std::variant<MouseEvent, KeyEvent, BoundsEvent, CloseEvent, FocusEvent, MinimizedEvent, CaptureLostEvent> what;
    };
    /// Where the pointer is: a window and its answer to WM_NCHITTEST.
    struct Target
    {
        HWND window = nullptr;
        int hit = HTNOWHERE;
        friend bool operator==(Target const&, Target const&) = default;
    };
    struct LastPress
    {
        Target target;
        MouseButton button = MouseButton::Left;
        DWORD timeMs = 0;
        CPoint place{};
        bool isFresh = false; ///< another press may make it a double click
    };

    void Handle(HWND topLevel, MouseEvent const& event);
    void Handle(HWND topLevel, KeyEvent const& event);
    void Handle(HWND topLevel, BoundsEvent const& event);
    void Handle(HWND topLevel, CloseEvent const& event);
    void Handle(HWND topLevel, FocusEvent const& event);
    void Handle(HWND topLevel, MinimizedEvent const& event);
    void Handle(HWND topLevel, CaptureLostEvent const& event);

    void Ready(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static bool TakeFrom(std::deque<MSG>& messages, MSG& message, MessageFilter const& filter, bool take);
    void NoteState(InputState const& state, InputStamp const& stamp);
    void NoteKey(KeyEvent const& event);
    [[nodiscard]] Target FindTarget(HWND topLevel, CPoint screenPoint) const;
    [[nodiscard]] UINT ButtonMessage(MouseEvent const& event, Target const& target);
    [[nodiscard]] bool IsDoubleClick(MouseEvent const& event, Target const& target);
    /// False when the press is not to be delivered.
    [[nodiscard]] bool ActivateByPress(Target const& target, UINT message);
    void HandleWheel(MouseEvent const& event, Target const& target);
    void UpdateTracking(Target const& target);
    void StartHover(int delayMs);
    void HoverIsDue();
    [[nodiscard]] bool IsInside(HWND window, HWND ancestor) const;
    [[nodiscard]] WPARAM MouseFlags() const noexcept;
    [[nodiscard]] HWND HeirOfFocus(HWND window) const;
    void ChangeFocus(HWND window);

    ThreadState& m_state;
    std::deque<Event> m_events;
    std::deque<MSG> m_ready;      ///< events made into messages and not taken
    std::deque<MSG> m_translated; ///< characters of the key that was translated last
    std::string m_keyText;        ///< what the key message taken last typed
    InputState m_inputState;
    InputStamp m_stamp;
    CPoint m_pointer{0, 0};
    std::array<BYTE, 256> m_keys{};

    HWND m_focus = nullptr;
    HWND m_active = nullptr;
    HWND m_capture = nullptr;
    HWND m_pointerTopLevel = nullptr;
    HCURSOR m_cursor = nullptr;
    LastPress m_lastPress;

    Target m_over;
    HWND m_leaveWindow = nullptr;
    HWND m_hoverWindow = nullptr;
    int m_hoverDelayMs = 0;
    CPoint m_hoverPlace{0, 0};
};

} // namespace Ostrel::Platform
