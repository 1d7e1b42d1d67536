// Small drawing steps and measures that the painters share: lines and frames, a font selected for a while, a clip that
// is taken back. Lines are one design pixel wide; what is said of their pixels holds for design pixels.
#pragma once

#include <algorithm>

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI::Detail
{

/// The width of a line and the side of a dot, in pixels.
inline int LineWidth() noexcept
{
    return Platform::Scaled(1);
}

/// Between the edges of a cell and its text, in pixels.
inline int TextOffset() noexcept
{
    return Platform::Scaled(2);
}

/// Every other dot from the left end up to, not including, the right; from the top up to the bottom. The line lies
/// below y, right of x.
void DrawDottedHorizontal(CDC& dc, int left, int right, int y, COLORREF color);
void DrawDottedVertical(CDC& dc, int x, int top, int bottom, COLORREF color);
/// Solid, with the same ends.
inline void DrawSolidHorizontal(CDC& dc, int left, int right, int y, COLORREF color)
{
    dc.FillSolidRect(CRect(left, y, right, y + LineWidth()), color);
}
inline void DrawSolidVertical(CDC& dc, int x, int top, int bottom, COLORREF color)
{
    dc.FillSolidRect(CRect(x, top, x + LineWidth(), bottom), color);
}
/// A solid frame inside the rectangle; raised when the colours differ.
void DrawFrame(CDC& dc, CRect const& rect, COLORREF topLeft, COLORREF bottomRight);
inline void DrawFrame(CDC& dc, CRect const& rect, COLORREF color)
{
    DrawFrame(dc, rect, color, color);
}

/// The next place at or behind the value where a dot of a dotted line that begins at 0 lies.
inline int NextDot(int value) noexcept
{
    int const step = 2 * LineWidth();
    int const rest = value % step;
    return rest > 0 ? value + step - rest : value - rest;
}

/// Where the button lies that expands a row of a hierarchical level, in the cell's virtual rectangle.
inline CRect ExpandButtonRect(CRect const& cell, int level) noexcept
{
    int const left = cell.left + cell.Height() * level;
    CRect button(left, cell.top, left + cell.Height(), cell.bottom);
    button.DeflateRect(Platform::Scaled(3), Platform::Scaled(3), Platform::Scaled(2), Platform::Scaled(2));
    return button;
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
