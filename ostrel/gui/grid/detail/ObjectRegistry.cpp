#include <algorithm>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/detail/Dispatcher.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/Prefetch.h>
#include <ostrel/platform/base/ThreadId.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr std::size_t kFirstSize = 64;

std::uint64_t Hash(Common::CDataObject const* object) noexcept
{
    std::uint64_t bits = reinterpret_cast<std::uintptr_t>(object) >> 4U;
    bits *= 0x9E3779B97F4A7C15ULL;
    return bits ^ (bits >> 32U);
}

bool IsServedBy(DWORD thread, CGridItem const& item) noexcept
{
    return Dispatcher::HasOneThread() || Dispatcher::ServingThread(item.m_home) == thread;
}

template <class Predicate>
ItemList Select(CGridItem* first, Predicate&& isWanted)
{
    ItemList items;
    for (CGridItem* item = first; item != nullptr; item = item->m_nextOfObject)
    {
        if (isWanted(*item))
        {
            items.Append(item);
        }
    }
    return items;
}
} // namespace

ObjectRegistry& ObjectRegistry::Instance()
{
    // Never destroyed: data objects with static storage may go after anything that could be destroyed here.
    static auto* const registry = new ObjectRegistry;
    return *registry;
}

std::size_t ObjectRegistry::HomeOf(Common::CDataObject const* object) const noexcept
{
    return static_cast<std::size_t>(Hash(object)) & (m_slots.size() - 1);
}

// The object's slot, or the free one where it would go.
std::size_t ObjectRegistry::FindLocked(Common::CDataObject const* object) const noexcept
{
    std::size_t place = HomeOf(object);
    while (m_slots[place].object != nullptr && m_slots[place].object != object)
    {
        place = (place + 1) & (m_slots.size() - 1);
    }
    return place;
}

void ObjectRegistry::GrowLocked()
{
    if ((m_objects + 1) * 4 <= m_slots.size() * 3)
    {
        return;
    }
    decltype(m_slots) old(m_slots.empty() ? kFirstSize : m_slots.size() * 2);
    old.swap(m_slots);
    for (Slot const& slot : old)
    {
        if (slot.object != nullptr)
        {
            m_slots[FindLocked(slot.object)] = slot;
        }
    }
}

// Moves later slots of the same run back, so that no search stops short.
void ObjectRegistry::EraseSlotLocked(std::size_t place) noexcept
{
    std::size_t const mask = m_slots.size() - 1;
    std::size_t hole = place;
    for (std::size_t next = (hole + 1) & mask; m_slots[next].object != nullptr; next = (next + 1) & mask)
    {
        std::size_t const home = HomeOf(m_slots[next].object);
        if (((next - home) & mask) >= ((next - hole) & mask))
        {
            m_slots[hole] = m_slots[next];
            hole = next;
        }
    }
    m_slots[hole] = {};
    --m_objects;
}

bool ObjectRegistry::LinkLocked(Common::CDataObject const* object, CGridItem& item)
{
    GrowLocked();
    Slot& slot = m_slots[FindLocked(object)];
    item.m_nextOfObject = nullptr;
    if (slot.object == nullptr)
    {
        slot = {object, &item};
        item.m_previousOfObject = &item;
        ++m_objects;
        return true;
    }
    CGridItem* const last = slot.first->m_previousOfObject;
    last->m_nextOfObject = &item;
    item.m_previousOfObject = last;
    slot.first->m_previousOfObject = &item;
    return false;
}

bool ObjectRegistry::UnlinkLocked(Common::CDataObject const* object, CGridItem& item) noexcept
{
    if (item.m_previousOfObject == nullptr || m_slots.empty())
    {
        return false;
    }
    std::size_t const place = FindLocked(object);
    Slot& slot = m_slots[place];
    if (slot.object == nullptr)
    {
        return false;
    }
    CGridItem* const next = item.m_nextOfObject;
    CGridItem* const previous = item.m_previousOfObject;
    if (slot.first == &item)
    {
        slot.first = next;
    }
    else
    {
        previous->m_nextOfObject = next;
    }
    if (CGridItem* const behind = next != nullptr ? next : slot.first)
    {
        behind->m_previousOfObject = previous;
    }
    item.m_nextOfObject = nullptr;
    item.m_previousOfObject = nullptr;
    if (slot.first != nullptr)
    {
        return false;
    }
    EraseSlotLocked(place);
    return std::ranges::find(m_dying, object) == m_dying.end();
}

void ObjectRegistry::Register(Common::CDataObject* object, CGridItem& item)
{
    bool isFirst = false;
    {
        Platform::MutexLock lock(m_lock);
        isFirst = LinkLocked(object, item);
        CountChangeLocked();
    }
    if (isFirst)
    {
        object->AddSink(&Dispatcher::Instance());
    }
}

void ObjectRegistry::Unregister(Common::CDataObject* object, CGridItem& item)
{
    bool wasLast = false;
    {
        Platform::MutexLock lock(m_lock);
        wasLast = UnlinkLocked(object, item);
        CountChangeLocked();
    }
    if (wasLast)
    {
        object->RemoveSink(&Dispatcher::Instance());
    }
}

