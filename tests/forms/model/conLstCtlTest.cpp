#include "model/conLstCtl.h"
#include "support/fakeBackend.h"
#include "support/fakeManager.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

class conLstCtlTest : public testing::Test {
protected:
    conLstCtlTest()
    {
        backend.numbersAsTexts = true;
        manager->projects = {L"Web", L"Tools"};
        manager->dataEnvironments = {{L"Web", {L"DE1", L"DE2"}}, {L"Tools", {L"DE3"}}};
        manager->connections = {{L"Web/DE1", {L"C1", L"C2"}}, {L"Web/DE2", {L"C3"}}, {L"Tools/DE3", {L"C4"}}};
        form.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
    }
    void press(int id) { SendMessageW(form.hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void choose(int combo, int index)
    {
        form.selectInList(combo, index);
        SendMessageW(form.hwnd(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), 0);
    }

    test::FakeBackend backend;
    test::Lines journal;
    com_ptr<test::FakeManager> manager = makeObject<test::FakeManager>(journal);
    conLstCtl form;
};

TEST_F(conLstCtlTest, namingACommand_showsTheConnectionsAndItsTexts)
{
    form.setupGUI(L"RZCommand", true);
    EXPECT_TRUE(form.isVisible(conLstCtl::conCombo));
    EXPECT_TRUE(form.isVisible(conLstCtl::conLbl));
    EXPECT_EQ(form.caption(), L"#525");
    EXPECT_EQ(form.text(conLstCtl::descLbl), L"#532");
    EXPECT_EQ(form.text(conLstCtl::nameLbl), L"#526");
    EXPECT_EQ(form.text(conLstCtl::conLbl), L"#530");
    EXPECT_EQ(form.text(conLstCtl::nameTxt), L"RZCommand");
}

TEST_F(conLstCtlTest, namingAConnection_hidesTheConnections)
{
    form.setupGUI(L"RZConnection", false);
    EXPECT_FALSE(form.isVisible(conLstCtl::conCombo));
    EXPECT_FALSE(form.isVisible(conLstCtl::conLbl));
    EXPECT_EQ(form.caption(), L"#524");
    EXPECT_EQ(form.text(conLstCtl::descLbl), L"#531");
    EXPECT_EQ(form.text(conLstCtl::nameLbl), L"#527");
}

TEST_F(conLstCtlTest, sharedCaptions_comeFromTheTool)
{
    form.setupGUI(L"", false);
    EXPECT_EQ(form.text(conLstCtl::projLbl), L"#528");
    EXPECT_EQ(form.text(conLstCtl::dataEnvLbl), L"#529");
    EXPECT_EQ(form.text(conLstCtl::okBtn), L"#520");
    EXPECT_EQ(form.text(conLstCtl::cancelBtn), L"#521");
}

TEST_F(conLstCtlTest, lists_areFilledFromTheFirstEntriesDown)
{
    form.setupGUI(L"x", true);
    EXPECT_EQ(form.selectedInList(conLstCtl::projCombo), L"Web");
    EXPECT_EQ(form.selectedInList(conLstCtl::dataEnvCombo), L"DE1");
    EXPECT_EQ(form.selectedInList(conLstCtl::conCombo), L"C1");
    EXPECT_EQ(form.listCount(conLstCtl::conCombo), 2);
}

TEST_F(conLstCtlTest, otherProject_refillsTheListsBelow)
{
    form.setupGUI(L"x", true);
    choose(conLstCtl::projCombo, 1);
    EXPECT_EQ(form.selectedInList(conLstCtl::dataEnvCombo), L"DE3");
    EXPECT_EQ(form.selectedInList(conLstCtl::conCombo), L"C4");
}

TEST_F(conLstCtlTest, otherDataEnvironment_refillsTheConnections)
{
    form.setupGUI(L"x", true);
    choose(conLstCtl::dataEnvCombo, 1);
    EXPECT_EQ(form.selectedInList(conLstCtl::conCombo), L"C3");
}

TEST_F(conLstCtlTest, ok_takesTheChoices)
{
    form.setupGUI(L"RZCommand", true);
    form.setText(conLstCtl::nameTxt, L"getOrders");
    press(conLstCtl::okBtn);
    EXPECT_EQ(form.userDecision(), L"True");
    EXPECT_EQ(form.selectedName(), L"getOrders");
    EXPECT_EQ(form.selectedProj(), L"Web");
    EXPECT_EQ(form.selectedDataEnv(), L"DE1");
    EXPECT_EQ(form.selectedCon(), L"C1");
}

TEST_F(conLstCtlTest, emptyProjectList_leavesAllListsEmptyAndOkStillTrue)
{
    manager->projects.clear();
    form.setupGUI(L"", true);
    press(conLstCtl::okBtn);
    EXPECT_EQ(form.listCount(conLstCtl::dataEnvCombo), 0);
    EXPECT_EQ(form.listCount(conLstCtl::conCombo), 0);
    EXPECT_EQ(form.userDecision(), L"True");
    EXPECT_EQ(form.selectedProj() + form.selectedDataEnv() + form.selectedCon(), L"");
}

TEST_F(conLstCtlTest, namingAConnection_leavesSelectedConEmptyEvenIfTheListHasEntries)
{
    form.setupGUI(L"RZConnection", false);
    EXPECT_EQ(form.listCount(conLstCtl::conCombo), 2);
    press(conLstCtl::okBtn);
    EXPECT_EQ(form.selectedCon(), L"");
}

TEST_F(conLstCtlTest, cancelAfterOk_isFalseAndKeepsTheOldResults)
{
    form.setupGUI(L"first", true);
    press(conLstCtl::okBtn);
    form.setText(conLstCtl::nameTxt, L"second");
    press(conLstCtl::cancelBtn);
    EXPECT_EQ(form.userDecision(), L"False");
    EXPECT_EQ(form.selectedName(), L"first");
}

TEST_F(conLstCtlTest, failingManager_failsTheSetUp)
{
    manager->failWith = E_FAIL;
    EXPECT_THROW(form.setupGUI(L"x", true), Error);
}

TEST_F(conLstCtlTest, title_isTheCaption)
{
    form.setTitle(L"Anything");
    EXPECT_EQ(form.caption(), L"Anything");
}

TEST_F(conLstCtlTest, shownModally_waitsUntilAButtonIsPressed)
{
    form.setupGUI(L"x", true);
    PostMessageW(form.hwnd(), WM_COMMAND, conLstCtl::okBtn, 0);
    form.showModal();
    EXPECT_EQ(form.userDecision(), L"True");
    EXPECT_TRUE(form.isLoaded());
    EXPECT_FALSE(IsWindowVisible(form.hwnd()));
}

TEST_F(conLstCtlTest, escape_cancels)
{
    form.setupGUI(L"x", true);
    PostMessageW(form.item(conLstCtl::nameTxt), WM_KEYDOWN, VK_ESCAPE, 0);
    form.showModal();
    EXPECT_EQ(form.userDecision(), L"False");
}

TEST_F(conLstCtlTest, unloadedWhileItWaits_endsTheWait)
{
    form.setupGUI(L"x", true);
    struct Timer {
        static void CALLBACK fire(HWND, UINT, UINT_PTR id, DWORD)
        {
            KillTimer(nullptr, id);
            Dialog::hideAll();
        }
    };
    SetTimer(nullptr, 0, 10, Timer::fire);
    form.showModal();
    EXPECT_EQ(form.userDecision(), L"False");
}

} // namespace
} // namespace velk
