#pragma once

#include "serverview/publishedView.h"

#include <string>

namespace velk {

// Where a new data-environment object goes, and its name.
struct DataEnvTarget {
    std::wstring name; // in: what is offered
    std::wstring projName;
    std::wstring dataenvName;
    std::wstring conName; // for a command only
};

// Asks the user by the connection dialog; true after OK, with the user's choices. The dialog is unloaded in every case.
// Where the command's life is over, before or while the manager is asked, no dialog opens.
bool askDataEnvTarget(const IntegrationMgr& manager, const CommandLife& life, bool forCommand, DataEnvTarget& target);

} // namespace velk
