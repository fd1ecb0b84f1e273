#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velk::devkit {

// Lives one after the other in this process, two of them to warm up. What was wrong with the first that was not right;
// else a line for each kind of thing that the process holds, "GROWTH kind number": how many more than before.
std::vector<std::wstring> growthOf(int lives, const std::function<std::vector<std::wstring>()>& life);

} // namespace velk::devkit
