// What the items of the server view's menus do. Nearly all of it is the tool's work: the handle of the object and the
// item's action code go over the bridge, and what comes of it arrives as notifications.

#include "backend/calls.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "model/conLstCtl.h"
#include "scc/frmVSSLogin.h"
#include "scc/VSSAPI.h"
#include "serverview/dataEnvTarget.h"
#include "serverview/projectFiles.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

// clang-format off
enum ActionCode : int32_t {
    codeOpen = 2, codeConnectionCode = 26, codeConnectionObject = 27, codeCommandCode = 28, codeCommandObject = 29
};
// clang-format on

constexpr int32_t noConnectionEnvironmentText = 670;
constexpr int32_t noCommandEnvironmentText = 671;
constexpr int32_t noFileText = 683;

// A box over a host that let the add-in go while the text was fetched would belong to nobody.
void tell(const Session& life, const std::wstring& text)
{
    if (!life.isOver())
        showMessage(text);
}

// The tool makes the code of an object; it arrives later, as a notification.
void addCode(const IntegrationMgr& manager, int32_t handle)
{
    const ModelUtil model = manager.getModel();
    std::wstring projName = model.getActiveProjName();
    std::wstring compName = model.getSelectedcompName();
    RZObjectDoGetADO(handle, textToLong(model.GetDevLanguage()), projName, compName);
}

void addConnectionObject(const IntegrationMgr& manager, int32_t handle)
{
    const CommandLife life(manager);
    if (!manager.getModel().existsDataEnvObjs())
        return tell(manager.session(), getRZString(noConnectionEnvironmentText));
    DataEnvTarget target{L"RZConnection", {}, {}, {}};
    if (askDataEnvTarget(manager, life, false, target))
        RZConnectionDoGetDE(handle, target.projName, target.dataenvName, target.name);
}

void addCommandObject(const IntegrationMgr& manager, int32_t handle)
{
    const CommandLife life(manager);
    if (!manager.getModel().existsDataEnvObjs())
        return tell(manager.session(), getRZString(noCommandEnvironmentText));
    DataEnvTarget target{L"RZCommand", {}, {}, {}};
    if (askDataEnvTarget(manager, life, true, target))
        RZCommandDoGetDE(handle, target.projName, target.dataenvName, target.conName, target.name);
}

// Carries out what the user chose; a failure is told as its description and number. The life is a copy: the control may
// be gone when the command comes back.
template <class Command>
void carryOut(const Session life, const wchar_t* where, Command&& command) noexcept
{
    if (const auto failure = attempt(command))
        swallow(where, L"there is no other way to tell the user",
                [&] { tell(life, failure->description() + L":" + numberText(failure->number())); });
}

} // namespace

void svrViewCtl::clickMenuItem(MenuItem item)
{
    using Handler = void (svrViewCtl::*)();
    struct HandlerRow {
        MenuItem item;
        Handler handler;
    };
    // clang-format off
    static constexpr HandlerRow ownHandlers[] = {
        {MenuItem::projSaveAsMnuItem,    &svrViewCtl::projSaveAsMnuItem_Click},
        {MenuItem::scmPropsMnuItem,      &svrViewCtl::scmPropsMnuItem_Click},
        {MenuItem::devObjAddFileMnuItem, &svrViewCtl::devObjAddFileMnuItem_Click},
        {MenuItem::devObjChkOutMnuItem,  &svrViewCtl::devObjChkOutMnuItem_Click},
        {MenuItem::devObjChkInMnuItem,   &svrViewCtl::devObjChkInMnuItem_Click},
    };
    // clang-format on
    for (const HandlerRow& row : ownHandlers)
        if (row.item == item)
            // They have no trap of their own. Here one is needed: a project that was not saved must not seem to be.
            return carryOut(m_life, L"clickMenuItem", [&] { (this->*row.handler)(); });
    doMenuCommand(item, actsOnTheTree(menuRows()[static_cast<size_t>(item)].menu));
}

void svrViewCtl::doMenuCommand(MenuItem item, bool fromTree) noexcept
{
    carryOut(m_life, L"doMenuCommand", [&] {
        const int32_t code = m_menus[item].tag;
        const TreeNode* node = m_serverTreeView->selected();
        const Row* row = m_serverDetailsView->selected();
        if (fromTree ? !node : !row)
            throw Error(errorObjectNotSet);
        runCommand(code, keyToHandle(fromTree ? node->key : row->key));
    });
}

void svrViewCtl::runCommand(int32_t code, int32_t handle)
{
    // A dialog in between may outlive this control.
    const IntegrationMgr manager = m_IMgr;
    switch (code) {
    case codeOpen:
        return openProject(manager, handle);
    case codeConnectionCode:
    case codeCommandCode:
        return addCode(manager, handle);
    case codeConnectionObject:
        return addConnectionObject(manager, handle);
    case codeCommandObject:
        return addCommandObject(manager, handle);
    default:
        RZObjectDoAction(handle, code);
    }
}

void svrViewCtl::projSaveAsMnuItem_Click()
{
    const IntegrationMgr manager = m_IMgr; // the control may be gone when the user has chosen a name
    saveProjectAs(manager);
}

void svrViewCtl::scmPropsMnuItem_Click()
{
    const IntegrationMgr manager = m_IMgr;
    const Session life = m_life;
    frmVSSLogin login;
    login.Form_Load();
    if (!login.fillResult().empty())
        tell(life, login.fillResult());
    if (life.isOver())
        return; // unloaded while the box was open: the login belongs to nobody
    login.showModal();
    if (login.successfulLogin() && !life.isOver())
        addFileToSourceSafe(manager.getRZFileName());
}

void svrViewCtl::devObjAddFileMnuItem_Click()
{
    onObjectsFile(MenuItem::devObjAddFileMnuItem, addFileToSourceSafe);
}

void svrViewCtl::devObjChkOutMnuItem_Click()
{
    onObjectsFile(MenuItem::devObjChkOutMnuItem, checkOutFile);
}

void svrViewCtl::devObjChkInMnuItem_Click()
{
    onObjectsFile(MenuItem::devObjChkInMnuItem, checkInFile);
}

void svrViewCtl::onObjectsFile(MenuItem clicked, FileOperation operation)
{
    const Row* row = m_serverDetailsView->selected();
    if (!row)
        return;
    const size_t mark = row->tag.find(L'#');
    const std::wstring file = mark == std::wstring::npos ? std::wstring() : row->tag.substr(mark + 1);
    if (!file.empty())
        return operation(file);
    std::wstring viewSource = m_menus[MenuItem::devObjViewSrcMnuItem].caption;
    std::wstring item = m_menus[clicked].caption;
    const Session life = m_life;
    tell(life, getRZStringP2(noFileText, viewSource, item));
}

} // namespace velk
