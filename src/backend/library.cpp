#include "backend/library.h"

#include "platform/boundary.h"
#include "platform/error.h"
#include "platform/module.h"
#include "platform/never_destroyed.h"
#include "platform/text.h"
#include "platform/trace.h"
#include "platform/unique_any.h"

#include <array>
#include <cstring>
#include <optional>
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
};

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

bool isFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// For the routines of the system that fill a buffer and give the length needed when it is too small.
template <class Routine>
std::wstring systemText(Routine routine)
{
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = routine(text.data(), static_cast<DWORD>(text.size()));
    if (length > text.size()) {
        text.resize(length);
        length = routine(text.data(), length);
    }
    text.resize(length < text.size() ? length : 0);
    return text;
}

std::wstring programFolder()
{
    std::wstring path = systemText([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
    return path.substr(0, path.rfind(L'\\'));
}

bool isAbsolute(std::wstring_view folder)
{
    return folder.size() > 2 && (folder[1] == L':' || folder.substr(0, 2) == L"\\\\");
}

std::optional<std::wstring> inFolder(std::wstring_view folder)
{
    std::wstring path(folder);
    path += path.ends_with(L'\\') ? L"" : L"\\";
    path += libraryName;
    return isFile(path) ? std::optional(path) : std::nullopt;
}

std::optional<std::wstring> onSearchPath()
{
    const std::wstring folders =
        systemText([](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(L"PATH", text, size); });
    std::wstring_view rest = folders;
    while (!rest.empty()) {
        std::wstring_view folder = rest.substr(0, rest.find(L';'));
        rest.remove_prefix(folder.size() < rest.size() ? folder.size() + 1 : folder.size());
        if (folder.size() > 1 && folder.front() == L'"' && folder.back() == L'"')
            folder = folder.substr(1, folder.size() - 2);
        if (isAbsolute(folder))
            if (auto path = inFolder(folder))
                return path;
    }
    return std::nullopt;
}

// The system's own search also looks into the current directory, which is wherever the user opened a file last; a
// planted library must not be found there. So the other folders of that search are gone through here.
std::optional<std::wstring> findLibrary()
{
    const std::wstring folders[] = {
        module::folder(),
        programFolder(),
        systemText([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); }),
        systemText([](wchar_t* text, DWORD size) { return GetWindowsDirectoryW(text, size); }),
    };
    for (const std::wstring& folder : folders)
        if (auto path = inFolder(folder))
            return path;
    return onSearchPath();
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

unique_module load()
{
    const auto path = findLibrary();
    if (!path)
        throw libraryError(errorFileNotFound, L": " + std::wstring(libraryName));
    // A damaged library must not make the system show a box of its own over the IDE.
    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    unique_module module(LoadLibraryExW(path->c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    const DWORD code = GetLastError();
    SetErrorMode(mode);
    if (!module)
        throw loadError(code, *path);
    return module;
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
        throw libraryError(errorDllEntryPoint,
                           L" " + std::wstring(name, name + std::strlen(name)) + L" in " + std::wstring(libraryName));
    return library.addresses[index];
}

void* backendEntry(BackendFunction function)
{
    LoadedLibrary& library = loaded();
    switch (function) {
    case BackendFunction::RZGetString:
    case BackendFunction::RZGetStringP1:
    case BackendFunction::RZGetStringP2:
        return backendAddress(function);
    case BackendFunction::RZInitialize:
        library.isTerminated = false;
        return backendAddress(function);
    default:
        if (library.isTerminated)
            throw Error(errorInvalidCall);
        // Before the call: what the tool lets happen inside of it is after the end, too.
        library.isTerminated = function == BackendFunction::RZTerminate;
        return backendAddress(function);
    }
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
    loaded().addresses = {};
    loaded().module.reset();
    loaded().isTerminated = false;
}

} // namespace velk
