#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/paint/ColorBlend.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CColorBlend::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        archive << GetSerializeVertion() << m_color << m_opacity;
        return;
    }
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CColorBlend loaded;
    archive >> loaded.m_color >> loaded.m_opacity;
    *this = loaded;
}

} // namespace Ostrel::GUI
