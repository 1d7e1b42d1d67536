#include <algorithm>
#include <cstdlib>

#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/detail/Cursors.h>
#include <ostrel/platform/window/detail/Input.h>
#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

namespace
{

constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;
constexpr int kDefaultHoverMs = 400;
constexpr int kHoverDistance = 4; ///< pixels that a resting pointer may move

HWND TopLevelOfNative(NativeWindow const& window) noexcept
{
    return static_cast<HWND>(window.Tag());
}

LPARAM PointParameter(CPoint point) noexcept
{
    return MAKELPARAM(point.x, point.y);
}

/// 0, 1, 2 for left, right, middle and 3 for the further ones: messages of the buttons lie three apart.
constexpr UINT ButtonRow(MouseButton button) noexcept
{
    switch (button)
    {
    case MouseButton::Left:
        return 0;
    case MouseButton::Right:
        return 1;
    case MouseButton::Middle:
        return 2;
    default:
        return 3;
    }
}

/// The lowest window in the tree that shows at a point of its top-level window, those to skip left out.
Window* Deepest(Window& window, CPoint inParent, std::vector<HWND> const& skipped)
{
    bool const isSkipped = std::find(skipped.begin(), skipped.end(), window.handle) != skipped.end();
    if (isSkipped || !window.HasStyle(WS_VISIBLE) || window.HasStyle(WS_DISABLED) || !window.bounds.PtInRect(inParent))
    {
        return nullptr;
    }
    CPoint const inClient(inParent.x - window.bounds.left - window.client.left,
                          inParent.y - window.bounds.top - window.client.top);
    if (window.ClientRect().PtInRect(inClient))
    {
        for (auto child = window.children.rbegin(); child != window.children.rend(); ++child)
        {
            if (Window* const found = Deepest(**child, inClient, skipped))
            {
                return found;
            }
        }
    }
    return &window;
}

LPARAM KeyParameter(KeyEvent const& event) noexcept
{
    DWORD bits = 1 | ((event.scanCode & 0xFFU) << 16U);
    bits |= event.extended ? 1U << 24U : 0U;
    bits |= event.state.alt ? 1U << 29U : 0U;
    bits |= event.repeat || !event.down ? 1U << 30U : 0U;
    bits |= event.down ? 0U : 1U << 31U;
    return static_cast<LPARAM>(bits);
}

} // namespace

// ---- from the display

void Input::OnMouse(NativeWindow& window, MouseEvent const& event)
{
    HWND const topLevel = TopLevelOfNative(window);
    if (event.kind == MouseEvent::Kind::Move && !m_events.empty() && m_events.back().topLevel == topLevel)
    {
        auto* const last = std::get_if<MouseEvent>(&m_events.back().what);
        if (last != nullptr && last->kind == MouseEvent::Kind::Move)
        {
            *last = event;
            return;
        }
    }
    m_events.push_back({topLevel, event});
}

void Input::OnKey(NativeWindow& window, KeyEvent const& event)
{
    m_events.push_back({TopLevelOfNative(window), event});
}

void Input::OnExpose(NativeWindow& window, CRect const& area)
{
    if (Window* const topLevel = m_state.Find(TopLevelOfNative(window)))
    {
        m_state.painter.Expose(*topLevel, area);
    }
}

void Input::OnBounds(NativeWindow& window, CRect const& /*screenBounds*/)
{
    m_events.push_back({TopLevelOfNative(window), BoundsEvent{}});
}

void Input::OnCloseRequest(NativeWindow& window)
{
    m_events.push_back({TopLevelOfNative(window), CloseEvent{}});
}

void Input::OnFocus(NativeWindow& window, bool gained)
{
    m_events.push_back({TopLevelOfNative(window), FocusEvent{gained}});
}

void Input::OnMinimized(NativeWindow& window, bool minimized)
{
    m_events.push_back({TopLevelOfNative(window), MinimizedEvent{minimized}});
}

void Input::OnCaptureLost(NativeWindow& window)
{
    m_events.push_back({TopLevelOfNative(window), CaptureLostEvent{}});
}

