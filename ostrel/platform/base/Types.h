/// @file
/// The scalar types of the framework interface with their widths on this platform. LONG, DWORD, UINT and COLORREF are
/// exactly 32 bits wide; WPARAM, LPARAM and LRESULT can carry a pointer. Handles are opaque pointers whose value is a
/// 32-bit token with a generation: they are compared and passed on, never dereferenced.
#pragma once

#include <cstdint>

using BYTE = std::uint8_t;            ///< 8 bits
using WORD = std::uint16_t;           ///< 16 bits
using DWORD = std::uint32_t;          ///< 32 bits
using UINT = std::uint32_t;           ///< 32 bits
using INT = std::int32_t;             ///< 32 bits with a sign
using LONG = std::int32_t;            ///< 32 bits with a sign
using LONGLONG = long long;           ///< 64 bits with a sign
using ULONGLONG = unsigned long long; ///< 64 bits
using BOOL = int;                     ///< FALSE, or anything else for true
using COLORREF = DWORD;               ///< 0x00BBGGRR
using WPARAM = std::uintptr_t;        ///< the first parameter of a message
using LPARAM = std::intptr_t;         ///< the second parameter of a message
using LRESULT = std::intptr_t;        ///< the result of a message
using UINT_PTR = std::uintptr_t;      ///< as wide as a pointer
using LONG_PTR = std::intptr_t;       ///< as wide as a pointer, with a sign
using DWORD_PTR = std::uintptr_t;     ///< as wide as a pointer
using LPCSTR = char const*;           ///< a text with a terminating zero byte
using LPSTR = char*;                  ///< room for a text with its terminating zero byte
using LPCTSTR = char const*;          ///< a text with a terminating zero byte

/// 64 bits with a sign.
using __int64 = long long; // NOLINT(bugprone-reserved-identifier): the name callers know

///@{
/// The values of a BOOL.
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
///@}

using HWND = struct WindowHandle*;        ///< a window; null for none
using HFONT = struct FontHandle*;         ///< a font
using HBITMAP = struct BitmapHandle*;     ///< a picture
using HCURSOR = struct CursorHandle*;     ///< the shape of the mouse pointer
using HINSTANCE = struct InstanceHandle*; ///< a program; always null on this platform

/// A colour from its channels, 0 to 255 each.
constexpr COLORREF RGB(int red, int green, int blue) noexcept
{
    return static_cast<COLORREF>(red & 0xFF) | (static_cast<COLORREF>(green & 0xFF) << 8U) |
           (static_cast<COLORREF>(blue & 0xFF) << 16U);
}
///@{
/// A channel of a colour, 0 to 255.
constexpr BYTE GetRValue(COLORREF color) noexcept
{
    return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color) noexcept
{
    return static_cast<BYTE>(color >> 8U);
}
constexpr BYTE GetBValue(COLORREF color) noexcept
{
    return static_cast<BYTE>(color >> 16U);
}
///@}

///@{
/// The low and the high 16 bits of a number of 32.
constexpr WORD LOWORD(DWORD_PTR value) noexcept
{
    return static_cast<WORD>(value);
}
constexpr WORD HIWORD(DWORD_PTR value) noexcept
{
    return static_cast<WORD>(value >> 16U);
}
///@}

///@{
/// Two numbers of 16 bits in one: the low and the high half.
constexpr LONG MAKELONG(int low, int high) noexcept
{
    return static_cast<LONG>(static_cast<DWORD>(static_cast<WORD>(low)) |
                             (static_cast<DWORD>(static_cast<WORD>(high)) << 16U));
}
constexpr WPARAM MAKEWPARAM(int low, int high) noexcept
{
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr LPARAM MAKELPARAM(int low, int high) noexcept
{
    return static_cast<DWORD>(MAKELONG(low, high));
}
///@}

///@{
/// The signed coordinates of a mouse message's LPARAM.
constexpr int GET_X_LPARAM(LPARAM value) noexcept
{
    return static_cast<std::int16_t>(LOWORD(static_cast<DWORD_PTR>(value)));
}
constexpr int GET_Y_LPARAM(LPARAM value) noexcept
{
    return static_cast<std::int16_t>(HIWORD(static_cast<DWORD_PTR>(value)));
}
///@}
