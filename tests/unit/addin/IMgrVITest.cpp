#include "com/automation.h"
#include "IMgrVIFixture.h"
#include "ui/splashscrnFrm.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using Calls = std::vector<std::string>;

class IMgrVITest : public test::IMgrVIFixture {};

TEST_F(IMgrVITest, setupIM_keepsTheIdeAndTheAddin)
{
    com_ptr<IDispatch> read;
    EXPECT_EQ(manager->get_VIInstance(read.put()), S_OK);
    EXPECT_EQ(read.get(), ide.dte.get());
    EXPECT_EQ(manager->get_VBAddin(read.put()), S_OK);
    EXPECT_EQ(read.get(), ide.addin.get());
    EXPECT_EQ(requests().getIdeType(), 3);
}

TEST_F(IMgrVITest, minimiseAndRestore_bringTheMaximisedStateBack)
{
    ide.mainWindow->value(L"WindowState", variant(int32_t{2}));
    requests().minimizeVSAppWin();
    EXPECT_EQ(windowState(), 1);
    requests().restoreVSAppWinState();
    EXPECT_EQ(windowState(), 2);
}

TEST_F(IMgrVITest, minimiseTwice_stillRemembersTheFirstState)
{
    ide.mainWindow->value(L"WindowState", variant(int32_t{2}));
    requests().minimizeVSAppWin();
    requests().minimizeVSAppWin();
    requests().restoreVSAppWinState();
    EXPECT_EQ(windowState(), 2);
}

TEST_F(IMgrVITest, minimiseAfterTheUserRestoredByHand_bringsTheUsersStateBack)
{
    for (const int32_t byHand : {0, 2}) {
        ide.mainWindow->value(L"WindowState", variant(2 - byHand));
        requests().minimizeVSAppWin();
        ide.mainWindow->value(L"WindowState", variant(byHand));
        requests().minimizeVSAppWin();
        EXPECT_EQ(windowState(), 1);
        requests().restoreVSAppWinState();
        EXPECT_EQ(windowState(), byHand);
    }
}

TEST_F(IMgrVITest, secondRestore_doesNothing)
{
    requests().minimizeVSAppWin();
    requests().restoreVSAppWinState();
    ide.mainWindow->value(L"WindowState", variant(int32_t{2})); // by the user
    requests().restoreVSAppWinState();
    EXPECT_EQ(windowState(), 2);
}

TEST_F(IMgrVITest, restoreWithNothingRemembered_doesNothing)
{
    ide.mainWindow->value(L"WindowState", variant(int32_t{1}));
    requests().restoreVSAppWinState();
    EXPECT_EQ(windowState(), 1);
}

TEST_F(IMgrVITest, setRZFileName_isReadBackAndNothingElse)
{
    requests().setRZFileName(L"C:\\x\\y.rzv");
    EXPECT_EQ(requests().getRZFileName(), L"C:\\x\\y.rzv");
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(IMgrVITest, openRZProject_opensTheCurrentFileByFolderAndName)
{
    requests().setRZFileName(L"C:\\x\\y.rzv");
    requests().openRZProject();
    EXPECT_EQ(backend.calls, Calls{"RZProjectDoAccess(\"C:\\x\", \"y.rzv\", 2)"});
}

TEST_F(IMgrVITest, openRZProjectWithoutFolder_passesAnEmptyFolder)
{
    requests().setRZFileName(L"y.rzv");
    requests().openRZProject();
    EXPECT_EQ(backend.calls, Calls{"RZProjectDoAccess(\"\", \"y.rzv\", 2)"});
}

TEST_F(IMgrVITest, listRequests_leaveTheListsEmpty)
{
    EXPECT_TRUE(requests().getProjList().empty());
    EXPECT_TRUE(requests().getDataEnvList(L"Project1").empty());
    EXPECT_TRUE(requests().getConnectionList(L"DataEnvironment1", L"Project1").empty());
    EXPECT_EQ(requests().getModel().GetDevLanguage(), L"3");
}

TEST_F(IMgrVITest, openAndCreateUi_makeOneToolWindow)
{
    manager->openRZCommunication();
    manager->createRZUI();
    requests().showDevView();
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 1);
    EXPECT_EQ(timesInJournal(L"ToolWindow.Visible = True"), 1);
}

TEST_F(IMgrVITest, showDevViewAfterTheDocumentWentAway_makesItAnew)
{
    manager->openRZCommunication();
    serverViewWindow() = {};
    requests().showDevView();
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 2);
}

TEST_F(IMgrVITest, createRZUI_takesFourOfTheSixSplashSteps)
{
    manager->openRZCommunication();
    manager->createRZUI();
    ASSERT_TRUE(isSplashScreenLoaded());
    EXPECT_EQ(SendMessageW(splashScreen().ProgressBar1(), PBM_GETPOS, 0, 0), 4);
    EXPECT_EQ(SendMessageW(splashScreen().ProgressBar1(), PBM_GETRANGE, FALSE, 0), 6);
}

TEST_F(IMgrVITest, hostThatTakesTheDocumentAsAVariant_isServedToo)
{
    ide.windows->function(L"CreateToolWindow", [this](const std::vector<variant>& arguments) {
        if (arguments.at(4).type() != (VT_VARIANT | VT_BYREF))
            throw Error(errorTypeMismatch);
        *arguments.at(4).get().pvarVal = asVariant(ide.document).get();
        ide.document->AddRef();
        return asVariant(ide.toolWindow);
    });
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 1);
}

