// A device context's target in memory: our own loops over the pixels of a surface.
#pragma once

#include <memory>
#include <vector>

#include <ostrel/platform/drawing/DrawTarget.h>
#include <ostrel/platform/drawing/Surface.h>
#include <ostrel/platform/drawing/detail/Blend.h>

namespace Ostrel::Platform
{

class PixelTarget final : public DrawTarget
{
public:
    /// The surface must outlive the target.
    explicit PixelTarget(Surface& surface) noexcept : m_surface(&surface) {}
    /// Shares the surface.
    explicit PixelTarget(std::shared_ptr<Surface> surface) noexcept
        : m_shared(std::move(surface)), m_surface(m_shared.get())
    {}

    [[nodiscard]] CRect Bounds() const noexcept override { return m_surface->Bounds(); }
    [[nodiscard]] Surface* Pixels() noexcept override { return m_surface; }
    [[nodiscard]] int PixelsPerInch() const noexcept override;

    void Fill(CRect const& rect, COLORREF color, ClipRects clip) override;
    void Blend(CRect const& rect, COLORREF color, BYTE opacity, ClipRects clip) override;
    void Invert(CRect const& rect, ClipRects clip) override;
    void Dots(CRect const& rect, int phase, COLORREF color, ClipRects clip) override;
    void Line(CPoint from, CPoint to, COLORREF color, ClipRects clip) override;
    void Polygon(std::span<POINT const> points, Corners corners, COLORREF color, ClipRects clip) override;
    void Picture(Surface const& source, CRect const& from, CRect const& to, PictureMode const& mode,
                 ClipRects clip) override;
    void FontMetrics(FontId font, TEXTMETRIC& metrics) override;
    [[nodiscard]] int TextWidth(FontId font, std::string_view text) override;
    void Text(TextLine const& line, ClipRects clip) override;

private:
    [[nodiscard]] Platform::Blend::Area AreaOf(CRect const& rect) noexcept;
    void PictureRows(Surface const& source, CRect const& from, CRect const& to, PictureMode const& mode,
                     CRect const& visible);

    std::shared_ptr<Surface> m_shared;
    Surface* m_surface;
    std::vector<double> m_crossings; ///< of one row with a polygon; its memory is reused
};

} // namespace Ostrel::Platform
