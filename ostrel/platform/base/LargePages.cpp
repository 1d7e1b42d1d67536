#include <sys/mman.h>

#include <ostrel/platform/base/LargePages.h>

namespace Ostrel::Platform
{

void WishForLargePages(void* memory, std::size_t bytes) noexcept
{
    static_cast<void>(madvise(memory, bytes, MADV_HUGEPAGE));
}

} // namespace Ostrel::Platform
