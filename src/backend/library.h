#pragma once

#include <cstdint>

namespace velk {

class Error;

// The functions of the Backend library by name.
enum class BackendFunction {
#define BACKEND_FUNCTION(name, ...) name,
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
    count
};

// The address of a function. The library is loaded with the first function that is asked for: from the add-in's own
// folder, else from the folders of the program, the system and the search path. Errors 53 (no library), 48 (a
// library that does not load), 453 (a library without the function); each is tried again with the next call.
void* backendAddress(BackendFunction function);

// The same for a call that is made now. From RZTerminate on nothing but texts may be asked of the tool until the next
// RZInitialize: it has let go of everything, and the host may well have ended the session inside one of our calls.
// Error 5 for whatever is asked all the same.
void* backendEntry(BackendFunction function);

// True for a failure of backendAddress: the library is missing, damaged or of another release. An IDE's failure with
// the same number is not one.
bool isBackendLibraryFailure(const Error& failure) noexcept;

// Notes a call and its result in the log, if it is that fine. The polls for notifications and texts are left out: they
// would bury the rest.
void traceBackendCall(BackendFunction function, int32_t result) noexcept;

// Lets go of the library, and forgets that it was terminated. A later call loads it again.
void unloadBackend() noexcept;

} // namespace velk
