/// @file
/// Row handles. A row is opaque to applications: a grid makes, owns and destroys it, and applications hand its address
/// back to the grid's operations, which check it before use.
#pragma once

#include <cstdint>

namespace Ostrel::GUI
{

/// One row of a grid.
class CGridItem;

// Four handles that are never addresses of rows and never dereferenced; accepted where an operation names them.

/// The invisible root of the scrollable rows.
inline CGridItem* const ScrollableRoot = reinterpret_cast<CGridItem*>(std::uintptr_t{0xFFFF0000});
/// The invisible root of the fixed rows.
inline CGridItem* const FixedRoot = reinterpret_cast<CGridItem*>(std::uintptr_t{0xFFFF0001});
/// As a place among siblings: before all of them.
inline CGridItem* const FirstPosition = reinterpret_cast<CGridItem*>(std::uintptr_t{0xFFFF0002});
/// As a place among siblings: after all of them.
inline CGridItem* const LastPosition = reinterpret_cast<CGridItem*>(std::uintptr_t{0xFFFF0003});

/// True for the four reserved handles.
inline bool IsReservedHandle(CGridItem const* item) noexcept
{
    return reinterpret_cast<std::uintptr_t>(item) - std::uintptr_t{0xFFFF0000} < 4U;
}

} // namespace Ostrel::GUI
