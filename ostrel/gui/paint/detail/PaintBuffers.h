// The bitmaps that a grid keeps between paint passes: the off-screen buffer and the prepared background picture. Both
// are as large as the client area and are made again when it or the settings change.
#pragma once

#include <memory>

#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/platform/base/Geometry.h>

class CBitmap;
class CDC;

namespace Ostrel::GUI::Detail
{

class PaintBuffers
{
public:
    PaintBuffers() noexcept;
    ~PaintBuffers();
    PaintBuffers(PaintBuffers const&) = delete;
    PaintBuffers& operator=(PaintBuffers const&) = delete;

    /// What the bitmaps are made for.
    struct Options
    {
        CRect clientRect;
        int headerHeight = 0; ///< 0 while the header is hidden
        bool flickerFree = false;
        CBackgroundImage background;
    };
    /// Throws the old bitmaps away and makes those that the options ask for. A null or empty picture makes none.
    void Rebuild(CDC& compatible, Options const& options);
    void Clear() noexcept;

    /// Null when painting goes directly to the window.
    [[nodiscard]] CBitmap* OffScreenBuffer() const noexcept { return m_offScreenBuffer.get(); }
    /// Null without a picture.
    [[nodiscard]] CBitmap* Background() const noexcept { return m_background.get(); }
    [[nodiscard]] CRect const& BackgroundRect() const noexcept { return m_backgroundRect; }

private:
    std::unique_ptr<CBitmap> m_offScreenBuffer;
    std::unique_ptr<CBitmap> m_background;
    CRect m_backgroundRect;
};

/// Where a picture goes in the area below a header: the placed picture when centred, else the whole client rectangle.
[[nodiscard]] CRect PlaceBackground(CRect const& clientRect, int headerHeight, CSize pictureSize,
                                    CBackgroundImage::Mode mode) noexcept;

} // namespace Ostrel::GUI::Detail
