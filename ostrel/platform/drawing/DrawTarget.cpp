#include <ostrel/platform/drawing/DrawTarget.h>

namespace Ostrel::Platform
{

DrawTarget::~DrawTarget() = default;

} // namespace Ostrel::Platform
