#include "base/paths.h"

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

} // namespace

DriveAndRest splitDrive(std::wstring_view path)
{
    const size_t colon = path.find(L':');
    const size_t driveLength = colon == std::wstring_view::npos ? 0 : colon + 1;
    return {std::wstring(path.substr(0, driveLength)), std::wstring(path.substr(driveLength))};
}

PathParts splitPath(std::wstring_view path)
{
    auto [drive, rest] = splitDrive(path);
    const size_t backslash = rest.rfind(L'\\');
    if (backslash == std::wstring::npos || backslash == 0)
        return {std::move(drive), std::move(rest), {}};
    return {std::move(drive), rest.substr(0, backslash), rest.substr(backslash + 1)};
}

std::wstring parentDir(std::wstring_view path)
{
    const size_t backslash = path.rfind(L'\\');
    return std::wstring(path.substr(0, backslash == std::wstring_view::npos ? 0 : backslash));
}

std::wstring fileNameOf(std::wstring_view path)
{
    return std::wstring(path.substr(path.rfind(L'\\') + 1));
}

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

} // namespace velk
