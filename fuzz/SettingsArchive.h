// Settings to archive bytes and back.
#pragma once

#include <span>
#include <vector>

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/File.h>

namespace Fuzz
{

template <class T>
std::vector<BYTE> Archived(T& settings)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    settings.Serialize(archive);
    archive.Close();
    return file.Bytes();
}

/// False for bytes that the archive refuses. Any other exception than the archive's is a fault.
template <class T>
bool LoadArchived(std::span<BYTE const> bytes, T& settings)
{
    CMemFile file(bytes);
    CArchive archive(&file, CArchive::load);
    try
    {
        settings.Serialize(archive);
        return true;
    }
    catch (CArchiveException* exception)
    {
        exception->Delete();
        return false;
    }
}

} // namespace Fuzz
