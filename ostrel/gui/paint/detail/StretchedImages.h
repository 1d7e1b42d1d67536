// The images that a paint pass stretches into cells, each drawn once on the ground that it is stretched with: most rows
// show the same few.
#pragma once

#include <memory>
#include <vector>

#include <ostrel/platform/drawing/DeviceContext.h>

class CImageList;

namespace Ostrel::GUI::Detail
{

/// An image at its own size on a ground of one colour, ready to be copied from.
class ImageOnGround
{
public:
    ImageOnGround(CImageList const& list, int imageId, CSize size, COLORREF ground);
    ImageOnGround(ImageOnGround const&) = delete;
    ImageOnGround& operator=(ImageOnGround const&) = delete;
    ~ImageOnGround() { m_dc.SelectObject(m_previous); }

    [[nodiscard]] bool IsOf(CImageList const& list, int imageId, COLORREF ground) const noexcept
    {
        return m_list == &list && m_imageId == imageId && m_ground == ground;
    }
    [[nodiscard]] CDC& GetDC() noexcept { return m_dc; }

private:
    CImageList const* m_list;
    int m_imageId;
    COLORREF m_ground;
    CBitmap m_bitmap;
    CDC m_dc;
    CBitmap* m_previous = nullptr;
};

/// Good for one pass: it does not hear of changes of a list.
class StretchedImages
{
public:
    [[nodiscard]] ImageOnGround& Get(CImageList const& list, int imageId, CSize size, COLORREF ground);

private:
    std::vector<std::unique_ptr<ImageOnGround>> m_images;
};

} // namespace Ostrel::GUI::Detail
