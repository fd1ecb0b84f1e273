#include "notify/notificationThreadFrm.h"
#include "platform/com_object.h"
#include "support/fakeBackend.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using Lines = std::vector<std::wstring>;

// A manager that writes down what it is asked for.
class FakeManager : public ComObject<FakeManager, dual<_IntegrationMgr>> {
public:
    explicit FakeManager(Lines& journal) : m_journal(journal) {}
    HRESULT failWith = S_OK;
    long ideType = 3;

    STDMETHODIMP showDevView() noexcept override { return note(L"showDevView"); }
    STDMETHODIMP setRZFileName(BSTR*) noexcept override { return note(L"setRZFileName"); }
    STDMETHODIMP getRZFileName(BSTR* name) noexcept override
    {
        *name = SysAllocString(L"C:\\work\\rz\\orders.rzv");
        return note(L"getRZFileName");
    }
    STDMETHODIMP openRZProject() noexcept override { return note(L"openRZProject"); }
    STDMETHODIMP getProjList(SAFEARRAY**) noexcept override { return note(L"getProjList"); }
    STDMETHODIMP getDataEnvList(SAFEARRAY**, BSTR*) noexcept override { return note(L"getDataEnvList"); }
    STDMETHODIMP getConnectionList(SAFEARRAY**, BSTR*, BSTR*) noexcept override { return note(L"getConnectionList"); }
    STDMETHODIMP get_getModel(_ModelUtil** model) noexcept override
    {
        *model = nullptr;
        return note(L"getModel");
    }
    STDMETHODIMP get_getIdeType(long* type) noexcept override
    {
        *type = ideType;
        return S_OK;
    }
    STDMETHODIMP minimizeVSAppWin() noexcept override { return note(L"minimizeVSAppWin"); }
    STDMETHODIMP restoreVSAppWinState() noexcept override { return note(L"restoreVSAppWinState"); }

private:
    HRESULT note(const wchar_t* what) noexcept
    {
        m_journal.push_back(what);
        return failWith;
    }
    Lines& m_journal;
};

class PumpTest : public testing::Test {
protected:
    PumpTest()
    {
        backend.texts = {{646, L"Opening"}, {647, L"Done"}, {657, L"Add failed"}, {658, L"Remove failed"}};
        setMessagePresenter([this](const std::wstring& text, uint32_t, const std::wstring& title) {
            messages.push_back(text + L"|" + title);
            if (duringMessage)
                duringMessage();
            return IDOK;
        });
        pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
    }
    ~PumpTest() override
    {
        if (pump)
            pump->unload();
        unloadSplashScreen();
        setMessagePresenter({});
    }

    test::FakeBackend backend;
    Lines messages;
    Lines journal;
    std::function<void()> duringMessage;
    com_ptr<FakeManager> manager = makeObject<FakeManager>(journal);
    std::shared_ptr<notificationThreadFrm> pump = notificationThreadFrm::load();
};

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
    duringMessage = [this] {
        pump->unload();
        pump.reset();
    };
    pump->timerThread_Timer();
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(backend.counts["RZGetNotification"], 1);
}

TEST_F(PumpTest, backendThatFailsAndPromisesMore_doesNotHoldTheTick)
{
    backend.on.RZGetNotification = [](void*, int16_t* more) {
        *more = -1;
        return 0;
    };
    pump->timerThread_Timer();
    SUCCEED() << "the tick came back";
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

} // namespace
} // namespace velk
