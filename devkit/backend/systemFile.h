#pragma once

#include "base/unique_any.h"
#include "devkit/text/utf8.h"

#include <optional>
#include <string>
#include <string_view>

namespace velk::devkit {

struct file_traits {
    using Handle = HANDLE;
    static Handle empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle file) noexcept { CloseHandle(file); }
};
class unique_file : public unique_any<file_traits> {
public:
    explicit unique_file(HANDLE file) : unique_any(file) {}
};

std::wstring environmentText(const wchar_t* name);

// The bytes of a file. Nothing when it cannot be read: GetLastError tells why.
std::optional<std::string> readBytes(const std::wstring& path);

// Writes a file as a whole: beside it first, then in its place, so that a crash in between loses neither. False when it
// cannot be written: GetLastError tells why.
bool writeBytes(const std::wstring& path, std::string_view bytes);

// Size and time of last change in one text that differs when the file was changed; empty when there is no file.
std::wstring fileStamp(const std::wstring& path);

std::wstring folderOf(const std::wstring& path);
std::wstring baseName(const std::wstring& path); // without folder and ending
std::wstring absolutePath(const std::wstring& folder, const std::wstring& path);
// The system's words for an error code.
std::wstring systemReason(DWORD code);

} // namespace velk::devkit
