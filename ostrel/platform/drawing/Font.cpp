#include <algorithm>
#include <cmath>
#include <cstdio>

#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/text/FontCatalog.h>

namespace
{

constexpr int kMaximumTenths = 10000;

}

BOOL CFont::CreateFontIndirect(LOGFONT const* description)
{
    if (description == nullptr)
    {
        return FALSE;
    }
    m_description = *description;
    m_fontId = Ostrel::Platform::FontIdOf(m_description);
    MarkCreated();
    return TRUE;
}

BOOL CFont::CreatePointFont(int tenthsOfPoint, LPCSTR faceName, CDC* /*dc*/)
{
    LOGFONT description = Ostrel::Platform::DefaultFontDescription();
    double const pixels = std::clamp(tenthsOfPoint, 0, kMaximumTenths) * 96.0 / 720.0 * Ostrel::Platform::GetScale();
    description.lfHeight = -static_cast<LONG>(std::lround(pixels));
    if (faceName != nullptr)
    {
        std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "%s", faceName);
    }
    return CreateFontIndirect(&description);
}

BOOL CFont::CreateStockObject(int number)
{
    if (number != DEFAULT_GUI_FONT && number != SYSTEM_FONT)
    {
        return FALSE;
    }
    LOGFONT const description = Ostrel::Platform::DefaultFontDescription();
    return CreateFontIndirect(&description);
}

int CFont::GetLogFont(LOGFONT* description) const noexcept
{
    if (description == nullptr || m_fontId == 0)
    {
        return 0;
    }
    *description = m_description;
    return sizeof m_description;
}

CFont* CFont::FromHandle(HFONT handle) noexcept
{
    return dynamic_cast<CFont*>(CGdiObject::FromHandle(handle));
}
