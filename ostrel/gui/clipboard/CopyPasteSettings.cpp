#include <ostrel/gui/clipboard/CopyPasteSettings.h>
#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CCopyPasteSettings::Serialize(CArchive& archive)
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

void CCopyPasteSettings::Store(CArchive& archive) const
{
    archive << GetSerializeVertion() << m_canCopyFromFixedContext << m_canCopyFromScrollableContext
            << m_canCopyNonSelectedChildren << m_canCopyFilteredChildren << m_canCutFromFixedContext
            << m_canCutFromScrollableContext << m_canPasteToFixedContext << m_canPasteToScrollableContext
            << m_canPasteWhenNoFocus << m_canPasteWhenNoFocusToEnd << m_canImportDataFromAnotherApplication
            << static_cast<int>(m_pasteType) << static_cast<int>(m_ensureVisibleMode) << static_cast<int>(m_focusMode);
}

void CCopyPasteSettings::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CCopyPasteSettings loaded;
    int pasteType = 0;
    int ensureVisibleMode = 0;
    int focusMode = 0;
    archive >> loaded.m_canCopyFromFixedContext >> loaded.m_canCopyFromScrollableContext >>
        loaded.m_canCopyNonSelectedChildren >> loaded.m_canCopyFilteredChildren >> loaded.m_canCutFromFixedContext >>
        loaded.m_canCutFromScrollableContext >> loaded.m_canPasteToFixedContext >>
        loaded.m_canPasteToScrollableContext >> loaded.m_canPasteWhenNoFocus >> loaded.m_canPasteWhenNoFocusToEnd >>
        loaded.m_canImportDataFromAnotherApplication >> pasteType >> ensureVisibleMode >> focusMode;
    loaded.m_pasteType = static_cast<PasteType>(pasteType);
    loaded.m_ensureVisibleMode = static_cast<EnsureVisibleMode>(ensureVisibleMode);
    loaded.m_focusMode = static_cast<FocusMode>(focusMode);
    *this = loaded;
}

} // namespace Ostrel::GUI
