// What --fix mends, and that it changes nothing else.
#include "addin/registrationKeys.h"
#include "base/registry.h"
#include "deniedKey.h"
#include "doctor/publishedNames.h"
#include "doctor/registrationPlaces.h"
#include "machine.h"

namespace velk::test {
namespace {

class DoctorWhoFixes : public DoctorTest {
protected:
    // The registry of the healthy machine, before the test breaks it.
    const std::set<std::wstring> healthy = registry();

    static std::wstring classOf(size_t index) { return doctor::classPlace(doctor::publishedNames().at(index).clsid); }
    static size_t fixes(const Diagnosis& diagnosis, const char* done)
    {
        size_t count = 0;
        const std::string mark = std::string("\"done\": ") + done;
        for (size_t at = diagnosis.output.find(mark); at != std::string::npos; at = diagnosis.output.find(mark, at + 1))
            ++count;
        return count;
    }
};

TEST_F(DoctorWhoFixes, healthyMachine_staysAsItIs)
{
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_EQ(fixes(diagnosis, "true") + fixes(diagnosis, "false"), 0u);
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, addinThatIsNotRegistered_isRegistered)
{
    const std::set<std::wstring> before = wholeRegistry();
    unregister();
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_EQ(fixes(diagnosis, "true"), 1u);
    EXPECT_EQ(wholeRegistry(), before);
}

TEST_F(DoctorWhoFixes, missingClass_comesBack)
{
    remove(HKEY_LOCAL_MACHINE, classOf(1));
    EXPECT_THAT(diagnose(L"--fix"), IsHealthy());
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, missingNameAndTypeLibrary_comeBackByOneFix)
{
    remove(HKEY_LOCAL_MACHINE, doctor::progIdPlace(L"velkviadd.ModelUtil"));
    remove(HKEY_LOCAL_MACHINE, doctor::libraryPlace());
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_EQ(fixes(diagnosis, "true"), 1u);
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, keyThatTheIdesListLacks_comesBack)
{
    remove(HKEY_LOCAL_MACHINE, addinKey);
    EXPECT_THAT(diagnose(L"--fix"), IsHealthy());
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, whatWasSwitchedOff_staysSo)
{
    setNumber(HKEY_LOCAL_MACHINE, addinKey, L"LoadBehavior", 0);
    const std::set<std::wstring> switchedOff = registry();
    remove(HKEY_LOCAL_MACHINE, classOf(1));
    EXPECT_THAT(diagnose(L"--fix"), ComplainsOnlyOf("ide-switch"));
    EXPECT_EQ(registry(), switchedOff);
}

TEST_F(DoctorWhoFixes, registrationOfACopyThatIsGone_becomesThatOfThisOne)
{
    const std::wstring other = base() + L"\\another";
    furnish(other);
    registerIn(other);
    DeleteFileW((other + L"\\velkviadd.dll").c_str());
    EXPECT_THAT(diagnose(L"--fix"), IsHealthy());
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, registrationOfAnotherCopy_isLeftToIt)
{
    const std::wstring other = base() + L"\\another";
    furnish(other);
    registerIn(other);
    const std::set<std::wstring> registered = registry();
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-copy"));
    EXPECT_EQ(diagnosis.exitCode, 2u);
    EXPECT_EQ(registry(), registered);
}

TEST_F(DoctorWhoFixes, registrationOfAnotherCopy_becomesThatOfTheNamedOne)
{
    const std::wstring other = base() + L"\\another";
    furnish(other);
    registerIn(other);
    EXPECT_THAT(diagnose(L"--fix --dll \"" + addin() + L"\""), IsHealthy());
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, registrationOfAFileThatIsGone_isRemoved)
{
    unregister();
    const std::set<std::wstring> before = wholeRegistry();
    registerIn(folder());
    DeleteFileW(addin().c_str());
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_EQ(fixes(diagnosis, "true"), 1u);
    EXPECT_EQ(wholeRegistry(), before);
}

TEST_F(DoctorWhoFixes, usersRegistrationThatLeadsNowhere_isRemoved)
{
    // The lists themselves are the system's.
    for (const wchar_t* list : {L"Software\\Classes\\CLSID", L"Software\\Classes\\TypeLib"})
        registry::createKey(HKEY_CURRENT_USER, list);
    const std::set<std::wstring> before = wholeRegistry();
    setText(HKEY_CURRENT_USER, classOf(0) + L"\\InprocServer32", {}, L"C:\\gone\\velkviadd.dll");
    setText(HKEY_CURRENT_USER, doctor::progIdPlace(L"velkviadd.Connect") + L"\\CLSID", {}, L"{0}");
    setText(HKEY_CURRENT_USER, doctor::libraryFilePlace(), {}, L"C:\\gone\\velkviadd.dll");
    EXPECT_THAT(diagnose(L"--fix"), IsHealthy());
    EXPECT_EQ(wholeRegistry(), before);
}

TEST_F(DoctorWhoFixes, usersRegistrationInAFileThatIsThere_stays)
{
    setText(HKEY_CURRENT_USER, classOf(0) + L"\\InprocServer32", {}, library());
    const std::set<std::wstring> broken = registry();
    EXPECT_THAT(diagnose(L"--fix"), ComplainsOnlyOf("registered-user"));
    EXPECT_EQ(registry(), broken);
}

TEST_F(DoctorWhoFixes, usersNameOfAnotherClassThatIsThere_stays)
{
    setText(HKEY_CURRENT_USER, doctor::classPlace(anotherClass) + L"\\InprocServer32", {}, library());
    setText(HKEY_CURRENT_USER, doctor::progIdPlace(L"velkviadd.Connect") + L"\\CLSID", {}, anotherClass);
    setText(HKEY_CURRENT_USER, classOf(0) + L"\\InprocServer32", {}, L"C:\\gone\\velkviadd.dll");
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-user"));
    EXPECT_EQ(diagnosis.lines.at("registered-user").state, "WARNING");
    EXPECT_EQ(fixes(diagnosis, "true"), 1u);
}

TEST_F(DoctorWhoFixes, fileThatIsNotTheAddin_isNotRegistered)
{
    const Diagnosis diagnosis = diagnose(L"--fix --dll \"" + otherLibrary() + L"\"");
    EXPECT_EQ(fixes(diagnosis, "true") + fixes(diagnosis, "false"), 0u);
    EXPECT_EQ(diagnosis.exitCode, 2u);
}

TEST_F(DoctorWhoFixes, registrationThatTheFileRefuses_isNoMatterOfRights)
{
    const Diagnosis diagnosis = diagnose(L"--fix --dll \"" + library() + L"\"");
    EXPECT_EQ(diagnosis.exitCode, 3u);
    EXPECT_NE(diagnosis.output.find("this failed, Invalid procedure call"), std::string::npos);
    EXPECT_EQ(diagnosis.output.find("it needs administrator rights"), std::string::npos);
    EXPECT_EQ(registry(), healthy);
}

TEST_F(DoctorWhoFixes, registrationWithoutTheRightsForIt_isToldAndNothingIsChanged)
{
    remove(HKEY_LOCAL_MACHINE, classOf(1));
    const std::set<std::wstring> broken = registry();
    Diagnosis diagnosis;
    {
        const ReadOnlyKey denied(L"Software\\Classes\\CLSID");
        diagnosis = diagnose(L"--fix");
    }
    EXPECT_EQ(fixes(diagnosis, "false"), 1u);
    EXPECT_EQ(diagnosis.exitCode, 3u);
    EXPECT_NE(diagnosis.output.find("administrator"), std::string::npos);
    EXPECT_EQ(registry(), broken);
}

TEST_F(DoctorWhoFixes, libraryThatCrashes_isNoneOfItsBusiness)
{
    SetEnvironmentVariableW(L"VELK_TEST_LIBRARY", L"crash at load");
    const Diagnosis diagnosis = diagnose(L"--fix");
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-load"));
    EXPECT_EQ(registry(), healthy);
}

} // namespace
} // namespace velk::test
