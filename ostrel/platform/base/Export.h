/// @file
/// Marks what a shared library shows to its users; everything else is hidden. One macro per library, so that a
/// declaration tells which library defines it.
#pragma once

/// What the macros below stand for.
#if defined(__GNUC__)
#define OSTREL_EXPORT __attribute__((visibility("default")))
#else
#define OSTREL_EXPORT
#endif

///@{
/// Stands before what the library shows: before the name of a class, at the beginning of a function.
#define OSTREL_BASE_API OSTREL_EXPORT
#define OSTREL_COMMON_API OSTREL_EXPORT
#define OSTREL_PLATFORM_API OSTREL_EXPORT
#define OSTREL_GUI_API OSTREL_EXPORT
#define OSTREL_TESTING_API OSTREL_EXPORT
///@}
