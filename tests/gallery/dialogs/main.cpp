// Shows dialogs one after the other, and the server view, with the stand-in Backend's texts and writes a picture of
// each into the folder that is named on the command line. "mirrored" behind it: windows run from right to left.
#include "backend/texts.h"
#include "base/error.h"
#include "devkit/ide/screenshot.h"
#include "doctor.h"
#include "model/conLstCtl.h"
#include "scc/frmVSSLogin.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "shots.h"
#include "support/fakeManager.h"
#include "ui/RZfrmAbout.h"
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

void shootForm(Dialog& form, const std::wstring& file)
{
    form.fit();
    shoot(form.hwnd(), file);
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
    shootForm(form, folder + L"\\connection.png");
    form.setupGUI(L"RZCommand", true);
    shootForm(form, folder + L"\\command.png");
}

void login(const std::wstring& folder)
{
    frmVSSLogin form;
    form.Form_Load();
    form.setText(frmVSSLogin::txtUserName, L"ann");
    form.setText(frmVSSLogin::txtPassword, L"secret");
    form.setText(frmVSSLogin::DBCombo, L"Main");
    shootForm(form, folder + L"\\login.png");
}

void splash(const std::wstring& folder)
{
    splashScreen().setProgressBarInterval(6);
    splashScreen().updateProgress(getRZString(643));
    splashScreen().updateProgress(getRZString(644));
    shoot(splashScreen().hwnd(), folder + L"\\splash.png");
    unloadSplashScreen();
}

void about(const std::wstring& folder)
{
    RZfrmAbout form;
    form.Form_Load();
    shootForm(form, folder + L"\\about.png");
}

void serverView(const std::wstring& folder)
{
    const HWND host = CreateWindowExW(0, L"STATIC", getRZString(400).c_str(), WS_OVERLAPPEDWINDOW, 20, 20, 900, 400,
                                      nullptr, nullptr, nullptr, nullptr);
    const auto view = std::make_shared<svrViewCtl>();
    RECT inner{};
    GetClientRect(host, &inner);
    view->create(host, inner);
    view->setupGUI();
    addFolderNode(L"", L"5", L"K1", L"Orders", L"True");
    addConnectionNode(L"K1", {.lHdl = 10, .bConnected = true, .strDatabase = L"ORDERS"});
    addFolderNode(L"K10", L"7", L"K20", getRZString(426), L"False");
    addFolderNode(L"K10", L"9", L"K21", getRZString(427), L"False");
    addFolderNode(L"K10", L"13", L"K23", getRZString(429), L"False");
    view->serverTreeView().expand(L"K10");
    view->serverTreeView().select(L"K20");
    addProcedureRow({.lHdl = 100, .strSchema = L"sales", .strName = L"place_order", .strLanguage = L"SQL"});
    addProcedureRow({.lHdl = 101, .bIsDirty = true, .strSchema = L"sales", .strName = L"raise_prices"});
    view->serverDetailsView().view().selectRow(0);
    shoot(host, folder + L"\\view.png");
    DestroyWindow(host);
}

} // namespace

void shoot(HWND window, const std::wstring& file)
{
    ShowWindow(window, SW_SHOW);
    pump(300);
    devkit::writeScreenshot(window, file);
    ShowWindow(window, SW_HIDE);
}

} // namespace velk

int main()
{
    using namespace velk;
    OleInitialize(nullptr);
    if (std::wstring_view(GetCommandLineW()).ends_with(L"mirrored"))
        SetProcessDefaultLayout(LAYOUT_RTL);
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
        about(folder);
        doctorWindows(folder);
        serverView(folder);
    } catch (const Error&) {
        return 1;
    }
    return 0;
}
