/// @file
/// The row areas of a grid, as a value and as a set.
#pragma once

#include <cstdint>

namespace Ostrel::GUI
{

/// A row area, or a set of them where an argument is a mask.
enum ContextType : std::uint32_t
{
    NoContext = 0,         ///< no area: a row that is in no grid, or no focus
    FixedContext = 1,      ///< the rows above, which never scroll
    ScrollableContext = 2, ///< the rows below
    AllContexts = 3        ///< both areas; only as a mask
};

///@{
/// The areas of either set, of both, and (`~`) the areas that a set lacks.
constexpr ContextType operator|(ContextType a, ContextType b) noexcept
{
    return static_cast<ContextType>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr ContextType operator&(ContextType a, ContextType b) noexcept
{
    return static_cast<ContextType>(static_cast<std::uint32_t>(a) & static_cast<std::uint32_t>(b));
}
constexpr ContextType operator~(ContextType a) noexcept
{
    return static_cast<ContextType>(~static_cast<std::uint32_t>(a) & static_cast<std::uint32_t>(AllContexts));
}
constexpr ContextType& operator|=(ContextType& a, ContextType b) noexcept
{
    return a = a | b;
}
constexpr ContextType& operator&=(ContextType& a, ContextType b) noexcept
{
    return a = a & b;
}
///@}

/// True if the sets share an area.
constexpr bool HasContext(ContextType mask, ContextType type) noexcept
{
    return (mask & type) != NoContext;
}

} // namespace Ostrel::GUI
