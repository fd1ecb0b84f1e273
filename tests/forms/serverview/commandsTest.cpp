#include "commandsFixture.h"

#include <array>
#include <cstddef>
#include <memory>

namespace velk {
namespace {

using enum MenuItem;
using test::Calls;
using test::Lines;

class CommandsTest : public test::CommandsFixture {};

TEST_F(CommandsTest, treeItem_actsOnTheSelectedNode)
{
    tree().select(L"K10");
    backend.calls.clear();
    view.clickMenuItem(conDisconnectmnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(10, 8)"});
}

TEST_F(CommandsTest, objectItem_actsOnTheSelectedRow)
{
    showProcedure();
    view.clickMenuItem(devObjViewSrcMnuItem);
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 25)", "RZObjectDoAction(100, 18)"}));
}

TEST_F(CommandsTest, nothingSelected_isToldWithItsNumber)
{
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_EQ(messages, Lines{L"Object variable or With block variable not set:91|velkviadd"});
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(CommandsTest, corruptNodeKey_arrivesAsTypeMismatch)
{
    addFolderNode(L"K1", L"7", L"X99", L"odd", L"False");
    tree().select(L"X99");
    backend.calls.clear();
    messages.clear();
    view.clickMenuItem(devObjFolderNewMnuItem);
    EXPECT_EQ(messages, Lines{L"Type mismatch:13|velkviadd"});
}

TEST_F(CommandsTest, adoCode_asksWithProjectComponentAndLanguage)
{
    manager->model->project = L"Web";
    manager->model->component = L"a.asp";
    tree().select(L"K10");
    backend.calls.clear();
    view.clickMenuItem(adoConCodeMnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoGetADO(10, 3, \"Web\", \"a.asp\")"});
}

TEST_F(CommandsTest, connectionObjectWithoutADataEnvironment_showsText670AndNeverCallsTheBackend)
{
    tree().select(L"K10");
    backend.calls.clear();
    view.clickMenuItem(adoConObjMnuItem);
    EXPECT_EQ(messages, Lines{L"#670|velkviadd"});
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(CommandsTest, commandObjectWithoutADataEnvironment_showsText671)
{
    showProcedure();
    view.clickMenuItem(addCmdObjMnuItem);
    EXPECT_EQ(messages, Lines{L"#671|velkviadd"});
    EXPECT_EQ(backend.calls, Calls{});
}

class DataEnvironmentTest : public CommandsTest {
protected:
    DataEnvironmentTest()
    {
        manager->model->hasDataEnvironment = true;
        manager->projects = {L"Web"};
        manager->dataEnvironments = {{L"Web", {L"DE1"}}};
        manager->connections = {{L"Web/DE1", {L"C1"}}};
    }
    // The button of the connection dialog that is pressed when it waits.
    void pressWhenShown(int button)
    {
        pressed() = button;
        SetTimer(nullptr, 0, 10, pressNow);
    }
    static void CALLBACK pressNow(HWND, UINT, UINT_PTR id, DWORD)
    {
        KillTimer(nullptr, id);
        PostMessageW(connectionDialog().hwnd(), WM_COMMAND, static_cast<WPARAM>(pressed()), 0);
    }
    static int& pressed()
    {
        static int button = 0;
        return button;
    }
};

TEST_F(DataEnvironmentTest, connectionObject_isAskedForWithTheUsersChoices)
{
    tree().select(L"K10");
    backend.calls.clear();
    pressWhenShown(conLstCtl::okBtn);
    view.clickMenuItem(adoConObjMnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZConnectionDoGetDE(10, \"Web\", \"DE1\", \"RZConnection\")"});
}

TEST_F(DataEnvironmentTest, commandObject_isAskedForWithTheConnection)
{
    showProcedure();
    pressWhenShown(conLstCtl::okBtn);
    view.clickMenuItem(addCmdObjMnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZCommandDoGetDE(100, \"Web\", \"DE1\", \"C1\", \"RZCommand\")"});
}

TEST_F(DataEnvironmentTest, cancelledDialog_callsNoBackendFunctionAndIsUnloaded)
{
    tree().select(L"K10");
    backend.calls.clear();
    pressWhenShown(conLstCtl::cancelBtn);
    view.clickMenuItem(adoConObjMnuItem);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_FALSE(connectionDialog().isLoaded());
}

TEST_F(DataEnvironmentTest, viewThatGoesWhileTheDataEnvironmentIsSought_opensNoDialog)
{
    auto other = std::make_unique<svrViewCtl>();
    other->create(host, {0, 0, 400, 300});
    other->setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
    other->setupGUI();
    addProject();
    other->serverTreeView().select(L"K10");
    backend.calls.clear();
    manager->model->whileDataEnvironmentIsSought = [&] { other.reset(); };
    pressWhenShown(conLstCtl::okBtn);
    other->clickMenuItem(adoConObjMnuItem);
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(CommandsTest, openedProject_closesTheLoadedOneFirst)
{
    chosenFile = L"D:\\other\\new.rzv";
    tree().select(L"K1");
    backend.calls.clear();
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(1, 21)", "RZProjectDoAccess(\"D:\\other\", \"new.rzv\", 2)"}));
    EXPECT_EQ(manager->rzFile, L"D:\\other\\new.rzv");
    EXPECT_EQ(title, L"#610");
    EXPECT_EQ(asked, L"C:\\work\\rz");
}

TEST_F(CommandsTest, openingStoresThePathInTheManagerOnly)
{
    manager->ideType = 1;
    chosenFile = L"D:\\other\\new.rzv";
    tree().select(L"K1");
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_THAT(journal, testing::Contains(L"setRZFileName"));
    EXPECT_THAT(journal, testing::Not(testing::Contains(testing::StartsWith(L"saveRZFileName"))));
}

TEST_F(CommandsTest, cancelledOpen_doesNotCloseTheLoadedProject)
{
    tree().select(L"K1");
    backend.calls.clear();
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(manager->rzFile, L"C:\\work\\rz\\orders.rzv");
}

TEST_F(CommandsTest, noCurrentProjectFileOrOneWithoutAFolder_startsTheChooserWithAnEmptyFolder)
{
    tree().select(L"K1");
    manager->rzFile = L"";
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(asked, L"(none)");
    manager->rzFile = L"orders.rzv";
    view.clickMenuItem(projOpenMnuItem);
    EXPECT_EQ(asked, L"(none)");
}

TEST_F(CommandsTest, saveAs_neverReachesTheDispatcherAndSavesUnderTheChosenPath)
{
    chosenFile = L"D:\\other\\copy.rzv";
    tree().select(L"K1");
    backend.calls.clear();
    view.clickMenuItem(projSaveAsMnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZProjectDoAccess(\"D:\\other\\copy.rzv\", \"\", 4)"});
    EXPECT_EQ(manager->rzFile, L"D:\\other\\copy.rzv");
    EXPECT_EQ(title, L"#611");
}

TEST_F(CommandsTest, saveAsWithAnIdeTypeOtherThanOne_leavesTheStoredNameUnchanged)
{
    chosenFile = L"D:\\other\\copy.rzv";
    view.clickMenuItem(projSaveAsMnuItem);
    EXPECT_THAT(journal, testing::Not(testing::Contains(testing::StartsWith(L"saveRZFileName"))));
    manager->ideType = 1;
    view.clickMenuItem(projSaveAsMnuItem);
    EXPECT_THAT(journal, testing::Contains(L"saveRZFileName(D:\\other\\copy.rzv)"));
}

TEST_F(CommandsTest, save_isAnActionLikeAnyOther)
{
    tree().select(L"K1");
    backend.calls.clear();
    view.clickMenuItem(projSaveMnuItem);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(1, 3)"});
}

TEST_F(CommandsTest, sourceSafeItemOfARowWithoutAFile_showsText683WithBothCaptions)
{
    backend.numbersAsTexts = false;
    backend.texts[683] = L"use %1 before %2";
    view.menus()[devObjViewSrcMnuItem].caption = L"View Source";
    view.menus()[devObjChkInMnuItem].caption = L"Check In";
    showProcedure(L"");
    view.clickMenuItem(devObjChkInMnuItem);
    EXPECT_EQ(messages, Lines{L"use View Source before Check In|velkviadd"});
}

TEST_F(CommandsTest, sourceSafeItemWithoutARow_doesNothing)
{
    view.clickMenuItem(devObjChkOutMnuItem);
    EXPECT_EQ(messages, Lines{});
}

TEST_F(CommandsTest, sourceSafeItemWithoutAnOpenDatabase_saysSo)
{
    backend.texts[675] = L"not %1";
    backend.texts[682] = L"log in";
    showProcedure();
    view.clickMenuItem(devObjAddFileMnuItem);
    EXPECT_EQ(messages, Lines{L"not C:\\src\\raise.sql\r\nlog in|velkviadd"});
}

} // namespace
} // namespace velk
