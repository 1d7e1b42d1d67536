#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/tooltip/TooltipSettings.h>
#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{

CTooltipSettings::CTooltipSettings()
    : m_backColor(GetSysColor(COLOR_INFOBK)),
      m_textColor(GetSysColor(COLOR_INFOTEXT)),
      m_borderColor(GetSysColor(COLOR_ACTIVEBORDER))
{}

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
    archive << GetSerializeVertion() << m_backColor << m_textColor << m_borderColor << m_delayMs << m_disappearDelayMs
            << static_cast<INT>(m_toolTipOffset.cx) << static_cast<INT>(m_toolTipOffset.cy)
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
    int position = 0;
    int mode = 0;
    archive >> loaded.m_backColor >> loaded.m_textColor >> loaded.m_borderColor >> loaded.m_delayMs >>
        loaded.m_disappearDelayMs >> loaded.m_toolTipOffset.cx >> loaded.m_toolTipOffset.cy >> loaded.m_textMargin.cx >>
        loaded.m_textMargin.cy >> position >> mode;
    loaded.m_position = static_cast<Position>(position);
    loaded.m_mode = static_cast<Mode>(mode);
    *this = loaded;
}

} // namespace Ostrel::GUI
