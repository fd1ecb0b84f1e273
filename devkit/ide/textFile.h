#pragma once

#include <string>

namespace velk::devkit {

// The content of a UTF-8 file; false when it cannot be read. A file that is still being written may be read.
bool readTextFile(const std::wstring& path, std::wstring& text);
void appendToFile(const std::wstring& path, const std::wstring& text);

std::string toUtf8(const std::wstring& text);
std::wstring fromUtf8(const std::string& bytes);

} // namespace velk::devkit
