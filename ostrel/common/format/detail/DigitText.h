// Small numbers inside texts of dates and times.
#pragma once

#include <climits>
#include <cstdint>
#include <string>
#include <string_view>

namespace Ostrel::Common::detail
{

inline constexpr std::string_view kDigits = "0123456789";

/// Appends the number with at least `width` digits, at most 10.
inline void AppendDigits(std::string& text, std::uint32_t number, int width)
{
    char buffer[10];
    char* const end = buffer + sizeof(buffer);
    char* begin = end;
    for (; number != 0 || end - begin < width || begin == end; number /= 10)
    {
        *--begin = static_cast<char>('0' + number % 10);
    }
    text.append(begin, end);
}

/// From the first digit of the text to the last; nothing without a digit.
[[nodiscard]] inline std::string_view DigitSpanOrNothing(std::string_view text) noexcept
{
    std::size_t const first = text.find_first_of(kDigits);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_of(kDigits) + 1 - first);
}

/// The same, but a text without a digit stays as it is.
[[nodiscard]] inline std::string_view DigitSpan(std::string_view text) noexcept
{
    return text.find_first_of(kDigits) == std::string_view::npos ? text : DigitSpanOrNothing(text);
}

/// The number at the beginning of the text: blanks, an optional sign, digits up to the first other character. 0 without
/// digits; too large a number is brought to the range of `int`.
[[nodiscard]] inline int ReadNumber(std::string_view text) noexcept
{
    std::size_t position = text.find_first_not_of(" \t\r\n\v\f");
    bool const hasSign = position < text.size() && (text[position] == '-' || text[position] == '+');
    bool const negative = hasSign && text[position] == '-';
    long long number = 0;
    for (position += hasSign ? 1 : 0; position < text.size(); ++position)
    {
        char const character = text[position];
        if (character < '0' || character > '9')
        {
            break;
        }
        number = number * 10 + (character - '0');
        if (number > INT_MAX)
        {
            return negative ? INT_MIN : INT_MAX;
        }
    }
    return static_cast<int>(negative ? -number : number);
}

} // namespace Ostrel::Common::detail
