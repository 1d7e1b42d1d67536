#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <poll.h>

#include <xcb/shm.h>
#include <xcb/xcb_cursor.h>
#include <xcb/xcb_icccm.h>

#include <ostrel/platform/display/x11/X11Display.h>
#include <ostrel/platform/display/x11/X11Window.h>

namespace Ostrel::Platform
{

std::unique_ptr<Display> MakeX11Display(std::string& whyNot)
{
    auto connection = X11::Connection::Open(whyNot);
    return connection ? std::make_unique<X11::XDisplay>(std::move(connection)) : nullptr;
}

} // namespace Ostrel::Platform

namespace Ostrel::Platform::X11
{

namespace
{

template <class T>
T const& As(xcb_generic_event_t const& event) noexcept
{
    return reinterpret_cast<T const&>(event); // an event's kind tells its layout
}

std::uint8_t KindOf(xcb_generic_event_t const& event) noexcept
{
    return event.response_type & 0x7F;
}
bool IsFromServer(xcb_generic_event_t const& event) noexcept
{
    return (event.response_type & 0x80) == 0;
}

char const* CursorName(CursorShape shape)
{
    switch (shape)
    {
    case CursorShape::IBeam:
        return "xterm";
    case CursorShape::Wait:
        return "watch";
    case CursorShape::Cross:
        return "crosshair";
    case CursorShape::Hand:
        return "hand2";
    case CursorShape::SizeWE:
        return "sb_h_double_arrow";
    case CursorShape::SizeNS:
        return "sb_v_double_arrow";
    case CursorShape::SizeNWSE:
        return "bottom_right_corner";
    case CursorShape::SizeNESW:
        return "bottom_left_corner";
    case CursorShape::SizeAll:
        return "fleur";
    case CursorShape::No:
        return "crossed_circle";
    case CursorShape::Help:
        return "question_arrow";
    case CursorShape::AppStarting:
        return "left_ptr_watch";
    case CursorShape::UpArrow:
        return "sb_up_arrow";
    default:
        return "left_ptr";
    }
}

// Quarter steps: a font a little larger than usual does not blur every line of the screen.
double ScaleFromDotsPerInch(double dotsPerInch)
{
    return std::max(1.0, std::round(dotsPerInch / 96 * 4) / 4);
}

} // namespace

XDisplay::XDisplay(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection)),
      m_keyboard(*m_connection),
      m_clipboard(*this),
      m_scale(ScaleFromDotsPerInch(m_connection->DotsPerInch()))
{
    xcb_cursor_context_new(m_connection->Get(), const_cast<xcb_screen_t*>(&m_connection->Screen()), &m_cursorContext);
}

XDisplay::~XDisplay()
{
    for (auto const& [shape, cursor] : m_cursors)
    {
        xcb_free_cursor(m_connection->Get(), cursor);
    }
    if (m_cursorContext != nullptr)
    {
        xcb_cursor_context_free(m_cursorContext);
    }
    // A socket that is closed with unread events in it takes what was sent last with it: ask something and wait.
    if (IsAlive())
    {
        Reply<xcb_get_input_focus_reply_t> const reply(
            xcb_get_input_focus_reply(m_connection->Get(), xcb_get_input_focus(m_connection->Get()), nullptr));
    }
}

std::unique_ptr<NativeWindow> XDisplay::CreateNativeWindow(NativeWindowOptions const& options)
{
    return std::make_unique<XWindow>(*this, options);
}

int XDisplay::EventFd() const
{
    return xcb_get_file_descriptor(m_connection->Get());
}

bool XDisplay::PrepareToBlock()
{
    // Flushing may read events as well: they would wake nobody any more.
    xcb_flush(m_connection->Get());
    if (Event event{xcb_poll_for_queued_event(m_connection->Get())})
    {
        m_waiting.push_back(std::move(event));
    }
    return m_waiting.empty() && IsAlive();
}

XDisplay::Event XDisplay::NextEvent()
{
    if (m_waiting.empty())
    {
        return Event(xcb_poll_for_event(m_connection->Get()));
    }
    Event event = std::move(m_waiting.front());
    m_waiting.pop_front();
    return event;
}

