/// @file
/// What the window layer asks of the thing that shows its pixels, and what that thing reports back. A display knows
/// native top-level and pop-up windows only: children, focus inside a window, scroll bars and update regions are the
/// window layer's own.
///
/// One display a thread: a thread that makes a top-level window gets its own display (on X11 its own connection), made
/// by MakeDisplay() at that moment and gone with the thread's last use. Everything here runs on that thread; nothing
/// needs a lock. Waking the thread is not the display's work: the message queue waits for the display's EventFd() and
/// for its own wake-up at the same time.
///
/// What an implementation must not be asked for: absolute pointer positions outside its windows, moving the pointer, a
/// grab of the whole screen. "Screen" coordinates are those of the display; where a display has none, they start at the
/// top-level's own corner.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Platform
{

class Surface;
class NativeWindow;

/// The pointer's looks. Hidden shows nothing.
enum class CursorShape
{
    Arrow,       ///< the usual one
    IBeam,       ///< over text
    Wait,        ///< the program is busy
    Cross,       ///< a cross
    Hand,        ///< over a link
    SizeWE,      ///< sizes horizontally
    SizeNS,      ///< sizes vertically
    SizeNWSE,    ///< sizes along the falling diagonal
    SizeNESW,    ///< sizes along the rising diagonal
    SizeAll,     ///< moves
    No,          ///< not here
    Help,        ///< asks for help
    AppStarting, ///< busy, but can be used
    UpArrow,     ///< an arrow straight up
    Hidden       ///< none
};

/// A button of the mouse.
enum class MouseButton
{
    Left,   ///< the main one
    Right,  ///< for context menus
    Middle, ///< the wheel
    X1,     ///< back
    X2      ///< forward
};

/// Keys and buttons that are down, and locks that are on, right after the event.
struct InputState
{
    bool shift = false;        ///< either Shift key
    bool control = false;      ///< either Ctrl key
    bool alt = false;          ///< the Alt key
    bool capsLock = false;     ///< letters are capitals
    bool numLock = false;      ///< the keypad writes digits
    bool leftButton = false;   ///< of the mouse
    bool rightButton = false;  ///< of the mouse
    bool middleButton = false; ///< of the mouse
    bool x1Button = false;     ///< of the mouse
    bool x2Button = false;     ///< of the mouse

    /// Equality of everything.
    friend bool operator==(InputState const&, InputState const&) = default;
};

/// When an event happened, as the display counts it. Needed again to own a selection or to start a drag.
struct InputStamp
{
    DWORD timeMs = 0;         ///< display time, wraps; on X11 the server's
    std::uint32_t serial = 0; ///< the display's own number of the event, 0 when it has none
};

/// What the mouse did.
struct MouseEvent
{
    /// What happened.
    enum class Kind
    {
        Move,            ///< the pointer moved
        Press,           ///< a button went down
        Release,         ///< a button went up
        Wheel,           ///< wheelDelta: 120 a notch, positive away from the user
        HorizontalWheel, ///< wheelDelta: 120 a notch, positive to the right
        Enter,           ///< the pointer came into the window
        Leave            ///< the pointer left the window
    };
    Kind kind = Kind::Move;                 ///< what happened
    MouseButton button = MouseButton::Left; ///< Press and Release only
    int wheelDelta = 0;                     ///< how far the wheel turned
    CPoint position{};       ///< in the native window, (0,0) its top left pixel; may lie outside while captured
    CPoint screenPosition{}; ///< on the display's screen
    InputState state;        ///< right after the event
    InputStamp stamp;        ///< when it happened
};

/// What a key did.
struct KeyEvent
{
    bool down = true;      ///< it went down, else up
    bool repeat = false;   ///< the key was down already
    bool extended = false; ///< navigation block, right Ctrl and Alt, keypad Enter and Divide
    UINT virtualKey = 0;   ///< VK_*, 0 when the text came without a key (composed, input method)
    UINT scanCode = 0;     ///< the hardware code as the display knows it
    std::string text;      ///< whole UTF-8 characters typed by a press, control characters included; often empty
    InputState state;      ///< right after the event
    InputStamp stamp;      ///< when it happened
};

/// Receives what a display saw, in the order in which it happened. Implemented by the window layer. A call only notes
/// the event: no window procedure runs inside, so that the display may be in the middle of its own work.
class DisplaySink
{
public:
    virtual ~DisplaySink() = default;

    /// The mouse did something in a window, or outside while a window has it.
    virtual void OnMouse(NativeWindow& window, MouseEvent const& event) = 0;
    /// A key did something while a window had the keyboard.
    virtual void OnKey(NativeWindow& window, KeyEvent const& event) = 0;
    /// A part of the window must be shown again. The back buffer still holds it: the window layer presents it.
    virtual void OnExpose(NativeWindow& window, CRect const& area) = 0;
    /// The window's inner area on the screen, after the user or the window manager changed it or after SetBounds.
    virtual void OnBounds(NativeWindow& window, CRect const& screenBounds) = 0;
    /// The user asks the window to close. Nothing is closed by the display.
    virtual void OnCloseRequest(NativeWindow& window) = 0;
    /// The keyboard came to the window or left it.
    virtual void OnFocus(NativeWindow& window, bool gained) = 0;
    /// The window became iconic or came back.
    virtual void OnMinimized(NativeWindow& window, bool minimized) = 0;
    /// The pointer grab of CapturePointer was broken by somebody else.
    virtual void OnCaptureLost(NativeWindow& window) = 0;
};

/// How a native window is made.
struct NativeWindowOptions
{
    /// Who places the window.
    enum class Kind
    {
        TopLevel, ///< managed by the window manager, with its title bar and borders
        Popup     ///< placed by us, unmanaged (override-redirect), stays above its parent
    };
    Kind kind = Kind::TopLevel;       ///< who places it
    NativeWindow* parent = nullptr;   ///< the window it belongs to (transient for); null: none. Outlives this one.
    CRect bounds{};                   ///< inner area on the screen, at least 1 x 1
    bool usesDefaultPosition = false; ///< a top-level whose place the window manager shall choose; size is in bounds
    /// Pop-up: the rectangle of the parent's inner area that it opens at; a display without screen coordinates places
    /// it by this. Empty: none given, bounds count.
    CRect anchor{};
    std::string title;         ///< UTF-8
    bool isResizable = true;   ///< by the user
    bool hasFrame = true;      ///< top-level: asks for title bar and borders
    bool acceptsFocus = true;  ///< false: clicks and showing never bring the keyboard to it
    bool isToolWindow = false; ///< not in task lists
    bool isTopMost = false;    ///< stays above all others
};

/// A native top-level or pop-up window and its back buffer. Made by a display, owned by the window layer; destroying
/// it takes it from the screen. The display outlives it.
class OSTREL_PLATFORM_API NativeWindow
{
public:
    NativeWindow() = default;
    NativeWindow(NativeWindow const&) = delete;
    NativeWindow& operator=(NativeWindow const&) = delete;
    virtual ~NativeWindow() = default;

    /// The inner area on the screen, as far as known: what was asked for last until the display reports otherwise.
    [[nodiscard]] virtual CRect Bounds() const = 0;
    /// Moves and resizes. The display answers with DisplaySink::OnBounds when it has happened or was changed; one
    /// with no window manager in between may report the same bounds.
    virtual void SetBounds(CRect const& screenBounds) = 0;
    /// Changes the title, UTF-8.
    virtual void SetTitle(std::string_view title) = 0;
    /// Shows the window; activate: with the keyboard, as far as its options and the window manager allow.
    virtual void Show(bool activate) = 0;
    /// Takes the window from the screen.
    virtual void Hide() = 0;
    ///@{
    /// Makes the window iconic, or as large as the screen, or what it was before.
    virtual void Minimize() = 0;
    virtual void Maximize() = 0;
    virtual void Restore() = 0;
    ///@}

    ///@{
    /// Puts the window above, or below, all others.
    virtual void Raise() = 0;
    virtual void Lower() = 0;
    ///@}
    /// Asks for the keyboard. A window that is not yet viewable gets it as soon as it is.
    virtual void Focus() = 0;
    /// The pointer's look over the window.
    virtual void SetCursor(CursorShape shape) = 0;

    /// From now on pointer events go to this window wherever the pointer is (presses outside too, as far as the display
    /// can tell), until ReleasePointer. While a button is down most displays do this by themselves.
    virtual void CapturePointer(InputStamp stamp) = 0;
    /// Ends what CapturePointer began.
    virtual void ReleasePointer() = 0;

    /// True when BackBuffer() would not wait: the screen has taken what was presented last.
    [[nodiscard]] virtual bool IsBufferFree() const = 0;
    /// The pixels to draw on, at least as large as Bounds(), (0,0) the top left pixel of the inner area. Waits until
    /// the screen has taken what was presented last (microseconds on a local X server). The contents stay what they
    /// were as long as the size does; after a change of size everything must be drawn anew and the reference may be
    /// another.
    virtual Surface& BackBuffer() = 0;
    /// Puts these parts of the back buffer on the screen. Rectangles do not overlap and lie inside the window. Until
    /// IsBufferFree() the buffer is in flight and must not be drawn on.
    virtual void Present(std::span<CRect const> dirty) = 0;

    ///@{
    /// For the window layer: what it hangs on the window. Never read by a display.
    [[nodiscard]] void* Tag() const noexcept { return m_tag; }
    void SetTag(void* tag) noexcept { m_tag = tag; }
    ///@}

private:
    void* m_tag = nullptr;
};

/// The display of one thread.
class OSTREL_PLATFORM_API Display
{
public:
    Display() = default;
    Display(Display const&) = delete;
    Display& operator=(Display const&) = delete;
    virtual ~Display() = default;

    /// "x11" or "headless".
    [[nodiscard]] virtual std::string_view Name() const = 0;

    /// Makes a window, which is hidden at first.
    virtual std::unique_ptr<NativeWindow> CreateNativeWindow(NativeWindowOptions const& options) = 0;

    /// Readable when native events wait; -1: events come only from this very thread, nothing to wait for.
    [[nodiscard]] virtual int EventFd() const = 0;
    /// Called right before the thread blocks: sends what is buffered. False: events have been read already, call
    /// PumpEvents instead of blocking.
    virtual bool PrepareToBlock() = 0;
    /// Reports everything that has arrived to the sink, without waiting.
    virtual void PumpEvents(DisplaySink& sink) = 0;
    /// Sends what is buffered: after presenting, when the thread goes on with other work.
    virtual void Flush() = 0;

    /// False once the server is gone. Every other call is then harmless and does nothing.
    [[nodiscard]] virtual bool IsAlive() const = 0;
    /// One line for a person: why IsAlive() is false.
    [[nodiscard]] virtual std::string LostReason() const = 0;

    /// The size of the screen in pixels.
    [[nodiscard]] virtual CSize ScreenSize() const = 0;
    /// Screen area without panels, for placing pop-ups; the whole screen when unknown.
    [[nodiscard]] virtual CRect WorkArea(CPoint nearScreenPoint) const = 0;
    /// Device pixels per 96-dpi pixel.
    [[nodiscard]] virtual double Scale() const = 0;
    ///@{
    /// Pointer and keys now, not as of the last message.
    [[nodiscard]] virtual CPoint PointerPosition() const = 0;
    [[nodiscard]] virtual InputState CurrentInputState() const = 0;
    ///@}

    /// The name of a clipboard or drag format as the display numbers it: a number from 0xC000 to 0xFFFF or above, equal
    /// in all processes of one server where it has one. 0: the display has no numbers, a process-local table counts.
    virtual UINT RegisterFormat(std::string_view /*name*/) { return 0; }

    /// Puts plain text (UTF-8) on the clipboard. The stamp is that of the input event that caused it.
    virtual bool SetClipboardText(std::string_view text, InputStamp stamp) = 0;
    /// Plain text of the clipboard (UTF-8); nothing when it holds none.
    virtual std::optional<std::string> ClipboardText() = 0;
};

/// The display for the calling thread, as the process chose it (environment, servers that answer). Never null: the
/// headless display always works. Defined by the display folder.
[[nodiscard]] OSTREL_PLATFORM_API std::unique_ptr<Display> MakeDisplay();

} // namespace Ostrel::Platform
