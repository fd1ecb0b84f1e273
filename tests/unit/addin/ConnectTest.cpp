#include "base/module.h"
#include "connectFixture.h"

namespace velk {
namespace {

using Calls = std::vector<std::string>;
using test::Lines;

class ConnectTest : public test::ConnectFixture {};

TEST_F(ConnectTest, connection_setsTheUiFontFromTexts100And101)
{
    load();
    EXPECT_EQ(uiFont().name, L"Tahoma");
    EXPECT_EQ(uiFont().size, 10);
    EXPECT_EQ(uiFont().charset, 1);
}

TEST_F(ConnectTest, message101Empty_fontSizeIs9)
{
    backend.texts.erase(101);
    load();
    EXPECT_EQ(uiFont().size, 9);
}

TEST_F(ConnectTest, fractionalFontSize_isRoundedHalvesToEven)
{
    backend.texts[101] = L"8.5 points";
    load();
    EXPECT_EQ(uiFont().size, 8);
}

TEST_F(ConnectTest, fontSizeNineAndAHalf_isRoundedToTheEvenTen)
{
    backend.texts[101] = L"9.5";
    load();
    EXPECT_EQ(uiFont().size, 10);
}

TEST_F(ConnectTest, connection_setsTheCharacterSetFromTheName)
{
    backend.texts[100] = L"\u00B1\u00BC\u00B8\u00B2";
    load();
    EXPECT_EQ(uiFont().charset, 134);
}

TEST_F(ConnectTest, barOfTheEntry_isAskedForByAnIntegerIndex)
{
    VARTYPE asked = VT_EMPTY;
    ide.bars->function(L"Item", [&](const std::vector<variant>& arguments) {
        asked = arguments.at(0).type();
        return test::asVariant(ide.bar);
    });
    load();
    EXPECT_EQ(asked, VT_I2);
}

TEST_F(ConnectTest, barThatComesAfterTheConnection_getsTheEntryWhenTheStartupIsComplete)
{
    ide.bars->failing(L"Item", Error(errorInvalidCall));
    load();
    EXPECT_FALSE(ide.entryEvents->isConnected());
    ide.bars->mend(L"Item");
    connect->OnStartupComplete(nullptr);
    EXPECT_EQ(ide.entry->read(L"Caption").asText(), L"Rozel");
    EXPECT_TRUE(ide.entryEvents->isConnected());
}

TEST_F(ConnectTest, entryThatIsThere_isNotMadeAgainWhenTheStartupIsComplete)
{
    load();
    connect->OnStartupComplete(nullptr);
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Controls.Add(1)"), 1);
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"DTE.Events"), 1);
}

TEST_F(ConnectTest, startupCompleteAfterTheEnd_makesNoEntry)
{
    ide.bars->failing(L"Item", Error(errorInvalidCall));
    load();
    disconnect();
    ide.bars->mend(L"Item");
    connect->OnStartupComplete(nullptr);
    EXPECT_FALSE(journalHas(L"Controls.Add(1)"));
}

TEST_F(ConnectTest, connection_addsTheEntryToBar13)
{
    load();
    EXPECT_EQ(ide.journal, (Lines{L"DTE.Windows", L"Windows.Count", L"DTE.MainWindow", L"DTE.CommandBars",
                                  L"CommandBars.Item(13)", L"Bar.Controls", L"Controls.Add(1)",
                                  L"Entry.Caption = \"Rozel\"", L"Entry.OnAction = \"velkviadd.Connect\"",
                                  L"Entry.PasteFace()", L"DTE.Events", L"Events.CommandBarEvents(<object>)"}));
}

TEST_F(ConnectTest, addToAddInCommandBar_givesAControlWithTheCaption)
{
    load();
    bstr caption(L"Extra");
    com_ptr<CommandBarControl> control;
    EXPECT_EQ(connect->AddToAddInCommandBar(caption.ref(), control.put()), S_OK);
    EXPECT_EQ(static_cast<IDispatch*>(control.get()), ide.entry.get());
    EXPECT_EQ(ide.entry->read(L"Caption").asText(), L"Extra");
}

