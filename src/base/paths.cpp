#include "base/paths.h"

namespace velk {

void trimAtNull(std::wstring& text)
{
    const size_t found = text.find(L'\0');
    text.resize(found == std::wstring::npos ? 0 : found);
}

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

} // namespace velk
