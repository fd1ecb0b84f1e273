#include "severalFixture.h"

#include "scc/VSSAPI.h"
#include "support/badManners.h"
#include "support/fakeSourceSafe.h"
#include "support/outOfMemory.h"

#include <algorithm>

namespace velk {
namespace {

using enum MenuItem;
using test::Calls;
using test::Lines;
using testing::ElementsAre;
using testing::IsEmpty;

class ManyObjectsTest : public test::SeveralFixture {
protected:
    // A deed inside the call of the tool that is told, once.
    void inside(const std::string& call, std::function<void()> deed)
    {
        backend.onCall = [call, deed = std::move(deed), this](const std::string& line) {
            if (line != call)
                return;
            const std::function<void()> now = deed;
            backend.onCall = {};
            now();
        };
    }
    std::vector<std::wstring> offered() const
    {
        std::vector<std::wstring> captions;
        for (const MenuLine& line : menu)
            if (line.enabled && line.caption != L"-")
                captions.push_back(line.caption);
        return captions;
    }
    void choose(MenuItem item) { chosen = static_cast<int>(item) + 1; }
};

TEST_F(ManyObjectsTest, chosenItem_isCarriedOutForEachInTheOrderShown)
{
    showRows(4);
    select({0, 2, 3});
    sortBy(0);
    sortBy(0);
    choose(devObjBuildMnuItem);
    rightClickRow(1);
    EXPECT_EQ(backend.calls,
              (Calls{"RZObjectDoAction(103, 18)", "RZObjectDoAction(102, 18)", "RZObjectDoAction(100, 18)"}));
    EXPECT_THAT(selectedNames(), ElementsAre(L"p3", L"p2", L"p0"));
}

TEST_F(ManyObjectsTest, menuOfSeveralRoutines_offersWhatMakesSenseForMany)
{
    test::FakeSourceSafe sourceSafe;
    test::FakeSourceSafe::install();
    view.setupGUI();
    showRows(3);
    select({0, 1});
    rightClickRow(0);
    EXPECT_THAT(offered(), ElementsAre(L"#414", L"#444", L"#415", L"#416", L"#445", L"Drop From Database", L"#432"));
    select({0});
    rightClickRow(0);
    EXPECT_THAT(offered(), testing::Contains(L"Properties"));
}

TEST_F(ManyObjectsTest, menuOfSeveralTables_offersNothing)
{
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"a"});
    addTableRow({.lHdl = 201, .strName = L"b"});
    select({0, 1});
    rightClickRow(0);
    EXPECT_EQ(menu.size(), 2u);
    EXPECT_THAT(offered(), IsEmpty());
}

TEST_F(ManyObjectsTest, itemForOneObject_doesNothingForSeveral)
{
    showRows(3);
    select({0, 1});
    view.clickMenuItem(devObjPropsMnuItem);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ManyObjectsTest, rightClickOnAnotherRow_isForThatOne)
{
    showRows(3);
    select({0, 1});
    choose(devObjPropsMnuItem);
    rightClickRow(2);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(102, 13)"});
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(ManyObjectsTest, menuByTheKeyboard_isForAllWhereverTheFocusIs)
{
    showRows(3);
    select({0, 1});
    list().view().focusRow(2);
    choose(devObjDropMnuItem);
    askForMenuByKeyboard(list().view().hwnd());
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 22)", "RZObjectDoAction(101, 22)"}));
}

TEST_F(ManyObjectsTest, enterAndDelete_areForAll)
{
    showRows(3);
    select({0, 2});
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_TRUE(press(VK_DELETE));
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 25)", "RZObjectDoAction(102, 25)",
                                    "RZObjectDoAction(100, 21)", "RZObjectDoAction(102, 21)"}));
}

TEST_F(ManyObjectsTest, enterOnSeveralTables_isLeftToTheIde)
{
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"a"});
    addTableRow({.lHdl = 201, .strName = L"b"});
    select({0, 1});
    SetFocus(list().view().hwnd());
    backend.calls.clear();
    EXPECT_FALSE(press(VK_RETURN));
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(ManyObjectsTest, objectThatIsGoneByItsTurn_isPassedOver)
{
    showRows(4);
    select({0, 1, 2});
    inside("RZObjectDoAction(100, 22)", [] {
        removeListRow(L"8", L"K100");
        removeListRow(L"8", L"K101");
        addRow(300, L"new");
    });
    view.clickMenuItem(devObjDropMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 22)", "RZObjectDoAction(102, 22)"}));
}

