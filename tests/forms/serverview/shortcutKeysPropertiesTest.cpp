// Alt+Enter, and what a double click has in common with Enter.
#include "commandsFixture.h"

#include <array>

namespace velk {
namespace {

using test::Calls;

class PropertiesKeyTest : public test::CommandsFixture {
protected:
    PropertiesKeyTest() { ShowWindow(host, SW_SHOW); }
    ~PropertiesKeyTest() override { hold(VK_MENU, false); }
    static void hold(int modifier, bool isDown)
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys.at(static_cast<size_t>(modifier)) = isDown ? 0x80 : 0;
        SetKeyboardState(keys.data());
    }
    bool pressAltEnter()
    {
        hold(VK_MENU, true);
        const MSG message{GetFocus(), WM_SYSKEYDOWN, VK_RETURN, 1 << 29, 0, {}};
        const bool isUsed = view.translateKey(message);
        hold(VK_MENU, false);
        return isUsed;
    }
    bool pressAltEnterOn(const std::wstring& node)
    {
        tree().select(node);
        SetFocus(tree().hwnd());
        backend.calls.clear();
        return pressAltEnter();
    }
    void doubleClick(int row, UINT modifiers = 0)
    {
        NMITEMACTIVATE click{};
        click.hdr = {list().view().hwnd(), 0, NM_DBLCLK};
        click.iItem = row;
        click.uKeyFlags = modifiers;
        SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    }
};

TEST_F(PropertiesKeyTest, altEnterOnARow_showsItsProperties)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    EXPECT_TRUE(pressAltEnter());
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 13)"});
}

TEST_F(PropertiesKeyTest, altEnterOnRowsOfOtherKinds_showsTheirProperties)
{
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"n"});
    list().view().selectRow(0);
    SetFocus(list().view().hwnd());
    backend.calls.clear();
    EXPECT_TRUE(pressAltEnter());
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(200, 13)"});
}

TEST_F(PropertiesKeyTest, altEnterWithoutASelectedRow_isLeftToTheIde)
{
    showProcedure();
    list().view().selectRow(-1);
    SetFocus(list().view().hwnd());
    EXPECT_FALSE(pressAltEnter());
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(PropertiesKeyTest, altEnterOnAProjectOrAConnection_showsItsProperties)
{
    EXPECT_TRUE(pressAltEnterOn(L"K1"));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(1, 13)"});
    EXPECT_TRUE(pressAltEnterOn(L"K10"));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(10, 13)"});
}

TEST_F(PropertiesKeyTest, altEnterOnAFolder_isLeftToTheIde)
{
    EXPECT_FALSE(pressAltEnterOn(L"K20"));
    EXPECT_FALSE(pressAltEnterOn(L"K24"));
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(PropertiesKeyTest, altEnterWithoutANode_isLeftToTheIde)
{
    removeNode(L"K1");
    SetFocus(tree().hwnd());
    EXPECT_FALSE(pressAltEnter());
}

TEST_F(PropertiesKeyTest, altEnterWhileAnotherWindowHasTheFocus_isLeftToTheIde)
{
    showProcedure();
    SetFocus(host);
    EXPECT_FALSE(pressAltEnter());
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(PropertiesKeyTest, propertiesThatCannotBeChosen_areLeftToTheIde)
{
    showProcedure();
    SetFocus(list().view().hwnd());
    view.menus()[MenuItem::devObjPropsMnuItem].enabled = false;
    EXPECT_FALSE(pressAltEnter());
    view.menus()[MenuItem::devObjPropsMnuItem] = {L"", 13, true, false};
    EXPECT_FALSE(pressAltEnter());
}

TEST_F(PropertiesKeyTest, doubleClickOnARow_doesWhatEnterDoes)
{
    showProcedure();
    doubleClick(0);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 25)"});
}

TEST_F(PropertiesKeyTest, realDoubleClickOnARow_doesItOnce)
{
    showProcedure();
    const RECT row = list().view().placeOf(0);
    const LPARAM place = MAKELPARAM(row.left + 3, row.top + 3);
    PostMessageW(list().view().hwnd(), WM_LBUTTONUP, 0, place); // the control looks for it
    list().view().send(WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    list().view().send(WM_LBUTTONUP, 0, place);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 25)"});
}

TEST_F(PropertiesKeyTest, doubleClickBesideTheRowsOrWithAModifier_doesNothing)
{
    showProcedure();
    doubleClick(-1);
    doubleClick(0, LVKF_CONTROL);
    doubleClick(0, LVKF_SHIFT);
    doubleClick(0, LVKF_ALT);
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(PropertiesKeyTest, doubleClickInAViewThatEnds_doesNothing)
{
    showProcedure();
    publishedView().life.enter(SessionState::ended);
    doubleClick(0);
    EXPECT_EQ(backend.calls, Calls{});
}

} // namespace
} // namespace velk
