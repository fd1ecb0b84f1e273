#include "viewFixture.h"

namespace velk {
namespace {

using test::Calls;

// The view with a project, and a tree that can be made to move its selection through its nodes one by one while nodes
// are deleted or the tree goes, and select its first node while that is inserted, as system's trees may.
class SelectionTest : public test::ViewFixture {
protected:
    SelectionTest()
    {
        addProject();
        addConnectionNode(L"K1", {.lHdl = 11, .strDatabase = L"SALES"});
        tree().select(L"K23");
        addTableRow({.lHdl = 200, .strName = L"n"});
        backend.calls.clear();
    }
    ~SelectionTest() override
    {
        if (systemTree())
            SetWindowLongPtrW(tree().hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(systemTree()));
        systemTree() = nullptr;
        selectsItsFirst() = false;
    }
    void makeTheTreeRestless()
    {
        systemTree() = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(tree().hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(restless)));
    }
    static bool& selectsItsFirst()
    {
        static bool selects = false;
        return selects;
    }
    static bool& isInserting()
    {
        static bool inserting = false;
        return inserting;
    }
    std::wstring selected() { return tree().selected() ? tree().selected()->key : std::wstring(); }

private:
    static WNDPROC& systemTree()
    {
        static WNDPROC before = nullptr;
        return before;
    }
    static LRESULT pass(HWND tree, UINT message, WPARAM wParam, LPARAM lParam)
    {
        return CallWindowProcW(systemTree(), tree, message, wParam, lParam);
    }
    static LRESULT insert(HWND tree, LPARAM insertion)
    {
        isInserting() = true;
        const LRESULT made = pass(tree, TVM_INSERTITEMW, 0, insertion);
        if (selectsItsFirst() && !pass(tree, TVM_GETNEXTITEM, TVGN_CARET, 0))
            pass(tree, TVM_SELECTITEM, TVGN_CARET, made);
        isInserting() = false;
        return made;
    }
    static LRESULT CALLBACK restless(HWND tree, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == TVM_DELETEITEM || message == WM_DESTROY)
            for (LRESULT item = pass(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0); item;
                 item = pass(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item))
                pass(tree, TVM_SELECTITEM, TVGN_CARET, item);
        return message == TVM_INSERTITEMW ? insert(tree, lParam) : pass(tree, message, wParam, lParam);
    }
};

TEST_F(SelectionTest, firstNodeThatIsSelectedOnItsWayIn_isToldWhenItIsThere)
{
    tree().clear();
    makeTheTreeRestless();
    selectsItsFirst() = true;
    backend.calls.clear();
    bool isToldInside = false;
    backend.onCall = [&](const std::string&) { isToldInside = isToldInside || isInserting(); };
    addFolderNode(L"", L"5", L"K9", L"orders", L"True");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(9, 5)"});
    EXPECT_FALSE(isToldInside);
}

TEST_F(SelectionTest, removedConnection_isFollowedByOneSelection)
{
    removeNode(L"K10");
    EXPECT_EQ(selected(), L"K11");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(11, 6)"});
    EXPECT_EQ(list().view().columnCount(), 0);
    EXPECT_EQ(shownRows(), 0);
}

TEST_F(SelectionTest, treeThatMovesItsSelectionOnTheWay_changesNothingForTheTool)
{
    makeTheTreeRestless();
    removeNode(L"K10");
    EXPECT_EQ(selected(), L"K11");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(11, 6)"});
}

TEST_F(SelectionTest, removedNodeElsewhere_leavesTheSelectionAlone)
{
    makeTheTreeRestless();
    removeNode(L"K11");
    EXPECT_EQ(selected(), L"K23");
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(shownRows(), 1);
}

TEST_F(SelectionTest, removedFolder_leavesItsPlaceToTheNextOne)
{
    removeNode(L"K23");
    EXPECT_EQ(selected(), L"K24");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(24, 15)"});
    EXPECT_EQ(list().view().columnCount(), 3);
    EXPECT_EQ(shownRows(), 0);
}

TEST_F(SelectionTest, removedLastFolder_leavesItsPlaceToTheOneBefore)
{
    tree().select(L"K24");
    removeNode(L"K24");
    EXPECT_EQ(selected(), L"K23");
}

TEST_F(SelectionTest, removedOnlyConnection_leavesItsPlaceToTheProject)
{
    removeNode(L"K11");
    removeNode(L"K10");
    EXPECT_EQ(selected(), L"K1");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(1, 5)"});
}

TEST_F(SelectionTest, removedProject_leavesNothingSelectedAndNothingAsked)
{
    makeTheTreeRestless();
    removeNode(L"K1");
    EXPECT_EQ(tree().size(), 0u);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(list().view().columnCount(), 0);
    EXPECT_EQ(shownRows(), 0);
}

TEST_F(SelectionTest, projectThatReplacesAnother_asksForNoneOfItsFolders)
{
    makeTheTreeRestless();
    addFolderNode(L"", L"5", L"K2", L"other", L"True");
    EXPECT_EQ(tree().size(), 1u);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(list().view().columnCount(), 0);
    EXPECT_EQ(shownRows(), 0);
}

TEST_F(SelectionTest, treeThatGoesWithItsHost_asksForNoFolder)
{
    makeTheTreeRestless();
    DestroyWindow(host);
    EXPECT_FALSE(IsWindow(tree().hwnd()));
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(SelectionTest, removedFolderThatComesBack_isSelectedAnew)
{
    removeNode(L"K1");
    addProject();
    backend.calls.clear();
    tree().select(L"K23");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(23, 13)"});
    EXPECT_EQ(list().view().columnCount(), 5);
}

TEST_F(SelectionTest, nodeThatWasSelectedLast_isForgottenWhenItGoesUnselected)
{
    tree().send(TVM_SELECTITEM, TVGN_CARET, 0);
    removeNode(L"K23");
    EXPECT_EQ(list().view().columnCount(), 0);
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(SelectionTest, nodeSelectedInTheFirstSetUp_hasNoColumnsYet)
{
    svrViewCtl other;
    other.create(host, {0, 0, 400, 300});
    backend.unjournaled.erase("RZGetString");
    backend.onCall = [&](const std::string& call) {
        if (call != "RZGetString(500)")
            return;
        addFolderNode(L"", L"7", L"K9", L"Procedures", L"True");
        other.serverTreeView().select(L"K9");
    };
    other.setupGUI();
    EXPECT_EQ(other.serverTreeView().selected()->key, L"K9");
    EXPECT_EQ(other.serverDetailsView().view().columnCount(), 0);
    other.selectNode(true);
    EXPECT_EQ(other.serverDetailsView().view().columnCount(), 9);
}

} // namespace
} // namespace velk
