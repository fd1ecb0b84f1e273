#include "commandsFixture.h"

#include "base/grouped_number.h"
#include "support/outOfMemory.h"
#include "ui/ownTexts.h"
#include "ui/uiFont.h"

#include <product.h>

#include <array>

namespace velk {
namespace {

using test::Calls;
using testing::ElementsAre;

class FilterStripTest : public test::CommandsFixture {
protected:
    FilterStripTest()
    {
        ShowWindow(host, SW_SHOW);
        tree().select(L"K20");
        addProcedures({L"raise", L"lower", L"order"});
        SetFocus(list().view().hwnd());
        backend.calls.clear();
    }
    ~FilterStripTest() override
    {
        hold({});
        uiFont() = {};
    }
    void addProcedures(const std::vector<std::wstring>& names)
    {
        const ListFilling together;
        int32_t handle = 100;
        for (const std::wstring& name : names)
            addProcedureRow({.lHdl = handle++, .strSchema = L"sys", .strName = name, .strLanguage = L"SQL"});
    }
    static void hold(const std::vector<int>& modifiers)
    {
        std::array<BYTE, 256> keys{};
        for (const int modifier : modifiers)
            keys.at(static_cast<size_t>(modifier)) = 0x80;
        SetKeyboardState(keys.data());
    }
    // A key as the host hands it on; whether the view used it. What it led to is carried out.
    bool press(WPARAM key, const std::vector<int>& modifiers = {})
    {
        hold(modifiers);
        const bool isAlt = std::find(modifiers.begin(), modifiers.end(), VK_MENU) != modifiers.end();
        MSG message{};
        message.hwnd = GetFocus();
        message.message = isAlt ? WM_SYSKEYDOWN : WM_KEYDOWN;
        message.wParam = key;
        const bool isUsed = view.translateKey(message);
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE))
            DispatchMessageW(&message);
        hold({});
        return isUsed;
    }
    void type(const std::wstring& text)
    {
        for (const wchar_t character : text)
            SendMessageW(edit(), WM_CHAR, character, 0);
    }
    HWND strip() { return FindWindowExW(view.hwnd(), nullptr, VELK_OWN_NAME("filterStrip"), nullptr); }
    HWND edit() { return FindWindowExW(strip(), nullptr, L"EDIT", nullptr); }
    HWND label() { return FindWindowExW(strip(), nullptr, L"STATIC", nullptr); }
    HWND found() { return FindWindowExW(strip(), label(), L"STATIC", nullptr); }
    HWND button() { return FindWindowExW(strip(), nullptr, L"BUTTON", nullptr); }
    static std::wstring textOf(HWND window)
    {
        std::array<wchar_t, 100> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    bool isShown() { return strip() && IsWindowVisible(strip()); }
    // In the view; pixels.
    struct Place {
        LONG left, top, right, bottom;
        friend bool operator==(const Place&, const Place&) = default;
    };
    Place placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, view.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return {place.left, place.top, place.right, place.bottom};
    }
    std::vector<std::wstring> names()
    {
        std::vector<std::wstring> shown;
        for (int row = 0; row < shownRows(); ++row)
            shown.push_back(cell(row, 0));
        return shown;
    }
    DWORD selection() { return static_cast<DWORD>(SendMessageW(edit(), EM_GETSEL, 0, 0)); }
    void openStrip() { press('F', {VK_CONTROL}); }
};

TEST_F(FilterStripTest, closedStrip_hasNoWindowAndTakesNoRoom)
{
    EXPECT_EQ(strip(), nullptr);
    EXPECT_EQ(placeOf(list().view().hwnd()), (Place{244, 0, 1000, 400}));
    openStrip();
    press(VK_ESCAPE);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(placeOf(list().view().hwnd()), (Place{244, 0, 1000, 400}));
}

TEST_F(FilterStripTest, ctrlFInTheList_opensItAboveTheListWithTheFocusInItsEdit)
{
    EXPECT_TRUE(press('F', {VK_CONTROL}));
    EXPECT_TRUE(isShown());
    EXPECT_EQ(GetFocus(), edit());
    const Place place = placeOf(strip());
    EXPECT_EQ(place.left, 244);
    EXPECT_EQ(place.top, 0);
    EXPECT_EQ(place.right, 1000);
    EXPECT_EQ(placeOf(list().view().hwnd()), (Place{244, place.bottom, 1000, 400}));
    EXPECT_EQ(placeOf(tree().hwnd()), (Place{0, 0, 240, 400}));
}

