// What the drawing tests share: a surface with a context on it, and pixels as text.
#pragma once

#include <algorithm>
#include <string>

#include <ostrel/platform/drawing/DeviceContext.h>

inline constexpr COLORREF kWhite = RGB(255, 255, 255);
inline constexpr COLORREF kBlack = RGB(0, 0, 0);
inline constexpr COLORREF kRed = RGB(255, 0, 0);

/// How often the program has called operator new.
long CountAllocations() noexcept;

/// A white surface and a context that draws black on it without a text background.
class Canvas
{
public:
    Canvas(int width, int height) : surface(width, height)
    {
        dc.AttachSurface(surface);
        dc.FillSolidRect(surface.Bounds(), kWhite);
        dc.SetBkMode(TRANSPARENT);
    }

    /// Rows of '.' for white and '#' for everything else.
    [[nodiscard]] std::string Picture(CRect const& area) const
    {
        std::string picture;
        for (int y = area.top; y < area.bottom; ++y)
        {
            for (int x = area.left; x < area.right; ++x)
            {
                picture += surface.ColorAt(x, y) == kWhite ? '.' : '#';
            }
            picture += '\n';
        }
        return picture;
    }

    /// The smallest rectangle with everything that is not white.
    [[nodiscard]] CRect Ink() const
    {
        CRect ink;
        for (int y = 0; y < surface.Height(); ++y)
        {
            for (int x = 0; x < surface.Width(); ++x)
            {
                if (surface.ColorAt(x, y) != kWhite)
                {
                    ink |= CRect(x, y, x + 1, y + 1);
                }
            }
        }
        return ink;
    }

    [[nodiscard]] friend bool SamePixels(Canvas const& a, Canvas const& b)
    {
        bool same = a.surface.Bounds() == b.surface.Bounds();
        for (int y = 0; same && y < a.surface.Height(); ++y)
        {
            same = std::equal(a.surface.Row(y), a.surface.Row(y) + a.surface.Width(), b.surface.Row(y));
        }
        return same;
    }

    Ostrel::Platform::Surface surface;
    CDC dc;
};
