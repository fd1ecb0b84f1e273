#include "backend/calls.h"
#include "forms/serverview/viewFixture.h"
#include "notify/notificationThreadFrm.h"
#include "support/fakeManager.h"
#include "support/shownControls.h"
#include "support/shownMessages.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

using test::Calls;
using test::Lines;

constexpr int32_t contents = 5;
constexpr int32_t changed = 6;
constexpr int32_t removed = 7;
constexpr int32_t added = 8;

// A pump that reads from the fake Backend, and a real view of a project that shows what comes of it.
class ObjectsTest : public test::ViewFixture {
protected:
    ObjectsTest()
    {
        const IntegrationMgr shared(com_ptr<_IntegrationMgr>(manager.get()), session);
        view.setIMgr(shared);
        view.setupGUI();
        pump->setIMMgr(shared);
        addProject();
        backend.procedures[100] = {.strSchema = L"s", .strName = L"RAISE"};
        backend.functions[100] = {.strSchema = L"s", .strName = L"AREA"};
        backend.triggers[100] = {.strSchema = L"s", .strName = L"ON_SALE"};
        backend.tables[100] = {.strSchema = L"s", .strName = L"SALES"};
        backend.views[100] = {.strSchema = L"s", .strName = L"LATE"};
    }
    ~ObjectsTest() override
    {
        pump->unload();
        unloadSplashScreen();
    }
    void select(const std::wstring& key)
    {
        tree().select(key);
        backend.calls.clear();
    }
    // The tool tells of an object, and the pump carries it out.
    void tell(int32_t type, int32_t objectType, int32_t handle)
    {
        backend.notify(type, 1, 10, objectType, handle);
        pump->timerThread_Timer();
    }

    // Key, tag, text and picture of each node below another, in order.
    Lines nodesBelow(const std::wstring& key)
    {
        Lines found;
        tree().select(key);
        TVITEMW child{};
        child.mask = TVIF_PARAM;
        child.hItem = next(TVGN_CHILD, next(TVGN_CARET, nullptr));
        for (; child.hItem; child.hItem = next(TVGN_NEXT, child.hItem)) {
            tree().send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&child));
            const auto& node = *reinterpret_cast<const TreeNode*>(child.lParam);
            found.push_back(node.key + L" " + node.tag + L" " + node.text + L" " + imageOf(node.key));
        }
        return found;
    }

    HTREEITEM next(WPARAM which, HTREEITEM from)
    {
        return reinterpret_cast<HTREEITEM>(tree().send(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(from)));
    }

    Session session;
    test::ShownMessages shownMessages;
    const Lines& messages = shownMessages.lines;
    Lines journal;
    com_ptr<test::FakeManager> manager = makeObject<test::FakeManager>(journal);
    std::shared_ptr<notificationThreadFrm> pump = notificationThreadFrm::load();
};

TEST_F(ObjectsTest, procedureAddedWhileTheTablesFolderIsSelected_isFetchedButNotShown)
{
    select(L"K23");
    tell(added, 8, 100);
    EXPECT_EQ(backend.calls, Calls{"RZProcedureGet(100)"});
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(messages, Lines{});
}

struct Kind {
    int32_t objectKind;
    const wchar_t* folder;
    const char* fetch;
    const wchar_t* name;
};
void PrintTo(const Kind& kind, std::ostream* to)
{
    *to << "kind " << kind.objectKind;
}
class KindTest : public ObjectsTest, public testing::WithParamInterface<Kind> {};

TEST_P(KindTest, addedObject_appearsWhileItsFolderIsSelected)
{
    select(GetParam().folder);
    tell(added, GetParam().objectKind, 100);
    EXPECT_EQ(backend.calls, Calls{GetParam().fetch});
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(cell(0, 0), GetParam().name);
}

TEST_P(KindTest, addedObject_isFetchedButNotShownWhileItsConnectionIsSelected)
{
    select(L"K10");
    tell(added, GetParam().objectKind, 100);
    EXPECT_EQ(backend.calls, Calls{GetParam().fetch});
    EXPECT_EQ(list().rows().size(), 0u);
}

