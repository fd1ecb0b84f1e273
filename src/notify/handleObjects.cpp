#include "backend/fetched.h"
#include "notify/handlers.h"

#include "backend/texts.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "serverview/folderKinds.h"
#include "serverview/keptNodes.h"
#include "serverview/viewAPIs.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

constexpr int32_t projectIsShownText = 647;
// The only IDE whose project file has a place for the name of the tool's project.
constexpr int32_t ideTypeWithStoredName = 1;

void addProject(const IntegrationMgr& manager, int32_t handle)
{
    // The last step takes the splash screen away, and so does one that fails: no other would.
    const scope_exit shown([] { unloadSplashScreen(); });
    const Session& session = manager.session();
    const trzProject project = fetched(session, fetchProject, handle);
    addFolderNode({}, kindTag(kindProject), makeKey(project.lHdl), project.strName, booleanText(true));
    projectHasCome(project);
    if (manager.getIdeType() == ideTypeWithStoredName)
        manager.getModel().saveRZFileName(manager.getRZFileName());
    const std::wstring shownText = getRZString(projectIsShownText);
    session.throwIfOver();
    splashScreen().setVisible();
    splashScreen().updateProgress(shownText);
    manager.showDevView();
    session.throwIfOver();
    splashScreen().setVisible();
}

void addConnection(const Session& session, int32_t projectHandle, int32_t handle)
{
    const trzConnection connection = fetched(session, fetchConnection, handle);
    addConnectionNode(makeKey(projectHandle), connection);
    for (const FolderKindRow& row : folderKindRows()) {
        const std::wstring caption = getRZString(row.nameText);
        session.throwIfOver();
        addFolderNode(makeKey(connection.lHdl), kindTag(row.folderKind), makeKey(connection.*row.handle), caption,
                      booleanText(false));
    }
    expandSelected();
    connectionHasCome(connection);
}

void changeProject(const trzProject& project)
{
    updateProjectNode(project);
    projectHasChanged(project);
}

void changeConnection(const trzConnection& connection)
{
    updateConnectionNode(connection);
    connectionHasChanged(connection);
}

} // namespace

void handleObjectAdded(const IntegrationMgr& manager, const trzNotify& notification)
{
    if (notification.lObjectType == kindProject)
        addProject(manager, notification.lObjectHdl);
    else if (notification.lObjectType == kindConnection)
        addConnection(manager.session(), notification.lProjectHdl, notification.lObjectHdl);
    else if (const FolderKindRow* row = folderKindRowOfObjects(notification.lObjectType))
        row->addIfShown(*row, manager.session(), notification.lObjectHdl);
}

void handleObjectRemoved(const IntegrationMgr&, const trzNotify& notification)
{
    if (notification.lObjectType == kindProject || notification.lObjectType == kindConnection)
        removeNode(makeKey(notification.lObjectHdl));
    else
        removeListRow(notification.lObjectType, notification.lObjectHdl);
}

void handleObjectChanged(const IntegrationMgr& manager, const trzNotify& notification)
{
    if (notification.lObjectType == kindProject)
        changeProject(fetched(manager.session(), fetchProject, notification.lObjectHdl));
    else if (notification.lObjectType == kindConnection)
        changeConnection(fetched(manager.session(), fetchConnection, notification.lObjectHdl));
    else if (const FolderKindRow* row = folderKindRowOfObjects(notification.lObjectType); row && row->updateIfShown)
        row->updateIfShown(*row, manager.session(), notification.lObjectHdl);
}

void handleFolderContents(const IntegrationMgr& manager, const trzNotify& notification)
{
    // The Backend does not tell whether a filter is set, so the folder gets its plain look, also when filling fails.
    const std::wstring key = makeKey(notification.lObjectHdl);
    const scope_exit plainLook([&] { setFolderFiltered(key, false); });
    const FolderKindRow* row = folderKindRow(notification.lObjectType);
    if (!row || !selectedNodeKindIs(notification.lObjectType))
        return;
    clearListRows();
    row->fill(*row, manager.session(), notification.lObjectHdl);
}

} // namespace velk
