// Whether and how cells are edited in place, and what hints at it. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

class OSTREL_GUI_API CEditInPlaceSettings
{
public:
    /// What starts editing a cell.
    enum ActivationType : int
    {
        SingleClick = 0,
        DoubleClick = 1,
        AnyClick = 2,
    };

    [[nodiscard]] bool IsEnabled() const noexcept { return m_isEnabled; }
    void SetEnabled(bool enable) noexcept { m_isEnabled = enable; }
    [[nodiscard]] ActivationType GetActivationType() const noexcept { return m_activationType; }
    void SetActivationType(ActivationType type) noexcept { m_activationType = type; }
    /// Whether one click on the arrow button in a cell starts editing.
    [[nodiscard]] bool CanActivateOnThumbClick() const noexcept { return m_canActivateOnThumbClick; }
    void SetActivateOnThumbClick(bool enable) noexcept { m_canActivateOnThumbClick = enable; }
    /// 0x00BBGGRR.
    [[nodiscard]] unsigned long GetFrameColor() const noexcept { return m_frameColor; }
    void SetFrameColor(unsigned long color) noexcept { m_frameColor = static_cast<COLORREF>(color); }
    /// Of the cell under the pointer.
    [[nodiscard]] bool CanDrawHotFrame() const noexcept { return m_canDrawHotFrame; }
    void SetDrawHotFrame(bool enable) noexcept { m_canDrawHotFrame = enable; }
    [[nodiscard]] bool CanDrawHotThumb() const noexcept { return m_canDrawHotThumb; }
    void SetDrawHotThumb(bool enable) noexcept { m_canDrawHotThumb = enable; }
    /// In every cell that can be edited.
    [[nodiscard]] bool CanDrawThumbsAlways() const noexcept { return m_canDrawThumbsAlways; }
    void SetDrawThumbsAlways(bool enable) noexcept { m_canDrawThumbsAlways = enable; }
    /// Whether keys move the editor from cell to cell.
    [[nodiscard]] bool CanUseNavigation() const noexcept { return m_canUseNavigation; }
    void SetUseNavigation(bool enable) noexcept { m_canUseNavigation = enable; }

    friend bool operator==(CEditInPlaceSettings const&, CEditInPlaceSettings const&) noexcept = default;

    /// 18 bytes: the 32-bit version, then the fields in the order above, a byte for a switch and 32 bits for anything
    /// else. Loading throws CArchiveException (badSchema) for a newer version; a version below 1 reads nothing further.
    /// Nothing changes in either case.
    void Serialize(CArchive& archive);
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