TEST_P(KindTest, removedObject_takesItsRowWithoutAskingTheTool)
{
    select(GetParam().folder);
    tell(added, GetParam().objectKind, 100);
    backend.calls.clear();
    tell(removed, GetParam().objectKind, 101);
    EXPECT_EQ(shownRows(), 1);
    tell(removed, GetParam().objectKind, 100);
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(backend.calls, Calls{});
}

INSTANTIATE_TEST_SUITE_P(Kinds, KindTest,
                         testing::Values(Kind{8, L"K20", "RZProcedureGet(100)", L"RAISE"},
                                         Kind{10, L"K21", "RZFunctionGet(100)", L"AREA"},
                                         Kind{12, L"K22", "RZTriggerGet(100)", L"ON_SALE"},
                                         Kind{14, L"K23", "RZTableGet(100)", L"SALES"},
                                         Kind{16, L"K24", "RZViewGet(100)", L"LATE"}));

TEST_F(ObjectsTest, removedProcedureWhileTheTablesFolderIsSelected_takesNoRow)
{
    select(L"K23");
    tell(added, 14, 100);
    tell(removed, 8, 100);
    EXPECT_EQ(cell(0, 0), L"SALES");
}

TEST_F(ObjectsTest, removedConnection_takesItsNodes)
{
    tell(removed, 6, 10);
    EXPECT_EQ(tree().send(TVM_GETCOUNT), 1);
    EXPECT_TRUE(tree().has(L"K1"));
}

TEST_F(ObjectsTest, removedProject_leavesAnEmptyTree)
{
    tell(removed, 5, 1);
    EXPECT_EQ(tree().send(TVM_GETCOUNT), 0);
    EXPECT_EQ(tree().size(), 0u);
    EXPECT_EQ(messages, Lines{});
}

class UnchangingKindTest : public KindTest {};

TEST_P(UnchangingKindTest, changedObject_asksTheToolNothingAndKeepsItsRow)
{
    select(GetParam().folder);
    tell(added, GetParam().objectKind, 100);
    backend.triggers[100].strName = backend.tables[100].strName = backend.views[100].strName = L"OTHER";
    backend.calls.clear();
    tell(changed, GetParam().objectKind, 100);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(cell(0, 0), GetParam().name);
    EXPECT_EQ(messages, Lines{});
}

INSTANTIATE_TEST_SUITE_P(Kinds, UnchangingKindTest,
                         testing::Values(Kind{12, L"K22", "", L"ON_SALE"}, Kind{14, L"K23", "", L"SALES"},
                                         Kind{16, L"K24", "", L"LATE"}));

TEST_F(ObjectsTest, changedRoutines_areFetchedAndShownAnew)
{
    select(L"K20");
    tell(added, 8, 100);
    backend.procedures[100].strName = L"RAISE2";
    tell(changed, 8, 100);
    EXPECT_EQ(cell(0, 0), L"RAISE2");
    select(L"K21");
    tell(added, 10, 100);
    backend.functions[100].strName = L"AREA2";
    tell(changed, 10, 100);
    EXPECT_EQ(backend.calls, (Calls{"RZFunctionGet(100)", "RZFunctionGet(100)"}));
    EXPECT_EQ(cell(0, 0), L"AREA2");
}

TEST_F(ObjectsTest, changedProcedureWhileTheTablesFolderIsSelected_changesNoRow)
{
    select(L"K23");
    tell(added, 14, 100);
    tell(changed, 8, 100);
    EXPECT_EQ(backend.calls.back(), "RZProcedureGet(100)");
    EXPECT_EQ(cell(0, 0), L"SALES");
}

TEST_F(ObjectsTest, changedProject_renamesItsNodeAndHandsItsPathToTheManager)
{
    backend.projects[1] = {.strName = L"invoices", .strPath = L"D:\\other\\invoices.rzv"};
    tell(changed, 5, 1);
    EXPECT_EQ(tree().node(L"K1").text, L"invoices");
    EXPECT_EQ(manager->rzFile, L"D:\\other\\invoices.rzv");
}

TEST_F(ObjectsTest, changedConnection_showsItsState)
{
    backend.connections[10] = {.bConnected = false, .strDatabase = L"SALES"};
    tell(changed, 6, 10);
    EXPECT_EQ(tree().node(L"K10").text, L"SALES");
    EXPECT_EQ(imageOf(L"K10"), L"DisconnectedConnection");
}

