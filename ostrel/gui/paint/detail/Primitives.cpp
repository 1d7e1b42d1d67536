#include <ostrel/gui/paint/detail/Primitives.h>

namespace Ostrel::GUI::Detail
{
namespace
{

/// A dotted pen sets the even pixels; lines that begin at an odd one are drawn one pixel back with the origin moved.
class DottedPen
{
public:
    DottedPen(CDC& dc, COLORREF color) : m_pen(PS_DOT, 1, color), m_dc(dc), m_previous(dc.SelectObject(&m_pen)) {}
    DottedPen(DottedPen const&) = delete;
    DottedPen& operator=(DottedPen const&) = delete;
    ~DottedPen() { m_dc.SelectObject(m_previous); }

private:
    CPen m_pen;
    CDC& m_dc;
    CPen* m_previous;
};

/// Dots of more than a pixel, which no pen draws.
void DrawThickDots(CDC& dc, CRect const& line, CSize step, COLORREF color)
{
    CRect box;
    dc.GetClipBox(&box);
    CRect const visible = line & box;
    if (visible.IsRectEmpty())
    {
        return;
    }
    int const side = LineWidth();
    int const skipped = step.cx > 0 ? (visible.left - line.left) / step.cx : (visible.top - line.top) / step.cy;
    CRect dot(CPoint(line.left + skipped * step.cx, line.top + skipped * step.cy), CSize(side, side));
    for (; dot.left < visible.right && dot.top < visible.bottom; dot.OffsetRect(step.cx, step.cy))
    {
        dc.FillSolidRect(dot & line, color);
    }
}

} // namespace

void DrawDottedHorizontal(CDC& dc, int left, int right, int y, COLORREF color)
{
    if (int const width = LineWidth(); width > 1)
    {
        DrawThickDots(dc, CRect(left, y, right, y + width), CSize(2 * width, 0), color);
        return;
    }
    int const odd = left & 1;
    DottedPen const pen(dc, color);
    dc.OffsetViewportOrg(odd, 0);
    dc.MoveTo(left - odd, y);
    dc.LineTo(right - odd, y);
    dc.OffsetViewportOrg(-odd, 0);
}

void DrawDottedVertical(CDC& dc, int x, int top, int bottom, COLORREF color)
{
    if (int const width = LineWidth(); width > 1)
    {
        DrawThickDots(dc, CRect(x, top, x + width, bottom), CSize(0, 2 * width), color);
        return;
    }
    int const odd = top & 1;
    DottedPen const pen(dc, color);
    dc.OffsetViewportOrg(0, odd);
    dc.MoveTo(x, top - odd);
    dc.LineTo(x, bottom - odd);
    dc.OffsetViewportOrg(0, -odd);
}

void DrawFrame(CDC& dc, CRect const& rect, COLORREF topLeft, COLORREF bottomRight)
{
    int const width = LineWidth();
    if (width == 1)
    {
        dc.Draw3dRect(&rect, topLeft, bottomRight);
        return;
    }
    // A rectangle can be lower than a line is wide.
    auto const fill = [&](CRect const& side, COLORREF color) { dc.FillSolidRect(side & rect, color); };
    fill(CRect(rect.left, rect.top, rect.right - width, rect.top + width), topLeft);
    fill(CRect(rect.left, rect.top, rect.left + width, rect.bottom - width), topLeft);
    fill(CRect(rect.right - width, rect.top, rect.right, rect.bottom), bottomRight);
    fill(CRect(rect.left, rect.bottom - width, rect.right, rect.bottom), bottomRight);
}

} // namespace Ostrel::GUI::Detail
