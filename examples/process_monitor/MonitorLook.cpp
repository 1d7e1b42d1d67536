#include "MonitorLook.h"

namespace ProcessMonitor
{

using namespace Ostrel::GUI;

void ApplyMonitorLook(CGrid& grid)
{
    constexpr COLORREF kAccent = RGB(0x2F, 0x6F, 0xDE);
    constexpr COLORREF kFlash = RGB(0xFF, 0xB0, 0x20);
    constexpr COLORREF kText = RGB(0x1F, 0x23, 0x28);
    CAppearance appearance;
    appearance.SetTextOddColor(kText);
    appearance.SetTextEvenColor(kText);
    appearance.SetBackOddColor(RGB(0xFF, 0xFF, 0xFF));
    appearance.SetBackEvenColor(RGB(0xF6, 0xF8, 0xFB));
    appearance.SetSelectedLineColor(CColorBlend(kAccent, 56));
    appearance.SetFocusedLineColor(CColorBlend(kAccent, 24));
    appearance.SetSortedColumnColor(CColorBlend(RGB(0x50, 0x70, 0xA0), 16));
    grid.SetAppearance(appearance, Ostrel::Platform::ColorScheme::Light);
    grid.SetHighlightSettings(CHighlightSettings(1500, kFlash, kFlash, 150, 150, 40, CHighlightSettings::BackFading));
    grid.AllowHighlight(true);
    grid.SetCustomDraw(new CSpaciousDraw(true));
    grid.GetHeader()->SetHeaderHeight(grid.GetOptimalHeaderHeight());
}

} // namespace ProcessMonitor
