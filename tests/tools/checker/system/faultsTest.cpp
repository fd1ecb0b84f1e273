#include "checkerRun.h"

#include "checker/files.h"
#include "checker/rules.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <memory>

namespace velk::test {
namespace {

struct Fault {
    const wchar_t* name;
    const char* rule;
};

constexpr Fault faults[] = {
#define FAULT(name, rule, functions, what) {L"" #name, #rule},
#include "tests/sdk/faults.inc"
#undef FAULT
};

constexpr wchar_t allLevels[] = L"VELK_FAULTS_AT_ALL_LEVELS";

bool areAllLevelsWanted()
{
    return GetEnvironmentVariableW(allLevels, nullptr, 0) > 0;
}

// The levels that find a fault: that of its rule. A call that breaks the rules of all calls may be made further up
// only. All of them, when the environment wants that; there a fault may have others in its train.
std::wstring levelsOf(const Fault& fault)
{
    if (areAllLevelsWanted())
        return L"10";
    const std::string rule = fault.rule;
    if (rule >= "F5" && rule <= "F9")
        return L"1-4";
    const std::wstring level = std::to_wstring(check::rowOf(*check::ruleOf(rule)).level);
    return level + L"-" + level;
}

std::wstring project()
{
    static const bool isThere = check::writeFile(fullPath(L"project.rzv"), "[project]\n");
    EXPECT_TRUE(isThere);
    return fullPath(L"project.rzv");
}

std::unique_ptr<CheckerRun> begin(const Fault& fault)
{
    const std::wstring name = fault.name;
    return std::make_unique<CheckerRun>(L"fault-" + name,
                                        L"--patience 50 --timeout 2 --sessions 40 --steps 900 --objects 3000 --level " +
                                            levelsOf(fault) + L" \"" + fullPath(VELK_FAULTY) + L"\\" + name +
                                            L"\\velkvsadd.dll\" \"" + project() + L"\"");
}

// The runs that are asked for one after the other: the next ones are under way meanwhile, so that those which wait for
// something hold up nobody.
class Runs {
public:
    CheckerRun& of(size_t index)
    {
        while (!m_runs[index] || m_runs[index]->isRunning()) {
            beginMore(index);
            constexpr DWORD pause = 10; // milliseconds
            Sleep(pause);
        }
        return *m_runs[index];
    }

private:
    void beginMore(size_t index)
    {
        constexpr long atOnce = 3;
        const auto running = std::count_if(std::begin(m_runs), std::end(m_runs),
                                           [](const auto& run) { return run && run->isRunning(); });
        if (running >= atOnce && m_runs[index])
            return;
        m_next = std::max(m_next, index);
        const size_t next = m_runs[index] ? m_next : index;
        if (next < std::size(faults) && !m_runs[next] && isWanted(next))
            m_runs[next] = begin(faults[next]);
        m_next = std::max(m_next, next + 1);
    }

    // A filter may leave it out.
    static bool isWanted(size_t index)
    {
        const testing::TestSuite& suite = *testing::UnitTest::GetInstance()->current_test_suite();
        return static_cast<int>(index) < suite.total_test_count() &&
               suite.GetTestInfo(static_cast<int>(index))->should_run();
    }

    std::unique_ptr<CheckerRun> m_runs[std::size(faults)];
    size_t m_next = 0;
};

class Faults : public testing::TestWithParam<size_t> {};

TEST_P(Faults, faultyLibrary_isFoundByItsRuleAndNoOther)
{
    static Runs runs;
    const Fault& fault = faults[GetParam()];
    if (std::string(fault.rule) == "C3")
        GTEST_SKIP() << "only a code page of two bytes shows it";
    const std::string report = runs.of(GetParam()).report();
    EXPECT_THAT(foundRules(report), testing::Contains(fault.rule)) << report;
    if (!areAllLevelsWanted()) {
        EXPECT_THAT(foundRules(report), testing::SizeIs(1)) << report;
    }
    EXPECT_EQ(runs.of(GetParam()).exitCode(), 1u);
}

std::string nameOf(const testing::TestParamInfo<size_t>& info)
{
    const std::wstring name = faults[info.param].name;
    return std::string(name.begin(), name.end());
}

INSTANTIATE_TEST_SUITE_P(All, Faults, testing::Range(size_t{0}, std::size(faults)), nameOf);

TEST(Misuse, whatAFunctionDoesInRightCallsToo_isNotBlamedOnIt)
{
    CheckerRun run(L"misuse", L"--patience 50 --level 4-8 \"" + fullPath(VELK_FAULTY) +
                                  L"\\wideFlag\\velkvsadd.dll\" \"" + project() + L"\"");
    EXPECT_THAT(foundRules(run.report()), testing::ElementsAre("R6")) << run.report();
}

// Rules that are looked at in calls which others make, or by what a rule before has seen.
class RuleAlone : public testing::TestWithParam<const wchar_t*> {};

TEST_P(RuleAlone, faultyLibrary_isFoundByTheRuleThatIsAskedForAlone)
{
    const auto fault = std::find_if(std::begin(faults), std::end(faults),
                                    [](const Fault& one) { return std::wstring(one.name) == GetParam(); });
    ASSERT_NE(fault, std::end(faults));
    const std::string rule = fault->rule;
    CheckerRun run(std::wstring(L"alone-") + fault->name,
                   L"--patience 50 --rule " + std::wstring(rule.begin(), rule.end()) + L" \"" + fullPath(VELK_FAULTY) +
                       L"\\" + fault->name + L"\\velkvsadd.dll\" \"" + project() + L"\"");
    EXPECT_THAT(foundRules(run.report()), testing::ElementsAre(rule)) << run.report();
    EXPECT_EQ(run.exitCode(), 1u);
}

INSTANTIATE_TEST_SUITE_P(All, RuleAlone,
                         testing::Values(L"controlWordChanged", L"folderChanged", L"secondRefused", L"withoutNul"));

TEST(TwoByteCodePage, textCutInsideACharacter_isFoundByItsRule)
{
    CPINFO page{};
    GetCPInfo(CP_ACP, &page);
    if (page.MaxCharSize < 2)
        GTEST_SKIP() << "of another code page";
    const auto found = std::find_if(std::begin(faults), std::end(faults),
                                    [](const Fault& fault) { return std::string(fault.rule) == "C3"; });
    EXPECT_THAT(foundRules(begin(*found)->report()), testing::ElementsAre("C3"));
}

} // namespace
} // namespace velk::test
