// What a grid shows, as text.
#pragma once

#include <string>

#include <ostrel/GUI.h>

namespace ProcessMonitor
{

/// The captions of the visible columns, then every visible row, each on a line, TAB between cells.
std::string DumpOf(Ostrel::GUI::CGrid& grid);

} // namespace ProcessMonitor
