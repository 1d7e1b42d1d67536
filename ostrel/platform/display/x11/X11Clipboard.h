// Plain text on the X server's clipboard: owning it and asking its owner. Texts that do not fit into one property of
// the server are not offered and not taken.
#pragma once

#include <optional>
#include <string>

#include <ostrel/platform/display/x11/X11Connection.h>

namespace Ostrel::Platform::X11
{

class XDisplay;

class Clipboard
{
public:
    explicit Clipboard(XDisplay& display);
    Clipboard(Clipboard const&) = delete;
    Clipboard& operator=(Clipboard const&) = delete;
    ~Clipboard();

    bool SetText(std::string_view text, xcb_timestamp_t time);
    std::optional<std::string> Text();

    void OnRequest(xcb_selection_request_event_t const& request);
    void OnClear() noexcept { m_isOwner = false; }

private:
    bool Answer(xcb_selection_request_event_t const& request, xcb_atom_t property);
    [[nodiscard]] std::size_t MostBytes() const;

    XDisplay& m_display;
    Connection& m_connection;
    xcb_window_t m_window; ///< never shown: owns the selection and receives transfers
    bool m_isOwner = false;
    xcb_timestamp_t m_ownedSince = 0;
    std::string m_text;
};

} // namespace Ostrel::Platform::X11
