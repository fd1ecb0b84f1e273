#include "serverview/commands.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "base/text.h"
#include "scc/frmVSSLogin.h"
#include "scc/VSSAPI.h"
#include "serverview/dataEnvTarget.h"
#include "serverview/projectFiles.h"
#include "serverview/viewAPIs.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

constexpr int32_t noConnectionEnvironmentText = 670;
constexpr int32_t noCommandEnvironmentText = 671;
constexpr int32_t noFileText = 683;

// A box over a host that let the add-in go while the text was fetched would belong to nobody.
void tell(const Session& life, const std::wstring& text)
{
    if (!life.isOver())
        showMessage(text);
}

int32_t handleOf(const Choice& choice)
{
    if (!choice.object)
        throw Error(errorObjectNotSet);
    return keyToHandle(choice.object->key);
}

void onObjectsFile(const Choice& choice, void (*operation)(const std::wstring& path))
{
    if (!choice.object)
        return;
    const std::wstring file = fileOfTag(choice.object->tag);
    if (!file.empty())
        return operation(file);
    std::wstring viewSource = choice.viewSourceCaption;
    std::wstring item = choice.caption;
    tell(choice.life, getRZStringP2(noFileText, viewSource, item));
}

} // namespace

Choice::~Choice() = default;

void doMenuCommand(const Choice& choice)
{
    RZObjectDoAction(handleOf(choice), choice.code);
}

void openOtherProject(const Choice& choice)
{
    openProject(choice.manager, handleOf(choice));
}

void addCode(const Choice& choice)
{
    const int32_t handle = handleOf(choice);
    const ModelUtil model = choice.manager.getModel();
    std::wstring projName = model.getActiveProjName();
    std::wstring compName = model.getSelectedcompName();
    RZObjectDoGetADO(handle, textToLong(model.GetDevLanguage()), projName, compName);
}

void addConnectionObject(const Choice& choice)
{
    const int32_t handle = handleOf(choice);
    const CommandLife life(choice.manager);
    if (!choice.manager.getModel().existsDataEnvObjs())
        return tell(choice.manager.session(), getRZString(noConnectionEnvironmentText));
    DataEnvTarget target{L"RZConnection", {}, {}, {}};
    if (askDataEnvTarget(choice.manager, life, false, target))
        RZConnectionDoGetDE(handle, target.projName, target.dataenvName, target.name);
}

void addCommandObject(const Choice& choice)
{
    const int32_t handle = handleOf(choice);
    const CommandLife life(choice.manager);
    if (!choice.manager.getModel().existsDataEnvObjs())
        return tell(choice.manager.session(), getRZString(noCommandEnvironmentText));
    DataEnvTarget target{L"RZCommand", {}, {}, {}};
    if (askDataEnvTarget(choice.manager, life, true, target))
        RZCommandDoGetDE(handle, target.projName, target.dataenvName, target.conName, target.name);
}

void projSaveAsMnuItem_Click(const Choice& choice)
{
    saveProjectAs(choice.manager);
}

void scmPropsMnuItem_Click(const Choice& choice)
{
    frmVSSLogin login;
    login.Form_Load();
    if (!login.fillResult().empty())
        tell(choice.life, login.fillResult());
    if (choice.life.isOver())
        return; // unloaded while the box was open: the login belongs to nobody
    login.showModal();
    if (login.successfulLogin() && !choice.life.isOver())
        addFileToSourceSafe(choice.manager.getRZFileName());
}

void devObjAddFileMnuItem_Click(const Choice& choice)
{
    onObjectsFile(choice, addFileToSourceSafe);
}

void devObjChkOutMnuItem_Click(const Choice& choice)
{
    onObjectsFile(choice, checkOutFile);
}

void devObjChkInMnuItem_Click(const Choice& choice)
{
    onObjectsFile(choice, checkInFile);
}

void tellCommandFailure(const Session& life, const Error& failure) noexcept
{
    swallow(L"doMenuCommand", L"there is no other way to tell the user",
            [&] { tell(life, failure.description() + L":" + numberText(failure.number())); });
}

} // namespace velk
