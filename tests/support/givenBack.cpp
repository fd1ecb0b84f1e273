#include "support/givenBack.h"

#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

namespace velk::test {
namespace {

bool isLeft = false;

void giveBack(void* memory) noexcept
{
    constexpr int nobodys = 0xDD;
    if (memory && !isLeft)
        std::memset(memory, nobodys, _msize(memory));
    std::free(memory);
}

} // namespace

GivenBackAsItWas::GivenBackAsItWas()
{
    isLeft = true;
}

GivenBackAsItWas::~GivenBackAsItWas()
{
    isLeft = false;
}

} // namespace velk::test

// As operator new has it from the run-time.
void operator delete(void* memory) noexcept
{
    velk::test::giveBack(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    velk::test::giveBack(memory);
}
