/// @file
/// The one place where `long` and `unsigned long`, 64 bits wide on this platform, meet their documented width of 32
/// bits. Every boundary (a value, a stream, an archive, a hexadecimal text) goes through these functions.
#pragma once

#include <cstdint>

namespace Ostrel::Platform
{

/// The low 32 bits with their sign: 0x80000000 becomes -2147483648.
constexpr std::int32_t NarrowToInt32(long value) noexcept
{
    return static_cast<std::int32_t>(value);
}
/// The low 32 bits: -1 becomes 0xFFFFFFFF.
constexpr std::uint32_t NarrowToUInt32(unsigned long value) noexcept
{
    return static_cast<std::uint32_t>(value);
}

///@{
/// The same in the original type, widened again with the sign, or with zero for the unsigned one.
constexpr long NarrowLong(long value) noexcept
{
    return NarrowToInt32(value);
}
constexpr unsigned long NarrowULong(unsigned long value) noexcept
{
    return NarrowToUInt32(value);
}
///@}

} // namespace Ostrel::Platform
