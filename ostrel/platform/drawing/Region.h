/// @file
/// A set of pixels.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::Platform
{

/// A set of pixels as disjoint rectangles: clips, update regions, what a display has to present.
///
/// The rectangles are kept in bands: ordered from top to bottom and from left to right, those of a band with the same
/// top and bottom, touching neighbours joined. Equal sets therefore have equal lists. A region of one rectangle (the
/// usual one) allocates nothing.
class OSTREL_PLATFORM_API Region
{
public:
    Region() noexcept = default;
    /// One rectangle; empty when the rectangle is.
    explicit Region(CRect const& rect) noexcept;

    /// True when no pixel is in the region.
    [[nodiscard]] bool IsEmpty() const noexcept { return m_bounds.IsRectEmpty(); }
    /// True when the region is one rectangle.
    [[nodiscard]] bool IsRect() const noexcept { return !IsEmpty() && m_rects.empty(); }
    /// The smallest rectangle that holds the region; all zero when it is empty.
    [[nodiscard]] CRect const& Bounds() const noexcept { return m_bounds; }
    /// The rectangles in their order; valid until the next change.
    [[nodiscard]] std::span<CRect const> Rects() const noexcept;

    /// Whether the pixel is in the region.
    [[nodiscard]] bool Contains(CPoint point) const noexcept;
    /// Whether every pixel of the rectangle is in the region; an empty rectangle is in no region.
    [[nodiscard]] bool Contains(CRect const& rect) const noexcept;
    /// Whether at least one pixel of the rectangle is in the region.
    [[nodiscard]] bool Intersects(CRect const& rect) const noexcept;

    /// Makes the region empty.
    void Clear() noexcept;
    /// Becomes one rectangle; empty when the rectangle is.
    void Set(CRect const& rect) noexcept;
    ///@{
    /// Becomes the pixels that are in either, in this and not in the other, in both, or in exactly one.
    void Union(CRect const& rect);
    void Union(Region const& other);
    void Subtract(CRect const& rect);
    void Subtract(Region const& other);
    void Intersect(CRect const& rect);
    void Intersect(Region const& other);
    void Xor(Region const& other);
    ///@}
    /// Moves the region to the right and down.
    void Offset(int dx, int dy) noexcept;

    /// True when both hold the same pixels.
    friend bool operator==(Region const& a, Region const& b) noexcept;

private:
    enum class Operation
    {
        Union,
        Subtract,
        Intersect,
        Xor
    };
    void Combine(std::span<CRect const> other, Operation operation);
    void Replace(std::ptrdiff_t first, std::ptrdiff_t last, std::span<CRect const> rects);

    CRect m_bounds;
    std::vector<CRect> m_rects; ///< empty when the region is m_bounds alone
};

} // namespace Ostrel::Platform