void Input::DisplayChanged()
{
    m_events.clear();
    m_ready.clear();
    m_translated.clear();
    m_keyText.clear();
    m_keys.fill(0);
    m_inputState = {};
    m_stamp = {};
    m_pointer = {};
    m_lastPress = {};
    m_over = {};
}

// ---- to the loop

bool Input::TakeFrom(std::deque<MSG>& messages, MSG& message, MessageFilter const& filter, bool take)
{
    auto const found =
        std::find_if(messages.begin(), messages.end(),
                     [&](MSG const& candidate) { return filter.Wants(candidate.hwnd, candidate.message); });
    if (found == messages.end())
    {
        return false;
    }
    message = *found;
    if (take)
    {
        messages.erase(found);
    }
    return true;
}

bool Input::Next(MSG& message, MessageFilter const& filter, bool take)
{
    while (!TakeFrom(m_ready, message, filter, take))
    {
        if (m_events.empty())
        {
            return false;
        }
        Event const event = std::move(m_events.front());
        m_events.pop_front();
        std::visit([&](auto const& what) { Handle(event.topLevel, what); }, event.what);
    }
    return true;
}

void Input::Ready(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    m_ready.push_back({window, message, wParam, lParam, m_stamp.timeMs, m_pointer});
}

// ---- events without a message of their own

// The bounds as they are by now: the program may have asked for others since the event was noted.
void Input::Handle(HWND topLevel, BoundsEvent const& /*event*/)
{
    Window const* const window = m_state.Find(topLevel);
    if (window != nullptr && window->native != nullptr)
    {
        AdoptBounds(topLevel, window->native->Bounds());
    }
}

void Input::Handle(HWND topLevel, CloseEvent const& /*event*/)
{
    Window const* const window = m_state.Find(topLevel);
    if (window != nullptr && !window->HasStyle(WS_DISABLED))
    {
        Ready(topLevel, WM_CLOSE, 0, 0);
    }
}

void Input::Handle(HWND topLevel, FocusEvent const& event)
{
    if (event.gained && m_state.Find(topLevel) != nullptr)
    {
        Activate(topLevel, WA_ACTIVE);
    }
    else if (!event.gained && m_active == topLevel)
    {
        Activate(nullptr, WA_INACTIVE);
    }
}

void Input::Handle(HWND topLevel, MinimizedEvent const& event)
{
    Window* const window = m_state.Find(topLevel);
    if (window != nullptr && window->isMinimized != event.minimized)
    {
        window->isMinimized = event.minimized;
        SendSize(topLevel);
    }
}

void Input::Handle(HWND topLevel, CaptureLostEvent const& /*event*/)
{
    if (m_capture != nullptr && GetTopLevel(m_capture) == topLevel)
    {
        ReleaseCapture();
    }
}

// ---- keyboard

void Input::NoteState(InputState const& state, InputStamp const& stamp)
{
    m_inputState = state;
    m_stamp = stamp;
    auto const note = [this](int virtualKey, bool down)
    {
        BYTE& key = m_keys[static_cast<std::size_t>(virtualKey)];
        key = static_cast<BYTE>((key & kToggled) | (down ? kDown : 0));
    };
    note(VK_SHIFT, state.shift);
    note(VK_CONTROL, state.control);
    note(VK_MENU, state.alt);
    note(VK_LBUTTON, state.leftButton);
    note(VK_RBUTTON, state.rightButton);
    note(VK_MBUTTON, state.middleButton);
    note(VK_XBUTTON1, state.x1Button);
    note(VK_XBUTTON2, state.x2Button);
    m_keys[VK_CAPITAL] = static_cast<BYTE>((m_keys[VK_CAPITAL] & kDown) | (state.capsLock ? kToggled : 0));
    m_keys[VK_NUMLOCK] = static_cast<BYTE>((m_keys[VK_NUMLOCK] & kDown) | (state.numLock ? kToggled : 0));
}

