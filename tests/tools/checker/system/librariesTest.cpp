#include "checkerRun.h"

#include "checker/files.h"

#include "support/folders.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string_view>
#include <tlhelp32.h>

namespace velk::test {
namespace {

using testing::IsEmpty;

const std::wstring standIn = fullPath(VELK_BIN) + L"\\velkvsadd.dll";
const std::wstring sample = fullPath(VELK_BIN) + L"\\sample\\velkvsadd.dll";

std::wstring quoted(const std::wstring& text)
{
    return L" \"" + text + L"\"";
}

// The bytes of every file below a folder.
std::map<std::wstring, std::vector<uint8_t>> filesIn(const std::wstring& folder)
{
    std::map<std::wstring, std::vector<uint8_t>> files;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    for (BOOL isThere = search != INVALID_HANDLE_VALUE; isThere; isThere = FindNextFileW(search, &entry)) {
        const std::wstring name = entry.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if (name != L"." && name != L".." && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            files.merge(filesIn(path));
        else if (const auto bytes = check::readFile(path))
            files[path] = *bytes;
    }
    FindClose(search);
    return files;
}

// The copies of projects that a checker left behind, by the number of its process.
size_t copiesOf(DWORD checker)
{
    wchar_t temporary[MAX_PATH]{};
    GetTempPathW(MAX_PATH, temporary);
    WIN32_FIND_DATAW entry{};
    const std::wstring names = std::wstring(temporary) + L"velkcheck-" + std::to_wstring(checker) + L"-*";
    const HANDLE search = FindFirstFileW(names.c_str(), &entry);
    size_t count = 0;
    for (BOOL isThere = search != INVALID_HANDLE_VALUE; isThere; isThere = FindNextFileW(search, &entry))
        ++count;
    FindClose(search);
    return count;
}

std::vector<std::string> linesOf(const std::wstring& path)
{
    const auto bytes = check::readFile(path);
    std::istringstream text(bytes ? std::string(bytes->begin(), bytes->end()) : "");
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

// Whether a call in the journal does more than read: any action but connect, disconnect, refresh, filter, properties,
// close and view source; another way to use a project than opening it; a tool that is started.
bool acts(const std::string& line)
{
    const size_t comma = line.rfind(", ");
    const std::string last = comma == std::string::npos ? "" : line.substr(comma + 2);
    if (line.starts_with("RZObjectDoAction("))
        return !std::set<std::string>{"7)", "8)", "10)", "11)", "13)", "21)", "25)"}.contains(last);
    return line.starts_with("RZLaunch") || (line.starts_with("RZProjectDoAccess(") && last != "2)");
}

// A run of the checker on the stand-in, for a test of that name.
struct Row {
    const char* test;
    const wchar_t* options;
    bool isPumping; // works off messages inside of calls
};

// clang-format off
constexpr Row rows[] = {
    {"onTheSampleProject_passesLevelTen",           L"--level 10 --patience 300 --sessions 25 --steps 600", true},
    {"upToLevelSeven_isOnlyRead",                   L"--level 7 --patience 200",                            false},
    {"upToLevelSeven_nothingButTheProjectIsClosed", L"--level 5 --patience 200",                            false},
    {"upToLevelSix_isCalledByTheRules",             L"--level 4-6 --patience 200",                          false},
    {"beyondLevelSeven_worksOnACopyThatGoes",       L"--level 8-8 --patience 50",                           false},
};
// clang-format on

// Goes on while others do. On a copy of the sample project with a procedure whose source is longer than the room that a
// caller has at first.
struct StandInRun {
    explicit StandInRun(const Row& row)
        : folder(fullPath(L"copy-" + std::to_wstring(&row - rows))), project(folder + L"\\rz\\orders.rzv"),
          journal(folder + L"\\journal.txt")
    {
        removeTree(folder);
        copyTree(fullPath(L"sample"), folder);
        std::string source = "CREATE PROCEDURE long_one () LANGUAGE SQL\nBEGIN\n";
        while (source.size() < 9000)
            source += "  SELECT count(*) FROM orders; -- a statement among many others\n";
        check::writeFile(folder + L"\\rz\\routines\\long_one.sql", source + "END\n");
        const auto bytes = check::readFile(project);
        check::writeFile(project,
                         std::string(bytes->begin(), bytes->end()) + "\n[procedure]\nfile=routines/long_one.sql\n");
        before = filesIn(folder + L"\\rz");
        SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", journal.c_str());
        SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", row.isPumping ? L"1" : nullptr);
        run.emplace(L"stand-in-" + std::to_wstring(&row - rows), row.options + quoted(standIn) + quoted(project));
        SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", nullptr);
        SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", nullptr);
    }
    ~StandInRun()
    {
        run->exitCode();
        removeTree(folder);
    }

    const std::wstring folder, project, journal;
    std::map<std::wstring, std::vector<uint8_t>> before; // what the project had
    std::optional<CheckerRun> run;
};

// The first test begins the runs of all that are to come.
class StandIn : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        const testing::TestSuite& suite = *testing::UnitTest::GetInstance()->current_test_suite();
        for (int test = 0; test < suite.total_test_count(); ++test)
            for (const Row& row : rows)
                if (suite.GetTestInfo(test)->should_run() && std::string(suite.GetTestInfo(test)->name()) == row.test)
                    runs[row.test] = std::make_unique<StandInRun>(row);
    }
    static void TearDownTestSuite() { runs.clear(); }

    StandInRun& own() { return *runs.at(testing::UnitTest::GetInstance()->current_test_info()->name()); }
    CheckerRun& run() { return *own().run; }
    std::vector<std::string> journal()
    {
        EXPECT_EQ(run().exitCode(), 0u);
        return linesOf(own().journal);
    }

private:
    inline static std::map<std::string, std::unique_ptr<StandInRun>> runs;
};

TEST_F(StandIn, onTheSampleProject_passesLevelTen)
{
    const std::string report = run().report();
    EXPECT_THAT(foundRules(report), IsEmpty()) << report;
    EXPECT_THAT(rulesThat(report, "not checked"), testing::IsSubsetOf({"C3"})) << report;
    EXPECT_EQ(run().exitCode(), 0u);
}

TEST_F(StandIn, upToLevelSeven_isOnlyRead)
{
    ASSERT_GT(own().before.size(), 5u);
    const std::vector<std::string> lines = journal();
    EXPECT_EQ(filesIn(own().folder + L"\\rz"), own().before);
    std::vector<std::string> acting;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(acting), acts);
    EXPECT_THAT(acting, IsEmpty());
    EXPECT_THAT(lines, testing::Contains(testing::StartsWith("RZObjectDoAction(")));
}

// An action of the number 21 closes a project, and takes anything else out of it.
TEST_F(StandIn, upToLevelSeven_nothingButTheProjectIsClosed)
{
    const std::vector<std::string> lines = journal();
    std::vector<std::string> closed;
    for (const std::string& line : lines)
        if (line.starts_with("RZObjectDoAction(") && line.ends_with(", 21)"))
            closed.push_back("RZProjectGet(" + line.substr(17, line.find(',') - 17) + ")");
    EXPECT_THAT(closed, testing::Not(IsEmpty()));
    EXPECT_THAT(closed, testing::Each(testing::AnyOfArray(lines)));
}

TEST_F(StandIn, upToLevelSix_isCalledByTheRules)
{
    EXPECT_THAT(journal(), testing::Not(testing::Contains(testing::StartsWith("BREACH"))));
}

TEST_F(StandIn, beyondLevelSeven_worksOnACopyThatGoes)
{
    EXPECT_EQ(run().exitCode(), 0u);
    EXPECT_EQ(filesIn(own().folder + L"\\rz"), own().before);
    EXPECT_EQ(copiesOf(run().id()), 0u);
}

TEST(Sample, toStartFrom_passesLevelTen)
{
    check::writeFile(fullPath(L"project.rzv"), "[project]\n");
    CheckerRun run(L"sample", L"--level 10 --patience 100 --sessions 25 --steps 600" + quoted(sample) +
                                  quoted(fullPath(L"project.rzv")));
    const std::string report = run.report();
    EXPECT_THAT(foundRules(report), IsEmpty()) << report;
    EXPECT_EQ(run.exitCode(), 0u);
}

// What the contract leaves to a library is never a finding.
TEST(Different, libraryThatKeepsTheRulesInOtherWays_hasNoFinding)
{
    check::writeFile(fullPath(L"project.rzv"), "[project]\n");
    const std::wstring library = fullPath(VELK_DIFFERENT) + L"\\velkvsadd.dll";
    const std::wstring of = quoted(library) + quoted(fullPath(L"project.rzv"));
    const std::wstring options = L"--patience 50 --timeout 2 --sessions 25 --level ";
    CheckerRun reading(L"different-4", options + L"4-7" + of);
    CheckerRun growing(L"different-9", options + L"9-9" + of);
    for (CheckerRun* const run : {&reading, &growing}) {
        const std::string report = run->report();
        EXPECT_THAT(foundRules(report), IsEmpty()) << report;
        EXPECT_THAT(rulesThat(report, "not checked"), IsEmpty()) << report;
        EXPECT_EQ(run->exitCode(), 0u);
    }
}

// The process that another one started; 0: there is none.
DWORD childOf(DWORD parent)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    DWORD child = 0;
    for (BOOL isThere = Process32FirstW(snapshot, &entry); isThere; isThere = Process32NextW(snapshot, &entry))
        if (entry.th32ParentProcessID == parent)
            child = entry.th32ProcessID;
    CloseHandle(snapshot);
    return child;
}

