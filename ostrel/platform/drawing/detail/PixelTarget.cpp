#include <algorithm>
#include <cmath>

#include <cairo/cairo.h>

#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/detail/PixelTarget.h>
#include <ostrel/platform/drawing/text/TextEngine.h>

namespace Ostrel::Platform
{

namespace
{

constexpr std::uint32_t kColorBits = 0x00FFFFFFU;
constexpr int kDesignPixelsPerInch = 96;

void ForEachVisible(CRect const& rect, ClipRects clip, auto&& draw)
{
    for (CRect const& allowed : clip)
    {
        CRect const visible = rect & allowed;
        if (!visible.IsRectEmpty())
        {
            draw(visible);
        }
    }
}

CRect BoundsOf(ClipRects clip) noexcept
{
    CRect bounds;
    for (CRect const& rect : clip)
    {
        bounds |= rect;
    }
    return bounds;
}

// Which source pixel the centre of a scaled pixel falls on. A line of the picture: `scaled` pixels from `size`.
int NearestSource(int position, int scaled, int size) noexcept
{
    return static_cast<int>((2 * static_cast<std::int64_t>(position) + 1) * size /
                            (2 * static_cast<std::int64_t>(scaled)));
}

std::uint32_t MixPixel(std::uint32_t below, std::uint32_t source, PictureMode const& mode, std::uint32_t key) noexcept
{
    switch (mode.mix)
    {
    case PictureMode::Mix::Alpha:
        return Blend::OverPixel(below, source, mode.opacity);
    case PictureMode::Mix::ColorKey:
        return (source & kColorBits) == key ? below : source;
    case PictureMode::Mix::Copy:
        break;
    }
    return source;
}

// The picture scaled with averaging.
Surface SmoothlyScaled(Surface const& source, CRect const& from, CSize size)
{
    Surface scaled(size.cx, size.cy);
    auto const view = [](Surface const& surface, int x, int y, int width, int height)
    {
        auto* const pixels = const_cast<std::uint32_t*>(surface.Row(y)) + x;
        return cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels), CAIRO_FORMAT_ARGB32, width,
                                                   height, surface.StrideInPixels() * 4);
    };
    cairo_surface_t* const target = view(scaled, 0, 0, size.cx, size.cy);
    cairo_surface_t* const picture = view(source, from.left, from.top, from.Width(), from.Height());
    cairo_t* const context = cairo_create(target);
    cairo_scale(context, static_cast<double>(size.cx) / from.Width(), static_cast<double>(size.cy) / from.Height());
    cairo_set_source_surface(context, picture, 0, 0);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_GOOD);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
    cairo_destroy(context);
    cairo_surface_destroy(picture);
    cairo_surface_flush(target);
    cairo_surface_destroy(target);
    return scaled;
}

// One glyph inside one rectangle. The fast loop writes whole blocks of four, so it takes masks that lie inside whole;
// what it rewrites behind the rectangle keeps its value.
void DrawGlyph(Surface& surface, Glyph const& glyph, int x, int y, std::uint32_t pixel, CRect const& allowed)
{
    CRect const place(CPoint(x + glyph.left, y + glyph.top), CSize(glyph.width, glyph.height));
    CRect const visible = place & allowed;
    if (visible.IsRectEmpty())
    {
        return;
    }
    Blend::Area const area{surface.Row(visible.top) + visible.left, surface.StrideInPixels(), visible.Width(),
                           visible.Height()};
    int const skippedX = visible.left - place.left;
    std::ptrdiff_t const skippedY = visible.top - place.top;
    if (glyph.colored != nullptr)
    {
        Blend::Over(area, glyph.colored + skippedY * glyph.width + skippedX, glyph.width, 255);
    }
    else if (visible == place)
    {
        Blend::MaskPadded(area, glyph.mask, glyph.maskStride, pixel);
    }
    else
    {
        Blend::MaskPlain(area, glyph.mask + skippedY * glyph.maskStride + skippedX, glyph.maskStride, pixel);
    }
}

int LineStart(TextLine const& line, int width) noexcept
{
    switch (line.align)
    {
    case TextLine::Align::Right:
        return line.right - width;
    case TextLine::Align::Center:
        return line.left + (line.right - line.left - width) / 2;
    case TextLine::Align::Left:
        break;
    }
    return line.left;
}

} // namespace

