#pragma once

#include <cstdint>
#include <string>

namespace velk {

class Error;

// The functions of the Backend library by name.
enum class BackendFunction {
#define BACKEND_FUNCTION(name, ...) name,
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
    count
};

// Texts, which may be asked for without a session, too.
constexpr bool isBackendText(BackendFunction function) noexcept
{
    return function == BackendFunction::RZGetString || function == BackendFunction::RZGetStringP1 ||
           function == BackendFunction::RZGetStringP2;
}
// "RZGetString in velkvsadd.dll"
std::wstring backendFunctionText(BackendFunction function);

// The address of a function. The library is loaded with the first function that is asked for: from the add-in's own
// folder, else from the folders of the program, the system and the search path. Errors 53 (no library), 48 (a
// library that does not load), 453 (a library without the function); each is tried again with the next call.
void* backendAddress(BackendFunction function);

// The same for a call that is made now. From RZTerminate on nothing but texts may be asked of the tool until the next
// RZInitialize: it has let go of everything, and the host may well have ended the session inside one of our calls.
// Error 5 for whatever is asked all the same.
void* backendEntry(BackendFunction function);

// A call ended in a fault. The session goes on, since one bad object need not spoil the others; but the third fault in
// it is one too many: from then on no call is made but the end of the session, error 51 for whatever is asked all the
// same, until the next RZInitialize. A library that has had a fault stays in the process, where its threads may still
// be at work.
enum class BackendTrust { kept, givenUp };
BackendTrust countBackendFault() noexcept;
bool isBackendGivenUp() noexcept;

// True for a failure of backendAddress: the library is missing, damaged or of another release. An IDE's failure with
// the same number is not one.
bool isBackendLibraryFailure(const Error& failure) noexcept;

// Notes a call and its result in the log, if it is that fine. The polls for notifications and texts are left out: they
// would bury the rest.
void traceBackendCall(BackendFunction function, int32_t result) noexcept;

// Lets go of the library, and forgets that it was terminated. A later call loads it again.
void unloadBackend() noexcept;

} // namespace velk
