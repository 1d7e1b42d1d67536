#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <span>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/Dispatcher.h>
#include <ostrel/gui/grid/detail/GridArea.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/UpdateLookAhead.h>
#include <ostrel/gui/grid/detail/UpdateRecord.h>
#include <ostrel/gui/grid/detail/WindowClass.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/ThreadId.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{
constexpr char const* kWindowClass = "Ostrel.Grid.Dispatcher";

enum Code : WPARAM
{
    ApplyUpdate = 0,  ///< lParam: UpdateCargo
    RemoveObject = 1, ///< lParam: CDataObject const*, sent
};

/// A thread with a dispatching window. Places are taken from the front, so that the oldest comes first.
struct Place
{
    std::atomic<DWORD> thread{0}; ///< 0: free
    std::atomic<HWND> window{nullptr};
};
/// The rows of threads beyond these are served by the first.
constexpr int kMostThreads = 64;
std::array<Place, kMostThreads> g_places;
std::atomic<int> g_usedPlaces{0}; ///< never shrinks

std::span<Place> UsedPlaces() noexcept
{
    return std::span(g_places).first(static_cast<std::size_t>(g_usedPlaces.load(std::memory_order_acquire)));
}

/// Null when all are taken.
Place* TakePlace(DWORD thread) noexcept
{
    for (int i = 0; i < kMostThreads; ++i)
    {
        DWORD nobody = 0;
        if (g_places[static_cast<std::size_t>(i)].thread.compare_exchange_strong(nobody, thread))
        {
            int used = g_usedPlaces.load();
            while (used < i + 1 && !g_usedPlaces.compare_exchange_weak(used, i + 1))
            {}
            return &g_places[static_cast<std::size_t>(i)];
        }
    }
    return nullptr;
}

/// The window that serves the rows of a home, null when there is no window at all.
Place const* ServingPlace(DWORD home) noexcept
{
    Place const* oldest = nullptr;
    for (Place const& place : UsedPlaces())
    {
        if (place.window.load(std::memory_order_acquire) == nullptr)
        {
            continue;
        }
        if (place.thread.load(std::memory_order_relaxed) == home)
        {
            return &place;
        }
        oldest = oldest == nullptr ? &place : oldest;
    }
    return oldest;
}

void RegisterWindowClass()
{
    WNDCLASS windowClass;
    windowClass.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = &::DefWindowProc;
    windowClass.lpszClassName = kWindowClass;
    RegisterClassOnce(windowClass);
}

UINT DispatcherMessage()
{
    static UINT const message = RegisterWindowMessage("Ostrel.Grid.Dispatcher.SyncMessage");
    return message;
}

/// Calls the function for each row of an object that the calling thread serves, passing over those that an earlier call
/// has taken away.
template <class Function>
void ForEachRow(Common::CDataObject const* object, Function&& function)
{
    ObjectRegistry const& registry = ObjectRegistry::Instance();
    std::uint64_t const changes = registry.Changes();
    ItemList const items = registry.ItemsServedHere(object);
    for (std::size_t i = 0; i < items.Size(); ++i)
    {
        if (registry.Changes() == changes || registry.IsServedHere(object, items[i]))
        {
            function(*items[i]);
        }
    }
}

void Apply(CGridItem& item, UpdateRecord const& record, std::int32_t nowMs)
{
    if (Dispatcher::HasOneThread() || GridArea::Of(item) != nullptr)
    {
        GridUpdates::Apply(item, record, nowMs);
        return;
    }
    // A row in no grid may be taken over by the grid of another thread meanwhile.
    ObjectRegistry::Instance().WhileServedHere(record.object, &item,
                                               [&]() { GridUpdates::Apply(item, record, nowMs); });
}
} // namespace

/// Lives as long as its thread.
class Dispatcher::Window final : public CWnd
{
public:
    explicit Window(Place& place) noexcept : m_place(place) {}
    ~Window() override
    {
        DestroyWindow();
        m_place.thread.store(0, std::memory_order_release);
    }

    /// Does nothing where the thread has one, or where too many threads have one.
    static void Make()
    {
        static thread_local Window* present = nullptr;
        if (present == nullptr)
        {
            Place* const place = TakePlace(GetCurrentThreadId());
            if (place == nullptr)
            {
                return;
            }
            RegisterWindowClass();
            GetFocus(); // what the thread's windows stand on is there before the owner, and goes after it
            static thread_local std::unique_ptr<Window> owner;
            owner = std::make_unique<Window>(*place);
            present = owner.get();
        }
        if (present->m_hWnd == nullptr)
        {
            present->CreateEx(0, kWindowClass, "", WS_POPUP, -1000, -1000, 0, 0, nullptr, 0);
        }
    }

protected:
    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == DispatcherMessage() ? OnMessage(wParam, lParam) : CWnd::WindowProc(message, wParam, lParam);
    }
    void PreSubclassWindow() override { m_place.window.store(m_hWnd, std::memory_order_release); }
    void PostNcDestroy() override { m_place.window.store(nullptr, std::memory_order_release); }

