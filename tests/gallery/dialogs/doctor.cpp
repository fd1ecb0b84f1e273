#include "doctor.h"

#include "devkit/ide/screenshot.h"
#include "doctor/doctorWindow.h"
#include "shots.h"

namespace velk {
namespace {

using namespace doctor;

Facts aMachine()
{
    Facts facts;
    facts.system = {5, 1, 2600, L"Service Pack 3", {}, false, true, false};
    facts.addin.place = AddinPlace::beside;
    facts.addin.file.path = L"C:\\Program Files\\Velk Development\\Rozel for everybody\\Tools\\Bin\\velkviadd.dll";
    facts.addin.file.isThere = true;
    facts.addin.file.header.emplace();
    facts.addin.file.header->machine = 0x014C;
    facts.addin.file.header->isLibrary = true;
    for (const char* name : {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"})
        facts.addin.file.header->exports.push_back({name, 1, false, true});
    facts.addin.file.version = L"1.0.0.0";
    facts.addin.load.outcome = ChildFacts::Outcome::done;
    facts.backend.places = {{L"C:\\Program Files\\Velk Development\\Rozel for everybody\\Tools\\Bin", false},
                            {{}, false},
                            {L"C:\\WINDOWS\\system32", false},
                            {L"C:\\WINDOWS", false}};
    facts.language = {1252, L"Tahoma", true, false, {}};
    facts.odbc.hasManager = true;
    facts.running = {L"devenv.exe", {}};
    facts.log.path = L"C:\\no such folder\\add-in.log";
    facts.log.isFullPath = true;
    return facts;
}

void shootOne(const std::wstring& file)
{
    DoctorWindow window({}, [](const Options&) { return Report{{}, judge(aMachine()), true}; });
    window.open();
    ShowWindow(window.hwnd(), SW_SHOW);
    window.look(false);
    shoot(window.hwnd(), file);
    SetWindowPos(window.hwnd(), nullptr, 0, 0, 100, 100, SWP_NOMOVE | SWP_NOZORDER);
    shoot(window.hwnd(), file.substr(0, file.size() - 4) + L"-small.png");
}

} // namespace

void doctorWindows(const std::wstring& folder)
{
    shootOne(folder + L"\\doctor.png");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    const NONCLIENTMETRICSW before = metrics;
    metrics.lfMessageFont.lfHeight *= 2;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    shootOne(folder + L"\\doctor-large.png");
    metrics = before;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
}

} // namespace velk
