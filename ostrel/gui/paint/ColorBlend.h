/// @file
/// A translucent colour: the unit in which every overlay of a grid is given. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// A colour and an opacity.
class OSTREL_GUI_API CColorBlend
{
public:
    /// White without effect.
    CColorBlend() noexcept = default;
    /// A colour, 0x00BBGGRR, and its opacity, 0 to 255.
    CColorBlend(unsigned long color, unsigned char opacity) noexcept
        : m_color(static_cast<COLORREF>(color)), m_opacity(opacity)
    {}

    ///@{
    /// The colour, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetColor() const noexcept { return m_color; }
    void SetColor(unsigned long color) noexcept { m_color = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The opacity: 0 has no effect, 255 shows the colour alone.
    [[nodiscard]] unsigned char GetOpacity() const noexcept { return m_opacity; }
    void SetOpacity(unsigned char opacity) noexcept { m_opacity = opacity; }
    ///@}

    /// Equality of colour and opacity.
    friend bool operator==(CColorBlend const&, CColorBlend const&) noexcept = default;

    /// Stores or loads 9 bytes: 32-bit version, 32-bit colour, 8-bit opacity. Loading throws CArchiveException
    /// (badSchema) for a newer version; a version below 1 reads nothing further. Nothing changes in either case.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    COLORREF m_color = 0xFFFFFF;
    BYTE m_opacity = 0;
};

} // namespace Ostrel::GUI
