// Restores objects with the name of their class in front: the factory makes them, and for names that it does not know a
// dynamic object keeps the values.
#include <memory>

#include "Record.h"
#include "Target.h"

using namespace Ostrel::Common;

namespace
{

CDataObject* MakeRecord()
{
    return new Fuzz::CRecord;
}

struct Restored
{
    std::string name;
    std::unique_ptr<CDataObject> object;
};

/// Without an object for bytes that are no record.
Restored RestoreNamed(std::span<std::uint8_t const> bytes)
{
    Restored restored;
    try
    {
        CSerializer serializer = Fuzz::Restoring(bytes);
        serializer >> restored.name;
        std::unique_ptr<CDataObject> object(CTypeFactory::CreateObject(restored.name));
        if (object == nullptr)
        {
            object = std::make_unique<CDynamicObject>(true);
        }
        serializer >> *object;
        restored.object = std::move(object);
    }
    catch (CSerializer::SerializationException const&)
    {}
    return restored;
}

std::string StoredNamed(Restored const& restored)
{
    return Fuzz::Stored(restored.name) + Fuzz::Stored(*restored.object);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    [[maybe_unused]] static bool const isRegistered = CTypeFactory::RegisterClass("Record", MakeRecord);
    Restored const first = RestoreNamed({data, size});
    if (first.object == nullptr)
    {
        return 0;
    }
    Fuzz::Require(first.object->IsSerializableType() == (first.name == "Record"), "the name chooses the class");
    std::string const bytes = StoredNamed(first);
    Restored const again = RestoreNamed({reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size()});
    Fuzz::Require(again.object != nullptr && StoredNamed(again) == bytes, "the same bytes after a round trip");
    return 0;
}
