// What the run-time libraries of the compiler import and Windows XP does not have. Defining the import's address here
// keeps it out of the import tables of what is shipped, which would not load there otherwise.
// Tested in scripts/check.

#include "base/win32.h"

namespace {

template <class Function>
Function ofTheSystem(const char* name) noexcept
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

using TickCount = ULONGLONG(WINAPI*)();

ULONGLONG WINAPI tickCount() noexcept
{
    const auto newer = ofTheSystem<TickCount>("GetTickCount64");
    // The run-time library measures time-outs of locks with it, which nothing here uses; a wrap-around does no harm.
    return newer ? newer() : GetTickCount();
}

// From GCC 13 on the run-time library lets a thread wait for another one's static object with a condition. Who waits
// may always be woken for nothing, and looks again: without conditions that is a short sleep.
using Condition = void*;
using ForCondition = void(WINAPI*)(Condition*);
using SleepForCondition = BOOL(WINAPI*)(Condition*, CRITICAL_SECTION*, DWORD);

void callOfTheSystem(const char* name, Condition* condition) noexcept
{
    if (const auto newer = ofTheSystem<ForCondition>(name))
        newer(condition);
}

void WINAPI initialize(Condition* condition) noexcept
{
    *condition = nullptr;
    callOfTheSystem("InitializeConditionVariable", condition);
}

void WINAPI wakeOne(Condition* condition) noexcept
{
    callOfTheSystem("WakeConditionVariable", condition);
}

void WINAPI wakeAll(Condition* condition) noexcept
{
    callOfTheSystem("WakeAllConditionVariable", condition);
}

BOOL WINAPI sleep(Condition* condition, CRITICAL_SECTION* lock, DWORD milliseconds) noexcept
{
    if (const auto newer = ofTheSystem<SleepForCondition>("SleepConditionVariableCS"))
        return newer(condition, lock, milliseconds);
    LeaveCriticalSection(lock);
    Sleep(1);
    EnterCriticalSection(lock);
    return TRUE;
}

} // namespace

extern "C" {
// The names under which the linker looks for the addresses of imported functions.
extern const TickCount importedTickCount __asm__("__imp__GetTickCount64@0");
const TickCount importedTickCount = tickCount;
extern const ForCondition importedInitialize __asm__("__imp__InitializeConditionVariable@4");
const ForCondition importedInitialize = initialize;
extern const ForCondition importedWakeOne __asm__("__imp__WakeConditionVariable@4");
const ForCondition importedWakeOne = wakeOne;
extern const ForCondition importedWakeAll __asm__("__imp__WakeAllConditionVariable@4");
const ForCondition importedWakeAll = wakeAll;
extern const SleepForCondition importedSleep __asm__("__imp__SleepConditionVariableCS@12");
const SleepForCondition importedSleep = sleep;
}
