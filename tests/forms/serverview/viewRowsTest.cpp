#include "support/shownControls.h"
#include "viewFixture.h"

namespace velk {
namespace {

using Texts = std::vector<std::wstring>;

// The rows and nodes that viewAPIs makes, by the agreed tables.
class ListRowsTest : public test::ViewFixture {
protected:
    ListRowsTest() { addProject(); }
    const Row& row(size_t index) { return list().rows().at(index); }
    std::wstring pictureOf(size_t index) { return publishedView().ImageList1->keyOf(row(index).looks().image); }
    static void removeAsEveryKindBut(const std::wstring& kind, const std::wstring& key)
    {
        for (const wchar_t* other : {L"5", L"6", L"7", L"8", L"9", L"10", L"11", L"12", L"13", L"14", L"15", L"16"})
            if (other != kind)
                removeListRow(other, key);
    }
    Texts keys()
    {
        Texts found;
        for (size_t index = 0; index < list().rows().size(); ++index)
            found.push_back(makeKey(row(index).handle()));
        return found;
    }
};

TEST_F(ListRowsTest, tagWithAFileNameOfAnyLength_hasAllOfIt)
{
    tree().select(L"K20");
    for (const size_t length : {0u, 1u, 121u, 122u, 123u, 1024u}) {
        addProcedureRow({.lHdl = 300, .strFileName = std::wstring(length, L'f')});
        EXPECT_EQ(row(0).tag(), L"False#" + std::wstring(length, L'f'));
        clearListRows();
    }
}

struct Folder {
    const wchar_t* node;
    const wchar_t* tag;
    const wchar_t* objectKind;
    std::vector<std::wstring> headers;
};
class FolderTest : public ListRowsTest, public testing::WithParamInterface<Folder> {};

TEST_P(FolderTest, node_keepsItsTagAndLooksLikeAFolder)
{
    EXPECT_EQ(tree().node(GetParam().node).tag, GetParam().tag);
    EXPECT_EQ(imageOf(GetParam().node), L"RZFolder");
    EXPECT_EQ(test::parentOf(tree(), GetParam().node), L"K10");
}

TEST_P(FolderTest, selectedFolder_hasTheColumnsOfItsObjects)
{
    tree().select(GetParam().node);
    EXPECT_EQ(headers(), GetParam().headers);
}

TEST_P(FolderTest, removedObject_goesOnlyWhenItIsOfTheFoldersKind)
{
    tree().select(GetParam().node);
    addViewRow({.lHdl = 300, .strName = L"object"});
    removeAsEveryKindBut(GetParam().objectKind, L"K300");
    EXPECT_EQ(shownRows(), 1);
    removeListRow(GetParam().objectKind, L"K301"); // another object's key
    EXPECT_EQ(shownRows(), 1);
    removeListRow(GetParam().objectKind, L"K300");
    EXPECT_EQ(shownRows(), 0);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Folders, FolderTest, testing::Values(
    Folder{L"K20", L"7",  L"8",  {L"#500", L"#501", L"#506", L"#507", L"#504", L"#503", L"#508", L"#505", L"#502"}},
    Folder{L"K21", L"9",  L"10", {L"#500", L"#501", L"#509", L"#510", L"#504", L"#503", L"#505", L"#502"}},
    Folder{L"K22", L"11", L"12", {L"#500", L"#501", L"#511", L"#512", L"#502"}},
    Folder{L"K23", L"13", L"14", {L"#500", L"#501", L"#513", L"#514", L"#502"}},
    Folder{L"K24", L"15", L"16", {L"#500", L"#501", L"#502"}}));
// clang-format on

TEST_F(ListRowsTest, objectsKind_isComparedAsANumber)
{
    tree().select(L"K20");
    addProcedureRow({.lHdl = 100});
    removeListRow(L"08", L"K100");
    EXPECT_EQ(shownRows(), 0);
}

TEST_F(ListRowsTest, keyThatIsWrittenInAnotherWay_isNoRows)
{
    tree().select(L"K20");
    addProcedureRow({.lHdl = 100});
    for (const wchar_t* key : {L"K100x", L"K0100", L"K 100", L"K100 ", L"K+100", L"k100"})
        removeListRow(L"8", key);
    EXPECT_EQ(keys(), Texts{L"K100"});
}

TEST_F(ListRowsTest, removedRowWhileAConnectionIsSelected_stays)
{
    tree().select(L"K10");
    addViewRow({.lHdl = 300});
    removeListRow(L"6", L"K300");
    removeListRow(L"7", L"K300");
    removeListRow(L"-1", L"K300");
    EXPECT_EQ(keys(), Texts{L"K300"});
}

TEST_F(ListRowsTest, keysOfRows_areTheirHandles)
{
    addProcedureRow({.lHdl = 100});
    addFunctionRow({.lHdl = -7});
    addTriggerRow({.lHdl = 0});
    addTableRow({.lHdl = 2147483647});
    addViewRow({.lHdl = 300});
    EXPECT_EQ(keys(), (Texts{L"K100", L"K-7", L"K0", L"K2147483647", L"K300"}));
}

TEST_F(ListRowsTest, triggersTablesAndViews_haveNoTagAndAreNeverBold)
{
    addTriggerRow({.lHdl = 100, .bIsDirty = true, .strName = L"t"});
    addTableRow({.lHdl = 200, .bIsDirty = true, .strName = L"n"});
    addViewRow({.lHdl = 300, .bIsDirty = true, .strName = L"v"});
    EXPECT_TRUE(row(0).tag().empty() && row(1).tag().empty() && row(2).tag().empty());
    EXPECT_FALSE(row(0).looks().bold || row(1).looks().bold || row(2).looks().bold);
    EXPECT_EQ(pictureOf(0) + pictureOf(1) + pictureOf(2), L"TriggerVelkTableVelkView");
}

TEST_F(ListRowsTest, routines_areBoldWithTheirDirtyPicturesWhenTheyAreDirty)
{
    addProcedureRow({.lHdl = 100, .bIsDirty = true});
    addProcedureRow({.lHdl = 101, .bIsDirty = false});
    addFunctionRow({.lHdl = 102, .bIsDirty = true});
    addFunctionRow({.lHdl = 103, .bIsDirty = false});
    EXPECT_EQ(pictureOf(0), L"DirtyStoredProcedure");
    EXPECT_EQ(pictureOf(1), L"StoredProcedure");
    EXPECT_EQ(pictureOf(2), L"DirtyUserFunction");
    EXPECT_EQ(pictureOf(3), L"UserFunction");
    EXPECT_TRUE(row(0).looks().bold && row(2).looks().bold);
    EXPECT_FALSE(row(1).looks().bold || row(3).looks().bold);
}

// The other cells come with the next folder contents.
TEST_F(ListRowsTest, updatedProcedure_changesNameTagAndLooksOnly)
{
    tree().select(L"K20");
    addProcedureRow({.lHdl = 100, .strSchema = L"s", .strName = L"n", .strParameters = L"p", .strComment = L"c"});
    trzProcedure changed{.lHdl = 100, .strSchema = L"S", .strName = L"N", .strParameters = L"P", .strComment = L"C"};
    changed.bCanDebug = true;
    changed.strFileName = L"f";
    updateProcedureRow(changed);
    EXPECT_EQ(cells(0), (Texts{L"N", L"s", L"p", L"0", L"", L"", L"", L"False", L"c"}));
    EXPECT_EQ(row(0).tag(), L"True#f");
}

TEST_F(ListRowsTest, updatedFunction_leavesItsOtherCellsAlone)
{
    tree().select(L"K21");
    addFunctionRow({.lHdl = 100, .strSchema = L"s", .strName = L"n", .strComment = L"c"});
    updateFunctionRow({.lHdl = 100, .strSchema = L"S", .strName = L"N", .strComment = L"C"});
    EXPECT_EQ(cells(0), (Texts{L"N", L"s", L"", L"", L"", L"", L"0", L"c"}));
}

TEST_F(ListRowsTest, clearedList_isEmptyAndTakesTheSameKeysAgain)
{
    addViewRow({.lHdl = 300});
    clearListRows();
    EXPECT_EQ(shownRows(), 0);
    addViewRow({.lHdl = 300});
    EXPECT_EQ(shownRows(), 1);
}

TEST_F(ListRowsTest, nodes_standInTheOrderOfTheirComing)
{
    const auto next = [this](UINT relation, LPARAM item) {
        return tree().send(TVM_GETNEXTITEM, relation, static_cast<LPARAM>(item));
    };
    tree().select(L"K20");
    const LPARAM first = next(TVGN_CARET, 0);
    tree().select(L"K21");
    EXPECT_EQ(next(TVGN_NEXT, first), next(TVGN_CARET, 0));
    tree().select(L"K24");
    EXPECT_EQ(next(TVGN_NEXT, next(TVGN_CARET, 0)), 0);
}

TEST_F(ListRowsTest, disconnectedConnection_looksLikeOneFromTheStart)
{
    addConnectionNode(L"K1", {.lHdl = 11, .bConnected = false, .strDatabase = L"SALES"});
    EXPECT_EQ(imageOf(L"K11"), L"DisconnectedConnection");
    EXPECT_EQ(tree().node(L"K11").text, L"SALES");
    EXPECT_EQ(tree().node(L"K11").tag, L"6");
    EXPECT_EQ(test::parentOf(tree(), L"K11"), L"K1");
}

TEST_F(ListRowsTest, connectionWithATakenKeyOrWithoutItsProject_isIgnored)
{
    addConnectionNode(L"K1", {.lHdl = 10, .bConnected = false, .strDatabase = L"SALES"});
    addConnectionNode(L"K2", {.lHdl = 12, .bConnected = false, .strDatabase = L"SALES"});
    EXPECT_EQ(tree().node(L"K10").text, L"ORDERS");
    EXPECT_EQ(imageOf(L"K10"), L"ConnectedConnection");
    EXPECT_FALSE(tree().has(L"K12"));
}

TEST_F(ListRowsTest, updatedConnectionOfTheSameName_changesItsPictureOnly)
{
    updateConnectionNode({.lHdl = 10, .bConnected = false, .strDatabase = L"ORDERS"});
    EXPECT_EQ(tree().node(L"K10").text, L"ORDERS");
    EXPECT_EQ(imageOf(L"K10"), L"DisconnectedConnection");
}

TEST_F(ListRowsTest, removedNodeThatIsNotThere_leavesTheOthers)
{
    removeNode(L"K99");
    setFolderFiltered(L"K99", true);
    EXPECT_EQ(tree().size(), 7u);
}

TEST_F(ListRowsTest, expandWithNothingSelected_expandsNothing)
{
    tree().send(TVM_SELECTITEM, TVGN_CARET, 0);
    expandSelected();
    EXPECT_FALSE(test::isExpanded(tree(), L"K1"));
    EXPECT_FALSE(test::isExpanded(tree(), L"K10"));
}

} // namespace
} // namespace velk