bool hasLoaded(DWORD process, std::wstring_view library)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process);
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof entry;
    bool isFound = false;
    for (BOOL isThere = Module32FirstW(snapshot, &entry); isThere; isThere = Module32NextW(snapshot, &entry))
        isFound = isFound || entry.szModule == library;
    CloseHandle(snapshot);
    return isFound;
}

template <class Condition>
bool becomes(Condition condition)
{
    constexpr int attempts = 400;
    constexpr DWORD pause = 50; // milliseconds
    for (int attempt = 0; attempt < attempts && !condition(); ++attempt)
        Sleep(pause);
    return condition();
}

TEST(Program, checkerThatIsEnded_takesItsChildAlong)
{
    CheckerRun run(L"ended",
                   L"--level 1 --timeout 100" + quoted(fullPath(VELK_FAULTY) + L"\\loadHangs\\velkvsadd.dll"));
    ASSERT_TRUE(becomes([&] { return hasLoaded(childOf(run.id()), L"velkvsadd.dll"); }));
    run.end();
    EXPECT_TRUE(becomes([&] { return childOf(run.id()) == 0; }));
}

TEST(Program, processEndedWhileItLoads_isOfTheRuleOfLoadingWhateverIsAsked)
{
    CheckerRun run(L"loading", L"--rule F5" + quoted(fullPath(VELK_FAULTY) + L"\\loadEnds\\velkvsadd.dll"));
    EXPECT_THAT(foundRules(run.report()), testing::ElementsAre("F2"));
    EXPECT_EQ(run.exitCode(), 1u);
}