TEST_F(ManyObjectsTest, otherFolderInTheMiddle_doesNotStopTheRest)
{
    showRows(3);
    select({0, 1});
    backend.unjournaled.insert("RZSetCurrentFolder");
    inside("RZObjectDoAction(100, 18)", [this] { tree().select(L"K23"); });
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_THAT(backend.calls, testing::Contains("RZObjectDoAction(101, 18)"));
}

TEST_F(ManyObjectsTest, connectionThatGoesInTheMiddle_takesTheRestWithIt)
{
    showRows(3);
    select({0, 1, 2});
    inside("RZObjectDoAction(100, 18)", [] { removeNode(L"K10"); });
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains("RZObjectDoAction(101, 18)")));
}

TEST_F(ManyObjectsTest, rowsRemovedWhileTheMenuIsOpen_leaveTheOthers)
{
    showRows(4);
    select({0, 1, 2});
    choose(devObjDropMnuItem);
    whileMenuIsOpen = [this] {
        removeListRow(L"8", L"K101");
        list().view().selectRow(2); // p3, which nobody chose anything for
    };
    rightClickRow(0);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 22)", "RZObjectDoAction(102, 22)"}));
}

TEST_F(ManyObjectsTest, allRowsRemovedWhileTheMenuIsOpen_leaveNothingToDo)
{
    showRows(3);
    select({0, 1});
    choose(devObjDropMnuItem);
    whileMenuIsOpen = [] {
        removeListRow(L"8", L"K100");
        removeListRow(L"8", L"K101");
    };
    rightClickRow(0);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ManyObjectsTest, otherFolderWhileTheMenuIsOpen_dropsTheChoice)
{
    showRows(3);
    select({0, 1});
    choose(devObjDropMnuItem);
    whileMenuIsOpen = [this] {
        tree().select(L"K21");
        addFunctionRow({.lHdl = 100, .strName = L"f"}); // nobody chose anything for it
    };
    rightClickRow(0);
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains("RZObjectDoAction(100, 22)")));
}

TEST_F(ManyObjectsTest, viewThatIsClosedInTheSecondOfFiveCalls_endsTheRest)
{
    const auto second = std::make_shared<svrViewCtl>();
    second->create(host, {0, 0, 400, 300});
    second->setupGUI();
    addProject();
    second->serverTreeView().select(L"K20");
    addRows(5);
    second->serverDetailsView().selection().addAll();
    backend.calls.clear();
    inside("RZObjectDoAction(101, 18)", [&] { DestroyWindow(second->hwnd()); });
    second->clickMenuItem(devObjBuildMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 18)", "RZObjectDoAction(101, 18)"}));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ManyObjectsTest, sessionThatEndsInTheSecondOfFiveCalls_endsTheRest)
{
    const Session session;
    view.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session));
    view.setupGUI();
    showRows(5);
    select({0, 1, 2, 3, 4});
    inside("RZObjectDoAction(101, 18)", [&] { session.enter(SessionState::ending); });
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 18)", "RZObjectDoAction(101, 18)"}));
}

TEST_F(ManyObjectsTest, questionThatIsCancelledInsideACall_stopsTheRest)
{
    showRows(3);
    select({0, 1, 2});
    shownMessages.answer = IDCANCEL;
    inside("RZObjectDoAction(101, 22)", [] { showMessage(L"Drop?", MB_YESNOCANCEL); });
    view.clickMenuItem(devObjDropMnuItem);
    EXPECT_EQ(backend.calls, (Calls{"RZObjectDoAction(100, 22)", "RZObjectDoAction(101, 22)"}));
}

TEST_F(ManyObjectsTest, questionThatIsAnsweredInsideACall_doesNot)
{
    showRows(3);
    select({0, 1, 2});
    shownMessages.answer = IDNO;
    inside("RZObjectDoAction(100, 22)", [] { showMessage(L"Drop?", MB_YESNOCANCEL); });
    view.clickMenuItem(devObjDropMnuItem);
    EXPECT_EQ(backend.calls.size(), 3u);
}

