#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk {

// Full path of the first file of that name in the add-in's folder, the program's, the system's two, and the fully
// qualified folders of the search path.
//
// The system's own search also looks into the current directory, which is wherever the user opened a file last; a
// planted library must not be found there.
std::optional<std::wstring> findLibrary(std::wstring_view name);

// The folders of that search in its order, for an add-in and a program that stand in these two; one that is not known
// is empty. And a file of that name in one of them.
std::vector<std::wstring> libraryFolders(const std::wstring& addin, const std::wstring& program);
std::optional<std::wstring> inFolder(std::wstring_view folder, std::wstring_view name);

// The system's folder of libraries, and the process's current directory; empty when it has none.
std::wstring systemFolder();
std::wstring currentDirectory();

} // namespace velk
