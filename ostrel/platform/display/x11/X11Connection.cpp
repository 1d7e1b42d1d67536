#include <algorithm>
#include <charconv>
#include <string_view>

#include <xcb/shm.h>

#include <ostrel/platform/display/x11/X11Connection.h>

namespace Ostrel::Platform::X11
{

namespace
{

constexpr std::array<std::string_view, static_cast<std::size_t>(Atom::Count)> kAtomNames = {
    "WM_PROTOCOLS",
    "WM_DELETE_WINDOW",
    "WM_TAKE_FOCUS",
    "WM_STATE",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_ACTIVE_WINDOW",
    "_NET_WM_NAME",
    "_NET_WM_PING",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_MAXIMIZED_HORZ",
    "_NET_WM_STATE_MAXIMIZED_VERT",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WORKAREA",
    "WM_CHANGE_STATE",
    "_MOTIF_WM_HINTS",
    "UTF8_STRING",
    "text/plain;charset=utf-8",
    "CLIPBOARD",
    "TARGETS",
    "TIMESTAMP",
    "OSTREL_TRANSFER",
};

// Our pixels are 0xAARRGGBB words in memory: a screen of another layout would need a conversion for every present.
bool ShowsOurPixels(xcb_screen_t const& screen)
{
    if (screen.root_depth != 24 && screen.root_depth != 32)
    {
        return false;
    }
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth))
    {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0; xcb_visualtype_next(&visual))
        {
            if (visual.data->visual_id == screen.root_visual)
            {
                return visual.data->red_mask == 0xFF0000 && visual.data->green_mask == 0xFF00 &&
                       visual.data->blue_mask == 0xFF;
            }
        }
    }
    return false;
}

xcb_screen_t* ScreenOf(xcb_connection_t* connection, int number)
{
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen.rem > 0 && number > 0; --number)
    {
        xcb_screen_next(&screen);
    }
    return screen.rem > 0 ? screen.data : nullptr;
}

} // namespace

std::unique_ptr<Connection> Connection::Open(std::string& whyNot)
{
    int screenNumber = 0;
    xcb_connection_t* raw = xcb_connect(nullptr, &screenNumber);
    std::unique_ptr<Connection> connection(new Connection(raw, screenNumber));
    if (xcb_connection_has_error(raw) != 0)
    {
        char const* name = std::getenv("DISPLAY");
        whyNot = name != nullptr ? "the X server " + std::string(name) + " does not answer" : "DISPLAY is not set";
        return nullptr;
    }
    connection->m_screen = ScreenOf(raw, screenNumber);
    if (connection->m_screen == nullptr || !ShowsOurPixels(*connection->m_screen))
    {
        whyNot = "the X server's screen is not a 24-bit true-colour one";
        return nullptr;
    }
    connection->InternAtoms();
    connection->LookForSharedMemory();
    return connection;
}

Connection::Connection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection), m_screenNumber(screenNumber)
{}

Connection::~Connection()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t Connection::Intern(std::string const& name) const
{
    auto const cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    Reply<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

void Connection::InternAtoms()
{
    std::array<xcb_intern_atom_cookie_t, kAtomNames.size()> cookies{}; // all requests first: one round trip
    std::ranges::transform(
        kAtomNames, cookies.begin(),
        [this](std::string_view name)
        { return xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data()); });
    for (std::size_t i = 0; i < cookies.size(); ++i)
    {
        Reply<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(m_connection, cookies[i], nullptr));
        m_atoms[i] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }
}

void Connection::LookForSharedMemory()
{
    auto const* extension = xcb_get_extension_data(m_connection, &xcb_shm_id);
    if (extension == nullptr || extension->present == 0)
    {
        return;
    }
    Reply<xcb_shm_query_version_reply_t> const version(
        xcb_shm_query_version_reply(m_connection, xcb_shm_query_version(m_connection), nullptr));
    m_hasSharedMemory =
        version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
    m_completionEvent = static_cast<std::uint8_t>(extension->first_event + XCB_SHM_COMPLETION);
}

bool Connection::HasWindowManager() const
{
    auto const check = Words(Root(), (*this)[Atom::NetSupportingWmCheck]);
    if (check.empty())
    {
        return false;
    }
    // The property outlives a manager that died; its window names itself only while it lives.
    auto const self = Words(check.front(), (*this)[Atom::NetSupportingWmCheck]);
    return !self.empty() && self.front() == check.front();
}

std::vector<std::uint32_t> Connection::Words(xcb_window_t window, xcb_atom_t property) const
{
    Reply<xcb_get_property_reply_t> const reply(xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, 1024), nullptr));
    if (!reply || reply->format != 32)
    {
        return {};
    }
    auto const* words = static_cast<std::uint32_t const*>(xcb_get_property_value(reply.get()));
    return {words, words + reply->value_len};
}

std::string Connection::Text(xcb_window_t window, xcb_atom_t property) const
{
    constexpr std::uint32_t kMostWords = 16U << 20U;
    Reply<xcb_get_property_reply_t> const reply(xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, kMostWords), nullptr));
    if (!reply || reply->format != 8)
    {
        return {};
    }
    auto const* bytes = static_cast<char const*>(xcb_get_property_value(reply.get()));
    return {bytes, reply->value_len};
}

double Connection::DotsPerInch() const
{
    constexpr double kDefault = 96;
    constexpr std::string_view kKey = "Xft.dpi:";
    std::string const resources = Text(Root(), XCB_ATOM_RESOURCE_MANAGER);
    std::size_t const at = resources.find(kKey);
    if (at == std::string::npos)
    {
        return kDefault;
    }
    std::size_t const start = resources.find_first_not_of(" \t", at + kKey.size());
    double number = kDefault;
    if (start != std::string::npos)
    {
        std::from_chars(resources.data() + start, resources.data() + resources.size(), number);
    }
    return number >= 24 && number <= 960 ? number : kDefault;
}

} // namespace Ostrel::Platform::X11
