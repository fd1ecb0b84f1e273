#pragma once

#include <string_view>

namespace velk::devkit {

// Asks before every allocation that a library makes through its imports: strings of automation, the C run-time, on
// which operator new stands, and the system's heaps. The library knows nothing of it: its import table is changed when
// it is loaded, before its own start.
using AllocationGate = bool (*)(const wchar_t* function) noexcept;

// For each library of that name that is loaded from now on. Once in a process.
void gateAllocations(const wchar_t* library, AllocationGate mayAllocate);

} // namespace velk::devkit
