/// @file
/// How a grid is printed.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// What of a grid is printed, in which size and with which margins. A plain value.
class OSTREL_GUI_API CPrintSettings
{
public:
    ///@{
    /// Whether the header is printed; true unless set.
    [[nodiscard]] bool GetPrintHeader() const noexcept { return m_printHeader; }
    void SetPrintHeader(bool print) noexcept { m_printHeader = print; }
    ///@}
    ///@{
    /// Whether every page has the header, not only the first; false unless set.
    [[nodiscard]] bool GetRepeatHeader() const noexcept { return m_repeatHeader; }
    void SetRepeatHeader(bool repeat) noexcept { m_repeatHeader = repeat; }
    ///@}
    ///@{
    /// Whether the fixed rows are printed; true unless set.
    [[nodiscard]] bool GetPrintFixedRows() const noexcept { return m_printFixedRows; }
    void SetPrintFixedRows(bool print) noexcept { m_printFixedRows = print; }
    ///@}
    ///@{
    /// Whether the scrollable rows are printed; true unless set.
    [[nodiscard]] bool GetPrintScrollableRows() const noexcept { return m_printScrollableRows; }
    void SetPrintScrollableRows(bool print) noexcept { m_printScrollableRows = print; }
    ///@}
    ///@{
    /// The size; 1 is the natural one.
    [[nodiscard]] double GetZoomFactor() const noexcept { return m_zoomFactor; }
    void SetZoomFactor(double factor) noexcept { m_zoomFactor = factor; }
    ///@}
    ///@{
    /// The margins in millimetres: 3 at the top, 0 at the bottom, 10 on the left and on the right unless set.
    [[nodiscard]] int GetTopMargin() const noexcept { return m_topMargin; }
    void SetTopMargin(int millimetres) noexcept { m_topMargin = millimetres; }
    [[nodiscard]] int GetBottomMargin() const noexcept { return m_bottomMargin; }
    void SetBottomMargin(int millimetres) noexcept { m_bottomMargin = millimetres; }
    [[nodiscard]] int GetLeftMargin() const noexcept { return m_leftMargin; }
    void SetLeftMargin(int millimetres) noexcept { m_leftMargin = millimetres; }
    [[nodiscard]] int GetRightMargin() const noexcept { return m_rightMargin; }
    void SetRightMargin(int millimetres) noexcept { m_rightMargin = millimetres; }
    ///@}

    /// Equal in everything.
    friend bool operator==(CPrintSettings const&, CPrintSettings const&) noexcept = default;

private:
    bool m_printHeader = true;
    bool m_repeatHeader = false;
    bool m_printFixedRows = true;
    bool m_printScrollableRows = true;
    double m_zoomFactor = 1.0;
    int m_topMargin = 3;
    int m_bottomMargin = 0;
    int m_leftMargin = 10;
    int m_rightMargin = 10;
};

} // namespace Ostrel::GUI
