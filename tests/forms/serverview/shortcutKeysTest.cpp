#include "commandsFixture.h"

#include <array>

namespace velk {
namespace {

using test::Calls;

class KeysTest : public test::CommandsFixture {
protected:
    KeysTest() { ShowWindow(host, SW_SHOW); }
    bool press(WPARAM key, UINT how = WM_KEYDOWN)
    {
        MSG message{};
        message.hwnd = GetFocus();
        message.message = how;
        message.wParam = key;
        return view.translateKey(message);
    }
};

TEST_F(KeysTest, f5_refreshesTheSelectedFolder)
{
    tree().select(L"K23");
    SetFocus(tree().hwnd());
    backend.calls.clear();
    EXPECT_TRUE(press(VK_F5));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(23, 10)"});
}

TEST_F(KeysTest, f5OnAConnection_isLeftToTheIde)
{
    tree().select(L"K10");
    SetFocus(tree().hwnd());
    EXPECT_FALSE(press(VK_F5));
}

TEST_F(KeysTest, enterOnARow_doesItsFirstEnabledItem)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 25)"});
}

TEST_F(KeysTest, deleteOnARoutine_removesItFromTheProject)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    EXPECT_TRUE(press(VK_DELETE));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 21)"});
}

TEST_F(KeysTest, deleteOnAConnection_removesIt)
{
    tree().select(L"K10");
    SetFocus(tree().hwnd());
    backend.calls.clear();
    EXPECT_TRUE(press(VK_DELETE));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(10, 21)"});
}

TEST_F(KeysTest, deleteOnAFolder_isLeftToTheIde)
{
    tree().select(L"K20");
    SetFocus(tree().hwnd());
    backend.calls.clear();
    EXPECT_FALSE(press(VK_DELETE));
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(KeysTest, deleteOnATable_isLeftToTheIde)
{
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"n"});
    list().view().selectRow(0);
    SetFocus(list().view().hwnd());
    EXPECT_FALSE(press(VK_DELETE));
}

TEST_F(KeysTest, focusThatComesBack_goesToThePaneThatHadIt)
{
    SetFocus(view.hwnd());
    EXPECT_EQ(GetFocus(), tree().hwnd());
    SetFocus(list().view().hwnd());
    SetFocus(host);
    SetFocus(view.hwnd());
    EXPECT_EQ(GetFocus(), list().view().hwnd());
    SetFocus(tree().hwnd());
    SetFocus(host);
    SetFocus(view.hwnd());
    EXPECT_EQ(GetFocus(), tree().hwnd());
}

TEST_F(KeysTest, tab_movesBetweenTreeAndList)
{
    SetFocus(tree().hwnd());
    EXPECT_TRUE(press(VK_TAB));
    EXPECT_EQ(GetFocus(), list().view().hwnd());
    EXPECT_TRUE(press(VK_TAB));
    EXPECT_EQ(GetFocus(), tree().hwnd());
}

TEST_F(KeysTest, keyWithAlt_isLeftToTheIde)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    EXPECT_FALSE(press(VK_DOWN, WM_SYSKEYDOWN));
    EXPECT_EQ(list().view().focusedRow(), 0);
}

class KeyElsewhereTest : public KeysTest, public testing::WithParamInterface<WPARAM> {
protected:
    ~KeyElsewhereTest() override { DestroyWindow(edit); }
    HWND edit =
        CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 500, 100, 20, host, nullptr, nullptr, nullptr);
};

// Another window's key, with a routine and its folder selected for it to fall upon.
TEST_P(KeyElsewhereTest, key_isLeftToTheWindowThatHasTheFocus)
{
    showProcedure();
    SetFocus(edit);
    EXPECT_FALSE(press(GetParam()));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(list().selectedCount(), 1u);
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_P(KeyElsewhereTest, keyOfTheTree_isLeftToTheWindowThatHasTheFocus)
{
    tree().select(L"K10");
    backend.calls.clear();
    SetFocus(edit);
    EXPECT_FALSE(press(GetParam()));
    EXPECT_EQ(tree().selected()->key, L"K10");
    EXPECT_EQ(backend.calls, Calls{});
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyElsewhereTest,
                         testing::Values(VK_TAB, VK_F5, VK_RETURN, VK_DELETE, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN,
                                         VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_SPACE, VK_ESCAPE, VK_APPS, 'P', '7'));

struct ModifiedKey {
    int modifier;
    WPARAM key;
};
class ModifiedKeyTest : public KeysTest, public testing::WithParamInterface<ModifiedKey> {
protected:
    ~ModifiedKeyTest() override { hold(false); }
    // Presses the parameter's modifier, or lets go of it.
    void hold(bool isDown)
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys.at(static_cast<size_t>(GetParam().modifier)) = isDown ? 0x80 : 0;
        SetKeyboardState(keys.data());
    }
};

// Each of these keys does something on a procedure's row, so that it is the modifier that makes the difference.
TEST_P(ModifiedKeyTest, keyWithAModifier_isLeftToTheIde)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    hold(true);
    EXPECT_FALSE(press(GetParam().key));
    EXPECT_EQ(backend.calls, Calls{});
    hold(false);
    EXPECT_TRUE(press(GetParam().key));
    EXPECT_EQ(backend.calls.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Modifiers, ModifiedKeyTest,
                         testing::Values(ModifiedKey{VK_CONTROL, VK_F5}, ModifiedKey{VK_CONTROL, VK_RETURN},
                                         ModifiedKey{VK_CONTROL, VK_DELETE}, ModifiedKey{VK_SHIFT, VK_F5},
                                         ModifiedKey{VK_SHIFT, VK_RETURN}, ModifiedKey{VK_SHIFT, VK_DELETE},
                                         ModifiedKey{VK_MENU, VK_F5}, ModifiedKey{VK_MENU, VK_DELETE}));

} // namespace
} // namespace velk
