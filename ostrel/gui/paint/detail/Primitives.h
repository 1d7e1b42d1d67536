// Small drawing steps that the painters share: dotted lines of one pixel, a font selected for a while, a clip that is
// taken back.
#pragma once

#include <ostrel/platform/drawing/DeviceContext.h>

namespace Ostrel::GUI::Detail
{

/// Every other pixel from the left end up to, not including, the right; from the top up to the bottom.
void DrawDottedHorizontal(CDC& dc, int left, int right, int y, COLORREF color);
void DrawDottedVertical(CDC& dc, int x, int top, int bottom, COLORREF color);
/// Solid, with the same ends.
inline void DrawSolidHorizontal(CDC& dc, int left, int right, int y, COLORREF color)
{
    dc.FillSolidRect(CRect(left, y, right, y + 1), color);
}
inline void DrawSolidVertical(CDC& dc, int x, int top, int bottom, COLORREF color)
{
    dc.FillSolidRect(CRect(x, top, x + 1, bottom), color);
}
/// A solid frame of one pixel inside the rectangle.
inline void DrawFrame(CDC& dc, CRect const& rect, COLORREF color)
{
    dc.Draw3dRect(&rect, color, color);
}

constexpr int RoundUpToEven(int value) noexcept
{
    return value + (value & 1);
}

/// Selects a font; the one before comes back at the end. Null selects nothing.
class FontScope
{
public:
    FontScope(CDC& dc, CFont* font) : m_dc(dc), m_previous(font != nullptr ? dc.SelectObject(font) : nullptr) {}
    FontScope(FontScope const&) = delete;
    FontScope& operator=(FontScope const&) = delete;
    ~FontScope()
    {
        if (m_previous != nullptr)
        {
            m_dc.SelectObject(m_previous);
        }
    }

private:
    CDC& m_dc;
    CFont* m_previous;
};

/// Narrows the clip; what it was comes back at the end.
class ClipScope
{
public:
    ClipScope(CDC& dc, CRect const& rect) : m_dc(dc), m_saved(dc.SaveDC()) { dc.IntersectClipRect(&rect); }
    ClipScope(ClipScope const&) = delete;
    ClipScope& operator=(ClipScope const&) = delete;
    ~ClipScope() { m_dc.RestoreDC(m_saved); }

private:
    CDC& m_dc;
    int m_saved;
};

/// Keeps scrolling columns from painting over the fixed ones. Narrows the clip at most once, when it is first needed.
class FixedColumnsGuard
{
public:
    /// The columns lie in `area`; the fixed ones end at `fixedRight`.
    FixedColumnsGuard(CDC& dc, CRect const& area, int fixedRight) noexcept
        : m_dc(dc), m_area(area), m_fixedRight(fixedRight)
    {}
    FixedColumnsGuard(FixedColumnsGuard const&) = delete;
    FixedColumnsGuard& operator=(FixedColumnsGuard const&) = delete;
    ~FixedColumnsGuard()
    {
        if (m_saved != 0)
        {
            m_dc.RestoreDC(m_saved);
        }
    }

    /// Call before a scrolling column is painted.
    void Protect()
    {
        if (m_saved == 0 && m_area.left < m_fixedRight)
        {
            m_saved = m_dc.SaveDC();
            m_dc.IntersectClipRect(m_fixedRight, m_area.top, m_area.right, m_area.bottom);
        }
    }

private:
    CDC& m_dc;
    CRect m_area;
    int m_fixedRight;
    int m_saved = 0;
};

} // namespace Ostrel::GUI::Detail
