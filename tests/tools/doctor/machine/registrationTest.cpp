// What is registered, and what reads strangely there.
#include "base/registry.h"
#include "deniedKey.h"
#include "doctor/publishedNames.h"
#include "doctor/registrationPlaces.h"
#include "machine.h"

namespace velk::test {
namespace {

constexpr wchar_t ideKey[] = L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns\\velkviadd.Connect";

std::wstring server(size_t index)
{
    return doctor::classPlace(doctor::publishedNames().at(index).clsid) + L"\\InprocServer32";
}

TEST_F(DoctorTest, addinThatIsNotRegistered_isOneComplaint)
{
    unregister();
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, missingClass_isTold)
{
    remove(HKEY_LOCAL_MACHINE, doctor::classPlace(doctor::publishedNames().at(3).clsid));
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-classes"));
    EXPECT_NE(diagnosis.lines.at("registered-classes").text.find("velkviadd.ModelUtil"), std::string::npos);
}

TEST_F(DoctorTest, missingEntryObject_isTold)
{
    remove(HKEY_LOCAL_MACHINE, doctor::classPlace(doctor::publishedNames().at(0).clsid));
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, classInAnotherFile_isTold)
{
    setText(HKEY_LOCAL_MACHINE, server(2), {}, L"C:\\windows\\system32\\ole32.dll");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, otherThreadingModel_isTold)
{
    setText(HKEY_LOCAL_MACHINE, server(1), L"ThreadingModel", L"Both");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, classWhoseFileIsNoText_isTold)
{
    setRaw(HKEY_LOCAL_MACHINE, server(1), {}, REG_BINARY, {1, 2, 3});
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, classWhoseFileIsAnEmptyText_isTold)
{
    setText(HKEY_LOCAL_MACHINE, server(0), {}, L"");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, classWhoseFileIsATextOf64KB_isTold)
{
    setText(HKEY_LOCAL_MACHINE, server(5), {}, std::wstring(32768, L'x'));
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-classes"));
    EXPECT_LT(diagnosis.lines.at("registered-classes").text.size(), 500u);
}

TEST_F(DoctorTest, textWithoutItsEnd_isReadAll)
{
    // The system writes an end that it sees behind the text.
    const std::wstring more = addin() + L"x";
    const std::wstring path = addin();
    const unique_key key = registry::createKey(HKEY_LOCAL_MACHINE, server(0));
    RegSetValueExW(key.get(), nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(more.data()),
                   static_cast<DWORD>(path.size() * sizeof(wchar_t)));
    DWORD size = 0;
    RegQueryValueExW(key.get(), nullptr, nullptr, nullptr, nullptr, &size);
    ASSERT_EQ(size, path.size() * sizeof(wchar_t));
    EXPECT_THAT(look(), IsHealthy());
}

TEST_F(DoctorTest, textOfAnOddNumberOfBytes_isTold)
{
    setRaw(HKEY_LOCAL_MACHINE, server(4), L"ThreadingModel", REG_SZ, {'A', 0, 'p'});
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, pathInQuotesAndOtherLetters_isTheSame)
{
    std::wstring path = addin();
    CharUpperBuffW(path.data(), static_cast<DWORD>(path.size()));
    setText(HKEY_LOCAL_MACHINE, server(0), {}, L"\"" + path + L"\"");
    EXPECT_THAT(look(), IsHealthy());
}

TEST_F(DoctorTest, classThatMayNotBeRead_isALine)
{
    const DeniedKey denied(server(1));
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-classes"));
}

TEST_F(DoctorTest, missingName_isTold)
{
    remove(HKEY_LOCAL_MACHINE, doctor::progIdPlace(L"velkviadd.IMgrVI"));
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-names"));
}

TEST_F(DoctorTest, nameOfAnotherClass_isTold)
{
    setText(HKEY_LOCAL_MACHINE, doctor::progIdPlace(L"velkviadd.Connect") + L"\\CLSID", {},
            L"{00000000-0000-0000-C000-000000000046}");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-names"));
}

TEST_F(DoctorTest, missingTypeLibrary_isTold)
{
    remove(HKEY_LOCAL_MACHINE, doctor::libraryPlace());
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-library"));
}

TEST_F(DoctorTest, typeLibraryInAnotherFile_isTold)
{
    setText(HKEY_LOCAL_MACHINE, doctor::libraryFilePlace(), {}, L"C:\\elsewhere\\velkviadd.dll");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-library"));
}

TEST_F(DoctorTest, anotherCopyThatIsRegistered_isTold)
{
    const std::wstring other = base() + L"\\another";
    furnish(other);
    registerIn(other);
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-copy"));
}

TEST_F(DoctorTest, registrationOfACopyThatIsGone_isTold)
{
    const std::wstring other = base() + L"\\another";
    furnish(other);
    registerIn(other);
    DeleteFileW((other + L"\\velkviadd.dll").c_str());
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-copy"));
}

TEST_F(DoctorTest, usersClassThatLeadsNowhere_isTold)
{
    setText(HKEY_CURRENT_USER, server(0), {}, L"C:\\gone\\velkviadd.dll");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-user"));
    EXPECT_EQ(diagnosis.lines.at("registered-user").state, "WRONG");
}

TEST_F(DoctorTest, usersClassInAFileThatIsThere_isAWarning)
{
    setText(HKEY_CURRENT_USER, server(0), {}, library());
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-user"));
    EXPECT_EQ(diagnosis.lines.at("registered-user").state, "WARNING");
}

TEST_F(DoctorTest, usersTypeLibraryThatLeadsNowhere_isTold)
{
    setText(HKEY_CURRENT_USER, doctor::libraryFilePlace(), {}, L"C:\\gone\\velkviadd.dll");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-user"));
}

TEST_F(DoctorTest, usersNameThatLeadsToAnotherClassThatIsThere_isAWarning)
{
    setText(HKEY_CURRENT_USER, doctor::classPlace(anotherClass) + L"\\InprocServer32", {}, library());
    setText(HKEY_CURRENT_USER, doctor::progIdPlace(L"velkviadd.Connect") + L"\\CLSID", {}, anotherClass);
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-user"));
    EXPECT_EQ(diagnosis.lines.at("registered-user").state, "WARNING");
}

TEST_F(DoctorTest, usersNameOfAnotherVersion_isALeftover)
{
    setText(HKEY_CURRENT_USER, L"Software\\Classes\\velkviadd.Older", {}, L"A class of long ago");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("registered-leftovers"));
    EXPECT_NE(diagnosis.lines.at("registered-leftovers").text.find("HKEY_CURRENT_USER"), std::string::npos);
}

TEST_F(DoctorTest, nameOfAnotherVersion_isALeftover)
{
    setText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\velkviadd.Older", {}, L"A class of long ago");
    EXPECT_THAT(look(), ComplainsOnlyOf("registered-leftovers"));
}

TEST_F(DoctorTest, keyThatTheIdesListLacks_isTold)
{
    remove(HKEY_LOCAL_MACHINE, ideKey);
    EXPECT_THAT(look(), ComplainsOnlyOf("ide-key"));
}

TEST_F(DoctorTest, loadBehaviorThatIsAText_isTold)
{
    setText(HKEY_LOCAL_MACHINE, ideKey, L"LoadBehavior", L"1");
    EXPECT_THAT(look(), ComplainsOnlyOf("ide-key"));
}

TEST_F(DoctorTest, emptyNameInTheIdesList_isTold)
{
    setText(HKEY_LOCAL_MACHINE, ideKey, L"FriendlyName", L"");
    EXPECT_THAT(look(), ComplainsOnlyOf("ide-key"));
}

TEST_F(DoctorTest, addinThatIsSwitchedOff_isTold)
{
    setNumber(HKEY_LOCAL_MACHINE, ideKey, L"LoadBehavior", 0);
    EXPECT_THAT(look(), ComplainsOnlyOf("ide-switch"));
}

TEST_F(DoctorTest, addinThatTheUserSwitchedOff_isTold)
{
    setNumber(HKEY_CURRENT_USER, ideKey, L"LoadBehavior", 4);
    EXPECT_THAT(look(), ComplainsOnlyOf("ide-switch"));
}

TEST_F(DoctorTest, addinThatStartsAndConnects_isRight)
{
    setNumber(HKEY_LOCAL_MACHINE, ideKey, L"LoadBehavior", 3);
    EXPECT_THAT(look(), IsHealthy());
}

} // namespace
} // namespace velk::test
