// Restores value records one after the other; each must survive being stored and restored again.
#include <ostrel/Common.h>

#include "Target.h"

using namespace Ostrel::Common;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CSerializer serializer = Fuzz::Restoring({data, size});
    CValue value;
    try
    {
        for (std::size_t i = 0; i < size; ++i)
        {
            serializer >> value;
            std::string const bytes = Fuzz::Stored(value);
            CValue again;
            Fuzz::Restore(bytes, again);
            Fuzz::Require(Fuzz::Stored(again) == bytes, "a restored value stores the same bytes");
            Fuzz::Require(value.FormatStl(nullptr) == again.FormatStl(nullptr), "and has the same text");
        }
    }
    catch (CSerializer::SerializationException const&)
    {
        Fuzz::Require(value.GetType() == TypeEmpty, "a failed read leaves the value empty");
    }
    return 0;
}
