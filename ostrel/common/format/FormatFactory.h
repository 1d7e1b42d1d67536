/// @file
/// Makes formats by the name of their class, for formats that are restored from a stream. The library's own formats are
/// known from the first use on; applications add theirs.
#pragma once

#include <string>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

class CFormat;

/// Any thread.
class OSTREL_COMMON_API CFormatFactory
{
public:
    CFormatFactory() = delete;

    /// Adds a class under a name. Returns false and changes nothing if the name is taken: the first creator stays.
    static bool RegisterFormat(std::string const& name, CFormat* (*creator)());
    /// A new format of the class with its default settings; null for an unknown name. The caller owns it.
    [[nodiscard]] static CFormat* Create(std::string const& name);

private:
    static bool InternalRegisterFormat(std::string const& name, CFormat* (*creator)());
};

} // namespace Ostrel::Common
