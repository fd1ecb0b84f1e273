#pragma once

#include <string>

namespace velk::bench {

// The path of the DLL as it is shipped: without symbols. Set before its rows are measured; without one they are not.
std::string& shippedDll();

} // namespace velk::bench
