// Digits of whole numbers to text and back. Everything appends to a text that the caller has.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common::detail
{

/// True for the characters that a separator, a prefix or a suffix may be: codes 32 to 127.
[[nodiscard]] constexpr bool IsPrintable(char character) noexcept
{
    auto const code = static_cast<unsigned char>(character);
    return code >= 32 && code <= 127;
}

/// The digits, with the separator between groups of three if it is printable.
OSTREL_COMMON_API void AppendGrouped(std::string& text, std::uint64_t magnitude, char separator);

/// The hexadecimal digits of the low `digits` * 4 bits, upper case; filled with zeros to `digits`, or without leading
/// zeros. A negative value is shifted with its sign.
OSTREL_COMMON_API void AppendHexDigits(std::string& text, __int64 value, int digits, bool fill);

/// A decimal number picked out of a text: all characters but digits and minus signs are skipped, a leading minus sign
/// counts, the next one ends the number.
struct DecimalNumber
{
    std::uint64_t magnitude = 0; ///< modulo 2^64
    bool negative = false;
    bool exceeds32Bits = false; ///< the magnitude as written needs more than 32 bits

    /// Modulo 2^64.
    [[nodiscard]] __int64 Value() const noexcept
    {
        return static_cast<__int64>(negative ? std::uint64_t{0} - magnitude : magnitude);
    }
};
[[nodiscard]] OSTREL_COMMON_API DecimalNumber PickDecimal(std::string_view text) noexcept;

/// The decimal text of a byte: up to three significant digits, at most 255. Minus signs and zeros may stand in front in
/// any order. Returns false and changes nothing if the text is not one.
struct ByteNumber
{
    int magnitude = 0;
    bool negative = false;
};
[[nodiscard]] OSTREL_COMMON_API bool ReadDecimalByte(std::string_view text, ByteNumber& number) noexcept;

} // namespace Ostrel::Common::detail
