#include <ostrel/common/dataobject/TypeFactory.h>
#include <ostrel/common/thread/detail/CreatorRegistry.h>

namespace Ostrel::Common
{

namespace
{

/// Never destroyed, as static objects of applications may use it to the very end.
detail::CreatorRegistry<CDataObject>& TheRegistry()
{
    static auto& registry = *new detail::CreatorRegistry<CDataObject>;
    return registry;
}

} // namespace

bool CTypeFactory::RegisterClass(std::string const& name, CDataObject* (*create)())
{
    return InternalRegisterClass(name, create);
}

bool CTypeFactory::InternalRegisterClass(std::string const& name, CDataObject* (*create)())
{
    return TheRegistry().Add(name, create);
}

CDataObject* CTypeFactory::CreateObject(std::string const& name)
{
    return TheRegistry().Create(name);
}

} // namespace Ostrel::Common
