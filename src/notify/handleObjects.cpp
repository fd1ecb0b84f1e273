#include "notify/fetched.h"
#include "notify/handlers.h"

#include "backend/texts.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "notify/kinds.h"
#include "serverview/viewAPIs.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

constexpr int32_t projectIsShownText = 647;
// The only IDE whose project file has a place for the name of the tool's project.
constexpr int32_t ideTypeWithStoredName = 1;

struct FolderRow {
    int32_t caption;
    int32_t trzConnection::* handle;
    int32_t kind;
};

// The folders of a connection, in the order in which they are shown.
// clang-format off
constexpr FolderRow folderRows[] = {
    {426, &trzConnection::lProceduresHdl, 7},
    {427, &trzConnection::lFunctionsHdl,  9},
    {428, &trzConnection::lTriggersHdl,   11},
    {429, &trzConnection::lTablesHdl,     13},
    {430, &trzConnection::lViewsHdl,      15},
};
// clang-format on

void addProject(const IntegrationMgr& manager, int32_t handle)
{
    // The last step takes the splash screen away, and so does one that fails: no other would.
    const scope_exit shown([] { unloadSplashScreen(); });
    const Session& session = manager.session();
    const trzProject project = fetched<trzProject>(session, fetchProject, handle);
    addFolderNode(L"", numberText(kindProject), makeKey(project.lHdl), project.strName, L"True");
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
    const trzConnection connection = fetched<trzConnection>(session, fetchConnection, handle);
    addConnectionNode(makeKey(projectHandle), connection);
    for (const FolderRow& row : folderRows) {
        const std::wstring caption = getRZString(row.caption);
        session.throwIfOver();
        addFolderNode(makeKey(connection.lHdl), numberText(row.kind), makeKey(connection.*row.handle), caption,
                      L"False");
    }
    expandSelected();
}

} // namespace

void handleObjectAdded(const IntegrationMgr& manager, const trzNotify& notification)
{
    if (notification.lObjectType == kindProject)
        addProject(manager, notification.lObjectHdl);
    else if (notification.lObjectType == kindConnection)
        addConnection(manager.session(), notification.lProjectHdl, notification.lObjectHdl);
    else if (const ObjectKindRow* row = rowOfObjectKind(notification.lObjectType))
        row->addIfShown(manager.session(), notification.lObjectHdl);
}

void handleObjectRemoved(const IntegrationMgr&, const trzNotify& notification)
{
    const std::wstring key = makeKey(notification.lObjectHdl);
    if (notification.lObjectType == kindProject || notification.lObjectType == kindConnection)
        removeNode(key);
    else
        removeListRow(numberText(notification.lObjectType), key);
}

void handleObjectChanged(const IntegrationMgr& manager, const trzNotify& notification)
{
    if (notification.lObjectType == kindProject)
        updateProjectNode(fetched<trzProject>(manager.session(), fetchProject, notification.lObjectHdl));
    else if (notification.lObjectType == kindConnection)
        updateConnectionNode(fetched<trzConnection>(manager.session(), fetchConnection, notification.lObjectHdl));
    else if (const ObjectKindRow* row = rowOfObjectKind(notification.lObjectType); row && row->updateIfShown)
        row->updateIfShown(manager.session(), notification.lObjectHdl);
}

void handleFolderContents(const IntegrationMgr& manager, const trzNotify& notification)
{
    // The Backend does not tell whether a filter is set, so the folder gets its plain look, also when filling fails.
    const std::wstring key = makeKey(notification.lObjectHdl);
    const scope_exit plainLook([&] { setFolderFiltered(key, false); });
    const ObjectKindRow* row = rowOfFolderKind(notification.lObjectType);
    if (!row || !selectedNodeKindIs(notification.lObjectType))
        return;
    clearListRows();
    row->fill(manager.session(), notification.lObjectHdl);
}

} // namespace velk
