#include "support/processCounts.h"
#include "support/shownControls.h"
#include "viewFixture.h"

namespace velk {
namespace {

using testing::ElementsAre;

class DetailsListTest : public test::ViewFixture {
protected:
    DetailsListTest()
    {
        addProject();
        tree().select(L"K24");
        addViews({L"delta", L"Alpha", L"charlie", L"bravo"});
    }
    void addViews(const std::vector<std::wstring>& names)
    {
        const ListFilling together;
        int32_t handle = 300;
        for (const std::wstring& name : names)
            addViewRow(
                {.lHdl = handle++, .strSchema = std::to_wstring(110 - handle), .strName = name, .strComment = L""});
    }
    std::vector<std::wstring> names()
    {
        std::vector<std::wstring> shown;
        for (int row = 0; row < shownRows(); ++row)
            shown.push_back(cell(row, 0));
        return shown;
    }
    void clickHeader(int column)
    {
        NMLISTVIEW notification{};
        notification.hdr.hwndFrom = list().view().hwnd();
        notification.hdr.code = LVN_COLUMNCLICK;
        notification.iSubItem = column;
        SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    void refresh(const std::vector<std::wstring>& wanted)
    {
        clearListRows();
        addViews(wanted);
    }
    static std::vector<std::wstring> manyNames()
    {
        std::vector<std::wstring> many;
        for (int number = 0; number < 500; ++number)
            many.push_back(L"view" + std::to_wstring(number));
        return many;
    }
    LRESULT find(const wchar_t* text, int from)
    {
        NMLVFINDITEMW question{};
        question.hdr.hwndFrom = list().view().hwnd();
        question.hdr.code = LVN_ODFINDITEMW;
        question.iStart = from;
        question.lvfi.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
        question.lvfi.psz = text;
        return SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
    }
};

TEST_F(DetailsListTest, anotherOrder_showsTheSamePlaceOfTheList)
{
    refresh(manyNames());
    for (const int top : {0, 200}) {
        list().view().scrollToTop(top);
        for (int click = 0; click < 3; ++click) {
            clickHeader(0);
            EXPECT_EQ(list().view().topRow(), top) << click;
        }
    }
}

TEST_F(DetailsListTest, unordered_isTheBackendsOrder)
{
    EXPECT_THAT(names(), ElementsAre(L"delta", L"Alpha", L"charlie", L"bravo"));
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::none);
}

TEST_F(DetailsListTest, filling_leavesNoRoomForFurtherRows)
{
    if (!test::areHeapBlocksCounted())
        GTEST_SKIP() << "this system's heap tells of groups of blocks";
    refresh(std::vector<std::wstring>(1025, L"view"));
    shownRows();
    const size_t before = test::heapByteCount();
    addViewRow({.lHdl = 1, .strSchema = L"s", .strName = L"one more", .strComment = L""});
    EXPECT_GT(test::heapByteCount(), before + 1025 * sizeof(void*)); // all rows have moved
}

TEST_F(DetailsListTest, headerClick_ordersAndAgainReverses)
{
    clickHeader(0);
    EXPECT_THAT(names(), ElementsAre(L"Alpha", L"bravo", L"charlie", L"delta"));
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::up);
    clickHeader(0);
    EXPECT_THAT(names(), ElementsAre(L"delta", L"charlie", L"bravo", L"Alpha"));
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::down);
}

TEST_F(DetailsListTest, numbers_areOrderedAsNumbers)
{
    clickHeader(1); // -191 to -194
    EXPECT_THAT(names(), ElementsAre(L"bravo", L"charlie", L"Alpha", L"delta"));
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::none);
    EXPECT_EQ(test::sortMark(list().view(), 1), ListView::SortMark::up);
}

TEST_F(DetailsListTest, order_isKeptOverARefreshAndTheArrowTellsTheTruth)
{
    clickHeader(0);
    refresh({L"zulu", L"echo", L"Alpha"});
    EXPECT_THAT(names(), ElementsAre(L"Alpha", L"echo", L"zulu"));
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::up);
}

