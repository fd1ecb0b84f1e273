#pragma once

#include "base/error.h"

namespace velk {

// What the user reads when the tool's integration cannot start: the failure's description and, where the Backend
// library itself is the trouble, the way out. These texts are the add-in's own: the Backend has the others.
std::wstring startFailureText(const Error& error);

} // namespace velk
