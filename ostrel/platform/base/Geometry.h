/// @file
/// Points, sizes and rectangles in whole device pixels. A rectangle is half open: it holds its left and top edge and
/// not its right and bottom edge.
#pragma once

#include <algorithm>

#include <ostrel/platform/base/Types.h>

/// A place: pixels to the right of, and below, the origin.
struct POINT
{
    LONG x; ///< to the right
    LONG y; ///< down
};

/// A width and a height in pixels.
struct SIZE
{
    LONG cx; ///< the width
    LONG cy; ///< the height
};

/// A rectangle by its edges.
struct RECT
{
    LONG left;   ///< the first column of pixels inside
    LONG top;    ///< the first row of pixels inside
    LONG right;  ///< the first column behind
    LONG bottom; ///< the first row below
};

/// A SIZE with operations.
class CSize : public SIZE
{
public:
    ///@{
    /// A size; 0 by 0 unless told.
    constexpr CSize() noexcept : SIZE{0, 0} {}
    constexpr CSize(int width, int height) noexcept : SIZE{width, height} {}
    constexpr CSize(SIZE size) noexcept : SIZE(size) {}
    ///@}

    /// Equality of both numbers.
    friend constexpr bool operator==(CSize const& a, CSize const& b) noexcept { return a.cx == b.cx && a.cy == b.cy; }
};

/// A POINT with operations.
class CPoint : public POINT
{
public:
    ///@{
    /// A point; the origin unless told.
    constexpr CPoint() noexcept : POINT{0, 0} {}
    constexpr CPoint(int px, int py) noexcept : POINT{px, py} {}
    constexpr CPoint(POINT point) noexcept : POINT(point) {}
    ///@}
    /// The point packed into a mouse message's LPARAM.
    constexpr explicit CPoint(LPARAM packed) noexcept : POINT{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}

    /// Moves the point to the right and down.
    constexpr void Offset(int dx, int dy) noexcept
    {
        x += dx;
        y += dy;
    }
    ///@{
    /// Moves the point by a distance, or back by it.
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
    ///@}

    /// Equality of both coordinates.
    friend constexpr bool operator==(CPoint const& a, CPoint const& b) noexcept { return a.x == b.x && a.y == b.y; }
    ///@{
    /// The point at a distance.
    friend constexpr CPoint operator+(CPoint a, CSize b) noexcept { return a += b; }
    friend constexpr CPoint operator-(CPoint a, CSize b) noexcept { return a -= b; }
    ///@}
    /// The distance from b to a.
    friend constexpr CSize operator-(CPoint const& a, CPoint const& b) noexcept { return {a.x - b.x, a.y - b.y}; }
};

/// A RECT with operations.
class CRect : public RECT
{
public:
    ///@{
    /// A rectangle by its edges (left, top, right, bottom) or by a corner and its size; all edges 0 unless told.
    constexpr CRect() noexcept : RECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : RECT{l, t, r, b} {}
    constexpr CRect(RECT const& rect) noexcept : RECT(rect) {}
    constexpr CRect(POINT topLeft, SIZE size) noexcept
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {}
    constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {}
    ///@}

    ///@{
    /// For the functions that take rectangles by pointer.
    constexpr operator RECT*() noexcept { return this; }
    constexpr operator RECT const*() const noexcept { return this; }
    ///@}

    ///@{
    /// The distance of two edges; negative for a rectangle that is not normalized.
    [[nodiscard]] constexpr int Width() const noexcept { return right - left; }
    [[nodiscard]] constexpr int Height() const noexcept { return bottom - top; }
    ///@}
    /// Width and height.
    [[nodiscard]] constexpr CSize Size() const noexcept { return {Width(), Height()}; }
    ///@{
    /// A corner: the first pixel inside, or the first behind the last.
    [[nodiscard]] constexpr CPoint TopLeft() const noexcept { return {left, top}; }
    [[nodiscard]] constexpr CPoint BottomRight() const noexcept { return {right, bottom}; }
    ///@}
    /// The middle, rounded towards 0.
    [[nodiscard]] constexpr CPoint CenterPoint() const noexcept { return {(left + right) / 2, (top + bottom) / 2}; }

    /// True when the rectangle holds no pixel: its width or height is 0 or negative.
    [[nodiscard]] constexpr bool IsRectEmpty() const noexcept { return left >= right || top >= bottom; }
    /// True when all four edges are 0.
    [[nodiscard]] constexpr bool IsRectNull() const noexcept { return *this == CRect(); }
    /// True when the pixel lies inside: left and top edge count, right and bottom edge do not.
    [[nodiscard]] constexpr bool PtInRect(POINT point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    /// Becomes the rectangle with these edges.
    constexpr void SetRect(int l, int t, int r, int b) noexcept { *this = CRect(l, t, r, b); }
    /// Sets all edges to 0.
    constexpr void SetRectEmpty() noexcept { *this = CRect(); }
    ///@{
    /// Moves each edge outwards by so many pixels, or inwards.
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
    ///@}

    ///@{
    /// Moves the rectangle to the right and down.
    constexpr void OffsetRect(int dx, int dy) noexcept
    {
        left += dx;
        right += dx;
        top += dy;
        bottom += dy;
    }
    constexpr void OffsetRect(POINT by) noexcept { OffsetRect(by.x, by.y); }
    ///@}

    ///@{
    /// Moves the rectangle so that its left edge, its top edge, or both lie there.
    constexpr void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
    constexpr void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
    constexpr void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
    ///@}
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
    ///@{
    /// Becomes the common part, or the smallest rectangle that holds both.
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
    ///@}

    /// Equality of all four edges.
    friend constexpr bool operator==(CRect const& a, CRect const& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    ///@{
    /// The common part, and the smallest rectangle that holds both; see IntersectRect and UnionRect.
    friend constexpr CRect operator&(CRect a, RECT const& b) noexcept { return a &= b; }
    friend constexpr CRect operator|(CRect a, RECT const& b) noexcept { return a |= b; }
    ///@}

    ///@{
    /// The rectangle moved to the right and down, or back.
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
    ///@}
};
