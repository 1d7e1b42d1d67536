#include "Options.h"

#include <cstdlib>

#include "Pages.h"

namespace Gallery
{

namespace
{

bool IsScale(std::string const& text)
{
    char* end = nullptr;
    double const factor = std::strtod(text.c_str(), &end);
    return !text.empty() && *end == '\0' && factor >= 0.5 && factor <= 8;
}

bool TakeFlag(std::string_view name, Options& options)
{
    bool* const flag = name == "--headless" ? &options.isHeadless
                       : name == "--dark"   ? &options.isDark
                       : name == "--help"   ? &options.isHelp
                                            : nullptr;
    if (flag != nullptr)
    {
        *flag = true;
    }
    return flag != nullptr;
}

std::string* ValueOf(std::string_view name, Options& options)
{
    return name == "--page"          ? &options.page
           : name == "--scale"       ? &options.scale
           : name == "--screenshots" ? &options.pictureFolder
                                     : nullptr;
}

} // namespace

std::optional<Options> ParseOptions(int argc, char const* const* argv, std::string& whatIsWrong)
{
    Options options;
    for (int i = 1; i < argc; ++i)
    {
        std::string_view const name = argv[i];
        if (TakeFlag(name, options))
        {
            continue;
        }
        std::string* const value = ValueOf(name, options);
        if (value == nullptr)
        {
            whatIsWrong = "unknown option " + std::string(name);
            return std::nullopt;
        }
        if (i + 1 == argc || *argv[i + 1] == '\0')
        {
            whatIsWrong = std::string(name) + " needs a value";
            return std::nullopt;
        }
        *value = argv[++i];
    }
    if (!options.scale.empty() && !IsScale(options.scale))
    {
        whatIsWrong = "no scale: " + options.scale;
        return std::nullopt;
    }
    if (!options.page.empty() && FindPage(options.page) == nullptr)
    {
        whatIsWrong = "there is no page " + options.page;
        return std::nullopt;
    }
    return options;
}

} // namespace Gallery
