#include "serverview/dataEnvTarget.h"

#include "model/conLstCtl.h"
#include "platform/text.h"
#include "platform/unique_any.h"

namespace velk {

bool askDataEnvTarget(const IntegrationMgr& manager, bool forCommand, DataEnvTarget& target)
{
    conLstCtl& dialog = connectionDialog();
    const scope_exit unloaded([&] { dialog.terminate(); });
    dialog.setIMgr(manager);
    dialog.setupGUI(target.name, forCommand);
    dialog.showModal();
    // The decision comes as the text of a Boolean.
    const bool ok = dialog.userDecision() == booleanText(true);
    if (!ok)
        return false;
    target.name = dialog.selectedName();
    target.projName = dialog.selectedProj();
    target.dataenvName = dialog.selectedDataEnv();
    if (forCommand)
        target.conName = dialog.selectedCon();
    return true;
}

} // namespace velk
