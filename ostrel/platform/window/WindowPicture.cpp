#include <ostrel/platform/drawing/Surface.h>
#include <ostrel/platform/window/WindowApi.h>
#include <ostrel/platform/window/WindowPicture.h>
#include <ostrel/platform/window/detail/ThreadState.h>

namespace Ostrel::Platform
{

bool SaveWindowPng(HWND window, std::string const& path)
{
    Window* record = FindWindowRecord(window);
    if (record == nullptr || !IsShown(*record))
    {
        return false;
    }
    HWND const topLevel = TopLevelOf(*record).handle;
    ::RedrawWindow(topLevel, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    record = FindWindowRecord(topLevel); // painting runs foreign code
    if (record == nullptr || !record->native)
    {
        return false;
    }
    CSize const size = record->native->Bounds().Size();
    Surface picture(size.cx, size.cy);
    picture.CopyFrom(record->native->BackBuffer(), picture.Bounds(), CPoint());
    return picture.SavePng(path);
}

} // namespace Ostrel::Platform
