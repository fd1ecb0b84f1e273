#include "commandsFixture.h"

#include "base/error.h"

namespace velk {
namespace {

using enum MenuItem;
using test::Calls;
using test::Lines;

// Right clicks and the menu key, as the system tells them, in a host that counts what is handed on to it.
class ContextMenuTest : public test::CommandsFixture {
protected:
    ContextMenuTest()
    {
        handedOn() = 0;
        before() =
            reinterpret_cast<WNDPROC>(SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(countMenus)));
    }
    static int& handedOn()
    {
        static int count = 0;
        return count;
    }
    // Where the text of a node stands that is not selected.
    RECT textOf(const std::wstring& key)
    {
        const std::wstring selected = tree().selected() ? tree().selected()->key : std::wstring();
        tree().select(key);
        const RECT place = tree().placeOfSelected();
        if (!selected.empty())
            tree().select(selected);
        backend.calls.clear();
        return place;
    }
    // A hundred connections and rows, with the handles 500 to 599 and 600 to 699.
    static void addMany()
    {
        for (int32_t number = 500; number < 600; ++number) {
            addConnectionNode(L"K1", {.lHdl = number, .strDatabase = L"DB"});
            addProcedureRow({.lHdl = number + 100, .strName = L"raise"});
        }
    }
    // Where the button that opens a node stands, from the text leftwards.
    POINT buttonBeside(const RECT& text)
    {
        TVHITTESTINFO test{};
        test.pt = {text.left, (text.top + text.bottom) / 2};
        while (test.pt.x > 0 && !(test.flags & TVHT_ONITEMBUTTON)) {
            --test.pt.x;
            tree().send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
        }
        return test.pt;
    }
    static bool isWithin(HWND window, POINT place)
    {
        RECT area{};
        GetClientRect(window, &area);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
        return PtInRect(&area, place) != FALSE;
    }

private:
    static WNDPROC& before()
    {
        static WNDPROC procedure = nullptr;
        return procedure;
    }
    static LRESULT CALLBACK countMenus(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        handedOn() += message == WM_CONTEXTMENU ? 1 : 0;
        return CallWindowProcW(before(), window, message, wParam, lParam);
    }
};

struct NodeMenu {
    const wchar_t* node;
    const wchar_t* firstCaption;
    size_t items;
    const char* selection; // what the tool is told
};
class NodeMenuTest : public ContextMenuTest, public testing::WithParamInterface<NodeMenu> {
protected:
    // A node of a kind that no menu is made for, besides.
    NodeMenuTest()
    {
        addFolderNode(L"K1", L"99", L"K30", L"Others", L"False");
        tree().select(L"K21");
        tree().expand(L"K1");
    }
};

TEST_P(NodeMenuTest, rightClickOnANode_selectsItOnceAndOpensTheMenuOfItsKind)
{
    tree().select(std::wstring(GetParam().node) == L"K21" ? L"K10" : L"K21");
    const RECT text = textOf(GetParam().node);
    rightClick(tree().hwnd(), {text.left + 2, text.top + 3});
    EXPECT_EQ(tree().selected()->key, GetParam().node);
    EXPECT_EQ(backend.calls, Calls{GetParam().selection});
    ASSERT_EQ(menu.size(), GetParam().items);
    EXPECT_EQ(menu.front().caption, GetParam().firstCaption);
    EXPECT_EQ(handedOn(), 0);
}
INSTANTIATE_TEST_SUITE_P(Kinds, NodeMenuTest,
                         testing::Values(NodeMenu{L"K1", L"#438", 7, "RZSetCurrentFolder(1, 5)"},
                                         NodeMenu{L"K10", L"#408", 6, "RZSetCurrentFolder(10, 6)"},
                                         NodeMenu{L"K20", L"#406", 5, "RZSetCurrentFolder(20, 7)"},
                                         NodeMenu{L"K21", L"#406", 5, "RZSetCurrentFolder(21, 9)"},
                                         NodeMenu{L"K22", L"Refresh", 2, "RZSetCurrentFolder(22, 11)"},
                                         NodeMenu{L"K23", L"Refresh", 2, "RZSetCurrentFolder(23, 13)"},
                                         NodeMenu{L"K24", L"Refresh", 2, "RZSetCurrentFolder(24, 15)"},
                                         NodeMenu{L"K30", L"Refresh", 2, "RZSetCurrentFolder(30, 99)"}));

TEST_F(ContextMenuTest, menu_opensWhereTheMouseIs)
{
    const RECT text = textOf(L"K1");
    POINT place{text.left + 5, text.top + 4};
    rightClick(tree().hwnd(), place);
    ClientToScreen(tree().hwnd(), &place);
    EXPECT_EQ(menuPlace.x, place.x);
    EXPECT_EQ(menuPlace.y, place.y);
}

TEST_F(ContextMenuTest, roomRightOfALabel_isEmptyTreeSpace)
{
    tree().select(L"K10");
    const RECT text = textOf(L"K1");
    rightClick(tree().hwnd(), {text.right + 5, text.top + 4});
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(tree().selected()->key, L"K10");
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, indentLeftOfANode_isEmptyTreeSpace)
{
    tree().select(L"K1");
    tree().expand(L"K1");
    const RECT text = textOf(L"K10");
    rightClick(tree().hwnd(), {2, text.top + 4});
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(tree().selected()->key, L"K1");
}

TEST_F(ContextMenuTest, pictureOfANode_belongsToIt)
{
    tree().select(L"K10");
    const RECT text = textOf(L"K1");
    rightClick(tree().hwnd(), {text.left - 8, text.top + 4});
    EXPECT_EQ(tree().selected()->key, L"K1");
    EXPECT_EQ(menu.size(), 7u);
}

TEST_F(ContextMenuTest, buttonOfANode_belongsToIt)
{
    const RECT text = textOf(L"K1");
    tree().select(L"K10");
    rightClick(tree().hwnd(), buttonBeside(text));
    EXPECT_EQ(tree().selected()->key, L"K1");
    EXPECT_EQ(menu.size(), 7u);
}

TEST_F(ContextMenuTest, rightClickOnARow_selectsIt)
{
    showProcedure();
    addProcedureRow({.lHdl = 101, .strName = L"lower", .strLanguage = L"SQL"});
    chosen = static_cast<int>(devObjBuildMnuItem) + 1;
    rightClickRow(1);
    EXPECT_EQ(list().selected()->handle(), 101);
    EXPECT_EQ(list().view().focusedRow(), 1);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(101, 18)"});
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, rightClickOnARowWithoutASelectedNode_showsNoMenu)
{
    showProcedure();
    tree().send(TVM_SELECTITEM, TVGN_CARET, 0);
    rightClickRow(0);
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, rowUnderANodeThatIsNoFolder_hasNoMenu)
{
    tree().select(L"K10");
    addViewRow({.lHdl = 300, .strName = L"v"});
    rightClickRow(0);
    EXPECT_TRUE(menu.empty());
}

TEST_F(ContextMenuTest, keyboardMenuOfANodeThatIsScrolledOut_opensInsideTheTree)
{
    addMany();
    tree().select(L"K599");
    tree().send(WM_VSCROLL, SB_TOP);
    ASSERT_GT(tree().placeOfSelected().top, 400);
    askForMenuByKeyboard(tree().hwnd());
    EXPECT_EQ(menu.front().caption, L"#408");
    EXPECT_PRED2(isWithin, tree().hwnd(), (POINT{menuPlace.x, menuPlace.y - 1}));
    EXPECT_LT(tree().placeOfSelected().top, 400);
}

TEST_F(ContextMenuTest, keyboardMenuOfARowThatIsScrolledOut_opensInsideTheList)
{
    tree().select(L"K20");
    addMany();
    list().view().selectRow(90);
    list().view().scrollToTop(0);
    ASSERT_GT(list().view().placeOf(90).top, 400);
    askForMenuByKeyboard(list().view().hwnd());
    EXPECT_EQ(menu.front().caption, L"#414");
    EXPECT_PRED2(isWithin, list().view().hwnd(), (POINT{menuPlace.x, menuPlace.y - 1}));
    EXPECT_LT(list().view().placeOf(90).top, 400);
}

TEST_F(ContextMenuTest, keyboardMenuOfARowThatIsScrolledToTheSide_opensInsideTheList)
{
    showProcedure();
    list().view().setColumnWidth(0, 3000);
    list().view().send(LVM_SCROLL, 2500, 0);
    ASSERT_LT(list().view().placeOf(0).left, 0);
    askForMenuByKeyboard(list().view().hwnd());
    EXPECT_PRED2(isWithin, list().view().hwnd(), menuPlace);
}

TEST_F(ContextMenuTest, keyboardMenuOfAListWithoutAFocusedRow_isNone)
{
    tree().select(L"K20");
    askForMenuByKeyboard(list().view().hwnd());
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, menuThatCannotBeShown_endsItsMessage)
{
    whileMenuIsOpen = [] { throw Error(errorOutOfMemory); };
    const RECT text = textOf(L"K1");
    rightClick(tree().hwnd(), {text.left + 2, text.top + 3});
    EXPECT_FALSE(menu.empty());
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, saveAsThatFails_isToldAndEndsItsMessage)
{
    manager->failWith = E_OUTOFMEMORY;
    chosen = static_cast<int>(projSaveAsMnuItem) + 1;
    const RECT text = textOf(L"K1");
    rightClick(tree().hwnd(), {text.left + 2, text.top + 3});
    EXPECT_EQ(messages, Lines{L"Out of memory:7|velkviadd"});
    EXPECT_EQ(backend.calls, Calls{}); // nothing is saved
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, sourceSafeItemThatFails_isToldAndEndsItsMessage)
{
    showProcedure(L"");
    chosen = static_cast<int>(devObjChkOutMnuItem) + 1;
    backend.answers["RZGetStringP2"] = 0;
    int boxes = 0;
    setMessagePresenter([&](const std::wstring& text, uint32_t, const std::wstring&) -> int {
        messages.push_back(text);
        return ++boxes == 1 ? throw Error(errorOutOfMemory) : IDOK;
    });
    rightClickRow(0);
    EXPECT_EQ(messages.back(), L"Out of memory:7");
    EXPECT_EQ(handedOn(), 0);
}

TEST_F(ContextMenuTest, clickOnTheListsHeader_endsThereWithoutAMenu)
{
    showProcedure();
    const auto header = reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER));
    rightClick(header, {5, 5});
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(handedOn(), 0);
}

} // namespace
} // namespace velk
