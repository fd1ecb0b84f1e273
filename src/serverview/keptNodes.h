#pragma once

#include "backend/records.h"

namespace velk {

// What the published view does to be as the user left it, when the tool's objects have their nodes. Quiet like
// viewAPIs.
void projectHasCome(const trzProject& project) noexcept;
void projectHasChanged(const trzProject& project) noexcept;
// Each of these may call the tool, and is the last that is done for an object.
void connectionHasCome(const trzConnection& connection) noexcept;
void connectionHasChanged(const trzConnection& connection) noexcept;

} // namespace velk
