// Handles, small structures and constants of the drawing interface, under the names and with the values that callers
// know. The constants that belong to one class only (system metrics, colours, frame controls) lie beside that class.
#pragma once

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>

using HGDIOBJ = void*;
using HDC = struct DeviceContextHandle*;
using HPEN = struct PenHandle*;
using HBRUSH = struct BrushHandle*;
using HRGN = struct RegionHandle*;

inline constexpr COLORREF CLR_NONE = 0xFFFFFFFF;
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000;
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

// DrawText
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

// Background modes
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// Regions
inline constexpr int ERROR = 0;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;

// Copying pictures
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD DSTINVERT = 0x00550009;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;

inline constexpr BYTE AC_SRC_OVER = 0;
inline constexpr BYTE AC_SRC_ALPHA = 1;

/// How AlphaBlend mixes: a constant opacity for the whole picture, and with AC_SRC_ALPHA also each pixel's own.
struct BLENDFUNCTION
{
    BYTE BlendOp;
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat;
};

inline constexpr DWORD GRADIENT_FILL_RECT_H = 0;
inline constexpr DWORD GRADIENT_FILL_RECT_V = 1;

/// A corner of a gradient; the channels run from 0 to 0xFF00.
struct TRIVERTEX
{
    LONG x;
    LONG y;
    WORD Red;
    WORD Green;
    WORD Blue;
    WORD Alpha;
};

/// Two indices into the corners of a gradient.
struct GRADIENT_RECT
{
    UINT UpperLeft;
    UINT LowerRight;
};

/// Size and layout of a bitmap. bmBits is never set: pixels are read through a device context.
struct BITMAP
{
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits;
};

// CDC::GetDeviceCaps
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
