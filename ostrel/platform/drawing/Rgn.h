/// @file
/// The framework's region object: a Region with a handle.
#pragma once

#include <ostrel/platform/drawing/GdiObject.h>
#include <ostrel/platform/drawing/Region.h>

/// A set of pixels under a handle.
class OSTREL_PLATFORM_API CRgn : public CGdiObject
{
public:
    CRgn() noexcept = default;
    ~CRgn() override { DeleteObject(); }

    ///@{
    /// Becomes one rectangle; empty when the rectangle is. FALSE for null.
    BOOL CreateRectRgn(int left, int top, int right, int bottom);
    BOOL CreateRectRgnIndirect(RECT const* rect);
    void SetRectRgn(RECT const* rect);
    ///@}

    /// Becomes the combination (RGN_*) of two regions, of one only for RGN_COPY. Each returns what the region then is:
    /// NULLREGION, SIMPLEREGION, COMPLEXREGION, or ERROR for a null argument, with the region unchanged.
    int CombineRgn(CRgn const* first, CRgn const* second, int mode);
    /// Becomes a copy; see CombineRgn.
    int CopyRgn(CRgn const* source) { return CombineRgn(source, nullptr, RGN_COPY); }
    ///@{
    /// Moves the region to the right and down. Returns its kind.
    int OffsetRgn(int dx, int dy);
    int OffsetRgn(POINT by) { return OffsetRgn(by.x, by.y); }
    ///@}
    /// Writes the bounds. Returns the kind of the region.
    int GetRgnBox(RECT* box) const;

    ///@{
    /// Whether the pixel, or a pixel of the rectangle, is in the region.
    [[nodiscard]] BOOL PtInRegion(POINT point) const noexcept { return m_region.Contains(CPoint(point)); }
    [[nodiscard]] BOOL RectInRegion(RECT const* rect) const noexcept;
    ///@}
    /// Whether both hold the same pixels; FALSE for null.
    [[nodiscard]] BOOL EqualRgn(CRgn const* other) const noexcept;

    /// The pixels themselves.
    [[nodiscard]] Ostrel::Platform::Region const& GetRegion() const noexcept { return m_region; }
    /// Takes over pixels; gives the object a handle if it has none.
    void SetRegion(Ostrel::Platform::Region region);

    /// The handle; null while the object holds nothing.
    operator HRGN() const { return static_cast<HRGN>(GetSafeHandle()); }
    /// The object of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CRgn* FromHandle(HRGN handle) noexcept;

private:
    void OnDelete() noexcept override { m_region.Clear(); }

    Ostrel::Platform::Region m_region;
};

namespace Ostrel::Platform
{

/// NULLREGION, SIMPLEREGION or COMPLEXREGION.
[[nodiscard]] inline int RegionKind(Region const& region) noexcept
{
    return region.IsEmpty() ? NULLREGION : (region.IsRect() ? SIMPLEREGION : COMPLEXREGION);
}

} // namespace Ostrel::Platform
