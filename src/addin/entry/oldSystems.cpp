// What the run-time libraries of the compiler import and Windows XP does not have. Defining the import's address here
// keeps it out of the DLL's import table, without which the DLL would not load there.
// Tested in scripts/check.

#include "base/win32.h"

namespace {

using TickCount = ULONGLONG(WINAPI*)();

ULONGLONG WINAPI tickCount() noexcept
{
    const auto newer = reinterpret_cast<TickCount>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetTickCount64")));
    // The run-time library measures time-outs of locks with it, which nothing here uses; a wrap-around does no harm.
    return newer ? newer() : GetTickCount();
}

} // namespace

extern "C" {
// The name under which the linker looks for the address of an imported function.
extern const TickCount importedTickCount __asm__("__imp__GetTickCount64@0");
const TickCount importedTickCount = tickCount;
}
