#include "support/fakeManager.h"
#include "support/shownControls.h"
#include "viewFixture.h"

namespace velk {
namespace {

using Texts = std::vector<std::wstring>;

class viewAPIsTest : public test::ViewFixture {
protected:
    std::wstring pictureOf(size_t row)
    {
        return publishedView().ImageList1->keyOf(list().rows().at(row).looks().image);
    }
};

trzProcedure procedure(int32_t handle, const std::wstring& name)
{
    trzProcedure made;
    made.lHdl = handle;
    made.strName = name;
    return made;
}

trzFunction function(int32_t handle, const std::wstring& name)
{
    trzFunction made;
    made.lHdl = handle;
    made.strName = name;
    return made;
}

TEST_F(viewAPIsTest, addedNodeWithATakenKey_leavesTheExistingNodeUnchanged)
{
    addProject();
    addFolderNode(L"K1", L"7", L"K10", L"other", L"False");
    EXPECT_EQ(tree().node(L"K10").text, L"ORDERS");
    EXPECT_EQ(tree().size(), 7u);
}

TEST_F(viewAPIsTest, addedRoot_leavesExactlyOneNode)
{
    addProject();
    addFolderNode(L"", L"5", L"K2", L"other", L"True");
    EXPECT_EQ(tree().size(), 1u);
    EXPECT_EQ(tree().send(TVM_GETCOUNT), 1);
    EXPECT_EQ(imageOf(L"K2"), L"RZFolder");
}

TEST_F(viewAPIsTest, addedNodeThatIsNoRootAndHasNoParent_isIgnored)
{
    addProject();
    addFolderNode(L"", L"7", L"K30", L"Procedures", L"False");
    EXPECT_FALSE(tree().has(L"K30"));
    EXPECT_EQ(tree().send(TVM_GETCOUNT), 7);
}

TEST_F(viewAPIsTest, connectionNode_showsItsDatabaseAndState)
{
    addProject();
    EXPECT_EQ(tree().node(L"K10").tag, L"6");
    EXPECT_EQ(imageOf(L"K10"), L"ConnectedConnection");
    connection.bConnected = false;
    connection.strDatabase = L"SALES";
    updateConnectionNode(connection);
    EXPECT_EQ(tree().node(L"K10").text, L"SALES");
    EXPECT_EQ(imageOf(L"K10"), L"DisconnectedConnection");
}

TEST_F(viewAPIsTest, updatedConnectionWithoutANode_isPassedOverQuietly)
{
    addProject();
    test::FailureLog log;
    updateConnectionNode({.lHdl = 11, .bConnected = false, .strDatabase = L"SALES"});
    EXPECT_FALSE(tree().has(L"K11"));
    EXPECT_EQ(tree().node(L"K10").text, L"ORDERS");
    EXPECT_EQ(imageOf(L"K10"), L"ConnectedConnection");
    EXPECT_EQ(log.lines, Texts{});
}

TEST_F(viewAPIsTest, removedConnection_takesItsFoldersAlong)
{
    addProject();
    removeNode(L"K10");
    EXPECT_EQ(tree().size(), 1u);
    EXPECT_FALSE(tree().has(L"K23"));
}

TEST_F(viewAPIsTest, removeListRowWithoutSelectedNode_removesNothing)
{
    addProject();
    tree().send(TVM_SELECTITEM, TVGN_CARET, 0);
    addProcedureRow(procedure(100, L"RAISE"));
    removeListRow(L"8", L"K100");
    EXPECT_EQ(list().rows().size(), 1u);
}

TEST_F(viewAPIsTest, removeListRowOfAnotherKindThanTheFolder_removesNothing)
{
    addProject();
    tree().select(L"K20");
    addProcedureRow(procedure(100, L"RAISE"));
    removeListRow(L"14", L"K100");
    EXPECT_EQ(list().rows().size(), 1u);
}

TEST_F(viewAPIsTest, removeListRowOfTheFoldersKind_removesTheRow)
{
    addProject();
    tree().select(L"K20");
    addProcedureRow(procedure(100, L"RAISE"));
    addProcedureRow(procedure(101, L"LOWER"));
    removeListRow(L"8", L"K100");
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(cell(0, 0), L"LOWER");
}

TEST_F(viewAPIsTest, procedureRow_hasItsCellsInColumnOrder)
{
    addProject();
    tree().select(L"K20");
    trzProcedure made{.lHdl = 100, .strSchema = L"s", .strName = L"n", .strSpecific = L"sp", .strParameters = L"p"};
    made.strLanguage = L"SQL";
    made.strSQLPackage = L"pk";
    made.lResultSets = 3;
    made.bIsFenced = true;
    made.strComment = L"c";
    addProcedureRow(made);
    EXPECT_EQ(headers(), (Texts{L"#500", L"#501", L"#506", L"#507", L"#504", L"#503", L"#508", L"#505", L"#502"}));
    EXPECT_EQ(cells(0), (Texts{L"n", L"s", L"p", L"3", L"SQL", L"sp", L"pk", L"True", L"c"}));
}

TEST_F(viewAPIsTest, functionRow_showsFencedAsANumber)
{
    addProject();
    tree().select(L"K21");
    trzFunction made;
    made.lHdl = 100;
    made.strSchema = L"s";
    made.strName = L"n";
    made.strSpecific = L"sp";
    made.strParameters = L"p";
    made.strResult = L"r";
    made.strLanguage = L"Java";
    made.bIsFenced = 1;
    made.strComment = L"c";
    addFunctionRow(made);
    EXPECT_EQ(headers(), (Texts{L"#500", L"#501", L"#509", L"#510", L"#504", L"#503", L"#505", L"#502"}));
    EXPECT_EQ(cells(0), (Texts{L"n", L"s", L"p", L"r", L"Java", L"sp", L"1", L"c"}));
}

TEST_F(viewAPIsTest, triggerTableAndViewRows_haveTheirOwnColumns)
{
    addProject();
    tree().select(L"K22");
    trzTrigger trigger;
    trigger.lHdl = 100;
    trigger.strName = L"t";
    trigger.strSchema = L"s";
    trigger.strTableName = L"tab";
    trigger.strTableSchema = L"ts";
    trigger.strComment = L"c";
    addTriggerRow(trigger);
    EXPECT_EQ(headers(), (Texts{L"#500", L"#501", L"#511", L"#512", L"#502"}));
    EXPECT_EQ(cells(0), (Texts{L"t", L"s", L"tab", L"ts", L"c"}));
    tree().select(L"K23");
    addTableRow({.lHdl = 200,
                 .bIsDirty = false,
                 .strSchema = L"s",
                 .strName = L"n",
                 .strTableSpace = L"sp",
                 .lType = 4,
                 .strComment = L"c"});
    EXPECT_EQ(headers(), (Texts{L"#500", L"#501", L"#513", L"#514", L"#502"}));
    EXPECT_EQ(cells(0), (Texts{L"n", L"s", L"sp", L"4", L"c"}));
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .bIsDirty = false, .strSchema = L"s", .strName = L"n", .strComment = L"c"});
    EXPECT_EQ(cells(0), (Texts{L"n", L"s", L"c"}));
}

