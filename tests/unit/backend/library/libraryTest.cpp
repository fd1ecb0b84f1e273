#include "backend/library.h"

#include "backend/calls.h"
#include "backend/fetch.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "libraryRoom.h"
#include "support/failureLog.h"

#include <gmock/gmock.h>
#include <optional>

namespace velk {
namespace {

using test::FailureLog;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// The smallest file that the system takes for a program of that machine.
std::string emptyImage(uint16_t machine)
{
    std::string image(0x400, '\0');
    image.replace(0, 2, "MZ");
    image[0x3c] = 0x40;
    image.replace(0x40, 4, std::string_view("PE\0\0", 4));
    image[0x44] = static_cast<char>(machine & 0xff);
    image[0x45] = static_cast<char>(machine >> 8);
    image[0x54] = static_cast<char>(0xf0); // size of the optional header
    image[0x56] = 0x22;                    // executable, large addresses
    image[0x57] = 0x20;                    // library
    image[0x58] = 0x0b;
    image[0x59] = 0x02; // 64-bit optional header
    return image;
}

using backendLibrary = test::LibraryRoom;

template <class Call>
std::optional<Error> errorOf(Call call)
{
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

TEST_F(backendLibrary, missing_isError53NamingTheFile)
{
    const auto error = errorOf([] { RZTerminate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 53);
    EXPECT_EQ(error->description(), L"File not found: velkvsadd.dll");
    EXPECT_EQ(error->source(), L"velkviadd");
}

TEST_F(backendLibrary, missingThenThere_isFoundByTheNextCall)
{
    ASSERT_TRUE(errorOf([] { RZTerminate(); }));
    put(VELK_INCOMPLETE_BACKEND);
    EXPECT_EQ(RZTerminate(), 4711);
}

TEST_F(backendLibrary, onlyInTheCurrentDirectory_isNotFound)
{
    put(VELK_INCOMPLETE_BACKEND, elsewhere);
    ASSERT_TRUE(SetCurrentDirectoryW(elsewhere.c_str()));
    const auto error = errorOf([] { RZTerminate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 53);
}

TEST_F(backendLibrary, currentDirectoryAsRelativeEntryOfTheSearchPath_isNotFound)
{
    put(VELK_INCOMPLETE_BACKEND, elsewhere);
    SetCurrentDirectoryW(elsewhere.c_str());
    SetEnvironmentVariableW(L"PATH", L".;;");
    EXPECT_TRUE(errorOf([] { RZTerminate(); }));
}

TEST_F(backendLibrary, onTheSearchPath_isFound)
{
    put(VELK_INCOMPLETE_BACKEND, elsewhere);
    SetEnvironmentVariableW(L"PATH", (L"C:\\nowhere;;\"" + elsewhere + L"\"").c_str());
    EXPECT_EQ(RZTerminate(), 4711);
}

TEST_F(backendLibrary, besideTheAddInAndOnTheSearchPath_isTheOneBeside)
{
    put(VELK_INCOMPLETE_BACKEND, elsewhere);
    put(VELK_COMPLETE_BACKEND);
    SetEnvironmentVariableW(L"PATH", elsewhere.c_str());
    EXPECT_EQ(RZTerminate(), 0);
}

TEST_F(backendLibrary, for64Bits_isError48WithTheSystemsReason)
{
    putBytes(emptyImage(IMAGE_FILE_MACHINE_AMD64));
    const auto error = errorOf([] { RZTerminate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 48);
    EXPECT_THAT(error->description(), StartsWith(L"Error in loading DLL: velkvsadd.dll. "));
    EXPECT_THAT(error->description(), HasSubstr(beside + L"velkvsadd.dll"));
}

TEST_F(backendLibrary, damaged_isError48)
{
    putBytes("this is no library");
    const auto error = errorOf([] { RZTerminate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 48);
}

TEST_F(backendLibrary, emptyFile_isError48)
{
    putBytes("");
    const auto error = errorOf([] { RZTerminate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 48);
}

TEST_F(backendLibrary, damagedThenReplaced_loadsWithTheNextCall)
{
    putBytes("this is no library");
    ASSERT_TRUE(errorOf([] { RZTerminate(); }));
    put(VELK_INCOMPLETE_BACKEND);
    EXPECT_EQ(RZTerminate(), 4711);
}

TEST_F(backendLibrary, withoutTheFunction_isError453NamingBoth)
{
    put(VELK_INCOMPLETE_BACKEND);
    const auto error = errorOf([] { RZObjectDoAction(1, 2); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 453);
    EXPECT_EQ(error->description(), L"Can't find DLL entry point RZObjectDoAction in velkvsadd.dll");
    EXPECT_EQ(RZTerminate(), 4711);
}

TEST_F(backendLibrary, functionThatTakesOtherArguments_isError49NamingIt)
{
    put(VELK_INCOMPLETE_BACKEND);
    const auto error = errorOf([] { RZLaunchVelkTool(1); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 49);
    EXPECT_EQ(error->description(), L"Bad DLL calling convention: RZLaunchVelkTool in velkvsadd.dll");
}

TEST_F(backendLibrary, missing_isALibraryFailureAlsoWhenKept)
{
    const std::optional<Error> failure = attempt([] { RZTerminate(); });
    ASSERT_TRUE(failure);
    EXPECT_TRUE(isBackendLibraryFailure(*failure));
}

TEST_F(backendLibrary, damaged_isALibraryFailure)
{
    putBytes("this is no library");
    EXPECT_TRUE(isBackendLibraryFailure(attempt([] { RZTerminate(); }).value()));
}

TEST_F(backendLibrary, withoutTheFunction_isALibraryFailure)
{
    put(VELK_INCOMPLETE_BACKEND);
    EXPECT_TRUE(isBackendLibraryFailure(attempt([] { RZObjectDoAction(1, 2); }).value()));
}

TEST_F(backendLibrary, failureOfAnother_isNoneWhateverItsNumber)
{
    EXPECT_FALSE(isBackendLibraryFailure(Error(errorFileNotFound, L"velkvsadd.dll")));
    EXPECT_FALSE(isBackendLibraryFailure(Error(errorLoadingDll)));
    EXPECT_FALSE(isBackendLibraryFailure(Error::fromResult(STG_E_FILENOTFOUND)));
}

TEST_F(backendLibrary, unloaded_isGoneAndLoadedAgainByTheNextCall)
{
    put(VELK_INCOMPLETE_BACKEND);
    RZTerminate();
    EXPECT_TRUE(GetModuleHandleW(L"velkvsadd.dll"));
    unloadBackend();
    EXPECT_FALSE(GetModuleHandleW(L"velkvsadd.dll"));
    put(VELK_COMPLETE_BACKEND);
    EXPECT_EQ(RZTerminate(), 0);
}

TEST_F(backendLibrary, neverLoaded_canBeUnloaded)
{
    unloadBackend();
    unloadBackend();
    EXPECT_FALSE(GetModuleHandleW(L"velkvsadd.dll"));
}

TEST_F(backendLibrary, missingForAText_givesTheEmptyTextAndIsReported)
{
    FailureLog failures;
    std::wstring parameter = L"kept";
    EXPECT_EQ(getRZString(646), L"");
    EXPECT_EQ(getRZStringP1(646, parameter), L"");
    EXPECT_EQ(getRZStringP2(646, parameter, parameter), L"");
    EXPECT_EQ(parameter, L"kept");
    EXPECT_THAT(failures.lines, ElementsAre(L"getRZString: 53", L"getRZStringP1: 53", L"getRZStringP2: 53"));
}

TEST_F(backendLibrary, withoutARecordsFunction_gives0AndLeavesTheRecord)
{
    put(VELK_INCOMPLETE_BACKEND);
    FailureLog failures;
    trzTable table{.lHdl = 5, .strName = L"kept"};
    trzText text{.strText = L"kept", .lTextSz = 7};
    EXPECT_EQ(fetchTable(1, table) + fetchText(1, text), 0);
    EXPECT_EQ(table.strName + text.strText, L"keptkept");
    EXPECT_EQ(text.lTextSz, 7);
    EXPECT_THAT(failures.lines, ElementsAre(L"fetchTable: 453", L"fetchText: 453"));
}

TEST_F(backendLibrary, withoutTheFunction_leavesTheCallersVariables)
{
    put(VELK_INCOMPLETE_BACKEND);
    std::wstring folder = L"kept";
    bool more = true;
    trzNotify notify{.lNotifyType = 3};
    EXPECT_TRUE(errorOf([&] { RZProjectDoAccess(folder, L"", 2); }));
    EXPECT_TRUE(errorOf([&] { RZGetNotification(notify, more); }));
    EXPECT_EQ(folder, L"kept");
    EXPECT_TRUE(more);
    EXPECT_EQ(notify.lNotifyType, 3);
}

} // namespace
} // namespace velk
