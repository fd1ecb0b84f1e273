#include "serverview/projectFiles.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "base/paths.h"
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

void openProject(IntegrationMgr manager, int32_t projectHandle)
{
    const CommandLife life(manager);
    const std::wstring startFolder = parentDir(manager.getRZFileName());
    if (life.isOver())
        return;
    const std::wstring title = getRZString(openTitleText);
    std::wstring name;
    std::wstring folder;
    if (life.isOver() || !fileChooser().openFileDlg(title, openExtension, openExtension, startFolder, name, folder) ||
        life.isOver())
        return;
    RZObjectDoAction(projectHandle, codeCloseProject);
    if (life.isOver())
        return;
    // The path goes to the manager only; the IDE's project learns of it by Save As.
    manager.setRZFileName(folder + L"\\" + name);
    if (!life.isOver())
        RZProjectDoAccess(folder, name, modeOpen);
}

void saveProjectAs(IntegrationMgr manager)
{
    const CommandLife life(manager);
    const std::wstring startFolder = parentDir(manager.getRZFileName());
    if (life.isOver())
        return;
    const std::wstring title = getRZString(saveTitleText);
    std::wstring path;
    if (life.isOver() || !fileChooser().saveFileDlg(title, saveExtension, saveExtension, startFolder, path) ||
        life.isOver())
        return;
    if (manager.getIdeType() == ideTypeWithStoredName)
        manager.getModel().saveRZFileName(path);
    if (life.isOver())
        return;
    manager.setRZFileName(path);
    std::wstring empty;
    if (!life.isOver())
        RZProjectDoAccess(path, empty, modeSave);
}

} // namespace velk