void Input::NoteKey(KeyEvent const& event)
{
    BYTE& key = m_keys[event.virtualKey & 0xFFU];
    bool const isLock = event.virtualKey == VK_CAPITAL || event.virtualKey == VK_NUMLOCK;
    bool const toggles = event.down && !event.repeat && !isLock;
    key = static_cast<BYTE>((event.down ? kDown : 0) | ((key & kToggled) ^ (toggles ? kToggled : 0)));
}

void Input::Handle(HWND /*topLevel*/, KeyEvent const& event)
{
    NoteState(event.state, event.stamp);
    NoteKey(event);
    HWND const target = m_focus != nullptr ? m_focus : m_active;
    Window const* const window = m_state.Find(target);
    if (window == nullptr || !IsActiveTree(*window))
    {
        return;
    }
    // Right Alt types characters on many keyboards and comes as Ctrl and Alt together: no system key then.
    bool const isSystem = (event.state.alt && !event.state.control) || event.virtualKey == VK_MENU ||
                          event.virtualKey == VK_F10 || m_focus == nullptr;
    UINT const message = event.down ? (isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN) : (isSystem ? WM_SYSKEYUP : WM_KEYUP);
    UINT const virtualKey = event.virtualKey != 0 ? event.virtualKey : UINT{VK_PACKET};
    if (event.down)
    {
        m_keyText = event.text;
    }
    Ready(target, message, virtualKey, KeyParameter(event));
}

bool Input::Translate(MSG const& key)
{
    bool const isDown = key.message == WM_KEYDOWN || key.message == WM_SYSKEYDOWN;
    if (!isDown || m_keyText.empty())
    {
        return false;
    }
    UINT const message = key.message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
    for (char const byte : m_keyText)
    {
        m_translated.push_back({key.hwnd, message, static_cast<unsigned char>(byte), key.lParam, key.time, key.pt});
    }
    m_keyText.clear();
    return true;
}

short Input::KeyState(int virtualKey) const noexcept
{
    BYTE const key = m_keys[static_cast<std::size_t>(virtualKey) & 0xFFU];
    return static_cast<short>(((key & kDown) != 0 ? 0x8000 : 0) | (key & kToggled));
}

// ---- mouse

WPARAM Input::MouseFlags() const noexcept
{
    InputState const& state = m_inputState;
    return (state.leftButton ? MK_LBUTTON : 0U) | (state.rightButton ? MK_RBUTTON : 0U) |
           (state.middleButton ? MK_MBUTTON : 0U) | (state.x1Button ? MK_XBUTTON1 : 0U) |
           (state.x2Button ? MK_XBUTTON2 : 0U) | (state.shift ? MK_SHIFT : 0U) | (state.control ? MK_CONTROL : 0U);
}

HWND Input::WindowAt(CPoint screenPoint) const
{
    std::vector<Window*> const& topLevels = m_state.TopLevels();
    for (auto topLevel = topLevels.rbegin(); topLevel != topLevels.rend(); ++topLevel)
    {
        if (Window const* const found = Deepest(**topLevel, screenPoint, {}))
        {
            return found->handle;
        }
    }
    return nullptr;
}

// Geometry first and questions afterwards: a window procedure may change the tree.
Input::Target Input::FindTarget(HWND topLevel, CPoint screenPoint) const
{
    std::vector<HWND> transparent;
    for (;;)
    {
        Window* const top = m_state.Find(topLevel);
        Window const* const found = top != nullptr ? Deepest(*top, screenPoint, transparent) : nullptr;
        if (found == nullptr)
        {
            return {};
        }
        HWND const handle = found->handle;
        int const hit = static_cast<int>(CallProcedure(handle, WM_NCHITTEST, 0, PointParameter(screenPoint)));
        if (hit != HTTRANSPARENT)
        {
            return {handle, hit};
        }
        transparent.push_back(handle);
    }
}

