#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include <ostrel/common/format/LongFormat.h>
#include <ostrel/gui/paint/PaintFormatFactory.h>

#include "ArchiveBytes.h"
#include "HeaderEvents.h"
#include "TestFormats.h"

namespace Ostrel::GUI::Testing
{
namespace
{

constexpr char const* kPlainColumn = "01000000 07000000 03426964 50000000 02000000 FFFFFFFF 03000000 01 01 0164"
                                     "00 00000000 00000000";

CColumn* NewPlainColumn(long fid = 7)
{
    return new CColumn(fid, "Bid", 80, CColumn::AlignRight, true, -1, 3, nullptr, nullptr, nullptr, "d");
}

CColumn* NewFormattedColumn(long fid)
{
    CPaintFormatFactory::RegisterCellFormat("Test::Cell",
                                            []() -> ICellPaintFormat* { return new NumberedCellFormat(0); });
    CPaintFormatFactory::RegisterColumnFormat("Test::Title", []() -> IColumnPaintFormat* { return new TitleFormat; });
    return new CColumn(fid, "Ask", 60, CColumn::AlignAuto, false, 1, -1, new Common::CLongFormat,
                       new NumberedCellFormat(258), new TitleFormat, "");
}

/// Two columns and every setting away from its default.
void Fill(CHeader& header)
{
    header.Add(NewFormattedColumn(8));
    header.Add(NewPlainColumn(7));
    header.SetFixedColumnsCount(1);
    header.SetHeaderHeight(31);
    header.SetSort(0, {7, true});
    header.SetSort(1, {8, false});
    header.AllowScrollableColumnMove(false);
    header.SetNavigationColumn(1);
}

void Replace(Bytes& bytes, std::string const& from, std::string const& to)
{
    auto const found = std::search(bytes.begin(), bytes.end(), from.begin(), from.end());
    ASSERT_NE(found, bytes.end());
    std::copy(to.begin(), to.end(), found);
}

TEST(ColumnArchiveTest, PlainColumn)
{
    std::unique_ptr<CColumn> const column(NewPlainColumn());
    EXPECT_EQ(Hex(Store(*column)), WithoutBlanks(kPlainColumn));
}

TEST(ColumnArchiveTest, FormatsAreKeptByName)
{
    std::unique_ptr<CColumn> const column(NewFormattedColumn(8));
    std::unique_ptr<Common::CFormat const>(column->SetTextFormat(new UnknownTextFormat));
    Bytes const bytes = Store(*column);
    EXPECT_EQ(Hex(bytes), WithoutBlanks("01000000 08000000 0341736B 3C000000 00000000 01000000 FFFFFFFF 01 00 00"
                                        "01 0D 546573743A3A556E6B6E6F776E 05000000 01000000 01"
                                        "01000000 0A 546573743A3A43656C6C 02010000"
                                        "01000000 0B 546573743A3A5469746C65"));
    std::unique_ptr<CColumn> const loaded(NewPlainColumn());
    loaded->SetTextFormat(new UnnamedTextFormat);
    EXPECT_EQ(Load(*loaded, bytes), kLoaded);
    EXPECT_EQ(loaded->GetFid(), 8);
    EXPECT_EQ(loaded->GetTextFormat(), nullptr); // of unknown name
    EXPECT_EQ(dynamic_cast<NumberedCellFormat const&>(*loaded->GetCellPaintFormat()).Number(), 258);
    EXPECT_NE(loaded->GetColumnPaintFormat(), nullptr);
}

TEST(ColumnArchiveTest, ATextFormatComesBackWithItsSettings)
{
    std::unique_ptr<CColumn> const column(NewFormattedColumn(8));
    Bytes bytes = Store(*column);
    std::unique_ptr<CColumn> const loaded(NewPlainColumn());
    ASSERT_EQ(Load(*loaded, bytes), kLoaded);
    ASSERT_NE(loaded->GetTextFormat(), nullptr);
    EXPECT_EQ(loaded->GetTextFormat()->FormatStl(1234L), column->GetTextFormat()->FormatStl(1234L));
    EXPECT_EQ(Store(*loaded), bytes);

    // A newer block of the format is the archive's exception too.
    std::string const name = "Common::CLongFormat";
    auto const found = std::search(bytes.begin(), bytes.end(), name.begin(), name.end());
    found[static_cast<std::ptrdiff_t>(name.size()) + 4] = 2; // behind the length of the block
    EXPECT_EQ(Load(*loaded, bytes), CArchiveException::badSchema);
}

TEST(ColumnArchiveTest, FormatsThatCannotBeKept)
{
    std::unique_ptr<CColumn> const column(NewPlainColumn());
    column->SetTextFormat(new UnnamedTextFormat);
    EXPECT_EQ(Hex(Store(*column)), WithoutBlanks(kPlainColumn));
    column->SetCellPaintFormat(new NumberedCellFormat(-1)); // a name that no factory knows
    std::unique_ptr<CColumn> const loaded(NewPlainColumn());
    EXPECT_EQ(Load(*loaded, Store(*column)), CArchiveException::badSchema);
}

TEST(ColumnArchiveTest, VersionsAndSilence)
{
    std::unique_ptr<CColumn> const column(NewPlainColumn());
    Bytes bytes = Store(*column);
    std::unique_ptr<CColumn> const loaded(NewColumn(1));
    HeaderEvents events;
    loaded->Subscribe(&events);
    bytes[0] = 2;
    EXPECT_EQ(Load(*loaded, bytes), CArchiveException::badSchema);
    bytes[0] = 0;
    EXPECT_EQ(Load(*loaded, bytes), kLoaded);
    EXPECT_EQ(loaded->GetFid(), 1);
    bytes[0] = 1;
    EXPECT_EQ(Load(*loaded, bytes), kLoaded);
    EXPECT_EQ(loaded->GetFid(), 7);
    EXPECT_EQ(events.Take(), "");
}

TEST(HeaderArchiveTest, TwoColumnsOfOneClass)
{
    CHeader header;
    header.Add(NewPlainColumn(7));
    header.Add(NewPlainColumn(9));
    header.SetFixedColumnsCount(1);
    header.SetSort(0, {9, true});
    std::string second = WithoutBlanks(kPlainColumn);
    second[9] = '9';
    EXPECT_EQ(Hex(Store(header)), WithoutBlanks("01000000 02000000 FFFF 0100 0700 43436F6C756D6E") +
                                      WithoutBlanks(kPlainColumn) + "0180" + second +
                                      WithoutBlanks("01000000 14000000 01 01 01000000 01000000 09000000 01"
                                                    "01 01 01 00000000"));
}

TEST(HeaderArchiveTest, RestoringReplacesTheColumns)
{
    CHeader stored;
    Fill(stored);
    Bytes const bytes = Store(stored);
    HeaderEvents events;
    CHeader header;
    header.Add(NewColumn(1));
    header.SetSort(0, {1, false});
    header.Subscribe(&events);
    ASSERT_EQ(Load(header, bytes), kLoaded);
    EXPECT_EQ(events.Take(), "removed1 added8 added7");
    EXPECT_EQ(header.GetFixedColumnWidth(), 60);
    EXPECT_EQ(header.GetScrollableColumnWidth(), 80);
    EXPECT_EQ(Store(header), bytes);
    header.GetColumnByFid(7)->SetWidth(90);
    EXPECT_EQ(events.Take(), "resized7");
    header.Unsubscribe(&events);
}

TEST(HeaderArchiveTest, DuplicatesAndForeignClassesAreDropped)
{
    CHeader stored;
    stored.Add(NewPlainColumn(7));
    stored.Add(NewPlainColumn(9));
    stored.SetHeaderHeight(31);
    CHeader header;
    Bytes bytes = Store(stored);
    Replace(bytes, std::string("\x09\0\0\0\x03", 5), std::string("\x07\0\0\0\x03", 5));
    EXPECT_EQ(Load(header, bytes), kLoaded);
    EXPECT_EQ(header.GetColumnCount(), 1);

    bytes = Store(stored);
    Replace(bytes, "CColumn", "CColumX");
    EXPECT_EQ(Load(header, bytes), kLoaded);
    EXPECT_EQ(header.GetColumnCount(), 0);
    EXPECT_EQ(header.GetHeaderHeight(), 31);
}

TEST(HeaderArchiveTest, LevelsBeyondFiveAreReadAndDropped)
{
    CHeader stored;
    stored.SetNavigationColumn(3);
    for (int level = 0; level < 5; ++level)
    {
        stored.SetSort(level, {level, false});
    }
    Bytes bytes = Store(stored);
    bytes[18] = 6; // the number of levels
    Bytes const level(bytes.begin() + 22, bytes.begin() + 31);
    bytes.insert(bytes.begin() + 22, level.begin(), level.end());
    CHeader header;
    EXPECT_EQ(Load(header, bytes), kLoaded);
    EXPECT_EQ(header.GetSortLevels(), 5);
    EXPECT_EQ(header.GetNavigationColumn(), 3);
}

TEST(HeaderArchiveTest, ArchivesThatAreCutLeaveAHeaderThatWorks)
{
    CHeader stored;
    Fill(stored);
    Bytes const bytes = Store(stored);
    CHeader header;
    header.Add(NewColumn(1));
    for (std::size_t length = 0; length < bytes.size(); ++length)
    {
        EXPECT_EQ(Load(header, std::span(bytes).first(length)), CArchiveException::endOfFile) << length;
        EXPECT_EQ(header.GetColumnCount(), 1);
    }
    EXPECT_TRUE(header.MoveBefore(1, 1) == false && header.Add(NewColumn(2)) && header.MoveBefore(2, 1));
}

TEST(HeaderArchiveTest, ANewerHeaderChangesNothing)
{
    CHeader stored;
    Fill(stored);
    Bytes bytes = Store(stored);
    HeaderEvents events;
    CHeader header;
    header.Add(NewColumn(1));
    header.Subscribe(&events);
    bytes[0] = 2;
    EXPECT_EQ(Load(header, bytes), CArchiveException::badSchema);
    bytes[0] = 0;
    EXPECT_EQ(Load(header, bytes), kLoaded);
    EXPECT_EQ(header.GetColumnCount(), 1);
    EXPECT_EQ(events.Take(), "");
    header.Unsubscribe(&events);
}

} // namespace
} // namespace Ostrel::GUI::Testing
