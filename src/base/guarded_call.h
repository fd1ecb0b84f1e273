#pragma once

#include <cstdint>
#include <span>

namespace velk {

// What became of a call of somebody else's function.
struct CallOutcome {
    int32_t result = 0;
    uint32_t exception = 0;      // the code of the structured exception that ended it; 0 when it came back
    const void* place = nullptr; // where that was raised
    int32_t stackError = 0;      // by how many bytes it left the stack off: it takes other arguments than it got
};

// Calls a stdcall function of plain 32-bit arguments so that what goes wrong in it ends the call and not the process:
// a fault, a C++ exception of any compiler whose exceptions are the system's, a stack that ran full. What the function
// left changed in the processor is put back: the control words and the state of the floating-point and vector units,
// the direction flag, the chain of exception handlers. Breakpoints and what is only told pass by. Frames of ours that a
// fault skips (a window procedure that was called back) are not unwound.
CallOutcome guardedCall(void* function, std::span<const uint32_t> arguments) noexcept;

} // namespace velk
