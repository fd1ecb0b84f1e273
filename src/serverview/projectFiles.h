#pragma once

#include "model/IntegrationMgr.h"

#include <cstdint>

namespace velk {

// Both keep the manager for themselves: whoever asks may be gone when the user has chosen. They stop where the session
// ended meanwhile, under the dialog or in one of the calls that they make.

// Opens another project file instead of the one whose node has the handle: asks for it, closes the loaded project, and
// has the tool open the chosen one. Cancelling changes nothing.
void openProject(IntegrationMgr manager, int32_t projectHandle);

// Saves the project under a name that the user chooses. Cancelling changes nothing.
void saveProjectAs(IntegrationMgr manager);

} // namespace velk
