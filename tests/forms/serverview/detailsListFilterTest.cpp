#include "viewFixture.h"

namespace velk {
namespace {

using testing::ElementsAre;

// What the list shows of its rows while there is a filter.
class DetailsListFilterTest : public test::ViewFixture {
protected:
    DetailsListFilterTest()
    {
        addProject();
        tree().select(L"K24");
        addViews({L"delta", L"Alpha", L"charlie", L"bravo"});
        list().filter().setListener([this] { ++told; });
    }
    ~DetailsListFilterTest() override { list().filter().setListener({}); }
    void addViews(const std::vector<std::wstring>& names)
    {
        const ListFilling together;
        int32_t handle = 300;
        for (const std::wstring& name : names)
            addViewRow({.lHdl = handle++, .strSchema = L"sys", .strName = name, .strComment = L"none"});
    }
    void refresh(const std::vector<std::wstring>& names)
    {
        clearListRows();
        addViews(names);
    }
    std::vector<std::wstring> names()
    {
        std::vector<std::wstring> shown;
        for (int row = 0; row < shownRows(); ++row)
            shown.push_back(cell(row, 0));
        return shown;
    }
    static std::vector<std::wstring> manyNames()
    {
        std::vector<std::wstring> many;
        for (int number = 0; number < 500; ++number)
            many.push_back(L"view" + std::to_wstring(number));
        return many;
    }
    void rename(int32_t handle, const wchar_t* name) { list().update(handle, {name, {}, {}}); }
    int32_t selected() { return list().selected() ? list().selected()->handle() : 0; }

