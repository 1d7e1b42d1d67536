/// @file
/// A picture behind the rows of a grid. A plain value that only points to the picture.
#pragma once

#include <ostrel/platform/base/Export.h>

class CBitmap;

namespace Ostrel::GUI
{

/// A picture, where it goes, and how much of it the rows let through.
class OSTREL_GUI_API CBackgroundImage
{
public:
    /// Where the picture goes in the area below the header.
    enum Mode : int
    {
        Center = 0,  ///< at its own size in the middle
        Stretch = 1, ///< over the whole area
        Tile = 2     ///< repeated from the top left corner
    };

    ///@{
    /// The picture, null for none. Not owned; must outlive its use by a grid.
    [[nodiscard]] CBitmap* GetBitmap() const noexcept { return m_bitmap; }
    void SetBitmap(CBitmap* bitmap) noexcept { m_bitmap = bitmap; }
    ///@}

    ///@{
    /// Opacity of the rows' own colours over the picture: 0, as long as none is set, leaves the picture as it is, 255
    /// hides it.
    [[nodiscard]] unsigned char GetOpacity() const noexcept { return m_opacity; }
    void SetOpacity(unsigned char opacity) noexcept { m_opacity = opacity; }
    ///@}

    ///@{
    /// Where the picture goes; Stretch unless set.
    [[nodiscard]] Mode GetMode() const noexcept { return m_mode; }
    void SetMode(Mode mode) noexcept { m_mode = mode; }
    ///@}

private:
    CBitmap* m_bitmap = nullptr;
    unsigned char m_opacity = 0;
    Mode m_mode = Stretch;
};

} // namespace Ostrel::GUI
