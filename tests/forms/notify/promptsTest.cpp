#include "pumpFixture.h"
#include "support/failureLog.h"

#include <algorithm>
#include <new>

namespace velk {
namespace {

using test::Lines;

class PromptTest : public test::PumpFixture {
protected:
    // From now on every box ends like this, as the next one would of a process that has no memory left.
    void runOutOfMemory()
    {
        duringMessage = [] { throw std::bad_alloc(); };
    }
};

TEST_F(PromptTest, prompt_isShownAndItsAnswerGoesToTheTool)
{
    answer = IDCANCEL;
    backend.prompt(L"Drop it?", 1, L"IDE_QUESTION#672#Drop");
    backend.calls.clear();
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Drop it?|Drop"});
    EXPECT_EQ(styles, std::vector<uint32_t>{MB_YESNOCANCEL | MB_ICONQUESTION});
    EXPECT_EQ(backend.calls.back(), "RZButtonDoAction(\"User response\", 2)");
}

TEST_F(PromptTest, okOnlyPromptClosedByEscape_answersOne)
{
    answer = IDCANCEL; // what some systems answer for Escape
    backend.prompt(L"Done.", 1, L"IDE_WARNING");
    pump->timerThread_Timer();
    EXPECT_EQ(backend.calls.back(), "RZButtonDoAction(\"User response\", 1)");
    EXPECT_EQ(messages, Lines{L"Done.|"});
}

TEST_F(PromptTest, promptWithTooManyFields_showsNothingAndAnswersNothing)
{
    backend.prompt(L"?", 1, L"a#b#c#d#e#f");
    backend.calls.clear();
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(backend.calls.size(), 1u); // the text was fetched, and that is all
}

// A user who is away answers none of them, and each runs the next tick in its own loop.
TEST_F(PromptTest, boxesWithoutAnEnd_stopAtADepthAndFollowWhenTheyAreAnswered)
{
    constexpr int prompts = 200;
    for (int number = 0; number < prompts; ++number)
        backend.prompt(L"?", 3);
    int open = 0;
    int deepest = 0;
    duringMessage = [&] {
        deepest = std::max(deepest, ++open);
        pump->timerThread_Timer();
        --open;
    };
    pump->timerThread_Timer();
    EXPECT_EQ(deepest, 30);
    EXPECT_EQ(messages.size(), static_cast<size_t>(prompts)); // none was lost
}

TEST_F(PromptTest, unloadWhileAPromptIsOpen_sendsNoAnswer)
{
    backend.prompt(L"Drop it?", 1, L"IDE_QUESTION#67");
    backend.prompt(L"never shown", 3);
    duringMessage = [this] {
        end();
        backend.calls.clear();
    };
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_EQ(backend.calls, std::vector<std::string>{});
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(PromptTest, tickInsideAPrompt_handlesWhatCameMeanwhile)
{
    backend.prompt(L"Drop it?", 1, L"IDE_QUESTION#67");
    duringMessage = [this] {
        duringMessage = nullptr;
        backend.prompt(L"meanwhile", 3);
        pump->timerThread_Timer();
    };
    pump->timerThread_Timer();
    EXPECT_EQ(messages, (Lines{L"Drop it?|", L"meanwhile|velkviadd"}));
    EXPECT_EQ(backend.calls.back(), "RZButtonDoAction(\"User response\", 1)");
}

TEST_F(PromptTest, promptThatCouldNotBeShown_sendsNoAnswer)
{
    answer = 0;
    const int32_t handle = backend.prompt(L"Drop it?", 1, L"IDE_QUESTION#67");
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Drop it?|"});
    EXPECT_EQ(backend.calls.front(), "RZGetText(" + std::to_string(handle) + ")");
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains(testing::StartsWith("RZButtonDoAction"))));
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(PromptTest, okOnlyPromptThatCouldNotBeShown_sendsNoAnswer)
{
    answer = 0;
    backend.prompt(L"Done.", 1, L"IDE_WARNING#1");
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains(testing::StartsWith("RZButtonDoAction"))));
}

TEST_F(PromptTest, promptThatRunsOutOfMemory_isNotAnsweredAndTheNextNotificationFollows)
{
    test::FailureLog failures;
    runOutOfMemory();
    backend.prompt(L"Drop it?", 1, L"IDE_QUESTION#67");
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    pump->timerThread_Timer();
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains(testing::StartsWith("RZButtonDoAction"))));
    EXPECT_EQ(messages.size(), 1u); // the failure of a text is told to nobody
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
    EXPECT_EQ(failures.lines, Lines{L"notification: 7"});
}

TEST_F(PromptTest, failureWhoseTellingRunsOutOfMemory_doesNotStopTheNextNotification)
{
    test::FailureLog failures;
    runOutOfMemory();
    backend.notify(8, 1, 2, 8, 77);
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
    EXPECT_EQ(failures.lines, (Lines{L"notification: 35601", L"notification: 7"}));
}

} // namespace
} // namespace velk
