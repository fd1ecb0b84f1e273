#pragma once

#include <string>
#include <windows.h>

namespace velk::devkit {

// What is wrong with an add-in that a fault was raised in, or in memory that nobody's code is in any more; nothing for
// what is raised elsewhere, such as in the Backend, which may fail as it likes.
std::wstring addInFault(const EXCEPTION_RECORD& raised);

// Says so and ends the process with this exit code when it happens. A system that passes over faults inside window
// procedures, as Wine does, would let a script hold.
void endOnAddInFault(UINT exitCode) noexcept;

} // namespace velk::devkit
