#include "backend/library_search.h"

#include "base/module.h"
#include "base/win32.h"

namespace velk {
namespace {

constexpr std::wstring_view longForm = L"\\\\?\\";
constexpr std::wstring_view longShare = L"UNC\\";

bool isSeparator(wchar_t character) noexcept
{
    return character == L'\\' || character == L'/';
}

bool isLetter(wchar_t character) noexcept
{
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

bool beginsWithDrive(std::wstring_view folder) noexcept
{
    return folder.size() > 2 && isLetter(folder[0]) && folder[1] == L':' && isSeparator(folder[2]);
}

// "server\share", behind whatever marks it as one. A server named "." or "?" is the system's way to its devices.
bool beginsWithShare(std::wstring_view folder) noexcept
{
    const size_t separator = folder.find_first_of(L"\\/");
    if (separator == std::wstring_view::npos || separator + 1 >= folder.size())
        return false;
    const std::wstring_view server = folder.substr(0, separator);
    return !server.empty() && server != L"." && server != L"?" && !isSeparator(folder[separator + 1]);
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

// Empty when the program's path is too long to be had.
std::wstring programFolder()
{
    std::wstring path = systemText([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
    const size_t separator = path.rfind(L'\\');
    return path.substr(0, separator == std::wstring::npos ? 0 : separator);
}

// A folder that is not known is no folder: with a name behind it, it would be the root of the current drive.
std::optional<std::wstring> inFolder(std::wstring_view folder, std::wstring_view name)
{
    if (folder.empty())
        return std::nullopt;
    std::wstring path(folder);
    path += isSeparator(path.back()) ? L"" : L"\\";
    path += name;
    return isFile(path) ? std::optional(path) : std::nullopt;
}

std::optional<std::wstring> onSearchPath(std::wstring_view name)
{
    const std::wstring folders =
        systemText([](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(L"PATH", text, size); });
    std::wstring_view rest = folders;
    while (!rest.empty()) {
        std::wstring_view folder = rest.substr(0, rest.find(L';'));
        rest.remove_prefix(folder.size() < rest.size() ? folder.size() + 1 : folder.size());
        if (folder.size() > 1 && folder.front() == L'"' && folder.back() == L'"')
            folder = folder.substr(1, folder.size() - 2);
        if (isFullyQualified(folder))
            if (auto path = inFolder(folder, name))
                return path;
    }
    return std::nullopt;
}

} // namespace

bool isFullyQualified(std::wstring_view folder) noexcept
{
    if (folder.starts_with(longForm)) {
        folder.remove_prefix(longForm.size());
        if (folder.starts_with(longShare))
            return beginsWithShare(folder.substr(longShare.size()));
        return beginsWithDrive(folder) || folder.starts_with(L"Volume{");
    }
    if (folder.size() > 2 && isSeparator(folder[0]) && isSeparator(folder[1]))
        return beginsWithShare(folder.substr(2));
    return beginsWithDrive(folder);
}

std::optional<std::wstring> findLibrary(std::wstring_view name)
{
    const std::wstring folders[] = {
        module::folder(),
        programFolder(),
        systemFolder(),
        systemText([](wchar_t* text, DWORD size) { return GetWindowsDirectoryW(text, size); }),
    };
    for (const std::wstring& folder : folders)
        if (auto path = inFolder(folder, name))
            return path;
    return onSearchPath(name);
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
