/// @file
/// The picture that goes with the pointer while rows are dragged. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>

class CImageList;

namespace Ostrel::GUI
{

/// Does not own the image list: whoever holds the picture last deletes it.
class OSTREL_GUI_API CDragImage
{
public:
    /// No picture.
    CDragImage() noexcept = default;
    /// A picture and the pointer's place in it, in pixels.
    CDragImage(CImageList* imageList, int hotSpotX, int hotSpotY) noexcept
        : m_imageList(imageList), m_hotSpotX(hotSpotX), m_hotSpotY(hotSpotY)
    {}

    /// The picture, the first of the list; null for none.
    [[nodiscard]] CImageList* GetImageList() const noexcept { return m_imageList; }
    ///@{
    /// The pointer's place in the picture, in pixels from its left and top edge.
    [[nodiscard]] int GetHotSpotX() const noexcept { return m_hotSpotX; }
    [[nodiscard]] int GetHotSpotY() const noexcept { return m_hotSpotY; }
    ///@}

private:
    CImageList* m_imageList = nullptr;
    int m_hotSpotX = 0;
    int m_hotSpotY = 0;
};

} // namespace Ostrel::GUI
