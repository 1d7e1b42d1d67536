// The archive of a grid's settings: its layout, its way back, and what damaged archives do.

#include <ostrel/gui/clipboard/CopyPasteSettings.h>
#include <ostrel/gui/clipboard/DragDropSettings.h>
#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/gui/tooltip/TooltipSettings.h>
#include <ostrel/platform/drawing/Font.h>

#include "../header/ArchiveBytes.h"
#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;
using GUI::Testing::Bytes;
using GUI::Testing::CheckArchive;
using GUI::Testing::Hex;
using GUI::Testing::kLoaded;
using GUI::Testing::Load;
using GUI::Testing::Store;
using GUI::Testing::WithoutBlanks;

using CopyPasteSwitch = void (CCopyPasteSettings::*)(bool);
constexpr CopyPasteSwitch kCopyPasteSwitches[] = {&CCopyPasteSettings::EnableCopyFromFixedContext,
                                                  &CCopyPasteSettings::EnableCopyFromScrollableContext,
                                                  &CCopyPasteSettings::EnableCopyNonSelectedChildren,
                                                  &CCopyPasteSettings::EnableCopyFilteredChildren,
                                                  &CCopyPasteSettings::EnableCutFromFixedContext,
                                                  &CCopyPasteSettings::EnableCutFromScrollableContext,
                                                  &CCopyPasteSettings::EnablePasteToFixedContext,
                                                  &CCopyPasteSettings::EnablePasteToScrollableContext,
                                                  &CCopyPasteSettings::EnablePasteWhenNoFocus,
                                                  &CCopyPasteSettings::EnablePasteWhenNoFocusToEnd,
                                                  &CCopyPasteSettings::EnableImportDataFromAnotherApplication};
using DragDropSwitch = void (CDragDropSettings::*)(bool);
constexpr DragDropSwitch kDragDropSwitches[] = {&CDragDropSettings::EnableDragFromFixedContext,
                                                &CDragDropSettings::EnableDragFromScrollableContext,
                                                &CDragDropSettings::EnableDragNonSelectedChildren,
                                                &CDragDropSettings::EnableDragFilteredChildren,
                                                &CDragDropSettings::EnableDropToFixedContext,
                                                &CDragDropSettings::EnableDropToScrollableContext,
                                                &CDragDropSettings::EnableLocalGridCopy,
                                                &CDragDropSettings::EnableLocalGridMove,
                                                &CDragDropSettings::EnableRemoteGridCopy,
                                                &CDragDropSettings::EnableRemoteGridMove,
                                                &CDragDropSettings::EnableImportDataFromAnotherApplication,
                                                &CDragDropSettings::EnableGenerateDragImage,
                                                &CDragDropSettings::EnableHierarchicalDrop,
                                                &CDragDropSettings::SetKeepLevel,
                                                &CDragDropSettings::SetKeepParent};

/// Each switch is a byte behind the version, in the order of the list, and comes back.
template <class Settings>
void CheckSwitches(std::span<void (Settings::*const)(bool)> switches)
{
    Bytes const defaults = Store(*std::make_unique<Settings>());
    for (std::size_t i = 0; i < switches.size(); ++i)
    {
        Bytes expected = defaults;
        expected[4 + i] ^= 1U;
        Settings settings;
        (settings.*switches[i])(expected[4 + i] != 0);
        EXPECT_EQ(Hex(Store(settings)), Hex(expected)) << "switch " << i;
        Settings loaded;
        EXPECT_EQ(Load(loaded, expected), kLoaded);
        EXPECT_EQ(loaded, settings) << "switch " << i;
    }
}

TEST(PartSettingsArchiveTest, CopyPaste)
{
    CheckSwitches<CCopyPasteSettings>(kCopyPasteSwitches);
    EXPECT_EQ(Hex(Store(*std::make_unique<CCopyPasteSettings>())),
              WithoutBlanks("01000000 01010101010101010101 00 03000000 03000000 03000000"));
    CCopyPasteSettings settings;
    settings.SetPasteType(CCopyPasteSettings::PasteAsLastChild);
    settings.SetEnsureVisibleMode(CCopyPasteSettings::EnsureVisibleLastDescendant);
    settings.SetFocusMode(CCopyPasteSettings::FocusNone);
    CheckArchive(settings, "01000000 01010101010101010101 00 01000000 02000000 00000000");
}

