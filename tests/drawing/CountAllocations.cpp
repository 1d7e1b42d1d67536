// Counts what the test program allocates.
#include <atomic>
#include <cstdlib>
#include <new>

#include "DrawingTesting.h"

namespace
{

std::atomic<long> g_allocations{0};

}

long CountAllocations() noexcept
{
    return g_allocations;
}

void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
