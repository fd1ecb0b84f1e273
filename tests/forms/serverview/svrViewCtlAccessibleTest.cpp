#include "support/accessible.h"
#include "viewFixture.h"

namespace velk {
namespace {

// What a screen reader can tell of the view. Wine's client library knows names, states and places of windows; rows,
// nodes and kinds of controls it leaves out, so that these tests ask for what the system's own derives them from: the
// class, the style, and the messages that it sends.
class AccessibleViewTest : public test::ViewFixture {
protected:
    AccessibleViewTest()
    {
        addProject();
        tree().expand(L"K1");
        tree().select(L"K20");
        for (int32_t row = 0; row < 120; ++row)
            addProcedureRow({.lHdl = 100 + row, .strSchema = L"sales", .strName = L"p" + std::to_wstring(row)});
        ShowWindow(host, SW_SHOW);
    }
    HWND listWindow() { return list().view().hwnd(); }
    LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(listWindow(), message, wParam, lParam);
    }
    static bool isFocused(HWND window) { return (test::Accessible(window).state() & STATE_SYSTEM_FOCUSED) != 0; }
    static std::wstring classOf(HWND window)
    {
        std::wstring name(64, L'\0');
        name.resize(static_cast<size_t>(GetClassNameW(window, name.data(), 64)));
        return name;
    }
    TVITEMW selectedNode(std::wstring& text)
    {
        text.resize(64);
        TVITEMW item{};
        item.mask = TVIF_TEXT | TVIF_STATE | TVIF_CHILDREN;
        item.stateMask = TVIS_SELECTED | TVIS_EXPANDED;
        item.hItem = reinterpret_cast<HTREEITEM>(tree().send(TVM_GETNEXTITEM, TVGN_CARET));
        item.pszText = text.data();
        item.cchTextMax = 64;
        tree().send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        text.resize(wcslen(text.c_str()));
        return item;
    }
};

TEST_F(AccessibleViewTest, panes_tellTheirNames)
{
    EXPECT_EQ(test::Accessible(tree().hwnd()).name(), L"#400"); // the tool window's caption
    EXPECT_EQ(test::Accessible(listWindow()).name(), L"Procedures");
    tree().select(L"K24");
    EXPECT_EQ(test::Accessible(listWindow()).name(), L"Views");
}

TEST_F(AccessibleViewTest, focus_isToldOfThePaneThatHasIt)
{
    SetFocus(tree().hwnd());
    EXPECT_TRUE(isFocused(tree().hwnd()));
    EXPECT_FALSE(isFocused(listWindow()));
    SetFocus(listWindow());
    EXPECT_TRUE(isFocused(listWindow()));
    EXPECT_FALSE(isFocused(tree().hwnd()));
}

TEST_F(AccessibleViewTest, view_hasPanesThatLieInIt)
{
    const RECT all = test::Accessible(view.hwnd()).place();
    const RECT pane = test::Accessible(listWindow()).place();
    RECT both{};
    UnionRect(&both, &all, &pane);
    EXPECT_TRUE(EqualRect(&both, &all));
    EXPECT_GT(pane.bottom - pane.top, 0);
    EXPECT_EQ(test::Accessible(view.hwnd()).childCount(), 3); // and the bar between them
}

TEST_F(AccessibleViewTest, panes_areTheSystemsOwnKindsOfControls)
{
    EXPECT_EQ(classOf(tree().hwnd()), WC_TREEVIEWW);
    EXPECT_EQ(classOf(listWindow()), WC_LISTVIEWW);
    EXPECT_EQ(GetWindowLongW(listWindow(), GWL_STYLE) & LVS_TYPEMASK, LVS_REPORT);
}

TEST_F(AccessibleViewTest, row_tellsNameStateAndPlaceAmongAll)
{
    list().view().selectRow(2);
    EXPECT_EQ(cell(2, 0), L"p2");
    EXPECT_EQ(ask(LVM_GETITEMSTATE, 2, LVIS_SELECTED | LVIS_FOCUSED), LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_EQ(ask(LVM_GETITEMSTATE, 3, LVIS_SELECTED | LVIS_FOCUSED), 0);
    EXPECT_EQ(ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) + 1, 3); // 3 of 120
    EXPECT_EQ(ask(LVM_GETITEMCOUNT), 120);
}

TEST_F(AccessibleViewTest, severalSelectedRows_areToldEachAndTheOthersNot)
{
    EXPECT_EQ(GetWindowLongW(listWindow(), GWL_STYLE) & LVS_SINGLESEL, 0); // a list of which several can be selected
    SetFocus(listWindow());
    list().view().selectRow(2);
    ListSelection(list().view()).add(5);
    EXPECT_EQ(ask(LVM_GETSELECTEDCOUNT), 2);
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(ask(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) == LVIS_SELECTED, row == 2 || row == 5)
            << row;
    EXPECT_EQ(ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 2);
}

TEST_F(AccessibleViewTest, rowsOtherCells_areToldWithTheirHeaders)
{
    EXPECT_EQ(header(1) + L": " + cell(2, 1), L"#501: sales");
}

TEST_F(AccessibleViewTest, node_tellsItsTextAndWhetherItIsOpen)
{
    std::wstring text;
    EXPECT_EQ(selectedNode(text).state & (TVIS_SELECTED | TVIS_EXPANDED), UINT{TVIS_SELECTED});
    EXPECT_EQ(text, L"Procedures");
    tree().select(L"K1");
    EXPECT_EQ(selectedNode(text).state & (TVIS_SELECTED | TVIS_EXPANDED), UINT{TVIS_SELECTED | TVIS_EXPANDED});
    EXPECT_EQ(text, L"orders");
    EXPECT_EQ(selectedNode(text).cChildren, 1);
}

} // namespace
} // namespace velk
