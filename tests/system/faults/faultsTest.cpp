// Calls of the IDE, of the tool's library and of SourceSafe and allocations fail, one after the other through a whole
// life: nothing breaks or waits for ever, every reference is given back, and the next life in the same process is
// clean.
#include "../reentry/matrix.h"

#include "base/registry.h"
#include "support/folders.h"

#include <cstdlib>

namespace velk {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::IsEmpty;
using testing::StartsWith;

constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";

// What a life with source control brings to light, each step in its turn.
constexpr const char* wholeLife[] = {
    "FACT nodes: 7",
    "FACT Tables: 8",
    "FACT Views: 4",
    "FACT Triggers: 5",
    "FACT User-Defined Functions: 3",
    "FACT Stored Procedures: 4",
    "FACT box: velkviadd  place_order was built. ",
    "FACT box: Drop From Database  Drop close_order from its database?  The source file stays. ",
    "FACT box: velkviadd  Application 2 cannot be started: it is not part of this edition of Rozel. ",
    "FACT Stored Procedures: 4",
    "FACT Add File: read-only",
    "FACT Check Out: writable",
    "FACT Check In: read-only",
    "OK",
};
constexpr wchar_t someOfEachDoor[] = L"30";
constexpr int leastPairs = 85;

class FaultsTest : public test::MatrixRun {
protected:
    FaultsTest()
    {
        CopyFileW(VELK_BIN L"\\ssapi.dll", path(L"ssapi.dll").c_str(), FALSE);
        test::copyTree(L"vss", path(L"vss-new"));
        test::copyTree(path(L"rz"), path(L"rz-new"));
        registerDll(L"ssapi.dll", "DllRegisterServer");
        registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, databasesKey).get(), L"Sample", path(L"vss"));
    }
    ~FaultsTest() override
    {
        registry::removeTree(HKEY_LOCAL_MACHINE, databasesKey);
        registerDll(L"ssapi.dll", "DllUnregisterServer");
    }
    std::vector<std::string> wrongAmong(const std::wstring& howMany)
    {
        undisturbedLife(L"record-faults pairs.txt " + howMany);
        return wrongPairs(L"pairs.txt");
    }
};

TEST_F(FaultsTest, undisturbedLife_goesThroughEveryStep)
{
    EXPECT_THAT(undisturbedLife(L"record-faults pairs.txt"), testing::ElementsAreArray(wholeLife));
}

TEST_F(FaultsTest, someCallsThatFail_leaveNothingAndTheNextLifeIsClean)
{
    EXPECT_THAT(wrongAmong(someOfEachDoor), IsEmpty());
    EXPECT_GE(tried, leastPairs);
}

// Hours. A door's list ends behind the last call of a life, which shows that no call was left out.
TEST_F(FaultsTest, DISABLED_everyCallThatFails_leavesNothingAndTheNextLifeIsClean)
{
    EXPECT_THAT(wrongAmong(L""), IsEmpty());
    EXPECT_THAT(missed, AllOf(Contains(StartsWith("IDE#")), Contains(StartsWith("Backend#")),
                              Contains(StartsWith("SourceSafe#")), Contains(StartsWith("Memory#"))));
}

} // namespace
} // namespace velk
