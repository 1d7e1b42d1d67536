#include <memory>

#include <gtest/gtest.h>

#include <ostrel/gui/paint/IHeaderPaintFormat.h>
#include <ostrel/gui/paint/ILinePaintFormat.h>
#include <ostrel/gui/paint/PaintFormatFactory.h>

#include "TestFormats.h"

namespace Ostrel::GUI::Testing
{
namespace
{

ICellPaintFormat* MakeCellFormat()
{
    return new NumberedCellFormat(0);
}

template <class Format>
std::string NameOf(Format* made)
{
    std::unique_ptr<Format> const format(made);
    return format != nullptr ? format->GetFormatName().GetString() : "none";
}

TEST(PaintFormatFactoryTest, KnowsTheDefaultFormats)
{
    using Factory = CPaintFormatFactory;
    EXPECT_EQ(NameOf(Factory::CreateCellPaintFormat("GUI::CCellPaintFormat")), "GUI::CCellPaintFormat");
    EXPECT_EQ(NameOf(Factory::CreateLinePaintFormat("GUI::CLinePaintFormat")), "GUI::CLinePaintFormat");
    EXPECT_EQ(NameOf(Factory::CreateColumnPaintFormat("GUI::CColumnPaintFormat")), "GUI::CColumnPaintFormat");
    EXPECT_EQ(NameOf(Factory::CreateHeaderPaintFormat("GUI::CHeaderPaintFormat")), "GUI::CHeaderPaintFormat");
    EXPECT_EQ(NameOf(Factory::CreateCellPaintFormat("GUI::CLinePaintFormat")), "none");
    EXPECT_EQ(NameOf(Factory::CreateCellPaintFormat("gui::ccellpaintformat")), "none");
}

TEST(PaintFormatFactoryTest, TheFirstCreatorOfANameStays)
{
    EXPECT_FALSE(CPaintFormatFactory::RegisterCellFormat("GUI::CCellPaintFormat", &MakeCellFormat));
    EXPECT_EQ(NameOf(CPaintFormatFactory::CreateCellPaintFormat("GUI::CCellPaintFormat")), "GUI::CCellPaintFormat");
    EXPECT_TRUE(CPaintFormatFactory::RegisterCellFormat("Test::Nothing", nullptr));
    EXPECT_FALSE(CPaintFormatFactory::RegisterCellFormat("Test::Nothing", &MakeCellFormat));
    EXPECT_EQ(NameOf(CPaintFormatFactory::CreateCellPaintFormat("Test::Nothing")), "none");
}

} // namespace
} // namespace Ostrel::GUI::Testing
