// The command line of the gallery.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Gallery
{

struct Options
{
    bool isHeadless = false;
    bool isDark = false;
    bool isHelp = false;
    std::string scale; ///< as given; empty for the display's own
    std::string page;  ///< empty for the first one, of pictures for all
    std::string pictureFolder;
};

inline constexpr std::string_view kUsage =
    "usage: gallery [--page NAME] [--dark] [--scale FACTOR] [--headless] [--screenshots FOLDER]\n"
    "\n"
    "  --page NAME          begins with this page\n"
    "  --dark               in the dark look (F6 switches)\n"
    "  --scale FACTOR       pixels to the design pixel, 0.5 to 8\n"
    "  --headless           no window on a screen\n"
    "  --screenshots FOLDER saves a picture of every page, or of that of --page, and ends\n"
    "\n"
    "pages:";

/// Null, with what is wrong, for a command line that cannot be understood.
std::optional<Options> ParseOptions(int argc, char const* const* argv, std::string& whatIsWrong);

} // namespace Gallery
