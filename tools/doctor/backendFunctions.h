#pragma once

#include "checker/peFile.h"

#include <string>
#include <vector>

namespace velk::doctor {

// The functions that the add-in knows and that a library does not export.
std::vector<std::wstring> missingFunctions(const check::PeFile& library);

} // namespace velk::doctor