TEST_F(DetailsListTest, order_belongsToTheKindOfFolder)
{
    clickHeader(0);
    tree().select(L"K23");
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::none);
    tree().select(L"K24");
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::up);
}

TEST_F(DetailsListTest, addedRow_goesWhereTheOrderWantsIt)
{
    clickHeader(0);
    addViewRow({.lHdl = 400, .strSchema = L"s", .strName = L"beta", .strComment = L""});
    EXPECT_THAT(names(), ElementsAre(L"Alpha", L"beta", L"bravo", L"charlie", L"delta"));
    removeListRow(L"16", L"K400");
    EXPECT_THAT(names(), ElementsAre(L"Alpha", L"bravo", L"charlie", L"delta"));
}

TEST_F(DetailsListTest, ordering_keepsTheSelectedRow)
{
    list().view().selectRow(0); // delta
    clickHeader(0);
    ASSERT_NE(list().selected(), nullptr);
    EXPECT_EQ(list().selected()->name(), L"delta");
    EXPECT_EQ(list().view().selectedRow(), 3);
}

TEST_F(DetailsListTest, refreshOfTheFolder_keepsSelectionAndFocus)
{
    list().view().selectRow(2); // charlie, K302
    refresh({L"delta", L"Alpha", L"charlie"});
    ASSERT_NE(list().selected(), nullptr);
    EXPECT_EQ(list().selected()->handle(), 302);
    EXPECT_EQ(list().view().focusedRow(), 2);
}

TEST_F(DetailsListTest, refreshWithoutTheSelectedRow_selectsNothing)
{
    list().view().selectRow(3); // K303
    refresh({L"delta", L"Alpha"});
    EXPECT_EQ(list().selected(), nullptr);
}

TEST_F(DetailsListTest, refreshOfALongList_keepsTheFirstVisibleRow)
{
    const std::vector<std::wstring> many = manyNames();
    refresh(many);
    list().view().scrollToTop(200);
    EXPECT_EQ(list().view().topRow(), 200);
    refresh(many);
    EXPECT_EQ(list().view().topRow(), 200);
}

TEST_F(DetailsListTest, removedRow_keepsTheSelectionOfAnother)
{
    list().view().selectRow(2);
    removeListRow(L"16", L"K300");
    EXPECT_EQ(list().selected()->handle(), 302);
    EXPECT_EQ(list().view().selectedRow(), 1);
}

TEST_F(DetailsListTest, typing_findsTheNextNameWithoutRegardToCaseAndWraps)
{
    EXPECT_EQ(find(L"CH", 0), 2);
    EXPECT_EQ(find(L"al", 2), 1);
    EXPECT_EQ(find(L"x", 0), -1);
}

TEST_F(DetailsListTest, singleAddedRow_keepsSelectionFocusAndPlace)
{
    refresh(manyNames());
    list().view().selectRow(210);
    list().view().focusRow(212);
    list().view().scrollToTop(200);
    addViewRow({.lHdl = 2000, .strName = L"a"});
    EXPECT_EQ(list().view().selectedRow(), 210);
    EXPECT_EQ(list().view().focusedRow(), 212);
    EXPECT_EQ(list().view().topRow(), 200);
}

TEST_F(DetailsListTest, singleRowAddedAboveThem_movesSelectionFocusAndPlaceAlong)
{
    refresh(manyNames());
    clickHeader(0);
    list().view().selectRow(210);
    list().view().focusRow(212);
    list().view().scrollToTop(200);
    addViewRow({.lHdl = 2000, .strName = L"a"});
    EXPECT_EQ(list().view().selectedRow(), 211);
    EXPECT_EQ(list().view().focusedRow(), 213);
    EXPECT_EQ(list().view().topRow(), 201);
}

