#include "doctor/report.h"

#include "facts.h"

#include <gmock/gmock.h>

namespace velk::doctor {
namespace {

using testing::HasSubstr;
using testing::Not;

Report reportOf(const Facts& facts)
{
    return {{}, judge(facts), true};
}

size_t count(const std::wstring& text, const std::wstring& part)
{
    size_t found = 0;
    for (size_t at = text.find(part); at != std::wstring::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

TEST(ReportTest, exitCode_isThatOfTheWorst)
{
    Facts facts = test::healthyMachine();
    EXPECT_EQ(exitCodeOf(reportOf(facts)), exitGood);
    facts.language.codePage = 65001;
    EXPECT_EQ(exitCodeOf(reportOf(facts)), exitWarning);
    facts.system.major = 4;
    EXPECT_EQ(exitCodeOf(reportOf(facts)), exitWrong);
}

TEST(ReportTest, exitCodeOfAFixThatFailed_goesFirst)
{
    Report report = reportOf(test::healthyMachine());
    report.mended = {{L"Registered it.", true}};
    EXPECT_EQ(exitCodeOf(report), exitGood);
    report.mended.push_back({L"Removed it: this failed.", false});
    EXPECT_EQ(exitCodeOf(report), exitNotFixed);
}

TEST(ReportTest, lines_areOneACheckAndASentence)
{
    const std::wstring text = linesOf(reportOf(test::healthyMachine()), Details::ofComplaints);
    EXPECT_EQ(count(text, L"\r\n"), checkRows().size() + 2);
    EXPECT_THAT(text, testing::StartsWith(L"OK       Windows: Windows 5.1.2600 Service Pack 3, 32-bit.\r\n"));
}

TEST(ReportTest, complaint_hasItsWayOutInItsLine)
{
    Facts facts = test::healthyMachine();
    facts.language.codePage = 65001;
    EXPECT_THAT(linesOf(reportOf(facts), Details::ofComplaints), HasSubstr(L"spoiled. Switch off"));
}

TEST(ReportTest, details_areOfComplaintsUnlessAllAreWanted)
{
    Facts facts = test::healthyMachine();
    EXPECT_THAT(linesOf(reportOf(facts), Details::ofComplaints), Not(HasSubstr(L"C:\\Tool: there")));
    EXPECT_THAT(linesOf(reportOf(facts), Details::ofAll), HasSubstr(L"C:\\Tool: there"));
    facts.backend = {};
    facts.backend.places = {{L"C:\\Tool", false}};
    EXPECT_THAT(linesOf(reportOf(facts), Details::ofComplaints), HasSubstr(L"C:\\Tool: not there"));
}

TEST(ReportTest, textWithALineEndInIt_staysOneLine)
{
    Facts facts = test::healthyMachine();
    facts.backend.places = {{L"C:\\two\r\nlines", false}};
    EXPECT_THAT(linesOf(reportOf(facts), Details::ofAll), HasSubstr(L"C:\\two  lines"));
}

TEST(ReportTest, json_escapesWhatItHasTo)
{
    Facts facts = test::healthyMachine();
    facts.backend.places = {{L"C:\\a \"b\"\n\x6F22", true}};
    EXPECT_THAT(jsonOf(reportOf(facts)), HasSubstr(L"\"C:\\\\a \\\"b\\\"\\u000a\x6F22: there\""));
}

TEST(ReportTest, json_hasTheFixesAndTheExitCode)
{
    Report report = reportOf(test::healthyMachine());
    report.mended = {{L"Registered it.", false}};
    const std::wstring json = jsonOf(report);
    EXPECT_THAT(json, HasSubstr(L"{\"text\": \"Registered it.\", \"done\": false}"));
    EXPECT_THAT(json, HasSubstr(L"\"exitCode\": 3"));
    EXPECT_EQ(count(json, L"{\"id\": "), checkRows().size());
}

} // namespace
} // namespace velk::doctor
