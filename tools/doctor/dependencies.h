#pragma once

#include "facts.h"

#include <vector>

namespace velk::doctor {

// The libraries that a library needs to be loaded, and theirs, that are not where the system would look for them, or
// cannot be loaded from there: beside the library, in the system's folders, on the search path.
std::vector<Dependency> missingDependencies(const FileFacts& library);

} // namespace velk::doctor
