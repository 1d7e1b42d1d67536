#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/platform/drawing/ImageList.h>

namespace Ostrel::GUI
{

bool CMsImg32::AlphaBlend(CDC& dc, CRect const& rect, unsigned long color, unsigned char opacity)
{
    dc.BlendRect(rect, static_cast<COLORREF>(color), opacity);
    return true;
}

bool CMsImg32::Load32BitImage(CImageList& imageList, CBitmap& strip, bool mask, unsigned long maskColor)
{
    imageList.DeleteImageList();
    CSize const size = strip.GetSize();
    if (size.cy <= 0 || size.cx < size.cy)
    {
        return false;
    }
    UINT const flags = ILC_COLOR32 | (mask ? ILC_MASK : 0U);
    if (!imageList.Create(size.cy, size.cy, flags, size.cx / size.cy, 1))
    {
        return false;
    }
    return imageList.Add(&strip, mask ? static_cast<COLORREF>(maskColor) : CLR_NONE) >= 0;
}

bool CMsImg32::Load32BitImage(CImageList& imageList, unsigned int /*resourceId*/, bool /*mask*/,
                              unsigned long /*maskColor*/)
{
    imageList.DeleteImageList();
    return false;
}

bool CMsImg32::Load32BitImage(CImageList& imageList, std::string const& pngPath, bool mask, unsigned long maskColor)
{
    CBitmap strip;
    strip.LoadPng(pngPath);
    return Load32BitImage(imageList, strip, mask, maskColor);
}

int CMsImg32::GradientFill(CDC* dc, TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects,
                           unsigned rectCount, DWORD mode)
{
    return dc != nullptr ? dc->GradientFill(corners, cornerCount, rects, rectCount, mode) : 0;
}

int CMsImg32::AlphaBlend(CDC* dc, int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, BLENDFUNCTION blend)
{
    return dc != nullptr
               ? dc->AlphaBlend(x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, blend)
               : 0;
}

int CMsImg32::TransparentBlt(CDC* dc, int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                             int sourceWidth, int sourceHeight, COLORREF key)
{
    return dc != nullptr
               ? dc->TransparentBlt(x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, key)
               : 0;
}

int CMsImg32::GradientFill(HDC dc, TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects,
                           unsigned rectCount, DWORD mode)
{
    return GradientFill(CDC::FromHandle(dc), corners, cornerCount, rects, rectCount, mode);
}

int CMsImg32::AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, BLENDFUNCTION blend)
{
    return AlphaBlend(CDC::FromHandle(dc), x, y, width, height, CDC::FromHandle(source), sourceX, sourceY, sourceWidth,
                      sourceHeight, blend);
}

int CMsImg32::TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                             int sourceWidth, int sourceHeight, COLORREF key)
{
    return TransparentBlt(CDC::FromHandle(dc), x, y, width, height, CDC::FromHandle(source), sourceX, sourceY,
                          sourceWidth, sourceHeight, key);
}

} // namespace Ostrel::GUI
