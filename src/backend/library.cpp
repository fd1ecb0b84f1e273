#include "backend/library.h"

#include "backend/library_search.h"

#include "base/boundary.h"
#include "base/error.h"
#include "base/guarded_call.h"
#include "base/never_destroyed.h"
#include "base/text.h"
#include "base/trace.h"
#include "base/unique_any.h"

#include <array>
#include <bit>
#include <string>
#include <string_view>

namespace velk {
namespace {

constexpr std::wstring_view libraryName = L"velkvsadd.dll";
constexpr auto functionCount = static_cast<size_t>(BackendFunction::count);

constexpr std::array<const char*, functionCount> functionNames = {
#define BACKEND_FUNCTION(name, ...) #name,
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
};

// What is loaded, and the functions that were asked for so far.
struct LoadedLibrary {
    unique_module module;
    std::array<void*, functionCount> addresses{};
    bool isTerminated = false;
    bool isSound = true;
    int faults = 0; // in this session
};

constexpr int mostFaults = 3;

LoadedLibrary& loaded()
{
    static never_destroyed<LoadedLibrary> library;
    return library.get();
}

// The number's own text and more, as a failure of the library.
Error libraryError(int32_t number, std::wstring_view more)
{
    const Error plain(number);
    return Error(number, plain.description() + std::wstring(more), plain.source(), plain.result())
        .ofLibrary(libraryName);
}

// "Error in loading DLL: velkvsadd.dll" and why; the system leaves a gap for the file's name in some of its texts.
Error loadError(DWORD code, const std::wstring& path)
{
    std::wstring reason = Error::fromWin32(code).description();
    if (const size_t gap = reason.find(L"%1"); gap != std::wstring::npos)
        reason.replace(gap, 2, path);
    else
        reason += L" (" + path + L")";
    return libraryError(errorLoadingDll, L": " + std::wstring(libraryName) + L". " + reason);
}

// The library, loaded in a process whose current directory is the system's meanwhile. For the libraries that this one
// needs the system looks beside it, then into its own folders, the current directory and the search path, where "."
// means the current directory, too. Every Windows since XP does so; the flags by which newer ones leave the current
// directory out leave out the search path as well, where a database's own libraries often are.
unique_module loadFrom(const std::wstring& path)
{
    const std::wstring before = currentDirectory();
    const scope_exit back([&] {
        if (!before.empty())
            SetCurrentDirectoryW(before.c_str());
    });
    SetCurrentDirectoryW(systemFolder().c_str());
    // A damaged library must not make the system show a box of its own over the IDE.
    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
    SetErrorMode(mode | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    // A library's beginning is code, too.
    const std::array<uint32_t, 3> arguments{std::bit_cast<uint32_t>(path.c_str()), 0, LOAD_WITH_ALTERED_SEARCH_PATH};
    const CallOutcome outcome = guardedCall(reinterpret_cast<void*>(LoadLibraryExW), arguments);
    unique_module module(std::bit_cast<HMODULE>(outcome.result));
    const DWORD code = outcome.exception ? ERROR_DLL_INIT_FAILED : GetLastError();
    SetErrorMode(mode);
    if (!module)
        throw loadError(code, path);
    return module;
}

unique_module load()
{
    const auto path = findLibrary(libraryName);
    if (!path)
        throw libraryError(errorFileNotFound, L": " + std::wstring(libraryName));
    return loadFrom(*path);
}

} // namespace

void* backendAddress(BackendFunction function)
{
    LoadedLibrary& library = loaded();
    const auto index = static_cast<size_t>(function);
    if (library.addresses[index])
        return library.addresses[index];
    if (!library.module)
        library.module = load();
    const char* name = functionNames[index];
    library.addresses[index] = reinterpret_cast<void*>(GetProcAddress(library.module.get(), name));
    if (!library.addresses[index])
        throw libraryError(errorDllEntryPoint, L" " + backendFunctionText(function));
    return library.addresses[index];
}

void* backendEntry(BackendFunction function)
{
    LoadedLibrary& library = loaded();
    if (function == BackendFunction::RZInitialize) {
        library.isTerminated = false;
        library.faults = 0;
    }
    if (isBackendGivenUp() && function != BackendFunction::RZTerminate)
        throw Error(errorInternal, std::wstring(libraryName) + L" failed too often in this session");
    if (isBackendText(function))
        return backendAddress(function);
    if (library.isTerminated)
        throw Error(errorInvalidCall);
    void* address = backendAddress(function);
    // Before the call: what the tool lets happen inside of it is after the end, too. A call that cannot be made ends
    // nothing.
    library.isTerminated = function == BackendFunction::RZTerminate;
    return address;
}

std::wstring backendFunctionText(BackendFunction function)
{
    const std::string_view name = functionNames[static_cast<size_t>(function)];
    return std::wstring(name.begin(), name.end()) + L" in " + std::wstring(libraryName);
}

BackendTrust countBackendFault() noexcept
{
    loaded().isSound = false;
    ++loaded().faults;
    return isBackendGivenUp() ? BackendTrust::givenUp : BackendTrust::kept;
}

bool isBackendGivenUp() noexcept
{
    return loaded().faults >= mostFaults;
}

bool isBackendLibraryFailure(const Error& failure) noexcept
{
    return failure.library() == libraryName;
}

void traceBackendCall(BackendFunction function, int32_t result) noexcept
{
    if (!trace::isOn(trace::Level::calls) || function == BackendFunction::RZGetNotification ||
        function == BackendFunction::RZGetString)
        return;
    swallow(L"trace", L"the add-in works without its log", [&] {
        const std::string_view name = functionNames[static_cast<size_t>(function)];
        trace::write(trace::Level::calls,
                     L"Backend: " + std::wstring(name.begin(), name.end()) + L" gave " + numberText(result));
    });
}

void unloadBackend() noexcept
{
    LoadedLibrary& library = loaded();
    library.addresses = {};
    const HMODULE module = library.module.release();
    if (module && library.isSound) {
        // Its end is code, as its beginning is.
        const std::array<uint32_t, 1> arguments{std::bit_cast<uint32_t>(module)};
        guardedCall(reinterpret_cast<void*>(FreeLibrary), arguments);
    }
    library.isTerminated = false;
    library.isSound = true;
    library.faults = 0;
}

} // namespace velk
