#pragma once

#include "base/unique_any.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

// Files as a database needs them: a file is either there as a whole or not at all.
namespace velk::devkit::vss::files {

// Paths as the system understands them.
std::wstring join(const std::wstring& folder, const std::wstring& name);
std::wstring folderOf(const std::wstring& path); // without the last backslash
std::wstring nameOf(const std::wstring& path);
std::wstring fullPath(const std::wstring& path);

bool isFile(const std::wstring& path) noexcept;
bool isFolder(const std::wstring& path) noexcept;
bool isReadOnly(const std::wstring& path) noexcept;
// The names in a folder whose beginnings match (a case-insensitive pattern of the system), in their alphabet's order.
std::vector<std::wstring> namesIn(const std::wstring& folder, const std::wstring& pattern = L"*");

// All bytes of a file; throws the system's error.
std::string read(const std::wstring& path);
// Writes a file beside its place, gets it onto the disk, and puts it into its place by one rename. What stood there
// is replaced, read-only or not.
void replace(const std::wstring& path, const std::string& bytes);
// No error when there is none.
void remove(const std::wstring& path);
// Makes a folder and those above it; no error when it is there.
void makeFolder(const std::wstring& path);
void setReadOnly(const std::wstring& path, bool readOnly);

// One writer at a time, also among programs: the lock lives as long as its open file. Waits up to two seconds.
class Lock {
public:
    explicit Lock(const std::wstring& path);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    HANDLE m_file;
};

// Hears of every step that changes the disk before it is done. A test that throws from it stands for a crash there.
using StepObserver = std::function<void(const wchar_t* step, const std::wstring& path)>;
void setStepObserver(StepObserver observer);

// Texts of the database's files, in UTF-8.
std::wstring readText(const std::wstring& path);
std::vector<std::wstring> linesOf(const std::wstring& text);
// A line of the form "key=value"; a line without "=" has an empty value.
std::pair<std::wstring, std::wstring> keyAndValue(const std::wstring& line);

} // namespace velk::devkit::vss::files
