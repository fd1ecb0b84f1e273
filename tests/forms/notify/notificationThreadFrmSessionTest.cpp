// Sessions that end inside the calls of a tick.
#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

class PumpSessionTest : public test::PumpFixture {};

TEST_F(PumpSessionTest, unloadInsideAMessageBox_asksTheBackendNothingMore)
{
    backend.prompt(L"first", 3, L"");
    backend.prompt(L"second", 3, L"");
    duringMessage = [this] { end(); };
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(backend.counts["RZGetNotification"], 1);
}

TEST_F(PumpSessionTest, pumpThatEveryoneLetsGoOfInItsTick_livesUntilTheTickIsOver)
{
    backend.prompt(L"first", 3, L"");
    const std::weak_ptr<notificationThreadFrm> ticking = pump;
    bool wasAlive = false;
    duringMessage = [&] {
        end();
        wasAlive = !ticking.expired();
    };
    pump->timerThread_Timer();
    EXPECT_TRUE(wasAlive);
    EXPECT_TRUE(ticking.expired());
}

TEST_F(PumpSessionTest, unloadedPump_letsItsManagerGoAlsoWhereSomebodyHoldsIt)
{
    const auto references = [this] { return manager->AddRef() + manager->Release(); };
    const ULONG before = references();
    const auto held = pump;
    end();
    EXPECT_LT(references(), before);
}

TEST_F(PumpSessionTest, notificationFetchedWhileTheSessionEndsInThatCall_isNotCarriedOut)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    const auto fetch = backend.on.RZGetNotification;
    backend.on.RZGetNotification = [this, fetch](auto* record, int16_t* more) {
        const int32_t status = fetch(record, more);
        end();
        return status;
    };
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_EQ(backend.counts["RZGetText"], 0);
    EXPECT_EQ(journal, Lines{});
}

TEST_F(PumpSessionTest, textFetchedWhileTheSessionEndsInThatCall_isNotShown)
{
    backend.prompt(L"a message", 3);
    const auto fetch = backend.on.RZGetText;
    backend.on.RZGetText = [this, fetch](int32_t handle, auto* record) {
        end();
        return fetch(handle, record);
    };
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpSessionTest, failureOfAnEndedSession_isNotTold)
{
    backend.on.RZProjectGet = [this](int32_t, auto*) {
        end();
        return 0;
    };
    backend.notify(8, 5, 0, 5, 5);
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(PumpSessionTest, failureTextFetchedWhileTheSessionEnds_isNotTold)
{
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [this, text](int32_t number, char* buffer, int32_t capacity) {
        end();
        return text(number, buffer, capacity);
    };
    backend.notify(8, 5, 0, 5, 5);
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpSessionTest, sessionThatEndsWhileTheViewIsShown_makesNoSplashScreenAgain)
{
    manager->onShowDevView = [this] {
        unloadSplashScreen();
        end();
    };
    backend.projects[5] = {.lHdl = 5, .strName = L"orders", .strPath = L""};
    backend.notify(8, 5, 0, 5, 5);
    const auto ticking = pump;
    ticking->timerThread_Timer();
    EXPECT_FALSE(isSplashScreenLoaded());
    EXPECT_EQ(messages, Lines{});
}

} // namespace
} // namespace velk
