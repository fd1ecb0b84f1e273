// What the compiler's run-time library keeps of the exceptions of a thread. Its own functions make it when a thread
// throws for the first time, of memory that may be just what is missing then, and end the process without it. Those of
// the same names here are linked in their place.
// Tested in tests/unit/addin/entry/exceptionStateTest.cpp, and without memory in tests/system/faults/faultsTest.cpp.
#include "base/unique_any.h"

#include <array>
#include <cstdlib>
#include <cxxabi.h>

namespace velk {
namespace {

// As the run-time has it.
struct ExceptionState {
    void* caught = nullptr;
    unsigned int uncaught = 0;
};

struct ThreadState {
    volatile LONG thread = 0; // its number; 0 for a place that is free
    ExceptionState exceptions;

    bool take(LONG from, LONG to) noexcept { return InterlockedCompareExchange(&thread, to, from) == from; }
    bool isIdle() const noexcept { return !exceptions.caught && exceptions.uncaught == 0; }
};

// The add-in lives on one thread, and a host has some others at most that it comes on. No thread says when it ends.
std::array<ThreadState, 64> states;

bool hasEnded(LONG thread) noexcept
{
    const unique_kernel_handle opened(OpenThread(SYNCHRONIZE, FALSE, static_cast<DWORD>(thread)));
    return !opened || WaitForSingleObject(opened.get(), 0) == WAIT_OBJECT_0;
}

ExceptionState& stateOf(LONG thread) noexcept
{
    for (ThreadState& state : states)
        if (state.thread == thread)
            return state.exceptions;
    for (ThreadState& state : states)
        if (state.take(0, thread))
            return state.exceptions;
    for (ThreadState& state : states)
        if (state.isIdle() && state.take(state.thread, thread))
            return state.exceptions;
    // A thread may have ended inside of a handler.
    for (ThreadState& state : states)
        if (const LONG before = state.thread; hasEnded(before) && state.take(before, thread)) {
            state.exceptions = {};
            return state.exceptions;
        }
    std::abort();
}

} // namespace
} // namespace velk

namespace __cxxabiv1 {

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept
{
    return reinterpret_cast<__cxa_eh_globals*>(&velk::stateOf(static_cast<LONG>(GetCurrentThreadId())));
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept
{
    return __cxa_get_globals();
}

} // namespace __cxxabiv1