TEST_F(DetailsListTest, removedFocusedRow_leavesTheFocusToTheNextAndTheSelectionToNone)
{
    list().view().selectRow(1); // Alpha
    removeListRow(L"16", L"K301");
    EXPECT_EQ(list().view().focusedRow(), 1); // charlie
    EXPECT_EQ(list().view().selectedRow(), -1);
    EXPECT_EQ(list().selected(), nullptr);
}

TEST_F(DetailsListTest, removedLastRow_leavesTheFocusToTheOneBefore)
{
    list().view().selectRow(3);
    removeListRow(L"16", L"K302");
    removeListRow(L"16", L"K303");
    EXPECT_EQ(list().view().focusedRow(), 1);
}

TEST_F(DetailsListTest, rowsRemovedAboveAndOnTop_keepTheFirstVisibleRowOrItsNext)
{
    refresh(manyNames());
    list().view().scrollToTop(200); // K500
    removeListRow(L"16", L"K310");
    removeListRow(L"16", L"K500");
    removeListRow(L"16", L"K501");
    EXPECT_EQ(list().view().topRow(), 199);
    EXPECT_EQ(cell(199, 0), L"view202");
}

TEST_F(DetailsListTest, changesOfAllKindsAtOnce_areShownTogether)
{
    clickHeader(0);
    list().view().selectRow(2); // charlie
    addViewRow({.lHdl = 400, .strName = L"beta"});
    removeListRow(L"16", L"K301");
    addViewRow({.lHdl = 401, .strName = L"aardvark"});
    removeListRow(L"16", L"K400");
    EXPECT_THAT(names(), ElementsAre(L"aardvark", L"bravo", L"charlie", L"delta"));
    EXPECT_EQ(list().view().selectedRow(), 2);
}

TEST_F(DetailsListTest, changedAndThenReplacedRows_areThoseOfTheLastContents)
{
    list().view().selectRow(0);
    addViewRow({.lHdl = 400, .strName = L"beta"});
    refresh({L"one", L"two"});
    EXPECT_THAT(names(), ElementsAre(L"one", L"two"));
    EXPECT_EQ(list().view().selectedRow(), 0);
}

TEST_F(DetailsListTest, refreshWithoutTheFirstVisibleRow_beginsAtTheTop)
{
    refresh(manyNames());
    list().view().scrollToTop(200);
    clearListRows();
    {
        const ListFilling together;
        for (int32_t handle = 1000; handle < 1500; ++handle)
            addViewRow({.lHdl = handle, .strName = L"other"});
    }
    EXPECT_EQ(list().view().topRow(), 0);
}

TEST_F(DetailsListTest, messageInsideAFilling_findsTheListAsItWasBefore)
{
    clearListRows();
    const ListFilling together;
    addViewRow({.lHdl = 400, .strName = L"beta"});
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(list().rows().size(), 0u);
}

TEST_F(DetailsListTest, manyChanges_askForOneMessageOnly)
{
    ShowWindow(host, SW_SHOW);
    UpdateWindow(host);
    removeListRow(L"16", L"K300");
    addViewRow({.lHdl = 400, .strName = L"beta"});
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, list().view().hwnd(), WM_PAINT, WM_PAINT, PM_REMOVE));
    DispatchMessageW(&message);
    RECT stale{};
    EXPECT_FALSE(GetUpdateRect(list().view().hwnd(), &stale, FALSE)); // it was drawn with all of it
    EXPECT_FALSE(PeekMessageW(&message, list().view().hwnd(), WM_PAINT, WM_PAINT, PM_REMOVE));
}

TEST_F(DetailsListTest, otherFoldersRows_areNotTakenForARefresh)
{
    list().view().selectRow(0);
    tree().select(L"K23");
    addTableRow({.lHdl = 300, .strName = L"n"});
    EXPECT_EQ(list().selected(), nullptr);
}

} // namespace
} // namespace velk
