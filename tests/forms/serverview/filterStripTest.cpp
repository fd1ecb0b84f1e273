#include "filterStripFixture.h"

#include "base/grouped_number.h"
#include "support/outOfMemory.h"
#include "ui/ownTexts.h"

namespace velk {
namespace {

using test::Calls;
using testing::ElementsAre;

using FilterStripTest = test::FilterStripFixture;

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
    EXPECT_GE(text.bottom - text.top, 20 * 96 / 72);
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
