#include <algorithm>

#include <ostrel/platform/drawing/Pen.h>

BOOL CPen::CreatePen(int style, int width, COLORREF color)
{
    m_style = style;
    m_width = std::max(width, 1);
    m_color = color;
    MarkCreated();
    return TRUE;
}

CPen* CPen::FromHandle(HPEN handle) noexcept
{
    return dynamic_cast<CPen*>(CGdiObject::FromHandle(handle));
}
