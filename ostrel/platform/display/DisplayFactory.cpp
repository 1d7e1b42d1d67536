// Chooses the display of a thread: the one place that knows both kinds. OSTREL_DISPLAY=x11 or headless decides; without
// it the X server that DISPLAY names is tried, and a program without one goes on headless and says so once.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/platform/window/Display.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::Platform
{

// Of the X11 folder, whose headers bring those of xcb with them. Null, with the reason, when no server answers.
std::unique_ptr<Display> MakeX11Display(std::string& whyNot);

namespace
{

constexpr CSize kUnseenScreen{1920, 1080};

std::string_view Wish()
{
    char const* const wish = std::getenv("OSTREL_DISPLAY");
    return wish != nullptr ? wish : "";
}

void SayOnce(std::string const& line)
{
    static std::atomic<bool> said{false};
    if (!said.exchange(true))
    {
        std::fprintf(stderr, "ostrel: %s\n", line.c_str());
    }
}

std::unique_ptr<Display> MakeHeadless()
{
    // Nobody looks, except at pictures that the program makes of itself: those need no second copy of every window.
    return std::make_unique<HeadlessDisplay>(kUnseenScreen, HeadlessDisplay::Shows::Drawn);
}

[[noreturn]] void RefuseToStart(std::string const& reason)
{
    std::fprintf(stderr, "ostrel: OSTREL_DISPLAY=x11, but %s\n", reason.c_str());
    std::exit(kExitDisplayLost);
}

} // namespace

std::unique_ptr<Display> MakeDisplay()
{
    std::string_view const wish = Wish();
    if (wish == "headless")
    {
        return MakeHeadless();
    }
    if (!wish.empty() && wish != "x11")
    {
        SayOnce("OSTREL_DISPLAY is neither x11 nor headless: running headless");
        return MakeHeadless();
    }
    std::string whyNot;
    if (std::unique_ptr<Display> display = MakeX11Display(whyNot))
    {
        return display;
    }
    if (wish == "x11")
    {
        RefuseToStart(whyNot);
    }
    SayOnce(whyNot + ": running headless");
    return MakeHeadless();
}

} // namespace Ostrel::Platform
