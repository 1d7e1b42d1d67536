#include <array>
#include <clocale>
#include <cstring>

#include <ostrel/platform/display/x11/X11Keyboard.h>

// A field of this header has the name of a keyword of this language.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <ostrel/platform/window/VirtualKeys.h>

namespace Ostrel::Platform::X11
{

namespace
{

struct KeyName
{
    xkb_keysym_t symbol;
    UINT virtualKey;
    bool isExtended;
};

constexpr std::array kKeys = {
    KeyName{XKB_KEY_BackSpace, VK_BACK, false},
    KeyName{XKB_KEY_Tab, VK_TAB, false},
    KeyName{XKB_KEY_ISO_Left_Tab, VK_TAB, false},
    KeyName{XKB_KEY_Return, VK_RETURN, false},
    KeyName{XKB_KEY_KP_Enter, VK_RETURN, true},
    KeyName{XKB_KEY_Escape, VK_ESCAPE, false},
    KeyName{XKB_KEY_space, VK_SPACE, false},
    KeyName{XKB_KEY_Prior, VK_PRIOR, true},
    KeyName{XKB_KEY_Next, VK_NEXT, true},
    KeyName{XKB_KEY_End, VK_END, true},
    KeyName{XKB_KEY_Home, VK_HOME, true},
    KeyName{XKB_KEY_Left, VK_LEFT, true},
    KeyName{XKB_KEY_Up, VK_UP, true},
    KeyName{XKB_KEY_Right, VK_RIGHT, true},
    KeyName{XKB_KEY_Down, VK_DOWN, true},
    KeyName{XKB_KEY_Insert, VK_INSERT, true},
    KeyName{XKB_KEY_Delete, VK_DELETE, true},
    KeyName{XKB_KEY_KP_Prior, VK_PRIOR, false},
    KeyName{XKB_KEY_KP_Next, VK_NEXT, false},
    KeyName{XKB_KEY_KP_End, VK_END, false},
    KeyName{XKB_KEY_KP_Home, VK_HOME, false},
    KeyName{XKB_KEY_KP_Left, VK_LEFT, false},
    KeyName{XKB_KEY_KP_Up, VK_UP, false},
    KeyName{XKB_KEY_KP_Right, VK_RIGHT, false},
    KeyName{XKB_KEY_KP_Down, VK_DOWN, false},
    KeyName{XKB_KEY_KP_Insert, VK_INSERT, false},
    KeyName{XKB_KEY_KP_Delete, VK_DELETE, false},
    KeyName{XKB_KEY_KP_Begin, VK_CLEAR, false},
    KeyName{XKB_KEY_KP_Multiply, VK_MULTIPLY, false},
    KeyName{XKB_KEY_KP_Add, VK_ADD, false},
    KeyName{XKB_KEY_KP_Subtract, VK_SUBTRACT, false},
    KeyName{XKB_KEY_KP_Decimal, VK_DECIMAL, false},
    KeyName{XKB_KEY_KP_Separator, VK_DECIMAL, false},
    KeyName{XKB_KEY_KP_Divide, VK_DIVIDE, true},
    KeyName{XKB_KEY_Shift_L, VK_SHIFT, false},
    KeyName{XKB_KEY_Shift_R, VK_SHIFT, false},
    KeyName{XKB_KEY_Control_L, VK_CONTROL, false},
    KeyName{XKB_KEY_Control_R, VK_CONTROL, true},
    KeyName{XKB_KEY_Alt_L, VK_MENU, false},
    KeyName{XKB_KEY_Alt_R, VK_MENU, true},
    KeyName{XKB_KEY_ISO_Level3_Shift, VK_MENU, true},
    KeyName{XKB_KEY_Meta_L, VK_MENU, false},
    KeyName{XKB_KEY_Super_L, VK_LWIN, true},
    KeyName{XKB_KEY_Super_R, VK_RWIN, true},
    KeyName{XKB_KEY_Menu, VK_APPS, true},
    KeyName{XKB_KEY_Pause, VK_PAUSE, false},
    KeyName{XKB_KEY_Caps_Lock, VK_CAPITAL, false},
    KeyName{XKB_KEY_Print, VK_SNAPSHOT, true},
    KeyName{XKB_KEY_Help, VK_HELP, false},
};

KeyName const* FindKey(xkb_keysym_t symbol)
{
    for (KeyName const& key : kKeys)
    {
        if (key.symbol == symbol)
        {
            return &key;
        }
    }
    return nullptr;
}

UINT VirtualKeyOfSymbol(xkb_keysym_t symbol)
{
    if (symbol >= XKB_KEY_a && symbol <= XKB_KEY_z)
    {
        return 'A' + (symbol - XKB_KEY_a);
    }
    if ((symbol >= XKB_KEY_A && symbol <= XKB_KEY_Z) || (symbol >= XKB_KEY_0 && symbol <= XKB_KEY_9))
    {
        return symbol;
    }
    if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F24)
    {
        return VK_F1 + (symbol - XKB_KEY_F1);
    }
    if (symbol >= XKB_KEY_KP_0 && symbol <= XKB_KEY_KP_9)
    {
        return VK_NUMPAD0 + (symbol - XKB_KEY_KP_0);
    }
    KeyName const* key = FindKey(symbol);
    return key != nullptr ? key->virtualKey : 0;
}

std::string LocaleForCompose()
{
    for (char const* name : {"LC_ALL", "LC_CTYPE", "LANG"})
    {
        char const* value = std::getenv(name);
        if (value != nullptr && *value != '\0' && std::strcmp(value, "C") != 0)
        {
            return value;
        }
    }
    return "en_US.UTF-8"; // the C locale has no dead keys
}

} // namespace

