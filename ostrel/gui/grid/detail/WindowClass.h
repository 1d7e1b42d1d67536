// Registering the window classes of grids when the first window of a class is made.
#pragma once

#include <ostrel/platform/window/WindowApi.h>

namespace Ostrel::GUI::Detail
{

/// Registers a class unless one of its name is there.
inline void RegisterClassOnce(WNDCLASS const& windowClass)
{
    WNDCLASS present;
    if (GetClassInfo(nullptr, windowClass.lpszClassName, &present) == FALSE)
    {
        RegisterClass(&windowClass);
    }
}

} // namespace Ostrel::GUI::Detail
