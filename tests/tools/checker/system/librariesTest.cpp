#include "checkerRun.h"

#include "checker/files.h"

#include "support/folders.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <sstream>

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

size_t copiesThere()
{
    wchar_t temporary[MAX_PATH]{};
    GetTempPathW(MAX_PATH, temporary);
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((std::wstring(temporary) + L"velkcheck-*").c_str(), &entry);
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

// A copy of the sample project with a procedure whose source is longer than the room that a caller has at first.
class StandIn : public testing::Test {
protected:
    StandIn() : folder(fullPath(L"copy")), project(folder + L"\\rz\\orders.rzv"), journal(folder + L"\\journal.txt")
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
        SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", journal.c_str());
    }
    ~StandIn() override
    {
        SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", nullptr);
        SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", nullptr);
        removeTree(folder);
    }

    const std::wstring folder, project, journal;
};

TEST_F(StandIn, onTheSampleProject_passesLevelTen)
{
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", L"1"); // for calls that come inside of others
    CheckerRun run(L"stand-in",
                   L"--level 10 --patience 300 --sessions 25 --steps 600" + quoted(standIn) + quoted(project));
    const std::string report = run.report();
    EXPECT_THAT(foundRules(report), IsEmpty()) << report;
    EXPECT_THAT(rulesThat(report, "not checked"), testing::IsSubsetOf({"C3"})) << report;
    EXPECT_EQ(run.exitCode(), 0u);
}

TEST_F(StandIn, upToLevelSeven_isOnlyRead)
{
    const auto before = filesIn(folder + L"\\rz");
    ASSERT_GT(before.size(), 5u);
    CheckerRun run(L"reading", L"--level 7 --patience 200" + quoted(standIn) + quoted(project));
    EXPECT_EQ(run.exitCode(), 0u);
    EXPECT_EQ(filesIn(folder + L"\\rz"), before);
    std::vector<std::string> acting;
    const std::vector<std::string> lines = linesOf(journal);
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(acting), acts);
    EXPECT_THAT(acting, IsEmpty());
    EXPECT_THAT(lines, testing::Contains(testing::StartsWith("RZObjectDoAction(")));
}

// An action of the number 21 closes a project, and takes anything else out of it.
TEST_F(StandIn, upToLevelSeven_nothingButTheProjectIsClosed)
{
    CheckerRun run(L"closing", L"--level 5 --patience 200" + quoted(standIn) + quoted(project));
    EXPECT_EQ(run.exitCode(), 0u);
    const std::vector<std::string> lines = linesOf(journal);
    std::vector<std::string> closed;
    for (const std::string& line : lines)
        if (line.starts_with("RZObjectDoAction(") && line.ends_with(", 21)"))
            closed.push_back("RZProjectGet(" + line.substr(17, line.find(',') - 17) + ")");
    EXPECT_THAT(closed, testing::Not(IsEmpty()));
    EXPECT_THAT(closed, testing::Each(testing::AnyOfArray(lines)));
}

TEST_F(StandIn, upToLevelSix_isCalledByTheRules)
{
    CheckerRun run(L"rules", L"--level 4-6 --patience 200" + quoted(standIn) + quoted(project));
    EXPECT_EQ(run.exitCode(), 0u);
    EXPECT_THAT(linesOf(journal), testing::Not(testing::Contains(testing::StartsWith("BREACH"))));
}

TEST_F(StandIn, beyondLevelSeven_worksOnACopyThatGoes)
{
    const auto before = filesIn(folder + L"\\rz");
    const size_t copies = copiesThere(); // of runs that somebody ended
    CheckerRun run(L"copying", L"--level 8-8 --patience 50" + quoted(standIn) + quoted(project));
    EXPECT_EQ(run.exitCode(), 0u);
    EXPECT_EQ(filesIn(folder + L"\\rz"), before);
    EXPECT_EQ(copiesThere(), copies);
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
