#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/tooltip/TooltipSettings.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CTooltipSettings::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        Store(archive);
    }
    else
    {
        Load(archive);
    }
}

void CTooltipSettings::Store(CArchive& archive) const
{
    archive << GetSerializeVertion() << m_backColor.Get() << m_textColor.Get() << m_borderColor.Get() << m_delayMs
            << m_disappearDelayMs << static_cast<INT>(m_toolTipOffset.cx) << static_cast<INT>(m_toolTipOffset.cy)
            << static_cast<INT>(m_textMargin.cx) << static_cast<INT>(m_textMargin.cy) << static_cast<int>(m_position)
            << static_cast<int>(m_mode);
}

void CTooltipSettings::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CTooltipSettings loaded;
    COLORREF back = 0;
    COLORREF text = 0;
    COLORREF border = 0;
    int position = 0;
    int mode = 0;
    archive >> back >> text >> border >> loaded.m_delayMs >> loaded.m_disappearDelayMs >> loaded.m_toolTipOffset.cx >>
        loaded.m_toolTipOffset.cy >> loaded.m_textMargin.cx >> loaded.m_textMargin.cy >> position >> mode;
    loaded.m_backColor.SetUnlessSame(back);
    loaded.m_textColor.SetUnlessSame(text);
    loaded.m_borderColor.SetUnlessSame(border);
    loaded.m_position = static_cast<Position>(position);
    loaded.m_mode = static_cast<Mode>(mode);
    *this = loaded;
}

} // namespace Ostrel::GUI