TEST(PartSettingsArchiveTest, DragDrop)
{
    CheckSwitches<CDragDropSettings>(kDragDropSwitches);
    EXPECT_EQ(Hex(Store(*std::make_unique<CDragDropSettings>())),
              WithoutBlanks("01000000 010101010101 00 01 00 00 00 00 00 01 00 2080DF00"));
    CDragDropSettings settings;
    settings.SetDropColor(0x123456);
    settings.EnableLocalGridCopy(true);
    CheckArchive(settings, "01000000 010101010101 01 01 00 00 00 00 00 01 00 56341200");
}

TEST(PartSettingsArchiveTest, EditInPlace)
{
    CEditInPlaceSettings settings;
    EXPECT_EQ(Hex(Store(settings)), WithoutBlanks("01000000 01 01000000 01 80808000 01 01 00 01"));
    settings.SetEnabled(false);
    settings.SetActivationType(CEditInPlaceSettings::AnyClick);
    settings.SetActivateOnThumbClick(false);
    settings.SetFrameColor(0x0000FF);
    settings.SetDrawThumbsAlways(true);
    settings.SetUseNavigation(false);
    CheckArchive(settings, "01000000 00 02000000 00 FF000000 01 01 01 00");
}

TEST(PartSettingsArchiveTest, Tooltip)
{
    CTooltipSettings settings;
    EXPECT_EQ(settings.GetDelay(), 500);
    EXPECT_EQ(settings.GetDisappearDelay(), 10000);
    EXPECT_EQ(settings.GetToolTipOffset(), CSize(0, 0));
    EXPECT_EQ(settings.GetTextMargin(), CSize(1, 1));
    EXPECT_EQ(settings.GetMode(), CTooltipSettings::ModeDelayed);
    settings.SetBackColor(1);
    settings.SetTextColor(2);
    settings.SetBorderColor(3);
    settings.SetDelay(4);
    settings.SetDisappearDelay(5);
    settings.SetToolTipOffset({6, 7});
    settings.SetTextMargin({8, -1});
    settings.SetPosition(CTooltipSettings::PositionLeft);
    settings.SetMode(CTooltipSettings::ModeImmediate);
    CheckArchive(settings, "01000000 01000000 02000000 03000000 04000000 05000000 06000000 07000000 08000000 FFFFFFFF"
                           "02000000 00000000");
}

/// All settings away from their defaults.
void Fill(CGrid& grid)
{
    LOGFONT font{};
    font.lfHeight = -13;
    font.lfWeight = FW_BOLD;
    std::snprintf(font.lfFaceName, sizeof font.lfFaceName, "Sans");
    CFont bold;
    bold.CreateFontIndirect(&font);
    grid.SetFont(&bold);
    grid.HideHeader();
    grid.AllowFocusContext(ScrollableContext);
    CAppearance appearance;
    appearance.SetBackOddColor(0x112233);
    grid.SetAppearance(appearance);
    grid.SetPaintFilter(0x7FFFE);
    grid.SetFlickerFreeDrawing(true);
    grid.AllowStretchImageInCell(true);
    grid.AllowMouseTrackSelection(false);
    grid.AllowMultiSelection(false);
    grid.AllowSelectContext(FixedContext);
    grid.AllowHighlight(true);
    grid.SetHighlightSettings({1, 2, 3, 4, 5, 6, CHighlightSettings::Fore});
    grid.AllowDrawContextSeparator(false);
    grid.SetContextSeparatorHeight(5);
    grid.GetCopyPasteSettings().SetFocusMode(CCopyPasteSettings::FocusNone);
    grid.AllowCopyPaste(false);
    grid.GetDragDropSettings().SetKeepParent(true);
    grid.AllowDragAndDrop(true);
    grid.SetSortedContext(ScrollableContext);
    grid.AllowNavigation(FixedContext);
    grid.GetEditInPlaceSettings().SetFrameColor(0xABCDEF);
    grid.GetTooltipSettings().SetDelay(77);
    grid.GetInPlaceTooltipSettings().SetMode(CTooltipSettings::ModeImmediate);
}

