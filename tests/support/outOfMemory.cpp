#include "support/outOfMemory.h"

#include <windows.h>

#include <cstdlib>
#include <new>

namespace velk::test {
namespace {

DWORD sufferer = 0; // the thread; 0 for none
int left = 0;
bool isFelt = false;

bool mayHave() noexcept
{
    if (sufferer != GetCurrentThreadId())
        return true;
    isFelt = isFelt || left == 0;
    return left > 0 && left-- > 0;
}

void* allocated(std::size_t size)
{
    void* const memory = mayHave() ? std::malloc(size != 0 ? size : 1) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

} // namespace

OutOfMemory::OutOfMemory(int given)
{
    left = given;
    isFelt = false;
    sufferer = GetCurrentThreadId();
}

OutOfMemory::~OutOfMemory()
{
    sufferer = 0;
}

bool OutOfMemory::wasFelt() const
{
    return isFelt;
}

} // namespace velk::test

// Every program of the tests has its memory from here.
void* operator new(std::size_t size)
{
    return velk::test::allocated(size);
}
