// Floating-point numbers to text with a fixed number of decimals and back. Written by hand: a grid formats thousands of
// prices a second.
#pragma once

#include <algorithm>
#include <string>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common::detail
{

struct FloatSettings
{
    char precision; ///< the number of decimals
    bool showZero;
    bool trailingZeros;
    char prefix;
    char suffix;
    char separator;
};

/// Where the notation changes, for positive magnitudes.
template <class F>
struct FloatLimits;
template <>
struct FloatLimits<double>
{
    static constexpr int kMaxPrecision = 9;
    static constexpr double kZeroBelow = 1e-10;
    static constexpr double kSmallBelow = 1e-9;
    static constexpr double kLargeFrom = 1e13;
};
template <>
struct FloatLimits<float>
{
    static constexpr int kMaxPrecision = 6;
    static constexpr float kZeroBelow = 1e-7F;
    static constexpr float kSmallBelow = 1e-6F;
    static constexpr float kLargeFrom = 1e10F;
};

/// The precision within the type's range.
template <class F>
[[nodiscard]] constexpr char ClampPrecision(char precision) noexcept
{
    constexpr char kMost = FloatLimits<F>::kMaxPrecision;
    return std::clamp(precision, '\0', kMost); // a byte with a sign
}

/// `settings.precision` is within the type's range. Not-a-number is written as zero; a negative number whose integer
/// part has no 64-bit form is written in exponent notation.
template <class F>
OSTREL_COMMON_API void AppendFloat(std::string& text, FloatSettings const& settings, F value);
extern template OSTREL_COMMON_API void AppendFloat<float>(std::string&, FloatSettings const&, float);
extern template OSTREL_COMMON_API void AppendFloat<double>(std::string&, FloatSettings const&, double);

/// Never fails: a text without a number is 0, too large a number is infinite. Both ',' and '.' are decimal separators.
[[nodiscard]] OSTREL_COMMON_API double ParseFloat(std::string text, char separator);

} // namespace Ostrel::Common::detail
