#include "doctor/judgements.h"
#include "facts.h"

#include <gmock/gmock.h>

namespace velk::doctor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

Facts with(const std::vector<std::wstring>& host)
{
    Facts facts = test::healthyMachine();
    facts.log.host = host;
    return facts;
}

TEST(JudgeHostMembersTest, logThatDoesNotTell_isSkipped)
{
    EXPECT_EQ(judgeHostMembers(with({})).state, State::skipped);
    EXPECT_EQ(judgeHostMembers(with({L"host bars: none; the entry goes to 13"})).state, State::skipped);
}

TEST(JudgeHostMembersTest, allMembers_areGood)
{
    EXPECT_EQ(
        judgeHostMembers(with({L"host members: DTE has CommandBars Events MainWindow Solution Windows; lacks none",
                               L"host members: Events has CommandBarEvents; lacks none"}))
            .state,
        State::good);
}

TEST(JudgeHostMembersTest, missingMember_saysWhatDoesNotWork)
{
    const Verdict verdict = judgeHostMembers(with({L"host members: Windows has Count Item; lacks CreateToolWindow"}));
    EXPECT_EQ(verdict.state, State::warning);
    EXPECT_THAT(verdict.text, HasSubstr(L"Windows.CreateToolWindow: no server view"));
    EXPECT_FALSE(verdict.wayOut.empty());
}

TEST(JudgeHostMembersTest, severalMissingMembers_areAllInTheDetails)
{
    const Verdict verdict = judgeHostMembers(with({L"host members: Solution has none; lacks Count FullName",
                                                   L"host members: Events has none; lacks CommandBarEvents"}));
    EXPECT_EQ(verdict.state, State::warning);
    EXPECT_THAT(verdict.details, ElementsAre(StartsWith(L"Solution.Count: "), StartsWith(L"Events.CommandBarEvents: "),
                                             StartsWith(L"Solution.FullName: ")));
}

TEST(JudgeHostMembersTest, memberWithAnotherWay_isNoComplaint)
{
    const Verdict verdict = judgeHostMembers(with({L"host members: Solution has Count; lacks FullName"}));
    EXPECT_EQ(verdict.state, State::note);
    EXPECT_THAT(verdict.details, ElementsAre(StartsWith(L"Solution.FullName: ")));
}

TEST(JudgeHostMembersTest, unknownObjectsMembersAndLines_arePassedOver)
{
    EXPECT_EQ(judgeHostMembers(with({L"host members: Toaster has none; lacks Bread", L"host members: cut off",
                                     L"host members: Solution has Count; lacks Colour"}))
                  .state,
              State::good);
}

TEST(JudgeHostBarsTest, barOfTheEntry_isToldByItsName)
{
    const Verdict verdict =
        judgeHostBars(with({L"host bars: 1 \"Menu Bar\", 3 \"A 13 b\", 13 \"Add-Ins\"; the entry goes to 13"}));
    EXPECT_EQ(verdict.state, State::good);
    EXPECT_EQ(verdict.text, L"The entry is on bar 13, \"Add-Ins\".");
}

TEST(JudgeHostBarsTest, ideWithFewerBars_isAComplaint)
{
    EXPECT_EQ(judgeHostBars(with({L"host bars: 1 \"Menu Bar\"; the entry goes to 13"})).state, State::warning);
    EXPECT_EQ(judgeHostBars(with({L"host bars: none; the entry goes to 13"})).state, State::warning);
}

TEST(JudgeHostBarsTest, barThatCannotBeRead_isAComplaint)
{
    EXPECT_EQ(judgeHostBars(with({L"host bars: 13 (\"no such bar\"); the entry goes to 13"})).state, State::warning);
}

TEST(JudgeHostBarsTest, nameOfABarThatReadsLikeAnother_isAName)
{
    EXPECT_EQ(judgeHostBars(with({L"host bars: 1 \"a\"\", 13 \"\"b\"; the entry goes to 13"})).state, State::warning);
    const Verdict verdict = judgeHostBars(
        with({L"host bars: 1 \"x; the entry goes to 2\", 2 (\"y, 13 (\"), 13 \"z\"\"\"; the entry goes to 13"}));
    EXPECT_EQ(verdict.text, L"The entry is on bar 13, \"z\"\".");
}

TEST(JudgeHostBarsTest, lastLine_isTheOneThatCounts)
{
    EXPECT_THAT(judgeHostBars(with({L"host bars: none; the entry goes to 13",
                                    L"host bars: 13 \"Add-Ins\"; the entry goes to 13"}))
                    .text,
                HasSubstr(L"Add-Ins"));
}

TEST(JudgeHostBarsTest, lineThatIsNoWholeOne_isSkipped)
{
    for (const wchar_t* line :
         {L"host bars: ", L"host bars: 13", L"host bars: 13 \"Add-Ins", L"host bars: 13 \"A\"; the entry goes to ",
          L"host bars: 13 \"A\"; the entry goes to 13 ", L"host bars: 13 (A); the entry goes to 13",
          L"host bars: 13 \"A\" 14 \"B\"; the entry goes to 13", L"host bars: none, 13 \"A\"; the entry goes to 13"})
        EXPECT_EQ(judgeHostBars(with({line})).state, State::skipped) << line;
}

TEST(JudgeHostBarsTest, logThatDoesNotTell_isSkipped)
{
    EXPECT_EQ(judgeHostBars(with({L"host members: Events has none; lacks none"})).state, State::skipped);
}

} // namespace
} // namespace velk::doctor
