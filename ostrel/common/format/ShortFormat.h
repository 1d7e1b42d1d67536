/// @file
/// The format of `short` fields.
#pragma once

#include <ostrel/common/format/detail/WideIntegerFormat.h>

namespace Ostrel::Common
{

/// Signed 16 bits as decimal text with a thousands separator, or as hexadecimal text.
class OSTREL_COMMON_API CShortFormat : public detail::WideIntegerFormat<CShortFormat, short>
{
public:
    static constexpr char const* kClassName = "CShortFormat"; ///< the bare class name

    /// `separator` stands between thousands; none unless it is printable, code 32 to 127. `showZero`: whether 0 is
    /// written at all. `hexPrefix`, `leadingZeros`: whether hexadecimal text starts with "0x" and is filled to the
    /// type's width.
    explicit CShortFormat(Style style = Decimal, bool showZero = true, char separator = ' ', bool hexPrefix = true,
                          bool leadingZeros = true) noexcept
        : WideIntegerFormat(style, showZero, separator, hexPrefix, leadingZeros)
    {}
};

} // namespace Ostrel::Common
