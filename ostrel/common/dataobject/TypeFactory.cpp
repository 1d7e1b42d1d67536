#include <map>

#include <ostrel/common/dataobject/TypeFactory.h>
#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/SyncObject.h>

namespace Ostrel::Common
{

namespace
{

struct Registry
{
    CSyncObject lock;
    std::map<std::string, CDataObject* (*)()> classes OSTREL_GUARDED_BY(lock);
};

/// Never destroyed, as static objects of applications may use it to the very end.
Registry& TheRegistry()
{
    static Registry& registry = *new Registry;
    return registry;
}

} // namespace

bool CTypeFactory::RegisterClass(std::string const& name, CDataObject* (*create)())
{
    return InternalRegisterClass(name, create);
}

bool CTypeFactory::InternalRegisterClass(std::string const& name, CDataObject* (*create)())
{
    Registry& registry = TheRegistry();
    CLock const lock(registry.lock);
    return registry.classes.emplace(name, create).second;
}

CDataObject* CTypeFactory::CreateObject(std::string const& name)
{
    Registry& registry = TheRegistry();
    CLock const lock(registry.lock);
    auto const found = registry.classes.find(name);
    return found != registry.classes.end() && found->second != nullptr ? found->second() : nullptr;
}

} // namespace Ostrel::Common
