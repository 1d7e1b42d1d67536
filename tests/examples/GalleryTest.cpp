// The gallery, used as a person uses it: every page is opened from the list, and something is to be seen on it.
#include <set>

#include <examples/gallery/GalleryWindow.h>

#include <gtest/gtest.h>

#include <ostrel/testing/Driver.h>
#include <ostrel/testing/GridDriver.h>

using namespace Gallery;
using namespace Ostrel::Testing;
using Ostrel::Platform::Surface;

namespace
{

/// The part of the window where the page is.
CRect PageRect(Surface const& picture)
{
    return {170, 0, picture.Width(), picture.Height()};
}

COLORREF PageGround(Surface const& picture)
{
    return picture.ColorAt(172, 2);
}

int Brightness(COLORREF color)
{
    return (GetRValue(color) + GetGValue(color) + GetBValue(color)) / 3;
}

/// How many different colours the page shows.
std::size_t CountColors(Surface const& picture)
{
    std::set<COLORREF> colors;
    CRect const page = PageRect(picture);
    for (int y = page.top; y < page.bottom; ++y)
    {
        for (int x = page.left; x < page.right; ++x)
        {
            colors.insert(picture.ColorAt(x, y));
        }
    }
    return colors.size();
}

class GalleryTest : public testing::Test
{
protected:
    GalleryTest() { EXPECT_TRUE(window.Open()); }

    Driver driver;
    CGalleryWindow window;
    GridDriver list{driver, window.PageList()};
};

} // namespace

TEST_F(GalleryTest, EveryPageOpensFromTheList)
{
    for (PageEntry const& page : AllPages())
    {
        list.ClickRow(page.title);
        EXPECT_TRUE(driver.HasWindow(std::string("Gallery - ") + page.title)) << page.name;
        driver.Advance(3000); // pages that move go on
        Surface const picture = driver.Picture(window);
        EXPECT_GE(CountColors(picture), 20U) << page.name << " is blank";
        bool const isDark = std::string_view(page.name) == "dark";
        EXPECT_EQ(Brightness(PageGround(picture)) < 100, isDark) << page.name;
        EXPECT_EQ(Brightness(picture.ColorAt(5, picture.Height() - 5)) < 100, isDark) << page.name << ", list";
    }
}

TEST_F(GalleryTest, KeysChangePageAndScheme)
{
    std::string const first = std::string("Gallery - ") + AllPages().front().title;
    std::string const last = std::string("Gallery - ") + AllPages().back().title;
    driver.PressKey(VK_TAB, Modifier::Ctrl | Modifier::Shift);
    EXPECT_TRUE(driver.HasWindow(last));
    driver.PressKey(VK_TAB, Modifier::Ctrl);
    EXPECT_TRUE(driver.HasWindow(first));
    driver.PressKey(VK_DOWN);
    EXPECT_TRUE(driver.HasWindow(std::string("Gallery - ") + AllPages()[1].title));

    COLORREF const light = PageGround(driver.Picture(window));
    driver.PressKey(VK_F6);
    EXPECT_LT(Brightness(PageGround(driver.Picture(window))), 100);
    driver.PressKey(VK_F6);
    EXPECT_EQ(PageGround(driver.Picture(window)), light);
    driver.RequestClose(window);
    EXPECT_EQ(driver.QuitCode(), 0);
}

// At the end of the posed time every column is as much older as it changed earlier.
TEST_F(GalleryTest, HighlightingIsPosedWhileItFades)
{
    PageEntry const* const page = FindPage("highlight");
    ASSERT_NE(page, nullptr);
    std::string const path = testing::TempDir() + "/ostrel-gallery-highlight.png";
    ASSERT_TRUE(window.SavePicture(*page, path));
    Surface picture;
    ASSERT_TRUE(picture.LoadPng(path));
    std::set<COLORREF> grounds;
    constexpr int kBackFadingRow = 36 + 30 + 8 * 22 + 3;
    for (int column = 0; column < 5; ++column)
    {
        grounds.insert(picture.ColorAt(183 + 190 + column * 105 + 3, kBackFadingRow));
    }
    EXPECT_EQ(grounds.size(), 5U);
}