void ObjectRegistry::Forget(Common::CDataObject const* object)
{
    Platform::MutexLock lock(m_lock);
    if (m_slots.empty())
    {
        return;
    }
    std::size_t const place = FindLocked(object);
    if (m_slots[place].object == nullptr)
    {
        return;
    }
    for (CGridItem* item = m_slots[place].first; item != nullptr;)
    {
        CGridItem* const next = item->m_nextOfObject;
        item->m_nextOfObject = nullptr;
        item->m_previousOfObject = nullptr;
        item = next;
    }
    EraseSlotLocked(place);
    CountChangeLocked();
}

CGridItem* ObjectRegistry::FirstLocked(Common::CDataObject const* object) const noexcept
{
    return object != nullptr && !m_slots.empty() ? m_slots[FindLocked(object)].first : nullptr;
}

ItemList ObjectRegistry::Items(Common::CDataObject const* object, DWORD home) const
{
    Platform::MutexLock lock(m_lock);
    return Select(FirstLocked(object),
                  [&](CGridItem const& item) { return Dispatcher::HasOneThread() || item.m_home == home; });
}

ItemList ObjectRegistry::ItemsServedHere(Common::CDataObject const* object) const
{
    DWORD const thread = GetCurrentThreadId();
    Platform::MutexLock lock(m_lock);
    return Select(FirstLocked(object), [&](CGridItem const& item) { return IsServedBy(thread, item); });
}

void ObjectRegistry::FetchSlots(std::span<Common::CDataObject const* const> objects) const
{
    Platform::MutexLock lock(m_lock);
    for (Common::CDataObject const* const object : objects)
    {
        if (!m_slots.empty())
        {
            __builtin_prefetch(&m_slots[HomeOf(object)]);
        }
    }
}

void ObjectRegistry::FetchRows(std::span<Common::CDataObject const* const> objects) const
{
    Platform::MutexLock lock(m_lock);
    for (Common::CDataObject const* const object : objects)
    {
        if (CGridItem const* const row = FirstLocked(object))
        {
            Prefetch(row, sizeof(CGridItem));
        }
    }
}

std::uint64_t ObjectRegistry::FindOnlyRows(std::span<Common::CDataObject const* const> objects,
                                           std::span<CGridItem*> rows) const
{
    Platform::MutexLock lock(m_lock);
    for (std::size_t i = 0; i < objects.size(); ++i)
    {
        CGridItem* const first = FirstLocked(objects[i]);
        rows[i] = first != nullptr && first->m_nextOfObject == nullptr ? first : nullptr;
    }
    return m_changes.load(std::memory_order_relaxed);
}

bool ObjectRegistry::Contains(Common::CDataObject const* object) const
{
    Platform::MutexLock lock(m_lock);
    return FirstLocked(object) != nullptr;
}

bool ObjectRegistry::IsServedHereLocked(Common::CDataObject const* object, CGridItem const* item) const
{
    CGridItem const* candidate = FirstLocked(object);
    while (candidate != nullptr && candidate != item)
    {
        candidate = candidate->m_nextOfObject;
    }
    return candidate != nullptr && IsServedBy(GetCurrentThreadId(), *candidate);
}

bool ObjectRegistry::IsServedHere(Common::CDataObject const* object, CGridItem const* item) const
{
    Platform::MutexLock lock(m_lock);
    return IsServedHereLocked(object, item);
}

std::vector<DWORD> ObjectRegistry::Homes(Common::CDataObject const* object) const
{
    std::vector<DWORD> homes;
    Platform::MutexLock lock(m_lock);
    for (CGridItem const* item = FirstLocked(object); item != nullptr; item = item->m_nextOfObject)
    {
        if (std::ranges::find(homes, item->m_home) == homes.end())
        {
            homes.push_back(item->m_home);
        }
    }
    return homes;
}

void ObjectRegistry::SetHome(std::span<CGridItem* const> items, DWORD home)
{
    Platform::MutexLock lock(m_lock);
    for (CGridItem* const item : items)
    {
        item->m_home = home;
    }
    CountChangeLocked();
}

ObjectRegistry::RemovingScope::RemovingScope(Common::CDataObject const* object) : m_object(object)
{
    ObjectRegistry& registry = Instance();
    Platform::MutexLock lock(registry.m_lock);
    registry.m_dying.push_back(object);
    registry.m_dyingObjects.store(registry.m_dying.size(), std::memory_order_release);
}

ObjectRegistry::RemovingScope::~RemovingScope()
{
    ObjectRegistry& registry = Instance();
    Platform::MutexLock lock(registry.m_lock);
    registry.m_dying.erase(std::ranges::find(registry.m_dying, m_object));
    registry.m_dyingObjects.store(registry.m_dying.size(), std::memory_order_release);
}

bool ObjectRegistry::IsDying(Common::CDataObject const* object) const
{
    if (m_dyingObjects.load(std::memory_order_acquire) == 0)
    {
        return false;
    }
    Platform::MutexLock const lock(m_lock);
    return std::ranges::find(m_dying, object) != m_dying.end();
}

Common::CDataObject* ObjectToAsk(CGridItem const& item)
{
    Common::CDataObject* const object = item.Object();
    return ObjectRegistry::Instance().IsDying(object) ? nullptr : object;
}
} // namespace Ostrel::GUI::Detail
