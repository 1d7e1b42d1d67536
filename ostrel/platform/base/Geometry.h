// Points, sizes and rectangles in whole device pixels. A rectangle is half open: it holds its left and top edge and
// not its right and bottom edge.
#pragma once

#include <algorithm>

#include <ostrel/platform/base/Types.h>

struct POINT
{
    LONG x;
    LONG y;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

class CSize : public SIZE
{
public:
    constexpr CSize() noexcept : SIZE{0, 0} {}
    constexpr CSize(int width, int height) noexcept : SIZE{width, height} {}
    constexpr CSize(SIZE size) noexcept : SIZE(size) {}

    friend constexpr bool operator==(CSize const& a, CSize const& b) noexcept { return a.cx == b.cx && a.cy == b.cy; }
};

class CPoint : public POINT
{
public:
    constexpr CPoint() noexcept : POINT{0, 0} {}
    constexpr CPoint(int px, int py) noexcept : POINT{px, py} {}
    constexpr CPoint(POINT point) noexcept : POINT(point) {}
    /// The point packed into a mouse message's LPARAM.
    constexpr explicit CPoint(LPARAM packed) noexcept : POINT{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}

    constexpr void Offset(int dx, int dy) noexcept
    {
        x += dx;
        y += dy;
    }
    constexpr CPoint& operator+=(CSize size) noexcept
    {
        Offset(size.cx, size.cy);
        return *this;
    }
    constexpr CPoint& operator-=(CSize size) noexcept
    {
        Offset(-size.cx, -size.cy);
        return *this;
    }

    friend constexpr bool operator==(CPoint const& a, CPoint const& b) noexcept { return a.x == b.x && a.y == b.y; }
    friend constexpr CPoint operator+(CPoint a, CSize b) noexcept { return a += b; }
    friend constexpr CPoint operator-(CPoint a, CSize b) noexcept { return a -= b; }
    friend constexpr CSize operator-(CPoint const& a, CPoint const& b) noexcept { return {a.x - b.x, a.y - b.y}; }
};

class CRect : public RECT
{
public:
    constexpr CRect() noexcept : RECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : RECT{l, t, r, b} {}
    constexpr CRect(RECT const& rect) noexcept : RECT(rect) {}
    constexpr CRect(POINT topLeft, SIZE size) noexcept
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {}
    constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {}

    /// For the functions that take rectangles by pointer.
    constexpr operator RECT*() noexcept { return this; }
    constexpr operator RECT const*() const noexcept { return this; }

    [[nodiscard]] constexpr int Width() const noexcept { return right - left; }
    [[nodiscard]] constexpr int Height() const noexcept { return bottom - top; }
    [[nodiscard]] constexpr CSize Size() const noexcept { return {Width(), Height()}; }
    [[nodiscard]] constexpr CPoint TopLeft() const noexcept { return {left, top}; }
    [[nodiscard]] constexpr CPoint BottomRight() const noexcept { return {right, bottom}; }
    [[nodiscard]] constexpr CPoint CenterPoint() const noexcept { return {(left + right) / 2, (top + bottom) / 2}; }

    /// True when the rectangle holds no pixel: its width or height is 0 or negative.
    [[nodiscard]] constexpr bool IsRectEmpty() const noexcept { return left >= right || top >= bottom; }
    /// True when all four edges are 0.
    [[nodiscard]] constexpr bool IsRectNull() const noexcept { return *this == CRect(); }
    [[nodiscard]] constexpr bool PtInRect(POINT point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    constexpr void SetRect(int l, int t, int r, int b) noexcept { *this = CRect(l, t, r, b); }
    constexpr void SetRectEmpty() noexcept { *this = CRect(); }
    constexpr void InflateRect(int dx, int dy) noexcept { InflateRect(dx, dy, dx, dy); }
    constexpr void InflateRect(int l, int t, int r, int b) noexcept
    {
        left -= l;
        top -= t;
        right += r;
        bottom += b;
    }
    constexpr void DeflateRect(int dx, int dy) noexcept { InflateRect(-dx, -dy); }
    constexpr void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }
    constexpr void OffsetRect(int dx, int dy) noexcept
    {
        left += dx;
        right += dx;
        top += dy;
        bottom += dy;
    }
    constexpr void OffsetRect(POINT by) noexcept { OffsetRect(by.x, by.y); }
    constexpr void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
    constexpr void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
    constexpr void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
    /// Swaps edges so that width and height are not negative.
    constexpr void NormalizeRect() noexcept
    {
        *this = CRect(std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom));
    }

    /// Becomes the common part of two rectangles, or empty (all zero) when there is none. Tells whether there is one.
    constexpr bool IntersectRect(RECT const& a, RECT const& b) noexcept
    {
        CRect const common(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                           std::min(a.bottom, b.bottom));
        *this = common.IsRectEmpty() ? CRect() : common;
        return !IsRectEmpty();
    }
    /// Becomes the smallest rectangle that holds both; an empty one counts for nothing. Tells whether it holds a pixel.
    constexpr bool UnionRect(RECT const& a, RECT const& b) noexcept
    {
        CRect const first(a);
        CRect const second(b);
        if (first.IsRectEmpty() || second.IsRectEmpty())
        {
            *this = first.IsRectEmpty() ? second : first;
            if (IsRectEmpty())
            {
                SetRectEmpty();
            }
        }
        else
        {
            *this = CRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                          std::max(a.bottom, b.bottom));
        }
        return !IsRectEmpty();
    }
    constexpr CRect& operator&=(RECT const& other) noexcept
    {
        IntersectRect(CRect(*this), other);
        return *this;
    }
    constexpr CRect& operator|=(RECT const& other) noexcept
    {
        UnionRect(CRect(*this), other);
        return *this;
    }

    friend constexpr bool operator==(CRect const& a, CRect const& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend constexpr CRect operator&(CRect a, RECT const& b) noexcept { return a &= b; }
    friend constexpr CRect operator|(CRect a, RECT const& b) noexcept { return a |= b; }
    friend constexpr CRect operator+(CRect a, POINT by) noexcept
    {
        a.OffsetRect(by);
        return a;
    }
    friend constexpr CRect operator-(CRect a, POINT by) noexcept
    {
        a.OffsetRect(-by.x, -by.y);
        return a;
    }
};
