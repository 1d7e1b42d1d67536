#include "Options.h"

#include <charconv>

namespace ProcessMonitor
{

namespace
{

std::optional<int> PositiveNumber(std::string_view text)
{
    int number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && number > 0 ? std::optional(number) : std::nullopt;
}

std::optional<CSize> SizeFrom(std::string_view text)
{
    std::size_t const cross = text.find('x');
    if (cross == std::string_view::npos)
    {
        return std::nullopt;
    }
    auto const width = PositiveNumber(text.substr(0, cross));
    auto const height = PositiveNumber(text.substr(cross + 1));
    return width && height ? std::optional(CSize(*width, *height)) : std::nullopt;
}

SortOption SortFrom(std::string_view text)
{
    constexpr std::string_view kDescending = ":desc";
    bool const isDescending = text.ends_with(kDescending);
    return {std::string(text.substr(0, text.size() - (isDescending ? kDescending.size() : 0))), isDescending};
}

// Takes one option with its value. False: the value is missing or wrong.
bool TakeValue(std::string_view name, std::string_view value, Options& options)
{
    if (name == "--seconds")
    {
        options.seconds = PositiveNumber(value);
        return options.seconds.has_value();
    }
    if (name == "--size")
    {
        auto const size = SizeFrom(value);
        options.size = size.value_or(options.size);
        return size.has_value();
    }
    if (name == "--sort")
    {
        options.sort = SortFrom(value);
        return !options.sort->caption.empty();
    }
    options.screenshotPath = value;
    return !value.empty();
}

bool TakeFlag(std::string_view name, Options& options)
{
    if (name == "--headless")
    {
        options.isHeadless = true;
    }
    else if (name == "--tree" || name == "--flat")
    {
        options.shape = name == "--tree" ? Shape::Tree : Shape::List;
    }
    else if (name == "--dump")
    {
        options.isDump = true;
    }
    else if (name == "--help")
    {
        options.isHelp = true;
    }
    else
    {
        return false;
    }
    return true;
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
        bool const takesValue = name == "--seconds" || name == "--size" || name == "--sort" || name == "--screenshot";
        if (!takesValue)
        {
            whatIsWrong = "unknown option " + std::string(name);
            return std::nullopt;
        }
        if (i + 1 == argc || !TakeValue(name, argv[i + 1], options))
        {
            whatIsWrong = std::string(name) + " needs another value";
            return std::nullopt;
        }
        ++i;
    }
    return options;
}

} // namespace ProcessMonitor
