#include <array>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/display/x11/X11Clipboard.h>
#include <ostrel/platform/display/x11/X11Display.h>

namespace Ostrel::Platform::X11
{

namespace
{

// The old text type is Latin-1; what it cannot hold becomes a question mark.
std::string Latin1From(std::string_view text)
{
    std::string latin;
    for (std::size_t at = 0; at < text.size();)
    {
        Utf8Character const step = DecodeUtf8(text, at);
        latin += step.codePoint < 0x100 ? static_cast<char>(step.codePoint) : '?';
        at += step.length;
    }
    return latin;
}

} // namespace

Clipboard::Clipboard(XDisplay& display)
    : m_display(display), m_connection(display.GetConnection()), m_window(xcb_generate_id(m_connection.Get()))
{
    xcb_create_window(m_connection.Get(), XCB_COPY_FROM_PARENT, m_window, m_connection.Root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

Clipboard::~Clipboard()
{
    xcb_destroy_window(m_connection.Get(), m_window);
}

std::size_t Clipboard::MostBytes() const
{
    constexpr std::size_t kRequestHead = 64;
    return static_cast<std::size_t>(xcb_get_maximum_request_length(m_connection.Get())) * 4 - kRequestHead;
}

bool Clipboard::SetText(std::string_view text, xcb_timestamp_t time)
{
    if (text.size() > MostBytes())
    {
        return false;
    }
    xcb_atom_t const selection = m_connection[Atom::Clipboard];
    xcb_set_selection_owner(m_connection.Get(), m_window, selection, time);
    Reply<xcb_get_selection_owner_reply_t> const owner(xcb_get_selection_owner_reply(
        m_connection.Get(), xcb_get_selection_owner(m_connection.Get(), selection), nullptr));
    m_isOwner = owner && owner->owner == m_window;
    m_ownedSince = time;
    m_text = m_isOwner ? std::string(text) : std::string();
    return m_isOwner;
}

std::optional<std::string> Clipboard::Text()
{
    if (m_isOwner)
    {
        return m_text;
    }
    xcb_atom_t const property = m_connection[Atom::OstrelTransfer];
    xcb_convert_selection(m_connection.Get(), m_window, m_connection[Atom::Clipboard], m_connection[Atom::Utf8String],
                          property, m_display.LastTime());
    Reply<xcb_generic_event_t> const event = m_display.WaitForEvent(
        [this](xcb_generic_event_t const& any)
        {
            return (any.response_type & 0x7F) == XCB_SELECTION_NOTIFY &&
                   reinterpret_cast<xcb_selection_notify_event_t const&>(any).requestor == m_window;
        });
    if (!event || reinterpret_cast<xcb_selection_notify_event_t const&>(*event).property == XCB_ATOM_NONE)
    {
        return std::nullopt;
    }
    std::string text = m_connection.Text(m_window, property);
    xcb_delete_property(m_connection.Get(), m_window, property);
    return text;
}

void Clipboard::OnRequest(xcb_selection_request_event_t const& request)
{
    // Clients of the old kind name no property: the target stands for it.
    xcb_atom_t const property = request.property != XCB_ATOM_NONE ? request.property : request.target;
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = m_isOwner && Answer(request, property) ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    xcb_send_event(m_connection.Get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<char const*>(&notify));
    xcb_flush(m_connection.Get());
}

bool Clipboard::Answer(xcb_selection_request_event_t const& request, xcb_atom_t property)
{
    auto const put = [&](xcb_atom_t type, int bits, std::size_t count, void const* data)
    {
        xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, request.requestor, property, type,
                            static_cast<std::uint8_t>(bits), static_cast<std::uint32_t>(count), data);
        return true;
    };
    xcb_atom_t const target = request.target;
    if (target == m_connection[Atom::Targets])
    {
        std::array<xcb_atom_t, 5> const targets = {m_connection[Atom::Targets], m_connection[Atom::Timestamp],
                                                   m_connection[Atom::Utf8String], m_connection[Atom::TextPlainUtf8],
                                                   XCB_ATOM_STRING};
        return put(XCB_ATOM_ATOM, 32, targets.size(), targets.data());
    }
    if (target == m_connection[Atom::Timestamp])
    {
        return put(XCB_ATOM_INTEGER, 32, 1, &m_ownedSince);
    }
    if (target == m_connection[Atom::Utf8String] || target == m_connection[Atom::TextPlainUtf8])
    {
        return put(target, 8, m_text.size(), m_text.data());
    }
    if (target == XCB_ATOM_STRING)
    {
        std::string const latin = Latin1From(m_text);
        return put(target, 8, latin.size(), latin.data());
    }
    return false;
}

} // namespace Ostrel::Platform::X11
