#include <algorithm>
#include <limits>

#include <ostrel/common/format/detail/IntegerText.h>

namespace Ostrel::Common::detail
{

namespace
{

/// Writes the decimal digits before `end`, at least `width` of them, and returns where they begin.
char* WriteDigits(char* end, std::uint64_t number, int width) noexcept
{
    do
    {
        *--end = static_cast<char>('0' + number % 10);
        number /= 10;
        --width;
    } while (number != 0 || width > 0);
    return end;
}

} // namespace

void AppendGrouped(std::string& text, std::uint64_t magnitude, char separator)
{
    char buffer[26]; // 20 digits and 6 separators
    char* const end = buffer + sizeof(buffer);
    char* begin = end;
    if (IsPrintable(separator))
    {
        for (; magnitude >= 1000; magnitude /= 1000)
        {
            begin = WriteDigits(begin, magnitude % 1000, 3);
            *--begin = separator;
        }
    }
    begin = WriteDigits(begin, magnitude, 1);
    text.append(begin, end);
}

void AppendHexDigits(std::string& text, __int64 value, int digits, bool fill)
{
    std::size_t const begin = text.size();
    for (int count = 0; count < digits && (fill || value != 0); ++count)
    {
        text.push_back("0123456789ABCDEF"[value & 0xF]);
        value >>= 4;
    }
    if (text.size() == begin)
    {
        text.push_back('0');
    }
    std::reverse(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end());
}

DecimalNumber PickDecimal(std::string_view text) noexcept
{
    DecimalNumber number;
    bool started = false;
    for (char const character : text)
    {
        if (character == '-')
        {
            if (started)
            {
                break;
            }
            number.negative = true;
            started = true;
        }
        else if (character >= '0' && character <= '9')
        {
            number.magnitude = number.magnitude * 10 + static_cast<std::uint64_t>(character - '0');
            number.exceeds32Bits = number.exceeds32Bits || number.magnitude > std::numeric_limits<std::uint32_t>::max();
            started = true;
        }
    }
    return number;
}

bool ReadDecimalByte(std::string_view text, ByteNumber& number) noexcept
{
    std::size_t const first = std::min(text.find_first_not_of("-0"), text.size());
    std::string_view const digits = text.substr(first);
    if (digits.size() > 3)
    {
        return false;
    }
    int magnitude = 0;
    for (char const digit : digits)
    {
        if (digit < '0' || digit > '9')
        {
            return false;
        }
        magnitude = magnitude * 10 + (digit - '0');
    }
    if (magnitude > 255)
    {
        return false;
    }
    number = {magnitude, text.substr(0, first).find('-') != std::string_view::npos};
    return true;
}

} // namespace Ostrel::Common::detail