TEST_F(viewAPIsTest, tagOfADebuggableProcedure_beginsWithTrueAndNumberSign)
{
    trzProcedure made = procedure(100, L"RAISE");
    made.bCanDebug = true;
    made.strFileName = L"C:\\work\\raise.sql";
    addProcedureRow(made);
    EXPECT_EQ(list().rows().at(0).tag(), L"True#C:\\work\\raise.sql");
}

TEST_F(viewAPIsTest, dirtyProcedure_isBoldWithItsOwnPictureUntilUpdated)
{
    trzProcedure made = procedure(100, L"RAISE");
    made.bIsDirty = true;
    addProcedureRow(made);
    EXPECT_TRUE(list().rows().at(0).looks().bold);
    EXPECT_EQ(publishedView().ImageList1->keyOf(list().rows().at(0).looks().image), L"DirtyStoredProcedure");
    made.bIsDirty = false;
    made.strName = L"RAISE2";
    updateProcedureRow(made);
    EXPECT_FALSE(list().rows().at(0).looks().bold);
    EXPECT_EQ(publishedView().ImageList1->keyOf(list().rows().at(0).looks().image), L"StoredProcedure");
    EXPECT_EQ(list().rows().at(0).name(), L"RAISE2");
}

TEST_F(viewAPIsTest, tagOfAFunction_isTheDebugFlagAndTheFile)
{
    trzFunction made = function(100, L"AREA");
    made.bCanDebug = true;
    made.strFileName = L"C:\\work\\area.sql";
    addFunctionRow(made);
    addFunctionRow(function(101, L"WIDTH"));
    EXPECT_EQ(list().rows().at(0).tag(), L"True#C:\\work\\area.sql");
    EXPECT_EQ(list().rows().at(1).tag(), L"False#");
}