TEST_F(ConnectTest, addToAddInCommandBarWithoutTheBar_givesNothing)
{
    load();
    bstr caption(L"Extra");
    ide.bars->function(L"Item", [](const auto&) { return variant(); });
    com_ptr<CommandBarControl> control;
    EXPECT_EQ(connect->AddToAddInCommandBar(caption.ref(), control.put()), S_OK);
    EXPECT_FALSE(control);
    ide.bars->failing(L"Item", Error(errorInvalidCall));
    EXPECT_EQ(connect->AddToAddInCommandBar(caption.ref(), control.put()), S_OK);
    EXPECT_FALSE(control);
}

TEST_F(ConnectTest, connection_doesNotContactTheTool)
{
    load();
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(ConnectTest, connectionThatFailsHalfway_staysLoadedWithWhatWasSetUp)
{
    ide.controls->failing(L"Add", Error(errorPermissionDenied));
    load();
    EXPECT_EQ(uiFont().name, L"Tahoma");
    EXPECT_FALSE(ide.entryEvents->isConnected());
}

TEST_F(ConnectTest, clickWithoutOpenProject_shows669AndLeavesTheEntryEnabled)
{
    ide.solution->value(L"Count", variant(int32_t{0}));
    load();
    ide.clickEntry();
    EXPECT_EQ(messages, Lines{L"No project|0|velkviadd"});
    EXPECT_TRUE(ide.entry->read(L"Enabled").asBool());
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(ConnectTest, clickWithoutOpenProject_readsTheSolutionTwiceAndTheSecondsCount)
{
    ide.solution->value(L"Count", variant(int32_t{0}));
    load();
    ide.journal.clear();
    ide.clickEntry();
    EXPECT_EQ(ide.journal, (Lines{L"DTE.Solution", L"DTE.Solution", L"Solution.Count"}));
}

TEST_F(ConnectTest, clickAfterAProjectWasOpened_starts)
{
    ide.solution->value(L"Count", variant(int32_t{0}));
    load();
    ide.clickEntry();
    ide.solution->value(L"Count", variant(int32_t{1}));
    ide.clickEntry();
    EXPECT_EQ(backend.calls, Calls{"RZInitialize(3, \"C:\\work\\rz\\orders.rzv\", \"\")"});
    EXPECT_FALSE(ide.entry->read(L"Enabled").asBool());
}

TEST_F(ConnectTest, clickWithoutSolutionObject_startsWithProject1)
{
    ide.dte->value(L"Solution", variant());
    load();
    ide.clickEntry();
    EXPECT_THAT(backend.calls, testing::ElementsAre(testing::HasSubstr("\\rz\\project1.rzv")));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ConnectTest, solutionThatDoesNotNameItsFile_startsWithProject1)
{
    const com_ptr<test::FakeObject> nameless = test::fakeObject(L"Solution", &ide.journal);
    nameless->value(L"Count", variant(int32_t{1}));
    ide.dte->value(L"Solution", test::asVariant(nameless));
    load();
    ide.clickEntry();
    EXPECT_THAT(backend.calls, testing::ElementsAre(testing::HasSubstr("\\rz\\project1.rzv")));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ConnectTest, secondClickAfterAStart_startsNothing)
{
    load();
    ide.clickEntry();
    ide.clickEntry();
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST_F(ConnectTest, start_makesOneToolWindowAndSetsItsDocumentUpOnce)
{
    load();
    ide.clickEntry();
    EXPECT_EQ(std::count(ide.journal.begin(), ide.journal.end(), L"Document.setupGUI()"), 1);
    EXPECT_TRUE(journalHas(L"Windows.CreateToolWindow(<object>, \"velkviadd.serverViewDoc\", \"Server View\", "
                           L"\"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B5}\", <reference>)"));
    EXPECT_TRUE(journalHas(L"Document.IMgr = <object>"));
}

TEST_F(ConnectTest, startThatFails_isToldAndUndone)
{
    ide.windows->failing(L"CreateToolWindow", Error(errorPermissionDenied));
    load();
    ide.clickEntry();
    EXPECT_EQ(messages, Lines{L"Permission denied|0|velkviadd"});
    EXPECT_TRUE(ide.entry->read(L"Enabled").asBool());
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(ConnectTest, clickAfterAFailedStart_triesAgain)
{
    ide.windows->failing(L"CreateToolWindow", Error(errorPermissionDenied));
    load();
    ide.clickEntry();
    ide.windows->mend(L"CreateToolWindow");
    ide.clickEntry();
    EXPECT_EQ(backend.calls.size(), 1u);
    EXPECT_FALSE(ide.entry->read(L"Enabled").asBool());
}

TEST_F(ConnectTest, unloadingBeforeAnyClick_doesNotTouchTheBackend)
{
    load();
    disconnect();
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(ide.journal.back(), L"Entry.Delete()");
    EXPECT_FALSE(ide.entryEvents->isConnected());
}

TEST_F(ConnectTest, unloadingAfterAStart_endsTheSessionAndClosesTheWindow)
{
    load();
    ide.clickEntry();
    disconnect();
    EXPECT_EQ(backend.calls.back(), "RZTerminate()");
    EXPECT_TRUE(journalHas(L"ToolWindow.Close()"));
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(ConnectTest, entryThatCannotBeDeleted_doesNotStopTheTearDown)
{
    load();
    ide.clickEntry();
    ide.entry->failing(L"Delete", Error(errorPermissionDenied));
    disconnect();
    EXPECT_EQ(backend.calls.back(), "RZTerminate()");
    EXPECT_TRUE(journalHas(L"ToolWindow.Close()"));
}

TEST_F(ConnectTest, windowThatRefusesToCloseWhileDocked_isUndockedAndClosed)
{
    load();
    ide.clickEntry();
    ide.dock();
    disconnect();
    const Lines expected{L"ToolWindow.Close()",  L"ToolWindow.LinkedWindowFrame",
                         L"Frame.LinkedWindows", L"LinkedWindows.Remove(<object>)",
                         L"ToolWindow.Close()",  L"Document.IMgr = <object>"};
    ASSERT_GT(ide.journal.size(), expected.size());
    EXPECT_EQ(Lines(ide.journal.end() - 6, ide.journal.end()), expected);
    EXPECT_TRUE(ide.toolWindow->read(L"Visible").asBool());
    EXPECT_FALSE(documentsManager());
}

TEST_F(ConnectTest, windowThatRefusesToClose_isHidden)
{
    load();
    ide.clickEntry();
    ASSERT_TRUE(documentsManager());
    ide.toolWindow->failing(L"Close", Error(errorPermissionDenied));
    disconnect();
    EXPECT_FALSE(ide.toolWindow->read(L"Visible").asBool());
    EXPECT_FALSE(documentsManager());
}

TEST_F(ConnectTest, windowThatRefusesEverything_losesItsManagerAllTheSame)
{
    load();
    ide.clickEntry();
    ASSERT_TRUE(documentsManager());
    ide.toolWindow->failing(L"Close", Error(errorPermissionDenied));
    ide.toolWindow->failing(L"Visible", Error(errorPermissionDenied));
    disconnect();
    EXPECT_TRUE(journalHas(L"ToolWindow.Visible fails"));
    EXPECT_FALSE(documentsManager());
}

TEST_F(ConnectTest, secondDisconnection_isHarmless)
{
    load();
    ide.clickEntry();
    disconnect();
    const size_t calls = backend.calls.size();
    disconnect();
    EXPECT_EQ(backend.calls.size(), calls);
}

TEST_F(ConnectTest, disconnection_letsGoOfEveryObjectOfTheAddin)
{
    load();
    const long locks = module::lockCount();
    ide.clickEntry();
    disconnect();
    ide.document->value(L"IMgr", variant());
    EXPECT_LT(module::lockCount(), locks);
}

} // namespace
} // namespace velk
