// Memory that will be needed soon.
#pragma once

#include <cstddef>

namespace Ostrel::GUI::Detail
{

/// Has so many bytes brought into the cache. Any address will do.
inline void Prefetch(void const* address, std::size_t bytes) noexcept
{
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t offset = 0; offset < bytes; offset += kCacheLine)
    {
        __builtin_prefetch(static_cast<std::byte const*>(address) + offset);
    }
}

} // namespace Ostrel::GUI::Detail
