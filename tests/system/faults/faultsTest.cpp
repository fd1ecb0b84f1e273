// Calls of the IDE, of the tool's library and of SourceSafe fail, one after the other through a whole life: nothing
// breaks or waits for ever, every reference is given back, and the next life in the same process is clean.
#include "../reentry/matrix.h"

#include "base/registry.h"
#include "support/folders.h"

#include <cstdlib>

namespace velk {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::StartsWith;

constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";

// What a life with source control brings to light, each step in its turn.
constexpr const char* wholeLife[] = {
    "FACT nodes: 7",
    "FACT Tables: 8",
};

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
    static bool isFull()
    {
        const char* const wanted = std::getenv("VELK_FAULTS");
        return wanted && std::string(wanted) == "full";
    }
};

TEST_F(FaultsTest, undisturbedLife_goesThroughEveryStep)
{
    EXPECT_THAT(undisturbedLife(L"record-faults pairs.txt 1"), testing::ElementsAreArray(wholeLife));
}

TEST_F(FaultsTest, everyCallThatFails_leavesNothingAndTheNextLifeIsClean)
{
    undisturbedLife(std::wstring(L"record-faults pairs.txt ") + (isFull() ? L"1" : L"101"));
    EXPECT_THAT(wrongPairs(L"pairs.txt"), IsEmpty());
    EXPECT_GE(tried, 50);
}

} // namespace
} // namespace velk
