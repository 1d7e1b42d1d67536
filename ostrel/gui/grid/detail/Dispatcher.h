// The one subscriber of every object that any grid shows: turns a notification on any thread into a posted message, and
// on the thread of the grids applies it to every row of the object.
//
// A program nearly always has one thread with grids: then there is one window, and one message for each notification.
// Every further thread that makes a grid gets a dispatching window of its own. A row belongs to the thread of its grid
// (CGridItem::m_home) and is touched there only: a notification goes to each thread that has rows of the object, and
// each applies it to its own. Rows whose thread has no window any more are served by the oldest window that is left.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{
struct UpdateRecord;

class Dispatcher final : public Common::CDataObject::ISink
{
public:
    static Dispatcher& Instance();

    /// Makes the calling thread's window if it has none.
    static void EnsureWindow();
    /// True while the process has never had grids on two threads: every row is served by the one thread then.
    [[nodiscard]] static bool HasOneThread() noexcept;
    /// The thread that serves the rows of a home: it, if it has a window, else the oldest that has one, else the
    /// caller.
    [[nodiscard]] static DWORD ServingThread(DWORD home) noexcept;

    // Common::CDataObject::ISink. Any thread.
    void OnUpdate(std::set<long> const& fieldIds, Common::CDataObject const* object) override;
    void OnUpdate(long fieldId, Common::CDataObject const* object) override;
    /// Returns when all rows are gone.
    void OnDelete(Common::CDataObject const* object) override;

private:
    class Window;

    Dispatcher() = default;

    [[nodiscard]] static std::vector<HWND> WindowsFor(Common::CDataObject const* object);
    static bool Post(HWND window, LPARAM cargo);
    static void Post(HWND window, std::unique_ptr<UpdateRecord> record);
    /// The row: the only one of the object, if that is known.
    static void Deliver(UpdateRecord const& record, CGridItem* onlyRow);
    static void RemoveRows(Common::CDataObject const* object);
};
} // namespace Ostrel::GUI::Detail
