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

} // namespace

void DrawDottedHorizontal(CDC& dc, int left, int right, int y, COLORREF color)
{
    int const odd = left & 1;
    DottedPen const pen(dc, color);
    dc.OffsetViewportOrg(odd, 0);
    dc.MoveTo(left - odd, y);
    dc.LineTo(right - odd, y);
    dc.OffsetViewportOrg(-odd, 0);
}

void DrawDottedVertical(CDC& dc, int x, int top, int bottom, COLORREF color)
{
    int const odd = top & 1;
    DottedPen const pen(dc, color);
    dc.OffsetViewportOrg(0, odd);
    dc.MoveTo(x, top - odd);
    dc.LineTo(x, bottom - odd);
    dc.OffsetViewportOrg(0, -odd);
}

} // namespace Ostrel::GUI::Detail
