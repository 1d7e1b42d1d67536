#include "Pages.h"

#include <algorithm>
#include <iterator>

namespace Gallery
{

namespace
{

constexpr PageEntry kPages[] = {
    {"colours", "Colours", MakeColorsPage},
    {"lines", "Grid lines", MakeLinesPage},
    {"highlight", "Highlighting", MakeHighlightPage},
    {"images", "Images", MakeImagesPage},
    {"progress", "Progress bars", MakeProgressPage},
    {"custom-draw", "Custom drawing", MakeCustomDrawPage},
    {"controls", "Controls in cells", MakeControlsPage},
    {"hierarchy", "Hierarchy", MakeHierarchyPage},
    {"fixed", "Fixed rows, columns", MakeFixedPage},
    {"backgrounds", "Backgrounds", MakeBackgroundsPage},
    {"fonts", "Fonts", MakeFontsPage},
    {"scripts", "Scripts", MakeScriptsPage},
    {"selection", "Selection, focus", MakeSelectionPage},
    {"sorting", "Sorting", MakeSortingPage},
    {"header", "Header", MakeHeaderPage},
    {"dark", "Dark", MakeDarkPage},
    {"scale", "Scale", MakeScalePage},
};

} // namespace

std::span<PageEntry const> AllPages()
{
    return kPages;
}

PageEntry const* FindPage(std::string_view name)
{
    auto const* const found = std::ranges::find(kPages, name, [](PageEntry const& page) { return page.name; });
    return found != std::end(kPages) ? found : nullptr;
}

} // namespace Gallery
