#include <algorithm>
#include <cstring>

#include <ostrel/platform/drawing/Bitmap.h>

using Ostrel::Platform::Surface;

namespace
{

bool IsPossibleSize(int width, int height) noexcept
{
    return width > 0 && height > 0 && std::max(width, height) <= Surface::kMaximumSize;
}

std::uint32_t Premultiplied(std::uint32_t pixel) noexcept
{
    std::uint32_t const opacity = pixel >> 24U;
    auto const channel = [&](unsigned shift) { return (((pixel >> shift) & 0xFFU) * opacity + 127U) / 255U << shift; };
    return (opacity << 24U) | channel(16) | channel(8) | channel(0);
}

void CopyBits(Surface& surface, void const* bits)
{
    auto const* from = static_cast<unsigned char const*>(bits);
    std::uint32_t anyOpacity = 0;
    std::size_t const rowBytes = static_cast<std::size_t>(surface.Width()) * 4;
    for (int y = 0; y < surface.Height(); ++y, from += rowBytes)
    {
        std::memcpy(surface.Row(y), from, rowBytes);
        std::for_each_n(surface.Row(y), surface.Width(), [&](std::uint32_t pixel) { anyOpacity |= pixel >> 24U; });
    }
    for (int y = 0; y < surface.Height(); ++y)
    {
        std::for_each_n(surface.Row(y), surface.Width(),
                        [&](std::uint32_t& pixel)
                        { pixel = anyOpacity != 0 ? Premultiplied(pixel) : pixel | 0xFF000000U; });
    }
}

} // namespace

BOOL CBitmap::Adopt(std::shared_ptr<Surface> surface)
{
    m_surface = std::move(surface);
    MarkCreated();
    return TRUE;
}

BOOL CBitmap::CreateCompatibleBitmap(CDC const* /*like*/, int width, int height)
{
    return IsPossibleSize(width, height) ? Adopt(std::make_shared<Surface>(width, height)) : FALSE;
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bitsPixel, void const* bits)
{
    if (planes != 1 || bitsPixel != 32 || !CreateCompatibleBitmap(nullptr, width, height))
    {
        return FALSE;
    }
    if (bits != nullptr)
    {
        CopyBits(*m_surface, bits);
    }
    return TRUE;
}

BOOL CBitmap::LoadPng(std::string const& path)
{
    auto surface = std::make_shared<Surface>();
    return surface->LoadPng(path) ? Adopt(std::move(surface)) : FALSE;
}

int CBitmap::GetBitmap(BITMAP* description) const noexcept
{
    if (description == nullptr || m_surface == nullptr)
    {
        return 0;
    }
    *description = {.bmType = 0,
                    .bmWidth = m_surface->Width(),
                    .bmHeight = m_surface->Height(),
                    .bmWidthBytes = m_surface->Width() * 4,
                    .bmPlanes = 1,
                    .bmBitsPixel = 32,
                    .bmBits = nullptr};
    return sizeof *description;
}

CSize CBitmap::GetSize() const noexcept
{
    return m_surface != nullptr ? CSize(m_surface->Width(), m_surface->Height()) : CSize();
}

CBitmap* CBitmap::FromHandle(HBITMAP handle) noexcept
{
    return dynamic_cast<CBitmap*>(CGdiObject::FromHandle(handle));
}
