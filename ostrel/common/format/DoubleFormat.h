/// @file
/// The format of `double` fields.
#pragma once

#include <ostrel/common/format/detail/FloatingFormat.h>

namespace Ostrel::Common
{

/// A number with a fixed count of decimals behind a comma; very large and very small ones in exponent notation.
class OSTREL_COMMON_API CDoubleFormat : public detail::FloatingFormat<CDoubleFormat, double>
{
public:
    static constexpr char const* kClassName = "CDoubleFormat"; ///< the bare class name

    /// `precision`: the number of decimals, brought into 0 to 9. `trailingZeros`: whether decimals that are 0 are
    /// written. `showZero`: whether a number that counts as 0 is written at all. `prefix` and `suffix` enclose the
    /// number, `separator` stands between thousands; each has no effect unless it is printable, code 32 to 127.
    explicit CDoubleFormat(char precision = 3, bool trailingZeros = false, bool showZero = true, char prefix = 0,
                           char suffix = 0, char separator = ' ') noexcept
        : FloatingFormat({precision, showZero, trailingZeros, prefix, suffix, separator})
    {}
};

} // namespace Ostrel::Common
