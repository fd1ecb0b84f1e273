#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velk {

// Full path of the first file of that name in the add-in's folder, the program's, the system's two, and the fully
// qualified folders of the search path.
//
// The system's own search also looks into the current directory, which is wherever the user opened a file last; a
// planted library must not be found there.
std::optional<std::wstring> findLibrary(std::wstring_view name);

// The system's folder of libraries, and the process's current directory; empty when it has none.
std::wstring systemFolder();
std::wstring currentDirectory();

} // namespace velk
