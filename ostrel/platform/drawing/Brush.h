/// @file
/// Brushes: the colour of fills.
#pragma once

#include <ostrel/platform/drawing/GdiObject.h>

/// The colour of fills.
class OSTREL_PLATFORM_API CBrush : public CGdiObject
{
public:
    CBrush() noexcept = default;
    /// A brush of one colour.
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    ~CBrush() override { DeleteObject(); }

    /// Becomes a brush of one colour.
    BOOL CreateSolidBrush(COLORREF color);
    /// A brush that paints nothing.
    BOOL CreateHollowBrush();
    /// A system colour (COLOR_*) as it is now; FALSE for an unknown number.
    BOOL CreateSysColorBrush(int colorIndex);

    /// True when the brush paints nothing; so does one that was never created.
    [[nodiscard]] bool IsHollow() const noexcept { return m_hollow; }
    /// The colour; of no meaning for a hollow brush.
    [[nodiscard]] COLORREF GetColor() const noexcept { return m_color; }

    /// The handle; null while the object holds nothing.
    operator HBRUSH() const { return static_cast<HBRUSH>(GetSafeHandle()); }
    /// The object of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CBrush* FromHandle(HBRUSH handle) noexcept;

private:
    void OnDelete() noexcept override { m_hollow = true; }

    bool m_hollow = true;
    COLORREF m_color = 0;
};
