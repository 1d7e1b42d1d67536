#include <ostrel/common/format/detail/RegisteredFormat.h>

namespace Ostrel::Common::detail
{

void ThrowBadFormatVersion(char const* className)
{
    throw CSerializer::BadVersionException(std::string(className) +
                                           " doesn't support current version and can't be deserialized.");
}

} // namespace Ostrel::Common::detail
