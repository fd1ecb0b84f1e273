#include "doctor/checks.h"

#include "doctor/judgements.h"
#include "facts.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

namespace velk::doctor {
namespace {

using testing::HasSubstr;

struct Found {
    std::set<std::wstring> complaints;
    std::vector<Finding> findings;

    const Verdict& of(const std::wstring& id) const
    {
        for (const Finding& finding : findings)
            if (finding.row->id == id)
                return finding.verdict;
        throw std::out_of_range("no such check");
    }
};

// What is found when one thing is broken on a healthy machine.
Found withBroken(const std::function<void(Facts&)>& breakIt)
{
    Facts facts = test::healthyMachine();
    breakIt(facts);
    Found found;
    found.findings = judge(facts);
    for (const Finding& finding : found.findings)
        if (isComplaint(finding.verdict.state))
            found.complaints.insert(finding.row->id);
    return found;
}

using Ids = std::set<std::wstring>;

TEST(ChecksTest, healthyMachine_hasNoComplaint)
{
    const Found found = withBroken([](Facts&) {});
    EXPECT_EQ(found.complaints, Ids{});
    EXPECT_EQ(worstOf(found.findings), State::good);
}

TEST(ChecksTest, idsAndTitles_areOneEach)
{
    Ids ids;
    Ids titles;
    for (const CheckRow& row : checkRows()) {
        ids.insert(row.id);
        titles.insert(row.title);
    }
    EXPECT_EQ(ids.size(), checkRows().size());
    EXPECT_EQ(titles.size(), checkRows().size());
}

TEST(ChecksTest, everyComplaint_hasAWayOut)
{
    Facts nothing;
    for (const Finding& finding : judge(nothing))
        EXPECT_EQ(finding.verdict.wayOut.empty(), !isComplaint(finding.verdict.state)) << finding.row->id;
}

TEST(ChecksTest, windowsBeforeXp_isTold)
{
    EXPECT_EQ(withBroken([](Facts& facts) { facts.system.minor = 0; }).complaints, Ids{L"windows"});
    EXPECT_EQ(withBroken([](Facts& facts) { facts.system.major = 4; }).complaints, Ids{L"windows"});
    EXPECT_EQ(withBroken([](Facts& facts) { facts.system = {10, 0, 22631, {}, {}, true, false, false}; }).complaints,
              Ids{});
}

TEST(ChecksTest, registrationFor64BitProgramsOnly_isTold)
{
    const Found found = withBroken([](Facts& facts) {
        facts.system.is64Bit = facts.system.isInOtherView = true;
        for (ClassFacts& row : facts.registration.classes)
            row.server = row.progIdsClass = {};
        facts.registration.library = facts.ide.machine.key = {};
    });
    EXPECT_EQ(found.complaints, (Ids{L"registry-view", L"registered-classes"}));
    EXPECT_EQ(withBroken([](Facts& facts) { facts.system.is64Bit = facts.system.isInOtherView = true; }).complaints,
              Ids{});
}

TEST(ChecksTest, userWithoutRights_isANote)
{
    const Found found = withBroken([](Facts& facts) { facts.system.isAdministrator = false; });
    EXPECT_EQ(found.complaints, Ids{});
    EXPECT_EQ(found.of(L"rights").state, State::note);
}

TEST(ChecksTest, fileThatMayNotBeRead_isTold)
{
    EXPECT_EQ(withBroken([](Facts& facts) { facts.addin.file.code = ERROR_ACCESS_DENIED; }).complaints,
              Ids{L"addin-file"});
    EXPECT_EQ(withBroken([](Facts& facts) { facts.backend.file.code = ERROR_SHARING_VIOLATION; }).complaints,
              Ids{L"backend-file"});
}

TEST(ChecksTest, systemWithoutHashes_isANote)
{
    const Found found = withBroken([](Facts& facts) { facts.addin.hash.clear(); });
    EXPECT_EQ(found.complaints, Ids{});
    EXPECT_EQ(found.of(L"addin-bytes").state, State::note);
}

TEST(ChecksTest, noAddinAnywhere_isOneComplaintOfTheFile)
{
    const Found found = withBroken([](Facts& facts) {
        facts.addin = {};
        facts.registration = {};
        facts.ide = {};
        facts.installed = {};
    });
    EXPECT_EQ(found.complaints, Ids{L"addin-file"});
    EXPECT_EQ(found.of(L"registered-classes").remedy, Remedy::none);
}

TEST(ChecksTest, childThatCouldNotBeStarted_isTold)
{
    const Found found = withBroken([](Facts& facts) {
        facts.backend.load = {};
        facts.backend.load.outcome = ChildFacts::Outcome::notStarted;
        facts.backend.load.code = ERROR_NOT_ENOUGH_MEMORY;
    });
    EXPECT_EQ(found.complaints, Ids{L"backend-load"});
}

TEST(ChecksTest, installedVersion_isTheFilesOrItsBeginning)
{
    const auto complaints = [](const wchar_t* installed, const wchar_t* file) {
        return withBroken([=](Facts& facts) {
                   facts.installed.version.text = installed;
                   facts.addin.file.version = file;
               })
            .complaints.contains(L"installed");
    };
    EXPECT_FALSE(complaints(L"1.0.0", L"1.0.0.0"));
    EXPECT_FALSE(complaints(L"1.0.0.0", L"1.0.0.0"));
    EXPECT_TRUE(complaints(L"1.0.1", L"1.0.10.0"));
    EXPECT_TRUE(complaints(L"", L"1.0.0.0"));
}

TEST(ChecksTest, paths_areTheSameByTheirLetters)
{
    EXPECT_TRUE(isSameText(L"C:\\\u00C4\u0416 tool", L"c:\\\u00E4\u0436 TOOL"));
    EXPECT_FALSE(isSameText(L"C:\\re\u00ADsume", L"C:\\resume"));
    EXPECT_FALSE(isSameText(L"C:\\e\u0301", L"C:\\\u00E9"));
    EXPECT_FALSE(isSameText(L"C:\\a", L"C:\\ab"));
}

TEST(ChecksTest, needThatIsNotMissing_isToldByWhatIsWrongWithIt)
{
    const auto told = [](const FileFacts& file) {
        return withBroken([&](Facts& facts) {
                   facts.backend.load.systemCode = ERROR_BAD_EXE_FORMAT;
                   facts.backend.dependencies = {{L"need.dll", L"velkvsadd.dll", file}};
               })
            .of(L"backend-needs")
            .text;
    };
    FileFacts file;
    EXPECT_THAT(told(file), HasSubstr(L"is missing"));
    file.isThere = true;
    EXPECT_THAT(told(file), HasSubstr(L"is damaged"));
    file.header.emplace();
    file.header->isLibrary = true;
    file.header->machine = 0x8664;
    EXPECT_THAT(told(file), HasSubstr(L"is 64-bit"));
    file.code = ERROR_ACCESS_DENIED;
    EXPECT_THAT(told(file), HasSubstr(L"(5)"));
}

TEST(ChecksTest, utf8AsCodePage_isTold)
{
    EXPECT_EQ(withBroken([](Facts& facts) { facts.language.codePage = 65001; }).complaints, Ids{L"code-page"});
}

TEST(ChecksTest, eastAsianCodePageWithoutItsFonts_isTold)
{
    const auto japanese = [](Facts& facts) { facts.language = {932, L"Tahoma", true, true, {}}; };
    EXPECT_EQ(withBroken(japanese).complaints, Ids{L"fonts"});
    EXPECT_EQ(withBroken([&](Facts& facts) {
                  japanese(facts);
                  facts.language.eastAsianFaces = {L"MS Gothic"};
              }).complaints,
              Ids{});
}

TEST(ChecksTest, systemWithoutOdbc_isTold)
{
    EXPECT_EQ(withBroken([](Facts& facts) { facts.odbc.hasManager = false; }).complaints, Ids{L"odbc"});
}

TEST(ChecksTest, driverOfTheSample_isNamed)
{
    const auto withDriver = [](const wchar_t* name) {
        return withBroken([=](Facts& facts) {
            facts.odbc.drivers.resize(1);
            facts.odbc.drivers[0].name = name;
            facts.odbc.drivers[0].file.state = RegistryValue::State::text;
        });
    };
    EXPECT_THAT(withDriver(L"sqlite3").of(L"odbc").text, HasSubstr(L"use sqlite3"));
    EXPECT_THAT(withDriver(L"Another").of(L"odbc").text, HasSubstr(L"none of them"));
    EXPECT_EQ(withDriver(L"Another").complaints, Ids{});
}

TEST(ChecksTest, ideThatCannotBeLookedInto_isNoComplaint)
{
    const Found found =
        withBroken([](Facts& facts) { facts.running.processes = {{7, L"devenv.exe", false, {}, true, true}}; });
    EXPECT_EQ(found.complaints, Ids{});
}

TEST(ChecksTest, ideWithoutTheAddinThatIsSwitchedOff_isNoComplaintOfItsOwn)
{
    const auto runIde = [](Facts& facts) { facts.running.processes = {{7, L"C:\\devenv.exe", true, {}, true, true}}; };
    EXPECT_EQ(withBroken(runIde).complaints, Ids{L"running-addin"});
    const Found found = withBroken([&](Facts& facts) {
        runIde(facts);
        facts.ide.machine.loadBehavior.number = 0;
    });
    EXPECT_EQ(found.complaints, Ids{L"ide-switch"});
    EXPECT_EQ(found.of(L"running-addin").state, State::skipped);
}

TEST(ChecksTest, ideWithTheOtherCopyThatIsRegistered_isNoComplaintOfItsOwn)
{
    const std::wstring other = L"D:\\Other\\velkviadd.dll";
    const auto runIde = [&](Facts& facts) {
        facts.running.processes = {{7, L"C:\\devenv.exe", true, {other}, true, true}};
    };
    EXPECT_EQ(withBroken(runIde).complaints, Ids{L"running-addin"});
    EXPECT_EQ(withBroken([&](Facts& facts) {
                  runIde(facts);
                  for (ClassFacts& row : facts.registration.classes) {
                      row.serverPath = row.server.text = other;
                      row.isServerThere = true;
                  }
                  facts.registration.libraryPath = other;
              }).complaints,
              Ids{L"registered-copy"});
}

TEST(ChecksTest, severalIdes_areToldByTheWorst)
{
    const Found found = withBroken([](Facts& facts) {
        const std::wstring& addin = facts.addin.file.path;
        facts.running.processes = {{1, L"C:\\devenv.exe", true, {addin}, true, true},
                                   {2, L"C:\\devenv.exe", true, {}, true, true},
                                   {3, L"C:\\devenv.exe", true, {L"D:\\velkviadd.dll"}, true, true},
                                   {4, L"C:\\devenv.exe", false, {}, true, true}};
    });
    EXPECT_EQ(found.complaints, Ids{L"running-addin"});
    EXPECT_THAT(found.of(L"running-addin").text, HasSubstr(L"process 3"));
    EXPECT_EQ(found.of(L"running-addin").details.size(), 3u);
}

TEST(ChecksTest, systemsWords_haveNoGap)
{
    EXPECT_EQ(systemText(ERROR_BAD_EXE_FORMAT).find(L"%1"), std::wstring::npos);
}

TEST(ChecksTest, areaThatFailed_isALineOfEachOfItsChecks)
{
    const Found found = withBroken([](Facts& facts) { facts.failures = {{L"language", L"Out of memory"}}; });
    EXPECT_EQ(found.complaints, (Ids{L"code-page", L"fonts"}));
    EXPECT_THAT(found.of(L"fonts").text, HasSubstr(L"Out of memory"));
}

TEST(ChecksTest, usersChoice_goesBeforeTheMachines)
{
    const auto choose = [](DWORD machine, DWORD user) {
        return [=](Facts& facts) {
            facts.ide.machine.loadBehavior.number = machine;
            facts.ide.user = facts.ide.machine;
            facts.ide.user.loadBehavior.number = user;
        };
    };
    EXPECT_EQ(withBroken(choose(0, 1)).complaints, Ids{});
    EXPECT_EQ(withBroken(choose(1, 0)).complaints, Ids{L"ide-switch"});
}

TEST(ChecksTest, registrationOfAnotherCopyThatIsThere_isNotTakenAway)
{
    const auto registerAnother = [](Facts& facts, bool isThere) {
        for (ClassFacts& row : facts.registration.classes) {
            row.serverPath = row.server.text = L"D:\\Other\\velkviadd.dll";
            row.isServerThere = isThere;
        }
        facts.registration.libraryPath = L"D:\\Other\\velkviadd.dll";
    };
    const auto remedy = [](const Found& found) { return found.of(L"registered-copy").remedy; };
    EXPECT_EQ(remedy(withBroken([&](Facts& facts) { registerAnother(facts, true); })), Remedy::none);
    EXPECT_EQ(remedy(withBroken([&](Facts& facts) { registerAnother(facts, false); })), Remedy::registerAgain);
    EXPECT_EQ(remedy(withBroken([&](Facts& facts) {
                  registerAnother(facts, true);
                  facts.addin.place = AddinPlace::named;
              })),
              Remedy::registerAgain);
}

TEST(ChecksTest, addinThatDoesNotLoad_isNotRegistered)
{
    const Found found = withBroken([](Facts& facts) {
        facts.addin.load.outcome = ChildFacts::Outcome::crashed;
        facts.registration.classes[2].server = {};
    });
    EXPECT_EQ(found.of(L"registered-classes").remedy, Remedy::none);
}

TEST(ChecksTest, lastSentence_tellsTheWorstFirst)
{
    const Found found = withBroken([](Facts& facts) {
        facts.language.codePage = 65001;
        facts.system.minor = 0;
    });
    EXPECT_EQ(lastSentence(found.findings),
              L"The add-in cannot work as it is; 1 thing is wrong: Windows. " + found.of(L"windows").wayOut);
    EXPECT_EQ(lastSentence(withBroken([](Facts&) {}).findings), L"Everything that the add-in needs is in order.");
}

} // namespace
} // namespace velk::doctor