    int told = 0;
};

TEST_F(DetailsListFilterTest, filter_isShownAtOnceWithWordsInAnyCell)
{
    list().setFilter(L"ta SYS");
    EXPECT_THAT(names(), ElementsAre(L"delta"));
    list().setFilter(L"none -a");
    EXPECT_THAT(names(), ElementsAre());
    list().setFilter(L"");
    EXPECT_THAT(names(), ElementsAre(L"delta", L"Alpha", L"charlie", L"bravo"));
}

TEST_F(DetailsListFilterTest, headerWithAColon_limitsAWordToItsColumn)
{
    list().setFilter(header(0) + L":a " + header(1) + L":sys");
    EXPECT_EQ(shownRows(), 4);
    list().setFilter(header(1) + L":s -" + header(0) + L":al");
    EXPECT_THAT(names(), ElementsAre(L"delta", L"charlie", L"bravo"));
}

TEST_F(DetailsListFilterTest, refreshOfTheFolder_keepsTheFilter)
{
    list().setFilter(L"ta");
    refresh({L"Tango", L"echo", L"beta"});
    EXPECT_THAT(names(), ElementsAre(L"Tango", L"beta"));
    EXPECT_EQ(list().filter().text(), L"ta");
}

TEST_F(DetailsListFilterTest, otherFolderOfTheKind_keepsTheFilter)
{
    addFolderNode(L"K10", L"15", L"K34", L"More views", L"False");
    list().setFilter(L"ta");
    tree().select(L"K34");
    addViews({L"Tango", L"echo"});
    EXPECT_THAT(names(), ElementsAre(L"Tango"));
    EXPECT_EQ(list().filter().text(), L"ta");
}

TEST_F(DetailsListFilterTest, otherKindOfFolder_endsTheFilterAndTells)
{
    list().setFilter(L"ta");
    told = 0;
    tree().select(L"K23");
    EXPECT_GT(told, 0);
    EXPECT_EQ(list().filter().text(), L"");
    addTableRow({.lHdl = 300, .strName = L"n"});
    EXPECT_THAT(names(), ElementsAre(L"n"));
}

TEST_F(DetailsListFilterTest, rowsThatComeChangeAndGo_obeyIt)
{
    list().setFilter(L"ta");
    addViewRow({.lHdl = 400, .strName = L"kilo"});
    addViewRow({.lHdl = 401, .strName = L"tap"});
    EXPECT_THAT(names(), ElementsAre(L"delta", L"tap"));
    rename(301, L"tea table");
    rename(300, L"echo");
    EXPECT_THAT(names(), ElementsAre(L"tea table", L"tap"));
    removeListRow(L"16", L"K401");
    removeListRow(L"16", L"K302");
    EXPECT_THAT(names(), ElementsAre(L"tea table"));
    list().setFilter(L"");
    EXPECT_THAT(names(), ElementsAre(L"echo", L"tea table", L"bravo", L"kilo"));
}

TEST_F(DetailsListFilterTest, numberOfShownRowsThatChanged_isTold)
{
    list().setFilter(L"ta");
    shownRows();
    told = 0;
    addViewRow({.lHdl = 400, .strName = L"kilo"});
    shownRows();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(list().rows().size(), 1u);
    EXPECT_EQ(list().rows().sizeUnfiltered(), 5u);
}

TEST_F(DetailsListFilterTest, order_isThatOfTheShownRows)
{
    list().setFilter(L"a -lp");
    list().sortBy(0);
    EXPECT_THAT(names(), ElementsAre(L"bravo", L"charlie", L"delta"));
    list().sortBy(0);
    EXPECT_THAT(names(), ElementsAre(L"delta", L"charlie", L"bravo"));
    list().setFilter(L"");
    EXPECT_THAT(names(), ElementsAre(L"delta", L"charlie", L"bravo", L"Alpha"));
}

TEST_F(DetailsListFilterTest, selectedRow_staysSelectedWhileItIsShown)
{
    list().view().selectRow(2); // charlie
    list().setFilter(L"r");
    EXPECT_EQ(list().view().selectedRow(), 0);
    EXPECT_EQ(selected(), 302);
    list().setFilter(L"ra");
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(list().view().selectedRow(), -1);
    EXPECT_EQ(list().view().focusedRow(), 0); // bravo, which is next to it
}

TEST_F(DetailsListFilterTest, selectedRowThatAChangeHides_leavesTheFocusToTheNext)
{
    list().setFilter(L"a");
    list().view().selectRow(1); // Alpha
    rename(301, L"echo");
    EXPECT_EQ(list().view().selectedRow(), -1);
    EXPECT_EQ(list().view().focusedRow(), 1); // charlie
}

TEST_F(DetailsListFilterTest, selectedRow_keepsItsSelectionWhenOthersAreHiddenByAChange)
{
    list().setFilter(L"a");
    list().view().selectRow(2);
    rename(300, L"echo");
    EXPECT_EQ(list().view().selectedRow(), 1);
    EXPECT_EQ(selected(), 302);
}

TEST_F(DetailsListFilterTest, endOfTheFilter_showsTheFoundRowAmongTheOthers)
{
    refresh(manyNames());
    list().setFilter(L"view377");
    list().view().selectRow(0);
    list().setFilter(L"");
    EXPECT_EQ(list().view().selectedRow(), 377);
    EXPECT_LE(list().view().topRow(), 377);
    EXPECT_GT(list().view().topRow() + list().view().rowsOnAPage(), 377);
}

TEST_F(DetailsListFilterTest, endOfTheFilter_bringsTheFirstOfSeveralFoundRowsIntoSight)
{
    refresh(manyNames());
    list().setFilter(L"00");
    ASSERT_THAT(names(), ElementsAre(L"view100", L"view200", L"view300", L"view400"));
    for (const int row : {2, 3})
        ListView_SetItemState(list().view().hwnd(), row, LVIS_SELECTED, LVIS_SELECTED);
    list().setFilter(L"");
    EXPECT_LE(list().view().topRow(), 300);
    EXPECT_GT(list().view().topRow() + list().view().rowsOnAPage(), 300);
}

TEST_F(DetailsListFilterTest, endOfTheFilterWithoutASelection_isWhereTheUserWasBefore)
{
    refresh(manyNames());
    list().view().selectRow(210);
    list().view().scrollToTop(200);
    list().setFilter(L"view4");
    list().setFilter(L"view47");
    EXPECT_EQ(list().view().selectedRow(), -1);
    list().setFilter(L"");
    EXPECT_EQ(list().view().selectedRow(), 210);
    EXPECT_EQ(list().view().topRow(), 200);
}

TEST_F(DetailsListFilterTest, firstVisibleRow_isKeptOrIsTheNextShown)
{
    refresh(manyNames());
    list().view().scrollToTop(200);
    list().setFilter(L"-view200");
    EXPECT_EQ(list().view().topRow(), 200);
    EXPECT_EQ(cell(200, 0), L"view201");
}

TEST_F(DetailsListFilterTest, typing_findsNamesAmongTheShownRows)
{
    list().setFilter(L"a -delta");
    NMLVFINDITEMW question{};
    question.hdr.hwndFrom = list().view().hwnd();
    question.hdr.code = LVN_ODFINDITEMW;
    question.lvfi.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
    question.lvfi.psz = L"b";
    EXPECT_EQ(SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question)), 2); // bravo
    question.lvfi.psz = L"d";
    EXPECT_EQ(SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question)), -1);
}

TEST_F(DetailsListFilterTest, changesWithAFilter_areShownTogetherBeforeTheNextMessage)
{
    list().setFilter(L"a");
    list().view().selectRow(2); // charlie
    removeListRow(L"16", L"K300");
    addViewRow({.lHdl = 400, .strName = L"tap"});
    rename(301, L"echo");
    rename(302, L"charlotta");
    EXPECT_THAT(names(), ElementsAre(L"charlotta", L"bravo", L"tap"));
    EXPECT_EQ(list().view().selectedRow(), 0);
}

TEST_F(DetailsListFilterTest, filterInsideAFilling_isThatOfTheRowsThatCome)
{
    clearListRows();
    {
        const ListFilling together;
        addViewRow({.lHdl = 400, .strName = L"beta"});
        list().setFilter(L"ta");
        addViewRow({.lHdl = 401, .strName = L"echo"});
        addViewRow({.lHdl = 402, .strName = L"tap"});
    }
    EXPECT_THAT(names(), ElementsAre(L"beta", L"tap"));
}

} // namespace
} // namespace velk
