#include <algorithm>
#include <utility>

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/ImageList.h>

using Ostrel::Platform::PictureMode;
using Ostrel::Platform::PixelFromColor;
using Ostrel::Platform::Surface;

namespace
{

constexpr int kMaximumImageSide = 1024;

void MakeTransparent(Surface& surface, CRect const& area, COLORREF maskColor)
{
    std::uint32_t const mask = PixelFromColor(maskColor);
    for (int y = area.top; y < area.bottom; ++y)
    {
        std::uint32_t* const row = surface.Row(y);
        std::replace(row + area.left, row + area.right, mask, std::uint32_t{0});
    }
}

BYTE OpacityOf(UINT style) noexcept
{
    if ((style & ILD_BLEND50) != 0)
    {
        return 128;
    }
    return (style & ILD_BLEND25) != 0 ? 192 : 255;
}

} // namespace

BOOL CImageList::Create(int width, int height, UINT /*flags*/, int /*initialCount*/, int /*growBy*/)
{
    if (width < 1 || height < 1 || std::max(width, height) > kMaximumImageSide)
    {
        return FALSE;
    }
    DeleteImageList();
    m_width = width;
    m_height = height;
    return TRUE;
}

BOOL CImageList::DeleteImageList()
{
    BOOL const existed = IsCreated() ? TRUE : FALSE;
    m_strip.DeleteObject();
    m_count = 0;
    m_width = 0;
    m_height = 0;
    return existed;
}

int CImageList::Add(CBitmap* strip, COLORREF maskColor)
{
    if (!IsCreated() || strip == nullptr || strip->GetSurface() == nullptr)
    {
        return -1;
    }
    Surface const& source = *strip->GetSurface();
    int const added = source.Width() / m_width;
    if (added == 0 || (m_count + added) > Surface::kMaximumSize / m_width)
    {
        return -1;
    }
    auto joined = std::make_shared<Surface>((m_count + added) * m_width, m_height);
    Surface& target = *joined;
    CRect const place(m_count * m_width, 0, target.Width(), m_height);
    for (int y = 0; y < m_height; ++y) // rows that the strip does not have stay transparent
    {
        std::fill(target.Row(y) + place.left, target.Row(y) + place.right, std::uint32_t{0});
    }
    if (m_count > 0)
    {
        target.CopyFrom(*m_strip.GetSurface(), CRect(0, 0, place.left, m_height), CPoint(0, 0));
    }
    target.CopyFrom(source, CRect(0, 0, place.Width(), m_height), place.TopLeft());
    if (maskColor != CLR_NONE)
    {
        MakeTransparent(target, place, maskColor == CLR_DEFAULT ? source.ColorAt(0, 0) : maskColor);
    }
    m_strip.Adopt(std::move(joined));
    m_count += added;
    return m_count - added;
}

BOOL CImageList::Remove(int index)
{
    if (index < 0 || index >= m_count)
    {
        return FALSE;
    }
    if (m_count == 1)
    {
        m_strip.DeleteObject();
        m_count = 0;
        return TRUE;
    }
    Surface const& strip = *m_strip.GetSurface();
    int const cut = index * m_width;
    auto rest = std::make_shared<Surface>(strip.Width() - m_width, m_height);
    rest->CopyFrom(strip, CRect(0, 0, cut, m_height), CPoint(0, 0));
    rest->CopyFrom(strip, CRect(cut + m_width, 0, strip.Width(), m_height), CPoint(cut, 0));
    m_strip.Adopt(std::move(rest));
    --m_count;
    return TRUE;
}

int CImageList::GetImageCount() const noexcept
{
    return m_count;
}

BOOL CImageList::GetImageInfo(int index, IMAGEINFO* info) const noexcept
{
    if (info == nullptr || index < 0 || index >= m_count)
    {
        return FALSE;
    }
    *info = IMAGEINFO{};
    info->hbmImage = m_strip;
    info->rcImage = CRect(CPoint(index * m_width, 0), CSize(m_width, m_height));
    return TRUE;
}

BOOL CImageList::Draw(CDC* dc, int index, POINT at, UINT style) const
{
    return DrawEx(dc, index, at, CSize(m_width, m_height), CLR_DEFAULT, CLR_NONE, style);
}

BOOL CImageList::DrawEx(CDC* dc, int index, POINT at, SIZE size, COLORREF background, COLORREF /*foreground*/,
                        UINT style) const
{
    if (dc == nullptr || index < 0 || index >= m_count)
    {
        return FALSE;
    }
    CRect const from(CPoint(index * m_width, 0),
                     CSize(std::min<int>(size.cx, m_width), std::min<int>(size.cy, m_height)));
    if (from.IsRectEmpty())
    {
        return FALSE;
    }
    if (background == CLR_DEFAULT)
    {
        background = (style & ILD_TRANSPARENT) != 0 ? CLR_NONE : m_background;
    }
    if (background != CLR_NONE)
    {
        dc->FillSolidRect(CRect(at, from.Size()), background);
    }
    dc->DrawSurface(*m_strip.GetSurface(), from, CPoint(at),
                    {.mix = PictureMode::Mix::Alpha, .opacity = OpacityOf(style)});
    return TRUE;
}

COLORREF CImageList::SetBkColor(COLORREF color) noexcept
{
    return std::exchange(m_background, color);
}
