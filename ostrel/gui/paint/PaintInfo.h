/// @file
/// What one element (a line, a cell) is painted with: colours, rectangles, font, offsets, highlight settings. A plain
/// value that lives for one paint pass.
#pragma once

#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CFont;

namespace Ostrel::GUI
{

/// Place and looks of one element.
class OSTREL_GUI_API CPaintInfo
{
public:
    /// Black on white, no place, text offsets of 2 pixels.
    CPaintInfo() noexcept = default;
    /// See the getters.
    CPaintInfo(unsigned long foreColor, unsigned long backColor, CRect const& visibleRect, CRect const& virtualRect,
               CRect const& clipRect, CFont* font, int leftTextOffset, int rightTextOffset,
               CHighlightSettings const& highlightSettings) noexcept
        : m_foreColor(static_cast<COLORREF>(foreColor)),
          m_backColor(static_cast<COLORREF>(backColor)),
          m_visibleRect(visibleRect),
          m_virtualRect(virtualRect),
          m_clipRect(clipRect),
          m_font(font),
          m_leftTextOffset(leftTextOffset),
          m_rightTextOffset(rightTextOffset),
          m_highlightSettings(highlightSettings)
    {}

    ///@{
    /// The colour of the text, 0x00BBGGRR, before any overlay.
    [[nodiscard]] unsigned long GetForeColor() const noexcept { return m_foreColor; }
    void SetForeColor(unsigned long color) noexcept { m_foreColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The colour of the background, 0x00BBGGRR, before any overlay.
    [[nodiscard]] unsigned long GetBackColor() const noexcept { return m_backColor; }
    void SetBackColor(unsigned long color) noexcept { m_backColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The part of the element inside the painted area of the window, in client pixels.
    [[nodiscard]] CRect const& GetVisibleRect() const noexcept { return m_visibleRect; }
    void SetVisibleRect(CRect const& rect) noexcept { m_visibleRect = rect; }
    ///@}

    ///@{
    /// The element's full extent in client pixels; it may reach outside the window.
    [[nodiscard]] CRect const& GetVirtualRect() const noexcept { return m_virtualRect; }
    void SetVirtualRect(CRect const& rect) noexcept { m_virtualRect = rect; }
    ///@}

    ///@{
    /// What may be painted now, in client pixels.
    [[nodiscard]] CRect const& GetClipRect() const noexcept { return m_clipRect; }
    void SetClipRect(CRect const& rect) noexcept { m_clipRect = rect; }
    ///@}

    ///@{
    /// The font, null when the one that is selected into the device context is to be used. Not owned.
    [[nodiscard]] CFont* GetFont() const noexcept { return m_font; }
    void SetFont(CFont* font) noexcept { m_font = font; }
    ///@}

    ///@{
    /// Pixels between the element's left edge (or its image) and its text.
    [[nodiscard]] int GetLeftTextOffset() const noexcept { return m_leftTextOffset; }
    void SetLeftTextOffset(int pixels) noexcept { m_leftTextOffset = pixels; }
    ///@}

    ///@{
    /// Pixels between the text and the element's right edge.
    [[nodiscard]] int GetRightTextOffset() const noexcept { return m_rightTextOffset; }
    void SetRightTextOffset(int pixels) noexcept { m_rightTextOffset = pixels; }
    ///@}

    ///@{
    /// How changed values are highlighted.
    [[nodiscard]] CHighlightSettings const& GetHighlightSettings() const noexcept { return m_highlightSettings; }
    void SetHighlightSettings(CHighlightSettings const& settings) noexcept { m_highlightSettings = settings; }
    ///@}

private:
    COLORREF m_foreColor = 0x000000;
    COLORREF m_backColor = 0xFFFFFF;
    CRect m_visibleRect;
    CRect m_virtualRect;
    CRect m_clipRect;
    CFont* m_font = nullptr;
    int m_leftTextOffset = 2;
    int m_rightTextOffset = 2;
    CHighlightSettings m_highlightSettings;
};

} // namespace Ostrel::GUI
