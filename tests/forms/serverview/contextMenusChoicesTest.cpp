#include "commandsFixture.h"

#include <array>
#include <cstddef>
#include <memory>

namespace velk {
namespace {

using enum MenuItem;
using test::Calls;
using test::Lines;

// Which menu a click opens, and what becomes of the choice when the view changes while the menu is open.
class MenuChoicesTest : public test::CommandsFixture {};

TEST_F(MenuChoicesTest, rightClickOnANode_selectsItAndShowsItsMenu)
{
    const POINT place = placeOfNode(L"K1");
    tree().select(L"K10");
    chosen = static_cast<int>(projSaveMnuItem) + 1;
    backend.calls.clear();
    rightClick(tree().hwnd(), place);
    EXPECT_EQ(tree().selected()->key, L"K1");
    EXPECT_EQ(menu.size(), 7u);
    EXPECT_EQ(backend.calls.back(), "RZObjectDoAction(1, 3)");
}

TEST_F(MenuChoicesTest, choiceForANodeThatIsRemovedMeanwhile_isDropped)
{
    const POINT place = placeOfNode(L"K10");
    chosen = static_cast<int>(conRemoveMnuItem) + 1;
    whileMenuIsOpen = [] { removeNode(L"K10"); };
    rightClick(tree().hwnd(), place);
    EXPECT_EQ(menu.front().caption, L"#408");
    EXPECT_EQ(tree().selected()->key, L"K1"); // what the choice would have fallen on
    EXPECT_THAT(backend.calls, testing::Not(testing::Contains(testing::StartsWith("RZObjectDoAction"))));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(MenuChoicesTest, choiceForARowThatIsRemovedMeanwhile_isDropped)
{
    showProcedure();
    addProcedureRow({.lHdl = 101, .strName = L"lower", .strLanguage = L"SQL"});
    chosen = static_cast<int>(devObjDropMnuItem) + 1;
    whileMenuIsOpen = [this] {
        removeListRow(L"8", L"K100");
        list().view().selectRow(0);
    };
    rightClickRow(0);
    EXPECT_EQ(menu.front().caption, L"#414");
    EXPECT_EQ(list().selected()->handle(), 101); // what the choice would have fallen on
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(MenuChoicesTest, choiceForTheOnlyRowThatIsRemovedMeanwhile_isDropped)
{
    showProcedure();
    chosen = static_cast<int>(devObjDropMnuItem) + 1;
    whileMenuIsOpen = [] { removeListRow(L"8", L"K100"); };
    rightClickRow(0);
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(MenuChoicesTest, choiceWhileAnotherObjectIsRemoved_isCarriedOut)
{
    showProcedure();
    addProcedureRow({.lHdl = 101, .strName = L"lower", .strLanguage = L"SQL"});
    chosen = static_cast<int>(devObjDropMnuItem) + 1;
    whileMenuIsOpen = [] {
        removeListRow(L"8", L"K101");
        removeNode(L"K24");
    };
    rightClickRow(0);
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(100, 22)"});
}

TEST_F(MenuChoicesTest, choiceInAViewThatEndsMeanwhile_isDroppedWithoutALookAtIt)
{
    // The place of the ended view is wiped, so that a look into it is a fault.
    alignas(svrViewCtl) std::array<std::byte, sizeof(svrViewCtl)> room;
    svrViewCtl* const second = new (room.data()) svrViewCtl;
    second->create(host, {0, 0, 400, 300});
    second->setupGUI();
    addProject();
    second->serverTreeView().select(L"K10");
    backend.calls.clear();
    chosen = static_cast<int>(conRemoveMnuItem) + 1;
    whileMenuIsOpen = [&] {
        std::destroy_at(second);
        room.fill(std::byte{});
    };
    const HWND window = second->serverTreeView().hwnd();
    SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(MenuChoicesTest, choiceInAViewThatIsClosedMeanwhile_isDropped)
{
    // Held by the message that opens the menu, as it is in a document.
    const auto second = std::make_shared<svrViewCtl>();
    second->create(host, {0, 0, 400, 300});
    second->setupGUI();
    addProject();
    second->serverTreeView().select(L"K10");
    backend.calls.clear();
    chosen = static_cast<int>(conRemoveMnuItem) + 1;
    whileMenuIsOpen = [&] { DestroyWindow(second->hwnd()); };
    askForMenuByKeyboard(second->serverTreeView().hwnd());
    EXPECT_FALSE(menu.empty());
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(publishedView().serverTreeView, nullptr);
}

TEST_F(MenuChoicesTest, rightClickOnEmptyTreeSpace_popsUpNothingAndChangesNoSelection)
{
    tree().select(L"K10");
    rightClick(tree().hwnd(), {100, 380});
    EXPECT_TRUE(menu.empty());
    EXPECT_EQ(tree().selected()->key, L"K10");
}

TEST_F(MenuChoicesTest, rightClickOnEmptyListSpace_showsNoMenu)
{
    showProcedure();
    rightClick(list().view().hwnd(), {50, 300});
    EXPECT_TRUE(menu.empty());
}

TEST_F(MenuChoicesTest, rightClickOnEmptyListSpace_keepsTheSelectedRow)
{
    showProcedure();
    rightClick(list().view().hwnd(), {50, 300});
    EXPECT_EQ(list().view().selectedRow(), 0);
}

TEST_F(MenuChoicesTest, rightClickOnARow_showsTheMenuOfItsFolder)
{
    showProcedure();
    rightClickRow(0);
    EXPECT_EQ(menu.front().caption, L"#414");
}

TEST_F(MenuChoicesTest, keyboardMenu_opensAtTheFocusedItem)
{
    showProcedure();
    list().view().focusRow(0);
    const HWND window = list().view().hwnd();
    SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    EXPECT_EQ(menu.front().caption, L"#414");
}

} // namespace
} // namespace velk
