/// @file
/// Makes data objects by the name of their class, for objects that are restored from a stream.
#pragma once

#include <string>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

class CDataObject;

/// Any thread. Names are case-sensitive. There is no way to take a name back.
class OSTREL_COMMON_API CTypeFactory
{
public:
    CTypeFactory() = delete;

    /// Adds a class under the name that its objects give as GetSerializationName. Returns false and changes nothing if
    /// the name is taken: the first function stays.
    static bool RegisterClass(std::string const& name, CDataObject* (*create)());
    /// A new object of the class; null for an unknown name. The caller owns it. The function runs under the registry's
    /// lock, which its thread may take again.
    [[nodiscard]] static CDataObject* CreateObject(std::string const& name);

private:
    static bool InternalRegisterClass(std::string const& name, CDataObject* (*create)());
};

} // namespace Ostrel::Common
