#include <algorithm>
#include <array>

#include <unistd.h>

#include <xcb/xcb_icccm.h>

#include <ostrel/platform/display/x11/X11Display.h>
#include <ostrel/platform/display/x11/X11Window.h>

namespace Ostrel::Platform::X11
{

namespace
{

constexpr std::uint32_t kWindowEvents =
    XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_BUTTON_PRESS |
    XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW |
    XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
    XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_PROPERTY_CHANGE;
constexpr std::uint16_t kGrabbedEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                         XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                                         XCB_EVENT_MASK_LEAVE_WINDOW;

} // namespace

XWindow::XWindow(XDisplay& display, NativeWindowOptions const& options)
    : m_display(display),
      m_connection(display.GetConnection()),
      m_id(xcb_generate_id(m_connection.Get())),
      m_context(xcb_generate_id(m_connection.Get())),
      m_buffer(m_connection),
      m_bounds(options.bounds.TopLeft(),
               CSize(std::max(options.bounds.Width(), 1), std::max(options.bounds.Height(), 1))),
      m_isPopup(options.kind == NativeWindowOptions::Kind::Popup),
      m_acceptsFocus(options.acceptsFocus),
      m_isResizable(options.isResizable)
{
    // No background: the server shows the old pixels until ours arrive, instead of a flash.
    std::array<std::uint32_t, 3> const values = {XCB_BACK_PIXMAP_NONE, m_isPopup ? 1U : 0U, kWindowEvents};
    xcb_create_window(m_connection.Get(), XCB_COPY_FROM_PARENT, m_id, m_connection.Root(),
                      static_cast<std::int16_t>(m_bounds.left), static_cast<std::int16_t>(m_bounds.top),
                      static_cast<std::uint16_t>(m_bounds.Width()), static_cast<std::uint16_t>(m_bounds.Height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, m_connection.Screen().root_visual,
                      XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_create_gc(m_connection.Get(), m_context, m_id, 0, nullptr);
    m_display.Enter(*this);
    SetHints(options);
    SetTitle(options.title);
}

XWindow::~XWindow()
{
    m_display.Leave(*this);
    xcb_free_gc(m_connection.Get(), m_context);
    xcb_destroy_window(m_connection.Get(), m_id);
    xcb_flush(m_connection.Get());
}

void XWindow::SetHints(NativeWindowOptions const& options)
{
    std::array const protocols = {m_connection[Atom::WmDeleteWindow], m_connection[Atom::WmTakeFocus],
                                  m_connection[Atom::NetWmPing]};
    SetAtoms(m_connection[Atom::WmProtocols], protocols);

    xcb_icccm_wm_hints_t hints{};
    xcb_icccm_wm_hints_set_input(&hints, m_acceptsFocus ? 1 : 0);
    xcb_icccm_wm_hints_set_normal(&hints);
    xcb_icccm_set_wm_hints(m_connection.Get(), m_id, &hints);

    Atom const type = m_isPopup              ? Atom::NetWmWindowTypePopupMenu
                      : options.isToolWindow ? Atom::NetWmWindowTypeUtility
                                             : Atom::NetWmWindowTypeNormal;
    std::array const types = {m_connection[type]};
    SetAtoms(m_connection[Atom::NetWmWindowType], types);

    if (options.isTopMost || options.isToolWindow)
    {
        std::vector<xcb_atom_t> states;
        if (options.isTopMost)
        {
            states.push_back(m_connection[Atom::NetWmStateAbove]);
        }
        if (options.isToolWindow)
        {
            states.push_back(m_connection[Atom::NetWmStateSkipTaskbar]);
        }
        SetAtoms(m_connection[Atom::NetWmState], states);
    }
    if (!options.hasFrame && !m_isPopup)
    {
        constexpr std::array<std::uint32_t, 5> kNoDecorations = {2, 0, 0, 0, 0};
        xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_id, m_connection[Atom::MotifWmHints],
                            m_connection[Atom::MotifWmHints], 32, kNoDecorations.size(), kNoDecorations.data());
    }
    if (auto const* parent = dynamic_cast<XWindow const*>(options.parent))
    {
        xcb_icccm_set_wm_transient_for(m_connection.Get(), m_id, parent->m_id);
    }
    auto const process = static_cast<std::uint32_t>(getpid());
    xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_id, m_connection[Atom::NetWmPid],
                        XCB_ATOM_CARDINAL, 32, 1, &process);
    constexpr std::string_view kClass("ostrel\0Ostrel\0", 14);
    xcb_icccm_set_wm_class(m_connection.Get(), m_id, kClass.size(), kClass.data());
    SetSizeHints(options.usesDefaultPosition);
}

void XWindow::SetSizeHints(bool usesDefaultPosition)
{
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_size(&hints, 1, m_bounds.Width(), m_bounds.Height());
    if (!usesDefaultPosition)
    {
        xcb_icccm_size_hints_set_position(&hints, 1, m_bounds.left, m_bounds.top);
        // Our bounds are the inner area: the frame goes around it.
        xcb_icccm_size_hints_set_win_gravity(&hints, XCB_GRAVITY_STATIC);
    }
    if (!m_isResizable)
    {
        xcb_icccm_size_hints_set_min_size(&hints, m_bounds.Width(), m_bounds.Height());
        xcb_icccm_size_hints_set_max_size(&hints, m_bounds.Width(), m_bounds.Height());
    }
    xcb_icccm_set_wm_normal_hints(m_connection.Get(), m_id, &hints);
}

void XWindow::SetAtoms(xcb_atom_t property, std::span<xcb_atom_t const> atoms)
{
    xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_id, property, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

void XWindow::SetBounds(CRect const& screenBounds)
{
    CRect const bounds(screenBounds.TopLeft(),
                       CSize(std::max(screenBounds.Width(), 1), std::max(screenBounds.Height(), 1)));
    bool const isMoved = bounds.TopLeft() != m_bounds.TopLeft();
    m_bounds = bounds;
    std::array<std::uint32_t, 4> const values = {
        static_cast<std::uint32_t>(bounds.left), static_cast<std::uint32_t>(bounds.top),
        static_cast<std::uint32_t>(bounds.Width()), static_cast<std::uint32_t>(bounds.Height())};
    SetSizeHints(!isMoved);
    std::uint16_t const size = XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
    if (isMoved)
    {
        xcb_configure_window(m_connection.Get(), m_id, size | XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
    }
    else
    {
        xcb_configure_window(m_connection.Get(), m_id, size, values.data() + 2);
    }
}

void XWindow::SetTitle(std::string_view title)
{
    auto const length = static_cast<std::uint32_t>(title.size());
    xcb_icccm_set_wm_name(m_connection.Get(), m_id, m_connection[Atom::Utf8String], 8, length, title.data());
    xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_id, m_connection[Atom::NetWmName],
                        m_connection[Atom::Utf8String], 8, length, title.data());
}

void XWindow::Show(bool activate)
{
    m_wantsFocus = activate && m_acceptsFocus && !m_isPopup;
    xcb_map_window(m_connection.Get(), m_id);
}

void XWindow::Hide()
{
    // A managed window is withdrawn: the manager has to hear of it even while it is iconic.
    if (m_isPopup)
    {
        xcb_unmap_window(m_connection.Get(), m_id);
    }
    else
    {
        xcb_unmap_window(m_connection.Get(), m_id);
        xcb_unmap_notify_event_t event{};
        event.response_type = XCB_UNMAP_NOTIFY;
        event.event = m_connection.Root();
        event.window = m_id;
        xcb_send_event(m_connection.Get(), 0, m_connection.Root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<char const*>(&event));
    }
    m_isViewable = false;
}

void XWindow::TellWindowManager(xcb_atom_t message, std::span<std::uint32_t const> data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = m_id;
    event.type = message;
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(m_connection.Get(), 0, m_connection.Root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<char const*>(&event));
}

void XWindow::Minimize()
{
    std::array<std::uint32_t, 1> const state = {XCB_ICCCM_WM_STATE_ICONIC};
    TellWindowManager(m_connection[Atom::WmChangeState], state);
}

void XWindow::ChangeMaximized(bool maximized)
{
    std::array<std::uint32_t, 4> const change = {maximized ? 1U : 0U, m_connection[Atom::NetWmStateMaximizedHorz],
                                                 m_connection[Atom::NetWmStateMaximizedVert], 1};
    TellWindowManager(m_connection[Atom::NetWmState], change);
}

void XWindow::Maximize()
{
    ChangeMaximized(true);
}

void XWindow::Restore()
{
    ChangeMaximized(false);
    xcb_map_window(m_connection.Get(), m_id);
}

void XWindow::Raise()
{
    std::uint32_t const mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.Get(), m_id, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
}

void XWindow::Lower()
{
    std::uint32_t const mode = XCB_STACK_MODE_BELOW;
    xcb_configure_window(m_connection.Get(), m_id, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
}

void XWindow::Focus()
{
    if (!m_acceptsFocus)
    {
        return;
    }
    if (!m_isViewable) // the server refuses it now
    {
        m_wantsFocus = true;
        return;
    }
    if (!m_isPopup && m_connection.HasWindowManager())
    {
        std::array<std::uint32_t, 3> const request = {1, m_display.LastTime(), 0};
        TellWindowManager(m_connection[Atom::NetActiveWindow], request);
    }
    xcb_set_input_focus(m_connection.Get(), XCB_INPUT_FOCUS_PARENT, m_id, m_display.LastTime());
}

void XWindow::SetCursor(CursorShape shape)
{
    if (shape != m_cursor)
    {
        m_cursor = shape;
        std::uint32_t const cursor = m_display.CursorFor(shape);
        xcb_change_window_attributes(m_connection.Get(), m_id, XCB_CW_CURSOR, &cursor);
    }
}

void XWindow::CapturePointer(InputStamp stamp)
{
    xcb_timestamp_t const time = stamp.timeMs != 0 ? stamp.timeMs : static_cast<xcb_timestamp_t>(XCB_CURRENT_TIME);
    auto const cookie = xcb_grab_pointer(m_connection.Get(), 1, m_id, kGrabbedEvents, XCB_GRAB_MODE_ASYNC,
                                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, time);
    xcb_discard_reply(m_connection.Get(), cookie.sequence);
    xcb_flush(m_connection.Get()); // the next press must find it
}

void XWindow::ReleasePointer()
{
    xcb_ungrab_pointer(m_connection.Get(), XCB_CURRENT_TIME);
    xcb_flush(m_connection.Get()); // other programs wait for it
}

Surface& XWindow::BackBuffer()
{
    m_display.WaitForBuffer(m_buffer);
    m_buffer.Fit(m_bounds.Size());
    return m_buffer.Pixels();
}

void XWindow::Present(std::span<CRect const> dirty)
{
    // Beyond some hundred rectangles one large put is cheaper than the requests.
    constexpr std::size_t kMostRectangles = 256;
    if (dirty.empty())
    {
        return;
    }
    if (dirty.size() <= kMostRectangles)
    {
        m_buffer.Put(m_id, m_context, dirty);
        return;
    }
    CRect box;
    for (CRect const& area : dirty)
    {
        box |= area;
    }
    m_buffer.Put(m_id, m_context, {&box, 1});
}

void XWindow::OnMapped()
{
    m_isViewable = true;
    if (m_wantsFocus)
    {
        m_wantsFocus = false;
        if (!m_connection.HasWindowManager()) // nobody else gives the keyboard to a new window
        {
            Raise();
            Focus();
        }
    }
}

bool XWindow::OnConfigured(CRect const& screenBounds) noexcept
{
    bool const isChanged = screenBounds != m_bounds;
    m_bounds = screenBounds;
    return isChanged;
}

} // namespace Ostrel::Platform::X11
