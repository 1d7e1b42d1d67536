// The command line of the process monitor.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <ostrel/platform/base/Geometry.h>

#include "ProcessTable.h"

namespace ProcessMonitor
{

struct SortOption
{
    std::string caption;
    bool isDescending = false;
};

struct Options
{
    bool isHeadless = false;
    std::optional<int> seconds;
    CSize size{1100, 700}; ///< at scale 1
    Shape shape = Shape::Tree;
    std::optional<SortOption> sort;
    std::string screenshotPath;
    bool isDump = false;
    bool isHelp = false;
};

inline constexpr std::string_view kUsage =
    "usage: process_monitor [--headless] [--seconds N] [--size WxH] [--tree|--flat] [--sort NAME[:desc]]\n"
    "                       [--screenshot FILE.png] [--dump]\n"
    "\n"
    "  --headless         no window on a screen\n"
    "  --seconds N        ends after N seconds\n"
    "  --size WxH         inner size of the window in pixels\n"
    "  --tree, --flat     rows below their parent process, or a list (F5 switches)\n"
    "  --sort NAME[:desc] sorts by the column with this caption\n"
    "  --screenshot FILE  saves a picture of the window at the end\n"
    "  --dump             prints what the grid shows at the end: the captions, then a row a line, TAB between cells\n";

/// Null, with what is wrong, for a command line that cannot be understood.
std::optional<Options> ParseOptions(int argc, char const* const* argv, std::string& whatIsWrong);

} // namespace ProcessMonitor
