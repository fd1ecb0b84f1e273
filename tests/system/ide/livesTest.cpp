// How the add-in comes and goes in a running IDE.
#include "ideRun.h"

namespace velk {
namespace {

class LivesTest : public test::IdeRun {
protected:
    int countOf(const std::string& text, const std::vector<std::string>& lines) const
    {
        int found = 0;
        for (const std::string& line : lines)
            found += line.find(text) != std::string::npos ? 1 : 0;
        return found;
    }
};

TEST_F(LivesTest, guidedTour_holdsAtEveryStep)
{
    EXPECT_EQ(runFile(L"tour.script", L""), 0u);
    EXPECT_EQ(countOf("BREACH", backendJournal()), 0);
}

TEST_F(LivesTest, loadedAgainInTheSameRun_worksAgain)
{
    const std::string round = "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                              "select-node Orders/ORDERS/Tables\nexpect-rows 8\nunload velkviadd.Connect\n"
                              "expect-module velkviadd.dll unloaded\nexpect-module velkvsadd.dll unloaded\n";
    EXPECT_EQ(run(round + "load velkviadd.Connect\n" + round + "load velkviadd.Connect\n" + round), 0u);
    EXPECT_EQ(countOf("RZInitialize", backendJournal()), 3);
    EXPECT_EQ(countOf("RZTerminate", backendJournal()), 3);
    EXPECT_EQ(countOf("BREACH", backendJournal()), 0);
}

TEST_F(LivesTest, ideThatEndsWithTheAddInRunning_takesItDownInOrder)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "select-node Orders/ORDERS/Tables\nexpect-rows 8\n"),
              0u);
    EXPECT_EQ(countOf("RZTerminate", backendJournal()), 1);
    EXPECT_EQ(countOf("BREACH", backendJournal()), 0);
}

TEST_F(LivesTest, unloadingWhileTheProjectOpens_isClean)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "expect-window Rozel Server View visible\nunload velkviadd.Connect\n"
                  "expect-class velkviadd.splashscrnFrm absent\nexpect-module velkviadd.dll unloaded\n"),
              0u);
    EXPECT_EQ(countOf("BREACH", backendJournal()), 0);
}

TEST_F(LivesTest, unloadingUnderAMessage_isCleanAndCallsNothingAfterTheEnd)
{
    EXPECT_EQ(run("delete-file $SAMPLE\\rz\\orders.rzv\nopen-solution $SAMPLE\\orders.sln\n"
                  "click Add-Ins/Rozel Development\nexpect-message orders.rzv\nunload velkviadd.Connect\nanswer ok\n"
                  "expect-module velkviadd.dll unloaded\nload velkviadd.Connect\nunload velkviadd.Connect\n"
                  "expect-module velkviadd.dll unloaded\n"),
              0u);
    const std::vector<std::string> calls = backendJournal();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back(), "RZTerminate()");
}

TEST_F(LivesTest, keptToolWindow_isFoundAgainAndNeverMadeTwice)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "expect-node Orders/ORDERS/Views\nexpect-class velkviadd.splashscrnFrm absent\n"),
              0u);
    EXPECT_EQ(countOf("CreateToolWindow", ideJournal()), 1);
}

TEST_F(LivesTest, traceThatIsSwitchedOn_tellsVersionCallsAndFailures)
{
    SetEnvironmentVariableW(L"VELKVIADD_TRACE", (path(L"trace.log") + L";2").c_str());
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "expect-node Orders/ORDERS/Views\nunload velkviadd.Connect\n",
                  L"--fail CommandBarControl.PasteFace"),
              0u);
    SetEnvironmentVariableW(L"VELKVIADD_TRACE", nullptr);
    const auto lines = this->lines(L"trace.log");
    ASSERT_FALSE(lines.empty());
    EXPECT_NE(lines.front().find("velkviadd 1.0.0 in"), std::string::npos);
    EXPECT_GT(countOf("Backend: RZInitialize gave 1", lines), 0);
    EXPECT_GT(countOf("host: CreateToolWindow", lines), 0);
    for (const char* kind : {"DTE", "MainWindow", "Windows", "Window", "CommandBars", "CommandBar",
                             "CommandBarControls", "CommandBarControl", "Events", "Solution"})
        EXPECT_EQ(countOf((std::string("host members: ") + kind + " has ").c_str(), lines), 1) << kind;
    EXPECT_EQ(countOf("; the entry goes to 13", lines), 1);
    EXPECT_GT(countOf("was told to fail", lines), 0);
}

TEST_F(LivesTest, traceThatIsNotSwitchedOn_writesNoFile)
{
    EXPECT_EQ(run("unload velkviadd.Connect\n"), 0u);
    EXPECT_TRUE(lines(L"trace.log").empty());
}

TEST_F(LivesTest, folderOfAHundredThousandProcedures_opensOrdersAndRefreshes)
{
    SetEnvironmentVariableW(L"VELK_BACKEND_MANY", L"100000");
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", nullptr);
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "select-node Orders/ORDERS/Stored Procedures\nexpect-rows 100004\nclick-header Name\n"
                  "expect-first-row close_order\nclick-header Name\nexpect-first-row stock_report\n"
                  "select-node Orders/ORDERS/Views\nexpect-rows 4\n"
                  "select-node Orders/ORDERS/Stored Procedures\nexpect-rows 100004\nexpect-first-row stock_report\n"
                  "unload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n"),
              0u);
    SetEnvironmentVariableW(L"VELK_BACKEND_MANY", nullptr);
}

} // namespace
} // namespace velk
