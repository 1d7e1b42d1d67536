#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/platform/display/headless/detail/AmericanKeyboard.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/VirtualKeys.h>

namespace Ostrel::Platform
{

namespace
{

struct SharedClipboard
{
    Mutex lock;
    std::optional<std::string> text OSTREL_GUARDED_BY(lock);
};

SharedClipboard& Clipboard()
{
    static SharedClipboard& clipboard = *new SharedClipboard;
    return clipboard;
}

bool& ButtonState(InputState& state, MouseButton button) noexcept
{
    switch (button)
    {
    case MouseButton::Right:
        return state.rightButton;
    case MouseButton::Middle:
        return state.middleButton;
    case MouseButton::X1:
        return state.x1Button;
    case MouseButton::X2:
        return state.x2Button;
    case MouseButton::Left:
        break;
    }
    return state.leftButton;
}

bool HasButtonDown(InputState const& state) noexcept
{
    return state.leftButton || state.rightButton || state.middleButton || state.x1Button || state.x2Button;
}

void NoteModifier(InputState& state, UINT virtualKey, bool down) noexcept
{
    switch (virtualKey)
    {
    case VK_SHIFT:
    case VK_LSHIFT:
    case VK_RSHIFT:
        state.shift = down;
        break;
    case VK_CONTROL:
    case VK_LCONTROL:
    case VK_RCONTROL:
        state.control = down;
        break;
    case VK_MENU:
    case VK_LMENU:
    case VK_RMENU:
        state.alt = down;
        break;
    case VK_CAPITAL:
        state.capsLock = state.capsLock != down;
        break;
    default:
        break;
    }
}

} // namespace

HeadlessDisplay::HeadlessDisplay(CSize screen, Shows shows) : m_screen(screen), m_shows(shows), m_keysDown(256, false)
{}

HeadlessDisplay::~HeadlessDisplay() = default;

HeadlessDisplay& HeadlessDisplay::OfThread()
{
    auto* const display = dynamic_cast<HeadlessDisplay*>(&ThreadDisplay());
    if (display == nullptr)
    {
        std::fputs("ostrel: the thread's display is not headless; set OSTREL_DISPLAY=headless\n", stderr);
        std::abort();
    }
    return *display;
}

// ---- windows

std::unique_ptr<NativeWindow> HeadlessDisplay::CreateNativeWindow(NativeWindowOptions const& options)
{
    return std::make_unique<HeadlessWindow>(*this, options);
}

void HeadlessDisplay::Add(HeadlessWindow& window)
{
    m_windows.push_back(&window);
}

void HeadlessDisplay::Remove(HeadlessWindow& window)
{
    std::erase(m_windows, &window);
    std::erase_if(m_events, [&](PendingEvent const& event) { return event.window == &window; });
    for (HeadlessWindow** const holder :
         {&m_pointerWindow, &m_captured, &m_pressed, &m_focused, &m_reportedFocus, &m_leftFocus})
    {
        if (*holder == &window)
        {
            bool const hadFocus = holder == &m_focused;
            *holder = nullptr;
            if (hadFocus)
            {
                FocusTopmost();
            }
        }
    }
    UpdatePointerWindow();
}

void HeadlessDisplay::FocusTopmost()
{
    auto const found = std::find_if(m_windows.rbegin(), m_windows.rend(),
                                    [](HeadlessWindow const* window)
                                    { return window->IsVisible() && window->Options().acceptsFocus; });
    SetFocused(found != m_windows.rend() ? *found : nullptr);
}

void HeadlessDisplay::Restack(HeadlessWindow& window, bool onTop)
{
    std::erase(m_windows, &window);
    m_windows.insert(onTop ? m_windows.end() : m_windows.begin(), &window);
    UpdatePointerWindow();
}

HeadlessWindow* HeadlessDisplay::WindowAt(CPoint screenPoint) const noexcept
{
    auto const found = std::find_if(m_windows.rbegin(), m_windows.rend(),
                                    [&](HeadlessWindow const* window)
                                    { return window->IsVisible() && window->Bounds().PtInRect(screenPoint); });
    return found != m_windows.rend() ? *found : nullptr;
}

CRect HeadlessDisplay::WorkArea(CPoint /*nearScreenPoint*/) const
{
    return {CPoint(0, 0), m_screen};
}

double HeadlessDisplay::Scale() const
{
    return GetScale();
}

// ---- events

void HeadlessDisplay::PutEvent(HeadlessWindow& window, Event report)
{
    m_events.push_back({&window, std::move(report)});
}

void HeadlessDisplay::PutBounds(HeadlessWindow& window)
{
    PutEvent(window, [&window](DisplaySink& sink) { sink.OnBounds(window, window.Bounds()); });
}

// Only where the keyboard has ended up is told: windows that had it in between never knew.
void HeadlessDisplay::ReportFocus(DisplaySink& sink)
{
    if (m_focused == m_reportedFocus)
    {
        return;
    }
    HeadlessWindow* const before = std::exchange(m_reportedFocus, m_focused);
    if (before != nullptr)
    {
        sink.OnFocus(*before, false);
    }
    if (m_focused != nullptr)
    {
        sink.OnFocus(*m_focused, true);
    }
}

void HeadlessDisplay::PumpEvents(DisplaySink& sink)
{
    ReportFocus(sink);
    while (!m_events.empty())
    {
        PendingEvent const event = std::move(m_events.front());
        m_events.pop_front();
        event.report(sink);
    }
}

InputStamp HeadlessDisplay::NextStamp() noexcept
{
    return {Clock::Ticks(), ++m_serial};
}

// ---- pointer

HeadlessWindow* HeadlessDisplay::PointerTarget() const noexcept
{
    if (m_captured != nullptr)
    {
        return m_captured;
    }
    return m_pressed != nullptr ? m_pressed : WindowAt(m_pointer);
}

void HeadlessDisplay::PutMouse(HeadlessWindow& window, MouseEvent::Kind kind, MouseButton button, int wheelDelta)
{
    MouseEvent event;
    event.kind = kind;
    event.button = button;
    event.wheelDelta = wheelDelta;
    event.screenPosition = m_pointer;
    event.position = m_pointer - CSize(window.Bounds().left, window.Bounds().top);
    event.state = m_state;
    event.stamp = NextStamp();
    PutEvent(window, [&window, event](DisplaySink& sink) { sink.OnMouse(window, event); });
}

void HeadlessDisplay::UpdatePointerWindow()
{
    HeadlessWindow* const target = PointerTarget();
    if (target == m_pointerWindow)
    {
        return;
    }
    if (m_pointerWindow != nullptr)
    {
        PutMouse(*m_pointerWindow, MouseEvent::Kind::Leave);
    }
    m_pointerWindow = target;
    if (target != nullptr)
    {
        PutMouse(*target, MouseEvent::Kind::Enter);
    }
}

void HeadlessDisplay::MovePointer(CPoint screenPoint)
{
    m_pointer = screenPoint;
    UpdatePointerWindow();
    if (m_pointerWindow != nullptr)
    {
        PutMouse(*m_pointerWindow, MouseEvent::Kind::Move);
    }
}

void HeadlessDisplay::PutButton(MouseButton button, bool down)
{
    ButtonState(m_state, button) = down;
    HeadlessWindow* const target = PointerTarget();
    if (target != nullptr)
    {
        PutMouse(*target, down ? MouseEvent::Kind::Press : MouseEvent::Kind::Release, button);
    }
    m_pressed = HasButtonDown(m_state) ? target : nullptr;
    UpdatePointerWindow();
}

void HeadlessDisplay::Press(MouseButton button)
{
    HeadlessWindow* const target = PointerTarget();
    if (target != nullptr && target->Options().kind == NativeWindowOptions::Kind::TopLevel)
    {
        target->Raise();
        target->Focus();
    }
    PutButton(button, true);
}

void HeadlessDisplay::Release(MouseButton button)
{
    PutButton(button, false);
}

void HeadlessDisplay::Wheel(int delta, bool horizontal)
{
    if (HeadlessWindow* const target = PointerTarget())
    {
        PutMouse(*target, horizontal ? MouseEvent::Kind::HorizontalWheel : MouseEvent::Kind::Wheel, MouseButton::Left,
                 delta);
    }
}

CursorShape HeadlessDisplay::Cursor() const noexcept
{
    return m_pointerWindow != nullptr ? m_pointerWindow->Cursor() : CursorShape::Arrow;
}

// ---- keyboard

void HeadlessDisplay::PutKey(UINT virtualKey, bool down, std::string text)
{
    bool const isRepeat = down && m_keysDown[virtualKey & 0xFFU];
    m_keysDown[virtualKey & 0xFFU] = down;
    if (!isRepeat && (down || virtualKey != VK_CAPITAL))
    {
        NoteModifier(m_state, virtualKey, down);
    }
    if (m_focused == nullptr)
    {
        return;
    }
    KeyEvent event;
    event.down = down;
    event.repeat = isRepeat;
    event.extended = IsExtendedKey(virtualKey);
    event.virtualKey = virtualKey;
    event.scanCode = virtualKey & 0xFFU;
    event.text = std::move(text);
    event.state = m_state;
    event.stamp = NextStamp();
    HeadlessWindow& window = *m_focused;
    PutEvent(window, [&window, event](DisplaySink& sink) { sink.OnKey(window, event); });
}

void HeadlessDisplay::KeyDown(UINT virtualKey)
{
    PutKey(virtualKey, true, TextOfKey(virtualKey, m_state));
}

void HeadlessDisplay::KeyUp(UINT virtualKey)
{
    PutKey(virtualKey, false, {});
}

void HeadlessDisplay::TypeText(std::string_view text)
{
    for (Keystroke const& stroke : KeystrokesOf(text))
    {
        bool const addsShift = stroke.shift && !m_state.shift;
        if (addsShift)
        {
            KeyDown(VK_SHIFT);
        }
        PutKey(stroke.virtualKey, true, stroke.text);
        PutKey(stroke.virtualKey, false, {});
        if (addsShift)
        {
            KeyUp(VK_SHIFT);
        }
    }
}

// ---- the world around

void HeadlessDisplay::RequestClose(NativeWindow& window)
{
    auto& target = static_cast<HeadlessWindow&>(window);
    PutEvent(target, [&target](DisplaySink& sink) { sink.OnCloseRequest(target); });
}

void HeadlessDisplay::ResizeByUser(NativeWindow& window, CRect const& screenBounds)
{
    window.SetBounds(screenBounds);
}

void HeadlessDisplay::LeaveProgram()
{
    m_leftFocus = m_focused;
    SetFocused(nullptr);
}

void HeadlessDisplay::ReturnToProgram()
{
    if (m_leftFocus != nullptr)
    {
        SetFocused(std::exchange(m_leftFocus, nullptr));
    }
}

void HeadlessDisplay::LoseServer(std::string reason)
{
    m_lostReason = std::move(reason);
}

bool HeadlessDisplay::SetClipboardText(std::string_view text, InputStamp /*stamp*/)
{
    SharedClipboard& clipboard = Clipboard();
    MutexLock const lock(clipboard.lock);
    clipboard.text = text;
    return true;
}

std::optional<std::string> HeadlessDisplay::ClipboardText()
{
    SharedClipboard& clipboard = Clipboard();
    MutexLock const lock(clipboard.lock);
    return clipboard.text;
}

// ---- pixels

COLORREF HeadlessDisplay::ColorAt(CPoint screenPoint) const noexcept
{
    HeadlessWindow const* const window = WindowAt(screenPoint);
    if (window == nullptr)
    {
        return kBackdrop;
    }
    CRect const bounds = window->Bounds();
    return window->Pixels().ColorAt(screenPoint.x - bounds.left, screenPoint.y - bounds.top);
}

Surface HeadlessDisplay::Screenshot() const
{
    Surface shot(m_screen.cx, m_screen.cy);
    for (int y = 0; y < shot.Height(); ++y)
    {
        std::fill_n(shot.Row(y), shot.Width(), PixelFromColor(kBackdrop));
    }
    for (HeadlessWindow const* const window : m_windows)
    {
        if (window->IsVisible())
        {
            shot.CopyFrom(window->Pixels(), window->Pixels().Bounds(), window->Bounds().TopLeft());
        }
    }
    return shot;
}

} // namespace Ostrel::Platform