TEST_F(FilterStripTest, ctrlFInTheTree_opensIt)
{
    SetFocus(tree().hwnd());
    EXPECT_TRUE(press('F', {VK_CONTROL}));
    EXPECT_EQ(GetFocus(), edit());
}

TEST_F(FilterStripTest, ctrlFInTheStrip_selectsAllItsText)
{
    openStrip();
    type(L"order");
    EXPECT_EQ(selection(), static_cast<DWORD>(MAKELONG(5, 5)));
    openStrip();
    EXPECT_EQ(selection(), static_cast<DWORD>(MAKELONG(0, 5)));
    EXPECT_EQ(GetFocus(), edit());
}

TEST_F(FilterStripTest, edit_hasACueAndAName)
{
    openStrip();
    EXPECT_EQ(textOf(label()), ownTexts::filterCue);
    EXPECT_EQ(GetWindow(edit(), GW_HWNDPREV), label()); // by which a screen reader calls it
    EXPECT_EQ(placeOf(label()).right, placeOf(label()).left);
    EXPECT_EQ(textOf(button()), ownTexts::filterClose);
}

TEST_F(FilterStripTest, typing_filtersAtOnceAndTellsWhatItFound)
{
    openStrip();
    EXPECT_EQ(textOf(found()), L"");
    type(L"R");
    EXPECT_THAT(names(), ElementsAre(L"raise", L"lower", L"order"));
    EXPECT_EQ(textOf(found()), L"3 of 3");
    type(L"a");
    EXPECT_THAT(names(), ElementsAre(L"raise"));
    EXPECT_EQ(textOf(found()), L"1 of 3");
    SendMessageW(edit(), WM_CHAR, VK_BACK, 0);
    EXPECT_THAT(names(), ElementsAre(L"raise", L"lower", L"order"));
}

TEST_F(FilterStripTest, columnsHeaderPhraseAndMinus_areUnderstood)
{
    openStrip();
    type(header(0) + L":r -" + header(0) + L":\"ra\" " + header(1) + L":sys");
    EXPECT_THAT(names(), ElementsAre(L"lower", L"order"));
}

TEST_F(FilterStripTest, largeNumbers_areGroupedAsTheUserHasThem)
{
    clearListRows();
    addProcedures(std::vector<std::wstring>(8140, L"many"));
    addProcedureRow({.lHdl = 1, .strName = L"one"});
    openStrip();
    type(L"one");
    EXPECT_EQ(textOf(found()), L"1 of " + groupedNumber(8141));
}

TEST_F(FilterStripTest, rowsThatComeAndGo_areTold)
{
    openStrip();
    type(L"r");
    addProcedureRow({.lHdl = 200, .strName = L"rise"});
    addProcedureRow({.lHdl = 201, .strName = L"fall"});
    shownRows();
    EXPECT_EQ(textOf(found()), L"4 of 5");
    removeListRow(8, 100);
    updateProcedureRow({.lHdl = 101, .strName = L"fell"});
    shownRows();
    EXPECT_EQ(textOf(found()), L"2 of 4");
}

TEST_F(FilterStripTest, escape_takesTheTextAway)
{
    openStrip();
    type(L"ra");
    EXPECT_TRUE(press(VK_ESCAPE));
    EXPECT_EQ(textOf(edit()), L"");
    EXPECT_EQ(textOf(found()), L"");
    EXPECT_EQ(shownRows(), 3);
    EXPECT_EQ(GetFocus(), edit());
    EXPECT_TRUE(isShown());
}

TEST_F(FilterStripTest, escapeWithoutAText_closesItAndGivesTheFocusBackToTheList)
{
    openStrip();
    EXPECT_TRUE(press(VK_ESCAPE));
    EXPECT_FALSE(isShown());
    EXPECT_EQ(GetFocus(), list().view().hwnd());
}

