// The IDE or the tool's library waits inside a call and works off messages: whatever the user or the IDE does there,
// nothing breaks, nothing is called after the end, nothing is left, and the add-in can be loaded again.
#include "matrix.h"

#include <cstdlib>
#include <fstream>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// What a whole life brings to light, each step in its turn.
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
    "OK",
};
constexpr int leastPairs = 350;
constexpr int leastPairsOfView = 80;
constexpr size_t mostMissed = 12; // polls come by the clock: the last ones of a life may not come

class ReentryTest : public test::MatrixRun {
protected:
    std::wstring writePairs(const char* lines) const
    {
        std::ofstream(test::narrow(path(L"pairs.txt"))) << lines;
        return L"pairs.txt";
    }
    static std::wstring extent()
    {
        const char* wanted = std::getenv("VELK_REENTRY");
        return wanted && std::string(wanted) == "full" ? L" full" : L"";
    }
};

TEST_F(ReentryTest, undisturbedLife_goesThroughEveryStep)
{
    EXPECT_THAT(undisturbedLife(L"record pairs.txt"), testing::ElementsAreArray(wholeLife));
}

TEST_F(ReentryTest, messagesInsideEveryCall_changeNothingInALife)
{
    EXPECT_THAT(undisturbedLife(L"pumped"), testing::ElementsAreArray(wholeLife));
}

TEST_F(ReentryTest, pairThatEndsTheProgram_isNamedAndTheOthersRun)
{
    const auto wrong = wrongPairs(writePairs("DTE.Events#1 crash\nDTE.Events#1 litter\nNobody.Calls#1 click\n"));
    EXPECT_THAT(wrong, ElementsAre(StartsWith("DTE.Events#1 crash: CRASH C000001D in "),
                                   "DTE.Events#1 litter: FAIL bars or windows are not as before"));
    EXPECT_EQ(tried, 3);
    EXPECT_THAT(missed, ElementsAre("Nobody.Calls#1 click"));
}

TEST_F(ReentryTest, referenceThatIsKept_isCounted)
{
    EXPECT_THAT(wrongPairs(writePairs("DTE.Events#1 hold\n")),
                ElementsAre("DTE.Events#1 hold: FAIL 1 objects of the IDE are held"));
}

TEST_F(ReentryTest, windowClassThatIsLeft_isNamed)
{
    EXPECT_THAT(wrongPairs(writePairs("DTE.Events#1 leave-class\n")),
                ElementsAre("DTE.Events#1 leave-class: FAIL the class velkviadd.left is left"));
}

TEST_F(ReentryTest, callThatDoesNotReturn_isNamedAndTheOthersRun)
{
    EXPECT_THAT(wrongPairs(writePairs("DTE.Events#1 hang\nDTE.Events#1 click\n")),
                ElementsAre("DTE.Events#1 hang: HANG inside one call"));
    EXPECT_EQ(tried, 2);
}

TEST_F(ReentryTest, everyCallWithEveryReentry_leavesNothingAndTheNextLifeIsClean)
{
    undisturbedLife(L"record pairs.txt" + extent());
    EXPECT_THAT(wrongPairs(L"pairs.txt"), IsEmpty());
    EXPECT_GE(tried, leastPairs);
    EXPECT_LE(missed.size(), mostMissed);
}

TEST_F(ReentryTest, viewThatComesBack_meetsEveryReentryInsideTheToolsCalls)
{
    EXPECT_THAT(undisturbedLife(L"record-kept pairs.txt"),
                ElementsAre("FACT nodes: 7", "FACT selected: Tables", "FACT rows: 8", "FACT filter: open", "OK"));
    EXPECT_THAT(wrongPairs(L"pairs.txt", L"kept"), IsEmpty());
    EXPECT_GE(tried, leastPairsOfView);
}

} // namespace
} // namespace velk
