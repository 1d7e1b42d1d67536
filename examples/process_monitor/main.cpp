// Watches the processes of this machine in a grid.
#include <cstdio>
#include <cstdlib>

#include <ostrel/GUI.h>

#include "MonitorWindow.h"

int main(int argc, char** argv)
{
    std::string whatIsWrong;
    auto options = ProcessMonitor::ParseOptions(argc, argv, whatIsWrong);
    if (!options)
    {
        std::fprintf(stderr, "process_monitor: %s\n%s", whatIsWrong.c_str(), ProcessMonitor::kUsage.data());
        return 2;
    }
    if (options->isHelp)
    {
        std::fputs(ProcessMonitor::kUsage.data(), stdout);
        return 0;
    }
    if (options->isHeadless)
    {
        setenv("OSTREL_DISPLAY", "headless", 1); // NOLINT(concurrency-mt-unsafe): before any other thread
    }
    ProcessMonitor::CMonitorWindow window(*options);
    if (!window.Open(whatIsWrong))
    {
        std::fprintf(stderr, "process_monitor: %s\n", whatIsWrong.c_str());
        return 1;
    }
    return Ostrel::Platform::RunMessageLoop();
}
