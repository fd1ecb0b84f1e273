#include "devkit/backend/odbc.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>
#include <cwchar>
#include <memory>

namespace velk::devkit {
namespace {

constexpr std::wstring_view keyword = L"database=";

bool isKeyword(const std::wstring& text, size_t place)
{
    return place + keyword.size() <= text.size() &&
           _wcsnicmp(text.c_str() + place, keyword.data(), keyword.size()) == 0;
}

size_t valuePlace(const std::wstring& text)
{
    for (size_t place = 0; place < text.size(); ++place) {
        if (isKeyword(text, place))
            return place + keyword.size();
        place = text.find(L';', place);
        if (place == std::wstring::npos)
            break;
    }
    return std::wstring::npos;
}

struct heap_deleter {
    void operator()(char* memory) const noexcept { HeapFree(GetProcessHeap(), 0, memory); }
};

std::wstring driversPath(const std::wstring& path)
{
    using UnixName = char*(__cdecl*)(const wchar_t*);
    const auto unixName = reinterpret_cast<UnixName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (!unixName)
        return path;
    // The folder, because only what exists has a Unix name with certainty.
    const std::wstring folder = folderOf(path);
    const std::unique_ptr<char, heap_deleter> name(unixName(folder.c_str()));
    return name ? fromUtf8(name.get()) + L"/" + path.substr(folder.size() + 1) : path;
}

} // namespace

DatabasePlace placeDatabase(const std::wstring& connectionString, const std::wstring& folder)
{
    const size_t from = valuePlace(connectionString);
    if (from == std::wstring::npos)
        return {connectionString, {}};
    const size_t end = std::min(connectionString.find(L';', from), connectionString.size());
    const std::wstring value = connectionString.substr(from, end - from);
    const bool isFile = value.find_first_of(L"./\\") != std::wstring::npos;
    if (!isFile || value.starts_with(L'/'))
        return {connectionString, value};
    const std::wstring path = absolutePath(folder, value);
    std::wstring placed = connectionString;
    placed.replace(from, end - from, driversPath(path));
    return {placed, path};
}

} // namespace velk::devkit
