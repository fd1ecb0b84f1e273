#pragma once

#include "model/IntegrationMgr.h"

#include <cstdint>

namespace velk {

// Opens another project file instead of the one whose node has the handle: asks for it, closes the loaded project, and
// has the tool open the chosen one. Cancelling changes nothing.
void openProject(const IntegrationMgr& manager, int32_t projectHandle);

// Saves the project under a name that the user chooses. Cancelling changes nothing.
void saveProjectAs(const IntegrationMgr& manager);

} // namespace velk