TEST_F(ObjectsTest, contentsOfTheSelectedFolder_replaceItsRowsAndItsFilteredLook)
{
    select(L"K23");
    tell(added, 14, 100);
    backend.tables[101] = {.strName = L"ORDERS"};
    backend.tables[102] = {.strName = L"ITEMS"};
    backend.folders[23] = {101, 102};
    setFolderFiltered(L"K23", true);
    tell(contents, 13, 23);
    EXPECT_EQ(shownRows(), 2);
    EXPECT_EQ(cell(0, 0), L"ORDERS");
    EXPECT_EQ(cell(1, 0), L"ITEMS");
    EXPECT_EQ(imageOf(L"K23"), L"RZFolder");
}

TEST_F(ObjectsTest, addedProjectInAnIdeThatStoresIt_givesTheManagersFileNameToTheModel)
{
    manager->ideType = 1;
    manager->rzFile = L"C:\\web\\rz\\web.rzv";
    backend.projects[5] = {.strName = L"invoices", .strPath = L"D:\\other\\invoices.rzv"};
    tell(added, 5, 5);
    EXPECT_THAT(journal, testing::Contains(L"saveRZFileName(C:\\web\\rz\\web.rzv)"));
    EXPECT_EQ(journal.back(), L"showDevView");
    EXPECT_EQ(tree().node(L"K5").text, L"invoices");
    EXPECT_EQ(tree().size(), 1u);
}

TEST_F(ObjectsTest, addedProjectInAnotherIde_storesNoFileName)
{
    backend.projects[5] = {.strName = L"invoices", .strPath = L"D:\\other\\invoices.rzv"};
    tell(added, 5, 5);
    EXPECT_EQ(journal, Lines{L"showDevView"});
}

TEST_F(ObjectsTest, addedConnection_getsItsFiveFoldersInOrder)
{
    backend.connections[60] = {.lHdl = 60,
                               .strDatabase = L"SALES",
                               .lProceduresHdl = 61,
                               .lFunctionsHdl = 62,
                               .lTriggersHdl = 63,
                               .lTablesHdl = 64,
                               .lViewsHdl = 65};
    tell(added, 6, 60);
    EXPECT_EQ(nodesBelow(L"K60"), (Lines{L"K61 7 #426 RZFolder", L"K62 9 #427 RZFolder", L"K63 11 #428 RZFolder",
                                         L"K64 13 #429 RZFolder", L"K65 15 #430 RZFolder"}));
    EXPECT_EQ(test::parentOf(tree(), L"K60"), L"K1");
    EXPECT_EQ(tree().node(L"K60").text, L"SALES");
}

TEST_F(ObjectsTest, addedConnection_expandsTheSelectedNode)
{
    backend.connections[60] = {.lHdl = 60, .strDatabase = L"SALES"};
    select(L"K1");
    ASSERT_FALSE(test::isExpanded(tree(), L"K1"));
    tell(added, 6, 60);
    EXPECT_TRUE(test::isExpanded(tree(), L"K1"));
}

TEST_F(ObjectsTest, connectionOfAnUnknownProject_getsNoNodes)
{
    backend.connections[60] = {.lHdl = 60, .strDatabase = L"SALES", .lProceduresHdl = 61};
    backend.notify(added, 99, 60, 6, 60);
    pump->timerThread_Timer();
    EXPECT_FALSE(tree().has(L"K60"));
    EXPECT_FALSE(tree().has(L"K61"));
}

// A folder's kind and one more is its objects' kind; there is no more than the greatest number.
TEST_F(ObjectsTest, contentsAndObjectsOfKindsAtTheEndsOfTheirRange_areNobodys)
{
    select(L"K23");
    for (const int32_t kind : {2147483647, -2147483647 - 1, 2147483646, 0, -1}) {
        tell(contents, kind, 23);
        tell(added, kind, 100);
        tell(changed, kind, 100);
        tell(removed, kind, 100);
    }
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(messages, Lines{});
}

TEST_F(ObjectsTest, contentsOfAFolderThatIsNotSelected_giveItThePlainLookAllTheSame)
{
    setFolderFiltered(L"K20", true);
    select(L"K23");
    backend.notify(5, 1, 10, 7, 20);
    pump->timerThread_Timer();
    EXPECT_EQ(imageOf(L"K20"), L"RZFolder");
    EXPECT_EQ(backend.calls, Calls{});
}