// A host that takes the document by reference to an object, and leaves it empty.
class EmptyDocumentTest : public IMgrVITest {
protected:
    EmptyDocumentTest()
    {
        ide.windows->function(L"CreateToolWindow", [this](const std::vector<variant>& arguments) {
            const bool asVariant = arguments.at(4).type() == (VT_VARIANT | VT_BYREF);
            if (asVariant && fillsTheVariant) {
                *arguments.at(4).get().pvarVal = test::asVariant(ide.document).get();
                ide.document->AddRef();
            }
            return test::asVariant(ide.toolWindow);
        });
    }
    bool fillsTheVariant = false;
};

TEST_F(EmptyDocumentTest, otherForm_isTriedAndTheFirstWindowClosed)
{
    fillsTheVariant = true;
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 1);
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 1);
}

TEST_F(EmptyDocumentTest, windowsOwnDocument_isTaken)
{
    ide.toolWindow->value(L"Object", test::asVariant(ide.document));
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 1);
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 0);
}

TEST_F(EmptyDocumentTest, hostWithoutAnyDocument_failsWithError91AndKeepsNoWindow)
{
    EXPECT_EQ(Error::fromResult(manager->openRZCommunication()).number(), errorObjectNotSet);
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 2);
    EXPECT_FALSE(serverViewWindow().window);
}

TEST_F(IMgrVITest, splash_showsTheTextsOfTheBuildingInOrder)
{
    std::vector<int32_t> texts;
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [&](int32_t number, char* buffer, int32_t capacity) {
        if (number >= 641 && number <= 647)
            texts.push_back(number);
        return text(number, buffer, capacity);
    };
    manager->createRZUI();
    EXPECT_EQ(texts, (std::vector<int32_t>{641, 643, 644, 645, 642}));
}

TEST_F(IMgrVITest, toolbar_isBuiltBeforeTheMenusAndBothBetweenTheirTexts)
{
    std::vector<int32_t> texts;
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [&](int32_t number, char* buffer, int32_t capacity) {
        if (number == 300 || number == 201 || (number >= 643 && number <= 645))
            texts.push_back(number);
        return text(number, buffer, capacity);
    };
    manager->createRZUI();
    EXPECT_EQ(texts, (std::vector<int32_t>{643, 300, 644, 201, 201, 201, 645}));
}

TEST_F(IMgrVITest, projectShownWhileTheEntriesAreBuilt_leavesTheSplashScreenAway)
{
    const auto text = backend.on.RZGetString;
    backend.on.RZGetString = [&](int32_t number, char* buffer, int32_t capacity) {
        if (number == 644)
            unloadSplashScreen();
        return text(number, buffer, capacity);
    };
    manager->createRZUI();
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(IMgrVITest, deleteRZUI_takesTheToolbarAwayWhileTheManagerLives)
{
    ide.bars->function(L"Add", [this](const auto&) { return test::asVariant(ide.bar); });
    ide.bar->value(L"Visible", variant(false))->function(L"Delete", [](const auto&) { return variant(); });
    manager->createRZUI();
    manager->deleteRZUI();
    EXPECT_EQ(timesInJournal(L"Bar.Delete()"), 1);
}

TEST_F(IMgrVITest, deletionInsideTheBuilding_isHarmless)
{
    ide.bars->function(L"Add", [this](const auto&) {
        manager->deleteRZUI();
        EXPECT_FALSE(SUCCEEDED(manager->createRZUI()));
        return test::asVariant(ide.bar);
    });
    manager->createRZUI();
    EXPECT_EQ(timesInJournal(L"CommandBars.Add(\"\", 1, False, True)"), 1);
}

TEST_F(IMgrVITest, buildingAfterTheEnd_showsNoSplashScreen)
{
    manager->openRZCommunication();
    manager->closeRZCommunication();
    EXPECT_FALSE(SUCCEEDED(manager->createRZUI()));
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(IMgrVITest, documentWhoseSetUpFails_isClosedAndMadeAnew)
{
    ide.document->failing(L"setupGUI", Error(errorPermissionDenied));
    EXPECT_FALSE(SUCCEEDED(manager->openRZCommunication()));
    EXPECT_EQ(timesInJournal(L"ToolWindow.Close()"), 1);
    ide.document->mend(L"setupGUI");
    EXPECT_EQ(manager->openRZCommunication(), S_OK);
}

TEST_F(IMgrVITest, viewRequestedWhileTheWindowIsBeingMade_makesNoSecondOne)
{
    ide.windows->function(L"CreateToolWindow", [this](const std::vector<variant>& arguments) {
        EXPECT_FALSE(attempt([this] { requests().showDevView(); }) && timesInJournal(L"Document.setupGUI()") != 0);
        *arguments.at(4).get().ppdispVal = com_ptr<IDispatch>(ide.document.get()).detach();
        return test::asVariant(ide.toolWindow);
    });
    manager->openRZCommunication();
    EXPECT_EQ(timesInJournal(L"Document.setupGUI()"), 1);
}

TEST_F(IMgrVITest, lateBoundCaller_findsTheManagersOwnMembers)
{
    const com_ptr<IDispatch> face(manager.tryAs<IDispatch>());
    EXPECT_TRUE(automation::hasMember(face.get(), L"openRZCommunication"));
    EXPECT_EQ(automation::getObject(face, L"VIInstance").get(), ide.dte.get());
}

} // namespace
} // namespace velk
