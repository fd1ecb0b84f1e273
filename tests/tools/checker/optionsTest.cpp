#include "checker/options.h"

#include <gmock/gmock.h>
#include <vector>

namespace velk::check {
namespace {

Options parsed(const std::vector<std::wstring>& arguments)
{
    return optionsOf(arguments);
}

TEST(Options, libraryAlone_isCheckedToLevelThree)
{
    const Options options = parsed({L"velkvsadd.dll"});
    EXPECT_EQ(options.trouble, "");
    EXPECT_EQ(options.request.library, L"velkvsadd.dll");
    EXPECT_EQ(options.request.firstLevel, 1);
    EXPECT_EQ(options.request.lastLevel, 3);
}

TEST(Options, project_isOnlyReadUnlessMoreIsAsked)
{
    EXPECT_EQ(parsed({L"velkvsadd.dll", L"a.rzv"}).request.lastLevel, 7);
    EXPECT_EQ(parsed({L"velkvsadd.dll", L"a.rzv", L"--level", L"10"}).request.lastLevel, 10);
}

TEST(Options, levels_canBeginLater)
{
    const Options options = parsed({L"velkvsadd.dll", L"--level", L"4-6"});
    EXPECT_EQ(options.request.firstLevel, 4);
    EXPECT_EQ(options.request.lastLevel, 6);
}

TEST(Options, rule_isCheckedAtItsLevel)
{
    const Options options = parsed({L"--rule", L"N7", L"velkvsadd.dll"});
    EXPECT_EQ(options.request.only, Rule::N7);
    EXPECT_EQ(options.request.firstLevel, 5);
    EXPECT_EQ(options.request.lastLevel, 5);
}

TEST(Options, seconds_becomeMillisecondsAndMoreForCallsThatAct)
{
    const Request request = parsed({L"velkvsadd.dll", L"--timeout", L"3"}).request;
    EXPECT_EQ(request.longestCall, 3000u);
    EXPECT_EQ(request.longestAct, 18000u);
}

class WrongUse : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(WrongUse, commandLine_isRefused)
{
    EXPECT_NE(parsed(GetParam()).trouble, "");
}

using Line = std::vector<std::wstring>;
INSTANTIATE_TEST_SUITE_P(All, WrongUse,
                         testing::Values(Line{}, Line{L"a.dll", L"b.rzv", L"c"}, Line{L"a.dll", L"--level"},
                                         Line{L"a.dll", L"--level", L"11"}, Line{L"a.dll", L"--level", L"6-4"},
                                         Line{L"a.dll", L"--level", L"0"}, Line{L"a.dll", L"--rule", L"N99"},
                                         Line{L"a.dll", L"--rule", L"N14"}, Line{L"a.dll", L"--seed", L"x"},
                                         Line{L"a.dll", L"--timeout", L"0"}, Line{L"a.dll", L"--timeout", L"3601"},
                                         Line{L"a.dll", L"--patience", L"0"}, Line{L"a.dll", L"--steps", L"0"},
                                         Line{L"a.dll", L"--rule", L"N7", L"--level", L"3"},
                                         Line{L"a.dll", L"--level", L"3", L"--rule", L"N7"},
                                         Line{L"a.dll", L"--other"}));

TEST(RuleList, everyRule_isListed)
{
    EXPECT_THAT(ruleList(), testing::HasSubstr("N7   level 5   What was added or changed can be fetched\n"));
    EXPECT_THAT(ruleList(), testing::HasSubstr("N14  caller "));
}

} // namespace
} // namespace velk::check
