#include <algorithm>

#include <ostrel/gui/paint/detail/PaintBuffers.h>
#include <ostrel/platform/drawing/DeviceContext.h>

namespace Ostrel::GUI::Detail
{
namespace
{

void TilePicture(CDC& to, CDC& from, CRect const& area, CSize size)
{
    for (int y = area.top; y <= area.bottom; y += size.cy)
    {
        for (int x = area.left; x <= area.right; x += size.cx)
        {
            to.BitBlt(x, y, size.cx, size.cy, &from, 0, 0, SRCCOPY);
        }
    }
}

void PlacePicture(CDC& to, CDC& from, CRect const& area, CRect const& placed, CSize size, CBackgroundImage::Mode mode)
{
    switch (mode)
    {
    case CBackgroundImage::Center:
        to.BitBlt(placed.left, placed.top, size.cx, size.cy, &from, 0, 0, SRCCOPY);
        break;
    case CBackgroundImage::Stretch:
        to.SetStretchBltMode(COLORONCOLOR);
        to.StretchBlt(area.left, area.top, area.Width(), area.Height(), &from, 0, 0, size.cx, size.cy, SRCCOPY);
        break;
    case CBackgroundImage::Tile:
        TilePicture(to, from, area, size);
        break;
    }
}

} // namespace

CRect PlaceBackground(CRect const& clientRect, int headerHeight, CSize pictureSize,
                      CBackgroundImage::Mode mode) noexcept
{
    if (mode != CBackgroundImage::Center)
    {
        return clientRect;
    }
    // A header higher than the window leaves no room either way.
    int const header = std::clamp(headerHeight, 0, clientRect.Height());
    CPoint const at(clientRect.left + (clientRect.Width() - pictureSize.cx) / 2,
                    clientRect.top + (clientRect.Height() - pictureSize.cy - header) / 2 + header);
    return {at, pictureSize};
}

PaintBuffers::PaintBuffers() noexcept = default;
PaintBuffers::~PaintBuffers() = default;

void PaintBuffers::Clear() noexcept
{
    m_offScreenBuffer.reset();
    m_background.reset();
    m_backgroundRect.SetRectEmpty();
}

void PaintBuffers::Rebuild(CDC& compatible, Options const& options)
{
    Clear();
    CBitmap* const picture = options.background.GetBitmap();
    CRect const& client = options.clientRect;
    if (client.IsRectEmpty())
    {
        return;
    }
    if (options.flickerFree || picture != nullptr)
    {
        m_offScreenBuffer = std::make_unique<CBitmap>();
        m_offScreenBuffer->CreateCompatibleBitmap(&compatible, client.right, client.bottom);
    }
    CSize const size = picture != nullptr ? picture->GetSize() : CSize();
    if (size.cx <= 0 || size.cy <= 0)
    {
        return;
    }
    m_background = std::make_unique<CBitmap>();
    m_background->CreateCompatibleBitmap(&compatible, client.right, client.bottom);
    m_backgroundRect = PlaceBackground(client, options.headerHeight, size, options.background.GetMode());
    CDC to;
    CDC from;
    to.CreateCompatibleDC(&compatible);
    from.CreateCompatibleDC(&compatible);
    CBitmap* const previousTo = to.SelectObject(m_background.get());
    CBitmap* const previousFrom = from.SelectObject(picture);
    CRect area = client;
    area.top += std::clamp(options.headerHeight, 0, client.Height());
    PlacePicture(to, from, area, m_backgroundRect, size, options.background.GetMode());
    from.SelectObject(previousFrom);
    to.SelectObject(previousTo);
}

} // namespace Ostrel::GUI::Detail