TEST_F(ManyObjectsTest, failure_isToldOnceAndEndsTheRest)
{
    showRows(3);
    select({0, 1, 2});
    backend.on.RZObjectDoAction = [](int32_t, int32_t) {
        test::divideByZero();
        return 1;
    };
    view.clickMenuItem(devObjBuildMnuItem);
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(ManyObjectsTest, withoutMemoryForAllOfThem_nothingIsDone)
{
    showRows(3);
    select({0, 1, 2});
    shownRows();
    {
        const test::OutOfMemory none;
        view.clickMenuItem(devObjDropMnuItem);
        EXPECT_TRUE(none.wasFelt());
    }
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(selected().size(), 3u);
}

TEST_F(ManyObjectsTest, moreThanTenSources_askOnceAndOpenThemAll)
{
    showRows(12);
    list().selection().addAll();
    shownMessages.answer = IDYES;
    view.clickMenuItem(devObjViewSrcMnuItem);
    EXPECT_EQ(messages, Lines{L"Open the sources of 12 objects?|velkviadd"});
    EXPECT_EQ(shownMessages.styles.front() & MB_TYPEMASK, UINT{MB_YESNO});
    EXPECT_EQ(backend.calls.size(), 12u);
}

TEST_F(ManyObjectsTest, moreThanTenSourcesThatAreNotWanted_areNotOpened)
{
    showRows(11);
    list().selection().addAll();
    shownMessages.answer = IDNO;
    view.clickMenuItem(devObjEditSrcMnuItem);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(ManyObjectsTest, tenSourcesAndElevenBuilds_areNotAskedFor)
{
    showRows(11);
    list().selection().addAll();
    view.clickMenuItem(devObjBuildMnuItem);
    list().selection().remove(10);
    view.clickMenuItem(devObjViewSrcMnuItem);
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(backend.calls.size(), 21u);
}

TEST_F(ManyObjectsTest, viewThatIsClosedDuringTheQuestion_opensNothing)
{
    const Session session;
    view.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session));
    view.setupGUI();
    showRows(11);
    list().selection().addAll();
    shownMessages.answer = IDYES;
    shownMessages.duringMessage = [&] { session.enter(SessionState::ending); };
    view.clickMenuItem(devObjViewSrcMnuItem);
    EXPECT_EQ(backend.calls, Calls{});
}

class ManyFilesTest : public ManyObjectsTest {
protected:
    ~ManyFilesTest() override { closeSourceSafe(); }
    void logIn()
    {
        openSourceSafeDatabase(L"ann", L"secret", L"Main", {{L"Main", L"C:\\vss"}});
        setCurrentProject(L"Web");
        sourceSafe.journal.clear();
    }
    size_t operations() const
    {
        return static_cast<size_t>(std::ranges::count_if(
            sourceSafe.journal, [](const std::wstring& line) { return line.find(L"Item.Checkout(") == 0; }));
    }
    test::FakeSourceSafe sourceSafe;
};

TEST_F(ManyFilesTest, fileItem_worksOnEachFile)
{
    logIn();
    showRows(3);
    select({0, 1, 2});
    view.clickMenuItem(devObjChkOutMnuItem);
    EXPECT_EQ(operations(), 3u);
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ManyFilesTest, routinesWithoutAFile_areToldOnceAndTheOthersWorkedOn)
{
    logIn();
    showRows(1);
    addProcedureRow({.lHdl = 200, .strName = L"a", .strLanguage = L"SQL"});
    addProcedureRow({.lHdl = 201, .strName = L"b", .strLanguage = L"SQL"});
    addRow(202, L"last");
    select({0, 1, 2, 3});
    view.clickMenuItem(devObjChkOutMnuItem);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(operations(), 2u);
}

TEST_F(ManyFilesTest, noOpenDatabase_isToldOnce)
{
    showRows(3);
    select({0, 1, 2});
    view.clickMenuItem(devObjChkOutMnuItem);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(operations(), 0u);
}

} // namespace
} // namespace velk
