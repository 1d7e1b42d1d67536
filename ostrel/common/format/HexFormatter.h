/// @file
/// Hexadecimal digits to text and back.
#pragma once

#include <string>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

/// Writes and reads hexadecimal numbers. Has no state; any thread.
class OSTREL_COMMON_API CHexFormatter
{
public:
    CHexFormatter() = delete;

    /// The low `digits` hexadecimal digits, upper case, without a prefix; filled with zeros to that width if `fill`,
    /// else without leading zeros, and "0" for 0.
    [[nodiscard]] static std::string ToString(__int64 value, int digits, bool fill);
    ///@{
    /// The same at the type's width: 2, 4, 8 (`long`) or 16 digits, without the sign.
    [[nodiscard]] static std::string ToString(char value, bool fill);
    [[nodiscard]] static std::string ToString(unsigned char value, bool fill);
    [[nodiscard]] static std::string ToString(short value, bool fill);
    [[nodiscard]] static std::string ToString(unsigned short value, bool fill);
    [[nodiscard]] static std::string ToString(long value, bool fill);
    [[nodiscard]] static std::string ToString(unsigned long value, bool fill);
    [[nodiscard]] static std::string ToString(__int64 value, bool fill);
    ///@}

    /// Reads from the first hexadecimal digit other than 0 to the last hexadecimal digit; so leading zeros, a "0x" and
    /// a sign are skipped, and a text without a digit is 0. Returns false and changes nothing if another character
    /// stands between the digits, right behind a single one, or if there are more than 16.
    static bool ToHex(std::string const& text, __int64& value);
    ///@{
    /// The same for narrower types: false too when the number does not fit the width. Signed types take the low bits.
    static bool ToHex(std::string const& text, char& value);
    static bool ToHex(std::string const& text, unsigned char& value);
    static bool ToHex(std::string const& text, short& value);
    static bool ToHex(std::string const& text, unsigned short& value);
    static bool ToHex(std::string const& text, long& value);
    static bool ToHex(std::string const& text, unsigned long& value);
    ///@}
};

} // namespace Ostrel::Common