void XDisplay::PumpEvents(DisplaySink& sink)
{
    Event motion; // only the newest of a run counts
    while (Event event = NextEvent())
    {
        bool const isMotion = KindOf(*event) == XCB_MOTION_NOTIFY;
        bool const isSameRun =
            motion && isMotion &&
            As<xcb_motion_notify_event_t>(*motion).event == As<xcb_motion_notify_event_t>(*event).event;
        if (motion && !isSameRun)
        {
            Handle(*motion, sink);
            motion.reset();
        }
        if (isMotion)
        {
            motion = std::move(event);
        }
        else
        {
            Handle(*event, sink);
        }
    }
    if (motion)
    {
        Handle(*motion, sink);
    }
}

void XDisplay::Flush()
{
    xcb_flush(m_connection->Get());
}

std::string XDisplay::LostReason() const
{
    return IsAlive() ? std::string() : "the connection to the X server was lost";
}

CSize XDisplay::ScreenSize() const
{
    return {m_connection->Screen().width_in_pixels, m_connection->Screen().height_in_pixels};
}

CRect XDisplay::WorkArea(CPoint /*nearScreenPoint*/) const
{
    CRect const screen({}, ScreenSize());
    auto const words = m_connection->Words(m_connection->Root(), (*m_connection)[Atom::NetWorkarea]);
    if (words.size() < 4)
    {
        return screen;
    }
    CRect const area(CPoint(static_cast<int>(words[0]), static_cast<int>(words[1])),
                     CSize(static_cast<int>(words[2]), static_cast<int>(words[3])));
    CRect const visible = area & screen;
    return visible.IsRectEmpty() ? screen : visible;
}

CPoint XDisplay::PointerPosition() const
{
    Reply<xcb_query_pointer_reply_t> const reply(xcb_query_pointer_reply(
        m_connection->Get(), xcb_query_pointer(m_connection->Get(), m_connection->Root()), nullptr));
    return reply ? CPoint(reply->root_x, reply->root_y) : CPoint();
}

InputState XDisplay::CurrentInputState() const
{
    Reply<xcb_query_pointer_reply_t> const reply(xcb_query_pointer_reply(
        m_connection->Get(), xcb_query_pointer(m_connection->Get(), m_connection->Root()), nullptr));
    return reply ? StateFrom(reply->mask) : InputState();
}

UINT XDisplay::RegisterFormat(std::string_view name)
{
    constexpr UINT kFirstRegistered = 0xC000; // small atoms would collide with the predefined formats
    xcb_atom_t const atom = m_connection->Intern(std::string(name));
    return atom != XCB_ATOM_NONE ? kFirstRegistered + atom : 0;
}

bool XDisplay::SetClipboardText(std::string_view text, InputStamp stamp)
{
    return IsAlive() && m_clipboard.SetText(text, stamp.timeMs != 0 ? stamp.timeMs : m_lastTime);
}

std::optional<std::string> XDisplay::ClipboardText()
{
    return IsAlive() ? m_clipboard.Text() : std::nullopt;
}

void XDisplay::Enter(XWindow& window)
{
    m_windows[window.Id()] = &window;
}

void XDisplay::Leave(XWindow& window) noexcept
{
    m_windows.erase(window.Id());
}

XWindow* XDisplay::WindowOf(xcb_window_t id) const noexcept
{
    auto const found = m_windows.find(id);
    return found != m_windows.end() ? found->second : nullptr;
}

xcb_cursor_t XDisplay::CursorFor(CursorShape shape)
{
    auto const [entry, isNew] = m_cursors.try_emplace(shape, XCB_NONE);
    if (!isNew)
    {
        return entry->second;
    }
    if (shape == CursorShape::Hidden)
    {
        xcb_pixmap_t const blank = xcb_generate_id(m_connection->Get());
        xcb_create_pixmap(m_connection->Get(), 1, blank, m_connection->Root(), 1, 1);
        entry->second = xcb_generate_id(m_connection->Get());
        xcb_create_cursor(m_connection->Get(), entry->second, blank, blank, 0, 0, 0, 0, 0, 0, 0, 0);
        xcb_free_pixmap(m_connection->Get(), blank);
    }
    else if (m_cursorContext != nullptr)
    {
        entry->second = xcb_cursor_load_cursor(m_cursorContext, CursorName(shape));
    }
    return entry->second;
}

