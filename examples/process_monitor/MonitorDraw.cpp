#include "MonitorDraw.h"

namespace ProcessMonitor
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

constexpr int kTextInset = 7; ///< at scale 1, between a text and the edge of its column

} // namespace

void CMonitorTitle::DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const
{
    constexpr int kLeftInsetOfBase = 2;
    constexpr int kRightInsetOfBase = 4;
    CColumnPaintInfo inner = info;
    CRect rect = info.GetVirtualRect();
    rect.DeflateRect(Scaled(kTextInset - kLeftInsetOfBase), 0, Scaled(kTextInset - kRightInsetOfBase), 0);
    inner.SetVirtualRect(rect);
    CColumnPaintFormat::DrawText(inner, context, filter);
}

void CMonitorDraw::DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    m_title.DrawColumn(info, context, filter);
}

void CMonitorDraw::DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter)
{
    cell.GetPaintInfo().SetLeftTextOffset(Scaled(kTextInset));
    cell.GetPaintInfo().SetRightTextOffset(Scaled(kTextInset));
    CCustomDraw::DrawCell(cell, context, filter);
}

int CMonitorDraw::GetOptimalRowHeight(CFont* font, CDC& dc) const
{
    return CCustomDraw::GetOptimalRowHeight(font, dc) + Scaled(3);
}

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
    grid.SetAppearance(appearance);
    grid.SetHighlightSettings(CHighlightSettings(1500, kFlash, kFlash, 150, 150, 40, CHighlightSettings::BackFading));
    grid.AllowHighlight(true);
    grid.SetCustomDraw(new CMonitorDraw);
    grid.GetHeader()->SetHeaderHeight(Scaled(26));
}

} // namespace ProcessMonitor
