/// @file
/// Handles, small structures and constants of the drawing interface, under the names and with the values that callers
/// know. The constants that belong to one class only (system metrics, colours, frame controls) lie beside that class.
#pragma once

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>

using HGDIOBJ = void*;                   ///< a pen, brush, font, bitmap or region
using HDC = struct DeviceContextHandle*; ///< a device context
using HPEN = struct PenHandle*;          ///< a pen
using HBRUSH = struct BrushHandle*;      ///< a brush
using HRGN = struct RegionHandle*;       ///< a region

inline constexpr COLORREF CLR_NONE = 0xFFFFFFFF;    ///< no colour: nothing is masked, or laid behind
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000; ///< what the object says itself
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF; ///< of a pixel that cannot be read

///@{
/// How CDC::DrawText places a text, to be combined.
inline constexpr UINT DT_TOP = 0x0000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_NOCLIP = 0x0100;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
///@}

///@{
/// Whether texts have the background colour behind them.
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;
///@}

///@{
/// The kind of a region, and how CRgn::CombineRgn combines two.
inline constexpr int ERROR = 0;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;
///@}

///@{
/// How pictures are copied, and how they are scaled.
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD DSTINVERT = 0x00550009;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;
///@}

///@{
/// Values of BLENDFUNCTION.
inline constexpr BYTE AC_SRC_OVER = 0;
inline constexpr BYTE AC_SRC_ALPHA = 1;
///@}

/// How AlphaBlend mixes: a constant opacity for the whole picture, and with AC_SRC_ALPHA also each pixel's own.
struct BLENDFUNCTION
{
    BYTE BlendOp;             ///< AC_SRC_OVER
    BYTE BlendFlags;          ///< 0
    BYTE SourceConstantAlpha; ///< 0 to 255 for all pixels
    BYTE AlphaFormat;         ///< AC_SRC_ALPHA, or 0 to leave the pixels' own opacity out
};

///@{
/// From left to right, or from top to bottom.
inline constexpr DWORD GRADIENT_FILL_RECT_H = 0;
inline constexpr DWORD GRADIENT_FILL_RECT_V = 1;
///@}

/// A corner of a gradient; the channels run from 0 to 0xFF00.
struct TRIVERTEX
{
    LONG x;     ///< where
    LONG y;     ///< where
    WORD Red;   ///< 0 to 0xFF00
    WORD Green; ///< 0 to 0xFF00
    WORD Blue;  ///< 0 to 0xFF00
    WORD Alpha; ///< not used
};

/// Two indices into the corners of a gradient.
struct GRADIENT_RECT
{
    UINT UpperLeft;  ///< one corner
    UINT LowerRight; ///< the opposite corner
};

/// Size and layout of a bitmap. bmBits is never set: pixels are read through a device context.
struct BITMAP
{
    LONG bmType;       ///< 0
    LONG bmWidth;      ///< pixels in a row
    LONG bmHeight;     ///< rows
    LONG bmWidthBytes; ///< bytes of a row
    WORD bmPlanes;     ///< 1
    WORD bmBitsPixel;  ///< 32
    void* bmBits;      ///< null
};

///@{
/// What CDC::GetDeviceCaps tells: the size in pixels, the bits of a pixel, the pixels of an inch.
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
///@}
