/// @file
/// What a drop does with what was dragged.
#pragma once

#include <ostrel/platform/base/Types.h>

/// One of the values below.
using DROPEFFECT = DWORD;

inline constexpr DROPEFFECT DROPEFFECT_NONE = 0; ///< nothing is dropped
inline constexpr DROPEFFECT DROPEFFECT_COPY = 1; ///< the source keeps it
inline constexpr DROPEFFECT DROPEFFECT_MOVE = 2; ///< the source gives it away
