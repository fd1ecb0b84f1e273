#include "devkit/backend/systemFile.h"

#include "devkit/base/uniqueFile.h"

#include <algorithm>

namespace velk::devkit {
namespace {

constexpr LONGLONG mostBytes = 16 * 1024 * 1024;

} // namespace

std::wstring environmentText(const wchar_t* name)
{
    std::wstring text(1, L'\0');
    for (;;) {
        const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
        const bool whole = length < text.size();
        text.resize(length);
        if (whole)
            return text;
    }
}

std::optional<std::string> readBytes(const std::wstring& path)
{
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const unique_file file(CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size))
        return std::nullopt;
    if (size.QuadPart > mostBytes) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return std::nullopt;
    bytes.resize(read);
    return bytes;
}

bool writeBytes(const std::wstring& path, std::string_view bytes)
{
    const std::wstring beside = path + L".new";
    unique_file file(CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    if (!file || !WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        !FlushFileBuffers(file.get()))
        return false;
    file.reset();
    return MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

std::wstring fileStamp(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) ||
        data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return L"";
    return std::to_wstring(data.ftLastWriteTime.dwHighDateTime) + L"." +
           std::to_wstring(data.ftLastWriteTime.dwLowDateTime) + L"." + std::to_wstring(data.nFileSizeLow);
}

std::wstring folderOf(const std::wstring& path)
{
    const size_t last = path.find_last_of(L"\\/");
    return last == std::wstring::npos ? L"" : path.substr(0, last);
}

std::wstring baseName(const std::wstring& path)
{
    const std::wstring file = path.substr(path.find_last_of(L"\\/") + 1);
    return file.substr(0, file.find_last_of(L'.'));
}

std::wstring absolutePath(const std::wstring& folder, const std::wstring& path)
{
    const bool complete = path.size() > 1 && (path[1] == L':' || path.starts_with(L"\\\\"));
    const std::wstring joined = complete || folder.empty() ? path : folder + L"\\" + path;
    std::wstring whole(MAX_PATH, L'\0');
    DWORD length = GetFullPathNameW(joined.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (length >= whole.size()) {
        whole.resize(length);
        length = GetFullPathNameW(joined.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    }
    if (length == 0 || length >= whole.size())
        return joined;
    whole.resize(length);
    return whole;
}

std::wstring systemReason(DWORD code)
{
    wchar_t text[512]{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring reason(text, length);
    reason.erase(reason.find_last_not_of(L" \r\n.") + 1);
    return reason.empty() ? L"error " + std::to_wstring(code) : reason;
}

} // namespace velk::devkit
