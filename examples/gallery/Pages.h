// The pages of the gallery. A new page is a file in pages/, a line here and one in Pages.cpp.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "Page.h"

namespace Gallery
{

struct PageEntry
{
    char const* name;  ///< on the command line and of the picture's file
    char const* title; ///< in the list of pages
    std::unique_ptr<CPage> (*make)();
};

/// In the order of the list.
[[nodiscard]] std::span<PageEntry const> AllPages();
/// Null when there is none of that name.
[[nodiscard]] PageEntry const* FindPage(std::string_view name);

std::unique_ptr<CPage> MakeColorsPage();
std::unique_ptr<CPage> MakeLinesPage();
std::unique_ptr<CPage> MakeHighlightPage();
std::unique_ptr<CPage> MakeImagesPage();
std::unique_ptr<CPage> MakeProgressPage();
std::unique_ptr<CPage> MakeCustomDrawPage();
std::unique_ptr<CPage> MakeControlsPage();
std::unique_ptr<CPage> MakeHierarchyPage();
std::unique_ptr<CPage> MakeFixedPage();
std::unique_ptr<CPage> MakeBackgroundsPage();
std::unique_ptr<CPage> MakeFontsPage();
std::unique_ptr<CPage> MakeScriptsPage();
std::unique_ptr<CPage> MakeSelectionPage();
std::unique_ptr<CPage> MakeSortingPage();
std::unique_ptr<CPage> MakeHeaderPage();
std::unique_ptr<CPage> MakeDarkPage();
std::unique_ptr<CPage> MakeScalePage();

} // namespace Gallery
