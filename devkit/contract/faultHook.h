#pragma once

#include <cstdint>

namespace velk::devkit {

// What a call of a stand-in does instead of its work when its host wants it to fail.
// clang-format off
enum class Fault : int32_t {
    none = 0,
    // of automation objects: the result that is answered; "nothing" is success with a null object
    fail, outOfMemory, exception, rejected, nothing,
    // of the Backend: nothing is done and the answer is 0, or it and all numbers are negative; or the work is done and
    // all numbers are said to be the largest there is, or one whose text is too long for the memory
    zero, negative, absurd, huge,
};
// clang-format on

// Asked by each call of a stand-in, in a host that has set such a function. Throws nothing.
using FaultHook = Fault(__stdcall*)(const wchar_t* call);

} // namespace velk::devkit