TEST_F(viewAPIsTest, updatedFunction_takesItsNameTagAndLooks)
{
    trzFunction made = function(100, L"AREA");
    addFunctionRow(made);
    EXPECT_EQ(pictureOf(0), L"UserFunction");
    EXPECT_FALSE(list().rows().at(0).looks().bold);
    made.bIsDirty = true;
    made.strName = L"AREA2";
    made.strFileName = L"C:\\work\\area2.sql";
    updateFunctionRow(made);
    EXPECT_EQ(list().rows().at(0).name(), L"AREA2");
    EXPECT_EQ(list().rows().at(0).tag(), L"False#C:\\work\\area2.sql");
    EXPECT_TRUE(list().rows().at(0).looks().bold);
    EXPECT_EQ(pictureOf(0), L"DirtyUserFunction");
}

TEST_F(viewAPIsTest, updateOfAMissingFunctionRow_changesNoOther)
{
    addFunctionRow(function(100, L"AREA"));
    updateFunctionRow(function(101, L"WIDTH"));
    EXPECT_EQ(list().rows().size(), 1u);
    EXPECT_EQ(list().rows().at(0).name(), L"AREA");
}

TEST_F(viewAPIsTest, triggerTableAndViewRows_haveTheirOwnPictures)
{
    addTriggerRow({.lHdl = 100, .strName = L"t"});
    addTableRow({.lHdl = 200, .strName = L"n"});
    addViewRow({.lHdl = 300, .strName = L"v"});
    EXPECT_EQ(pictureOf(0), L"Trigger");
    EXPECT_EQ(pictureOf(1), L"VelkTable");
    EXPECT_EQ(pictureOf(2), L"VelkView");
}

TEST_F(viewAPIsTest, rowWithATakenKey_isIgnored)
{
    addProcedureRow(procedure(100, L"RAISE"));
    addProcedureRow(procedure(100, L"OTHER"));
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(list().rows().at(0).name(), L"RAISE");
}

TEST_F(viewAPIsTest, updateOfAMissingRow_doesNothing)
{
    updateProcedureRow(procedure(100, L"RAISE"));
    EXPECT_EQ(list().rows().size(), 0u);
}

TEST_F(viewAPIsTest, filteredFolder_changesItsPictureAndBack)
{
    addProject();
    setFolderFiltered(L"K20", true);
    EXPECT_EQ(imageOf(L"K20"), L"FilteredRZFolder");
    setFolderFiltered(L"K20", false);
    EXPECT_EQ(imageOf(L"K20"), L"RZFolder");
}

TEST_F(viewAPIsTest, expandSelected_opensTheSelectedNode)
{
    addProject();
    tree().select(L"K10");
    expandSelected();
    EXPECT_TRUE(test::isExpanded(tree(), L"K10"));
}