class EnumerationTest : public ObjectsTest, public testing::WithParamInterface<Kind> {};

TEST_P(EnumerationTest, enumerationThatCannotBegin_isEndedAllTheSame)
{
    select(GetParam().folder); // its handle is not one of a folder that the tool can enumerate
    backend.notify(5, 1, 10, GetParam().objectKind - 1, 77);
    pump->timerThread_Timer();
    ASSERT_EQ(backend.calls.size(), 2u);
    EXPECT_THAT(backend.calls[0], testing::HasSubstr("EnumBegin(77"));
    EXPECT_THAT(backend.calls[1], testing::HasSubstr("EnumEnd("));
}

TEST_P(EnumerationTest, contents_areEnumeratedByTheKindsOwnFunctions)
{
    const std::string kind = GetParam().fetch;
    backend.folders[77] = {100};
    select(GetParam().folder);
    tell(contents, GetParam().objectKind - 1, 77);
    EXPECT_EQ(backend.calls,
              (Calls{kind + "EnumBegin(77)", kind + "EnumNext(1)", kind + "EnumNext(1)", kind + "EnumEnd(1)"}));
    EXPECT_EQ(cell(0, 0), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, EnumerationTest,
                         testing::Values(Kind{8, L"K20", "RZProcedure", L"RAISE"},
                                         Kind{10, L"K21", "RZFunction", L"AREA"},
                                         Kind{12, L"K22", "RZTrigger", L"ON_SALE"},
                                         Kind{14, L"K23", "RZTable", L"SALES"}, Kind{16, L"K24", "RZView", L"LATE"}));

TEST_F(ObjectsTest, contentsThatCannotBeAskedFor_areToldToNobodyAndTheFolderLooksPlain)
{
    select(L"K20");
    setFolderFiltered(L"K20", true);
    const auto fetch = backend.on.RZGetNotification;
    backend.on.RZGetNotification = [fetch](auto* record, int16_t* more) {
        RZTerminate(); // from now on the bridge refuses whatever is asked
        return fetch(record, more);
    };
    tell(contents, 7, 20);
    EXPECT_EQ(backend.calls, Calls{"RZTerminate()"});
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(imageOf(L"K20"), L"RZFolder");
}

TEST_F(ObjectsTest, folderSelectedWhileAnotherIsFilled_getsNoneOfItsRows)
{
    backend.folders[20] = {100};
    backend.procedures[101] = {.strName = L"SECOND"};
    backend.folders[20] = {100, 101};
    select(L"K20");
    const auto next = backend.on.RZProcedureEnumNext;
    backend.on.RZProcedureEnumNext = [this, next](int32_t enumeration, auto* record) {
        tree().select(L"K23");
        return next(enumeration, record);
    };
    tell(5, 7, 20);
    EXPECT_EQ(list().rows().size(), 0u);
    EXPECT_EQ(backend.enumerations.size(), 0u);
}

TEST_F(ObjectsTest, objectThatComesForEver_isShownOnceAndToldAsEndless)
{
    backend.folders[20] = {100};
    select(L"K20");
    backend.on.RZProcedureEnumNext = [](int32_t, auto* record) { return record->lHdl = 100; };
    tell(contents, 7, 20);
    EXPECT_EQ(list().rows().size(), 1u);
    EXPECT_EQ(messages, Lines{L"The tool does not come to the end of this folder. What has come so far is shown."});
    EXPECT_EQ(backend.enumerations.size(), 0u);
}

TEST_F(ObjectsTest, sessionThatEndsWhileAFolderIsFilled_asksNothingMore)
{
    backend.folders[20] = {100};
    select(L"K20");
    const auto next = backend.on.RZProcedureEnumNext;
    backend.on.RZProcedureEnumNext = [this, next](int32_t enumeration, auto* record) {
        session.enter(SessionState::ending);
        return next(enumeration, record);
    };
    tell(5, 7, 20);
    EXPECT_EQ(backend.calls.back(), "RZProcedureEnumNext(1)");
    EXPECT_EQ(list().rows().size(), 0u);
}

} // namespace
} // namespace velk