TEST(Program, rulesOfRecordsWithoutAProject_areNotChecked)
{
    CheckerRun run(L"without", L"--level 4-4" + quoted(sample));
    EXPECT_THAT(rulesThat(run.report(), "holds"), IsEmpty());
    EXPECT_EQ(run.exitCode(), 0u);
}

TEST(Program, fileThatIsNoLibrary_isAFindingAndTheRestIsLeftOut)
{
    check::writeFile(fullPath(L"none.dll"), "no library");
    CheckerRun run(L"none", L"--level 3" + quoted(fullPath(L"none.dll")));
    EXPECT_THAT(foundRules(run.report()), testing::ElementsAre("F1"));
    EXPECT_TRUE(rulesThat(run.report(), "not checked").contains("T1"));
    EXPECT_EQ(run.exitCode(), 1u);
}

TEST(Program, wrongUse_hasItsExitCode)
{
    EXPECT_EQ(CheckerRun(L"wrong", L"--level 11 x.dll").exitCode(), 2u);
    EXPECT_EQ(CheckerRun(L"wrong", L"--level 1 not-there.dll").exitCode(), 2u);
    EXPECT_EQ(CheckerRun(L"wrong", L"--level 1" + quoted(sample) + L" not-there.rzv").exitCode(), 2u);
    EXPECT_EQ(CheckerRun(L"list", L"--list").exitCode(), 0u);
}

TEST(Program, junitFile_isWritten)
{
    CheckerRun run(L"junit", L"--level 1 --junit" + quoted(fullPath(L"junit.xml")) + quoted(sample));
    EXPECT_EQ(run.exitCode(), 0u);
    EXPECT_THAT(linesOf(fullPath(L"junit.xml")),
                testing::Contains(testing::HasSubstr("<testsuites tests=\"9\" failures=\"0\" skipped=\"0\">")));
}

} // namespace
} // namespace velk::test
