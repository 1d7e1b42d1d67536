// How a grid looks: the settings that painting reads, the font and the heights that follow from it, and the window's
// paint message, which hands the areas that need it to the paint pass.
#pragma once

#include <memory>

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/detail/PaintBuffers.h>
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/SystemLook.h>

class CImageList;

namespace Ostrel::GUI
{
class ICustomDraw;
}

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridLooks
{
public:
    explicit GridLooks(GridCore& core);

    CBackgroundImage backgroundImage;
    CHighlightSettings highlight{2000, 0x0000FF, 0x0000FF, 150, 150, 30, CHighlightSettings::BackFading};
    unsigned int paintFilter = PaintAll;
    bool flickerFree = false;
    bool allowHighlight = false;
    CImageList* imageList = nullptr; ///< not owned
    bool stretchImages = false;
    bool drawSeparator = true;
    int separatorHeight = Platform::Scaled(2);

    /// For a colour scheme; that of the scheme that is on.
    [[nodiscard]] CAppearance& Appearance(Platform::ColorScheme scheme) noexcept;
    [[nodiscard]] CAppearance& Appearance() noexcept { return Appearance(Platform::GetColorScheme()); }

    /// Copies the font; null goes back to the preferences' font.
    void SetFont(CFont const* font);
    /// The same without asking for the heights that suit it.
    void RestoreFont(LOGFONT const* description);
    [[nodiscard]] CFont* OwnFont() const noexcept { return m_font.get(); }
    [[nodiscard]] CFont* FontInUse() const;
    [[nodiscard]] ICustomDraw& CustomDrawInUse() const;

    [[nodiscard]] int OptimalRowHeight(ContextType type) const;
    /// Gives the areas and the header the heights that suit the font.
    void MeasureHeights();
    /// The areas only.
    void MeasureRowHeights();

    void RebuildBuffers();
    void DropBuffers() { m_buffers.Clear(); }
    /// False when rows that are painted anew would differ from their moved pixels: something lies over them or under
    /// them that does not move with them, or the dots of the vertical lines would fall on other pixels.
    [[nodiscard]] bool CanScrollPixels(int distance) const;
    /// The window's paint message.
    void Paint();

private:
    void SetRowHeight(ContextType type, int height);

    GridCore& m_core;
    CAppearance m_light;
    CAppearance m_dark;
    std::unique_ptr<CFont> m_font;
    PaintBuffers m_buffers;
};
} // namespace Ostrel::GUI::Detail
