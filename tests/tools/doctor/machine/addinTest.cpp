// The add-in's file and its installation.
#include "machine.h"

namespace velk::test {
namespace {

const std::wstring uninstallKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\velkviadd";

TEST_F(DoctorTest, healthyMachine_hasNoComplaint)
{
    EXPECT_THAT(diagnose(), IsHealthy());
}

TEST_F(DoctorTest, machineWithBlanksAndOtherLettersInItsPath_hasNoComplaint)
{
    const std::wstring other = base() + L"\\\x30C4\x30FC\x30EB \x5DE5\x5177 \x0416";
    furnish(other);
    registerIn(other);
    install(other);
    EXPECT_THAT(diagnose({}, other), IsHealthy());
}

TEST_F(DoctorTest, addinThatWasDeleted_isMissed)
{
    DeleteFileW(addin().c_str());
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("addin-file"));
    EXPECT_EQ(diagnosis.exitCode, 2u);
}

TEST_F(DoctorTest, addinFor64Bits_isTold)
{
    make64Bit(addin());
    ship();
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-bits"));
}

TEST_F(DoctorTest, addinThatIsNoLibrary_isTold)
{
    writeBytes(addin(), {'n', 'o'});
    ship();
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-bits"));
}

TEST_F(DoctorTest, otherLibraryUnderTheAddinsName_isTold)
{
    putFile(otherLibrary(), addin());
    ship();
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-bits"));
}

TEST_F(DoctorTest, programUnderTheAddinsName_isTold)
{
    putFile(folder() + L"\\velkdoctor.exe", addin());
    ship();
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-bits"));
}

TEST_F(DoctorTest, addinOfAnotherVersion_isTold)
{
    // The fixed part of a version begins so; the file's version follows.
    replaceIn(addin(), std::string("\xBD\x04\xEF\xFE\x00\x00\x01\x00\x00\x00\x01\x00", 12),
              std::string("\xBD\x04\xEF\xFE\x00\x00\x01\x00\x00\x00\x09\x00", 12));
    ship();
    install(folder(), L"9.0.0");
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-version"));
}

TEST_F(DoctorTest, addinWithOtherBytesThanShipped_isTold)
{
    replaceIn(addin(), "This program cannot be run", "This program cannot be ran");
    const Diagnosis diagnosis = diagnose();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("addin-bytes"));
    EXPECT_EQ(diagnosis.lines.at("addin-bytes").state, "WRONG");
}

TEST_F(DoctorTest, damagedListOfBytes_isTold)
{
    writeBytes(folder() + L"\\velkviadd.sha256", {'?', '\n'});
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-bytes"));
}

TEST_F(DoctorTest, addinThatDoesNotLoad_isTold)
{
    replaceIn(addin(), "OLEAUT32.dll", "XLEAUT32.dll");
    ship();
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-load"));
}

TEST_F(DoctorTest, toolsLibraryOnTheSearchPathOnly_isTold)
{
    CreateDirectoryW((base() + L"\\tool").c_str(), nullptr);
    MoveFileW(library().c_str(), (base() + L"\\tool\\velkvsadd.dll").c_str());
    SetEnvironmentVariableW(L"PATH", (L"C:\\windows\\system32;" + base() + L"\\tool").c_str());
    EXPECT_THAT(diagnose(), ComplainsOnlyOf("addin-folder"));
}

TEST_F(DoctorTest, installationInAnotherFolder_isTold)
{
    install(base() + L"\\elsewhere");
    EXPECT_THAT(look(), ComplainsOnlyOf("addin-folder"));
}

TEST_F(DoctorTest, installationOfAnotherVersion_isTold)
{
    install(folder(), L"0.9.0");
    const Diagnosis diagnosis = look();
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("installed"));
    EXPECT_EQ(diagnosis.exitCode, 1u);
}

TEST_F(DoctorTest, installationThatIsDamaged_isTold)
{
    setNumber(HKEY_LOCAL_MACHINE, uninstallKey, L"DisplayVersion", 1);
    EXPECT_THAT(look(), ComplainsOnlyOf("installed"));
}

TEST_F(DoctorTest, addinPutThereByHand_isNoComplaint)
{
    remove(HKEY_LOCAL_MACHINE, uninstallKey);
    DeleteFileW((folder() + L"\\velkviadd.sha256").c_str());
    EXPECT_THAT(diagnose(), IsHealthy());
}

TEST_F(DoctorTest, anotherFileByName_isLookedAt)
{
    const Diagnosis diagnosis = diagnose(L"--dll \"" + folder() + L"\\no such.dll\"");
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("addin-file"));
}

} // namespace
} // namespace velk::test
