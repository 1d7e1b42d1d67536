#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>
#include <string_view>
#include <system_error>

#include <ostrel/common/format/detail/FloatText.h>
#include <ostrel/common/format/detail/IntegerText.h>

namespace Ostrel::Common::detail
{

namespace
{

template <class F>
constexpr F kPowersOfTen[] = {F(1e0), F(1e1), F(1e2), F(1e3), F(1e4), F(1e5), F(1e6), F(1e7), F(1e8), F(1e9)};

template <class F>
constexpr F kHalfUnits[] = {F(0.5),    F(0.5e-1), F(0.5e-2), F(0.5e-3), F(0.5e-4),
                            F(0.5e-5), F(0.5e-6), F(0.5e-7), F(0.5e-8), F(0.5e-9)};

/// From here on the integer part may have no 64-bit form.
constexpr double kIntegerLimit = 9.2e18;

void AppendIfPrintable(std::string& text, char character)
{
    if (IsPrintable(character))
    {
        text.push_back(character);
    }
}

/// Scientific notation without the zeros at the end of the decimals.
void AppendExponential(std::string& text, double value, int precision)
{
    char buffer[40];
    char* const end =
        std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::scientific, precision).ptr;
    char* const exponent = std::find(buffer, end, 'e');
    char* const point = std::find(buffer, exponent, '.');
    char* decimalsEnd = exponent;
    if (point != exponent)
    {
        while (decimalsEnd[-1] == '0')
        {
            --decimalsEnd;
        }
        decimalsEnd -= decimalsEnd[-1] == '.' ? 1 : 0;
    }
    text.append(buffer, decimalsEnd).append(exponent, end);
}

/// The decimals behind the comma: exactly `precision` digits, or without the zeros at their end.
void AppendFraction(std::string& text, std::uint64_t fraction, int precision, bool trailingZeros)
{
    char digits[10];
    for (int position = precision; position-- > 0; fraction /= 10)
    {
        digits[position] = static_cast<char>('0' + fraction % 10);
    }
    int length = precision;
    while (!trailingZeros && digits[length - 1] == '0')
    {
        --length;
    }
    text.push_back(',');
    text.append(digits, static_cast<std::size_t>(length));
}

template <class F>
void AppendFixed(std::string& text, FloatSettings const& settings, F value)
{
    int const precision = static_cast<unsigned char>(settings.precision); // clamped by the caller
    AppendIfPrintable(text, settings.prefix);
    if (value < 0)
    {
        text.push_back('-');
        value = -value;
    }
    value += kHalfUnits<F>[precision];
    auto const integer = static_cast<std::uint64_t>(value);
    F const scale = kPowersOfTen<F>[precision];
    auto const fraction = static_cast<std::uint64_t>(std::min((value - static_cast<F>(integer)) * scale, scale - 1));

    AppendGrouped(text, integer, settings.separator);
    if (precision > 0 && (settings.trailingZeros || fraction != 0))
    {
        AppendFraction(text, fraction, precision, settings.trailingZeros);
    }
    AppendIfPrintable(text, settings.suffix);
}

} // namespace

template <class F>
void AppendFloat(std::string& text, FloatSettings const& settings, F value)
{
    using Limits = FloatLimits<F>;
    F const magnitude = std::abs(value);
    if (!(magnitude >= Limits::kZeroBelow))
    {
        if (settings.showZero)
        {
            AppendIfPrintable(text, settings.prefix);
            text.push_back('0');
            AppendIfPrintable(text, settings.suffix);
        }
    }
    else if (value >= Limits::kLargeFrom || magnitude < Limits::kSmallBelow ||
             magnitude >= static_cast<F>(kIntegerLimit))
    {
        AppendExponential(text, value, settings.precision);
    }
    else
    {
        AppendFixed(text, settings, value);
    }
}

template void AppendFloat<float>(std::string&, FloatSettings const&, float);
template void AppendFloat<double>(std::string&, FloatSettings const&, double);

namespace
{

/// The number at the beginning of a text, 0 if there is none; always with '.', whatever the locale.
double ReadNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
    {
        text.remove_prefix(1);
    }
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc::result_out_of_range)
    {
        return error == std::errc() ? value : 0;
    }
    // Too large or too small for a double, and only the stream tells which: it yields the largest number or 0.
    std::istringstream stream(std::string(text.data(), end));
    stream.imbue(std::locale::classic());
    stream >> value;
    return std::abs(value) < 1 ? value : std::copysign(std::numeric_limits<double>::infinity(), value);
}

void ReplaceFirst(std::string& text, char from, char to)
{
    if (auto const found = text.find(from); found != std::string::npos)
    {
        text[found] = to;
    }
}

} // namespace

double ParseFloat(std::string text, char separator)
{
    if (text.starts_with('.') || text.starts_with(','))
    {
        text.insert(text.begin(), '0');
    }
    text.erase(0, text.find_first_of("0123456789-"));
    std::size_t const lastDigit = text.find_last_of("0123456789");
    if (lastDigit == std::string::npos)
    {
        return 0;
    }
    text.erase(lastDigit == 0 ? text.size() : lastDigit + 1);
    std::erase_if(text, [](char character)
                  { return std::string_view("0123456789deDE.,-+").find(character) == std::string_view::npos; });

    // The separator goes last: when it is a point, it takes the decimal point that a comma became with it.
    ReplaceFirst(text, ',', '.');
    ReplaceFirst(text, 'E', 'e');
    ReplaceFirst(text, 'D', 'd');
    if (IsPrintable(separator))
    {
        std::erase(text, separator);
    }
    std::replace_if(
        text.begin(), text.end(),
        [](char character) { return character == 'E' || character == 'd' || character == 'D'; }, 'e');
    return ReadNumber(text);
}

} // namespace Ostrel::Common::detail
