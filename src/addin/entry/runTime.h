#pragma once

namespace velk {

// Gives back what the compiler's run-time library took from the system for this DLL and would keep beyond it: once a
// load of the DLL, and of the slots of threads a process has a thousand. Nothing may throw any more then.
void giveBackRunTime() noexcept;

} // namespace velk
