// Shows what grids can look like, a page for each feature.
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <ostrel/GUI.h>

#include "GalleryWindow.h"
#include "Options.h"

namespace
{

using namespace Gallery;
using Ostrel::GUI::CPreferences;
using Ostrel::Platform::Clock;
using Ostrel::Platform::ColorScheme;

void PrintUsage(std::FILE* file)
{
    std::fputs(kUsage.data(), file);
    for (PageEntry const& page : AllPages())
    {
        std::fprintf(file, " %s", page.name);
    }
    std::fputs("\n", file);
}

// What the libraries read when they begin.
void SetEnvironment(Options const& options)
{
    if (options.isHeadless || !options.pictureFolder.empty())
    {
        setenv("OSTREL_DISPLAY", "headless", 1); // NOLINT(concurrency-mt-unsafe): before any other thread
    }
    if (!options.scale.empty())
    {
        setenv("OSTREL_SCALE", options.scale.c_str(), 1); // NOLINT(concurrency-mt-unsafe): the same
    }
}

int SavePictures(CGalleryWindow& window, Options const& options)
{
    std::error_code error;
    std::filesystem::create_directories(options.pictureFolder, error);
    for (PageEntry const& page : AllPages())
    {
        if (!options.page.empty() && options.page != page.name)
        {
            continue;
        }
        std::string const path = options.pictureFolder + "/" + page.name + ".png";
        if (!window.SavePicture(page, path))
        {
            std::fprintf(stderr, "gallery: cannot write %s\n", path.c_str());
            return 1;
        }
        std::printf("picture: %s\n", path.c_str());
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::string whatIsWrong;
    auto const options = ParseOptions(argc, argv, whatIsWrong);
    if (!options)
    {
        std::fprintf(stderr, "gallery: %s\n", whatIsWrong.c_str());
        PrintUsage(stderr);
        return 2;
    }
    if (options->isHelp)
    {
        PrintUsage(stdout);
        return 0;
    }
    SetEnvironment(*options);
    if (options->isDark)
    {
        CPreferences::SetColorScheme(ColorScheme::Dark);
    }
    bool const savesPictures = !options->pictureFolder.empty();
    if (savesPictures)
    {
        Clock::SetManual(); // so that what fades stands still
    }
    CGalleryWindow window;
    if (!window.Open())
    {
        std::fputs("gallery: the window cannot be made\n", stderr);
        return 1;
    }
    if (savesPictures)
    {
        return SavePictures(window, *options);
    }
    if (!options->page.empty())
    {
        window.ShowPage(*FindPage(options->page));
    }
    return Ostrel::Platform::RunMessageLoop();
}
