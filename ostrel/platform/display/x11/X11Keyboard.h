// Turns key codes of the X server into virtual keys and text, by the layout that the user has at the moment.
#pragma once

#include <bitset>
#include <memory>

#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon.h>

#include <ostrel/platform/display/x11/X11Connection.h>
#include <ostrel/platform/window/Display.h>

namespace Ostrel::Platform::X11
{

class Keyboard
{
public:
    explicit Keyboard(Connection& connection);

    /// Takes an event of the keyboard extension; tells whether it was one.
    bool HandleEvent(xcb_generic_event_t const& event);
    /// What a press or release means. Keeps the keys that are down, so that a press of one of them is a repeat.
    KeyEvent Translate(xcb_keycode_t code, bool down);
    /// The keys that are down elsewhere are none of ours.
    void ForgetKeys() noexcept { m_down.reset(); }
    /// Modifiers and locks as the server told last.
    void FillModifiers(InputState& state) const;

private:
    struct Free
    {
        void operator()(xkb_context* object) const { xkb_context_unref(object); }
        void operator()(xkb_keymap* object) const { xkb_keymap_unref(object); }
        void operator()(xkb_state* object) const { xkb_state_unref(object); }
        void operator()(xkb_compose_table* object) const { xkb_compose_table_unref(object); }
        void operator()(xkb_compose_state* object) const { xkb_compose_state_unref(object); }
    };
    template <class T>
    using Owned = std::unique_ptr<T, Free>;

    void SelectEvents();
    void LoadKeymap();
    void LoadCompose();
    [[nodiscard]] UINT VirtualKeyOf(xcb_keycode_t code) const;
    [[nodiscard]] std::string TextOf(xcb_keycode_t code);
    void AdjustForModifierKey(UINT virtualKey, bool down, InputState& state) const;

    Connection& m_connection;
    std::uint8_t m_firstEvent = 0;
    std::int32_t m_device = -1;
    Owned<xkb_context> m_context;
    Owned<xkb_keymap> m_keymap;
    Owned<xkb_state> m_state;
    Owned<xkb_compose_table> m_composeTable;
    Owned<xkb_compose_state> m_compose;
    std::bitset<256> m_down;
};

} // namespace Ostrel::Platform::X11
