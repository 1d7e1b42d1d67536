/// @file
/// A point in time as the framework's callers pass it: 100-nanosecond ticks since 1601-01-01, in two halves.
#pragma once

#include <ostrel/platform/base/Types.h>

/// Ticks of 100 nanoseconds since 1601-01-01 as a number of 64 bits in two halves.
struct FILETIME
{
    DWORD dwLowDateTime;  ///< the low 32 bits
    DWORD dwHighDateTime; ///< the high 32 bits
};