TEST_F(FilterStripTest, escapeWithoutAText_closesItAndGivesTheFocusBackToTheTree)
{
    SetFocus(tree().hwnd());
    openStrip();
    EXPECT_TRUE(press(VK_ESCAPE));
    EXPECT_EQ(GetFocus(), tree().hwnd());
    EXPECT_FALSE(press(VK_ESCAPE)); // not ours any more
}

TEST_F(FilterStripTest, down_goesToTheFirstRow)
{
    openStrip();
    type(L"er");
    EXPECT_TRUE(press(VK_DOWN));
    EXPECT_EQ(GetFocus(), list().view().hwnd());
    EXPECT_EQ(list().view().selectedRow(), 0);
    EXPECT_EQ(list().selected()->name(), L"lower");
}

TEST_F(FilterStripTest, enter_doesWhatEnterDoesOnTheFirstRow)
{
    openStrip();
    type(L"er");
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(101, 25)"});
    EXPECT_EQ(list().selected()->name(), L"lower");
    EXPECT_EQ(GetFocus(), edit());
}

TEST_F(FilterStripTest, downAndEnterWithoutARow_doNothing)
{
    openStrip();
    type(L"zulu");
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_TRUE(press(VK_DOWN));
    EXPECT_EQ(backend.calls, Calls{});
    EXPECT_EQ(GetFocus(), edit());
}

TEST_F(FilterStripTest, closeButton_closesItAndShowsAllRows)
{
    openStrip();
    type(L"zulu");
    SendMessageW(button(), BM_CLICK, 0, 0);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(shownRows(), 3);
    EXPECT_EQ(GetFocus(), list().view().hwnd());
    openStrip();
    EXPECT_EQ(textOf(edit()), L"");
}

TEST_F(FilterStripTest, enterOnTheCloseButton_closesIt)
{
    openStrip();
    SetFocus(button());
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_FALSE(isShown());
    EXPECT_EQ(backend.calls, Calls{});
}

TEST_F(FilterStripTest, tab_goesFromTheTreeThroughTheStripToTheList)
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

TEST_F(FilterStripTest, f5InTheStrip_refreshesTheFolder)
{
    openStrip();
    EXPECT_TRUE(press(VK_F5));
    EXPECT_EQ(backend.calls, Calls{"RZObjectDoAction(20, 10)"});
}

TEST_F(FilterStripTest, otherFolderOfTheKindAndRefresh_keepTheFilterAndSaySo)
{
    addFolderNode(L"K10", L"7", L"K30", L"More", L"False");
    openStrip();
    type(L"ra");
    tree().select(L"K30");
    addProcedures({L"rain", L"snow"});
    shownRows();
    EXPECT_EQ(textOf(edit()), L"ra");
    EXPECT_EQ(textOf(found()), L"1 of 2");
    clearListRows();
    addProcedures({L"snow"});
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(textOf(found()), L"0 of 1");
}

TEST_F(FilterStripTest, otherKindOfFolder_emptiesTheStripAndLeavesItOpen)
{
    openStrip();
    type(L"ra");
    tree().select(L"K23");
    EXPECT_EQ(textOf(edit()), L"");
    EXPECT_EQ(textOf(found()), L"");
    EXPECT_TRUE(isShown());
    addTableRow({.lHdl = 300, .strName = L"n"});
    EXPECT_EQ(shownRows(), 1);
}

TEST_F(FilterStripTest, keysOfTheEdit_writeItsText)
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
class FilterStripOwnKeyTest : public FilterStripTest, public testing::WithParamInterface<Key> {};
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

class FilterStripHostsKeyTest : public FilterStripTest, public testing::WithParamInterface<Key> {};
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

TEST_F(FilterStripTest, controlWithX_cutsToTheClipboardAndBack)
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

class FilterStripElsewhereTest : public FilterStripTest, public testing::WithParamInterface<Key> {};
TEST_P(FilterStripElsewhereTest, keyWhileAnotherWindowHasTheFocus_isLeftToTheIde)
{
    openStrip();
    type(L"ra");
    SetFocus(host);
    EXPECT_FALSE(press(GetParam().key, GetParam().modifiers));
    EXPECT_EQ(GetFocus(), host);
    EXPECT_EQ(textOf(edit()), L"ra");
    EXPECT_EQ(backend.calls, Calls{});
}
INSTANTIATE_TEST_SUITE_P(Keys, FilterStripElsewhereTest,
                         testing::Values(Key{'F', {VK_CONTROL}}, Key{VK_ESCAPE, {}}, Key{VK_RETURN, {}}, Key{VK_F5, {}},
                                         Key{VK_TAB, {}}, Key{VK_DELETE, {}}, Key{'A', {VK_CONTROL}}));

