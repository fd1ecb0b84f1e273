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
    EXPECT_EQ(runFile(path(L"tour.script"), L""), 0u);
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
    EXPECT_EQ(backendJournal().back(), "RZTerminate()");
}

TEST_F(LivesTest, keptToolWindow_isFoundAgainAndNeverMadeTwice)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "expect-node Orders/ORDERS/Views\nexpect-class velkviadd.splashscrnFrm absent\n"),
              0u);
    EXPECT_EQ(countOf("CreateToolWindow", ideJournal()), 1);
}

} // namespace
} // namespace velk
