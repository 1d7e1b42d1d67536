#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/tooltip/TooltipSettings.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "../header/ArchiveBytes.h"
#include "PaintScene.h"

using namespace Ostrel::GUI;
using namespace PaintTest;
using Ostrel::Platform::ColorScheme;
using Ostrel::Platform::Surface;

namespace
{

class ColorSchemeTest : public testing::Test
{
protected:
    ~ColorSchemeTest() override { CPreferences::SetColorScheme(ColorScheme::Light); }
};

CAppearance Reddish()
{
    CAppearance red;
    red.SetBackOddColor(RGB(200, 40, 40));
    return red;
}

} // namespace

TEST_F(ColorSchemeTest, OneCallTurnsALiveWindowDarkAndBack)
{
    Scene scene({300, 120});
    scene.AddRow(ScrollableRoot, "row", 1);
    scene.grid.Select(0, ScrollableContext, true);
    Surface const light = scene.Show();

    // From any thread.
    std::thread([] { CPreferences::SetColorScheme(ColorScheme::Dark); }).join();
    Surface const dark = scene.Show();
    CAppearance const look = CAppearance::Dark();
    EXPECT_EQ(dark.ColorAt(90, 3), GetSysColor(COLOR_BTNFACE)) << "header";
    EXPECT_EQ(dark.ColorAt(150, scene.RowTop(3) + 5), look.GetBackOddColor()) << "empty line";
    EXPECT_EQ(dark.ColorAt(150, scene.RowTop(0)), look.GetSelectedLineColor().GetColor()) << "frame of the selection";
    EXPECT_LT(GetRValue(GetSysColor(COLOR_BTNFACE)), 100);

    CPreferences::SetColorScheme(ColorScheme::Light);
    EXPECT_EQ(FirstDifference(light, scene.Show()), "");
}

TEST_F(ColorSchemeTest, StrokesOfAnExpandButtonAreSeenInEitherScheme)
{
    for (auto const& [scheme, stroke] :
         {std::pair(ColorScheme::Light, RGB(0, 0, 0)), std::pair(ColorScheme::Dark, RGB(255, 255, 255))})
    {
        CPreferences::SetColorScheme(scheme);
        Scene scene({300, 120});
        scene.AddRow(scene.AddRow());
        EXPECT_EQ(PixelsRight(scene.Paint(), {3, Scene::RowTop(0) + 8}, 11, stroke), "..#######..");
    }
}

TEST_F(ColorSchemeTest, GridsHaveAnAppearanceForEitherScheme)
{
    Scene scene({300, 60});
    scene.grid.SetAppearance(Reddish());
    CPreferences::SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(scene.grid.GetAppearance(), CAppearance::Dark());
    scene.grid.GetAppearance().EnableVerticalLines(true);
    EXPECT_EQ(CGrid().GetAppearance(), CAppearance::Dark()) << "the default, which the grid's change left alone";

    CPreferences::SetColorScheme(ColorScheme::Light);
    EXPECT_EQ(scene.grid.GetAppearance(), Reddish());
    scene.grid.SetAppearance(Reddish(), ColorScheme::Dark);
    scene.grid.SetAppearance(CAppearance());
    EXPECT_EQ(CGrid().GetAppearance(), CAppearance());
    CPreferences::SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(scene.grid.GetAppearance(), Reddish());
}

TEST_F(ColorSchemeTest, ArchivesHoldTheLightAppearance)
{
    Scene stored({300, 60});
    Scene restored({300, 60});
    stored.grid.SetAppearance(Reddish());
    CPreferences::SetColorScheme(ColorScheme::Dark);
    ASSERT_EQ(Testing::Load(restored.grid, Testing::Store(stored.grid)), Testing::kLoaded);
    EXPECT_EQ(restored.grid.GetAppearance(), CAppearance::Dark());
    CPreferences::SetColorScheme(ColorScheme::Light);
    EXPECT_EQ(restored.grid.GetAppearance(), Reddish());
}

TEST_F(ColorSchemeTest, TipsFollowUntilTheirColoursAreSet)
{
    CTooltipSettings tip;
    tip.SetTextColor(tip.GetTextColor());
    EXPECT_EQ(tip, CTooltipSettings()) << "set, but to the same colour";
    tip.SetBorderColor(RGB(1, 2, 3));
    ASSERT_EQ(Testing::Load(tip, Testing::Store(tip)), Testing::kLoaded);
    CPreferences::SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(tip.GetBackColor(), GetSysColor(COLOR_INFOBK));
    EXPECT_EQ(tip.GetTextColor(), GetSysColor(COLOR_INFOTEXT));
    EXPECT_EQ(tip.GetBorderColor(), RGB(1, 2, 3));
    EXPECT_LT(GetRValue(static_cast<COLORREF>(tip.GetBackColor())), 100);
}