TEST_F(FilterStripTest, focusThatComesBack_goesToTheEditThatHadItLast)
{
    openStrip();
    SetFocus(host);
    SetFocus(view.hwnd());
    EXPECT_EQ(GetFocus(), edit());
    SetFocus(tree().hwnd());
    SetFocus(host);
    SetFocus(view.hwnd());
    EXPECT_EQ(GetFocus(), tree().hwnd());
}

TEST_F(FilterStripTest, heightAndFont_areThoseOfTheViewsText)
{
    openStrip();
    const LONG before = placeOf(strip()).bottom;
    uiFont() = {L"Tahoma", 20, 1};
    view.setupGUI();
    EXPECT_GT(placeOf(strip()).bottom, before * 3 / 2);
    EXPECT_EQ(placeOf(list().view().hwnd()).top, placeOf(strip()).bottom);
    const LRESULT font = list().view().send(WM_GETFONT);
    for (const HWND part : {edit(), found(), button()})
        EXPECT_EQ(SendMessageW(part, WM_GETFONT, 0, 0), font);
    RECT text{};
    SendMessageW(edit(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    EXPECT_GE(text.bottom - text.top, list().view().lineHeight() - 1);
}

TEST_F(FilterStripTest, parts_standBesideEachOtherInsideTheStrip)
{
    openStrip();
    type(L"r");
    for (const int width : {1000, 500, 330, 300, 260, 100}) {
        view.resize(width, 400);
        const Place all = placeOf(strip());
        EXPECT_LE(all.left, placeOf(edit()).left);
        EXPECT_LE(placeOf(edit()).right, placeOf(found()).left);
        EXPECT_LE(placeOf(found()).right, placeOf(button()).left);
        EXPECT_LE(placeOf(edit()).bottom, all.bottom);
        EXPECT_EQ(all.right, width);
    }
}

TEST_F(FilterStripTest, foundText_hasRoomForAllRowsFromTheBeginning)
{
    openStrip();
    const Place before = placeOf(edit());
    type(L"r");
    EXPECT_EQ(placeOf(edit()), before);
    EXPECT_GE(placeOf(found()).right - placeOf(found()).left, list().view().widthOf(L"3 of 3") - 1);
}

TEST_F(FilterStripTest, keyWithoutMemory_leavesListAndEditAgreeing)
{
    openStrip();
    type(L"r");
    bool wasFelt = true;
    for (int given = 0; wasFelt; ++given) {
        {
            const test::OutOfMemory none(given);
            SendMessageW(edit(), WM_CHAR, L'a', 0);
            wasFelt = none.wasFelt();
        }
        ASSERT_EQ(textOf(edit()), list().filter().text()) << given;
        ASSERT_EQ(shownRows(), list().filter().text() == L"r" ? 3 : list().filter().text() == L"ra" ? 1 : 0) << given;
        ASSERT_LT(given, 200);
        list().setFilter(L"r");
    }
}

TEST_F(FilterStripTest, stripThatIsShownForTheUser_takesNoFocus)
{
    view.filterStrip().show();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(GetFocus(), list().view().hwnd());
    EXPECT_TRUE(view.filterStrip().isOpen());
}

TEST_F(FilterStripTest, viewThatEndsWithTheStripOpen_leavesNothing)
{
    openStrip();
    type(L"r");
    DestroyWindow(view.hwnd());
    EXPECT_FALSE(view.filterStrip().isOpen());
    view.filterStrip().close();
    list().setFilter(L"");
    EXPECT_FALSE(press('F', {VK_CONTROL}));
}

TEST_F(FilterStripTest, contextMenuInTheStrip_isNotThatOfAPane)
{
    openStrip();
    rightClick(found(), {2, 2});
    EXPECT_TRUE(menu.empty());
}

} // namespace
} // namespace velk
