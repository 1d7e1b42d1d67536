// Marks what a shared library shows to its users; everything else is hidden. One macro per library, so that a
// declaration tells which library defines it.
#pragma once

#if defined(__GNUC__)
#define OSTREL_EXPORT __attribute__((visibility("default")))
#else
#define OSTREL_EXPORT
#endif

#define OSTREL_BASE_API OSTREL_EXPORT
#define OSTREL_COMMON_API OSTREL_EXPORT
#define OSTREL_PLATFORM_API OSTREL_EXPORT
#define OSTREL_GUI_API OSTREL_EXPORT
#define OSTREL_TESTING_API OSTREL_EXPORT
