#pragma once

#include <string>
#include <string_view>

namespace velk {

// Where the tool's project of an IDE solution is kept: in a folder "rz" beside the solution, under the solution's
// name. Without a solution it is "project1" under the add-in's own folder.
std::wstring defaultRZFileName(std::wstring_view solutionFullName, std::wstring_view installationFolder);

} // namespace velk
