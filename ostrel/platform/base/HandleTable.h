/// @file
/// Things known by handles that can be recognised as stale.
#pragma once

#include <array>
#include <atomic>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Platform
{

/// Things known by 32-bit handles {generation, slot}. A handle whose thing was removed is recognised as stale even when
/// its slot serves another thing. Finding is lock-free and touches one slot; adding and removing take a lock.
///
/// The table does not own the things. Find tells what a handle meant at that moment: the caller knows that the thing
/// lives on (it is on the thing's own thread, or things are only freed later). Where nothing else keeps the thing
/// alive, Visit holds off its removal for the length of a short function.
///
/// A slot comes back into use only after kReuseDistance others have been freed, with its next generation, so that a
/// stale handle is mistaken only after some four million handles have come and gone.
template <class T>
class HandleTable
{
public:
    /// Generation and slot in 32 bits; 0 is no handle.
    using Handle = DWORD;

    static constexpr DWORD kSlotBits = 20; ///< bits of a handle that name the slot; the others are the generation
    static constexpr DWORD kMaxSlots = 1U << kSlotBits; ///< how many things can be known at a time
    static constexpr std::size_t kReuseDistance = 1024; ///< slots that are freed before the same one serves again

    HandleTable() = default;
    HandleTable(HandleTable const&) = delete;
    HandleTable& operator=(HandleTable const&) = delete;
    ~HandleTable()
    {
        for (std::atomic<Slot*>& chunk : m_chunks)
        {
            delete[] chunk.load(std::memory_order_relaxed);
        }
    }

    /// A handle for the thing, never 0. Does not take ownership. Returns 0 for null, and when the table is full. Any
    /// thread.
    [[nodiscard]] Handle Add(T* thing);

    /// The thing is found no more. Returns it, or null for a handle that is not in use. Waits for a Visit on another
    /// thread. Any thread.
    T* Remove(Handle handle);

    /// The thing, or null for a handle that is stale or was never given. Any thread.
    [[nodiscard]] T* Find(Handle handle) const noexcept;

    /// Calls visitor(T&) while the thing cannot be removed. Returns false, without the call, for a handle that is not
    /// in use. The visitor must not use the table except for Find. Any thread.
    template <class Visitor>
    bool Visit(Handle handle, Visitor&& visitor) const
    {
        MutexLock const lock(m_lock);
        T* const thing = Find(handle);
        if (thing == nullptr)
        {
            return false;
        }
        std::forward<Visitor>(visitor)(*thing);
        return true;
    }

    /// The handles in use at this moment. Any thread.
    [[nodiscard]] std::vector<Handle> Handles() const;
    /// How many handles are in use. Any thread.
    [[nodiscard]] std::size_t Count() const
    {
        MutexLock const lock(m_lock);
        return m_slotCount - m_free.size();
    }

private:
    static constexpr DWORD kChunkBits = 10;
    static constexpr DWORD kChunkSize = 1U << kChunkBits;
    static constexpr DWORD kSlotMask = kMaxSlots - 1;

    /// The handle in use, or with its lowest generation to come while the slot is free. `thing` is null in a free slot.
    struct Slot
    {
        std::atomic<Handle> handle{0};
        std::atomic<T*> thing{nullptr};
    };

    static constexpr Handle NextGeneration(Handle handle) noexcept
    {
        Handle const next = handle + kMaxSlots;
        return next < kMaxSlots ? next + kMaxSlots : next; // generation 0 is left out, so that no handle is 0
    }

    [[nodiscard]] Slot* SlotOf(Handle handle) const noexcept
    {
        DWORD const slot = handle & kSlotMask;
        Slot* const chunk = m_chunks[slot >> kChunkBits].load(std::memory_order_acquire);
        return chunk != nullptr ? chunk + (slot & (kChunkSize - 1)) : nullptr;
    }

    Slot* TakeSlotLocked() OSTREL_REQUIRES(m_lock);

    mutable Mutex m_lock;
    std::array<std::atomic<Slot*>, kMaxSlots / kChunkSize> m_chunks{};
    DWORD m_slotCount OSTREL_GUARDED_BY(m_lock) = 0;
    std::deque<Slot*> m_free OSTREL_GUARDED_BY(m_lock); ///< oldest first
};

template <class T>
typename HandleTable<T>::Handle HandleTable<T>::Add(T* thing)
{
    MutexLock const lock(m_lock);
    Slot* const slot = thing != nullptr ? TakeSlotLocked() : nullptr;
    if (slot == nullptr)
    {
        return 0;
    }
    slot->thing.store(thing, std::memory_order_release);
    return slot->handle.load(std::memory_order_relaxed);
}

template <class T>
T* HandleTable<T>::Remove(Handle handle)
{
    MutexLock const lock(m_lock);
    T* const thing = Find(handle);
    if (thing != nullptr)
    {
        Slot* const slot = SlotOf(handle);
        slot->thing.store(nullptr, std::memory_order_relaxed);
        slot->handle.store(NextGeneration(handle), std::memory_order_release);
        m_free.push_back(slot);
    }
    return thing;
}

// The handle is looked at twice: if the slot was freed and given to another thing in between, the thing may be the new
// one, and then the acquire of `thing` makes the slot's next generation visible.
template <class T>
T* HandleTable<T>::Find(Handle handle) const noexcept
{
    Slot const* const slot = SlotOf(handle);
    if (slot == nullptr || slot->handle.load(std::memory_order_acquire) != handle)
    {
        return nullptr;
    }
    T* const thing = slot->thing.load(std::memory_order_acquire);
    return slot->handle.load(std::memory_order_relaxed) == handle ? thing : nullptr;
}

template <class T>
std::vector<typename HandleTable<T>::Handle> HandleTable<T>::Handles() const
{
    MutexLock const lock(m_lock);
    std::vector<Handle> handles;
    for (DWORD number = 0; number < m_slotCount; ++number)
    {
        Slot const& slot = *SlotOf(number);
        if (slot.thing.load(std::memory_order_relaxed) != nullptr)
        {
            handles.push_back(slot.handle.load(std::memory_order_relaxed));
        }
    }
    return handles;
}

template <class T>
typename HandleTable<T>::Slot* HandleTable<T>::TakeSlotLocked()
{
    if (m_free.size() > kReuseDistance || (m_slotCount == kMaxSlots && !m_free.empty()))
    {
        Slot* const slot = m_free.front();
        m_free.pop_front();
        return slot;
    }
    if (m_slotCount == kMaxSlots)
    {
        return nullptr;
    }
    std::atomic<Slot*>& chunk = m_chunks[m_slotCount >> kChunkBits];
    if (chunk.load(std::memory_order_relaxed) == nullptr)
    {
        chunk.store(new Slot[kChunkSize], std::memory_order_release);
    }
    Slot* const slot = SlotOf(m_slotCount);
    slot->handle.store(m_slotCount + kMaxSlots, std::memory_order_release);
    ++m_slotCount;
    return slot;
}

} // namespace Ostrel::Platform
