#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

std::function<void(HWND)> onWindowGoing;

LRESULT CALLBACK windowHook(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_DESTROYWND)
        onWindowGoing(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Tells of each window of this thread that is about to be destroyed.
HHOOK watchWindowsGo(std::function<void(HWND)> deed)
{
    onWindowGoing = std::move(deed);
    return SetWindowsHookExW(WH_CBT, windowHook, nullptr, GetCurrentThreadId());
}

class PumpTest : public test::PumpFixture {};

TEST_F(PumpTest, addedProject_showsTheViewAndUnloadsTheSplashScreen)
{
    backend.projects[5] = {.lHdl = 5, .strName = L"orders", .strPath = L"C:\\work\\rz\\orders.rzv"};
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"showDevView"});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(PumpTest, addedObjectThatCannotBeFetched_isToldWithText657)
{
    backend.notify(8, 1, 2, 8, 77);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
}

TEST_F(PumpTest, changedObjectThatCannotBeFetched_isToldByNumberDescriptionAndSource)
{
    backend.notify(6, 1, 2, 8, 77);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"35601, Element not found, velkviadd|velkviadd"});
}

TEST_F(PumpTest, failingHandler_doesNotStopTheNextNotification)
{
    backend.notify(6, 1, 2, 8, 77);
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(PumpTest, failingManagerWhileAProjectIsAdded_isToldWithText657)
{
    manager->failWith = E_FAIL;
    backend.projects[5] = {.lHdl = 5, .strName = L"orders", .strPath = L""};
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
}

TEST_F(PumpTest, addedProjectThatCannotBeFetched_takesTheSplashScreenAwayBeforeItIsTold)
{
    splashScreen();
    duringMessage = [] { EXPECT_FALSE(isSplashScreenLoaded()); };
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(PumpTest, contentsOfAFolderThatIsNotSelected_areNotAskedFor)
{
    backend.folders[30] = {};
    backend.notify(5, 1, 2, 7, 30);
    pump->timerThread_Timer();
    EXPECT_EQ(backend.calls, std::vector<std::string>{});
}

TEST_F(PumpTest, unknownObjectKind_isPassedOver)
{
    for (const int32_t type : {5, 6, 7, 8})
        backend.notify(type, 1, 2, 99, 30);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(backend.calls, std::vector<std::string>{});
}

TEST_F(PumpTest, addedProject_showsItsTextBeforeTheView)
{
    std::wstring shown(64, L'\0');
    manager->onShowDevView = [&] { GetWindowTextW(splashScreen().statusLbl(), shown.data(), 64); };
    backend.projects[5] = {.strName = L"orders"};
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_STREQ(shown.c_str(), L"Done");
}

TEST_F(PumpTest, splashScreenHiddenWhileTheViewIsShown_isMadeVisibleASecondTime)
{
    HWND splash = nullptr;
    bool wasVisibleAtTheEnd = false;
    manager->onShowDevView = [&] {
        splash = GetAncestor(splashScreen().statusLbl(), GA_PARENT);
        ShowWindow(splash, SW_HIDE);
    };
    const HHOOK hook = watchWindowsGo([&](HWND window) {
        if (window == splash)
            wasVisibleAtTheEnd = IsWindowVisible(window);
    });
    backend.projects[5] = {.lHdl = 5, .strName = L"orders", .strPath = L""};
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    UnhookWindowsHookEx(hook);
    EXPECT_TRUE(wasVisibleAtTheEnd);
}

TEST_F(PumpTest, failureReports_haveNoIconAndOnlyOk)
{
    for (const int32_t type : {6, 8})
        backend.notify(type, 1, 2, 8, 77);
    pump->timerThread_Timer();
    EXPECT_EQ(styles, (std::vector<uint32_t>{0, 0}));
}

TEST_F(PumpTest, unknownTypeAtTheEdges_isPassedOver)
{
    for (const int32_t type : {-1, 0, 1, 11, 2147483647})
        backend.notify(type, 1, 2, 8, 77);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

} // namespace
} // namespace velk
