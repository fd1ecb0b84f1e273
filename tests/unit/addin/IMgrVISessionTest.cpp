// Whose session it is, and when it begins and ends.
#include "base/module.h"
#include "IMgrVIFixture.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

using Calls = std::vector<std::string>;

class IMgrVISessionTest : public test::IMgrVIFixture {};

// The pump's class is taken, so it cannot be made: the start fails after RZInitialize.
void failToOpen(const com_ptr<IMgrVI>& manager)
{
    WNDCLASSW taken{};
    taken.lpfnWndProc = DefWindowProcW;
    taken.hInstance = module::instance();
    taken.lpszClassName = L"velkviadd.notificationThreadFrm";
    ASSERT_TRUE(RegisterClassW(&taken));
    EXPECT_FALSE(SUCCEEDED(manager->openRZCommunication()));
    UnregisterClassW(taken.lpszClassName, taken.hInstance);
}

TEST_F(IMgrVISessionTest, closeRZCommunicationTwice_endsTheSessionOnce)
{
    manager->openRZCommunication();
    manager->closeRZCommunication();
    manager->closeRZCommunication();
    EXPECT_EQ(std::count(backend.calls.begin(), backend.calls.end(), "RZTerminate()"), 1);
}

TEST_F(IMgrVISessionTest, secondManagersFailedStart_leavesTheRunningSessionAlone)
{
    manager->openRZCommunication();
    manager->createRZUI();
    const com_ptr<IMgrVI> second = makeObject<IMgrVI>();
    second->setupIM(nullptr, nullptr);
    EXPECT_FALSE(SUCCEEDED(second->openRZCommunication()));
    second->deleteRZUI();
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 0);
    EXPECT_TRUE(isSplashScreenLoaded());
    EXPECT_TRUE(GetModuleHandleW(L"velkvsadd.dll"));
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(IMgrVISessionTest, secondManager_getsNoSessionBesideTheRunningOne)
{
    manager->openRZCommunication();
    manager->createRZUI();
    const com_ptr<IMgrVI> second = makeObject<IMgrVI>();
    second->setupIM(ide.dte.get(), ide.addin.get());
    EXPECT_EQ(Error::fromResult(second->openRZCommunication()).number(), errorPermissionDenied);
    EXPECT_FALSE(SUCCEEDED(second->createRZUI()));
    second->closeRZCommunication();
    second->deleteRZUI();
    EXPECT_EQ(backend.calls.size(), 1u);
    EXPECT_TRUE(isSplashScreenLoaded());
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 0);
}

TEST_F(IMgrVISessionTest, secondManagerAfterTheEndOfTheFirst_getsASession)
{
    manager->openRZCommunication();
    manager->closeRZCommunication();
    const com_ptr<IMgrVI> second = makeObject<IMgrVI>();
    second->setupIM(ide.dte.get(), ide.addin.get());
    EXPECT_EQ(second->openRZCommunication(), S_OK);
    second->closeRZCommunication();
    second->deleteRZUI();
}

TEST_F(IMgrVISessionTest, windowOfAnotherManager_staysWhenThisOneEnds)
{
    requests().showDevView();
    const com_ptr<IMgrVI> second = makeObject<IMgrVI>();
    second->setupIM(ide.dte.get(), ide.addin.get());
    EXPECT_EQ(second->openRZCommunication(), S_OK);
    second->closeRZCommunication();
    second->deleteRZUI();
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 0);
    EXPECT_TRUE(serverViewWindow().window);
}

TEST_F(IMgrVISessionTest, openingTwice_opensOneSession)
{
    manager->openRZCommunication();
    manager->openRZCommunication();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(IMgrVISessionTest, closingInsideRZInitialize_isCarriedOutWhenItReturns)
{
    const auto initialize = backend.on.RZInitialize;
    backend.on.RZInitialize = [this, initialize](int32_t type, auto* file, auto* empty) {
        manager->closeRZCommunication();
        EXPECT_EQ(std::count(backend.calls.begin(), backend.calls.end(), "RZTerminate()"), 0);
        return initialize(type, file, empty);
    };
    manager->openRZCommunication();
    EXPECT_EQ(backend.calls.back(), "RZTerminate()");
}

TEST_F(IMgrVISessionTest, openingAgainAfterAClose_opensANewSession)
{
    manager->openRZCommunication();
    manager->closeRZCommunication();
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
    EXPECT_EQ(backend.calls.size(), 3u);
}

TEST_F(IMgrVISessionTest, windowThatWasThereBeforeAFailedStart_stays)
{
    manager->createRZUI();
    failToOpen(manager);
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 0);
    EXPECT_TRUE(serverViewWindow().window);
}

TEST_F(IMgrVISessionTest, startThatFailsAfterRZInitialize_isUndone)
{
    failToOpen(manager);
    EXPECT_EQ(backend.calls.back(), "RZTerminate()");
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 1);
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
}

} // namespace
} // namespace velk
