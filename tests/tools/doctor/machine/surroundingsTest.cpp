// SourceSafe, ODBC, the log and a running IDE.
#include "base/module.h"
#include "doctor/gather.h"
#include "doctor/registrationPlaces.h"
#include "machine.h"

namespace velk::test {
namespace {

constexpr wchar_t sourceSafeKey[] = L"Software\\Microsoft\\SourceSafe";
constexpr wchar_t databases[] = L"Software\\Microsoft\\SourceSafe\\Databases";
constexpr wchar_t drivers[] = L"Software\\ODBC\\ODBCINST.INI\\ODBC Drivers";
constexpr wchar_t driver[] = L"Software\\ODBC\\ODBCINST.INI\\A Driver";
constexpr wchar_t settings[] = L"Software\\Velk\\velkviadd";

class DoctorAround : public DoctorTest {
protected:
    static void installSourceSafe(const std::wstring& server)
    {
        setText(HKEY_LOCAL_MACHINE, sourceSafeKey, L"SCCServerPath", server);
        setText(HKEY_CURRENT_USER, L"Software\\Classes\\SourceSafe\\CLSID", {}, anotherClass);
        setText(HKEY_CURRENT_USER, doctor::classPlace(anotherClass) + L"\\InprocServer32", {}, library());
    }
    static void installDriver() { setText(HKEY_LOCAL_MACHINE, drivers, L"A Driver", L"Installed"); }
    static std::wstring log() { return base() + L"\\add-in.log"; }
    static void switchLogOn(const std::wstring& path) { setText(HKEY_CURRENT_USER, settings, L"Trace", path); }
    static void fill(const std::wstring& path, const std::string& text)
    {
        writeBytes(path, {text.begin(), text.end()});
    }
};

TEST_F(DoctorAround, sourceSafeWithItsDatabases_isNoComplaint)
{
    installSourceSafe(library());
    fill(base() + L"\\srcsafe.ini", "");
    setText(HKEY_LOCAL_MACHINE, databases, L"Main", base());
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_NE(diagnosis.lines.at("sourcesafe").whole.find("Main"), std::string::npos);
}

TEST_F(DoctorAround, sourceSafeWithoutItsLibrary_isTold)
{
    installSourceSafe(L"C:\\gone\\ssscc.dll");
    EXPECT_THAT(look(), ComplainsOnlyOf("sourcesafe"));
}

TEST_F(DoctorAround, sourceSafeWhoseAutomationIsNotRegistered_isTold)
{
    installSourceSafe(library());
    remove(HKEY_CURRENT_USER, doctor::classPlace(anotherClass));
    EXPECT_THAT(look(), ComplainsOnlyOf("sourcesafe"));
}

TEST_F(DoctorAround, databaseThatCannotBeReached_isTold)
{
    installSourceSafe(library());
    setText(HKEY_LOCAL_MACHINE, databases, L"Main", L"Q:\\vss");
    EXPECT_THAT(look(), ComplainsOnlyOf("sourcesafe"));
}

TEST_F(DoctorAround, odbcDriverThatIsThere_isNoComplaint)
{
    installDriver();
    setText(HKEY_LOCAL_MACHINE, driver, L"Driver", library());
    EXPECT_THAT(look(), IsHealthy());
}

TEST_F(DoctorAround, odbcDriverWithoutItsFile_isTold)
{
    installDriver();
    setText(HKEY_LOCAL_MACHINE, driver, L"Driver", L"C:\\gone\\driver.dll");
    EXPECT_THAT(look(), ComplainsOnlyOf("odbc"));
}

TEST_F(DoctorAround, odbcDriverWhoseFileIsNoText_isTold)
{
    installDriver();
    setNumber(HKEY_LOCAL_MACHINE, driver, L"Driver", 7);
    EXPECT_THAT(look(), ComplainsOnlyOf("odbc"));
}

TEST_F(DoctorAround, logThatIsOn_isNoComplaintAndItsFailuresAreANote)
{
    switchLogOn(log() + L";2");
    fill(log(), "2026-11-22 08:00:00.000 velkviadd 1.0.0 in ide.exe, code page 1252\r\n"
                "2026-11-22 08:00:01.000 start: 53 (0x800A0035) File not found: velkvsadd.dll\r\n");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_EQ(diagnosis.lines.at("log-failures").state, "NOTE");
    EXPECT_NE(diagnosis.lines.at("log-failures").text.find("start: 53"), std::string::npos);
    EXPECT_NE(diagnosis.lines.at("log").text.find("every call"), std::string::npos);
}

TEST_F(DoctorAround, logsLinesOfCalls_areNoFailures)
{
    switchLogOn(log() + L";2");
    fill(log(), "2026-11-22 08:00:00.000 host: Solution failed\r\n2026-11-22 08:00:01.000 RZTerminate: 0\r\n");
    EXPECT_EQ(look().lines.at("log-failures").state, "OK");
    fill(log(), "2026-11-22 08:00:00.000 start: 53 (0x800A0035) File not found: velkvsadd.dll\r\n"
                "2026-11-22 08:00:01.000 host: Count\r\n");
    const Diagnosis diagnosis = look();
    EXPECT_NE(diagnosis.lines.at("log-failures").text.find("start: 53"), std::string::npos);
    EXPECT_EQ(diagnosis.lines.at("log-failures").whole.find("host: Count"), std::string::npos);
}

TEST_F(DoctorAround, ideWithoutAMember_isToldByItsLog)
{
    switchLogOn(log() + L";2");
    fill(log(),
         "2026-11-22 08:00:01.000 host members: DTE has CommandBars Events; lacks MainWindow Solution Windows\r\n"
         "2026-11-22 08:00:01.000 host bars: 13 \"Add-Ins\"; the entry goes to 13\r\n");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("host-members"));
    EXPECT_NE(diagnosis.lines.at("host-bars").text.find("Add-Ins"), std::string::npos);
}

TEST_F(DoctorAround, ideWithoutTheBarOfTheEntry_isToldByItsLog)
{
    switchLogOn(log() + L";2");
    fill(log(), "2026-11-22 08:00:01.000 host bars: 1 \"Menu Bar\"; the entry goes to 13\r\n");
    EXPECT_THAT(look(), ComplainsOnlyOf("host-bars"));
}

TEST_F(DoctorAround, logThatIsNotThereYet_staysSo)
{
    switchLogOn(log());
    EXPECT_THAT(look(), IsHealthy());
    EXPECT_EQ(GetFileAttributesW(log().c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesW((log() + L".velkdoctor").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DoctorAround, logInAFolderThatIsNotThere_isTold)
{
    switchLogOn(L"C:\\no such folder\\add-in.log");
    EXPECT_THAT(look(), ComplainsOnlyOf("log"));
}

TEST_F(DoctorAround, logWithoutAFullPath_isTold)
{
    SetEnvironmentVariableW(L"VELKVIADD_TRACE", L"add-in.log");
    EXPECT_THAT(look(), ComplainsOnlyOf("log"));
}

TEST_F(DoctorAround, logWhosePathHasAVariable_isTold)
{
    const std::wstring path = L"%WINDIR%\\add-in.log";
    const auto* bytes = reinterpret_cast<const unsigned char*>(path.c_str());
    setRaw(HKEY_CURRENT_USER, settings, L"Trace", REG_EXPAND_SZ, {bytes, bytes + (path.size() + 1) * sizeof(wchar_t)});
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("log"));
    EXPECT_NE(diagnosis.lines.at("log").text.find("%WINDIR%"), std::string::npos);
}

TEST_F(DoctorAround, logThatAnotherProgramHolds_isTold)
{
    switchLogOn(log());
    const unique_kernel_handle held(
        CreateFileW(log().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_THAT(look(), ComplainsOnlyOf("log"));
}

TEST_F(DoctorAround, logThatIsAFolder_isTold)
{
    switchLogOn(folder());
    EXPECT_THAT(look(), ComplainsOnlyOf("log"));
}

TEST_F(DoctorAround, logSettingThatIsNoText_isTold)
{
    setNumber(HKEY_CURRENT_USER, settings, L"Trace", 1);
    EXPECT_THAT(look(), ComplainsOnlyOf("log"));
}

TEST_F(DoctorAround, runningIdeWithTheAddin_isNoComplaint)
{
    startIde(addin(), L"answers");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_NE(diagnosis.lines.at("running-addin").whole.find("velktestide.exe"), std::string::npos);
}

TEST_F(DoctorAround, programOfTheIdesNameThatIsNoIde_isNotOne)
{
    const std::wstring program = module::folder() + L"\\..\\doctor_ide\\velktestide.exe";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    // One that has not begun does not let its libraries be looked at, like one for 64 bits.
    ASSERT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                               &startup, &made));
    const unique_kernel_handle thread(made.hThread);
    const unique_kernel_handle process(made.hProcess);
    doctor::Options options;
    options.ide = L"velktestide.exe";
    doctor::Facts facts;
    gatherRunning(facts, options);
    options.isIdeNamed = true;
    doctor::Facts named;
    gatherRunning(named, options);
    TerminateProcess(process.get(), 0);
    EXPECT_TRUE(facts.running.processes.empty());
    ASSERT_EQ(named.running.processes.size(), 1u);
    EXPECT_FALSE(named.running.processes[0].areModulesKnown);
}

TEST_F(DoctorAround, folderOfALaterIde_isNotLookedIn)
{
    const std::wstring place = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\velktestide.exe";
    setText(HKEY_LOCAL_MACHINE, place, {}, base() + L"\\later\\velktestide.exe");
    const auto knowsFolder = [](bool isNamed) {
        doctor::Options options;
        options.ide = L"velktestide.exe";
        options.isIdeNamed = isNamed;
        doctor::Facts facts;
        gatherBackend(facts, options);
        return std::ranges::any_of(facts.backend.places,
                                   [](const auto& one) { return one.folder == base() + L"\\later"; });
    };
    EXPECT_FALSE(knowsFolder(false));
    EXPECT_TRUE(knowsFolder(true));
    remove(HKEY_LOCAL_MACHINE, place);
}

TEST_F(DoctorAround, runningIdeWithoutTheAddin_isTold)
{
    startIde(L"-", L"answers");
    EXPECT_THAT(look(), ComplainsOnlyOf("running-addin"));
}

TEST_F(DoctorAround, runningIdeWithAnotherCopy_isTold)
{
    furnish(base() + L"\\another");
    startIde(base() + L"\\another\\velkviadd.dll", L"answers");
    EXPECT_THAT(look(), ComplainsOnlyOf("running-addin"));
}

TEST_F(DoctorAround, runningIdeWithAnotherLibraryOfTheTool_isTold)
{
    furnish(base() + L"\\another");
    startIde(addin(), L"answers \"" + base() + L"\\another\\velkvsadd.dll\"");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("running-addin"));
    EXPECT_EQ(diagnosis.lines.at("running-addin").state, "WARNING");
}

TEST_F(DoctorAround, runningIdeThatHangs_isTold)
{
    startIde(addin(), L"hangs");
    EXPECT_THAT(look(), ComplainsOnlyOf("running-answers"));
}

} // namespace
} // namespace velk::test
