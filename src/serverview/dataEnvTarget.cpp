#include "serverview/dataEnvTarget.h"

#include "base/text.h"
#include "base/unique_any.h"
#include "model/conLstCtl.h"
#include "serverview/publishedView.h"

namespace velk {

bool askDataEnvTarget(const IntegrationMgr& manager, const CommandLife& life, bool forCommand, DataEnvTarget& target)
{
    if (life.isOver())
        return false;
    conLstCtl& dialog = connectionDialog();
    const scope_exit unloaded([&] { dialog.terminate(); });
    dialog.setIMgr(manager);
    dialog.setupGUI(target.name, forCommand);
    if (life.isOver())
        return false; // the add-in was unloaded while the manager was asked: a form would open for nobody
    dialog.showModal();
    // The decision comes as the text of a Boolean.
    const bool ok = dialog.userDecision() == booleanText(true);
    if (!ok)
        return false;
    target.name = dialog.selectedName();
    target.projName = dialog.selectedProj();
    target.dataenvName = dialog.selectedDataEnv();
    target.conName = dialog.selectedCon(); // empty where no command is named
    return true;
}

} // namespace velk
