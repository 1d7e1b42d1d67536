// Texts in cells: the width that a cell asks for is the least that shows it whole, and numbers stand below each other.
#include <gtest/gtest.h>

#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::Surface;

namespace
{

constexpr char const* kTexts[] = {"a",
                                  "Iron 12.5",
                                  "WWWWW",
                                  "Größe → €",
                                  "日本語の行",
                                  "نص عربي 12",
                                  "e\xCC\x81n\xCC\x83",
                                  "👩‍💻 ok 🇩🇪",
                                  "bad \xE9\xFF bytes"};

/// Draws as another does, and measures the cells of the first column.
template <class Draw>
class Measuring : public Draw
{
public:
    Measuring() : Draw(false) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        if (cell.GetColumn() != nullptr && cell.GetColumn()->GetFid() == kNameFid &&
            cell.GetGridLine().GetItem() != nullptr)
        {
            width = this->GetOptimalCellWidth(cell, context, filter);
        }
        Draw::DrawCell(cell, context, filter);
    }

    int width = 0;
};

/// Which columns of pixels of the first column have ink, up to the last one that has.
std::string InkOf(Scene& scene)
{
    Surface const page = scene.Paint();
    std::string ink;
    int const top = scene.header->GetHeaderHeight();
    for (int x = 0; x < scene.Column(kNameFid).GetWidth(); ++x)
    {
        bool isBlank = true;
        for (int y = top; y < top + scene.state.scrollableRowHeight; ++y)
        {
            isBlank = isBlank && page.ColorAt(x, y) == page.ColorAt(0, top);
        }
        ink += isBlank ? '.' : '#';
    }
    return ink.substr(0, ink.find_last_of('#') + 1);
}

template <class Draw>
void CheckWidths(bool withImage)
{
    Pictures red({8, 4}, 0xFFFF0000);
    for (char const* const text : kTexts)
    {
        Measuring<Draw> draw;
        Scene scene({500, 80}, {300, 60});
        scene.grid.SetCustomDraw(&draw);
        scene.grid.SetImageList(withImage ? &red.list : nullptr, true);
        scene.Column(kNameFid).SetCellImageId(0);
        scene.state.scrollableRowHeight = Platform::Scaled(24);
        scene.AddRow(ScrollableRoot, text);
        std::string const whole = InkOf(scene);
        scene.Column(kNameFid).SetWidth(draw.width);
        EXPECT_EQ(InkOf(scene), whole) << text;
        scene.Column(kNameFid).SetWidth(draw.width - 1);
        EXPECT_NE(InkOf(scene), whole) << text;
        scene.grid.SetCustomDraw(nullptr);
    }
}

} // namespace

TEST(CellTextTest, OptimalWidthIsTheLeastThatShowsTheText)
{
    for (int const scale : {1, 2})
    {
        Platform::SetScale(scale);
        for (bool const withImage : {false, true})
        {
            CheckWidths<CCustomDraw>(withImage);
            CheckWidths<CSpaciousDraw>(withImage);
        }
    }
    Platform::SetScale(1);
}

TEST(CellTextTest, NumbersOfAColumnEndAtTheSamePixel)
{
    Scene scene({300, 140});
    for (long const count : {7L, 17L, 107L, -7L, 10007L})
    {
        scene.AddRow(ScrollableRoot, "", count);
    }
    Surface const page = scene.Paint();
    auto const lastDigit = [&](int row)
    {
        std::string pixels;
        for (int y = Scene::RowTop(row); y < Scene::RowTop(row + 1); ++y)
        {
            for (int x = 150; x < 160; ++x)
            {
                pixels += std::to_string(page.ColorAt(x, y)) + ' ';
            }
        }
        return pixels;
    };
    for (int row = 1; row < 5; ++row)
    {
        EXPECT_EQ(lastDigit(row), lastDigit(0)) << row;
    }
}
