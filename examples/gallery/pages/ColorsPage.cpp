// Rows of two colours, and the overlays that lie on them: sorted column, focused row, selected rows.
#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;

namespace
{

void MakeStriped(CGrid& grid)
{
    CAppearance light;
    light.SetBackEvenColor(RGB(244, 247, 251));
    grid.SetAppearance(light, ColorScheme::Light);
    CAppearance dark = CAppearance::Dark();
    dark.SetBackEvenColor(RGB(40, 44, 51));
    grid.SetAppearance(dark, ColorScheme::Dark);
}

/// Colours from one ink on two grounds.
CAppearance InInk(COLORREF text, COLORREF odd, COLORREF even, COLORREF ink)
{
    CAppearance look;
    look.SetTextOddColor(text);
    look.SetTextEvenColor(text);
    look.SetBackOddColor(odd);
    look.SetBackEvenColor(even);
    look.SetSelectedLineColor({ink, 80});
    look.SetFocusedLineColor({ink, 40});
    look.SetSortedColumnColor({ink, 24});
    return look;
}

class CColorsPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("As constructed", 10);
        MakeStriped(AddMetalGrid("Two row colours", 10));
        CGrid& overlays = AddMetalGrid("Sorted column, selected rows, focused row", 10);
        ShowOverlays(overlays);
        CGrid& own = AddMetalGrid("The same in colours of its own", 10);
        own.SetAppearance(InInk(RGB(70, 50, 30), RGB(253, 248, 236), RGB(247, 238, 216), RGB(170, 110, 40)),
                          ColorScheme::Light);
        own.SetAppearance(InInk(RGB(240, 226, 200), RGB(44, 36, 27), RGB(52, 43, 32), RGB(224, 160, 80)),
                          ColorScheme::Dark);
        ShowOverlays(own);
    }

    static void ShowOverlays(CGrid& grid)
    {
        grid.SetSort(0, CSortInfo(CMetal::kPrice, true), true);
        for (int const row : {1, 2, 3})
        {
            grid.Select(row, ScrollableContext, true);
        }
        grid.SetFocusedRow(5, ScrollableContext);
    }
};

} // namespace

std::unique_ptr<CPage> MakeColorsPage()
{
    return std::make_unique<CColorsPage>();
}

} // namespace Gallery
