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

void openProject(IntegrationMgr manager, int32_t projectHandle)
{
    const Session session = publishedView().life;
    const std::wstring startFolder = parentDir(manager.getRZFileName());
    if (session.isOver())
        return;
    const std::wstring title = getRZString(openTitleText);
    std::wstring name;
    std::wstring folder;
    if (session.isOver() ||
        !fileChooser().openFileDlg(title, openExtension, openExtension, startFolder, name, folder) || session.isOver())
        return;
    RZObjectDoAction(projectHandle, codeCloseProject);
    if (session.isOver())
        return;
    // The path goes to the manager only; the IDE's project learns of it by Save As.
    manager.setRZFileName(folder + L"\\" + name);
    if (!session.isOver())
        RZProjectDoAccess(folder, name, modeOpen);
}

void saveProjectAs(IntegrationMgr manager)
{
    const Session session = publishedView().life;
    const std::wstring startFolder = parentDir(manager.getRZFileName());
    if (session.isOver())
        return;
    const std::wstring title = getRZString(saveTitleText);
    std::wstring path;
    if (session.isOver() || !fileChooser().saveFileDlg(title, saveExtension, saveExtension, startFolder, path) ||
        session.isOver())
        return;
    if (manager.getIdeType() == ideTypeWithStoredName)
        manager.getModel().saveRZFileName(path);
    if (session.isOver())
        return;
    manager.setRZFileName(path);
    std::wstring empty;
    if (!session.isOver())
        RZProjectDoAccess(path, empty, modeSave);
}

} // namespace velk
