// When a tick goes on and when it ends.
#include "backend/calls.h"
#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

class TickTest : public test::PumpFixture {
protected:
    // The user-interface thread's message loop until something has happened, five seconds at most.
    template <class Condition>
    static bool loopUntil(Condition condition)
    {
        const DWORD end = GetTickCount() + 5000;
        MSG message{};
        while (!condition() && GetTickCount() < end) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
        }
        return condition();
    }
    // The tick, and those to which it leaves a rest.
    void tickToTheEnd()
    {
        do
            pump->timerThread_Timer();
        while (pump->hasRest());
    }
    // Minimizing the IDE's window takes longer than a tick may.
    void beSlow()
    {
        manager->whileAsked = [](const std::wstring& request) { Sleep(request == L"minimizeVSAppWin" ? 150 : 0); };
    }
    // A Backend that fails and promises more, each time after some milliseconds.
    auto failingForEver(DWORD slowness)
    {
        return [this, slowness](void*, int16_t* more) {
            Sleep(slowness);
            *more = -1;
            return ++calls == succeedsAt ? 1 : 0;
        };
    }

    int calls = 0;
    int succeedsAt = 0; // the number of a call that does not fail
};

TEST_F(TickTest, typeOutside2To10WithFalseMoreFlag_doesNothingAndEndsTheTick)
{
    backend.notify(11, 1, 2, 8, 9);
    pump->timerThread_Timer();
    EXPECT_EQ(backend.calls, (std::vector<std::string>{}));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(TickTest, severalNotifications_areHandledInOneTickInQueueOrder)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    backend.prompt(L"a message", 3, L"");
    backend.prompt(L"RZ_TASK_COMPLETE", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, (Lines{L"minimizeVSAppWin", L"restoreVSAppWinState"}));
    EXPECT_EQ(messages, Lines{L"a message|velkviadd"});
}

TEST_F(TickTest, tickInsideAMessageBox_drainsTheRest)
{
    backend.prompt(L"first", 3, L"");
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    duringMessage = [this] { pump->timerThread_Timer(); };
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(TickTest, tickInsideTheFetch_asksForNothingAndTheNextOneDoes)
{
    const auto fetch = backend.on.RZGetNotification;
    backend.on.RZGetNotification = [&](auto* record, int16_t* more) {
        ++calls;
        pump->timerThread_Timer();
        return fetch(record, more);
    };
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
    pump->timerThread_Timer();
    EXPECT_EQ(calls, 2);
}

TEST_F(TickTest, backendThatFailsForEverAndPromisesMore_endsTheTickWithinAThousandCalls)
{
    backend.on.RZGetNotification = failingForEver(0);
    tickToTheEnd();
    EXPECT_GT(calls, 1);
    EXPECT_LE(calls, 1000);
}

TEST_F(TickTest, slowBackendThatFailsForEver_endsTheTickAfterAboutASecond)
{
    backend.on.RZGetNotification = failingForEver(600);
    tickToTheEnd();
    EXPECT_EQ(calls, 2);
}

TEST_F(TickTest, tickAfterOneThatWasEnded_triesFiftyTimesAtMost)
{
    backend.on.RZGetNotification = failingForEver(0);
    tickToTheEnd();
    calls = 0;
    pump->timerThread_Timer();
    EXPECT_GT(calls, 1);
    EXPECT_LE(calls, 50);
}

TEST_F(TickTest, tickAfterOneThatASlowBackendEnded_endsAfterAboutFiftyMilliseconds)
{
    backend.on.RZGetNotification = failingForEver(600);
    tickToTheEnd();
    calls = 0;
    tickToTheEnd();
    EXPECT_EQ(calls, 1);
}

TEST_F(TickTest, successAfterATickThatWasEnded_bringsTheWholeAllowanceBack)
{
    backend.on.RZGetNotification = failingForEver(0);
    tickToTheEnd();
    pump->timerThread_Timer();
    calls = 0;
    succeedsAt = 1;
    tickToTheEnd();
    EXPECT_GT(calls, 51);
}

TEST_F(TickTest, statusZeroWithTheMoreFlagSet_isPassedOnAndTheTickGoesOn)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 1);
    const auto fetch = backend.on.RZGetNotification;
    backend.on.RZGetNotification = [fetch](auto* record, int16_t* more) {
        fetch(record, more);
        return 0;
    };
    pump->timerThread_Timer();
    EXPECT_EQ(journal, (Lines{L"minimizeVSAppWin", L"restoreVSAppWinState"}));
}

TEST_F(TickTest, failuresBetweenSuccesses_doNotEndTheTick)
{
    backend.on.RZGetNotification = [this](void*, int16_t* more) {
        *more = ++calls < 5000 ? -1 : 0;
        return calls % 2;
    };
    tickToTheEnd();
    EXPECT_EQ(calls, 5000);
}

TEST_F(TickTest, failureOfTheFetchItself_endsTheTickAndIsToldByNumberDescriptionAndSource)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    RZTerminate(); // from now on the bridge refuses to ask for more
    pump->timerThread_Timer();
    EXPECT_EQ(backend.counts["RZGetNotification"], 0);
    EXPECT_EQ(messages, Lines{L"5, Invalid procedure call or argument, velkviadd|velkviadd"});
}

TEST_F(TickTest, timer_ticksByItself)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    const DWORD end = GetTickCount() + 5000;
    MSG message{};
    while (journal.empty() && GetTickCount() < end && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(TickTest, tenThousandNotificationsAtOnce_areAllHandled)
{
    for (int number = 0; number < 10000; ++number)
        backend.prompt(L"RZ_TASK_COMPLETE", 1);
    tickToTheEnd();
    EXPECT_EQ(journal.size(), 10000u);
}

TEST_F(TickTest, tickThatHasWorkedForATenthOfASecond_leavesTheRestToTheNext)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 1);
    beSlow();
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
    EXPECT_TRUE(pump->hasRest());
    pump->timerThread_Timer();
    EXPECT_EQ(journal.size(), 3u);
    EXPECT_FALSE(pump->hasRest());
}

TEST_F(TickTest, slowTickWithoutMoreNotifications_leavesNothing)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    beSlow();
    pump->timerThread_Timer();
    EXPECT_FALSE(pump->hasRest());
}

TEST_F(TickTest, rest_isNothingOfASessionThatIsOver)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 1);
    beSlow();
    pump->timerThread_Timer();
    session.enter(SessionState::ending);
    pump->timerThread_Timer();
    EXPECT_EQ(backend.counts["RZGetNotification"], 1);
    EXPECT_FALSE(pump->hasRest());
}

TEST_F(TickTest, timerInsideABoxOfATick_drainsWhatComesMeanwhile)
{
    backend.prompt(L"first", 3);
    duringMessage = [this] {
        backend.prompt(L"MINIMIZE_MSWIN", 1);
        EXPECT_TRUE(loopUntil([this] { return !journal.empty(); }));
    };
    EXPECT_TRUE(loopUntil([this] { return !messages.empty(); })); // the outer tick is the timer's, too
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(TickTest, timer_hasAnIntervalOf100Milliseconds)
{
    // Ten periods of polls: far from those of half or of twice the interval, whatever the machine does meanwhile.
    const DWORD begun = GetTickCount();
    EXPECT_TRUE(loopUntil([this] { return backend.counts["RZGetNotification"] >= 10; }));
    EXPECT_GE(GetTickCount() - begun, 900u);
}

} // namespace
} // namespace velk
