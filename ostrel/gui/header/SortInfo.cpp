#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::GUI
{

CSortInfo::CSortInfo(long fid, bool reverse) noexcept : m_fid(Platform::NarrowToInt32(fid)), m_reverse(reverse) {}

void CSortInfo::SetFid(long fid) noexcept
{
    m_fid = Platform::NarrowToInt32(fid);
}

void CSortInfo::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        archive << GetSerializeVersion() << m_fid << m_reverse;
        return;
    }
    if (!ReadBlockVersion(archive, GetSerializeVersion()))
    {
        return;
    }
    int fid = 0;
    bool reverse = false;
    archive >> fid >> reverse;
    m_fid = fid;
    m_reverse = reverse;
}

} // namespace Ostrel::GUI
