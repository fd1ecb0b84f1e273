#include "conLstCtlFixture.h"
#include "support/shownControls.h"

namespace velk {
namespace {

class conLstCtlTest : public test::ConLstCtlFixture {};

TEST_F(conLstCtlTest, namingACommand_showsTheConnectionsAndTheOfferedName)
{
    form.setupGUI(L"RZConnection", false);
    form.setupGUI(L"RZCommand", true);
    EXPECT_TRUE(form.isVisible(conLstCtl::conCombo));
    EXPECT_TRUE(form.isVisible(conLstCtl::conLbl));
    EXPECT_EQ(form.text(conLstCtl::nameTxt), L"RZCommand");
}

TEST_F(conLstCtlTest, namingAConnection_hidesTheConnections)
{
    form.setupGUI(L"RZConnection", false);
    EXPECT_FALSE(form.isVisible(conLstCtl::conCombo));
    EXPECT_FALSE(form.isVisible(conLstCtl::conLbl));
    EXPECT_EQ(form.text(conLstCtl::nameTxt), L"RZConnection");
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
    EXPECT_EQ(test::captionOf(form), L"Anything");
}

TEST_F(conLstCtlTest, decisionBeforeAnyButton_isFalse)
{
    EXPECT_EQ(form.userDecision(), L"False");
}

TEST_F(conLstCtlTest, end_letsTheManagerGoAndForgetsTheResults)
{
    form.setupGUI(L"x", true);
    press(conLstCtl::okBtn);
    form.terminate();
    manager->AddRef();
    EXPECT_EQ(manager->Release(), 1u); // the test's own
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(form.userDecision(), L"False");
    EXPECT_EQ(form.selectedName() + form.selectedProj() + form.selectedDataEnv() + form.selectedCon(), L"");
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
