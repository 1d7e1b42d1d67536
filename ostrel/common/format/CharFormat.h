/// @file
/// The format of `char` fields.
#pragma once

#include <ostrel/common/format/detail/ByteFormat.h>

namespace Ostrel::Common
{

/// A signed byte as a decimal number, as hexadecimal text, or as one character.
class OSTREL_COMMON_API CCharFormat : public detail::ByteFormat<CCharFormat, char>
{
public:
    static constexpr char const* kClassName = "CCharFormat"; ///< the bare class name

    /// `flag` is stored with the settings and has no effect. `hexPrefix`, `leadingZeros`: whether hexadecimal text
    /// starts with "0x" and always has two digits.
    explicit CCharFormat(Style style = Character, bool flag = true, bool hexPrefix = true,
                         bool leadingZeros = true) noexcept
        : ByteFormat(style, flag, hexPrefix, leadingZeros)
    {}
};

} // namespace Ostrel::Common
