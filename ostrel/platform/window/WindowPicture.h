/// @file
/// A picture of a window, from the pixels that it drew itself.
#pragma once

#include <string>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Platform
{

/// Paints what is still to be painted of the top-level window that holds the window, and writes its inner area to a PNG
/// file. On any display. False when the window is dead, of another thread or not shown, or the file cannot be written.
[[nodiscard]] OSTREL_PLATFORM_API bool SaveWindowPng(HWND window, std::string const& path);

} // namespace Ostrel::Platform
