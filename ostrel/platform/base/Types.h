// The scalar types of the framework interface with their widths on this platform. LONG, DWORD, UINT and COLORREF are
// exactly 32 bits wide; WPARAM, LPARAM and LRESULT can carry a pointer. Handles are opaque pointers whose value is a
// 32-bit token with a generation: they are compared and passed on, never dereferenced.
#pragma once

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using INT = std::int32_t;
using LONG = std::int32_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using BOOL = int;
using COLORREF = DWORD; ///< 0x00BBGGRR
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using LPCSTR = char const*;
using LPSTR = char*;
using LPCTSTR = char const*;

using __int64 = long long; // NOLINT(bugprone-reserved-identifier): the name callers know

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

using HWND = struct WindowHandle*;
using HFONT = struct FontHandle*;
using HBITMAP = struct BitmapHandle*;
using HCURSOR = struct CursorHandle*;
using HINSTANCE = struct InstanceHandle*;

/// A colour from its channels, 0 to 255 each.
constexpr COLORREF RGB(int red, int green, int blue) noexcept
{
    return static_cast<COLORREF>(red & 0xFF) | (static_cast<COLORREF>(green & 0xFF) << 8U) |
           (static_cast<COLORREF>(blue & 0xFF) << 16U);
}
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

constexpr WORD LOWORD(DWORD_PTR value) noexcept
{
    return static_cast<WORD>(value);
}
constexpr WORD HIWORD(DWORD_PTR value) noexcept
{
    return static_cast<WORD>(value >> 16U);
}
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
/// The signed coordinates of a mouse message's LPARAM.
constexpr int GET_X_LPARAM(LPARAM value) noexcept
{
    return static_cast<std::int16_t>(LOWORD(static_cast<DWORD_PTR>(value)));
}
constexpr int GET_Y_LPARAM(LPARAM value) noexcept
{
    return static_cast<std::int16_t>(HIWORD(static_cast<DWORD_PTR>(value)));
}
