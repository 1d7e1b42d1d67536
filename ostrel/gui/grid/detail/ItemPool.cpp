#include "ItemPool.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <new>
#include <vector>

#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/platform/base/LargePages.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI::Detail
{
namespace
{

constexpr unsigned kSlabBits = 21;
constexpr unsigned kTableBits = 13;
constexpr unsigned kAddressBits = kSlabBits + 2 * kTableBits;
constexpr std::size_t kSlabSize = std::size_t{1} << kSlabBits;
constexpr std::size_t kItemsPerSlab = kSlabSize / sizeof(CGridItem);
constexpr std::size_t kWordsPerSlab = (kItemsPerSlab + 63) / 64;
static_assert(kSlabSize == Platform::kLargePageSize);
constexpr std::size_t kEmptySlabsKept = 1;
constexpr std::size_t kNotListed = ~std::size_t{0};

struct Slab
{
    std::array<std::atomic<std::uint64_t>, kWordsPerSlab> live{};
    std::byte* memory = nullptr;
    std::size_t liveCount = 0;
    std::size_t cursor = 0; ///< where the search for a free place goes on
    std::size_t listIndex = kNotListed;
};

using SlabTable = std::array<std::atomic<Slab*>, std::size_t{1} << kTableBits>;

std::uintptr_t AddressOf(void const* pointer) noexcept
{
    return reinterpret_cast<std::uintptr_t>(pointer);
}

class Pool
{
public:
    void* Allocate();
    void Free(void* place) noexcept;
    [[nodiscard]] bool IsLive(void const* address) const noexcept;
    [[nodiscard]] std::size_t LiveCount() const noexcept { return m_liveCount.load(std::memory_order_relaxed); }

private:
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
    /// Filled first. It changes only when full, so that a freed place waits long before it serves another row and a
    /// stale handle to it stays recognisable.
    Slab* m_current OSTREL_GUARDED_BY(m_lock) = nullptr;
};

Slab* Pool::Find(std::uintptr_t address) const noexcept
{
    if (address >> kAddressBits != 0)
    {
        return nullptr;
    }
    constexpr std::uintptr_t kMask = (std::uintptr_t{1} << kTableBits) - 1;
    SlabTable* table = m_tables[address >> (kSlabBits + kTableBits)].load(std::memory_order_acquire);
    return table ? (*table)[(address >> kSlabBits) & kMask].load(std::memory_order_acquire) : nullptr;
}

Slab& Pool::RecordForLocked(std::uintptr_t address)
{
    if (address >> kAddressBits != 0)
    {
        throw std::bad_alloc();
    }
    constexpr std::uintptr_t kMask = (std::uintptr_t{1} << kTableBits) - 1;
    std::atomic<SlabTable*>& tableSlot = m_tables[address >> (kSlabBits + kTableBits)];
    SlabTable* table = tableSlot.load(std::memory_order_relaxed);
    if (!table)
    {
        table = new SlabTable();
        tableSlot.store(table, std::memory_order_release);
    }
    std::atomic<Slab*>& slabSlot = (*table)[(address >> kSlabBits) & kMask];
    Slab* slab = slabSlot.load(std::memory_order_relaxed);
    if (!slab)
    {
        slab = new Slab();
        slabSlot.store(slab, std::memory_order_release);
    }
    return *slab;
}

void Pool::ListLocked(Slab& slab)
{
    slab.listIndex = m_listed.size();
    m_listed.push_back(&slab);
}

void Pool::UnlistLocked(Slab& slab) noexcept
{
    Slab* const last = m_listed.back();
    m_listed[slab.listIndex] = last;
    last->listIndex = slab.listIndex;
    m_listed.pop_back();
    slab.listIndex = kNotListed;
}

Slab& Pool::NewSlabLocked()
{
    m_listed.reserve(std::max(m_slabs + 1, 2 * m_listed.size())); // freeing a row lists its slab and may not allocate
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

void Pool::ReleaseLocked(Slab& slab) noexcept
{
    UnlistLocked(slab);
    ::operator delete (slab.memory, std::align_val_t{kSlabSize});
    slab.memory = nullptr;
    --m_slabs;
    --m_emptySlabs;
    m_current = m_current == &slab ? nullptr : m_current;
}

/// The slab must have a free place. Going on from the last one keeps rows that are added together together.
std::size_t FindFree(Slab const& slab) noexcept
{
    std::size_t word = slab.cursor / 64;
    std::uint64_t passed = (std::uint64_t{1} << (slab.cursor % 64)) - 1;
    for (;; word = (word + 1) % kWordsPerSlab, passed = 0)
    {
        std::uint64_t const used = slab.live[word].load(std::memory_order_relaxed) | passed;
        std::size_t const index = word * 64 + static_cast<unsigned>(std::countr_one(used));
        if (used != ~std::uint64_t{0} && index < kItemsPerSlab)
        {
            return index;
        }
    }
}

void* Pool::Allocate()
{
    Platform::MutexLock const guard(m_lock);
    if (!m_current)
    {
        m_current = m_listed.empty() ? &NewSlabLocked() : m_listed.back();
    }
    Slab& slab = *m_current;
    std::size_t const index = FindFree(slab);
    slab.live[index / 64].fetch_or(std::uint64_t{1} << (index % 64), std::memory_order_release);
    slab.cursor = (index + 1) % kItemsPerSlab;
    m_emptySlabs -= slab.liveCount == 0 ? 1 : 0;
    m_liveCount.fetch_add(1, std::memory_order_relaxed);
    if (++slab.liveCount == kItemsPerSlab)
    {
        UnlistLocked(slab);
        m_current = nullptr;
    }
    return slab.memory + index * sizeof(CGridItem);
}

void Pool::Free(void* place) noexcept
{
    Platform::MutexLock const guard(m_lock);
    Slab& slab = *Find(AddressOf(place));
    std::size_t const index = (AddressOf(place) & (kSlabSize - 1)) / sizeof(CGridItem);
    slab.live[index / 64].fetch_and(~(std::uint64_t{1} << (index % 64)), std::memory_order_release);
    m_liveCount.fetch_sub(1, std::memory_order_relaxed);
    if (slab.liveCount-- == kItemsPerSlab)
    {
        ListLocked(slab);
    }
    if (slab.liveCount == 0 && ++m_emptySlabs > kEmptySlabsKept)
    {
        ReleaseLocked(slab);
    }
}

bool Pool::IsLive(void const* pointer) const noexcept
{
    std::uintptr_t const address = AddressOf(pointer);
    Slab const* const slab = Find(address);
    if (!slab)
    {
        return false;
    }
    std::uintptr_t const offset = address & (kSlabSize - 1);
    std::size_t const index = offset / sizeof(CGridItem);
    return index < kItemsPerSlab && offset % sizeof(CGridItem) == 0 &&
           (slab->live[index / 64].load(std::memory_order_acquire) >> (index % 64) & 1U) != 0;
}

/// Never destroyed: rows may outlive every static object.
Pool& ThePool()
{
    static Pool* const pool = new Pool();
    return *pool;
}

} // namespace

CGridItem* ItemPool::Create(Common::CDataObject* object)
{
    return new (ThePool().Allocate()) CGridItem(object);
}

void ItemPool::Destroy(CGridItem* item) noexcept
{
    item->~CGridItem();
    ThePool().Free(item);
}

bool ItemPool::IsLive(CGridItem const* item) noexcept
{
    return ThePool().IsLive(item);
}

std::size_t ItemPool::LiveCount() noexcept
{
    return ThePool().LiveCount();
}

} // namespace Ostrel::GUI::Detail
