#include <ostrel/gui/clipboard/DragDropSettings.h>
#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

void CDragDropSettings::Serialize(CArchive& archive)
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

void CDragDropSettings::Store(CArchive& archive) const
{
    archive << GetSerializeVertion() << m_canDragFromFixedContext << m_canDragFromScrollableContext
            << m_canDragNonSelectedChildren << m_canDragFilteredChildren << m_canDropToFixedContext
            << m_canDropToScrollableContext << m_canLocalGridCopy << m_canLocalGridMove << m_canRemoteGridCopy
            << m_canRemoteGridMove << m_canImportDataFromAnotherApplication << m_canGenerateDragImage
            << m_canHierarchicalDrop << m_mustKeepLevel << m_mustKeepParent << m_dropColor;
}

void CDragDropSettings::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    CDragDropSettings loaded;
    archive >> loaded.m_canDragFromFixedContext >> loaded.m_canDragFromScrollableContext >>
        loaded.m_canDragNonSelectedChildren >> loaded.m_canDragFilteredChildren >> loaded.m_canDropToFixedContext >>
        loaded.m_canDropToScrollableContext >> loaded.m_canLocalGridCopy >> loaded.m_canLocalGridMove >>
        loaded.m_canRemoteGridCopy >> loaded.m_canRemoteGridMove >> loaded.m_canImportDataFromAnotherApplication >>
        loaded.m_canGenerateDragImage >> loaded.m_canHierarchicalDrop >> loaded.m_mustKeepLevel >>
        loaded.m_mustKeepParent >> loaded.m_dropColor;
    *this = loaded;
}

} // namespace Ostrel::GUI
