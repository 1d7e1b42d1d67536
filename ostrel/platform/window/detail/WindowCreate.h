// Making windows, for CreateWindowEx and for CWnd.
#pragma once

#include <ostrel/platform/window/WindowApi.h>

class CWnd;

namespace Ostrel::Platform
{

/// CreateWindowEx, with an object (or null) that is tied to the window before its first message. wasBound: the object
/// was tied, and so hears PostNcDestroy by itself when the window does not come into being.
HWND MakeWindow(CREATESTRUCT& create, CWnd* object, bool& wasBound);

} // namespace Ostrel::Platform
