#include "backend/calls.h"
#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

class PumpTest : public test::PumpFixture {};

TEST_F(PumpTest, typeOutside2To10WithFalseMoreFlag_doesNothingAndEndsTheTick)
{
    backend.notify(11, 1, 2, 8, 9);
    pump->timerThread_Timer();
    EXPECT_EQ(backend.calls, (std::vector<std::string>{}));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpTest, severalNotifications_areHandledInOneTickInQueueOrder)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    backend.prompt(L"a message", 3, L"");
    backend.prompt(L"RZ_TASK_COMPLETE", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, (Lines{L"minimizeVSAppWin", L"restoreVSAppWinState"}));
    EXPECT_EQ(messages, Lines{L"a message|velkviadd"});
}

TEST_F(PumpTest, taskCompleteWithButtons_restoresAndShowsNoPrompt)
{
    backend.prompt(L"RZ_TASK_COMPLETE", 1, L"IDE_QUESTION#67#Title");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"restoreVSAppWinState"});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpTest, commandWordInOtherCase_isNoCommand)
{
    backend.prompt(L"rz_task_complete", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{});
}

TEST_F(PumpTest, unknownTextOfType1WithoutButtons_doesNothing)
{
    backend.prompt(L"hello", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(journal, Lines{});
}

TEST_F(PumpTest, textOfType2_doesNothing)
{
    backend.prompt(L"hello", 2, L"IDE_QUESTION#67#Title");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpTest, initComplete_showsText646AndOpensTheProject)
{
    backend.prompt(L"RZ_INIT_COMPLETE", 1, L"");
    pump->timerThread_Timer();
    EXPECT_TRUE(isSplashScreenLoaded());
    EXPECT_EQ(journal, Lines{L"openRZProject"});
}

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

TEST_F(PumpTest, failingManagerInATextHandler_showsNothing)
{
    manager->failWith = E_FAIL;
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(PumpTest, failingManagerWhileAProjectIsAdded_isToldWithText657)
{
    manager->failWith = E_FAIL;
    backend.projects[5] = {.lHdl = 5, .strName = L"orders", .strPath = L""};
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
}

TEST_F(PumpTest, tickInsideAMessageBox_drainsTheRest)
{
    backend.prompt(L"first", 3, L"");
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    duringMessage = [this] { pump->timerThread_Timer(); };
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(PumpTest, unloadInsideAMessageBox_asksTheBackendNothingMore)
{
    backend.prompt(L"first", 3, L"");
    backend.prompt(L"second", 3, L"");
    duringMessage = [this] { end(); };
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(backend.counts["RZGetNotification"], 1);
}

TEST_F(PumpTest, backendThatFailsForEverAndPromisesMore_endsTheTickWithinAThousandCalls)
{
    int calls = 0;
    backend.on.RZGetNotification = [&](void*, int16_t* more) {
        ++calls;
        *more = -1;
        return 0;
    };
    pump->timerThread_Timer();
    EXPECT_GT(calls, 1);
    EXPECT_LE(calls, 1000);
}

TEST_F(PumpTest, slowBackendThatFailsForEver_endsTheTickAfterAboutASecond)
{
    int calls = 0;
    backend.on.RZGetNotification = [&](void*, int16_t* more) {
        ++calls;
        Sleep(600);
        *more = -1;
        return 0;
    };
    pump->timerThread_Timer();
    EXPECT_LE(calls, 3);
}

TEST_F(PumpTest, statusZeroWithTheMoreFlagSet_isPassedOnAndTheTickGoesOn)
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

TEST_F(PumpTest, failuresBetweenSuccesses_doNotEndTheTick)
{
    int calls = 0;
    backend.on.RZGetNotification = [&](void*, int16_t* more) {
        *more = ++calls < 5000 ? -1 : 0;
        return calls % 2;
    };
    pump->timerThread_Timer();
    EXPECT_EQ(calls, 5000);
}

TEST_F(PumpTest, failureOfTheFetchItself_endsTheTickAndIsToldByNumberDescriptionAndSource)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1);
    RZTerminate(); // from now on the bridge refuses to ask for more
    pump->timerThread_Timer();
    EXPECT_EQ(backend.counts["RZGetNotification"], 0);
    EXPECT_EQ(messages, Lines{L"5, Invalid procedure call or argument, velkviadd|velkviadd"});
}

TEST_F(PumpTest, notificationFetchedWhileTheSessionEndsInThatCall_isNotCarriedOut)
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

TEST_F(PumpTest, textFetchedWhileTheSessionEndsInThatCall_isNotShown)
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

TEST_F(PumpTest, failureOfAnEndedSession_isNotTold)
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

TEST_F(PumpTest, failureTextFetchedWhileTheSessionEnds_isNotTold)
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

TEST_F(PumpTest, addedProjectThatCannotBeFetched_takesTheSplashScreenAwayBeforeItIsTold)
{
    splashScreen();
    duringMessage = [] { EXPECT_FALSE(isSplashScreenLoaded()); };
    backend.notify(8, 5, 0, 5, 5);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"Add failed|velkviadd"});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(PumpTest, projectThatCannotBeOpened_takesTheSplashScreenAway)
{
    manager->failWith = E_FAIL;
    backend.prompt(L"RZ_INIT_COMPLETE", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"openRZProject"});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(PumpTest, sessionThatEndsWhileTheViewIsShown_makesNoSplashScreenAgain)
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

