// What the keys of an American keyboard type, and which keys type a text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <ostrel/platform/window/Display.h>

namespace Ostrel::Platform
{

struct Keystroke
{
    UINT virtualKey; ///< VK_PACKET for characters that the keyboard does not have
    bool shift;
    std::string text;
};

/// Empty for keys that type nothing.
[[nodiscard]] std::string TextOfKey(UINT virtualKey, InputState const& state);
/// One for each character; a line feed is the return key.
[[nodiscard]] std::vector<Keystroke> KeystrokesOf(std::string_view text);
/// Navigation keys and their like.
[[nodiscard]] bool IsExtendedKey(UINT virtualKey) noexcept;

} // namespace Ostrel::Platform