void XDisplay::WaitForBuffer(Buffer& buffer)
{
    xcb_flush(m_connection->Get());
    while (buffer.IsInFlight())
    {
        Event event(xcb_wait_for_event(m_connection->Get()));
        if (!event)
        {
            buffer.Land();
        }
        else if (!HandleCompletion(*event))
        {
            m_waiting.push_back(std::move(event));
        }
    }
}

XDisplay::Event XDisplay::WaitForEvent(std::function<bool(xcb_generic_event_t const&)> const& isWanted)
{
    constexpr int kStepMs = 100;
    constexpr int kSteps = 10;
    xcb_flush(m_connection->Get());
    for (int step = 0; step < kSteps && IsAlive();)
    {
        Event event(xcb_poll_for_event(m_connection->Get()));
        if (!event)
        {
            pollfd wait{EventFd(), POLLIN, 0};
            step += poll(&wait, 1, kStepMs) == 0 ? 1 : 0;
        }
        else if (isWanted(*event))
        {
            return event;
        }
        else
        {
            m_waiting.push_back(std::move(event));
        }
    }
    return nullptr;
}

bool XDisplay::HandleCompletion(xcb_generic_event_t const& event) noexcept
{
    if (!m_connection->HasSharedMemory() || KindOf(event) != m_connection->CompletionEvent())
    {
        return false;
    }
    for (auto const& [id, window] : m_windows)
    {
        if (window->OnCompletion(As<xcb_shm_completion_event_t>(event).shmseg))
        {
            break;
        }
    }
    return true;
}