Blend::Area PixelTarget::AreaOf(CRect const& rect) noexcept
{
    return {m_surface->Row(rect.top) + rect.left, m_surface->StrideInPixels(), rect.Width(), rect.Height()};
}

int PixelTarget::PixelsPerInch() const noexcept
{
    return Scaled(kDesignPixelsPerInch);
}

void PixelTarget::Fill(CRect const& rect, COLORREF color, ClipRects clip)
{
    std::uint32_t const pixel = PixelFromColor(color);
    ForEachVisible(rect, clip, [&](CRect const& visible) { Blend::Fill(AreaOf(visible), pixel); });
}

void PixelTarget::Blend(CRect const& rect, COLORREF color, BYTE opacity, ClipRects clip)
{
    std::uint32_t const pixel = PixelFromColor(color);
    ForEachVisible(rect, clip, [&](CRect const& visible) { Blend::Overlay(AreaOf(visible), pixel, opacity); });
}

void PixelTarget::Invert(CRect const& rect, ClipRects clip)
{
    ForEachVisible(rect, clip,
                   [&](CRect const& visible)
                   {
                       for (int y = visible.top; y < visible.bottom; ++y)
                       {
                           std::uint32_t* const row = m_surface->Row(y);
                           std::transform(row + visible.left, row + visible.right, row + visible.left,
                                          [](std::uint32_t pixel) { return pixel ^ kColorBits; });
                       }
                   });
}

void PixelTarget::Dots(CRect const& rect, int phase, COLORREF color, ClipRects clip)
{
    std::uint32_t const pixel = PixelFromColor(color);
    ForEachVisible(rect, clip,
                   [&](CRect const& visible)
                   {
                       for (int y = visible.top; y < visible.bottom; ++y)
                       {
                           std::uint32_t* const row = m_surface->Row(y);
                           for (int x = visible.left + ((visible.left + y + phase) & 1); x < visible.right; x += 2)
                           {
                               row[x] = pixel;
                           }
                       }
                   });
}

// The other coordinate follows from the one along the longer side by exact arithmetic, so that a clipped line has the
// same pixels as a whole one, and the walk never leaves the clip.
void PixelTarget::Line(CPoint from, CPoint to, COLORREF color, ClipRects clip)
{
    bool const alongX = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
    std::int64_t const length = alongX ? to.x - from.x : to.y - from.y;
    std::int64_t const rise = alongX ? to.y - from.y : to.x - from.x;
    if (length == 0)
    {
        return;
    }
    std::int64_t const steps = std::abs(length);
    int const start = alongX ? from.x : from.y;
    std::uint32_t const pixel = PixelFromColor(color);
    for (CRect const& allowed : clip)
    {
        int const low = alongX ? allowed.left : allowed.top;
        int const high = alongX ? allowed.right : allowed.bottom;
        std::int64_t const first = std::max<std::int64_t>(0, length > 0 ? low - start : start - high + 1);
        std::int64_t const last = std::min<std::int64_t>(steps, length > 0 ? high - start : start - low + 1);
        for (std::int64_t step = first; step < last; ++step)
        {
            int const along = start + static_cast<int>(length > 0 ? step : -step);
            std::int64_t const doubled = 2 * std::abs(rise) * step + steps; // rounds half up
            int const across =
                (alongX ? from.y : from.x) + static_cast<int>(doubled / (2 * steps)) * (rise < 0 ? -1 : 1);
            CPoint const at = alongX ? CPoint(along, across) : CPoint(across, along);
            if (allowed.PtInRect(at))
            {
                m_surface->Row(at.y)[at.x] = pixel;
            }
        }
    }
}

