/// @file
/// UTF-8 texts that may hold anything. One rule for what is no valid UTF-8 (stray and missing continuation bytes,
/// overlong forms, surrogates, values above 0x10FFFF, a text that ends too early): the first byte at fault is a
/// character of its own and means its Latin-1 character. So every text has characters, their boundaries are the same in
/// both directions, and no byte is ever lost. Positions are bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Platform
{

/// One character of a text.
struct Utf8Character
{
    char32_t codePoint; ///< its number; 0 behind the end of the text
    unsigned length;    ///< in bytes, 1 to 4; 0 behind the end of the text
    bool isValid;       ///< false for a byte that stands for its Latin-1 character
};

/// The character that begins at a position; {0, 0, false} at or behind the end.
[[nodiscard]] OSTREL_BASE_API Utf8Character DecodeUtf8(std::string_view text, std::size_t position) noexcept;

/// Appends a character; surrogates and values above 0x10FFFF become U+FFFD.
OSTREL_BASE_API void AppendUtf8(std::string& text, char32_t codePoint);

/// The boundary at or before a position; the text's length for positions behind its end.
[[nodiscard]] OSTREL_BASE_API std::size_t Utf8BoundaryAt(std::string_view text, std::size_t position) noexcept;
///@{
/// The next boundary after a position, and the last one before it. They stay at the ends of the text.
[[nodiscard]] OSTREL_BASE_API std::size_t NextUtf8(std::string_view text, std::size_t position) noexcept;
[[nodiscard]] OSTREL_BASE_API std::size_t PreviousUtf8(std::string_view text, std::size_t position) noexcept;
///@}

/// True when no byte is at fault.
[[nodiscard]] OSTREL_BASE_API bool IsValidUtf8(std::string_view text) noexcept;
/// The text with every invalid byte replaced by the UTF-8 form of its Latin-1 character.
[[nodiscard]] OSTREL_BASE_API std::string CleanUtf8(std::string_view text);
/// The number of characters, invalid bytes counted as one each.
[[nodiscard]] OSTREL_BASE_API std::size_t CountUtf8(std::string_view text) noexcept;

} // namespace Ostrel::Platform