TEST_F(PumpTest, timer_ticksByItself)
{
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    const DWORD end = GetTickCount() + 5000;
    MSG message{};
    while (journal.empty() && GetTickCount() < end && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    EXPECT_EQ(journal, Lines{L"minimizeVSAppWin"});
}

TEST_F(PumpTest, unknownTextWithoutButtonsOrOfTypeTwo_doesNothing)
{
    backend.prompt(L"RZ_ELEPHANT", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 2);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(journal, Lines{});
}

TEST_F(PumpTest, tenThousandNotificationsAtOnce_areAllHandled)
{
    for (int number = 0; number < 10000; ++number)
        backend.prompt(L"RZ_TASK_COMPLETE", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.size(), 10000u);
}

TEST_F(PumpTest, sqlText_reachesTheModelWithItsRange)
{
    backend.sqlTexts[70] = {.strVSProject = L"P",
                            .strVSFile = L"a.sql",
                            .lSelFromLine = 1,
                            .lSelFromColumn = 2,
                            .lSelToLine = 3,
                            .lSelToColumn = 4,
                            .strText = L"select 1"};
    backend.notify(3, 1, 2, 8, 70);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"insertSQLCode(select 1, 1, 2, 3, 4, , a.sql)"); // the project has no room in the record
}

TEST_F(PumpTest, adoText_reachesTheModel)
{
    backend.adoTexts[71] = {.strVSProject = L"P", .strVSFile = L"a.asp", .strText = L"Set c = Nothing"};
    backend.notify(4, 1, 2, 8, 71);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"insertClientCode(Set c = Nothing, P, a.asp)");
}

TEST_F(PumpTest, dataEnvironmentConnection_reachesTheModel)
{
    backend.connectionDEs[72] = {
        .strVSProject = L"P", .strDEName = L"DE1", .strDEConnection = L"C1", .strConnectionString = L"DSN=x"};
    backend.notify(9, 1, 2, 6, 72);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"addADOConnection(DSN=x, C1, DE1, P)");
}

TEST_F(PumpTest, dataEnvironmentCommand_reachesTheModelWithItsAdoType)
{
    backend.commandDEs[73] = {.strVSProject = L"P",
                              .strDEName = L"DE1",
                              .strDEConnection = L"C1",
                              .strDECommand = L"K",
                              .strCommandText = L"p",
                              .lCommandType = 1,
                              .bHasParemeters = true};
    backend.notify(10, 1, 2, 8, 73);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"AddADOCommand(4, p, K, C1, DE1, P)");
}

TEST_F(PumpTest, commandTypeNine_isAddedWithAdoTypeZero)
{
    backend.commandDEs[73] = {.strVSProject = L"P",
                              .strDEName = L"DE1",
                              .strDEConnection = L"C1",
                              .strDECommand = L"K",
                              .strCommandText = L"p",
                              .lCommandType = 9,
                              .bHasParemeters = false};
    backend.notify(10, 1, 2, 8, 73);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"AddADOCommand(0, p, K, C1, DE1, P)");
}

// A word that the process's code page has.
std::wstring foreignWord()
{
    return GetACP() == 1252 ? L"Gr\u00F6\u00DFe" : L"\x8868\x793A";
}

TEST_F(PumpTest, messageOutsideAscii_arrivesInTheProcessesCodePage)
{
    backend.prompt(foreignWord() + L"\r\n" + foreignWord(), 3);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{foreignWord() + L"\r\n" + foreignWord() + L"|velkviadd"});
}

TEST_F(PumpTest, messageOf64Kilobytes_isShownWhole)
{
    backend.prompt(std::wstring(65536, L'x'), 3);
    pump->timerThread_Timer();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].size(), 65536u + 10u);
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

struct PayloadFailure {
    int32_t type;
    int32_t text;
};
class PayloadFailureTest : public PumpTest, public testing::WithParamInterface<PayloadFailure> {};

TEST_P(PayloadFailureTest, payloadThatCannotBeFetched_isToldByItsText)
{
    backend.texts[GetParam().text] = L"failed";
    backend.notify(GetParam().type, 1, 2, 8, 99);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"failed|velkviadd"});
}

TEST_P(PayloadFailureTest, modelThatFails_isToldByItsText)
{
    backend.texts[GetParam().text] = L"failed";
    backend.sqlTexts[99] = {};
    backend.adoTexts[99] = {};
    backend.connectionDEs[99] = {};
    backend.commandDEs[99] = {};
    manager->model->failWith = E_FAIL;
    backend.notify(GetParam().type, 1, 2, 8, 99);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"failed|velkviadd"});
}

INSTANTIATE_TEST_SUITE_P(Payloads, PayloadFailureTest,
                         testing::Values(PayloadFailure{3, 659}, PayloadFailure{4, 660}, PayloadFailure{9, 655},
                                         PayloadFailure{10, 656}));

} // namespace
} // namespace velk
