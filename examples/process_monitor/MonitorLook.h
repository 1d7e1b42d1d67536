// The monitor's own look: calm colours, and more room around the texts than the grid's default.
#pragma once

#include <ostrel/GUI.h>

namespace ProcessMonitor
{

/// Gives the grid, which has its header, the monitor's look.
void ApplyMonitorLook(Ostrel::GUI::CGrid& grid);

} // namespace ProcessMonitor
