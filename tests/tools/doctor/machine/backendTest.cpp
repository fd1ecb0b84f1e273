// The tool's library, and what goes wrong in a process that loads it.
#include "base/module.h"
#include "machine.h"

namespace velk::test {
namespace {

class DoctorOfALibrary : public DoctorTest {
protected:
    static void tell(const wchar_t* what) { SetEnvironmentVariableW(L"VELK_TEST_LIBRARY", what); }
    static std::string textOf(const Diagnosis& diagnosis, const char* id) { return diagnosis.lines.at(id).text; }
    static void putPart(const wchar_t* place) { putFile(module::folder() + L"\\..\\" + place, library()); }
};

TEST_F(DoctorOfALibrary, missingLibrary_isToldWithAllPlaces)
{
    DeleteFileW(library().c_str());
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-file"));
    EXPECT_NE(textOf(diagnosis, "backend-file").find("a machine"), std::string::npos);
    EXPECT_NE(textOf(diagnosis, "backend-file").find("system32"), std::string::npos);
}

TEST_F(DoctorOfALibrary, libraryFor64Bits_isTold)
{
    make64Bit(library());
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-bits"));
}

TEST_F(DoctorOfALibrary, libraryThatIsDamaged_isTold)
{
    writeBytes(library(), {});
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-bits"));
}

TEST_F(DoctorOfALibrary, libraryOfAnotherRelease_isToldWithWhatItLacks)
{
    putPart(L"incomplete_backend\\velkvsadd.dll");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-functions"));
    EXPECT_NE(textOf(diagnosis, "backend-functions").find("RZInitialize, RZGetString,"), std::string::npos);
}

TEST_F(DoctorOfALibrary, libraryThatLacksOneFunction_isTold)
{
    replaceIn(library(), std::string("RZViewGet\0", 10), std::string("RZViewPut\0", 10));
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-functions"));
}

TEST_F(DoctorOfALibrary, libraryThatNeedsAnother_isToldByThatName)
{
    putPart(L"doctor_needy_library\\velkvsadd.dll");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-needs"));
    EXPECT_NE(textOf(diagnosis, "backend-needs").find("velkdependency.dll"), std::string::npos);
    EXPECT_NE(textOf(diagnosis, "backend-load").find("Windows says"), std::string::npos);
}

TEST_F(DoctorOfALibrary, libraryWhoseNeedIsFor64Bits_isTold)
{
    putPart(L"doctor_needy_library\\velkvsadd.dll");
    const std::wstring need = folder() + L"\\velkdependency.dll";
    putFile(module::folder() + L"\\..\\dependent_backend\\velkdependency.dll", need);
    make64Bit(need);
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-needs"));
}

TEST_F(DoctorOfALibrary, libraryWhoseNeedIsThere_isRight)
{
    putPart(L"doctor_needy_library\\velkvsadd.dll");
    putFile(module::folder() + L"\\..\\dependent_backend\\velkdependency.dll", folder() + L"\\velkdependency.dll");
    EXPECT_THAT(diagnose(), IsHealthy());
}

TEST_F(DoctorOfALibrary, crashAtLoading_isALine)
{
    tell(L"crash at load");
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-load"));
}

TEST_F(DoctorOfALibrary, hangAtLoading_isALine)
{
    tell(L"hang at load");
    const Diagnosis diagnosis = diagnose(L"--wait 4");
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-load"));
    EXPECT_NE(textOf(diagnosis, "backend-load").find("did not come back"), std::string::npos);
}

TEST_F(DoctorOfALibrary, endOfTheProcessAtLoading_isALine)
{
    tell(L"exit at load");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-load"));
    EXPECT_NE(textOf(diagnosis, "backend-load").find("0x0000004D"), std::string::npos);
}

TEST_F(DoctorOfALibrary, refusalToLoad_isALineWithWindowsWords)
{
    tell(L"refusal at load");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-load"));
    EXPECT_NE(textOf(diagnosis, "backend-load").find("(1114)"), std::string::npos);
}

TEST_F(DoctorOfALibrary, crashAtTheFirstText_isALine)
{
    tell(L"crash at text");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-texts"));
    EXPECT_NE(textOf(diagnosis, "backend-texts").find("0xC0000005"), std::string::npos);
}

TEST_F(DoctorOfALibrary, hangAtTheFirstText_isALine)
{
    tell(L"hang at text");
    EXPECT_THAT(diagnose(L"--wait 4"), ComplainsOnlyOf("backend-texts"));
}

TEST_F(DoctorOfALibrary, endOfTheProcessAtTheFirstText_isALine)
{
    tell(L"exit at text");
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-texts"));
}

TEST_F(DoctorOfALibrary, libraryWithoutTexts_isTold)
{
    tell(L"no text");
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("backend-texts"));
}

TEST_F(DoctorOfALibrary, fontThatIsNotInstalled_isTold)
{
    tell(L"font No Such Face");
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("fonts"));
}

} // namespace
} // namespace velk::test
