#include "Page.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

constexpr UINT_PTR kTickTimer = 1;

// At scale 1.
constexpr int kMargin = 12;
constexpr int kCaptionHeight = 24;

} // namespace

std::vector<ColumnPlan> MetalColumns()
{
    return {{CMetal::kName, 109},
            {CMetal::kSymbol, 76},
            {CMetal::kPrice, 80, CColumn::AlignRight},
            {CMetal::kChange, 95, CColumn::AlignRight}};
}

bool CPage::Open(CWnd& parent)
{
    if (!Create(nullptr, "", WS_CHILD | WS_CLIPCHILDREN, CRect(), &parent, 1))
    {
        return false;
    }
    Build();
    LayOut();
    if (TickMs() > 0)
    {
        SetTimer(kTickTimer, static_cast<UINT>(TickMs()));
    }
    return true;
}

CGrid& CPage::AddGrid(std::string caption, CFieldMap const& fields, std::vector<ColumnPlan> const& columns,
                      std::unique_ptr<CCustomDraw> draw)
{
    Panel& panel = m_panels.emplace_back();
    panel.caption = std::move(caption);
    CGrid& grid = panel.grid;
    grid.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_HSCROLL, CRect(), this,
                static_cast<UINT>(m_panels.size()));
    auto* const header = new CHeader; // deletes itself with the grid
    for (ColumnPlan const& plan : columns)
    {
        header->Add(new CColumn(plan.fid, fields.GetField(plan.fid)->GetName(), Scaled(plan.width), plan.alignment));
    }
    grid.SetHeader(header);
    grid.SetCustomDraw(draw != nullptr ? draw.release() : new CSpaciousDraw(true)); // and so does this
    header->SetHeaderHeight(grid.GetOptimalHeaderHeight());
    grid.SetPaintFilter(PaintAll & ~PaintHierarchy); // no room for a tree
    return grid;
}

void CPage::ShowTree(CGrid& grid)
{
    grid.SetPaintFilter(PaintAll);
    grid.GetHeader()->GetColumnByFid(CMetal::kName)->SetWidth(Scaled(170));
    grid.GetHeader()->HideColumn(CMetal::kSymbol);
}

CGrid& CPage::AddMetalGrid(std::string caption, int rowCount, std::unique_ptr<CCustomDraw> draw)
{
    CGrid& grid = AddGrid(std::move(caption), CMetal::Fields(), MetalColumns(), std::move(draw));
    for (int i = 0; i < rowCount; ++i)
    {
        grid.Add(m_metals[static_cast<std::size_t>(i)].get(), ScrollableRoot, LastPosition);
    }
    return grid;
}

CRect CPage::PanelRect(int number) const
{
    CRect client;
    GetClientRect(&client);
    int const margin = Scaled(kMargin);
    int const perRow = m_gridsPerRow;
    int const rows = (static_cast<int>(m_panels.size()) + perRow - 1) / perRow;
    int const width = (client.Width() - margin * (perRow + 1)) / perRow;
    int const height = (client.Height() - margin * (rows + 1)) / rows;
    return {CPoint(margin + number % perRow * (width + margin), margin + number / perRow * (height + margin)),
            CSize(width, height)};
}

void CPage::LayOut()
{
    int number = 0;
    for (Panel& panel : m_panels)
    {
        CRect rect = PanelRect(number++);
        rect.top += Scaled(kCaptionHeight);
        panel.grid.MoveWindow(&rect);
    }
}

void CPage::PaintCaptions()
{
    CPaintDC dc(this);
    dc.SelectObject(Ostrel::GUI::CPreferences::GetFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    int number = 0;
    for (Panel const& panel : m_panels)
    {
        CRect rect = PanelRect(number++);
        rect.bottom = rect.top + Scaled(kCaptionHeight);
        dc.DrawText(std::string_view(panel.caption), rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

LRESULT CPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SIZE:
        LayOut();
        return 0;
    case WM_ERASEBKGND: {
        CRect client;
        GetClientRect(&client);
        reinterpret_cast<CDC*>(wParam)->FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
        return TRUE;
    }
    case WM_PAINT:
        PaintCaptions();
        return 0;
    case WM_TIMER:
        OnTick();
        return 0;
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

} // namespace Gallery
