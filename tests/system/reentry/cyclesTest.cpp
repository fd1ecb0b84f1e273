// What the add-in takes from its host's process it gives back: load, connect, start, browse, disconnect and unload,
// over and over.
#include "matrix.h"
#include "support/processCounts.h"

#include <cstdlib>

namespace velk {
namespace {

// Where the system's heap tells of groups of blocks their number says nothing of so few lives.
std::vector<testing::Matcher<std::string>> noGrowth()
{
    const bool isHeapCounted = test::areHeapBlocksCounted();
    std::vector<testing::Matcher<std::string>> lines;
    for (const std::string what :
         {"handles", "GDI objects", "windows", "heap blocks", "heap bytes", "threads", "modules", "slots of threads"}) {
        if (what.starts_with("heap") && !isHeapCounted)
            lines.emplace_back(testing::StartsWith("GROWTH " + what));
        else
            lines.emplace_back("GROWTH " + what + " 0");
    }
    return lines;
}

class CyclesTest : public test::MatrixRun {
protected:
    // The system's own store of automation strings that were freed would be counted.
    CyclesTest()
    {
        SetEnvironmentVariableW(L"OANOCACHE", L"1");
        longestRun = 1700000; // the program itself ends when a life hangs
    }
    ~CyclesTest() override { SetEnvironmentVariableW(L"OANOCACHE", nullptr); }

    static std::wstring lives()
    {
        const wchar_t* const wanted = _wgetenv(L"VELK_CYCLES");
        return wanted ? wanted : L"30";
    }
};

TEST_F(CyclesTest, livesOneAfterTheOther_leaveNothingInTheProcess)
{
    EXPECT_THAT(undisturbedLife(L"cycles " + lives()), testing::ElementsAreArray(noGrowth()));
}

// Each life ends its session, shows what it has to, and is followed by another one.
TEST_F(CyclesTest, hostThatLetsGoWithoutAWord_hasNothingLeftEither)
{
    EXPECT_THAT(undisturbedLife(L"cycles " + lives() + L" let-go"), testing::ElementsAreArray(noGrowth()));
}

} // namespace
} // namespace velk
