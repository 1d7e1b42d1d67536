#include <gtest/gtest.h>

#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/HighlightSettings.h>

#include "ArchiveBytes.h"

namespace Ostrel::GUI::Testing
{
namespace
{

CAppearance MakeAppearance()
{
    CAppearance appearance;
    appearance.SetTextEvenColor(0x010203);
    appearance.SetHorizontalLinesColor(0x0A0B0C);
    appearance.SetMouseSelectionColor({0x112233, 0x44});
    appearance.EnableHorizontalLines(true);
    return appearance;
}

TEST(ValueArchiveTest, EachHasItsBytes)
{
    CheckArchive(CSortInfo(-3, true), "01000000 FDFFFFFF 01", CSortInfo(5, false));
    CheckArchive(CColorBlend(0xB46464, 60), "01000000 6464B400 3C");
    CheckArchive(CHighlightSettings(2000, 0x0000FF, 0xFF0000, 150, 151, 30, CHighlightSettings::BackFading),
                 "01000000 D0070000 FF000000 0000FF00 96 97 1E000000 08000000");
    CheckArchive(MakeAppearance(),
                 "01000000 03020100 00000000 FFFFFF00 FFFFFF00 80808000 0C0B0A00"
                 "01000000 6464B400 3C 01000000 6464B400 1E 01000000 B496B400 32 01000000 33221100 44"
                 "00000000 01000000",
                 CAppearance(), false);
}

TEST(ValueArchiveTest, AnySwitchButZeroIsOn)
{
    CAppearance appearance = MakeAppearance();
    Bytes bytes = Store(appearance);
    bytes[65] = 0x10; // a higher byte of the first switch
    EXPECT_EQ(Load(appearance, bytes), kLoaded);
    EXPECT_TRUE(appearance.IsVerticalLinesEnabled());
}

TEST(ValueArchiveTest, ANewerBlendLeavesTheColoursBeforeIt)
{
    CAppearance stored = MakeAppearance();
    Bytes bytes = Store(stored);
    bytes[28] = 2; // the version of the first overlay
    CAppearance loaded;
    EXPECT_EQ(Load(loaded, bytes), CArchiveException::badSchema);
    EXPECT_EQ(loaded.GetTextEvenColor(), 0x010203UL);
    EXPECT_FALSE(loaded.IsHorizontalLinesEnabled());
}

} // namespace
} // namespace Ostrel::GUI::Testing
