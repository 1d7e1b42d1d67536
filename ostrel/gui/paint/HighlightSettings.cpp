#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CHighlightSettings::Serialize(CArchive& archive)
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

void CHighlightSettings::Store(CArchive& archive) const
{
    archive << GetSerializeVertion() << m_highlightPeriodMs << m_foreColor << m_backColor << m_foreAlpha << m_backAlpha
            << m_fadingSpanMs << static_cast<int>(m_mode);
}

void CHighlightSettings::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CHighlightSettings loaded;
    int mode = 0;
    archive >> loaded.m_highlightPeriodMs >> loaded.m_foreColor >> loaded.m_backColor >> loaded.m_foreAlpha >>
        loaded.m_backAlpha >> loaded.m_fadingSpanMs >> mode;
    loaded.m_mode = static_cast<Mode>(mode);
    *this = loaded;
}

} // namespace Ostrel::GUI
