#include "devkit/ide/script.h"
#include "devkit/ide/options.h"

#include <gmock/gmock.h>

namespace velk::devkit {
namespace {

using testing::ElementsAre;

TEST(Script, blankLinesAndRemarks_arePassedOver)
{
    const auto lines = parseScript(L"# a remark\n\n  click Bar/Entry  \r\n", {});
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].number, 3);
    EXPECT_EQ(lines[0].command, L"click");
    EXPECT_EQ(lines[0].rest, L"Bar/Entry");
}

TEST(Script, definition_isPutInItsPlace)
{
    EXPECT_EQ(parseScript(L"open-solution $SAMPLE\\a.sln", {{L"SAMPLE", L"C:\\x"}})[0].rest, L"C:\\x\\a.sln");
}

TEST(Script, undefinedName_saysItsLine)
{
    try {
        parseScript(L"step 1\nopen-solution $NOWHERE", {});
        FAIL();
    } catch (const ScriptFailure& failure) {
        EXPECT_EQ(failure.text, L"line 2: nothing is defined as $NOWHERE");
    }
}

TEST(Script, split_keepsEmptyParts)
{
    EXPECT_THAT(split(L"a||b", L'|'), ElementsAre(L"a", L"", L"b"));
}

TEST(OptionsTest, optionsAndSwitches_areRead)
{
    const Options options =
        parseOptions({L"--hidden", L"--script", L"x.script", L"--define", L"A=b", L"--timeout", L"7"});
    EXPECT_TRUE(options.hidden);
    EXPECT_EQ(options.script, L"x.script");
    EXPECT_EQ(options.definitions.at(L"A"), L"b");
    EXPECT_EQ(options.timeLimit, 7u);
}

TEST(OptionsTest, optionsOfTheUnkindIde_areRead)
{
    const Options options = parseOptions({L"--pump", L"--reentry", L"Window.Visible=#1=click"});
    EXPECT_TRUE(options.pump);
    EXPECT_EQ(options.reentry, L"Window.Visible=#1=click");
}

TEST(OptionsTest, unknownOption_isRefused)
{
    EXPECT_THROW(parseOptions({L"--elephant", L"x"}), ScriptFailure);
    EXPECT_THROW(parseOptions({L"--script"}), ScriptFailure);
}

TEST(OptionsTest, timeLimitThatIsNoNumber_isRefused)
{
    EXPECT_THROW(parseOptions({L"--timeout", L"soon"}), ScriptFailure);
    EXPECT_THROW(parseOptions({L"--timeout", L""}), ScriptFailure);
}

} // namespace
} // namespace velk::devkit
