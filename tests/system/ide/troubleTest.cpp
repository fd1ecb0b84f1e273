// Bad input: a message that names the thing and the way out, an IDE that keeps running, a later click that works.
#include "devkit/backend/odbc.h"
#include "ideRun.h"

#include <fstream>

namespace velk {
namespace {

constexpr const char* worksAfterwards = "select-node Orders/ORDERS/Tables\nexpect-rows 8\nunload velkviadd.Connect\n"
                                        "expect-module velkviadd.dll unloaded\n";

class TroubleTest : public test::IdeRun {
protected:
    // Up to the failure of the build and its message.
    static std::string buildsAProcedure(const std::string& message)
    {
        return "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nselect-node Orders/ORDERS/Stored Procedures\n"
               "right-click-row raise_prices\nchoose-menu Build\nexpect-message RZObjectDoAction in velkvsadd.dll: " +
               message + "\nanswer ok\nexpect-no-message\n";
    }
    void useBackend(const std::wstring& file) const { CopyFileW(file.c_str(), path(L"velkvsadd.dll").c_str(), FALSE); }
    // A click that fails as expected, then the right library in its place and a click that works.
    DWORD runUntilMended(const std::string& message)
    {
        CopyFileW(VELK_BIN L"/velkvsadd.dll", path(L"good.dll").c_str(), FALSE);
        return run(
            "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-message " + message +
            "\nanswer ok\nexpect-no-message\nexpect-entry Add-Ins/#1 enabled\nexpect-window Rozel Server View absent\n"
            "copy-file $SAMPLE\\good.dll $SAMPLE\\velkvsadd.dll\nclick Add-Ins/#1\n" +
            worksAfterwards);
    }
};

TEST_F(TroubleTest, backendMissing_isNamedAndALaterClickWorks)
{
    DeleteFileW(path(L"velkvsadd.dll").c_str());
    EXPECT_EQ(runUntilMended("File not found: velkvsadd.dll"), 0u);
}

TEST_F(TroubleTest, backendFor64Bits_isNamedAndALaterClickWorks)
{
    std::fstream file(test::narrow(path(L"velkvsadd.dll")), std::ios::in | std::ios::out | std::ios::binary);
    file.seekg(0x3c);
    uint32_t header = 0;
    file.read(reinterpret_cast<char*>(&header), sizeof header);
    file.seekp(header + 4);
    const uint16_t machine = IMAGE_FILE_MACHINE_AMD64;
    file.write(reinterpret_cast<const char*>(&machine), sizeof machine);
    file.close();
    EXPECT_EQ(runUntilMended("velkvsadd.dll"), 0u);
}

TEST_F(TroubleTest, backendWithoutAFunction_isNamedAndALaterClickWorks)
{
    useBackend(VELK_INCOMPLETE_BACKEND);
    EXPECT_EQ(runUntilMended("RZGetNotification"), 0u);
}

// It may have threads and windows of its own by then.
TEST_F(TroubleTest, startThatFailsInTheIde_keepsTheLibrary)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-message CreateToolWindow\nanswer ok\n"
                  "expect-no-message\nexpect-module velkvsadd.dll loaded\nunload velkviadd.Connect\n"
                  "expect-module velkviadd.dll unloaded\nexpect-module velkvsadd.dll unloaded\n",
                  L"--fail Windows.CreateToolWindow"),
              0u);
}

// A fault inside the tool's library, in each place where the IDE waits for it, and a library that works from then on.
TEST_F(TroubleTest, faultInTheStart_isNamedAndALaterClickWorks)
{
    EXPECT_EQ(run(std::string("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-message Internal error: "
                              "RZInitialize in velkvsadd.dll: access violation\nanswer ok\nexpect-no-message\n"
                              "click Add-Ins/#1\n") +
                      worksAfterwards,
                  L"--reentry RZInitialize#1=fault"),
              0u);
}

TEST_F(TroubleTest, faultInACommand_isNamedAndTheSessionGoesOn)
{
    EXPECT_EQ(runShown(buildsAProcedure("access violation") + worksAfterwards, L"--reentry RZObjectDoAction#1=fault"),
              0u);
}

TEST_F(TroubleTest, exceptionOutOfACommand_isNamedAndTheSessionGoesOn)
{
    EXPECT_EQ(runShown(buildsAProcedure("C++ exception") + worksAfterwards, L"--reentry RZObjectDoAction#1=throw"), 0u);
}

TEST_F(TroubleTest, faultInThePoll_isNamedAndTheNextPollBringsTheRest)
{
    EXPECT_EQ(run(std::string("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\n"
                              "expect-message RZGetNotification in velkvsadd.dll: access violation\nanswer ok\n"
                              "expect-no-message\n") +
                      worksAfterwards,
                  L"--reentry RZGetNotification#2=fault"),
              0u);
}

TEST_F(TroubleTest, faultInTheEnd_letsTheAddInGo)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nselect-node Orders/ORDERS/Tables\n"
                  "expect-rows 8\nunload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n",
                  L"--reentry RZTerminate#1=fault"),
              0u);
}

TEST_F(TroubleTest, projectFileMissing_isNamedAndTheViewLivesWithAnEmptyProject)
{
    EXPECT_EQ(run("delete-file $SAMPLE\\rz\\orders.rzv\nopen-solution $SAMPLE\\orders.sln\n"
                  "click Add-Ins/Rozel Development\nexpect-message $SAMPLE\\rz\\orders.rzv\nanswer ok\n"
                  "expect-node orders\nexpect-nodes 1\nexpect-class velkviadd.splashscrnFrm absent\n"
                  "unload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n"),
              0u);
}

TEST_F(TroubleTest, projectFileBroken_isNamedWithItsLineAndStaysAsItWas)
{
    std::ofstream(test::narrow(path(L"rz\\orders.rzv"))) << "[project]\nelephant\n";
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\nexpect-message line 2\n"
                  "expect-message orders.rzv\nanswer ok\nexpect-nodes 1\nunload velkviadd.Connect\n"
                  "expect-file-text $SAMPLE\\rz\\orders.rzv elephant\n"),
              0u);
}

TEST_F(TroubleTest, databaseMissing_isNamedAndALaterSelectionWorks)
{
    EXPECT_EQ(run(std::string("copy-file $SAMPLE\\rz\\orders.db $SAMPLE\\kept.db\ndelete-file $SAMPLE\\rz\\orders.db\n"
                              "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                              "expect-message orders.db\nanswer ok\nselect-node Orders/ORDERS/Views\n"
                              "expect-message orders.db\nanswer ok\nexpect-rows 0\n"
                              "copy-file $SAMPLE\\kept.db $SAMPLE\\rz\\orders.db\n") +
                  worksAfterwards),
              0u);
}

TEST_F(TroubleTest, databaseLocked_isNamedWithoutHangingAndALaterSelectionWorks)
{
    devkit::OdbcConnection other(
        devkit::placeDatabase(L"Driver=SQLite3;Database=orders.db;NoCreat=1", path(L"rz")).connectionString);
    other.query(L"BEGIN EXCLUSIVE");
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\nexpect-message orders.db\n"
                  "answer ok\nexpect-node Orders/ORDERS/Views\nunload velkviadd.Connect\n"),
              0u);
    other.query(L"ROLLBACK");
    EXPECT_EQ(
        run(std::string("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n") + worksAfterwards), 0u);
}

} // namespace
} // namespace velk
