#include "filterStripFixture.h"

namespace velk {
namespace {

using test::Calls;

using FilterStripKeysTest = test::FilterStripFixture;

TEST_F(FilterStripKeysTest, tab_goesFromTheTreeThroughTheStripToTheList)
{
    openStrip();
    SetFocus(tree().hwnd());
    for (const HWND next : {edit(), button(), list().view().hwnd(), tree().hwnd()}) {
        EXPECT_TRUE(press(VK_TAB));
        EXPECT_EQ(GetFocus(), next);
    }
    for (const HWND next : {list().view().hwnd(), button(), edit(), tree().hwnd()}) {
        EXPECT_TRUE(press(VK_TAB, {VK_SHIFT}));
        EXPECT_EQ(GetFocus(), next);
    }
}

TEST_F(FilterStripKeysTest, f5InTheStrip_refreshesTheFolder)
{
    openStrip();
    EXPECT_TRUE(press(VK_F5));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(20, 10)"});
}

TEST_F(FilterStripKeysTest, keysOfTheEdit_writeItsText)
{
    openStrip();
    type(L"order");
    EXPECT_TRUE(press(VK_HOME));
    EXPECT_TRUE(press(VK_DELETE));
    EXPECT_EQ(textOf(edit()), L"rder");
    EXPECT_TRUE(press(VK_RIGHT));
    EXPECT_TRUE(press(VK_RIGHT, {VK_SHIFT}));
    EXPECT_EQ(selection(), static_cast<DWORD>(MAKELONG(1, 2)));
    EXPECT_TRUE(press(VK_END));
    EXPECT_EQ(selection(), static_cast<DWORD>(MAKELONG(4, 4)));
    EXPECT_TRUE(press('A', {VK_CONTROL}));
    EXPECT_EQ(selection(), static_cast<DWORD>(MAKELONG(0, 4)));
    EXPECT_TRUE(press(VK_DELETE));
    EXPECT_EQ(textOf(edit()), L"");
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(shownRows(), 3);
}

struct Key {
    WPARAM key;
    std::vector<int> modifiers;
};
class FilterStripOwnKeyTest : public FilterStripKeysTest, public testing::WithParamInterface<Key> {};
TEST_P(FilterStripOwnKeyTest, editingKey_isTheEdits)
{
    openStrip();
    type(L"r");
    EXPECT_TRUE(press(GetParam().key, GetParam().modifiers));
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(GetFocus(), edit());
}
INSTANTIATE_TEST_SUITE_P(Keys, FilterStripOwnKeyTest,
                         testing::Values(Key{'D', {}}, Key{'D', {VK_SHIFT}}, Key{'7', {}}, Key{VK_SPACE, {}},
                                         Key{VK_OEM_MINUS, {}}, Key{VK_DELETE, {}}, Key{VK_DELETE, {VK_SHIFT}},
                                         Key{VK_DELETE, {VK_CONTROL}}, Key{VK_BACK, {}}, Key{VK_BACK, {VK_CONTROL}},
                                         Key{VK_INSERT, {VK_SHIFT}}, Key{VK_INSERT, {VK_CONTROL}}, Key{VK_LEFT, {}},
                                         Key{VK_UP, {}}, Key{VK_LEFT, {VK_SHIFT, VK_CONTROL}}, Key{VK_HOME, {VK_SHIFT}},
                                         Key{VK_END, {VK_CONTROL}}, Key{'A', {VK_CONTROL}}, Key{'Z', {VK_CONTROL}},
                                         Key{'Q', {VK_CONTROL, VK_MENU}}));

class FilterStripHostsKeyTest : public FilterStripKeysTest, public testing::WithParamInterface<Key> {};
TEST_P(FilterStripHostsKeyTest, otherKey_isTheIdes)
{
    openStrip();
    type(L"r");
    EXPECT_FALSE(press(GetParam().key, GetParam().modifiers));
    EXPECT_EQ(textOf(edit()), L"r");
    EXPECT_EQ(backend.calls, Calls{});
}
INSTANTIATE_TEST_SUITE_P(Keys, FilterStripHostsKeyTest,
                         testing::Values(Key{VK_F7, {}}, Key{VK_F5, {VK_CONTROL}}, Key{'S', {VK_CONTROL}},
                                         Key{'F', {VK_CONTROL, VK_SHIFT}}, Key{VK_RETURN, {VK_SHIFT}},
                                         Key{VK_ESCAPE, {VK_SHIFT}}, Key{VK_TAB, {VK_CONTROL}}, Key{'F', {VK_MENU}},
                                         Key{VK_BACK, {VK_MENU}}, Key{VK_F10, {VK_SHIFT}}));

TEST_F(FilterStripKeysTest, controlWithX_cutsToTheClipboardAndBack)
{
    openStrip();
    type(L"ra");
    press('A', {VK_CONTROL});
    SendMessageW(edit(), WM_CUT, 0, 0);
    EXPECT_EQ(shownRows(), 3);
    SendMessageW(edit(), WM_PASTE, 0, 0);
    EXPECT_EQ(textOf(edit()), L"ra");
    EXPECT_EQ(shownRows(), 1);
}

TEST_F(FilterStripKeysTest, controlWithCXVAndZ_copyCutPasteAndUndoTheText)
{
    openStrip();
    type(L"ra");
    press('A', {VK_CONTROL});
    EXPECT_TRUE(press('X', {VK_CONTROL}));
    EXPECT_EQ(textOf(edit()), L"");
    EXPECT_EQ(shownRows(), 3);
    EXPECT_TRUE(press('V', {VK_CONTROL}));
    EXPECT_EQ(textOf(edit()), L"ra");
    EXPECT_EQ(shownRows(), 1);
    SetWindowTextW(edit(), L"lo"); // with nothing to undo
    press('A', {VK_CONTROL});
    EXPECT_TRUE(press('C', {VK_CONTROL}));
    EXPECT_EQ(textOf(edit()), L"lo");
    press(VK_END);
    EXPECT_TRUE(press('V', {VK_CONTROL}));
    EXPECT_EQ(textOf(edit()), L"lolo");
    EXPECT_TRUE(press('Z', {VK_CONTROL}));
    EXPECT_EQ(textOf(edit()), L"lo");
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(backend.calls, Calls{}); // the tool's own Copy and Paste are another thing
}

class FilterStripElsewhereTest : public FilterStripKeysTest, public testing::WithParamInterface<Key> {};
TEST_P(FilterStripElsewhereTest, keyWhileAnotherWindowHasTheFocus_isLeftToTheIde)
{
    openStrip();
    type(L"ra");
    SetFocus(host);
    EXPECT_FALSE(press(GetParam().key, GetParam().modifiers));
    EXPECT_EQ(GetFocus(), host);
    EXPECT_EQ(textOf(edit()), L"ra");
    EXPECT_EQ(list().selectedCount(), 0u);
    EXPECT_EQ(backend.calls, Calls{});
}
INSTANTIATE_TEST_SUITE_P(Keys, FilterStripElsewhereTest,
                         testing::Values(Key{'F', {VK_CONTROL}}, Key{VK_ESCAPE, {}}, Key{VK_RETURN, {}}, Key{VK_F5, {}},
                                         Key{VK_TAB, {}}, Key{VK_TAB, {VK_SHIFT}}, Key{VK_DOWN, {}}, Key{VK_LEFT, {}},
                                         Key{VK_HOME, {VK_SHIFT}}, Key{VK_END, {}}, Key{VK_DELETE, {}},
                                         Key{VK_BACK, {}}, Key{'R', {}}, Key{'7', {}}, Key{VK_SPACE, {}},
                                         Key{VK_SPACE, {VK_CONTROL}}, Key{VK_SPACE, {VK_SHIFT}}, Key{'A', {VK_CONTROL}},
                                         Key{'C', {VK_CONTROL}}, Key{'C', {VK_CONTROL, VK_SHIFT}},
                                         Key{'V', {VK_CONTROL}}, Key{'X', {VK_CONTROL}}, Key{'Z', {VK_CONTROL}},
                                         Key{VK_APPS, {}}, Key{VK_F10, {VK_SHIFT}}, Key{VK_F10, {VK_CONTROL, VK_SHIFT}},
                                         Key{VK_APPS, {VK_CONTROL}}));

} // namespace
} // namespace velk
