/// @file
/// What the header band is painted with. A plain value that lives for one paint pass.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CFont;
class CImageList;

namespace Ostrel::GUI
{

class CColumn;

/// The header's band: its place, its looks, and what the pointer does with it.
class OSTREL_GUI_API CHeaderPaintInfo
{
public:
    CHeaderPaintInfo() noexcept = default;

    ///@{
    /// The band inside the client area, in client pixels.
    [[nodiscard]] CRect const& GetVisibleRect() const noexcept { return m_visibleRect; }
    void SetVisibleRect(CRect const& rect) noexcept { m_visibleRect = rect; }
    ///@}

    ///@{
    /// The whole band in client pixels.
    [[nodiscard]] CRect const& GetVirtualRect() const noexcept { return m_virtualRect; }
    void SetVirtualRect(CRect const& rect) noexcept { m_virtualRect = rect; }
    ///@}

    ///@{
    /// What may be painted now, in client pixels.
    [[nodiscard]] CRect const& GetClipRect() const noexcept { return m_clipRect; }
    void SetClipRect(CRect const& rect) noexcept { m_clipRect = rect; }
    ///@}

    ///@{
    /// The font of the titles, null for none. Not owned.
    [[nodiscard]] CFont* GetFont() const noexcept { return m_font; }
    void SetFont(CFont* font) noexcept { m_font = font; }
    ///@}

    ///@{
    /// The images of the titles, null for none. Not owned.
    [[nodiscard]] CImageList* GetImageList() const noexcept { return m_imageList; }
    void SetImageList(CImageList* imageList) noexcept { m_imageList = imageList; }
    ///@}

    ///@{
    /// The colour of the titles, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetTextColor() const noexcept { return m_textColor; }
    void SetTextColor(unsigned long color) noexcept { m_textColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The column under the pointer, null for none.
    [[nodiscard]] CColumn const* GetHotColumn() const noexcept { return m_hotColumn; }
    void SetHotColumn(CColumn const* column) noexcept { m_hotColumn = column; }
    ///@}

    ///@{
    /// Whether the mouse is captured on that column: it is pressed.
    [[nodiscard]] bool IsCaptured() const noexcept { return m_captured; }
    void SetCaptured(bool captured) noexcept { m_captured = captured; }
    ///@}

    ///@{
    /// While a column is dragged: the one beside which it would be dropped, null for none.
    [[nodiscard]] CColumn const* GetDropColumn() const noexcept { return m_dropColumn; }
    void SetDropColumn(CColumn const* column) noexcept { m_dropColumn = column; }
    ///@}

    ///@{
    /// While a column is dragged: the x of the mark in client pixels.
    [[nodiscard]] int GetDropPosition() const noexcept { return m_dropPosition; }
    void SetDropPosition(int x) noexcept { m_dropPosition = x; }
    ///@}

private:
    CRect m_visibleRect;
    CRect m_virtualRect;
    CRect m_clipRect;
    CFont* m_font = nullptr;
    CImageList* m_imageList = nullptr;
    COLORREF m_textColor = 0x000000;
    CColumn const* m_hotColumn = nullptr;
    bool m_captured = false;
    CColumn const* m_dropColumn = nullptr;
    int m_dropPosition = -1;
};

} // namespace Ostrel::GUI
