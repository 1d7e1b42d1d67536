// Draws pages of everything that the drawing layer shows, for a person to look at, and measures a page of cells.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

using namespace Ostrel::Platform;

namespace
{

constexpr char const* kSamples[] = {"Plain text, 12,345.67 gpqjy AVAToWa fi ffl",
                                    "Ångström Übermut ñandú œuvre Żółć €",
                                    "Ελληνικά: Ξεσκεπάζω τὴν ψυχοφθόρα",
                                    "Съешь же ещё этих мягких булок",
                                    "日本語の文字と漢字 中文",
                                    "العربية نص قصير",
                                    "e\xCC\x81 a\xCC\x8A n\xCC\x83 combining",
                                    "emoji \xF0\x9F\x98\x80 \xE2\x9C\x93 \xE2\x86\x92",
                                    "bad bytes \xE9\xFF\x80 end",
                                    "tab\there, line\nfeed"};

constexpr UINT kCell = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;

void DrawSamples(CDC& dc, int left, int top)
{
    int const height = Scaled(22);
    constexpr int kWidths[] = {330, 120, 60};
    constexpr UINT kAlignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    for (char const* const text : kSamples)
    {
        int x = left;
        for (int i = 0; i < 3; ++i)
        {
            CRect cell(x, top, x + Scaled(kWidths[i]), top + height);
            dc.Draw3dRect(&cell, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_3DLIGHT));
            cell.DeflateRect(Scaled(2), 0);
            dc.DrawText(std::string_view(text), cell, kCell | kAlignments[i]);
            x += Scaled(kWidths[i] + 6);
        }
        top += height;
    }
}

