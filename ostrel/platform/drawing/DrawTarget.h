/// @file
/// What a device context draws on: pixels in memory today, a page of a document as well later. The context has already
/// resolved origins, selected objects and its clip; a target sees absolute coordinates and a list of rectangles inside
/// which it may draw. Calls are per primitive (a whole text, a whole line), so the virtual call does not matter.
#pragma once

#include <span>
#include <string_view>

#include <ostrel/platform/drawing/DrawingTypes.h>
#include <ostrel/platform/drawing/Font.h>

namespace Ostrel::Platform
{

class Surface;

/// The disjoint rectangles in which a primitive may draw.
using ClipRects = std::span<CRect const>;

/// One line of text in a box. The text is not broken; control characters show as blanks.
struct TextLine
{
    /// Where the text stands in its box.
    enum class Align
    {
        Left,   ///< at the left edge
        Center, ///< in the middle
        Right   ///< at the right edge
    };

    FontId font = 0;           ///< which font
    std::string_view text;     ///< UTF-8
    int left = 0;              ///< of the box
    int right = 0;             ///< of the box
    int baseline = 0;          ///< where the letters stand
    Align align = Align::Left; ///< where the text stands in the box
    bool ellipsis = false;     ///< when wider than the box, end with an ellipsis that fits
    COLORREF color = 0;        ///< of the letters
};

/// How the pixels of a picture meet those below.
struct PictureMode
{
    /// How.
    enum class Mix
    {
        Copy,    ///< instead of them
        Alpha,   ///< by each pixel's opacity times `opacity`
        ColorKey ///< where they have not the colour `key`
    };

    Mix mix = Mix::Copy; ///< how
    BYTE opacity = 255;  ///< of the picture as a whole
    COLORREF key = 0;    ///< the colour that counts as transparent
    bool smooth = false; ///< averages when scaling instead of taking the nearest pixel
};

/// What a device context draws on.
class OSTREL_PLATFORM_API DrawTarget
{
public:
    virtual ~DrawTarget();

    /// Everything that can be drawn on.
    [[nodiscard]] virtual CRect Bounds() const noexcept = 0;
    /// The pixels; null for a target that has none to read.
    [[nodiscard]] virtual Surface* Pixels() noexcept { return nullptr; }
    /// For sizes in points.
    [[nodiscard]] virtual int PixelsPerInch() const noexcept = 0;

    /// Gives the rectangle a colour.
    virtual void Fill(CRect const& rect, COLORREF color, ClipRects clip) = 0;
    /// Lays a colour over the rectangle.
    virtual void Blend(CRect const& rect, COLORREF color, BYTE opacity, ClipRects clip) = 0;
    /// Inverts the colours of the rectangle.
    virtual void Invert(CRect const& rect, ClipRects clip) = 0;
    /// The pixels of the rectangle at which x + y + phase is even.
    virtual void Dots(CRect const& rect, int phase, COLORREF color, ClipRects clip) = 0;
    /// A line of one pixel from the first point up to, not including, the last.
    virtual void Line(CPoint from, CPoint to, COLORREF color, ClipRects clip) = 0;
    /// Where the corners of a polygon lie: on the edges between pixels, or, for one that has an outline of one pixel
    /// through its corners, in the middle of their pixels.
    enum class Corners
    {
        BetweenPixels,
        OnPixels
    };
    /// The inside of a closed polygon (even-odd), without the outline.
    virtual void Polygon(std::span<POINT const> points, Corners corners, COLORREF color, ClipRects clip) = 0;
    /// A picture's rectangle `from` scaled to `to`.
    virtual void Picture(Surface const& source, CRect const& from, CRect const& to, PictureMode const& mode,
                         ClipRects clip) = 0;

    ///@{
    /// Texts are measured on the target they are drawn on; sizes in pixels, as drawn.
    virtual void FontMetrics(FontId font, TEXTMETRIC& metrics) = 0;
    [[nodiscard]] virtual int TextWidth(FontId font, std::string_view text) = 0;
    ///@}
    /// Draws one line of text.
    virtual void Text(TextLine const& line, ClipRects clip) = 0;
};

} // namespace Ostrel::Platform