bool Input::IsDoubleClick(MouseEvent const& event, Target const& target)
{
    Window const* const window = m_state.Find(target.window);
    bool const wantsIt =
        window != nullptr && (target.hit != HTCLIENT || (window->windowClass->description.style & CS_DBLCLKS) != 0);
    CSize const distance = event.screenPosition - m_lastPress.place;
    bool const isDouble = wantsIt && m_lastPress.isFresh && m_lastPress.target == target &&
                          m_lastPress.button == event.button &&
                          event.stamp.timeMs - m_lastPress.timeMs <= GetDoubleClickTime() &&
                          std::abs(distance.cx) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
                          std::abs(distance.cy) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
    m_lastPress = {target, event.button, event.stamp.timeMs, event.screenPosition, !isDouble};
    return isDouble;
}

UINT Input::ButtonMessage(MouseEvent const& event, Target const& target)
{
    UINT const column = event.kind == MouseEvent::Kind::Release ? 1U : (IsDoubleClick(event, target) ? 2U : 0U);
    UINT const first = target.hit == HTCLIENT ? WM_LBUTTONDOWN : WM_NCLBUTTONDOWN;
    UINT const row = ButtonRow(event.button);
    return row == 3 ? WM_XBUTTONDOWN + column : first + row * 3 + column;
}

