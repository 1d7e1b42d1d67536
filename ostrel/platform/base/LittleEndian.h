/// @file
/// The one codec of stored numbers: fixed-width little-endian, whatever the machine. Streams, archives and clipboard
/// blocks go through it; no structure is ever copied as memory.
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Ostrel::Platform
{

/// What has a width that does not depend on the platform. `long` and `unsigned long` are left out on purpose: narrow
/// them first. `bool` is stored as a byte by its callers.
template <class T>
concept FixedWidth = (std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, wchar_t> &&
                      (!std::same_as<T, long> || std::same_as<T, std::int32_t> || std::same_as<T, std::int64_t>)) ||
                     std::same_as<T, float> || std::same_as<T, double>;

/// The unsigned number of the same width.
template <std::size_t Size>
using BitsOfSize = std::conditional_t<
    Size == 1, std::uint8_t,
    std::conditional_t<Size == 2, std::uint16_t, std::conditional_t<Size == 4, std::uint32_t, std::uint64_t>>>;

/// Writes sizeof(T) bytes; the caller has the room.
template <FixedWidth T>
constexpr void PutLittleEndian(std::uint8_t* bytes, T value) noexcept
{
    auto const bits = std::bit_cast<BitsOfSize<sizeof(T)>>(value);
    for (std::size_t i = 0; i < sizeof(T); ++i)
    {
        bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
    }
}

/// Reads sizeof(T) bytes; the caller has checked that they are there.
template <FixedWidth T>
[[nodiscard]] constexpr T GetLittleEndian(std::uint8_t const* bytes) noexcept
{
    using Bits = BitsOfSize<sizeof(T)>;
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
    {
        bits = static_cast<Bits>(bits | (static_cast<Bits>(bytes[i]) << (8 * i)));
    }
    return std::bit_cast<T>(bits);
}

} // namespace Ostrel::Platform
