// Cursor handles: the number of a shape, plus one.
#pragma once

#include <ostrel/platform/window/Display.h>

namespace Ostrel::Platform
{

inline HCURSOR CursorOf(CursorShape shape) noexcept
{
    return reinterpret_cast<HCURSOR>(static_cast<LONG_PTR>(shape) + 1);
}

/// No handle hides the pointer; a number that is no shape shows the arrow.
inline CursorShape ShapeOf(HCURSOR cursor) noexcept
{
    LONG_PTR const number = reinterpret_cast<LONG_PTR>(cursor);
    if (number == 0)
    {
        return CursorShape::Hidden;
    }
    return number <= static_cast<LONG_PTR>(CursorShape::Hidden) ? static_cast<CursorShape>(number - 1)
                                                                : CursorShape::Arrow;
}

} // namespace Ostrel::Platform
