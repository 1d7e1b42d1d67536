#include <ostrel/common/dataobject/FieldMapBuilder.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/testing/TestObject.h>

namespace Ostrel::Testing
{

// The rows must be gone before the values are.
TestObject::~TestObject()
{
    Platform::CallbackErrors errors;
    Platform::CallbackErrors::Keep([this]() { NotifyDelete(); });
    errors.Report();
}

Common::CFieldMap const* TestObject::GetFieldMap() const
{
    static auto const map = Common::CFieldMapBuilder<TestObject>()
                                .Field(Name, "Name", OSTREL_FIELD(TestObject, GetName, SetName))
                                .Field(Price, "Price", OSTREL_FIELD(TestObject, GetPrice, SetPrice))
                                .Field(Quantity, "Quantity", OSTREL_FIELD(TestObject, GetQuantity, SetQuantity))
                                .Field(Active, "Active", OSTREL_FIELD(TestObject, IsActive, SetActive))
                                .Field(Volume, "Volume", OSTREL_FIELD(TestObject, GetVolume, SetVolume))
                                .Field(Note, "Note", OSTREL_FIELD(TestObject, GetNote, SetNote))
                                .Build();
    return map.get();
}

} // namespace Ostrel::Testing
