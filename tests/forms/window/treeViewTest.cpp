#include "window/tree_view.h"

#include "base/unique_any.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

WNDPROC treeProcedure = nullptr;
int questions = 0;

LRESULT CALLBACK counting(HWND to, UINT message, WPARAM wParam, LPARAM lParam)
{
    questions += message == TVM_GETNEXTITEM;
    return CallWindowProcW(treeProcedure, to, message, wParam, lParam);
}

// A tree with a root and two nodes, whose questions about the selection are counted.
class TreeViewTest : public testing::Test {
protected:
    TreeViewTest()
    {
        tree.addRoot({L"K1", L"5", L"orders"});
        tree.add(L"K1", {L"K2", L"7", L"Procedures"});
        tree.add(L"K1", {L"K3", L"9", L"Functions"});
        treeProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(tree.hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&counting)));
        tree.select(L"K2");
        questions = 0;
    }
    std::wstring selected() { return tree.selected() ? tree.selected()->key : L"none"; }

    unique_any<window_traits> parent{
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 200, 200, nullptr, nullptr, nullptr, nullptr)};
    TreeView tree{parent.get()};
};

TEST_F(TreeViewTest, selection_isAskedForOnceUntilTheTreeGetsAnotherMessage)
{
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 1);
    SendMessageW(tree.hwnd(), WM_NULL, 0, 0);
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 2);
}

TEST_F(TreeViewTest, selectionByTheUser_isKnown)
{
    EXPECT_EQ(selected(), L"K2");
    SendMessageW(tree.hwnd(), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(selected(), L"K3");
}

TEST_F(TreeViewTest, selectedNodeThatGoes_isForgotten)
{
    EXPECT_EQ(selected(), L"K2");
    tree.remove(L"K2");
    EXPECT_EQ(selected(), L"K3");
}

// While the tree itself goes, nothing but this tells of its nodes.
TEST_F(TreeViewTest, nodeThatIsDeleted_makesTheSelectionUnknown)
{
    EXPECT_EQ(selected(), L"K2");
    tree.onDeleteItem({});
    EXPECT_EQ(selected(), L"K2");
    EXPECT_EQ(questions, 2);
}

} // namespace
} // namespace velk
