/// @file
/// The format of `unsigned char` fields.
#pragma once

#include <ostrel/common/format/detail/ByteFormat.h>

namespace Ostrel::Common
{

/// An unsigned byte as a decimal number, as hexadecimal text, or as one character.
class OSTREL_COMMON_API CUCharFormat : public detail::ByteFormat<CUCharFormat, unsigned char>
{
public:
    static constexpr char const* kClassName = "CUCharFormat"; ///< the bare class name

    /// `flag` is stored with the settings and has no effect. `hexPrefix`, `leadingZeros`: whether hexadecimal text
    /// starts with "0x" and always has two digits.
    explicit CUCharFormat(Style style = Character, bool flag = true, bool hexPrefix = true,
                          bool leadingZeros = true) noexcept
        : ByteFormat(style, flag, hexPrefix, leadingZeros)
    {}

    /// Changes how the byte is shown from the next conversion on. Not while other threads convert.
    void SetStyle(Style style) noexcept { m_style = style; }
};

} // namespace Ostrel::Common
