/// @file
/// Whether and how cells are edited in place, and what hints at it. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// How cells are edited. A grid keeps and stores them; in this version nothing acts on them yet.
class OSTREL_GUI_API CEditInPlaceSettings
{
public:
    /// What starts editing a cell.
    enum ActivationType : int
    {
        SingleClick = 0, ///< one click
        DoubleClick = 1, ///< a double click
        AnyClick = 2,    ///< either
    };

    ///@{
    /// Whether cells may be edited at all; true unless set.
    [[nodiscard]] bool IsEnabled() const noexcept { return m_isEnabled; }
    void SetEnabled(bool enable) noexcept { m_isEnabled = enable; }
    ///@}

    ///@{
    /// What starts editing; DoubleClick unless set.
    [[nodiscard]] ActivationType GetActivationType() const noexcept { return m_activationType; }
    void SetActivationType(ActivationType type) noexcept { m_activationType = type; }
    ///@}

    ///@{
    /// Whether one click on the arrow button in a cell starts editing; true unless set.
    [[nodiscard]] bool CanActivateOnThumbClick() const noexcept { return m_canActivateOnThumbClick; }
    void SetActivateOnThumbClick(bool enable) noexcept { m_canActivateOnThumbClick = enable; }
    ///@}

    ///@{
    /// The colour of the frame around the cell, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetFrameColor() const noexcept { return m_frameColor; }
    void SetFrameColor(unsigned long color) noexcept { m_frameColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Whether the cell under the pointer has a frame; true unless set.
    [[nodiscard]] bool CanDrawHotFrame() const noexcept { return m_canDrawHotFrame; }
    void SetDrawHotFrame(bool enable) noexcept { m_canDrawHotFrame = enable; }
    ///@}

    ///@{
    /// Whether the cell under the pointer shows its arrow button; true unless set.
    [[nodiscard]] bool CanDrawHotThumb() const noexcept { return m_canDrawHotThumb; }
    void SetDrawHotThumb(bool enable) noexcept { m_canDrawHotThumb = enable; }
    ///@}

    ///@{
    /// Whether every cell that can be edited shows its arrow button; false unless set.
    [[nodiscard]] bool CanDrawThumbsAlways() const noexcept { return m_canDrawThumbsAlways; }
    void SetDrawThumbsAlways(bool enable) noexcept { m_canDrawThumbsAlways = enable; }
    ///@}

    ///@{
    /// Whether keys move the editor from cell to cell; true unless set.
    [[nodiscard]] bool CanUseNavigation() const noexcept { return m_canUseNavigation; }
    void SetUseNavigation(bool enable) noexcept { m_canUseNavigation = enable; }
    ///@}

    /// Equality of all settings.
    friend bool operator==(CEditInPlaceSettings const&, CEditInPlaceSettings const&) noexcept = default;

    /// Stores or loads 18 bytes: the 32-bit version, then the fields in the order above, a byte for a switch and 32
    /// bits for anything else. Loading throws CArchiveException (badSchema) for a newer version; a version below 1
    /// reads nothing further. Nothing changes in either case.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    bool m_isEnabled = true;
    ActivationType m_activationType = DoubleClick;
    bool m_canActivateOnThumbClick = true;
    COLORREF m_frameColor = 0x808080;
    bool m_canDrawHotFrame = true;
    bool m_canDrawHotThumb = true;
    bool m_canDrawThumbsAlways = false;
    bool m_canUseNavigation = true;
};

} // namespace Ostrel::GUI
