/// @file
/// Translucent colours and pictures: the one formula by which every overlay is blended, and the blending operations of
/// the device context under the names that painters call.
#pragma once

#include <cstddef>
#include <string>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/drawing/DeviceContext.h>

class CImageList;

namespace Ostrel::GUI
{

/// Blending of colours and pictures.
class OSTREL_GUI_API CMsImg32
{
public:
    CMsImg32() = delete;

    /// Whether the blending operations exist. Always true here.
    static bool IsAvailable() noexcept { return true; }

    /// Lays a colour over another: per channel (base * (255 - opacity) + color * opacity) / 255, truncated. Colours are
    /// 0x00BBGGRR; the top byte of the result is 0.
    static constexpr unsigned long AlphaBlend(unsigned long base, unsigned long color, unsigned char opacity) noexcept
    {
        unsigned const rest = 255U - opacity;
        unsigned long result = 0;
        for (int shift = 0; shift < 24; shift += 8)
        {
            auto const from = static_cast<unsigned>(base >> shift) & 0xFFU;
            auto const to = static_cast<unsigned>(color >> shift) & 0xFFU;
            result |= static_cast<unsigned long>((from * rest + to * opacity) / 255U) << shift;
        }
        return result;
    }

    /// Lays a colour over a rectangle of the device context. Returns whether it could.
    static bool AlphaBlend(CDC& dc, CRect const& rect, unsigned long color, unsigned char opacity);

    ///@{
    /// Fills an image list from a strip of square images, as high as the strip. With `mask` the pixels of the mask
    /// colour become transparent. The list is emptied first; false when the strip cannot be had or is narrower than
    /// high.
    static bool Load32BitImage(CImageList& imageList, CBitmap& strip, bool mask, unsigned long maskColor);
    /// The same from a resource of the program. Programs here carry none: the list is emptied and the answer is false.
    static bool Load32BitImage(CImageList& imageList, unsigned int resourceId, bool mask, unsigned long maskColor);
    static bool Load32BitImage(CImageList& imageList, std::string const& pngPath, bool mask, unsigned long maskColor);
    ///@}

    ///@{
    /// The device context's own operation; 0 when there is no context.
    static int GradientFill(CDC* dc, TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects,
                            unsigned rectCount, DWORD mode);
    static int AlphaBlend(CDC* dc, int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                          int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
    static int TransparentBlt(CDC* dc, int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                              int sourceWidth, int sourceHeight, COLORREF key);
    ///@}

    ///@{
    /// The same by handles; 0 for a handle that no context has.
    static int GradientFill(HDC dc, TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects,
                            unsigned rectCount, DWORD mode);
    static int AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                          int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
    static int TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                              int sourceWidth, int sourceHeight, COLORREF key);
    ///@}

    ///@{
    /// No context: 0.
    static int GradientFill(std::nullptr_t /*dc*/, TRIVERTEX const* /*corners*/, unsigned /*cornerCount*/,
                            GRADIENT_RECT const* /*rects*/, unsigned /*rectCount*/, DWORD /*mode*/) noexcept
    {
        return 0;
    }
    template <class Source>
    static int AlphaBlend(std::nullptr_t /*dc*/, int /*x*/, int /*y*/, int /*width*/, int /*height*/, Source /*source*/,
                          int /*sourceX*/, int /*sourceY*/, int /*sourceWidth*/, int /*sourceHeight*/,
                          BLENDFUNCTION /*blend*/) noexcept
    {
        return 0;
    }
    template <class Source>
    static int TransparentBlt(std::nullptr_t /*dc*/, int /*x*/, int /*y*/, int /*width*/, int /*height*/,
                              Source /*source*/, int /*sourceX*/, int /*sourceY*/, int /*sourceWidth*/,
                              int /*sourceHeight*/, COLORREF /*key*/) noexcept
    {
        return 0;
    }
    ///@}
};

} // namespace Ostrel::GUI
