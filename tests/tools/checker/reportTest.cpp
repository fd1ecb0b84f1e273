#include "checker/report.h"

#include "checker/probe.h"
#include "checker/texts.h"

#include "base/win32.h"

#include <gmock/gmock.h>

namespace velk::check {
namespace {

using testing::HasSubstr;
using testing::Not;

Finding findingOf(Rule rule, const char* call)
{
    return {rule, 5, call, "7, \"a<b\"", "one & only", "\"two\"\n", 1};
}

Report reportOf(Outcome level)
{
    Report report;
    report.head.library = "C:\\a\\velkvsadd.dll";
    report.levels.push_back({5, level, 1.25});
    return report;
}

TEST(Report, sameFindingAgain_isCounted)
{
    Report report;
    report.add(findingOf(Rule::N7, "RZViewGet"));
    report.add(findingOf(Rule::N7, "RZViewGet"));
    report.add(findingOf(Rule::N7, "RZTableGet"));
    ASSERT_EQ(report.findings.size(), 2u);
    EXPECT_EQ(report.findings[0].times, 2);
    EXPECT_TRUE(report.isBroken(Rule::N7));
}

TEST(Report, functionsThatWereSlow_areCountedTogether)
{
    Report report;
    report.addNoticed({"RZViewGet", 2, 70'000});
    report.addNoticed({"RZViewGet", 3, 60'000});
    EXPECT_THAT(asText(report), Not(HasSubstr("RZViewGet")));
    report.addSlow({"RZViewGet", "1", 70'000});
    EXPECT_THAT(asText(report), HasSubstr("RZViewGet took more than 50 ms 5 times, the longest was 70.0 ms\n"));
}

TEST(Report, endlessFindingsOfOneRule_areNotAllKept)
{
    Report report;
    for (int number = 0; number < 100; ++number)
        report.add(findingOf(Rule::N7, std::to_string(number).c_str()));
    EXPECT_EQ(report.findings.size(), 20u);
}

TEST(Report, slowCalls_areTheTenSlowestInOrder)
{
    Report report;
    for (int number = 0; number < 12; ++number)
        report.addSlow({"call", "", 100 + number});
    ASSERT_EQ(report.slow.size(), 10u);
    EXPECT_EQ(report.slow.front().microseconds, 111);
    EXPECT_EQ(report.slow.back().microseconds, 102);
}

TEST(Report, worstLevel_isTheOutcome)
{
    Report report = reportOf(Outcome::holds);
    EXPECT_EQ(report.outcome(), Outcome::holds);
    report.levels.push_back({6, Outcome::broken, 0});
    report.levels.push_back({7, Outcome::notChecked, 0});
    EXPECT_EQ(report.outcome(), Outcome::broken);
}

TEST(ReportText, brokenRule_isShownWithCallAndAnchor)
{
    Report report = reportOf(Outcome::broken);
    report.add(findingOf(Rule::N7, "RZViewGet"));
    const std::string text = asText(report);
    EXPECT_THAT(text, HasSubstr("  N7   broken       What was added or changed can be fetched\n"));
    EXPECT_THAT(text, HasSubstr("in RZViewGet(7, \"a<b\")"));
    EXPECT_THAT(text, HasSubstr("backend-contract.md#n7"));
    EXPECT_THAT(text, HasSubstr("The library breaks rules of the contract."));
}

TEST(ReportText, ruleOfALowerLevelFoundLater_isShown)
{
    Report report = reportOf(Outcome::broken);
    report.add(findingOf(Rule::F5, "RZViewGet"));
    EXPECT_THAT(asText(report), HasSubstr("  F5   broken"));
}

TEST(ReportText, slowCall_isNamed)
{
    Report report = reportOf(Outcome::holds);
    report.addSlow({"RZTerminate", "", 60'000});
    report.addSlow({"RZInitialize", "3", 40'000});
    const std::string text = asText(report);
    EXPECT_THAT(text, HasSubstr("60.0 ms    RZTerminate()  holds up the IDE\n"));
    EXPECT_THAT(text, HasSubstr("40.0 ms    RZInitialize(3)\n"));
}

TEST(ReportText, nothingChecked_isNoPraise)
{
    EXPECT_THAT(asText(reportOf(Outcome::notChecked)), HasSubstr("Nothing was checked.\n"));
    EXPECT_THAT(asText(reportOf(Outcome::holds)), HasSubstr("The library holds what was checked.\n"));
}

TEST(ReportText, failureOfTheChecker_isToldAsItsOwn)
{
    Report report = reportOf(Outcome::holds);
    report.hasFailed = true;
    EXPECT_THAT(asText(report), HasSubstr("The checker itself failed"));
    EXPECT_THAT(asJson(report), HasSubstr("\"failed\": true"));
}

TEST(ReportJson, texts_areEscaped)
{
    Report report = reportOf(Outcome::broken);
    report.add(findingOf(Rule::N7, "RZViewGet"));
    const std::string json = asJson(report);
    EXPECT_THAT(json, HasSubstr(R"("library": "C:\\a\\velkvsadd.dll")"));
    EXPECT_THAT(json, HasSubstr(R"("rule": "N7", "level": 5, "call": "RZViewGet", "arguments": "7, \"a<b\"")"));
    EXPECT_THAT(json, HasSubstr(R"("seen": "\"two\"\u000a")"));
    EXPECT_THAT(json, HasSubstr(R"("verdict": "broken")"));
}

TEST(ReportJunit, counts_areThoseOfTheRules)
{
    Report report = reportOf(Outcome::broken);
    report.add(findingOf(Rule::N7, "RZViewGet"));
    report[Rule::N8] = {Outcome::notChecked, "nothing <came>"};
    report[Rule::N9] = {Outcome::holds, ""};
    const std::string xml = asJunit(report);
    EXPECT_THAT(xml, HasSubstr("<testsuites tests=\"3\" failures=\"1\" skipped=\"1\">"));
    EXPECT_THAT(xml, HasSubstr("<skipped message=\"nothing &lt;came&gt;\"/>"));
    EXPECT_THAT(xml, HasSubstr("expected one &amp; only, seen &quot;two&quot;"));
    EXPECT_THAT(xml, Not(HasSubstr("a<b")));
}

TEST(Escapes, controlCharacters_haveNoPlaceInXml)
{
    EXPECT_EQ(xmlEscaped("a\x01 b\x1F"), "a  b ");
    EXPECT_EQ(jsonEscaped("a\x01\\"), "a\\u0001\\\\");
}

TEST(Messages, packed_comeBackAsTheyWere)
{
    const std::string bytes = packed({'F', {"N7", "", "x"}}) + packed({'D', {"N8"}});
    const std::vector<PadMessage> messages = unpacked(bytes);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].kind, 'F');
    EXPECT_THAT(messages[0].texts, testing::ElementsAre("N7", "", "x"));
    EXPECT_THAT(messages[1].texts, testing::ElementsAre("N8"));
}

TEST(Messages, separatorsInATextAndHalfAMessage_doNoHarm)
{
    const std::string bytes = packed({'F',
                                      {"a\x1F"
                                       "b\x1E"}}) +
                              "half";
    const std::vector<PadMessage> messages = unpacked(bytes);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_THAT(messages[0].texts, testing::ElementsAre("a b "));
}

TEST(Messages, tooManyFindings_leaveRoomForWhatIsSaidOfARule)
{
    Pad pad;
    for (int number = 0; number < 2000; ++number)
        pad.say({'F', {"N7", std::string(1000, 'x')}});
    pad.say({'N', {"N8", std::string(2000, 'y')}});
    const auto messages = unpacked({pad->messages, static_cast<size_t>(pad->messageBytes)});
    EXPECT_LT(messages.size(), 1100u);
    EXPECT_EQ(messages.back().kind, 'N');
}

TEST(Messages, lastFinding_hasRoomWhenTheRestIsFull)
{
    Pad pad;
    for (int number = 0; number < 2000; ++number)
        pad.say({'F', {"N7", std::string(1000, 'x')}});
    pad.useAllRoom();
    pad.say({'F', {"C1", std::string(2000, 'y')}});
    const auto messages = unpacked({pad->messages, static_cast<size_t>(pad->messageBytes)});
    EXPECT_EQ(messages.back().texts.front(), "C1");
}

TEST(Probe, sameFindingAgain_isToldOnceAndThenCounted)
{
    Pad pad;
    Probe probe(pad);
    for (int number = 0; number < 5; ++number)
        probe.found(Rule::N7, {"RZViewGet", std::to_string(number)}, "one", "two");
    probe.tellRepeated();
    probe.tellRepeated();
    const auto messages = unpacked({pad->messages, static_cast<size_t>(pad->messageBytes)});
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].texts.back(), "1");
    EXPECT_EQ(messages[1].texts.back(), "4");
}

TEST(Call, longArguments_areCutBetweenCharacters)
{
    Pad pad;
    pad.enterCall("RZViewGet", std::string(sizeof pad->arguments - 2, 'x') + "\xC3\xA9", false);
    EXPECT_EQ(std::string(pad->arguments), std::string(sizeof pad->arguments - 2, 'x'));
    pad.enterCall("RZViewGet", std::string(sizeof pad->arguments - 3, 'x') + "\xC3\xA9", false);
    EXPECT_EQ(std::string(pad->arguments), std::string(sizeof pad->arguments - 3, 'x') + "\xC3\xA9");
}

TEST(Utf8, whatIsNoCharacter_isTheOneForThat)
{
    const wchar_t odd[] = {L'a', 0xD800, L'b', 0xDC00, 0xFFFE, 0xFFFF, 0xD83D, 0xDE00, 0xDBFF, 0};
    const std::string none = "\xEF\xBF\xBD";
    EXPECT_EQ(toUtf8(odd), "a" + none + "b" + none + none + none + "\xF0\x9F\x98\x80" + none);
}

TEST(Shown, unprintable_isWrittenAsNumber)
{
    EXPECT_EQ(shown("a\n"), "\"a\\x0A\"");
    EXPECT_LT(shown(std::string(1000, 'x')).size(), 200u);
}

TEST(Utf8, bytesOutsideAscii_areTakenForItOnlyWhenTheyAreWhole)
{
    if (GetACP() != 1252)
        GTEST_SKIP() << "of another code page";
    EXPECT_TRUE(looksLikeUtf8("Sch\xC3\xBC"
                              "ler"));
    EXPECT_FALSE(looksLikeUtf8("Sch\xFC"
                               "ler"));
    EXPECT_FALSE(looksLikeUtf8("plain"));
    EXPECT_FALSE(looksLikeUtf8("\xD0\x96")); // a letter that this code page has not, so it is by chance
    EXPECT_TRUE(looksLikeUtf8("\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96"));
}

} // namespace
} // namespace velk::check