Keyboard::Keyboard(Connection& connection) : m_connection(connection), m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    std::uint8_t firstEvent = 0;
    if (m_context &&
        xkb_x11_setup_xkb_extension(connection.Get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                    XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent, nullptr) != 0)
    {
        m_firstEvent = firstEvent;
        m_device = xkb_x11_get_core_keyboard_device_id(connection.Get());
    }
    if (m_device >= 0)
    {
        SelectEvents();
        LoadKeymap();
        LoadCompose();
    }
}

void Keyboard::SelectEvents()
{
    constexpr std::uint16_t kEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t kMapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                        XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS |
                                        XCB_XKB_MAP_PART_KEY_ACTIONS | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                        XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    auto const device = static_cast<xcb_xkb_device_spec_t>(m_device);
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
    constexpr std::uint16_t kStateParts = XCB_XKB_STATE_PART_MODIFIER_BASE | XCB_XKB_STATE_PART_MODIFIER_LATCH |
                                          XCB_XKB_STATE_PART_MODIFIER_LOCK | XCB_XKB_STATE_PART_GROUP_BASE |
                                          XCB_XKB_STATE_PART_GROUP_LATCH | XCB_XKB_STATE_PART_GROUP_LOCK;
    details.affectState = kStateParts;
    details.stateDetails = kStateParts;
    xcb_xkb_select_events_aux(m_connection.Get(), device, kEvents, 0, 0, kMapParts, kMapParts, &details);
    // A key that is held repeats presses only: a release then means a release.
    constexpr std::uint32_t kDetectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    auto const cookie = xcb_xkb_per_client_flags(m_connection.Get(), device, kDetectable, kDetectable, 0, 0, 0);
    xcb_discard_reply(m_connection.Get(), cookie.sequence);
}

