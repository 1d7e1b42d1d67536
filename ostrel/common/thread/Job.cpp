#include <ostrel/common/thread/Job.h>

namespace Ostrel::Common
{

CJob::~CJob() = default;

} // namespace Ostrel::Common
