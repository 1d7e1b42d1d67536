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

/// The bytes as written by hand, a round trip, and what a newer, an older and a cut archive do.
template <class T>
void CheckArchive(T value, T const& blank, std::string const& expectedHex)
{
    Bytes bytes = Store(value);
    EXPECT_EQ(Hex(bytes), WithoutBlanks(expectedHex));

    T loaded = blank;
    EXPECT_EQ(Load(loaded, bytes), kLoaded);
    EXPECT_TRUE(loaded == value);
    for (std::size_t length = 0; length < bytes.size(); ++length)
    {
        T cut = blank;
        EXPECT_EQ(Load(cut, std::span(bytes).first(length)), CArchiveException::endOfFile) << length;
    }
    T other = blank;
    bytes[0] = 2;
    EXPECT_EQ(Load(other, bytes), CArchiveException::badSchema);
    bytes[0] = 0;
    EXPECT_EQ(Load(other, bytes), kLoaded);
    EXPECT_TRUE(other == blank);
}

TEST(ValueArchiveTest, SortInfo)
{
    CheckArchive(CSortInfo(-3, true), CSortInfo(5, false), "01000000 FDFFFFFF 01");
}

TEST(ValueArchiveTest, ColorBlend)
{
    CheckArchive(CColorBlend(0xB46464, 60), CColorBlend(), "01000000 6464B400 3C");
}

TEST(ValueArchiveTest, HighlightSettings)
{
    CheckArchive(CHighlightSettings(2000, 0x0000FF, 0xFF0000, 150, 151, 30, CHighlightSettings::BackFading),
                 CHighlightSettings(), "01000000 D0070000 FF000000 0000FF00 96 97 1E000000 08000000");
}

TEST(ValueArchiveTest, Appearance)
{
    CheckArchive(MakeAppearance(), CAppearance(),
                 "01000000 03020100 00000000 FFFFFF00 FFFFFF00 80808000 0C0B0A00"
                 "01000000 6464B400 3C 01000000 6464B400 1E 01000000 B496B400 32 01000000 33221100 44"
                 "00000000 01000000");
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
