/// @file
/// The colours of a grid: text and background of alternating rows, grid lines, and four overlays. A plain value.
#pragma once

#include <ostrel/gui/paint/ColorBlend.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// All colours are 0x00BBGGRR. The first row of an area, and every second one after it, is an odd row.
class OSTREL_GUI_API CAppearance
{
public:
    ///@{
    /// Text of even rows; black unless set.
    [[nodiscard]] unsigned long GetTextEvenColor() const noexcept { return m_textEvenColor; }
    void SetTextEvenColor(unsigned long color) noexcept { m_textEvenColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Text of odd rows; black unless set.
    [[nodiscard]] unsigned long GetTextOddColor() const noexcept { return m_textOddColor; }
    void SetTextOddColor(unsigned long color) noexcept { m_textOddColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Background of even rows; white unless set.
    [[nodiscard]] unsigned long GetBackEvenColor() const noexcept { return m_backEvenColor; }
    void SetBackEvenColor(unsigned long color) noexcept { m_backEvenColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Background of odd rows; white unless set.
    [[nodiscard]] unsigned long GetBackOddColor() const noexcept { return m_backOddColor; }
    void SetBackOddColor(unsigned long color) noexcept { m_backOddColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Lines between columns; grey unless set.
    [[nodiscard]] unsigned long GetVerticalLinesColor() const noexcept { return m_verticalLinesColor; }
    void SetVerticalLinesColor(unsigned long color) noexcept { m_verticalLinesColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// Lines between rows; grey unless set.
    [[nodiscard]] unsigned long GetHorizontalLinesColor() const noexcept { return m_horizontalLinesColor; }
    void SetHorizontalLinesColor(unsigned long color) noexcept
    {
        m_horizontalLinesColor = static_cast<COLORREF>(color);
    }
    ///@}

    ///@{
    /// Laid over the background of selected rows; its colour also draws their frame.
    [[nodiscard]] CColorBlend const GetSelectedLineColor() const noexcept { return m_selectedLineColor; }
    void SetSelectedLineColor(CColorBlend blend) noexcept { m_selectedLineColor = blend; }
    ///@}

    ///@{
    /// Laid over the background of the focused row; its colour also draws the focus frame.
    [[nodiscard]] CColorBlend const GetFocusedLineColor() const noexcept { return m_focusedLineColor; }
    void SetFocusedLineColor(CColorBlend blend) noexcept { m_focusedLineColor = blend; }
    ///@}

    ///@{
    /// Laid over the cells of sorted columns.
    [[nodiscard]] CColorBlend const GetSortedColumnColor() const noexcept { return m_sortedColumnColor; }
    void SetSortedColumnColor(CColorBlend blend) noexcept { m_sortedColumnColor = blend; }
    ///@}

    ///@{
    /// Fills the rectangle of a selection with the mouse.
    [[nodiscard]] CColorBlend const GetMouseSelectionColor() const noexcept { return m_mouseSelectionColor; }
    void SetMouseSelectionColor(CColorBlend blend) noexcept { m_mouseSelectionColor = blend; }
    ///@}

    ///@{
    /// Whether there are lines between columns; false unless set.
    [[nodiscard]] bool IsVerticalLinesEnabled() const noexcept { return m_verticalLinesEnabled; }
    void EnableVerticalLines(bool enable) noexcept { m_verticalLinesEnabled = enable; }
    ///@}

    ///@{
    /// Whether there are lines between rows; false unless set.
    [[nodiscard]] bool IsHorizontalLinesEnabled() const noexcept { return m_horizontalLinesEnabled; }
    void EnableHorizontalLines(bool enable) noexcept { m_horizontalLinesEnabled = enable; }
    ///@}

    /// Light text on dark rows, to go with the dark system colours: what grids have in the dark scheme unless they are
    /// given another. The switches are off, as at first.
    [[nodiscard]] static CAppearance Dark() noexcept;

    /// Equality of all settings.
    friend bool operator==(CAppearance const&, CAppearance const&) noexcept = default;

    /// Stores or loads 72 bytes: 32-bit version, six 32-bit colours, four overlays of 9 bytes, two 32-bit switches.
    /// Loading throws CArchiveException (badSchema) for a newer version, then with the fields before it changed; a
    /// version below 1 reads nothing further.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive);
    void Load(CArchive& archive);

    COLORREF m_textEvenColor = 0x000000;
    COLORREF m_textOddColor = 0x000000;
    COLORREF m_backEvenColor = 0xFFFFFF;
    COLORREF m_backOddColor = 0xFFFFFF;
    COLORREF m_verticalLinesColor = 0x808080;
    COLORREF m_horizontalLinesColor = 0x808080;
    CColorBlend m_selectedLineColor{0xB46464, 60};
    CColorBlend m_focusedLineColor{0xB46464, 30};
    CColorBlend m_sortedColumnColor{0xB496B4, 50};
    CColorBlend m_mouseSelectionColor{0xB4B4B4, 128};
    bool m_verticalLinesEnabled = false;
    bool m_horizontalLinesEnabled = false;
};

} // namespace Ostrel::GUI
