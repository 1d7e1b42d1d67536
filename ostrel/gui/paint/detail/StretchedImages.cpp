#include <algorithm>

#include <ostrel/gui/paint/detail/StretchedImages.h>
#include <ostrel/platform/drawing/ImageList.h>

namespace Ostrel::GUI::Detail
{
namespace
{
// More images than that on one page are drawn again.
constexpr std::size_t kMostImages = 64;
} // namespace

ImageOnGround::ImageOnGround(CImageList const& list, int imageId, CSize size, COLORREF ground)
    : m_list(&list), m_imageId(imageId), m_ground(ground)
{
    m_dc.CreateCompatibleDC(nullptr);
    m_bitmap.CreateCompatibleBitmap(&m_dc, size.cx, size.cy);
    m_previous = m_dc.SelectObject(&m_bitmap);
    m_dc.FillSolidRect(0, 0, size.cx, size.cy, ground);
    list.Draw(&m_dc, imageId, CPoint(0, 0), ILD_TRANSPARENT);
}

ImageOnGround& StretchedImages::Get(CImageList const& list, int imageId, CSize size, COLORREF ground)
{
    auto const found =
        std::ranges::find_if(m_images, [&](auto const& image) { return image->IsOf(list, imageId, ground); });
    if (found != m_images.end())
    {
        return **found;
    }
    if (m_images.size() >= kMostImages)
    {
        m_images.clear();
    }
    return *m_images.emplace_back(std::make_unique<ImageOnGround>(list, imageId, size, ground));
}

} // namespace Ostrel::GUI::Detail
