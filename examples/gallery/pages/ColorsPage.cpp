// Rows of two colours, and the overlays that lie on them: sorted column, focused row, selected rows.
#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;

namespace
{

CAppearance Striped()
{
    CAppearance look;
    look.SetBackOddColor(RGB(255, 255, 255));
    look.SetBackEvenColor(RGB(244, 247, 251));
    return look;
}

CAppearance Parchment()
{
    CAppearance look;
    look.SetTextOddColor(RGB(70, 50, 30));
    look.SetTextEvenColor(RGB(70, 50, 30));
    look.SetBackOddColor(RGB(253, 248, 236));
    look.SetBackEvenColor(RGB(247, 238, 216));
    look.SetSelectedLineColor({RGB(170, 110, 40), 80});
    look.SetFocusedLineColor({RGB(170, 110, 40), 40});
    look.SetSortedColumnColor({RGB(170, 110, 40), 24});
    return look;
}

class CColorsPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("As constructed", 10);
        AddMetalGrid("Two row colours", 10).SetAppearance(Striped(), ColorScheme::Light);
        CGrid& overlays = AddMetalGrid("Sorted column, selected rows, focused row", 10);
        ShowOverlays(overlays);
        CGrid& own = AddMetalGrid("The same in colours of its own", 10);
        own.SetAppearance(Parchment(), ColorScheme::Light);
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
