/// @file
/// What the user has set for the whole desktop and no window function tells. No desktop service is asked: the values
/// are those that a program, or a test, has set in this process, at first the usual ones.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

inline constexpr UINT SPI_GETWHEELSCROLLLINES = 0x0068; ///< value: UINT*, lines a notch, or WHEEL_PAGESCROLL
inline constexpr UINT SPI_SETWHEELSCROLLLINES = 0x0069; ///< parameter: the same

/// Reads or changes a setting (SPI_*): `parameter` and `value` as the action says. Any thread. FALSE for any other
/// action, and for a null value where one is to be written.
OSTREL_PLATFORM_API BOOL SystemParametersInfo(UINT action, UINT parameter, void* value, UINT flags);
