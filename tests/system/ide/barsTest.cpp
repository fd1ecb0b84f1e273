// The add-in's toolbar and menus in the IDE, and an IDE whose members are missing or fail.
#include "ideRun.h"

namespace velk {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr const char* start = "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/#1\nexpect-node Orders/ORDERS/Views\n"
                              "expect-class velkviadd.splashscrnFrm absent\n";
constexpr const char* end = "unload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n";

class BarsTest : public test::IdeRun {};

TEST_F(BarsTest, applicationEntry_launchesWithItsArgument)
{
    EXPECT_EQ(run(std::string(start) + "click Rozel/SQL Assist\nexpect-message Application 2\nanswer ok\n" + end), 0u);
    EXPECT_THAT(backendJournal(), Contains("RZLaunchApp(2, \"-ccf\")"));
}

TEST_F(BarsTest, everyOtherEntry_launchesATool)
{
    EXPECT_EQ(run(std::string(start) +
                  "click Rozel/Event Analyzer\nexpect-message Tool 10\nanswer ok\n"
                  "click MenuBar/Rozel/Views/Output View\nexpect-message Tool 7\nanswer ok\n" +
                  end),
              0u);
    EXPECT_THAT(backendJournal(), Contains("RZLaunchVelkTool(10)"));
    EXPECT_THAT(backendJournal(), Contains("RZLaunchVelkTool(7)"));
}

TEST_F(BarsTest, aboutEntry_neverReachesTheBackend)
{
    EXPECT_EQ(run(std::string(start) +
                  "click MenuBar/Rozel/About Velk Development Add-In\n"
                  "expect-message Velk Development Add-In\nanswer Close\n" +
                  end),
              0u);
    EXPECT_THAT(backendJournal(), Not(Contains(HasSubstr("RZLaunch"))));
}

TEST_F(BarsTest, unloadingUnderTheAboutBox_closesItAndIsClean)
{
    EXPECT_EQ(run(std::string(start) + "click MenuBar/Rozel/About Velk Development Add-In\n"
                                       "expect-message Velk Development Add-In\nunload velkviadd.Connect\n"
                                       "expect-no-message\nexpect-module velkviadd.dll unloaded\n"),
              0u);
}

TEST_F(BarsTest, unloading_leavesNoBarAndNoMenu)
{
    EXPECT_EQ(run(std::string(start) + "expect-entry MenuBar/Rozel enabled\n" + end +
                  "expect-entry MenuBar/Rozel absent\nexpect-entry Rozel/SQL Assist absent\n"),
              0u);
}

TEST_F(BarsTest, toolbarThatACrashLeft_isUsedAgainAndNotDoubled)
{
    EXPECT_EQ(run("add-bar Rozel tagged velkviadd\n" + std::string(start) +
                  "click Rozel/SQL Assist\nexpect-message Application 2\n"
                  "answer ok\n" +
                  end),
              0u);
    EXPECT_THAT(ideJournal(), Not(Contains(HasSubstr("CommandBars.Add("))));
}

TEST_F(BarsTest, toolbarOfTheUsersOwnWithItsName_staysBesideIt)
{
    EXPECT_EQ(run("add-bar Rozel\n" + std::string(start) +
                  "click Rozel (2)/SQL Assist\nexpect-message Application 2\nanswer ok\n" + end +
                  "expect-entry Rozel/#1 enabled\nexpect-entry Rozel (2)/SQL Assist absent\n"),
              0u);
}

// Each member that the add-in uses, missing or failing: it stays loaded with what it has and disconnects cleanly.
class FaultsTest : public BarsTest, public testing::WithParamInterface<const char*> {
protected:
    DWORD runWith(const std::wstring& option)
    {
        const std::string member = GetParam();
        // A message about the fault may come at any time, and keeps the library until it is answered.
        return run("open-solution $SAMPLE\\orders.sln\nclick-if-there Add-Ins/#1\nwait 400\nanswer-all ok\n"
                   "unload velkviadd.Connect\nanswer-all ok\nexpect-module velkviadd.dll unloaded\n"
                   "expect-module velkvsadd.dll unloaded\n",
                   option + L" " + std::wstring(member.begin(), member.end()));
    }
};

TEST_P(FaultsTest, missingMember_endsCleanly)
{
    EXPECT_EQ(runWith(L"--without"), 0u);
    EXPECT_THAT(backendJournal(), Not(Contains(HasSubstr("BREACH"))));
}

TEST_P(FaultsTest, failingMember_endsCleanly)
{
    EXPECT_EQ(runWith(L"--fail"), 0u);
    EXPECT_THAT(backendJournal(), Not(Contains(HasSubstr("BREACH"))));
}

INSTANTIATE_TEST_SUITE_P(
    Members, FaultsTest,
    testing::Values("DTE.MainWindow", "DTE.Windows", "DTE.Solution", "DTE.Events", "DTE.CommandBars", "Windows.Count",
                    "Windows.Item", "Windows.CreateToolWindow", "Window.Type", "Window.HWnd", "Window.Visible",
                    "Window.Close", "Solution.Count", "Solution.FullName", "Events.CommandBarEvents",
                    "CommandBars.Item", "CommandBars.Add", "CommandBars.ActiveMenuBar", "CommandBar.Controls",
                    "CommandBar.Visible", "CommandBar.BuiltIn", "CommandBar.Delete", "CommandBarControls.Add",
                    "CommandBarControls.Count", "CommandBarControls.Item", "CommandBarControl.Caption",
                    "CommandBarControl.OnAction", "CommandBarControl.Enabled", "CommandBarControl.Visible",
                    "CommandBarControl.BeginGroup", "CommandBarControl.PasteFace", "CommandBarControl.Tag",
                    "CommandBarControl.Controls", "CommandBarControl.Delete"));

} // namespace
} // namespace velk
