/// @file
/// The format of `long` fields.
#pragma once

#include <ostrel/common/format/detail/WideIntegerFormat.h>

namespace Ostrel::Common
{

/// Signed 32 bits as decimal text with a thousands separator, or as hexadecimal text.
class OSTREL_COMMON_API CLongFormat : public detail::WideIntegerFormat<CLongFormat, long>
{
public:
    static constexpr char const* kClassName = "CLongFormat"; ///< the bare class name

    /// `separator` stands between thousands; none unless it is printable, code 32 to 127. `showZero`: whether 0 is
    /// written at all. `hexPrefix`, `leadingZeros`: whether hexadecimal text starts with "0x" and is filled to the
    /// type's width.
    explicit CLongFormat(Style style = Decimal, bool showZero = true, char separator = ' ', bool hexPrefix = true,
                         bool leadingZeros = false) noexcept
        : WideIntegerFormat(style, showZero, separator, hexPrefix, leadingZeros)
    {}
};

} // namespace Ostrel::Common
