// Memory for very many things of one size that are found at random. They lie in slabs of 2 MiB, the size of a large
// page, that start at multiples of their size: among pages of 4 KiB most accesses would miss the translation cache too.
//
// A two-level table over the address bits leads from an address to the record of its slab, which holds a bit per place.
// So any address at all can be asked whether it is a place in use, without touching what is there. Tables and records
// are never freed, so that asking needs no lock; the slabs themselves are given back when many are empty.
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#else // a compiler that was installed without its sanitizers
#define ASAN_POISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#endif

#include <ostrel/platform/base/LargePages.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI::Detail
{

/// Any thread. Made to live as long as the process: it has no way to give back what is in use.
template <std::size_t kPlaceSize>
class SlabPool
{
public:
    /// The memory is aligned to the largest power of two that divides the size of a place. Throws std::bad_alloc.
    [[nodiscard]] void* Allocate();
    /// The place must be in use.
    void Free(void* place) noexcept;
    /// True if the address is that of a place in use. Any value may be asked.
    [[nodiscard]] bool IsLive(void const* address) const noexcept;
    [[nodiscard]] std::size_t LiveCount() const noexcept { return m_liveCount.load(std::memory_order_relaxed); }

private:
    static constexpr unsigned kSlabBits = 21;
    static constexpr unsigned kTableBits = 13;
    static constexpr unsigned kAddressBits = kSlabBits + 2 * kTableBits;
    static constexpr std::uintptr_t kTableMask = (std::uintptr_t{1} << kTableBits) - 1;
    static constexpr std::size_t kSlabSize = std::size_t{1} << kSlabBits;
    static constexpr std::size_t kPlacesPerSlab = kSlabSize / kPlaceSize;
    static constexpr std::size_t kWordsPerSlab = (kPlacesPerSlab + 63) / 64;
    static constexpr std::size_t kEmptySlabsKept = 1;
    static constexpr std::size_t kNotListed = ~std::size_t{0};
    static_assert(kSlabSize == Platform::kLargePageSize);

    struct Slab
    {
        std::array<std::atomic<std::uint64_t>, kWordsPerSlab> live{};
        std::byte* memory = nullptr;
        std::size_t liveCount = 0;
        std::size_t cursor = 0; ///< where the search for a free place goes on
        std::size_t listIndex = kNotListed;
    };
    using SlabTable = std::array<std::atomic<Slab*>, std::size_t{1} << kTableBits>;

    [[nodiscard]] static std::uintptr_t AddressOf(void const* pointer) noexcept
    {
        return reinterpret_cast<std::uintptr_t>(pointer);
    }
    [[nodiscard]] static std::size_t FindFree(Slab const& slab) noexcept;

    [[nodiscard]] Slab* Find(std::uintptr_t address) const noexcept;
    Slab& NewSlabLocked() OSTREL_REQUIRES(m_lock);
    Slab& RecordForLocked(std::uintptr_t address) OSTREL_REQUIRES(m_lock);
    void ListLocked(Slab& slab) OSTREL_REQUIRES(m_lock);
    void UnlistLocked(Slab& slab) noexcept OSTREL_REQUIRES(m_lock);
    void ReleaseLocked(Slab& slab) noexcept OSTREL_REQUIRES(m_lock);

    std::array<std::atomic<SlabTable*>, std::size_t{1} << kTableBits> m_tables{};
    std::atomic<std::size_t> m_liveCount = 0;
    Platform::Mutex m_lock;                                ///< also guards every change of a slab's record
    std::vector<Slab*> m_listed OSTREL_GUARDED_BY(m_lock); ///< slabs with a free place
    std::size_t m_slabs OSTREL_GUARDED_BY(m_lock) = 0;     ///< with memory
    std::size_t m_emptySlabs OSTREL_GUARDED_BY(m_lock) = 0;
    /// Filled first. It changes only when full, so that a freed place waits long before it serves again and a stale
    /// address stays recognisable.
    Slab* m_current OSTREL_GUARDED_BY(m_lock) = nullptr;
};

template <std::size_t kPlaceSize>
auto SlabPool<kPlaceSize>::Find(std::uintptr_t address) const noexcept -> Slab*
{
    if (address >> kAddressBits != 0)
    {
        return nullptr;
    }
    SlabTable* table = m_tables[address >> (kSlabBits + kTableBits)].load(std::memory_order_acquire);
    return table ? (*table)[(address >> kSlabBits) & kTableMask].load(std::memory_order_acquire) : nullptr;
}

template <std::size_t kPlaceSize>
auto SlabPool<kPlaceSize>::RecordForLocked(std::uintptr_t address) -> Slab&
{
    if (address >> kAddressBits != 0)
    {
        throw std::bad_alloc();
    }
    std::atomic<SlabTable*>& tableSlot = m_tables[address >> (kSlabBits + kTableBits)];
    SlabTable* table = tableSlot.load(std::memory_order_relaxed);
    if (!table)
    {
        table = new SlabTable();
        tableSlot.store(table, std::memory_order_release);
    }
    std::atomic<Slab*>& slabSlot = (*table)[(address >> kSlabBits) & kTableMask];
    Slab* slab = slabSlot.load(std::memory_order_relaxed);
    if (!slab)
    {
        slab = new Slab();
        slabSlot.store(slab, std::memory_order_release);
    }
    return *slab;
}

template <std::size_t kPlaceSize>
void SlabPool<kPlaceSize>::ListLocked(Slab& slab)
{
    slab.listIndex = m_listed.size();
    m_listed.push_back(&slab);
}

template <std::size_t kPlaceSize>
void SlabPool<kPlaceSize>::UnlistLocked(Slab& slab) noexcept
{
    Slab* const last = m_listed.back();
    m_listed[slab.listIndex] = last;
    last->listIndex = slab.listIndex;
    m_listed.pop_back();
    slab.listIndex = kNotListed;
}

template <std::size_t kPlaceSize>
auto SlabPool<kPlaceSize>::NewSlabLocked() -> Slab&
{
    m_listed.reserve(std::max(m_slabs + 1, 2 * m_listed.size())); // freeing a place lists its slab and may not allocate
    auto* const memory = static_cast<std::byte*>(::operator new (kSlabSize, std::align_val_t{kSlabSize}));
    try
    {
        Slab& slab = RecordForLocked(AddressOf(memory));
        if (m_slabs > 0) // the first one is for small grids, which pay for what they touch
        {
            Platform::WishForLargePages(memory, kSlabSize);
        }
        slab.memory = memory;
        slab.cursor = 0;
        ASAN_POISON_MEMORY_REGION(memory, kSlabSize);
        ListLocked(slab);
        ++m_slabs;
        ++m_emptySlabs;
        return slab;
    }
    catch (...)
    {
        ::operator delete (memory, std::align_val_t{kSlabSize});
        throw;
    }
}

template <std::size_t kPlaceSize>
void SlabPool<kPlaceSize>::ReleaseLocked(Slab& slab) noexcept
{
    UnlistLocked(slab);
    ASAN_UNPOISON_MEMORY_REGION(slab.memory, kSlabSize);
    ::operator delete (slab.memory, std::align_val_t{kSlabSize});
    slab.memory = nullptr;
    --m_slabs;
    --m_emptySlabs;
    m_current = m_current == &slab ? nullptr : m_current;
}

/// The slab must have a free place. Going on from the last one keeps together what is made together.
template <std::size_t kPlaceSize>
std::size_t SlabPool<kPlaceSize>::FindFree(Slab const& slab) noexcept
{
    std::size_t word = slab.cursor / 64;
    std::uint64_t passed = (std::uint64_t{1} << (slab.cursor % 64)) - 1;
    for (;; word = (word + 1) % kWordsPerSlab, passed = 0)
    {
        std::uint64_t const used = slab.live[word].load(std::memory_order_relaxed) | passed;
        std::size_t const index = word * 64 + static_cast<unsigned>(std::countr_one(used));
        if (used != ~std::uint64_t{0} && index < kPlacesPerSlab)
        {
            return index;
        }
    }
}

template <std::size_t kPlaceSize>
void* SlabPool<kPlaceSize>::Allocate()
{
    Platform::MutexLock const guard(m_lock);
    if (!m_current)
    {
        m_current = m_listed.empty() ? &NewSlabLocked() : m_listed.back();
    }
    Slab& slab = *m_current;
    std::size_t const index = FindFree(slab);
    slab.live[index / 64].fetch_or(std::uint64_t{1} << (index % 64), std::memory_order_release);
    slab.cursor = (index + 1) % kPlacesPerSlab;
    m_emptySlabs -= slab.liveCount == 0 ? 1 : 0;
    m_liveCount.fetch_add(1, std::memory_order_relaxed);
    if (++slab.liveCount == kPlacesPerSlab)
    {
        UnlistLocked(slab);
        m_current = nullptr;
    }
    std::byte* const place = slab.memory + index * kPlaceSize;
    ASAN_UNPOISON_MEMORY_REGION(place, kPlaceSize);
    return place;
}

template <std::size_t kPlaceSize>
void SlabPool<kPlaceSize>::Free(void* place) noexcept
{
    Platform::MutexLock const guard(m_lock);
    ASAN_POISON_MEMORY_REGION(place, kPlaceSize);
    Slab& slab = *Find(AddressOf(place));
    std::size_t const index = (AddressOf(place) & (kSlabSize - 1)) / kPlaceSize;
    slab.live[index / 64].fetch_and(~(std::uint64_t{1} << (index % 64)), std::memory_order_release);
    m_liveCount.fetch_sub(1, std::memory_order_relaxed);
    if (slab.liveCount-- == kPlacesPerSlab)
    {
        ListLocked(slab);
    }
    if (slab.liveCount == 0 && ++m_emptySlabs > kEmptySlabsKept)
    {
        ReleaseLocked(slab);
    }
}

template <std::size_t kPlaceSize>
bool SlabPool<kPlaceSize>::IsLive(void const* pointer) const noexcept
{
    std::uintptr_t const address = AddressOf(pointer);
    Slab const* const slab = Find(address);
    if (!slab)
    {
        return false;
    }
    std::uintptr_t const offset = address & (kSlabSize - 1);
    std::size_t const index = offset / kPlaceSize;
    return index < kPlacesPerSlab && offset % kPlaceSize == 0 &&
           (slab->live[index / 64].load(std::memory_order_acquire) >> (index % 64) & 1U) != 0;
}

} // namespace Ostrel::GUI::Detail
