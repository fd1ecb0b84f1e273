// What the IDE and the tool do inside the add-in's own calls: clicks, ends and connections at the wrong time.

#include "connectFixture.h"

#include "support/failureLog.h"

namespace velk {
namespace {

using test::Lines;

class ConnectSessionTest : public test::ConnectFixture {
protected:
    // Everything that a session leaves behind is gone, in the order of an ordinary end.
    void expectOrderlyEnd()
    {
        EXPECT_EQ(timesCalled("RZTerminate()"), 1);
        EXPECT_EQ(backend.calls.back(), "RZTerminate()");
        EXPECT_LT(placeInJournal(L"Entry.Delete()"), placeInJournal(L"<RZTerminate()>"));
        EXPECT_LT(placeInJournal(L"<RZTerminate()>"), placeInJournal(L"ToolWindow.Close()"));
        expectNothingLeft();
    }
    void expectNothingLeft()
    {
        EXPECT_FALSE(serverViewWindow().window);
        EXPECT_FALSE(isSplashScreenLoaded());
        EXPECT_FALSE(ide.entryEvents->isConnected());
        EXPECT_EQ(messages, Lines{});
        const int polls = backend.counts["RZGetNotification"];
        letTheTimerRun();
        EXPECT_EQ(backend.counts["RZGetNotification"], polls);
    }
    // Three periods of the pump's timer.
    static void letTheTimerRun()
    {
        const DWORD end = GetTickCount() + 350;
        MSG message{};
        while (GetTickCount() < end) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
        }
    }
};

TEST_F(ConnectSessionTest, clickInsideRZInitialize_doesNothing)
{
    inside(backend.on.RZInitialize, [this] { ide.clickEntry(); });
    start();
    EXPECT_EQ(backend.calls, std::vector<std::string>{"RZInitialize(3, \"C:\\work\\rz\\orders.rzv\", \"\")"});
}

TEST_F(ConnectSessionTest, clickWhileTheSolutionIsRead_doesNothing)
{
    ide.dte->function(L"Solution", [this](const auto&) {
        ide.clickEntry();
        return test::asVariant(ide.solution);
    });
    start();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(ConnectSessionTest, clickInsideABuildingStep_doesNothing)
{
    ide.controls->function(L"Count", [this](const auto&) {
        ide.clickEntry();
        return variant(int32_t{0});
    });
    ide.bars->value(L"ActiveMenuBar", test::asVariant(ide.bar));
    start();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(ConnectSessionTest, disconnectionInsideRZInitialize_isCarriedOutInOrderWhenItReturns)
{
    shareJournal();
    bool wasTerminatedInside = true;
    inside(backend.on.RZInitialize, [&] {
        disconnect();
        wasTerminatedInside = journalHas(L"<RZTerminate()>");
    });
    start();
    EXPECT_FALSE(wasTerminatedInside);
    EXPECT_FALSE(journalHas(L"Entry.Enabled = False"));
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, disconnectionInsideCreateToolWindow_closesTheWindowAndOpensNoSession)
{
    ide.windows->function(L"CreateToolWindow", [this](const std::vector<variant>& arguments) {
        disconnect();
        *arguments.at(4).get().ppdispVal = com_ptr<IDispatch>(ide.document.get()).detach();
        return test::asVariant(ide.toolWindow);
    });
    start();
    EXPECT_EQ(backend.calls, std::vector<std::string>{});
    EXPECT_FALSE(journalHas(L"Document.setupGUI()"));
    EXPECT_LT(placeInJournal(L"Entry.Delete()"), placeInJournal(L"ToolWindow.Close()"));
    EXPECT_TRUE(journalHas(L"ToolWindow.Close()"));
    expectNothingLeft();
}

TEST_F(ConnectSessionTest, disconnectionInsideABuildingStep_stopsTheStepAndEndsInOrder)
{
    shareJournal();
    ide.bars->function(L"Add", [this](const auto&) {
        disconnect();
        return test::asVariant(ide.bar);
    });
    ide.bar->value(L"Visible", variant(false))->function(L"Delete", [](const auto&) { return variant(); });
    start();
    EXPECT_EQ(ide.journal.back(), L"Bar.Delete()");
    EXPECT_FALSE(journalHas(L"Bar.Visible = True"));
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, disconnectionInsideATextOfTheBuilding_endsInOrder)
{
    shareJournal();
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [this, text](int32_t number, char* buffer, int32_t capacity) {
        if (number == 645)
            disconnect();
        return text(number, buffer, capacity);
    };
    start();
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, disconnectionWhileTheEntryIsDisabled_endsInOrder)
{
    shareJournal();
    ide.entry->whenAssigned(L"Enabled", [this] { disconnect(); });
    start();
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, disconnectionInsideTheConnection_leavesNoEntry)
{
    ide.controls->function(L"Add", [this](const auto&) {
        disconnect();
        return test::asVariant(ide.entry);
    });
    load();
    EXPECT_EQ(ide.journal.back(), L"Entry.Delete()");
    EXPECT_FALSE(journalHas(L"Entry.Caption = \"Rozel\""));
    EXPECT_FALSE(ide.entryEvents->isConnected());
}

TEST_F(ConnectSessionTest, secondDisconnectionInsideRZTerminate_doesNothing)
{
    shareJournal();
    inside(backend.on.RZTerminate, [this] { disconnect(); });
    start();
    disconnect();
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Entry.Delete()"), 1);
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"ToolWindow.Close()"), 1);
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, secondDisconnectionInsideAStepOfTheEnd_doesNothing)
{
    shareJournal();
    ide.entry->function(L"Delete", [this](const auto&) {
        disconnect();
        return variant();
    });
    ide.toolWindow->function(L"Close", [this](const auto&) {
        disconnect();
        return variant();
    });
    start();
    disconnect();
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Entry.Delete()"), 1);
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, clickInsideTheEnd_startsNothing)
{
    inside(backend.on.RZTerminate, [this] { ide.clickEntry(); });
    start();
    disconnect();
    EXPECT_EQ(backend.calls.size(), 2u);
}

TEST_F(ConnectSessionTest, connectionInsideTheEndOfTheSameObject_isRefused)
{
    HRESULT answer = S_OK;
    inside(backend.on.RZTerminate,
           [&] { answer = connect->OnConnection(ide.dte.get(), ext_cm_AfterStartup, ide.addin.get(), nullptr); });
    start();
    disconnect();
    EXPECT_EQ(answer, E_UNEXPECTED);
}

TEST_F(ConnectSessionTest, secondConnectionOfAConnectedObject_changesNothing)
{
    start();
    connect->OnConnection(ide.dte.get(), ext_cm_AfterStartup, ide.addin.get(), nullptr);
    disconnect();
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Controls.Add(1)"),
              std::count(ide.journal.begin(), ide.journal.end(), L"Entry.Delete()"));
    EXPECT_EQ(timesCalled("RZTerminate()"), 1);
}

