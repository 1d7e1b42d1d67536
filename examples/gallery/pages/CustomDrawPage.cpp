// Drawing of one's own: cells whose colours follow their values, a cell format that draws a chart, and rows as bands.
#include <array>
#include <cmath>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

constexpr COLORREF kUp = RGB(46, 160, 90);
constexpr COLORREF kDown = RGB(215, 60, 70);

/// Changes upward in green, downward in red, the stronger the change the deeper the ground.
class CHeatDraw : public CSpaciousDraw
{
public:
    CHeatDraw() : CSpaciousDraw(true) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        auto const* const metal = static_cast<CMetal const*>(cell.GetGridLine().GetDataObject());
        if (metal != nullptr && cell.GetColumn() != nullptr && cell.GetColumn()->GetFid() == CMetal::kChange)
        {
            constexpr double kDeepest = 4;
            double const depth = std::min(std::abs(metal->GetChange()) / kDeepest, 1.0);
            CPaintInfo& info = cell.GetPaintInfo();
            info.SetBackColor(CMsImg32::AlphaBlend(info.GetBackColor(), metal->GetChange() < 0 ? kDown : kUp,
                                                   static_cast<unsigned char>(std::lround(depth * 200))));
        }
        CSpaciousDraw::DrawCell(cell, context, filter);
    }
};

/// Draws a curve instead of the text.
class CCurveFormat : public CCellPaintFormat
{
public:
    ICellPaintFormat* Clone() const override { return new CCurveFormat(*this); }

protected:
    void OnDrawText(CGridCell& cell, CPaintContext const& context, unsigned int /*filter*/) const override
    {
        auto const* const metal = static_cast<CMetal const*>(cell.GetGridLine().GetDataObject());
        if (metal == nullptr)
        {
            return;
        }
        CRect area = cell.GetPaintInfo().GetVirtualRect();
        area.DeflateRect(Scaled(7), Scaled(4));
        std::array<POINT, 24> points{};
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            double const progress = static_cast<double>(i) / (points.size() - 1);
            double const height = 0.5 + 0.3 * std::sin(progress * 9 + static_cast<double>(metal->GetStock())) +
                                  0.05 * metal->GetChange() * (progress - 0.5);
            points[i] = CPoint(area.left + static_cast<int>(std::lround(progress * area.Width())),
                               area.bottom - static_cast<int>(std::lround(height * area.Height())));
        }
        CPen pen(PS_SOLID, Scaled(1), metal->GetChange() < 0 ? kDown : kUp);
        CPen* const previous = context.GetDC().SelectObject(&pen);
        context.GetDC().Polyline(points.data(), static_cast<int>(points.size()));
        context.GetDC().SelectObject(previous);
    }
};

/// Every fourth row as a heading: across the columns, in bold.
class CBandDraw : public CSpaciousDraw
{
public:
    CBandDraw() : CSpaciousDraw(true)
    {
        LOGFONT description{};
        Ostrel::GUI::CPreferences::GetFont()->GetLogFont(&description);
        description.lfWeight = FW_BOLD;
        m_bold.CreateFontIndirect(&description);
    }

    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) override
    {
        auto const* const metal = static_cast<CMetal const*>(line.GetDataObject());
        if (metal == nullptr || line.GetRow() % 4 != 0)
        {
            CSpaciousDraw::DrawLine(line, context, filter);
            return;
        }
        CPaintInfo& info = line.GetPaintInfo();
        info.SetFont(&m_bold);
        context.GetDC().FillSolidRect(info.GetClipRect(), GetSysColor(COLOR_BTNFACE));
        CRect text = info.GetVirtualRect();
        text.left += Scaled(7);
        CPaintHelper::DrawText(metal->GetName() + " and others", GetSysColor(COLOR_HOTLIGHT), text,
                               DT_SINGLELINE | DT_VCENTER, info, context);
    }

private:
    CFont m_bold;
};

class CCustomDrawPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("Colours that follow the values", 10, std::make_unique<CHeatDraw>());
        CGrid& curves = AddMetalGrid("A cell format that draws", 10);
        curves.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetCellPaintFormat(new CCurveFormat);
        curves.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetName("Course");
        curves.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetWidth(Scaled(85));
        curves.GetHeader()->GetColumnByFid(CMetal::kName)->SetWidth(Scaled(95));
        AddMetalGrid("Rows that are drawn as a whole", 10, std::make_unique<CBandDraw>());
        CGrid& filtered = AddMetalGrid("Frames without tints: the paint filter", 10);
        filtered.SetPaintFilter(filtered.GetPaintFilter() &
                                ~static_cast<unsigned int>(PaintSelection | PaintSortedColumn));
        filtered.SetSort(0, CSortInfo(CMetal::kPrice, true), true);
        for (int const row : {2, 3, 4})
        {
            filtered.Select(row, ScrollableContext, true);
        }
    }
};

} // namespace

std::unique_ptr<CPage> MakeCustomDrawPage()
{
    return std::make_unique<CCustomDrawPage>();
}

} // namespace Gallery
