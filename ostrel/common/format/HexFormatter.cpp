#include <cstdint>
#include <string_view>

#include <ostrel/common/format/HexFormatter.h>
#include <ostrel/common/format/detail/IntegerText.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

namespace
{

/// The value of a hexadecimal digit, -1 for any other character.
constexpr int DigitValue(char character) noexcept
{
    if (character >= '0' && character <= '9')
    {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f')
    {
        return character - 'a' + 10;
    }
    return character >= 'A' && character <= 'F' ? character - 'A' + 10 : -1;
}

/// The part of the text that must be digits. A single digit keeps what follows it, which then is no number.
std::string_view DigitSpan(std::string_view text) noexcept
{
    std::size_t const first = text.find_first_of("123456789abcdefABCDEF");
    if (first == std::string_view::npos)
    {
        return "0";
    }
    text.remove_prefix(first);
    std::size_t const last = text.find_last_of("0123456789abcdefABCDEF");
    return last >= 1 ? text.substr(0, last + 1) : text;
}

/// Reads a number that fits `bits` bits.
bool ReadHex(std::string_view text, int bits, std::uint64_t& value) noexcept
{
    std::string_view const digits = DigitSpan(text);
    if (digits.size() > 16)
    {
        return false;
    }
    std::uint64_t number = 0;
    for (char const character : digits)
    {
        int const digit = DigitValue(character);
        if (digit < 0)
        {
            return false;
        }
        number = (number << 4U) | static_cast<std::uint64_t>(digit);
    }
    if (bits < 64 && (number >> static_cast<unsigned>(bits)) != 0)
    {
        return false;
    }
    value = number;
    return true;
}

template <class T>
bool ReadNarrowHex(std::string_view text, int bits, T& value) noexcept
{
    std::uint64_t number = 0;
    if (!ReadHex(text, bits, number))
    {
        return false;
    }
    value = static_cast<T>(number);
    return true;
}

} // namespace

std::string CHexFormatter::ToString(__int64 value, int digits, bool fill)
{
    std::string text;
    detail::AppendHexDigits(text, value, digits, fill);
    return text;
}

std::string CHexFormatter::ToString(char value, bool fill)
{
    return ToString(static_cast<unsigned char>(value), fill);
}

std::string CHexFormatter::ToString(unsigned char value, bool fill)
{
    return ToString(__int64{value}, 2, fill);
}

std::string CHexFormatter::ToString(short value, bool fill)
{
    return ToString(static_cast<unsigned short>(value), fill);
}

std::string CHexFormatter::ToString(unsigned short value, bool fill)
{
    return ToString(__int64{value}, 4, fill);
}

std::string CHexFormatter::ToString(long value, bool fill)
{
    return ToString(static_cast<unsigned long>(value), fill);
}

std::string CHexFormatter::ToString(unsigned long value, bool fill)
{
    return ToString(__int64{Platform::NarrowToUInt32(value)}, 8, fill);
}

std::string CHexFormatter::ToString(__int64 value, bool fill)
{
    return ToString(value, 16, fill);
}

bool CHexFormatter::ToHex(std::string const& text, __int64& value)
{
    return ReadNarrowHex(text, 64, value);
}

bool CHexFormatter::ToHex(std::string const& text, char& value)
{
    return ReadNarrowHex(text, 8, value);
}

bool CHexFormatter::ToHex(std::string const& text, unsigned char& value)
{
    return ReadNarrowHex(text, 8, value);
}

bool CHexFormatter::ToHex(std::string const& text, short& value)
{
    return ReadNarrowHex(text, 16, value);
}

bool CHexFormatter::ToHex(std::string const& text, unsigned short& value)
{
    return ReadNarrowHex(text, 16, value);
}

bool CHexFormatter::ToHex(std::string const& text, long& value)
{
    std::int32_t number = 0;
    bool const read = ReadNarrowHex(text, 32, number);
    value = read ? number : value;
    return read;
}

bool CHexFormatter::ToHex(std::string const& text, unsigned long& value)
{
    return ReadNarrowHex(text, 32, value);
}

} // namespace Ostrel::Common
