#include "backend/library_search.h"

#include "base/module.h"
#include "base/paths.h"
#include "base/win32.h"

namespace velk {
namespace {

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

// Empty when the program's path is too long to be had.
std::wstring programFolder()
{
    return parentDir(systemText([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); }));
}

void addSearchPath(std::vector<std::wstring>& folders)
{
    const std::wstring path =
        systemText([](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(L"PATH", text, size); });
    std::wstring_view rest = path;
    while (!rest.empty()) {
        std::wstring_view folder = rest.substr(0, rest.find(L';'));
        rest.remove_prefix(folder.size() < rest.size() ? folder.size() + 1 : folder.size());
        if (folder.size() > 1 && folder.front() == L'"' && folder.back() == L'"')
            folder = folder.substr(1, folder.size() - 2);
        if (isFullyQualified(folder))
            folders.emplace_back(folder);
    }
}

} // namespace

// A folder that is not known is no folder: with a name behind it, it would be the root of the current drive.
std::optional<std::wstring> inFolder(std::wstring_view folder, std::wstring_view name)
{
    if (folder.empty())
        return std::nullopt;
    std::wstring path(folder);
    path += path.back() == L'\\' || path.back() == L'/' ? L"" : L"\\";
    path += name;
    return isFile(path) ? std::optional(path) : std::nullopt;
}

std::vector<std::wstring> libraryFolders(const std::wstring& addin, const std::wstring& program)
{
    std::vector<std::wstring> folders{
        addin,
        program,
        systemFolder(),
        systemText([](wchar_t* text, DWORD size) { return GetWindowsDirectoryW(text, size); }),
    };
    addSearchPath(folders);
    return folders;
}

std::optional<std::wstring> findLibrary(std::wstring_view name)
{
    for (const std::wstring& folder : libraryFolders(module::folder(), programFolder()))
        if (auto path = inFolder(folder, name))
            return path;
    return std::nullopt;
}

std::wstring systemFolder()
{
    return systemText([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); });
}

std::wstring currentDirectory()
{
    return systemText([](wchar_t* text, DWORD size) { return GetCurrentDirectoryW(size, text); });
}

} // namespace velk
