#include "scarceMemory.h"

#include <cstdlib>

namespace {

constexpr int plenty = -1;
int left = plenty;

} // namespace

namespace velk::test {

ScarceMemory::ScarceMemory(int allocations) noexcept
{
    left = allocations;
}

ScarceMemory::~ScarceMemory()
{
    left = plenty;
}

} // namespace velk::test

void* operator new(size_t size)
{
    if (left == 0)
        throw std::bad_alloc();
    if (left != plenty)
        --left;
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}