TEST_F(ConnectSessionTest, objectThatIsConnectedAgainAfterItsEnd_startsAgain)
{
    start();
    disconnect();
    connect->OnConnection(ide.dte.get(), ext_cm_AfterStartup, ide.addin.get(), nullptr);
    ide.clickEntry();
    EXPECT_EQ(backend.calls.size(), 3u);
}

TEST_F(ConnectSessionTest, hostThatLetsGoWithoutAWord_getsTheSameEnd)
{
    shareJournal();
    start();
    connect.reset();
    expectOrderlyEnd();
}

TEST_F(ConnectSessionTest, noProjectBoxThatOutlivesTheSession_isHarmless)
{
    ide.solution->value(L"Count", variant(int32_t{0}));
    duringMessage = [this] { disconnect(); };
    start();
    EXPECT_EQ(ide.journal.back(), L"Entry.Delete()");
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(ConnectSessionTest, disconnectionWhileTheNoProjectTextIsFetched_showsNoBox)
{
    ide.solution->value(L"Count", variant(int32_t{0}));
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [this, text](int32_t number, char* buffer, int32_t capacity) {
        if (number == 669)
            disconnect();
        return text(number, buffer, capacity);
    };
    start();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(ide.journal.back(), L"Entry.Delete()");
}

TEST_F(ConnectSessionTest, ideThatFailsToTellItsSolution_isToldAndTheEntryStays)
{
    ide.dte->failing(L"Solution", Error(errorPermissionDenied));
    start();
    EXPECT_EQ(messages, Lines{L"Permission denied|0|velkviadd"});
    ide.dte->mend(L"Solution");
    ide.clickEntry();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(ConnectSessionTest, sessionThatAScriptClosed_isTakenDownAllTheSame)
{
    start();
    const auto manager = documentsManager().tryAs<_IMgrVI>();
    ASSERT_TRUE(manager);
    manager->closeRZCommunication();
    disconnect();
    EXPECT_TRUE(journalHas(L"Entry.Delete()"));
    EXPECT_TRUE(journalHas(L"ToolWindow.Close()"));
    EXPECT_EQ(timesCalled("RZTerminate()"), 1);
    expectNothingLeft();
}

TEST_F(ConnectSessionTest, startThatAScriptCloses_isClosedWhenTheCallReturns)
{
    inside(backend.on.RZInitialize, [this] { documentsManager().tryAs<_IMgrVI>()->closeRZCommunication(); });
    start();
    EXPECT_EQ(timesCalled("RZTerminate()"), 1);
    EXPECT_EQ(messages, Lines{});
    disconnect();
    EXPECT_EQ(timesCalled("RZTerminate()"), 1);
    expectNothingLeft();
}

TEST_F(ConnectSessionTest, sessionThatAScriptOpenedAgain_isEnded)
{
    start();
    const auto manager = documentsManager().tryAs<_IMgrVI>();
    manager->closeRZCommunication();
    manager->openRZCommunication();
    disconnect();
    EXPECT_EQ(timesCalled("RZTerminate()"), 2);
    expectNothingLeft();
}

TEST_F(ConnectSessionTest, entryThatCouldNotBeListenedTo_isWhenTheStartupIsComplete)
{
    ide.dte->failing(L"Events", Error(errorPermissionDenied));
    load();
    EXPECT_FALSE(ide.entryEvents->isConnected());
    ide.dte->mend(L"Events");
    connect->OnStartupComplete(nullptr);
    EXPECT_TRUE(ide.entryEvents->isConnected());
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Controls.Add(1)"), 1);
}

TEST_F(ConnectSessionTest, windowsThatCannotBeBuilt_leaveTheSessionRunning)
{
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [this, text](int32_t number, char* buffer, int32_t capacity) {
        if (number == 645) {
            serverViewWindow() = {};
            ide.windows->failing(L"CreateToolWindow", Error(errorPermissionDenied));
        }
        return text(number, buffer, capacity);
    };
    start();
    EXPECT_FALSE(ide.entry->read(L"Enabled").asBool());
    EXPECT_EQ(messages, Lines{});
    EXPECT_FALSE(isSplashScreenLoaded());
    ide.clickEntry();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(ConnectSessionTest, failedStart_isReportedOnce)
{
    load();
    ide.windows->failing(L"CreateToolWindow", Error(errorPermissionDenied));
    const test::FailureLog log;
    ide.clickEntry();
    EXPECT_EQ(std::count(log.lines.begin(), log.lines.end(), L"Connect.start: 70"), 1);
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(ConnectSessionTest, end_unloadsThePumpBeforeRZTerminate)
{
    HWND pump = nullptr;
    bool wasThere = true;
    inside(backend.on.RZTerminate, [&] { wasThere = IsWindow(pump); });
    start();
    pump = FindWindowExW(HWND_MESSAGE, nullptr, L"velkviadd.notificationThreadFrm", nullptr);
    ASSERT_TRUE(pump);
    disconnect();
    EXPECT_FALSE(wasThere);
}

} // namespace
} // namespace velk
