#include "support/badManners.h"

#include "base/win32.h"

#include <cstdlib>
#include <iterator>

namespace velk::test {
namespace {

// Without an end, but for what the compiler sees.
[[gnu::noinline]] int deeper(volatile char* above)
{
    volatile char room[512];
    room[0] = above[0];
    return above[0] ? deeper(room) + room[0] : 0;
}

} // namespace

int& expectedFaults() noexcept
{
    static int count = 0;
    return count;
}

void accessViolation()
{
    ++expectedFaults();
    __asm__ volatile("movl $0, (%0)" : : "r"(16) : "memory");
    std::abort();
}

void divideByZero()
{
    __asm__ volatile("xorl %%edx, %%edx\n\tmovl $1, %%eax\n\tdivl %0" : : "r"(0) : "eax", "edx");
    std::abort();
}

void throwAsAnotherCompiler()
{
    constexpr DWORD code = 0xE06D7363;
    const ULONG_PTR arguments[] = {0x19930520, 0, 0};
    RaiseException(code, EXCEPTION_NONCONTINUABLE, std::size(arguments), arguments);
    std::abort();
}

void overflowStack()
{
    volatile char first = 1;
    first = static_cast<char>(deeper(&first));
    std::abort();
}

uint16_t floatControlWord()
{
    uint16_t word = 0;
    __asm__ volatile("fnstcw %0" : "=m"(word));
    return word;
}

uint16_t floatStatusWord()
{
    uint16_t word = 0;
    __asm__ volatile("fnstsw %0" : "=m"(word));
    return word;
}

int numbersOnTheFloatStack()
{
    // A register is empty when both of its bits among the tags are set.
    struct {
        uint32_t control, status, tags, others[4];
    } environment{};
    __asm__ volatile("fnstenv %0\n\tfldenv %0" : "+m"(environment));
    int numbers = 0;
    for (int place = 0; place < 8; ++place)
        numbers += (environment.tags >> (2 * place) & 3U) != 3U;
    return numbers;
}

void setFloatControlWord(uint16_t word)
{
    __asm__ volatile("fldcw %0" : : "m"(word));
}

bool isFullStackTold() noexcept
{
    using Version = const char*(__cdecl*)();
    const auto version = reinterpret_cast<Version>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
    constexpr int firstSilent = 10;
    return !version || std::atoi(version()) < firstSilent;
}

} // namespace velk::test
