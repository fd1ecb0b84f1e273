#pragma once

#include "facts.h"

#include <optional>
#include <string>
#include <vector>

namespace velk::doctor {

bool isFile(const std::wstring& path) noexcept;
bool isFolder(const std::wstring& path) noexcept;

// The bytes of a file, at most so many from its beginning or its end. The system's code when it cannot be read.
enum class Part { beginning, end };
DWORD readBytes(const std::wstring& path, size_t most, Part part, std::vector<unsigned char>& bytes);

// What a program file says of itself. The bytes go to whoever wants more of them.
FileFacts readProgram(const std::wstring& path, std::vector<unsigned char>* bytes = nullptr);
// "6.0.81.69"; empty when it has none.
std::wstring fileVersion(const std::wstring& path);

// One spelling of a path for all: without quotes, full, with long names. What is no full path stays as it is.
std::wstring plainPath(std::wstring text);

// The same of a path that may be meant from the current directory on.
std::wstring fullPath(const std::wstring& path);

// SHA-256 in lower-case hexadecimal digits; empty when the system has no such thing.
std::wstring hashOf(const std::vector<unsigned char>& bytes);
// The hash that a list of "HASH *name" lines has for a file's name; empty when it has none.
std::wstring listedHash(const std::string& list, const std::wstring& name);

} // namespace velk::doctor
