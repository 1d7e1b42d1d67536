#include <ostrel/platform/drawing/Brush.h>
#include <ostrel/platform/drawing/SystemLook.h>

BOOL CBrush::CreateSolidBrush(COLORREF color)
{
    m_color = color;
    m_hollow = false;
    MarkCreated();
    return TRUE;
}

BOOL CBrush::CreateHollowBrush()
{
    m_hollow = true;
    MarkCreated();
    return TRUE;
}

BOOL CBrush::CreateSysColorBrush(int colorIndex)
{
    return Ostrel::Platform::IsSystemColor(colorIndex) ? CreateSolidBrush(GetSysColor(colorIndex)) : FALSE;
}

CBrush* CBrush::FromHandle(HBRUSH handle) noexcept
{
    return dynamic_cast<CBrush*>(CGdiObject::FromHandle(handle));
}
