/// @file
/// Pens: the colour, width and pattern of lines and outlines.
#pragma once

#include <ostrel/platform/drawing/GdiObject.h>

///@{
/// The pattern of a pen; PS_NULL draws nothing.
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DOT = 2; ///< every other pixel; always one pixel wide
inline constexpr int PS_NULL = 5;
inline constexpr int PS_ALTERNATE = 8; ///< the same as PS_DOT
///@}

/// The colour, width and pattern of lines and outlines.
class OSTREL_PLATFORM_API CPen : public CGdiObject
{
public:
    CPen() noexcept = default;
    /// A pen of a pattern (PS_*), a width in pixels and a colour.
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
    ~CPen() override { DeleteObject(); }

    /// Becomes a pen of a pattern (PS_*). Width in pixels; 0 and negative widths count as 1.
    BOOL CreatePen(int style, int width, COLORREF color);

    ///@{
    /// What the pen was created with.
    [[nodiscard]] int GetStyle() const noexcept { return m_style; }
    [[nodiscard]] int GetWidth() const noexcept { return m_width; }
    [[nodiscard]] COLORREF GetColor() const noexcept { return m_color; }
    ///@}

    /// The handle; null while the object holds nothing.
    operator HPEN() const { return static_cast<HPEN>(GetSafeHandle()); }
    /// The object of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CPen* FromHandle(HPEN handle) noexcept;

private:
    int m_style = PS_NULL;
    int m_width = 1;
    COLORREF m_color = 0;
};
