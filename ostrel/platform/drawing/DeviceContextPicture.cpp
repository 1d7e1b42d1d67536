// Pixels and pictures of a device context: copies, scaled and mixed copies, gradients.
#include <algorithm>

#include <ostrel/platform/drawing/DeviceContext.h>

using Ostrel::Platform::PictureMode;
using Ostrel::Platform::Surface;

namespace
{

constexpr int kFarthest = 1 << 28;

// Empty for sizes below 1 and for places that no surface has.
CRect PlaceOf(int x, int y, int width, int height) noexcept
{
    bool const isNear = std::max({std::abs(x / 2), std::abs(y / 2), width / 2, height / 2}) < kFarthest / 2;
    return width > 0 && height > 0 && isNear ? CRect(CPoint(x, y), CSize(width, height)) : CRect();
}

// Takes off the part of the source that does not exist, and what it would have covered of the target.
void CutToSource(CRect& to, CRect& from, CRect const& bounds) noexcept
{
    CRect const inside = from & bounds;
    auto const scaled = [](int part, int size, int whole)
    { return static_cast<int>(static_cast<std::int64_t>(part) * size / whole); };
    CRect const cut(to.left + scaled(inside.left - from.left, to.Width(), from.Width()),
                    to.top + scaled(inside.top - from.top, to.Height(), from.Height()),
                    to.right - scaled(from.right - inside.right, to.Width(), from.Width()),
                    to.bottom - scaled(from.bottom - inside.bottom, to.Height(), from.Height()));
    to = cut;
    from = inside;
}

COLORREF ColorBetween(TRIVERTEX const& a, TRIVERTEX const& b, int part, int whole) noexcept
{
    auto const channel = [&](WORD first, WORD second)
    { return ((first * (whole - part) + second * part) / whole) >> 8; };
    return RGB(channel(a.Red, b.Red), channel(a.Green, b.Green), channel(a.Blue, b.Blue));
}

} // namespace

COLORREF CDC::SetPixel(int x, int y, COLORREF color)
{
    CPoint const at = ToTarget(CPoint(x, y));
    if (!CanDraw() || !m_state.clip.Contains(at))
    {
        return CLR_INVALID;
    }
    m_target->Fill(CRect(at, CSize(1, 1)), color, Clip());
    return color;
}

COLORREF CDC::GetPixel(int x, int y) const noexcept
{
    CPoint const at = ToTarget(CPoint(x, y));
    Surface const* const pixels = m_target != nullptr ? m_target->Pixels() : nullptr;
    return pixels != nullptr && m_state.clip.Contains(at) ? pixels->ColorAt(at.x, at.y) : CLR_INVALID;
}

bool CDC::DrawPicture(CRect const& to, CDC* source, CRect const& from, PictureMode const& mode)
{
    Surface const* const pixels =
        source != nullptr && source->m_target != nullptr ? source->m_target->Pixels() : nullptr;
    if (pixels == nullptr || m_target == nullptr || to.IsRectEmpty() || from.IsRectEmpty())
    {
        return false;
    }
    CRect sourceRect = source->ToTarget(from);
    CRect targetRect = ToTarget(to);
    if ((sourceRect & pixels->Bounds()).IsRectEmpty())
    {
        return true;
    }
    CutToSource(targetRect, sourceRect, pixels->Bounds());
    if (CanDraw() && !targetRect.IsRectEmpty())
    {
        m_target->Picture(*pixels, sourceRect, targetRect, mode, Clip());
    }
    return true;
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD operation)
{
    CRect const place = PlaceOf(x, y, width, height);
    if (operation == DSTINVERT)
    {
        InvertRect(&place);
    }
    else if (operation == PATCOPY && !m_state.brushHollow)
    {
        FillSolidRect(&place, m_state.brushColor);
    }
    return operation == DSTINVERT || operation == PATCOPY ? TRUE : FALSE;
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD operation)
{
    if (operation != SRCCOPY)
    {
        return PatBlt(x, y, width, height, operation);
    }
    return DrawPicture(PlaceOf(x, y, width, height), source, PlaceOf(sourceX, sourceY, width, height), PictureMode{})
               ? TRUE
               : FALSE;
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                     int sourceHeight, DWORD operation)
{
    PictureMode const mode{.smooth = m_state.stretchMode == HALFTONE};
    return operation == SRCCOPY && DrawPicture(PlaceOf(x, y, width, height), source,
                                               PlaceOf(sourceX, sourceY, sourceWidth, sourceHeight), mode)
               ? TRUE
               : FALSE;
}

BOOL CDC::TransparentBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                         int sourceHeight, COLORREF key)
{
    PictureMode const mode{.mix = PictureMode::Mix::ColorKey, .key = key};
    return DrawPicture(PlaceOf(x, y, width, height), source, PlaceOf(sourceX, sourceY, sourceWidth, sourceHeight), mode)
               ? TRUE
               : FALSE;
}

// Without AC_SRC_ALPHA the pixels' own opacity counts for nothing; device contexts keep it at opaque anyway.
BOOL CDC::AlphaBlend(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                     int sourceHeight, BLENDFUNCTION blend)
{
    PictureMode const mode{.mix = PictureMode::Mix::Alpha, .opacity = blend.SourceConstantAlpha};
    return DrawPicture(PlaceOf(x, y, width, height), source, PlaceOf(sourceX, sourceY, sourceWidth, sourceHeight), mode)
               ? TRUE
               : FALSE;
}

BOOL CDC::GradientFill(TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects, unsigned rectCount,
                       DWORD mode)
{
    if (corners == nullptr || rects == nullptr || mode > GRADIENT_FILL_RECT_V)
    {
        return FALSE;
    }
    bool const isHorizontal = mode == GRADIENT_FILL_RECT_H;
    for (unsigned i = 0; i < rectCount; ++i)
    {
        if (rects[i].UpperLeft >= cornerCount || rects[i].LowerRight >= cornerCount)
        {
            return FALSE;
        }
        TRIVERTEX const& first = corners[rects[i].UpperLeft];
        TRIVERTEX const& last = corners[rects[i].LowerRight];
        CRect box(first.x, first.y, last.x, last.y);
        box.NormalizeRect();
        CRect touched;
        GetClipBox(&touched);
        touched &= box;
        int const begin = isHorizontal ? touched.left : touched.top;
        int const end = isHorizontal ? touched.right : touched.bottom;
        int const start = isHorizontal ? box.left : box.top;
        int const whole = isHorizontal ? box.Width() : box.Height();
        for (int at = begin; at < end; ++at)
        {
            COLORREF const color = ColorBetween(first, last, at - start, whole);
            FillSolidRect(
                isHorizontal ? CRect(at, box.top, at + 1, box.bottom) : CRect(box.left, at, box.right, at + 1), color);
        }
    }
    return TRUE;
}

void CDC::DrawSurface(Surface const& source, CRect const& from, CPoint to, PictureMode const& mode)
{
    CRect const inside = from & source.Bounds();
    if (CanDraw() && !inside.IsRectEmpty())
    {
        CRect const place(ToTarget(CPoint(to.x + inside.left - from.left, to.y + inside.top - from.top)),
                          inside.Size());
        m_target->Picture(source, inside, place, mode, Clip());
    }
}
