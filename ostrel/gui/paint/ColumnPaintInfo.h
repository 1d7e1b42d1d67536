/// @file
/// What one column title is painted with. A plain value that lives for one paint pass.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CFont;
class CImageList;

namespace Ostrel::GUI
{

class CColumn;

/// One title: its place, its column and its looks.
class OSTREL_GUI_API CColumnPaintInfo
{
public:
    /// What the pointer does with the title.
    enum State
    {
        Normal = 0,   ///< nothing
        Hot = 1,      ///< under the pointer
        Captured = 2, ///< pressed
    };

    CColumnPaintInfo() noexcept = default;

    ///@{
    /// The part on the screen, in client pixels.
    [[nodiscard]] CRect const& GetVisibleRect() const noexcept { return m_visibleRect; }
    void SetVisibleRect(CRect const& rect) noexcept { m_visibleRect = rect; }
    ///@}

    ///@{
    /// The full extent in client pixels; it may reach outside the window.
    [[nodiscard]] CRect const& GetVirtualRect() const noexcept { return m_virtualRect; }
    void SetVirtualRect(CRect const& rect) noexcept { m_virtualRect = rect; }
    ///@}

    ///@{
    /// What may be painted now, in client pixels.
    [[nodiscard]] CRect const& GetClipRect() const noexcept { return m_clipRect; }
    void SetClipRect(CRect const& rect) noexcept { m_clipRect = rect; }
    ///@}

    ///@{
    /// The column; null for the title right of the last column.
    [[nodiscard]] CColumn const* GetColumn() const noexcept { return m_column; }
    void SetColumn(CColumn const* column) noexcept { m_column = column; }
    ///@}

    ///@{
    /// Number of the title's image; -1 for none.
    [[nodiscard]] int GetImageId() const noexcept { return m_imageId; }
    void SetImageId(int imageId) noexcept { m_imageId = imageId; }
    ///@}

    ///@{
    /// What the pointer does with the title.
    [[nodiscard]] State GetState() const noexcept { return m_state; }
    void SetState(State state) noexcept { m_state = state; }
    ///@}

    ///@{
    /// The font of the title, null for none. Not owned.
    [[nodiscard]] CFont* GetFont() const noexcept { return m_font; }
    void SetFont(CFont* font) noexcept { m_font = font; }
    ///@}

    ///@{
    /// The images of the titles, null for none. Not owned.
    [[nodiscard]] CImageList* GetImageList() const noexcept { return m_imageList; }
    void SetImageList(CImageList* imageList) noexcept { m_imageList = imageList; }
    ///@}

    ///@{
    /// The colour of the text, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetTextColor() const noexcept { return m_textColor; }
    void SetTextColor(unsigned long color) noexcept { m_textColor = static_cast<COLORREF>(color); }
    ///@}

private:
    CRect m_visibleRect;
    CRect m_virtualRect;
    CRect m_clipRect;
    CColumn const* m_column = nullptr;
    int m_imageId = -1;
    State m_state = Normal;
    CFont* m_font = nullptr;
    CImageList* m_imageList = nullptr;
    COLORREF m_textColor = 0x000000;
};

} // namespace Ostrel::GUI
