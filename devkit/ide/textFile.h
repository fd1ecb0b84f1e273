#pragma once

#include "devkit/base/utf8.h"

#include <string>

namespace velk::devkit {

// The content of a UTF-8 file; false when it cannot be read. A file that is still being written may be read.
bool readTextFile(const std::wstring& path, std::wstring& text);
void appendToFile(const std::wstring& path, const std::wstring& text);
// A line on the program's standard output.
void writeOutput(const std::wstring& line);

} // namespace velk::devkit