void Keyboard::LoadKeymap()
{
    Owned<xkb_keymap> keymap(
        xkb_x11_keymap_new_from_device(m_context.get(), m_connection.Get(), m_device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    Owned<xkb_state> state(keymap ? xkb_x11_state_new_from_device(keymap.get(), m_connection.Get(), m_device)
                                  : nullptr);
    if (state)
    {
        m_keymap = std::move(keymap);
        m_state = std::move(state);
    }
}

void Keyboard::LoadCompose()
{
    m_composeTable.reset(
        xkb_compose_table_new_from_locale(m_context.get(), LocaleForCompose().c_str(), XKB_COMPOSE_COMPILE_NO_FLAGS));
    if (m_composeTable)
    {
        m_compose.reset(xkb_compose_state_new(m_composeTable.get(), XKB_COMPOSE_STATE_NO_FLAGS));
    }
}

bool Keyboard::HandleEvent(xcb_generic_event_t const& event)
{
    if (m_device < 0 || (event.response_type & 0x7F) != m_firstEvent)
    {
        return false;
    }
    auto const& any = reinterpret_cast<xcb_xkb_state_notify_event_t const&>(event); // the kind stands in the same place
    if (any.xkbType == XCB_XKB_STATE_NOTIFY)
    {
        if (m_state)
        {
            xkb_state_update_mask(m_state.get(), any.baseMods, any.latchedMods, any.lockedMods,
                                  static_cast<xkb_layout_index_t>(any.baseGroup),
                                  static_cast<xkb_layout_index_t>(any.latchedGroup), any.lockedGroup);
        }
    }
    else
    {
        // At once: programs that type text map a spare key, press it and take the map back.
        LoadKeymap();
    }
    return true;
}

KeyEvent Keyboard::Translate(xcb_keycode_t code, bool down)
{
    KeyEvent key;
    key.down = down;
    key.scanCode = code;
    key.repeat = down && m_down[code];
    m_down[code] = down;
    if (!m_state)
    {
        return key;
    }
    key.virtualKey = VirtualKeyOf(code);
    KeyName const* name = FindKey(xkb_state_key_get_one_sym(m_state.get(), code));
    key.extended = name != nullptr && name->isExtended;
    if (down)
    {
        key.text = TextOf(code);
    }
    FillModifiers(key.state);
    AdjustForModifierKey(key.virtualKey, down, key.state);
    return key;
}

// The key's own letter comes before what the modifiers make of it, so that Ctrl+C is C with every modifier; keypad and
// navigation keys are what Num Lock makes of them. A layout without Latin letters is asked in its Latin neighbour.
UINT Keyboard::VirtualKeyOf(xcb_keycode_t code) const
{
    xkb_layout_index_t const active = xkb_state_key_get_layout(m_state.get(), code);
    xkb_layout_index_t const layouts = xkb_keymap_num_layouts_for_key(m_keymap.get(), code);
    xkb_keysym_t const current = xkb_state_key_get_one_sym(m_state.get(), code);
    if (UINT const keypad = VirtualKeyOfSymbol(current); keypad != 0 && (keypad < '0' || keypad > 'Z'))
    {
        return keypad;
    }
    for (xkb_layout_index_t i = 0; i <= layouts; ++i)
    {
        xkb_layout_index_t const layout = i == 0 ? active : i - 1;
        xkb_keysym_t const* symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(m_keymap.get(), code, layout, 0, &symbols) == 1)
        {
            if (UINT const virtualKey = VirtualKeyOfSymbol(*symbols); virtualKey != 0)
            {
                return virtualKey;
            }
        }
    }
    return VirtualKeyOfSymbol(current);
}

std::string Keyboard::TextOf(xcb_keycode_t code)
{
    std::array<char, 64> text{};
    if (m_compose)
    {
        xkb_compose_state_feed(m_compose.get(), xkb_state_key_get_one_sym(m_state.get(), code));
        switch (xkb_compose_state_get_status(m_compose.get()))
        {
        case XKB_COMPOSE_COMPOSING:
        case XKB_COMPOSE_CANCELLED:
            return {};
        case XKB_COMPOSE_COMPOSED:
            xkb_compose_state_get_utf8(m_compose.get(), text.data(), text.size());
            xkb_compose_state_reset(m_compose.get());
            return text.data();
        default:
            break;
        }
    }
    int const length = xkb_state_key_get_utf8(m_state.get(), code, text.data(), text.size());
    return {text.data(), static_cast<std::size_t>(std::max(0, std::min(length, static_cast<int>(text.size()) - 1)))};
}

void Keyboard::FillModifiers(InputState& state) const
{
    if (!m_state)
    {
        return;
    }
    auto const isActive = [this](char const* name)
    { return xkb_state_mod_name_is_active(m_state.get(), name, XKB_STATE_MODS_EFFECTIVE) > 0; };
    state.shift = isActive(XKB_MOD_NAME_SHIFT);
    state.control = isActive(XKB_MOD_NAME_CTRL);
    state.alt = isActive(XKB_MOD_NAME_ALT);
    state.capsLock = isActive(XKB_MOD_NAME_CAPS);
    state.numLock = isActive(XKB_MOD_NAME_NUM);
}

// The server tells the new state after the key: the key itself counts already.
void Keyboard::AdjustForModifierKey(UINT virtualKey, bool down, InputState& state) const
{
    switch (virtualKey)
    {
    case VK_SHIFT:
        state.shift = down;
        break;
    case VK_CONTROL:
        state.control = down;
        break;
    case VK_MENU:
        state.alt = down;
        break;
    default:
        break;
    }
}

} // namespace Ostrel::Platform::X11
