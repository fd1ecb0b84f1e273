// Shows dialogs one after the other with the stand-in Backend's texts and writes a picture of each into the folder that
// is named on the command line.
#include "backend/texts.h"
#include "base/error.h"
#include "devkit/ide/screenshot.h"
#include "model/conLstCtl.h"
#include "scc/frmVSSLogin.h"
#include "support/fakeManager.h"
#include "ui/splashscrnFrm.h"
#include "ui/uiFont.h"

#include <shellapi.h>

namespace velk {
namespace {

void pump(DWORD time)
{
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < time) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        Sleep(10);
    }
}

void shoot(HWND window, const std::wstring& file)
{
    ShowWindow(window, SW_SHOW);
    pump(300);
    devkit::writeScreenshot(window, file);
    ShowWindow(window, SW_HIDE);
}

void connectionDialogs(const std::wstring& folder)
{
    test::Lines journal;
    const auto manager = makeObject<test::FakeManager>(journal);
    manager->projects = {L"Web"};
    manager->dataEnvironments = {{L"Web", {L"DataEnvironment1"}}};
    manager->connections = {{L"Web/DataEnvironment1", {L"Connection1"}}};
    conLstCtl form;
    form.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
    form.setupGUI(L"RZConnection", false);
    shoot(form.hwnd(), folder + L"\\connection.png");
    form.setupGUI(L"RZCommand", true);
    shoot(form.hwnd(), folder + L"\\command.png");
}

void login(const std::wstring& folder)
{
    frmVSSLogin form;
    form.Form_Load();
    form.setText(frmVSSLogin::txtUserName, L"ann");
    form.setText(frmVSSLogin::txtPassword, L"secret");
    form.setText(frmVSSLogin::DBCombo, L"Main");
    shoot(form.hwnd(), folder + L"\\login.png");
}

void splash(const std::wstring& folder)
{
    splashScreen().setProgressBarInterval(6);
    splashScreen().updateProgress(getRZString(643));
    splashScreen().updateProgress(getRZString(644));
    shoot(splashScreen().hwnd(), folder + L"\\splash.png");
    unloadSplashScreen();
}

} // namespace
} // namespace velk

int main()
{
    using namespace velk;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::wstring folder = count > 1 ? arguments[1] : L".";
    try {
        uiFont() = {getRZString(100), std::stoi(getRZString(101)), 1};
        connectionDialogs(folder);
        login(folder);
        splash(folder);
    } catch (const Error&) {
        return 1;
    }
    return 0;
}
