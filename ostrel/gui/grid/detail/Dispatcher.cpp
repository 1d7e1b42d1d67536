#include <memory>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/Dispatcher.h>
#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr char const* kWindowClass = "Ostrel.Grid.Dispatcher";

struct GiveBackRecord
{
    void operator()(UpdateRecord* record) const noexcept { UpdateRecord::GiveBack(record); }
};
using RecordOwner = std::unique_ptr<UpdateRecord, GiveBackRecord>;

void RegisterWindowClassOnce()
{
    WNDCLASS present;
    if (GetClassInfo(nullptr, kWindowClass, &present) != FALSE)
    {
        return;
    }
    WNDCLASS windowClass;
    windowClass.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = &::DefWindowProc;
    windowClass.lpszClassName = kWindowClass;
    RegisterClass(&windowClass);
}

UINT DispatcherMessage()
{
    static UINT const message = RegisterWindowMessage("Ostrel.Grid.Dispatcher.SyncMessage");
    return message;
}

/// Calls the function for each row of an object, passing over those that an earlier call has taken away.
template <class Function>
void ForEachRow(Common::CDataObject const* object, Function&& function)
{
    ObjectRegistry const& registry = ObjectRegistry::Instance();
    std::uint64_t const removals = registry.Removals();
    ItemList const items = registry.Items(object);
    for (std::size_t i = 0; i < items.Size(); ++i)
    {
        if (registry.Removals() == removals || registry.Contains(object, items[i]))
        {
            function(*items[i]);
        }
    }
}
} // namespace

Dispatcher& Dispatcher::Instance()
{
    // Never destroyed: objects may notify until the process ends.
    static auto* const dispatcher = new Dispatcher;
    return *dispatcher;
}

void Dispatcher::EnsureWindow()
{
    if (IsWindow(m_window.load(std::memory_order_acquire)) != FALSE)
    {
        return;
    }
    RegisterWindowClassOnce();
    CreateEx(0, kWindowClass, "", WS_POPUP, -1000, -1000, 0, 0, nullptr, 0);
    m_thread.store(std::this_thread::get_id(), std::memory_order_release);
    m_window.store(m_hWnd, std::memory_order_release);
}

void Dispatcher::PostNcDestroy()
{
    m_window.store(nullptr, std::memory_order_release);
}

void Dispatcher::OnUpdate(std::set<long> const& fieldIds, Common::CDataObject const* object)
{
    for (long const fieldId : fieldIds)
    {
        OnUpdate(fieldId, object);
    }
}

void Dispatcher::OnUpdate(long fieldId, Common::CDataObject const* object)
{
    HWND const window = m_window.load(std::memory_order_acquire);
    if (object == nullptr || window == nullptr)
    {
        return;
    }
    RecordOwner record(UpdateRecord::Take());
    record->object = object;
    record->fieldId = fieldId;
    if (fieldId != kNoField && CPreferences::GetThreadingMode() == CPreferences::SnapshotOnNotify)
    {
        record->snapshot = TakeSnapshot(const_cast<Common::CDataObject&>(*object), fieldId);
    }
    if (::PostMessage(window, DispatcherMessage(), ApplyUpdate, reinterpret_cast<LPARAM>(record.get())) != FALSE)
    {
        static_cast<void>(record.release());
    }
}

void Dispatcher::OnDelete(Common::CDataObject const* object)
{
    HWND const window = m_window.load(std::memory_order_acquire);
    if (m_thread.load(std::memory_order_acquire) == std::this_thread::get_id() || window == nullptr)
    {
        RemoveRows(object);
    }
    else
    {
        ::SendMessage(window, DispatcherMessage(), RemoveObject, reinterpret_cast<LPARAM>(object));
    }
}

LRESULT Dispatcher::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == DispatcherMessage() ? OnMessage(wParam, lParam) : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT Dispatcher::OnMessage(WPARAM code, LPARAM argument)
{
    if (argument == 0)
    {
        return 0;
    }
    if (code == ApplyUpdate)
    {
        RecordOwner const record(reinterpret_cast<UpdateRecord*>(argument));
        m_lookAhead.Step(DispatcherMessage());
        Deliver(*record);
    }
    else if (code == RemoveObject)
    {
        RemoveRows(reinterpret_cast<Common::CDataObject const*>(argument));
    }
    return 0;
}

void Dispatcher::Deliver(UpdateRecord const& record)
{
    ForEachRow(record.object, [&](CGridItem& item) { GridUpdates::Apply(item, record); });
}

void Dispatcher::RemoveRows(Common::CDataObject const* object)
{
    ObjectRegistry& registry = ObjectRegistry::Instance();
    if (!registry.Contains(object))
    {
        return;
    }
    ObjectRegistry::RemovingScope const removing(object);
    ForEachRow(object, [](CGridItem& item) { GridRows::DeleteAnywhere(item); });
    registry.Forget(object);
}
} // namespace Ostrel::GUI::Detail
