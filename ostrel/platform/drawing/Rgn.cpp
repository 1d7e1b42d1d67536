#include <utility>

#include <ostrel/platform/drawing/Rgn.h>

using Ostrel::Platform::Region;
using Ostrel::Platform::RegionKind;

BOOL CRgn::CreateRectRgn(int left, int top, int right, int bottom)
{
    CRect rect(left, top, right, bottom);
    rect.NormalizeRect();
    SetRegion(Region(rect));
    return TRUE;
}

BOOL CRgn::CreateRectRgnIndirect(RECT const* rect)
{
    return rect != nullptr ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

void CRgn::SetRectRgn(RECT const* rect)
{
    CreateRectRgnIndirect(rect);
}

int CRgn::CombineRgn(CRgn const* first, CRgn const* second, int mode)
{
    if (first == nullptr || (second == nullptr && mode != RGN_COPY) || mode < RGN_AND || mode > RGN_COPY)
    {
        return ERROR;
    }
    Region result = first->m_region;
    switch (mode)
    {
    case RGN_AND:
        result.Intersect(second->m_region);
        break;
    case RGN_OR:
        result.Union(second->m_region);
        break;
    case RGN_XOR:
        result.Xor(second->m_region);
        break;
    case RGN_DIFF:
        result.Subtract(second->m_region);
        break;
    default:
        break;
    }
    SetRegion(std::move(result));
    return RegionKind(m_region);
}

int CRgn::OffsetRgn(int dx, int dy)
{
    m_region.Offset(dx, dy);
    return RegionKind(m_region);
}

int CRgn::GetRgnBox(RECT* box) const
{
    if (box == nullptr)
    {
        return ERROR;
    }
    *box = m_region.Bounds();
    return RegionKind(m_region);
}

BOOL CRgn::RectInRegion(RECT const* rect) const noexcept
{
    return rect != nullptr && m_region.Intersects(CRect(*rect)) ? TRUE : FALSE;
}

BOOL CRgn::EqualRgn(CRgn const* other) const noexcept
{
    return other != nullptr && m_region == other->m_region ? TRUE : FALSE;
}

void CRgn::SetRegion(Region region)
{
    m_region = std::move(region);
    MarkCreated();
}

CRgn* CRgn::FromHandle(HRGN handle) noexcept
{
    return dynamic_cast<CRgn*>(CGdiObject::FromHandle(handle));
}
