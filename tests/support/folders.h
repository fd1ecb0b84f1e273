#pragma once

#include <string>

namespace velk::test {

// A folder with all that is in it: taken away, or copied into a folder that is made if it is not there.
void removeTree(const std::wstring& folder);
void copyTree(const std::wstring& from, const std::wstring& to);

} // namespace velk::test
