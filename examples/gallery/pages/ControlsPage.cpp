// Windows of the program's own over cells: they scroll with the rows, go away with them, and look selected like them.
#include <algorithm>
#include <vector>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

/// A window over a cell that shows and sets a metal's stock.
class CStockControl : public CWnd
{
public:
    CStockControl(CGrid& grid, CMetal& metal, CSize size) : m_metal(metal)
    {
        Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(CPoint(), size), &grid, 0);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_PAINT)
        {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        CPaintDC dc(this);
        CRect rect;
        GetClientRect(&rect);
        dc.FillSolidRect(rect, GetSysColor(COLOR_WINDOW));
        Paint(dc, rect);
        return 0;
    }

    virtual void Paint(CDC& dc, CRect rect) = 0;

    [[nodiscard]] CMetal& Metal() const { return m_metal; }

private:
    CMetal& m_metal;
};

/// A bar that is filled up to where the user clicks or drags.
class CSlider : public CStockControl
{
public:
    CSlider(CGrid& grid, CMetal& metal) : CStockControl(grid, metal, CSize()) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_LBUTTONDOWN:
            SetCapture();
            Follow(CPoint(lParam).x);
            return 0;
        case WM_MOUSEMOVE:
            if (GetCapture() == this)
            {
                Follow(CPoint(lParam).x);
            }
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            return 0;
        default:
            return CStockControl::WindowProc(message, wParam, lParam);
        }
    }

    void Paint(CDC& dc, CRect rect) override
    {
        rect.DeflateRect(Scaled(6), rect.Height() / 2 - Scaled(2));
        dc.FillSolidRect(rect, GetSysColor(COLOR_BTNSHADOW));
        rect.right = rect.left + rect.Width() * static_cast<int>(Metal().GetStock()) / 100;
        dc.FillSolidRect(rect, GetSysColor(COLOR_HIGHLIGHT));
        CRect thumb(CPoint(rect.right - Scaled(3), rect.top - Scaled(4)), CSize(Scaled(6), Scaled(12)));
        dc.FillSolidRect(thumb, GetSysColor(COLOR_HOTLIGHT));
    }

private:
    void Follow(int x)
    {
        CRect client;
        GetClientRect(&client);
        Metal().SetStock(std::clamp(x * 100 / std::max(client.Width(), 1), 0, 100));
        Invalidate();
    }
};

/// A button that fills up the stock.
class CFillButton : public CStockControl
{
public:
    CFillButton(CGrid& grid, CMetal& metal) : CStockControl(grid, metal, CSize(Scaled(44), Scaled(20))) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_LBUTTONDOWN)
        {
            Metal().SetStock(100);
            return 0;
        }
        return CStockControl::WindowProc(message, wParam, lParam);
    }

    void Paint(CDC& dc, CRect rect) override
    {
        dc.DrawFrameControl(&rect, DFC_BUTTON, DFCS_BUTTONPUSH);
        dc.SelectObject(Ostrel::GUI::CPreferences::GetFont());
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
        dc.DrawText(std::string_view("Fill"), rect, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
    }
};

class CControlsPage : public CPage
{
    void Build() override
    {
        SetGridsPerRow(1);
        CGrid& sliders = AddStockGrid("A window over each cell of a column");
        for (auto const& metal : AllMetals())
        {
            Embed<CSlider>(sliders, *metal, {});
        }
        sliders.Select(1, ScrollableContext, true);
        sliders.Select(2, ScrollableContext, true);
        sliders.SetFocusedRow(4, ScrollableContext);
        CGrid& buttons = AddStockGrid("At the right edge of the cell, in a width of its own");
        using Params = CEmbeddedControlParams;
        for (auto const& metal : AllMetals())
        {
            Embed<CFillButton>(buttons, *metal,
                               Params(Params::AnchorTop | Params::AnchorRight | Params::AnchorBottom, 0, Scaled(1), 0,
                                      -Scaled(1), true));
        }
    }

    CGrid& AddStockGrid(char const* caption)
    {
        CGrid& grid = AddGrid(caption, CMetal::Fields(),
                              {{CMetal::kName, 140}, {CMetal::kStock, 160, CColumn::AlignLeft}, {CMetal::kSymbol, 80}});
        for (auto const& metal : AllMetals())
        {
            grid.Add(metal.get(), ScrollableRoot, LastPosition);
        }
        return grid;
    }

    template <class Control>
    void Embed(CGrid& grid, CMetal& metal, CEmbeddedControlParams const& params)
    {
        m_controls.push_back(std::make_unique<Control>(grid, metal));
        grid.AttachControl(m_controls.back().get(), grid.GetItem(&metal), CMetal::kStock, params);
    }

    std::vector<std::unique_ptr<CWnd>> m_controls;
};

} // namespace

std::unique_ptr<CPage> MakeControlsPage()
{
    return std::make_unique<CControlsPage>();
}

} // namespace Gallery
