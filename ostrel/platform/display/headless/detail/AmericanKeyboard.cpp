#include <algorithm>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/display/headless/detail/AmericanKeyboard.h>
#include <ostrel/platform/window/VirtualKeys.h>

namespace Ostrel::Platform
{

namespace
{

struct SignKey
{
    UINT virtualKey;
    char plain;
    char shifted;
};

constexpr SignKey kSignKeys[] = {{'0', '0', ')'},          {'1', '1', '!'},
                                 {'2', '2', '@'},          {'3', '3', '#'},
                                 {'4', '4', '$'},          {'5', '5', '%'},
                                 {'6', '6', '^'},          {'7', '7', '&'},
                                 {'8', '8', '*'},          {'9', '9', '('},
                                 {VK_SPACE, ' ', ' '},     {VK_OEM_1, ';', ':'},
                                 {VK_OEM_PLUS, '=', '+'},  {VK_OEM_COMMA, ',', '<'},
                                 {VK_OEM_MINUS, '-', '_'}, {VK_OEM_PERIOD, '.', '>'},
                                 {VK_OEM_2, '/', '?'},     {VK_OEM_3, '`', '~'},
                                 {VK_OEM_4, '[', '{'},     {VK_OEM_5, '\\', '|'},
                                 {VK_OEM_6, ']', '}'},     {VK_OEM_7, '\'', '"'},
                                 {VK_RETURN, '\r', '\r'},  {VK_TAB, '\t', '\t'},
                                 {VK_BACK, '\b', '\b'},    {VK_ESCAPE, '\x1B', '\x1B'},
                                 {VK_MULTIPLY, '*', '*'},  {VK_ADD, '+', '+'},
                                 {VK_SUBTRACT, '-', '-'},  {VK_DECIMAL, '.', '.'},
                                 {VK_DIVIDE, '/', '/'}};

constexpr bool IsLetterKey(UINT virtualKey) noexcept
{
    return virtualKey >= 'A' && virtualKey <= 'Z';
}

constexpr bool IsLetter(char character) noexcept
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

std::string LetterText(UINT virtualKey, InputState const& state)
{
    if (state.control)
    {
        return {static_cast<char>(virtualKey - 'A' + 1)};
    }
    bool const isUpper = state.shift != state.capsLock;
    return {static_cast<char>(isUpper ? virtualKey : virtualKey - 'A' + 'a')};
}

Keystroke StrokeOf(char character)
{
    char const typed = character == '\n' ? '\r' : character;
    if (IsLetter(typed))
    {
        bool const isUpper = typed <= 'Z';
        return {static_cast<UINT>(isUpper ? typed : typed - 'a' + 'A'), isUpper, {typed}};
    }
    auto const* const found =
        std::find_if(std::begin(kSignKeys), std::end(kSignKeys),
                     [typed](SignKey const& key) { return key.plain == typed || key.shifted == typed; });
    if (found == std::end(kSignKeys))
    {
        return {VK_PACKET, false, {typed}};
    }
    return {found->virtualKey, found->plain != typed, {typed}};
}

} // namespace

std::string TextOfKey(UINT virtualKey, InputState const& state)
{
    if (IsLetterKey(virtualKey))
    {
        return LetterText(virtualKey, state);
    }
    if (virtualKey >= VK_NUMPAD0 && virtualKey <= VK_NUMPAD9)
    {
        return {static_cast<char>('0' + (virtualKey - VK_NUMPAD0))};
    }
    auto const* const found = std::find_if(std::begin(kSignKeys), std::end(kSignKeys),
                                           [virtualKey](SignKey const& key) { return key.virtualKey == virtualKey; });
    if (found == std::end(kSignKeys) || (state.control && found->plain > ' '))
    {
        return {};
    }
    return {state.shift ? found->shifted : found->plain};
}

std::vector<Keystroke> KeystrokesOf(std::string_view text)
{
    std::vector<Keystroke> strokes;
    for (std::size_t at = 0; at < text.size(); at = NextUtf8(text, at))
    {
        std::string_view const character = text.substr(at, NextUtf8(text, at) - at);
        strokes.push_back(character.size() == 1 ? StrokeOf(character.front())
                                                : Keystroke{VK_PACKET, false, std::string(character)});
    }
    return strokes;
}

bool IsExtendedKey(UINT virtualKey) noexcept
{
    return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT || virtualKey == VK_DELETE ||
           virtualKey == VK_RCONTROL || virtualKey == VK_RMENU || virtualKey == VK_DIVIDE || virtualKey == VK_APPS;
}

} // namespace Ostrel::Platform