bool Input::ActivateByPress(Target const& target, UINT message)
{
    HWND const topLevel = GetTopLevel(target.window);
    auto const wParam = reinterpret_cast<WPARAM>(topLevel);
    LRESULT const answer =
        CallProcedure(target.window, WM_MOUSEACTIVATE, wParam, MAKELPARAM(target.hit, static_cast<int>(message)));
    if (answer != MA_NOACTIVATE && answer != MA_NOACTIVATEANDEAT && m_active != topLevel)
    {
        Activate(topLevel, WA_CLICKACTIVE);
    }
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

void Input::HandleWheel(MouseEvent const& event, Target const& target)
{
    UINT const message = event.kind == MouseEvent::Kind::Wheel ? WM_MOUSEWHEEL : WM_MOUSEHWHEEL;
    WPARAM const flags = MAKEWPARAM(static_cast<int>(MouseFlags()), event.wheelDelta);
    Ready(target.window, message, flags, PointParameter(event.screenPosition));
}

void Input::Handle(HWND topLevel, MouseEvent const& event)
{
    NoteState(event.state, event.stamp);
    m_pointer = event.screenPosition;
    if (event.kind == MouseEvent::Kind::Leave)
    {
        UpdateTracking({});
        return;
    }
    m_pointerTopLevel = topLevel;
    if (m_state.scrollTracker.TakesMouse(event))
    {
        return;
    }
    bool const isCaptured = m_state.Find(m_capture) != nullptr;
    Target const target = isCaptured ? Target{m_capture, HTCLIENT} : FindTarget(topLevel, event.screenPosition);
    UpdateTracking(target);
    if (target.window == nullptr || event.kind == MouseEvent::Kind::Enter)
    {
        return;
    }
    if (event.kind == MouseEvent::Kind::Wheel || event.kind == MouseEvent::Kind::HorizontalWheel)
    {
        HandleWheel(event, target);
        return;
    }
    bool const isClient = target.hit == HTCLIENT;
    bool const isMove = event.kind == MouseEvent::Kind::Move;
    UINT const message = isMove ? (isClient ? WM_MOUSEMOVE : WM_NCMOUSEMOVE) : ButtonMessage(event, target);
    if (event.kind == MouseEvent::Kind::Press && !isCaptured && !ActivateByPress(target, message))
    {
        return;
    }
    if (!isCaptured)
    {
        CallProcedure(target.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(target.window),
                      MAKELPARAM(target.hit, static_cast<int>(message)));
    }
    CPoint place = event.screenPosition;
    WPARAM flags = static_cast<WPARAM>(target.hit);
    if (isClient || ButtonRow(event.button) == 3)
    {
        int const xButton = event.button == MouseButton::X1 ? 1 : 2;
        flags = MouseFlags() | (!isMove && ButtonRow(event.button) == 3 ? MAKEWPARAM(0, xButton) : 0U);
        ScreenToClient(target.window, &place);
    }
    Ready(target.window, message, flags, PointParameter(place));
}

// ---- hover and leave

void Input::UpdateTracking(Target const& target)
{
    m_over = target;
    HWND const over = target.hit == HTCLIENT ? target.window : nullptr;
    if (m_leaveWindow != nullptr && m_leaveWindow != over)
    {
        Ready(std::exchange(m_leaveWindow, nullptr), WM_MOUSELEAVE, 0, 0);
    }
    if (m_hoverWindow == nullptr)
    {
        return;
    }
    CSize const distance = m_pointer - m_hoverPlace;
    if (m_hoverWindow != over)
    {
        m_state.timers.Kill({std::exchange(m_hoverWindow, nullptr), 0, TimerList::Kind::Hover});
    }
    else if (std::abs(distance.cx) > kHoverDistance || std::abs(distance.cy) > kHoverDistance)
    {
        StartHover(m_hoverDelayMs);
    }
}

void Input::StartHover(int delayMs)
{
    m_hoverDelayMs = delayMs;
    m_hoverPlace = m_pointer;
    m_state.timers.Set({m_hoverWindow, 0, TimerList::Kind::Hover}, delayMs, nullptr, [this] { HoverIsDue(); });
}

void Input::HoverIsDue()
{
    HWND const window = std::exchange(m_hoverWindow, nullptr);
    m_state.timers.Kill({window, 0, TimerList::Kind::Hover});
    CPoint place = m_pointer;
    if (ScreenToClient(window, &place) != FALSE)
    {
        PostMessage(window, WM_MOUSEHOVER, MouseFlags(), PointParameter(place));
    }
}

BOOL Input::Track(TRACKMOUSEEVENT& event)
{
    if ((event.dwFlags & TME_QUERY) != 0)
    {
        event.hwndTrack = m_leaveWindow != nullptr ? m_leaveWindow : m_hoverWindow;
        event.dwFlags = (m_leaveWindow != nullptr ? TME_LEAVE : 0U) | (m_hoverWindow != nullptr ? TME_HOVER : 0U);
        return TRUE;
    }
    if (m_state.Find(event.hwndTrack) == nullptr)
    {
        return FALSE;
    }
    bool const cancels = (event.dwFlags & TME_CANCEL) != 0;
    bool const isOver = m_over.window == event.hwndTrack && m_over.hit == HTCLIENT;
    if ((event.dwFlags & TME_LEAVE) != 0)
    {
        m_leaveWindow = cancels || !isOver ? nullptr : event.hwndTrack;
        if (!cancels && !isOver)
        {
            PostMessage(event.hwndTrack, WM_MOUSELEAVE);
        }
    }
    if ((event.dwFlags & TME_HOVER) != 0)
    {
        m_state.timers.Kill({m_hoverWindow, 0, TimerList::Kind::Hover});
        m_hoverWindow = cancels || !isOver ? nullptr : event.hwndTrack;
        if (m_hoverWindow != nullptr)
        {
            bool const isDefault = event.dwHoverTime == HOVER_DEFAULT || event.dwHoverTime == 0;
            StartHover(isDefault ? kDefaultHoverMs : static_cast<int>(std::min<DWORD>(event.dwHoverTime, 1U << 30U)));
        }
    }
    return TRUE;
}

HCURSOR Input::SetCursor(HCURSOR cursor)
{
    HCURSOR const before = std::exchange(m_cursor, cursor);
    Window const* const topLevel = m_state.Find(m_pointerTopLevel);
    if (topLevel != nullptr && topLevel->native != nullptr)
    {
        topLevel->native->SetCursor(ShapeOf(cursor));
    }
    return before;
}

// ---- focus, activation, capture

bool Input::IsInside(HWND window, HWND ancestor) const
{
    Window const* const above = m_state.Find(ancestor);
    return above != nullptr && IsSelfOrAncestor(*above, m_state.Find(window));
}

void Input::ChangeFocus(HWND window)
{
    HWND const before = std::exchange(m_focus, window);
    if (Window* const record = m_state.Find(window))
    {
        TopLevelOf(*record).lastFocus = window;
    }
    CallProcedure(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (m_focus == window)
    {
        CallProcedure(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
    }
}

HWND Input::SetFocus(HWND window)
{
    HWND const before = m_focus;
    Window* const record = m_state.Find(window);
    if (window == before || (window != nullptr && (record == nullptr || !IsActiveTree(*record))))
    {
        return window == before ? before : nullptr;
    }
    if (record != nullptr)
    {
        Window& topLevel = TopLevelOf(*record);
        topLevel.lastFocus = window;
        if (topLevel.handle != m_active)
        {
            Activate(topLevel.handle, WA_ACTIVE);
        }
    }
    if (m_focus != window && (window == nullptr || m_state.Find(window) != nullptr))
    {
        ChangeFocus(window);
    }
    return before;
}

void Input::Activate(HWND topLevel, WORD how)
{
    if (topLevel == m_active)
    {
        return;
    }
    HWND const before = std::exchange(m_active, topLevel);
    CallProcedure(before, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(topLevel));
    if (m_active != topLevel)
    {
        return;
    }
    Window* window = m_state.Find(topLevel);
    if (window != nullptr && window->native != nullptr && window->HasStyle(WS_VISIBLE))
    {
        window->native->Focus();
    }
    CallProcedure(topLevel, WM_ACTIVATE, how, reinterpret_cast<LPARAM>(before));
    window = m_state.Find(topLevel);
    if (m_active == topLevel && !IsInside(m_focus, topLevel))
    {
        HWND const last = window != nullptr ? window->lastFocus : nullptr;
        ChangeFocus(IsInside(last, topLevel) ? last : topLevel);
    }
}

HWND Input::SetCapture(HWND window)
{
    Window* const record = m_state.Find(window);
    if (record == nullptr)
    {
        return nullptr;
    }
    HWND const before = std::exchange(m_capture, window);
    if (NativeWindow* const native = TopLevelOf(*record).native.get())
    {
        native->CapturePointer(m_stamp);
    }
    if (before != window)
    {
        CallProcedure(before, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    }
    return before;
}

bool Input::ReleaseCapture()
{
    HWND const before = std::exchange(m_capture, nullptr);
    if (Window* const record = m_state.Find(before))
    {
        if (NativeWindow* const native = TopLevelOf(*record).native.get())
        {
            native->ReleasePointer();
        }
        m_state.scrollTracker.CaptureLost(before);
        CallProcedure(before, WM_CAPTURECHANGED, 0, 0);
    }
    return before != nullptr;
}

HWND Input::HeirOfFocus(HWND window) const
{
    Window const* const record = m_state.Find(window);
    Window const* const heir = record != nullptr ? record->parent : nullptr;
    return heir != nullptr && IsActiveTree(*heir) && IsShown(*heir) && !heir->isDestroying ? heir->handle : nullptr;
}

void Input::WindowGoesAway(HWND window)
{
    if (IsInside(m_capture, window))
    {
        ReleaseCapture();
    }
    if (m_focus != nullptr && IsInside(m_focus, window))
    {
        ChangeFocus(HeirOfFocus(window));
    }
    Window const* const record = m_state.Find(window);
    bool const leaves = record != nullptr && (record->isDestroying || !record->HasStyle(WS_VISIBLE));
    if (m_active == window && leaves)
    {
        Window const* const owner = m_state.Find(record->owner);
        bool const passesOn = owner != nullptr && IsShown(*owner) && IsActiveTree(*owner);
        Activate(passesOn ? owner->handle : nullptr, WA_ACTIVE);
    }
}

void Input::Forget(HWND window)
{
    m_capture = m_capture == window ? nullptr : m_capture;
    m_focus = m_focus == window ? nullptr : m_focus;
    m_active = m_active == window ? nullptr : m_active;
    m_leaveWindow = m_leaveWindow == window ? nullptr : m_leaveWindow;
    m_hoverWindow = m_hoverWindow == window ? nullptr : m_hoverWindow;
    m_over = m_over.window == window ? Target{} : m_over;
}

} // namespace Ostrel::Platform
