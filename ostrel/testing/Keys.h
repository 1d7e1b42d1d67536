/// @file
/// Keys by their names, and the modifier keys that are held during an action. A key is a VK_ code: wherever one is
/// expected, Key::Down, VK_DOWN and 'A' (an upper-case letter or a digit) are all right.
#pragma once

#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/window/VirtualKeys.h>

namespace Ostrel::Testing
{

/// A set of modifier keys.
enum class Modifier : unsigned
{
    None = 0,  ///< no key
    Shift = 1, ///< either Shift key
    Ctrl = 2,  ///< either Ctrl key
    Alt = 4    ///< the Alt key
};

/// Both sets together.
constexpr Modifier operator|(Modifier a, Modifier b) noexcept
{
    return static_cast<Modifier>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
/// True when the set holds the key.
[[nodiscard]] constexpr bool Contains(Modifier set, Modifier modifier) noexcept
{
    return (static_cast<unsigned>(set) & static_cast<unsigned>(modifier)) != 0;
}

/// The keys that tests press most, by their names.
namespace Key
{
///@{
/// The VK_ code of the key.
inline constexpr UINT Enter = VK_RETURN;
inline constexpr UINT Escape = VK_ESCAPE;
inline constexpr UINT Tab = VK_TAB;
inline constexpr UINT Space = VK_SPACE;
inline constexpr UINT Backspace = VK_BACK;
inline constexpr UINT Insert = VK_INSERT;
inline constexpr UINT Delete = VK_DELETE;
inline constexpr UINT Up = VK_UP;
inline constexpr UINT Down = VK_DOWN;
inline constexpr UINT Left = VK_LEFT;
inline constexpr UINT Right = VK_RIGHT;
inline constexpr UINT Home = VK_HOME;
inline constexpr UINT End = VK_END;
inline constexpr UINT PageUp = VK_PRIOR;
inline constexpr UINT PageDown = VK_NEXT;
inline constexpr UINT F2 = VK_F2;
inline constexpr UINT F4 = VK_F4;
///@}
} // namespace Key

} // namespace Ostrel::Testing
