// The one subscriber of every object that any grid shows: turns a notification on any thread into a posted message, and
// on its own thread applies it to every row of the object.
//
// Its window belongs to the thread of the first grid. Should that window die while the process goes on, the next grid
// makes a new one on its own thread.
#pragma once

#include <atomic>
#include <set>
#include <thread>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/detail/UpdateLookAhead.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::GUI::Detail
{
struct UpdateRecord;

class Dispatcher final : public CWnd, public Common::CDataObject::ISink
{
public:
    static Dispatcher& Instance();

    /// Makes the window on the calling thread if there is none.
    void EnsureWindow();

    // Common::CDataObject::ISink. Any thread.
    void OnUpdate(std::set<long> const& fieldIds, Common::CDataObject const* object) override;
    void OnUpdate(long fieldId, Common::CDataObject const* object) override;
    void OnDelete(Common::CDataObject const* object) override;

protected:
    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;

private:
    enum Code : WPARAM
    {
        ApplyUpdate = 0,  ///< lParam: UpdateRecord*, owned by the message
        RemoveObject = 1, ///< lParam: CDataObject const*, sent
    };

    Dispatcher() = default;

    LRESULT OnMessage(WPARAM code, LPARAM argument);
    static void Deliver(UpdateRecord const& record);
    static void RemoveRows(Common::CDataObject const* object);

    UpdateLookAhead m_lookAhead;
    std::atomic<HWND> m_window{nullptr};
    std::atomic<std::thread::id> m_thread{};
};
} // namespace Ostrel::GUI::Detail
