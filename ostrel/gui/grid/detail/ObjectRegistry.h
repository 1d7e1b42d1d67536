// Which rows show an object, across all grids: the rows of one object form a list through the rows themselves, in the
// order in which they were registered, and a hash table leads from the object to the head of its list.
//
// The dispatcher subscribes to an object with its first row and unsubscribes with its last one. Both calls are made
// without the registry's lock, since the object takes its own. Rows are handed out as copies of a list, so that no code
// of the application ever runs under the lock; Changes() tells whoever walks such a copy whether it is still good.
//
// A row is touched by the thread of its home only, so each thread takes out of a list what it serves.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <ostrel/gui/grid/GridItem.h>
#include <ostrel/platform/base/LargePages.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI::Detail
{
/// The rows of one object; nearly always one.
class ItemList
{
public:
    void Append(CGridItem* item)
    {
        m_count == 0 ? static_cast<void>(m_first = item) : m_rest.push_back(item);
        ++m_count;
    }
    [[nodiscard]] std::size_t Size() const noexcept { return m_count; }
    [[nodiscard]] CGridItem* operator[](std::size_t position) const noexcept
    {
        return position == 0 ? m_first : m_rest[position - 1];
    }

private:
    CGridItem* m_first = nullptr;
    std::vector<CGridItem*> m_rest;
    std::size_t m_count = 0;
};

/// Any thread.
class ObjectRegistry
{
public:
    /// The one of the process; lives until it ends.
    static ObjectRegistry& Instance();

    ObjectRegistry(ObjectRegistry const&) = delete;
    ObjectRegistry& operator=(ObjectRegistry const&) = delete;

    /// The row must not be registered yet.
    void Register(Common::CDataObject* object, CGridItem& item) OSTREL_EXCLUDES(m_lock);
    void Unregister(Common::CDataObject* object, CGridItem& item) OSTREL_EXCLUDES(m_lock);
    /// As Unregister, for an object that is going away and must not be called.
    void Forget(Common::CDataObject const* object) OSTREL_EXCLUDES(m_lock);

    /// Those of a home, or those that the calling thread serves, in the order of registration.
    [[nodiscard]] ItemList Items(Common::CDataObject const* object, DWORD home) const OSTREL_EXCLUDES(m_lock);
    [[nodiscard]] ItemList ItemsServedHere(Common::CDataObject const* object) const OSTREL_EXCLUDES(m_lock);
    [[nodiscard]] bool Contains(Common::CDataObject const* object) const OSTREL_EXCLUDES(m_lock);
    /// The row of each object that has exactly one, null for the others; and how many changes there had been by then.
    std::uint64_t FindOnlyRows(std::span<Common::CDataObject const* const> objects, std::span<CGridItem*> rows) const
        OSTREL_EXCLUDES(m_lock);
    ///@{
    /// Has what FindOnlyRows reads brought into the cache, and what FetchRows reads.
    void FetchRows(std::span<Common::CDataObject const* const> objects) const OSTREL_EXCLUDES(m_lock);
    void FetchSlots(std::span<Common::CDataObject const* const> objects) const OSTREL_EXCLUDES(m_lock);
    ///@}
    /// Whether the row still shows the object and is still served by the calling thread.
    [[nodiscard]] bool IsServedHere(Common::CDataObject const* object, CGridItem const* item) const
        OSTREL_EXCLUDES(m_lock);
    /// Calls the function if so, under the lock: it may call nothing of the application.
    template <class Function>
    void WhileServedHere(Common::CDataObject const* object, CGridItem const* item, Function&& function) const
        OSTREL_EXCLUDES(m_lock)
    {
        Platform::MutexLock const lock(m_lock);
        if (IsServedHereLocked(object, item))
        {
            function();
        }
    }
    /// Grows with every row that is registered or unregistered or gets another home.
    [[nodiscard]] std::uint64_t Changes() const noexcept { return m_changes.load(std::memory_order_acquire); }

    /// The homes of the object's rows, each once.
    [[nodiscard]] std::vector<DWORD> Homes(Common::CDataObject const* object) const OSTREL_EXCLUDES(m_lock);
    /// Rows that the calling thread takes over.
    void SetHome(std::span<CGridItem* const> items, DWORD home) OSTREL_EXCLUDES(m_lock);

    /// Whether the object's rows are being removed because it dies.
    [[nodiscard]] bool IsDying(Common::CDataObject const* object) const OSTREL_EXCLUDES(m_lock);

    /// While rows of a dying object are being removed, it is not unsubscribed from.
    class RemovingScope
    {
    public:
        explicit RemovingScope(Common::CDataObject const* object);
        ~RemovingScope();
        RemovingScope(RemovingScope const&) = delete;
        RemovingScope& operator=(RemovingScope const&) = delete;

    private:
        Common::CDataObject const* m_object;
    };

private:
    struct Slot
    {
        Common::CDataObject const* object = nullptr;
        CGridItem* first = nullptr; ///< its m_previousOfObject is the last row of the list
    };

    ObjectRegistry() = default;

    [[nodiscard]] std::size_t HomeOf(Common::CDataObject const* object) const noexcept OSTREL_REQUIRES(m_lock);
    [[nodiscard]] std::size_t FindLocked(Common::CDataObject const* object) const noexcept OSTREL_REQUIRES(m_lock);
    void GrowLocked() OSTREL_REQUIRES(m_lock);
    void EraseSlotLocked(std::size_t place) noexcept OSTREL_REQUIRES(m_lock);
    bool LinkLocked(Common::CDataObject const* object, CGridItem& item) OSTREL_REQUIRES(m_lock);
    bool UnlinkLocked(Common::CDataObject const* object, CGridItem& item) noexcept OSTREL_REQUIRES(m_lock);
    void CountChangeLocked() noexcept OSTREL_REQUIRES(m_lock)
    {
        m_changes.store(m_changes.load(std::memory_order_relaxed) + 1, std::memory_order_release);
    }
    [[nodiscard]] CGridItem* FirstLocked(Common::CDataObject const* object) const noexcept OSTREL_REQUIRES(m_lock);
    [[nodiscard]] bool IsServedHereLocked(Common::CDataObject const* object, CGridItem const* item) const
        OSTREL_REQUIRES(m_lock);

    mutable Platform::Mutex m_lock;
    /// Open addressing with linear probing; the size is a power of two, at most three quarters are taken.
    std::vector<Slot, Platform::LargePageAllocator<Slot>> m_slots OSTREL_GUARDED_BY(m_lock);
    std::size_t m_objects OSTREL_GUARDED_BY(m_lock) = 0;
    std::vector<Common::CDataObject const*> m_dying OSTREL_GUARDED_BY(m_lock);
    std::atomic<std::size_t> m_dyingObjects{0}; ///< changed under the lock
    std::atomic<std::uint64_t> m_changes{0};    ///< changed under the lock
};

/// The row's object, null while that dies: what the class of the application has added to it is gone by then, so that
/// it may be named, but neither read nor written.
[[nodiscard]] Common::CDataObject* ObjectToAsk(CGridItem const& item);
} // namespace Ostrel::GUI::Detail