void PixelTarget::Polygon(std::span<POINT const> points, Corners corners, COLORREF color, ClipRects clip)
{
    if (points.empty())
    {
        return;
    }
    double const middle = corners == Corners::OnPixels ? 0 : 0.5; // of a pixel, from its number
    CRect const bounds = BoundsOf(clip);
    auto const [highest, lowest] = std::ranges::minmax(points, {}, &POINT::y);
    for (int y = std::max(bounds.top, highest.y); y < std::min(bounds.bottom, lowest.y); ++y)
    {
        double const center = y + middle;
        m_crossings.clear();
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            POINT const a = points[i];
            POINT const b = points[(i + 1) % points.size()];
            if ((a.y < center) != (b.y < center))
            {
                double const part = (center - a.y) / (static_cast<double>(b.y) - a.y);
                m_crossings.push_back(a.x + part * (static_cast<double>(b.x) - a.x));
            }
        }
        std::ranges::sort(m_crossings);
        for (std::size_t i = 0; i + 1 < m_crossings.size(); i += 2)
        {
            Fill(CRect(static_cast<int>(std::ceil(m_crossings[i] - middle)), y,
                       static_cast<int>(std::ceil(m_crossings[i + 1] - middle)), y + 1),
                 color, clip);
        }
    }
}

void PixelTarget::PictureRows(Surface const& source, CRect const& from, CRect const& to, PictureMode const& mode,
                              CRect const& visible)
{
    std::uint32_t const key = PixelFromColor(mode.key) & kColorBits;
    bool const unscaled = from.Size() == to.Size();
    for (int y = visible.top; y < visible.bottom; ++y)
    {
        std::uint32_t const* const sourceRow =
            source.Row(from.top + NearestSource(y - to.top, to.Height(), from.Height())) + from.left;
        std::uint32_t* const row = m_surface->Row(y);
        if (unscaled && mode.mix == PictureMode::Mix::Copy)
        {
            std::copy_n(sourceRow + visible.left - to.left, visible.Width(), row + visible.left);
            continue;
        }
        for (int x = visible.left; x < visible.right; ++x)
        {
            int const sourceX = unscaled ? x - to.left : NearestSource(x - to.left, to.Width(), from.Width());
            row[x] = MixPixel(row[x], sourceRow[sourceX], mode, key);
        }
    }
}

void PixelTarget::Picture(Surface const& source, CRect const& from, CRect const& to, PictureMode const& mode,
                          ClipRects clip)
{
    bool const scales = from.Size() != to.Size();
    if (scales && mode.smooth && std::max(to.Width(), to.Height()) <= Surface::kMaximumSize / 2)
    {
        Surface const scaled = SmoothlyScaled(source, from, to.Size());
        ForEachVisible(to, clip,
                       [&](CRect const& visible) { PictureRows(scaled, scaled.Bounds(), to, mode, visible); });
        return;
    }
    if (&source == m_surface && !(from & to).IsRectEmpty())
    {
        Surface copy(from.Width(), from.Height());
        copy.CopyFrom(source, from, CPoint(0, 0));
        ForEachVisible(to, clip, [&](CRect const& visible) { PictureRows(copy, copy.Bounds(), to, mode, visible); });
        return;
    }
    ForEachVisible(to, clip, [&](CRect const& visible) { PictureRows(source, from, to, mode, visible); });
}

void PixelTarget::FontMetrics(FontId font, TEXTMETRIC& metrics)
{
    metrics = TextEngine::OfThread().Font(font).Metrics();
}

int PixelTarget::TextWidth(FontId font, std::string_view text)
{
    return TextEngine::OfThread().Layout(font, text, TextEngine::kUnlimited).width;
}

void PixelTarget::Text(TextLine const& line, ClipRects clip)
{
    TextEngine& engine = TextEngine::OfThread();
    int const maximumWidth = line.ellipsis ? std::max(0, line.right - line.left) : TextEngine::kUnlimited;
    LaidOutLine const laidOut = engine.Layout(line.font, line.text, maximumWidth);
    int const start = LineStart(line, laidOut.width);
    std::uint32_t const pixel = PixelFromColor(line.color);
    for (CRect const& allowed : clip)
    {
        for (PlacedGlyph const& placed : laidOut.glyphs)
        {
            DrawGlyph(*m_surface, *placed.glyph, start + placed.x, line.baseline + placed.y, pixel, allowed);
        }
    }
    TextFont const& font = engine.Font(line.font);
    auto const rule = [&](int top)
    { Fill(CRect(start, top, start + laidOut.width, top + font.LineThickness()), line.color, clip); };
    if (font.IsUnderlined())
    {
        rule(line.baseline + font.UnderlineTop());
    }
    if (font.IsStruckOut())
    {
        rule(line.baseline + font.StrikeOutTop());
    }
}

} // namespace Ostrel::Platform
