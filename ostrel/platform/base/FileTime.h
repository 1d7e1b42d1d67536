// A point in time as the framework's callers pass it: 100-nanosecond ticks since 1601-01-01, in two halves.
#pragma once

#include <ostrel/platform/base/Types.h>

struct FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