void DrawControls(CDC& dc, int left, int top)
{
    constexpr PartState kStates[] = {PartState::Normal, PartState::Hot, PartState::Pressed, PartState::Disabled};
    for (PartState const state : kStates)
    {
        CRect button(CPoint(left, top), CSize(Scaled(86), Scaled(26)));
        DrawPushButton(dc, button, state, false);
        dc.SetTextColor(GetSysColor(state == PartState::Disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
        dc.DrawText("&Button", -1, &button, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        int const size = Scaled(20);
        int x = left + Scaled(96);
        for (int kind = 0; kind < 5; ++kind, x += size)
        {
            CRect const box(CPoint(x, top + Scaled(3)), CSize(size, size));
            if (kind < 3)
            {
                DrawCheckBox(dc, box, state, kind == 1, kind == 2);
            }
            else
            {
                DrawRadioButton(dc, box, state, kind == 4);
            }
        }
        for (ArrowDirection const direction :
             {ArrowDirection::Up, ArrowDirection::Down, ArrowDirection::Left, ArrowDirection::Right})
        {
            DrawScrollButton(dc, CRect(CPoint(x, top), CSize(Scaled(17), Scaled(17))), direction, state);
            x += Scaled(19);
        }
        CRect const thumb(CPoint(x + Scaled(4), top), CSize(GetSystemMetrics(SM_CXVSCROLL), Scaled(28)));
        DrawScrollThumb(dc, thumb, true, state);
        DrawScrollThumb(dc, CRect(CPoint(x + Scaled(26), top), CSize(Scaled(50), GetSystemMetrics(SM_CYHSCROLL))),
                        false, state);
        top += Scaled(32);
    }
    dc.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    for (UINT const edge : {EDGE_RAISED, EDGE_SUNKEN, EDGE_ETCHED, BDR_RAISEDOUTER, BDR_SUNKENOUTER})
    {
        CRect box(CPoint(left, top), CSize(Scaled(50), Scaled(24)));
        dc.DrawEdge(&box, edge, BF_RECT | BF_MIDDLE);
        left += Scaled(56);
    }
    CRect field(CPoint(left, top), CSize(Scaled(60), Scaled(24)));
    DrawFieldFrame(dc, field, true);
    field.DeflateRect(Scaled(4), Scaled(4));
    dc.DrawFocusRect(&field);
}

void DrawFonts(CDC& dc, int left, int top)
{
    struct Sample
    {
        int size;
        LONG weight;
        bool italic;
        bool lines;
    };
    for (Sample const& sample :
         {Sample{9, FW_NORMAL, false, false}, Sample{11, FW_NORMAL, false, false}, Sample{13, FW_BOLD, false, false},
          Sample{13, FW_NORMAL, true, false}, Sample{16, FW_NORMAL, false, true}, Sample{24, FW_NORMAL, false, false}})
    {
        LOGFONT description{};
        description.lfHeight = -Scaled(sample.size);
        description.lfWeight = sample.weight;
        description.lfItalic = sample.italic ? 1 : 0;
        description.lfUnderline = sample.lines ? 1 : 0;
        description.lfStrikeOut = sample.lines ? 1 : 0;
        CFont font;
        font.CreateFontIndirect(&description);
        CFont* const before = dc.SelectObject(&font);
        TEXTMETRIC metrics{};
        dc.GetTextMetrics(&metrics);
        dc.TextOut(left, top, CString("Size 0123456789 jumping fox €"));
        top += metrics.tmHeight + Scaled(2);
        dc.SelectObject(before);
    }
}

void DrawLines(CDC& dc, int left, int top)
{
    CPen dotted(PS_DOT, 1, GetSysColor(COLOR_WINDOWTEXT));
    CPen thick(PS_SOLID, 3, GetSysColor(COLOR_HIGHLIGHT));
    CBrush fill(GetSysColor(COLOR_HOTLIGHT));
    dc.SelectObject(&dotted);
    for (int i = 0; i < 5; ++i)
    {
        dc.MoveTo(left + i, top + 4 * i);
        dc.LineTo(left + 60, top + 4 * i);
    }
    dc.SelectObject(&thick);
    dc.MoveTo(left + 70, top);
    dc.LineTo(left + 110, top + 20);
    dc.SelectStockObject(NULL_PEN);
    dc.SelectObject(&fill);
    POINT const triangle[] = {{left + 120, top + 4}, {left + 140, top + 12}, {left + 120, top + 20}};
    dc.Polygon(triangle, 3);
    for (int i = 0; i < 16; ++i)
    {
        dc.BlendRect(CRect(left + 150 + 8 * i, top, left + 158 + 8 * i, top + 20), RGB(200, 40, 40),
                     static_cast<BYTE>(i * 17));
    }
    dc.SelectStockObject(BLACK_PEN);
    dc.SelectStockObject(WHITE_BRUSH);
}

void SavePage(std::string const& path, ColorScheme scheme, double scale)
{
    SetColorScheme(scheme);
    SetScale(scale);
    Surface surface(Scaled(960), Scaled(470));
    CDC dc;
    dc.AttachSurface(surface);
    dc.FillSolidRect(surface.Bounds(), GetSysColor(COLOR_WINDOW));
    dc.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    dc.SetBkMode(TRANSPARENT);
    dc.FillSolidRect(CRect(0, Scaled(236), surface.Width(), Scaled(424)), GetSysColor(COLOR_BTNFACE));
    DrawSamples(dc, Scaled(8), Scaled(8));
    DrawFonts(dc, Scaled(560), Scaled(8));
    DrawControls(dc, Scaled(8), Scaled(246));
    DrawLines(dc, Scaled(8), Scaled(434));
    CRect wrapped(Scaled(560), Scaled(250), Scaled(760), Scaled(420));
    dc.DrawText(
        "A longer text that is broken at its blanks,\nand at line ends; averyverylongwordthatdoesnotfitatall stays.",
        -1, &wrapped, DT_WORDBREAK);
    std::printf("%s: %s\n", path.c_str(), surface.SavePng(path) ? "saved" : "FAILED");
}

// One page as a grid shows it: 45 rows of 12 cells, filled, with a text and dotted lines each.
void DrawCells(CDC& dc, std::vector<std::string> const& texts)
{
    CPen dotted(PS_DOT, 1, RGB(128, 128, 128));
    dc.SelectObject(&dotted);
    std::size_t index = 0;
    for (int row = 0; row < 45; ++row)
    {
        for (int column = 0; column < 12; ++column)
        {
            CRect const cell(CPoint(column * 133, row * 20), CSize(133, 20));
            dc.FillSolidRect(cell, row % 2 == 0 ? RGB(255, 255, 255) : RGB(245, 246, 250));
            CRect text(cell);
            text.DeflateRect(2, 0);
            dc.DrawText(std::string_view(texts[index++ % texts.size()]), text,
                        kCell | (column % 2 == 0 ? DT_LEFT : DT_RIGHT));
            dc.MoveTo(cell.right - 1, cell.top);
            dc.LineTo(cell.right - 1, cell.bottom);
            dc.MoveTo(cell.left, cell.bottom - 1);
            dc.LineTo(cell.right, cell.bottom - 1);
        }
    }
    dc.SelectStockObject(BLACK_PEN);
}

void MeasurePage()
{
    Surface surface(1600, 900);
    CDC dc;
    dc.AttachSurface(surface);
    dc.SetBkMode(TRANSPARENT);
    std::vector<std::string> texts;
    for (int i = 0; i < 5000; ++i)
    {
        texts.push_back(std::to_string(i * 7919 % 100000) + "," + std::to_string(100 + i % 900));
    }
    double best = 1e9;
    for (int run = 0; run < 200; ++run)
    {
        auto const start = std::chrono::steady_clock::now();
        DrawCells(dc, texts);
        std::chrono::duration<double, std::milli> const spent = std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count());
    }
    std::printf("page of 540 cells: %.3f ms (best of 200)\n", best);
}

} // namespace

int main(int argumentCount, char** arguments)
{
    std::string const argument = argumentCount > 1 ? arguments[1] : ".";
    if (argument == "--time")
    {
        MeasurePage();
        return 0;
    }
    SavePage(argument + "/drawing-light.png", ColorScheme::Light, 1);
    SavePage(argument + "/drawing-dark.png", ColorScheme::Dark, 1);
    SavePage(argument + "/drawing-light-2x.png", ColorScheme::Light, 2);
    return 0;
}