TEST_F(viewAPIsTest, selectedNodeKindIs_comparesWithTheKindOfTheSelectedNode)
{
    addProject();
    tree().select(L"K23");
    EXPECT_TRUE(selectedNodeKindIs(13));
    EXPECT_FALSE(selectedNodeKindIs(7));
    tree().select(L"K10");
    EXPECT_TRUE(selectedNodeKindIs(6));
    EXPECT_FALSE(selectedNodeKindIs(13));
}

TEST_F(viewAPIsTest, selectedNodeKindIsWithNothingSelected_isFalseForEveryKind)
{
    addProject();
    tree().send(TVM_SELECTITEM, TVGN_CARET, 0);
    EXPECT_FALSE(selectedNodeKindIs(5));
    EXPECT_FALSE(selectedNodeKindIs(-1)); // the number that stands for no kind
}

TEST_F(viewAPIsTest, folderOf100000Rows_isFilledAndShown)
{
    addProject();
    tree().select(L"K20");
    {
        const ListFilling together;
        for (int32_t handle = 1; handle <= 100000; ++handle)
            addProcedureRow(procedure(1000 + handle, L"P" + std::to_wstring(handle)));
    }
    EXPECT_EQ(shownRows(), 100000);
    EXPECT_EQ(cell(99999, 0), L"P100000");
    EXPECT_EQ(list().rows().at(49999).handle(), 51000);
}

class ProjectNodeTest : public viewAPIsTest {
protected:
    ProjectNodeTest()
    {
        view.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
        view.setupGUI();
        addProject();
        tree().select(L"K1");
    }
    // The selected node's text as the control has it, whatever the tree's own record says.
    TVITEMW itemOfSelected(std::wstring& text)
    {
        TVITEMW item{};
        item.mask = TVIF_TEXT;
        item.hItem = reinterpret_cast<HTREEITEM>(tree().send(TVM_GETNEXTITEM, TVGN_CARET, 0));
        text.resize(64);
        item.pszText = text.data();
        item.cchTextMax = 64;
        return item;
    }
    void setShownText(std::wstring text)
    {
        const TVITEMW item = itemOfSelected(text);
        tree().send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    std::wstring shownText()
    {
        std::wstring text;
        const TVITEMW item = itemOfSelected(text);
        tree().send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return text.c_str();
    }

    test::Lines journal;
    com_ptr<test::FakeManager> manager = makeObject<test::FakeManager>(journal);
};

TEST_F(ProjectNodeTest, updatedProjectWithAnotherName_showsItAndHandsItsPathToTheManager)
{
    updateProjectNode({.lHdl = 1, .strName = L"invoices", .strPath = L"D:\\other\\invoices.rzv"});
    EXPECT_EQ(tree().node(L"K1").text, L"invoices");
    EXPECT_EQ(shownText(), L"invoices");
    EXPECT_EQ(manager->rzFile, L"D:\\other\\invoices.rzv");
}

TEST_F(ProjectNodeTest, updatedProjectWithTheSameName_leavesTheShownTextAloneAndHandsItsPathOver)
{
    setShownText(L"not set again");
    updateProjectNode({.lHdl = 1, .strName = L"orders", .strPath = L"D:\\other\\orders.rzv"});
    EXPECT_EQ(shownText(), L"not set again");
    EXPECT_EQ(manager->rzFile, L"D:\\other\\orders.rzv");
}

TEST_F(ProjectNodeTest, updatedProjectWithoutANode_isPassedOverQuietly)
{
    test::FailureLog log;
    updateProjectNode({.lHdl = 2, .strName = L"invoices", .strPath = L"D:\\other\\invoices.rzv"});
    EXPECT_EQ(shownText(), L"orders");
    EXPECT_EQ(tree().size(), 7u);
    EXPECT_EQ(journal, test::Lines{});
    EXPECT_EQ(log.lines, Texts{});
}

TEST(viewAPIs, withoutAView_everythingIsQuietAndReported)
{
    test::FailureLog log;
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    clearListRows();
    EXPECT_FALSE(selectedNodeKindIs(7));
    EXPECT_EQ(log.lines.size(), 3u);
}

} // namespace
} // namespace velk
