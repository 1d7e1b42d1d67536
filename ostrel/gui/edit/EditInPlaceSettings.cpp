#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CEditInPlaceSettings::Serialize(CArchive& archive)
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

void CEditInPlaceSettings::Store(CArchive& archive) const
{
    archive << GetSerializeVertion() << m_isEnabled << static_cast<int>(m_activationType) << m_canActivateOnThumbClick
            << m_frameColor << m_canDrawHotFrame << m_canDrawHotThumb << m_canDrawThumbsAlways << m_canUseNavigation;
}

void CEditInPlaceSettings::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CEditInPlaceSettings loaded;
    int activationType = 0;
    archive >> loaded.m_isEnabled >> activationType >> loaded.m_canActivateOnThumbClick >> loaded.m_frameColor >>
        loaded.m_canDrawHotFrame >> loaded.m_canDrawHotThumb >> loaded.m_canDrawThumbsAlways >>
        loaded.m_canUseNavigation;
    loaded.m_activationType = static_cast<ActivationType>(activationType);
    *this = loaded;
}

} // namespace Ostrel::GUI
