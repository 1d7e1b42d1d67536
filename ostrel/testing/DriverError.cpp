#include <ostrel/testing/DriverError.h>

namespace Ostrel::Testing
{

DriverError::~DriverError() = default;

} // namespace Ostrel::Testing
