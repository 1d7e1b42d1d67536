/// @file
/// Memory in large pages, for tables and pools of megabytes that are read at random: with pages of 4 KiB most such
/// reads miss the translation cache as well as the data cache.
#pragma once

#include <cstddef>
#include <new>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Platform
{

/// Bytes of a large page.
inline constexpr std::size_t kLargePageSize = std::size_t{1} << 21;

/// Asks the system to back the memory by large pages as it is touched. Say it before the first touch; the memory should
/// start at a multiple of kLargePageSize. A wish: where it cannot be granted nothing changes. Any thread.
OSTREL_BASE_API void WishForLargePages(void* memory, std::size_t bytes) noexcept;

/// For containers that may become large: blocks of at least a large page wish for large pages.
template <class T>
class LargePageAllocator
{
public:
    using value_type = T; ///< as containers ask for it

    LargePageAllocator() = default;
    /// All are equal: there is nothing to take over.
    template <class Other>
    explicit LargePageAllocator(LargePageAllocator<Other> const& /*other*/) noexcept
    {}

    /// Memory for so many, as containers ask for it. Throws std::bad_alloc.
    [[nodiscard]] T* allocate(std::size_t count)
    {
        std::size_t const bytes = count * sizeof(T);
        if (bytes < kLargePageSize)
        {
            return static_cast<T*>(::operator new(bytes));
        }
        void* const memory = ::operator new (bytes, std::align_val_t{kLargePageSize});
        WishForLargePages(memory, bytes);
        return static_cast<T*>(memory);
    }
    /// Gives back what allocate gave, by the same count.
    void deallocate(T* memory, std::size_t count) noexcept
    {
        if (count * sizeof(T) < kLargePageSize)
        {
            ::operator delete(memory);
        }
        else
        {
            ::operator delete (memory, std::align_val_t{kLargePageSize});
        }
    }

    /// Always: what one allocated another may give back.
    friend bool operator==(LargePageAllocator const& /*a*/, LargePageAllocator const& /*b*/) noexcept { return true; }
};

} // namespace Ostrel::Platform
