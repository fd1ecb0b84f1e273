#pragma once

#include "base/win32.h"
#include "devkit/base/utf8.h"

#include <optional>
#include <string>
#include <string_view>

namespace velk::devkit {

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