void XDisplay::Handle(xcb_generic_event_t const& event, DisplaySink& sink)
{
    if (HandleCompletion(event) || m_keyboard.HandleEvent(event))
    {
        return;
    }
    switch (KindOf(event))
    {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        HandleKey(As<xcb_key_press_event_t>(event), KindOf(event) == XCB_KEY_PRESS, sink);
        break;
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        HandleButton(As<xcb_button_press_event_t>(event), KindOf(event) == XCB_BUTTON_PRESS, sink);
        break;
    case XCB_MOTION_NOTIFY:
        HandleMotion(As<xcb_motion_notify_event_t>(event), sink);
        break;
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY:
        HandleCrossing(As<xcb_enter_notify_event_t>(event), KindOf(event) == XCB_ENTER_NOTIFY, sink);
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        HandleFocus(As<xcb_focus_in_event_t>(event), KindOf(event) == XCB_FOCUS_IN, sink);
        break;
    case XCB_SELECTION_REQUEST:
        m_clipboard.OnRequest(As<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR:
        m_clipboard.OnClear();
        break;
    default:
        HandleWindowEvent(event, sink);
        break;
    }
}

void XDisplay::HandleWindowEvent(xcb_generic_event_t const& event, DisplaySink& sink)
{
    switch (KindOf(event))
    {
    case XCB_EXPOSE: {
        auto const& expose = As<xcb_expose_event_t>(event);
        if (XWindow* window = WindowOf(expose.window))
        {
            sink.OnExpose(*window, CRect(CPoint(expose.x, expose.y), CSize(expose.width, expose.height)));
        }
        break;
    }
    case XCB_MAP_NOTIFY:
        if (XWindow* window = WindowOf(As<xcb_map_notify_event_t>(event).window))
        {
            window->OnMapped();
        }
        break;
    case XCB_UNMAP_NOTIFY:
        if (XWindow* window = WindowOf(As<xcb_unmap_notify_event_t>(event).window))
        {
            window->OnUnmapped();
        }
        break;
    case XCB_CONFIGURE_NOTIFY:
        HandleConfigure(As<xcb_configure_notify_event_t>(event), sink);
        break;
    case XCB_CLIENT_MESSAGE:
        HandleMessage(As<xcb_client_message_event_t>(event), sink);
        break;
    case XCB_PROPERTY_NOTIFY:
        HandleStateChange(As<xcb_property_notify_event_t>(event), sink);
        break;
    default:
        break;
    }
}

InputState XDisplay::StateFrom(std::uint16_t mask) const
{
    InputState state;
    m_keyboard.FillModifiers(state);
    state.leftButton = (mask & XCB_BUTTON_MASK_1) != 0;
    state.middleButton = (mask & XCB_BUTTON_MASK_2) != 0;
    state.rightButton = (mask & XCB_BUTTON_MASK_3) != 0;
    state.shift = (mask & XCB_MOD_MASK_SHIFT) != 0;
    state.control = (mask & XCB_MOD_MASK_CONTROL) != 0;
    state.alt = (mask & XCB_MOD_MASK_1) != 0;
    return state;
}

void XDisplay::HandleKey(xcb_key_press_event_t const& event, bool down, DisplaySink& sink)
{
    m_lastTime = event.time;
    XWindow* window = WindowOf(event.event);
    KeyEvent key = m_keyboard.Translate(event.detail, down);
    InputState const buttons = StateFrom(event.state);
    key.state.leftButton = buttons.leftButton;
    key.state.middleButton = buttons.middleButton;
    key.state.rightButton = buttons.rightButton;
    key.stamp = {event.time, event.sequence};
    if (window != nullptr)
    {
        sink.OnKey(*window, key);
    }
}

MouseEvent XDisplay::MakeMouseEvent(xcb_button_press_event_t const& event, MouseEvent::Kind kind) const
{
    MouseEvent mouse;
    mouse.kind = kind;
    mouse.position = CPoint(event.event_x, event.event_y);
    mouse.screenPosition = CPoint(event.root_x, event.root_y);
    mouse.state = StateFrom(event.state);
    mouse.stamp = {event.time, event.sequence};
    return mouse;
}

void XDisplay::HandleButton(xcb_button_press_event_t const& event, bool down, DisplaySink& sink)
{
    constexpr int kNotch = 120;
    m_lastTime = event.time;
    XWindow* window = WindowOf(event.event);
    if (window == nullptr)
    {
        return;
    }
    MouseEvent mouse = MakeMouseEvent(event, down ? MouseEvent::Kind::Press : MouseEvent::Kind::Release);
    switch (event.detail)
    {
    case 1:
        mouse.button = MouseButton::Left;
        mouse.state.leftButton = down;
        break;
    case 2:
        mouse.button = MouseButton::Middle;
        mouse.state.middleButton = down;
        break;
    case 3:
        mouse.button = MouseButton::Right;
        mouse.state.rightButton = down;
        break;
    case 4:
    case 5:
        mouse.kind = MouseEvent::Kind::Wheel;
        mouse.wheelDelta = event.detail == 4 ? kNotch : -kNotch;
        break;
    case 6:
    case 7:
        mouse.kind = MouseEvent::Kind::HorizontalWheel;
        mouse.wheelDelta = event.detail == 7 ? kNotch : -kNotch;
        break;
    case 8:
        mouse.button = MouseButton::X1;
        mouse.state.x1Button = down;
        break;
    case 9:
        mouse.button = MouseButton::X2;
        mouse.state.x2Button = down;
        break;
    default:
        return;
    }
    bool const isWheel = mouse.kind == MouseEvent::Kind::Wheel || mouse.kind == MouseEvent::Kind::HorizontalWheel;
    if (isWheel && !down)
    {
        return; // the notch was told with its press
    }
    if (!isWheel && down && !window->IsPopup() && !m_connection->HasWindowManager())
    {
        window->Raise(); // nobody else reacts to the click
        window->Focus();
    }
    sink.OnMouse(*window, mouse);
}

void XDisplay::HandleMotion(xcb_motion_notify_event_t const& event, DisplaySink& sink)
{
    m_lastTime = event.time;
    if (XWindow* window = WindowOf(event.event))
    {
        // A motion event has the layout of a button event.
        sink.OnMouse(*window,
                     MakeMouseEvent(reinterpret_cast<xcb_button_press_event_t const&>(event), MouseEvent::Kind::Move));
    }
}

void XDisplay::HandleCrossing(xcb_enter_notify_event_t const& event, bool entered, DisplaySink& sink)
{
    m_lastTime = event.time;
    XWindow* window = WindowOf(event.event);
    // Grabs make the pointer seem to leave and to come back.
    if (window == nullptr || event.mode != XCB_NOTIFY_MODE_NORMAL)
    {
        return;
    }
    MouseEvent mouse;
    mouse.kind = entered ? MouseEvent::Kind::Enter : MouseEvent::Kind::Leave;
    mouse.position = CPoint(event.event_x, event.event_y);
    mouse.screenPosition = CPoint(event.root_x, event.root_y);
    mouse.state = StateFrom(event.state);
    mouse.stamp = {event.time, event.sequence};
    sink.OnMouse(*window, mouse);
}

void XDisplay::HandleConfigure(xcb_configure_notify_event_t const& event, DisplaySink& sink)
{
    XWindow* window = WindowOf(event.window);
    if (window == nullptr)
    {
        return;
    }
    CPoint corner(event.x, event.y);
    if (IsFromServer(reinterpret_cast<xcb_generic_event_t const&>(event)) && !window->IsPopup())
    {
        // The server speaks of the place in the manager's frame, the manager itself of the place on the screen.
        Reply<xcb_translate_coordinates_reply_t> const reply(xcb_translate_coordinates_reply(
            m_connection->Get(),
            xcb_translate_coordinates(m_connection->Get(), event.window, m_connection->Root(), 0, 0), nullptr));
        corner = reply ? CPoint(reply->dst_x, reply->dst_y) : corner;
    }
    if (CRect const bounds(corner, CSize(event.width, event.height)); window->OnConfigured(bounds))
    {
        sink.OnBounds(*window, bounds);
    }
}

void XDisplay::HandleMessage(xcb_client_message_event_t const& event, DisplaySink& sink)
{
    XWindow* window = WindowOf(event.window);
    if (window == nullptr || event.type != (*m_connection)[Atom::WmProtocols])
    {
        return;
    }
    xcb_atom_t const protocol = event.data.data32[0];
    if (protocol == (*m_connection)[Atom::WmDeleteWindow])
    {
        m_lastTime = event.data.data32[1];
        sink.OnCloseRequest(*window);
    }
    else if (protocol == (*m_connection)[Atom::WmTakeFocus] && window->AcceptsFocus())
    {
        m_lastTime = event.data.data32[1];
        xcb_set_input_focus(m_connection->Get(), XCB_INPUT_FOCUS_PARENT, window->Id(), m_lastTime);
    }
    else if (protocol == (*m_connection)[Atom::NetWmPing])
    {
        xcb_client_message_event_t pong = event;
        pong.window = m_connection->Root();
        xcb_send_event(m_connection->Get(), 0, m_connection->Root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<char const*>(&pong));
    }
}

void XDisplay::HandleFocus(xcb_focus_in_event_t const& event, bool gained, DisplaySink& sink)
{
    XWindow* window = WindowOf(event.event);
    bool const isOfGrab = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (window == nullptr || isOfGrab || event.detail == XCB_NOTIFY_DETAIL_POINTER)
    {
        return;
    }
    if (!gained)
    {
        m_keyboard.ForgetKeys();
    }
    sink.OnFocus(*window, gained);
}

void XDisplay::HandleStateChange(xcb_property_notify_event_t const& event, DisplaySink& sink)
{
    m_lastTime = event.time;
    XWindow* window = WindowOf(event.window);
    if (window == nullptr || event.atom != (*m_connection)[Atom::WmState])
    {
        return;
    }
    auto const words = m_connection->Words(event.window, event.atom);
    if (!words.empty())
    {
        sink.OnMinimized(*window, words.front() == XCB_ICCCM_WM_STATE_ICONIC);
    }
}

} // namespace Ostrel::Platform::X11
