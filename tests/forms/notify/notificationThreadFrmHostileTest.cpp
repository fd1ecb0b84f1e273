// A Backend that does what it should not while the pump asks it.
#include "backend/calls.h"
#include "pumpFixture.h"
#include "support/badManners.h"

#include <limits>

namespace velk {
namespace {

using test::Lines;

constexpr int32_t greatest = std::numeric_limits<int32_t>::max();
constexpr int32_t least = std::numeric_limits<int32_t>::min();

class HostilePumpTest : public test::PumpFixture {
protected:
    HostilePumpTest() { RZInitialize(3, L"a.rzv", L""); }
    // One notification of each type there is, and the next ones beside them, with these numbers in it.
    void notifyOfEachType(int32_t objectType, int32_t handle)
    {
        for (const int32_t type : {least, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, greatest})
            backend.notify(type, handle, handle, objectType, handle);
    }
    void failEachFetch()
    {
        backend.on.RZGetNotification = [](test::wire::trzNotify*, int16_t*) -> int32_t { test::divideByZero(); };
    }
};

TEST_F(HostilePumpTest, faultInTheFetch_isToldAndTheNextTickAsksAgain)
{
    const auto fetch = std::exchange(backend.on.RZGetNotification, nullptr);
    failEachFetch();
    pump->timerThread_Timer();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].rfind(L"51, Internal error: RZGetNotification in velkvsadd.dll: division by zero", 0), 0u);
    backend.on.RZGetNotification = fetch;
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(HostilePumpTest, faultInEachFetch_isToldThreeTimesAndThePumpIsStill)
{
    failEachFetch();
    pump->timerThread_Timer();
    pump->timerThread_Timer();
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 3u);
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 3u);
}

TEST_F(HostilePumpTest, thirdFaultInsideAHandler_endsTheTick)
{
    backend.on.RZGetText = [](int32_t, test::wire::trzText*) -> int32_t { test::divideByZero(); };
    backend.prompt(L"one", 3);
    backend.prompt(L"two", 3);
    backend.prompt(L"three", 3);
    backend.prompt(L"four", 3);
    pump->timerThread_Timer();
    EXPECT_EQ(backend.notifications.size(), 1u);
}

TEST_F(HostilePumpTest, greatestNumbersInEachNotification_arePassedOver)
{
    notifyOfEachType(greatest, greatest);
    pump->timerThread_Timer();
    EXPECT_TRUE(backend.notifications.empty());
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HostilePumpTest, leastNumbersInEachNotification_arePassedOver)
{
    notifyOfEachType(least, least);
    pump->timerThread_Timer();
    EXPECT_TRUE(backend.notifications.empty());
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HostilePumpTest, greatestNumberAsEachKindThatThereIs_isNotFoundAndNoMore)
{
    for (int32_t kind = 4; kind <= 17; ++kind)
        notifyOfEachType(kind, greatest);
    pump->timerThread_Timer();
    EXPECT_TRUE(backend.notifications.empty());
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HostilePumpTest, fetchThatDestroysThePumpsWindow_endsTheTick)
{
    backend.on.RZGetNotification = [this](test::wire::trzNotify*, int16_t* more) {
        DestroyWindow(pump->hwnd());
        *more = -1;
        return 1;
    };
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(HostilePumpTest, fetchThatShowsABoxOfItsOwn_isNotAskedMeanwhileAndTheRestFollows)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    const auto fetch = backend.on.RZGetNotification;
    int asked = 0;
    backend.on.RZGetNotification = [&](auto* record, int16_t* more) {
        ++asked;
        MSG message{}; // the box's own message loop, for two periods of the timer
        for (int ticks = 0; ticks < 2 && GetMessageW(&message, nullptr, 0, 0) > 0; DispatchMessageW(&message))
            ticks += message.message == WM_TIMER ? 1 : 0;
        return fetch(record, more);
    };
    pump->timerThread_Timer();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

} // namespace
} // namespace velk
