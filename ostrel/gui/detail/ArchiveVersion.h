// The version number with which every stored block of the grid's settings begins.
#pragma once

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>

namespace Ostrel::GUI
{

/// Reads the version. False for one below 1: such a block has nothing more to read. Throws CArchiveException,
/// badSchema, for one that is newer than `current`.
[[nodiscard]] inline bool ReadBlockVersion(CArchive& archive, int current)
{
    int version = 0;
    archive >> version;
    if (version > current)
    {
        AfxThrowArchiveException(CArchiveException::badSchema);
    }
    return version >= 1;
}

} // namespace Ostrel::GUI
