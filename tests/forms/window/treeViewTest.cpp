#include "window/tree_view.h"

#include "base/unique_any.h"

#include <gtest/gtest.h>

#include <functional>

namespace velk {
namespace {

WNDPROC treeProcedure = nullptr;
WNDPROC parentProcedure = nullptr;
int questions = 0;
TreeView* toldOf = nullptr;
std::function<void(const NMTREEVIEWW&)> hearer;

LRESULT CALLBACK counting(HWND to, UINT message, WPARAM wParam, LPARAM lParam)
{
    questions += message == TVM_GETNEXTITEM;
    return CallWindowProcW(treeProcedure, to, message, wParam, lParam);
}

// As the view does.
LRESULT CALLBACK hearing(HWND to, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_NOTIFY || !toldOf)
        return CallWindowProcW(parentProcedure, to, message, wParam, lParam);
    const auto heard = toldOf->hearing();
    const auto& notification = *reinterpret_cast<const NMTREEVIEWW*>(lParam);
    if (notification.hdr.code == TVN_DELETEITEMW)
        toldOf->onDeleteItem(notification);
    if (hearer)
        hearer(notification);
    return 0;
}

// A tree with a root and two nodes, whose questions about the selection are counted.
class TreeViewTest : public testing::Test {
protected:
    TreeViewTest()
    {
        parentProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(parent.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&hearing)));
        toldOf = &tree;
        tree.addRoot({L"K1", L"5", L"orders"});
        tree.add(L"K1", {L"K2", L"7", L"Procedures"});
        tree.add(L"K1", {L"K3", L"9", L"Functions"});
        treeProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(tree.hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&counting)));
        tree.select(L"K2");
        questions = 0;
    }
    ~TreeViewTest() override
    {
        hearer = nullptr;
        toldOf = nullptr;
    }
    std::wstring selected() { return tree.selected() ? tree.selected()->key : L"none"; }

    unique_any<window_traits> parent{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 200, 200, nullptr, nullptr, nullptr, nullptr)};
    TreeView tree{parent.get()};
};

TEST_F(TreeViewTest, selection_isAskedForOnceUntilTheTreeTellsOfSomething)
{
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 1);
    SendMessageW(tree.hwnd(), WM_KEYDOWN, VK_SHIFT, 0); // it tells of every key
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 2);
}

TEST_F(TreeViewTest, notification_isHeardWithTheSelectionUnknown)
{
    int asked = 0;
    hearer = [&](const NMTREEVIEWW&) {
        const int before = questions;
        selected();
        asked = questions - before;
    };
    EXPECT_EQ(selected(), L"K2");
    SendMessageW(tree.hwnd(), WM_KEYDOWN, VK_SHIFT, 0);
    EXPECT_EQ(asked, 1);
}

TEST_F(TreeViewTest, addedNode_leavesTheSelectionKnown)
{
    EXPECT_EQ(selected(), L"K2");
    tree.add(L"K1", {L"K4", L"7", L"Views"});
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 1);
}

TEST_F(TreeViewTest, selectionOnItsWay_isNotRemembered)
{
    hearer = [this](const NMTREEVIEWW& notification) {
        if (notification.hdr.code == TVN_SELCHANGINGW) {
            EXPECT_EQ(selected(), L"K2");
        }
        if (notification.hdr.code == TVN_SELCHANGEDW) {
            EXPECT_EQ(selected(), L"K3");
        }
    };
    EXPECT_EQ(selected(), L"K2");
    SendMessageW(tree.hwnd(), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(selected(), L"K3");
}

// The control says nothing more of a selection that goes with the last node.
TEST_F(TreeViewTest, selectionAskedForWhileSomebodyDeletesAll_isForgotten)
{
    hearer = [this](const NMTREEVIEWW& notification) {
        if (notification.hdr.code == TVN_DELETEITEMW)
            tree.selected();
    };
    tree.select(L"K1");
    EXPECT_EQ(selected(), L"K1");
    SendMessageW(tree.hwnd(), TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    EXPECT_EQ(tree.size(), 0u);
    EXPECT_EQ(selected(), L"none");
}

TEST_F(TreeViewTest, clearedTree_hasNoSelection)
{
    EXPECT_EQ(selected(), L"K2");
    tree.clear();
    EXPECT_EQ(selected(), L"none");
    tree.addRoot({L"K9", L"5", L"orders"});
    tree.select(L"K9");
    EXPECT_EQ(selected(), L"K9");
}

TEST_F(TreeViewTest, firstNode_makesTheSelectionUnknown)
{
    tree.clear();
    EXPECT_EQ(selected(), L"none");
    questions = 0;
    tree.addRoot({L"K9", L"5", L"orders"});
    const int before = questions;
    selected();
    EXPECT_EQ(questions, before + 1);
}

TEST_F(TreeViewTest, selectionByTheUser_isKnown)
{
    EXPECT_EQ(selected(), L"K2");
    SendMessageW(tree.hwnd(), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(selected(), L"K3");
}

// Not every system tells that the selection went up with its branch.
TEST_F(TreeViewTest, selectionInABranchThatIsCollapsed_isTheBranch)
{
    EXPECT_EQ(selected(), L"K2");
    tree.expand(L"K1", false);
    EXPECT_EQ(selected(), L"K1");
}

TEST_F(TreeViewTest, selectedNodeThatGoes_isForgotten)
{
    EXPECT_EQ(selected(), L"K2");
    tree.remove(L"K2");
    EXPECT_EQ(selected(), L"K3");
}

} // namespace
} // namespace velk
