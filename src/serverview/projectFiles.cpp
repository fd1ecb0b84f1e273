#include "serverview/projectFiles.h"

#include "backend/calls.h"
#include "backend/paths.h"
#include "backend/texts.h"
#include "serverview/publishedView.h"
#include "ui/fileChooserForm.h"

namespace velk {
namespace {

constexpr int32_t openTitleText = 610;
constexpr int32_t saveTitleText = 611;
constexpr int32_t modeOpen = 2;
constexpr int32_t modeSave = 4;
constexpr int32_t codeCloseProject = 21;
constexpr int32_t ideTypeWithStoredName = 1;

// Opening gives the extension with its dot and saving without, on purpose: both have been so since the first release,
// and the file chooser takes either.
constexpr wchar_t openExtension[] = L".rzv";
constexpr wchar_t saveExtension[] = L"rzv";

} // namespace

void openProject(const IntegrationMgr& manager, int32_t projectHandle)
{
    const Session life = publishedView().life;
    std::wstring name;
    std::wstring folder;
    if (!fileChooser().openFileDlg(getRZString(openTitleText), openExtension, openExtension,
                                   parentDir(manager.getRZFileName()), name, folder))
        return;
    if (life.isOver())
        return; // the IDE went on while the dialog was open, and unloaded the add-in
    RZObjectDoAction(projectHandle, codeCloseProject);
    // The path goes to the manager only; the IDE's project learns of it by Save As.
    manager.setRZFileName(folder + L"\\" + name);
    RZProjectDoAccess(folder, name, modeOpen);
}

void saveProjectAs(const IntegrationMgr& manager)
{
    const Session life = publishedView().life;
    std::wstring path;
    if (!fileChooser().saveFileDlg(getRZString(saveTitleText), saveExtension, saveExtension,
                                   parentDir(manager.getRZFileName()), path))
        return;
    if (life.isOver())
        return;
    if (manager.getIdeType() == ideTypeWithStoredName)
        manager.getModel().saveRZFileName(path);
    manager.setRZFileName(path);
    std::wstring empty;
    RZProjectDoAccess(path, empty, modeSave);
}

} // namespace velk
