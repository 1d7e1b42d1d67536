// Restores object records into a class with fields of all types and into an object that declares none.
#include "Record.h"
#include "Target.h"

using namespace Ostrel::Common;
using Fuzz::CRecord;

namespace
{

/// Returns false for bytes that are no record.
bool RestoreForeign(std::span<std::uint8_t const> bytes, CDataObject& object)
{
    try
    {
        CSerializer serializer = Fuzz::Restoring(bytes);
        serializer >> object;
        return true;
    }
    catch (CSerializer::SerializationException const&)
    {
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CRecord record;
    RestoreForeign({data, size}, record);
    Fuzz::Require(record.GetPeer() == nullptr, "bytes never become pointers");
    std::string const bytes = Fuzz::Stored(record);
    CRecord again;
    Fuzz::Restore(bytes, again);
    Fuzz::Require(Fuzz::Stored(again) == bytes, "an object stores the same bytes after a round trip");

    CDynamicObject dynamic(false);
    RestoreForeign({data, size}, dynamic);
    std::set<long> fids;
    dynamic.GetAllFids(fids);
    Fuzz::Require(fids.size() <= size, "there are no more fields than bytes");
    for (long const fid : fids)
    {
        static_cast<void>(dynamic.GetFormattedStlString(fid, nullptr));
    }
    return 0;
}