TEST(GridArchiveTest, PartsInTheirOrder)
{
    CGrid grid; // without a window, so that the row heights are what they were made with
    grid.GetTooltipSettings().SetDelay(77);
    CAppearance appearance;
    CTooltipSettings tooltip;
    std::string const inPlaceHex = Hex(Store(tooltip));
    tooltip.SetDelay(77);
    std::string const expected = WithoutBlanks(
        "01000000 01000000 00 01  01000000 0E000000 01000000 0E000000  03000000" + Hex(Store(appearance)) +
        "FFFF0700 00 00000000 00000000 01 01 01 03000000 00"
        "01000000 D0070000 FF000000 FF000000 96 96 1E000000 08000000 01 02000000" +
        Hex(Store(grid.GetCopyPasteSettings())) + "01" + Hex(Store(grid.GetDragDropSettings())) +
        "00 03000000 03000000 E8030000" + Hex(Store(grid.GetEditInPlaceSettings())) + Hex(Store(tooltip)) + inPlaceHex);
    EXPECT_EQ(Hex(Store(grid)), expected);
}

class GridArchiveWindowTest : public GridTest
{
protected:
    GridArchiveWindowTest()
    {
        grid.AddFixed({.name = "sum"});
        grid.AddMany(30);
        driver.RunUntilIdle();
    }

    /// Everything works: rows, sorting, painting and input.
    void CheckThatItWorks()
    {
        TestObject object({.name = "more"});
        ASSERT_NE(Grid().Add(&object, ScrollableRoot, LastPosition), nullptr);
        EXPECT_EQ(Grid().GetRowCount(ScrollableContext), 31U);
        grid.Object("row3").SetPrice(5);
        Grid().SetFirstVisibleRow(7);
        driver.Wheel(1);
        driver.Advance(100);
    }
};

TEST_F(GridArchiveWindowTest, ComesBackByteForByte)
{
    Fill(Grid());
    Grid().GetHeader()->GetColumnByFid(kPrice)->SetWidth(33);
    SortByPrice(true);
    Bytes const bytes = Store(Grid());

    GridWindow other(driver, {.title = "Other"});
    other.AddRows({"a", "b", "c"});
    other.Object("b").SetPrice(3);
    other.Object("c").SetPrice(9);
    driver.RunUntilIdle();
    other.Grid().SetFocusedRow(1, ScrollableContext);
    ASSERT_EQ(Load(other.Grid(), bytes), kLoaded);
    EXPECT_EQ(Hex(Store(other.Grid())), Hex(bytes));
    EXPECT_EQ(other.RowsText(), "rows=c,b,a");
    EXPECT_EQ(other.Grid().GetFocusedRow(), -1);
    EXPECT_EQ(other.Header().GetColumnByFid(kPrice)->GetWidth(), 33);
    EXPECT_EQ(other.Grid().GetItemHeight(other.Item("a")), Grid().GetItemHeight(Item("row1")));
    driver.RunUntilIdle();
    Workers workers;
    workers.Add("reader",
                [&]() { EXPECT_EQ(Load(other.Grid(), std::span(bytes).first(9)), CArchiveException::endOfFile); });
    workers.Run();
}

TEST_F(GridArchiveWindowTest, ArchivesThatAreCutOrNewerChangeNothing)
{
    CGrid source;
    source.SetHeader(MakeHeader("Quantity:50,Name:20", grid.Object("row1")).release());
    Fill(source);
    Bytes bytes = Store(source);
    std::string const before = Hex(Store(Grid()));
    CHeader const* const header = Grid().GetHeader();
    for (std::size_t size = 0; size < bytes.size(); ++size)
    {
        EXPECT_NE(Load(Grid(), std::span(bytes).first(size)), kLoaded) << size;
    }
    for (std::size_t const version : {0U, 4U})
    {
        bytes[version] = 2;
        EXPECT_EQ(Load(Grid(), bytes), CArchiveException::badSchema);
        bytes[version] = 0;
        EXPECT_EQ(Load(Grid(), bytes), kLoaded) << "a version below 1 holds nothing";
        bytes[version] = 1;
    }
    EXPECT_EQ(Hex(Store(Grid())), before);
    EXPECT_EQ(Grid().GetHeader(), header);
    CheckThatItWorks();
}

} // namespace
} // namespace Ostrel::Testing