private:
    LRESULT OnMessage(WPARAM code, LPARAM argument)
    {
        if (code == ApplyUpdate && argument != 0)
        {
            OnUpdateMessage(UpdateCargo(argument));
        }
        else if (code == RemoveObject)
        {
            RemoveRows(reinterpret_cast<Common::CDataObject const*>(argument));
        }
        return 0;
    }

    void OnUpdateMessage(UpdateCargo cargo)
    {
        // Which reads rows, and so only where all are this thread's.
        CGridItem* const onlyRow = HasOneThread() ? m_lookAhead.Step(DispatcherMessage(), cargo.Object()) : nullptr;
        if (cargo.IsPacked())
        {
            UpdateRecord record;
            record.object = cargo.Object();
            record.fieldId = cargo.FieldId();
            Deliver(record, onlyRow);
        }
        else
        {
            std::unique_ptr<UpdateRecord> const record(cargo.Record());
            Deliver(*record, onlyRow);
        }
    }

    Place& m_place;
    UpdateLookAhead m_lookAhead;
};

Dispatcher& Dispatcher::Instance()
{
    // Never destroyed: objects may notify until the process ends.
    static auto* const dispatcher = new Dispatcher;
    return *dispatcher;
}

void Dispatcher::EnsureWindow()
{
    Window::Make();
}

bool Dispatcher::HasOneThread() noexcept
{
    return g_usedPlaces.load(std::memory_order_acquire) <= 1;
}

DWORD Dispatcher::ServingThread(DWORD home) noexcept
{
    Place const* const place = ServingPlace(home);
    return place != nullptr ? place->thread.load(std::memory_order_relaxed) : GetCurrentThreadId();
}

std::vector<HWND> Dispatcher::WindowsFor(Common::CDataObject const* object)
{
    std::vector<HWND> windows;
    for (DWORD const home : ObjectRegistry::Instance().Homes(object))
    {
        Place const* const place = ServingPlace(home);
        HWND const window = place != nullptr ? place->window.load(std::memory_order_acquire) : nullptr;
        if (window != nullptr && std::ranges::find(windows, window) == windows.end())
        {
            windows.push_back(window);
        }
    }
    return windows;
}

void Dispatcher::OnUpdate(std::set<long> const& fieldIds, Common::CDataObject const* object)
{
    for (long const fieldId : fieldIds)
    {
        OnUpdate(fieldId, object);
    }
}

bool Dispatcher::Post(HWND window, LPARAM cargo)
{
    return ::PostMessage(window, DispatcherMessage(), ApplyUpdate, cargo) != FALSE;
}

void Dispatcher::Post(HWND window, std::unique_ptr<UpdateRecord> record)
{
    if (Post(window, reinterpret_cast<LPARAM>(record.get())))
    {
        static_cast<void>(record.release());
    }
}

void Dispatcher::OnUpdate(long fieldId, Common::CDataObject const* object)
{
    HWND const only = HasOneThread() ? g_places[0].window.load(std::memory_order_acquire) : nullptr;
    if (object == nullptr || (only == nullptr && HasOneThread()))
    {
        return;
    }
    bool const takesSnapshot =
        fieldId != kNoField && CPreferences::GetThreadingMode() == CPreferences::SnapshotOnNotify;
    if (only != nullptr && !takesSnapshot && UpdateCargo::FitsPacked(object, fieldId))
    {
        static_cast<void>(Post(only, UpdateCargo::Pack(object, fieldId)));
        return;
    }
    CallbackErrors errors; // of the object's getters
    auto record = std::make_unique<UpdateRecord>();
    record->object = object;
    record->fieldId = fieldId;
    if (takesSnapshot)
    {
        record->snapshot = TakeSnapshot(const_cast<Common::CDataObject&>(*object), fieldId);
    }
    if (only != nullptr)
    {
        Post(only, std::move(record));
        errors.Rethrow();
        return;
    }
    for (HWND const window : WindowsFor(object))
    {
        Post(window, record->Copy());
    }
    errors.Rethrow();
}

void Dispatcher::OnDelete(Common::CDataObject const* object)
{
    ObjectRegistry& registry = ObjectRegistry::Instance();
    if (!registry.Contains(object))
    {
        return;
    }
    ObjectRegistry::RemovingScope const removing(object);
    for (HWND const window : WindowsFor(object))
    {
        if (GetWindowThreadProcessId(window) != GetCurrentThreadId())
        {
            ::SendMessage(window, DispatcherMessage(), RemoveObject, reinterpret_cast<LPARAM>(object));
        }
    }
    RemoveRows(object);
    registry.Forget(object);
}

void Dispatcher::Deliver(UpdateRecord const& record, CGridItem* onlyRow)
{
    CallbackErrors errors;
    if (onlyRow != nullptr)
    {
        GridUpdates::Apply(*onlyRow, record, GridTimeMs(Platform::TakenMilliseconds()));
    }
    else
    {
        ForEachRow(record.object, [&](CGridItem& item) { Apply(item, record, GridTimeMs()); });
    }
    errors.Rethrow();
}

void Dispatcher::RemoveRows(Common::CDataObject const* object)
{
    CallbackErrors errors; // which the destructor of the object, on whatever thread, cannot throw
    ForEachRow(object, [](CGridItem& item) { GridRows::DeleteAnywhere(item); });
    errors.Report();
}
} // namespace Ostrel::GUI::Detail
