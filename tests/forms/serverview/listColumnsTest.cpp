#include "columnsFixture.h"

#include "window/twips.h"

namespace velk {
namespace {

using testing::ElementsAre;

class ListColumnsTest : public test::ColumnsFixture {
protected:
    std::wstring given() { return columns().given(15); }
    void comeBack()
    {
        tree().select(L"K23");
        tree().select(L"K24");
        addViews();
    }
};

TEST_F(ListColumnsTest, widthsThatNobodyGave_areNotGiven)
{
    EXPECT_GT(width(0), 0);
    EXPECT_EQ(given(), L"");
}

TEST_F(ListColumnsTest, draggedDivider_givesThatWidthAlone)
{
    dragDivider(1, 217);
    EXPECT_EQ(given(), L"1;," + std::to_wstring(toTwips(217)) + L",;;;");
}

TEST_F(ListColumnsTest, clickOnADividerThatMovesNothing_givesNoWidth)
{
    headerSays(HDN_BEGINTRACKW, 1, width(1));
    headerSays(HDN_ENDTRACKW, 1, width(1));
    EXPECT_EQ(given(), L"");
}

TEST_F(ListColumnsTest, widthGivenBeforeRowsCame_staysWithTheFirstOfThem)
{
    tree().select(L"K23");
    dragDivider(0, 333);
    addTableRow({.lHdl = 200, .strName = L"n", .strTableSpace = L"a table space of some length"});
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(width(0), 333);
    EXPECT_GE(width(2), list().view().widthOf(L"a table space of some length"));
}

TEST_F(ListColumnsTest, movedColumns_areGivenAndStayForTheKindOfFolder)
{
    dragColumns({2, 0, 1});
    EXPECT_EQ(given(), L"1;,,;2,0,1;;");
    tree().select(L"K23");
    EXPECT_THAT(columnsFromLeft(list().view()), ElementsAre(0, 1, 2, 3, 4));
    tree().select(L"K24");
    EXPECT_THAT(columnsFromLeft(list().view()), ElementsAre(2, 0, 1));
}

TEST_F(ListColumnsTest, header_canBeDragged)
{
    EXPECT_TRUE(list().view().send(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_HEADERDRAGDROP);
}

TEST_F(ListColumnsTest, orderOfTheRows_isGiven)
{
    clickHeader(1);
    EXPECT_EQ(given(), L"1;,,;;;+1");
    clickHeader(1);
    EXPECT_EQ(given(), L"1;,,;;;-1");
}

TEST_F(ListColumnsTest, hiddenColumn_isTakenOutAndTheOthersKeepTheirCells)
{
    const int remark = width(2);
    setColumnShown(list(), 1, false);
    EXPECT_THAT(headers(), ElementsAre(L"#500", L"#502"));
    EXPECT_THAT(cells(0), ElementsAre(L"open_orders", L"not shipped"));
    EXPECT_EQ(width(1), remark);
    EXPECT_EQ(given(), L"1;,,;;1;");
}

TEST_F(ListColumnsTest, columnShownAgain_hasItsPlaceAndItsWidth)
{
    dragDivider(1, 217);
    dragColumns({1, 2, 0});
    setColumnShown(list(), 1, false);
    setColumnShown(list(), 1, true);
    EXPECT_THAT(cells(1), ElementsAre(L"customers", L"main", L"who buys"));
    EXPECT_THAT(columnsFromLeft(list().view()), ElementsAre(1, 2, 0));
    EXPECT_EQ(width(1), 217);
}

TEST_F(ListColumnsTest, columnHiddenInAnotherLife_isAsWideAsItsRowsNeedWhenItIsShown)
{
    columns().setGiven(13, L"1;,,,,;;2;");
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"n", .strTableSpace = L"a table space of some length"});
    EXPECT_EQ(shownRows(), 1);
    setColumnShown(list(), 2, true);
    EXPECT_EQ(width(2), list().view().widthOf(L"a table space of some length"));
}

TEST_F(ListColumnsTest, hiddenColumns_areHiddenForTheirKindOfFolderOnly)
{
    setColumnShown(list(), 1, false);
    tree().select(L"K23");
    EXPECT_EQ(list().view().columnCount(), 5);
    tree().select(L"K24");
    EXPECT_EQ(list().view().columnCount(), 2);
}

TEST_F(ListColumnsTest, firstColumn_isNotHidden)
{
    setColumnShown(list(), 0, false);
    EXPECT_EQ(list().view().columnCount(), 3);
}

TEST_F(ListColumnsTest, clickOnAColumnBehindAHiddenOne_ordersByItsCells)
{
    setColumnShown(list(), 1, false);
    clickHeader(1);
    EXPECT_EQ(list().order().column, 2u);
    EXPECT_EQ(test::sortMark(list().view(), 1), ListView::SortMark::up);
    EXPECT_EQ(cell(0, 1), L"not shipped");
}

TEST_F(ListColumnsTest, columnThatOrders_stillOrdersWhenItIsHidden)
{
    clickHeader(1); // main, sales
    setColumnShown(list(), 1, false);
    EXPECT_EQ(cell(0, 0), L"customers");
    EXPECT_EQ(test::sortMark(list().view(), 1), ListView::SortMark::none);
    setColumnShown(list(), 1, true);
    EXPECT_EQ(test::sortMark(list().view(), 1), ListView::SortMark::up);
}

TEST_F(ListColumnsTest, reset_isAsIfNobodyHadTouchedTheColumns)
{
    const int before = width(1);
    clickHeader(0);
    dragDivider(1, 400);
    dragColumns({2, 1, 0});
    setColumnShown(list(), 2, false);
    resetColumns(list());
    EXPECT_EQ(given(), L"");
    EXPECT_THAT(headers(), ElementsAre(L"#500", L"#501", L"#502"));
    EXPECT_THAT(columnsFromLeft(list().view()), ElementsAre(0, 1, 2));
    EXPECT_EQ(width(1), before);
    EXPECT_EQ(cell(0, 0), L"open_orders"); // as the tool tells them
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::none);
}

TEST_F(ListColumnsTest, resetWithRowsThatHaveNotBeenShownYet_placesThemAsTheyCame)
{
    clickHeader(0);
    addViewRow({.lHdl = 302, .strName = L"aaa"});
    resetColumns(list());
    EXPECT_EQ(cell(0, 0), L"open_orders");
    EXPECT_EQ(cell(2, 0), L"aaa");
}

TEST_F(ListColumnsTest, everythingGivenInAnEarlierLife_isShown)
{
    columns().setGiven(13, L"1;3000,,,,1500;4,0,1,2,3;1,3;-2");
    tree().select(L"K23");
    addTableRow({.lHdl = 200, .strName = L"one", .strTableSpace = L"a"});
    addTableRow({.lHdl = 201, .strName = L"two", .strTableSpace = L"b"});
    EXPECT_THAT(cells(0), ElementsAre(L"two", L"b", L""));
    EXPECT_THAT(columnsFromLeft(list().view()), ElementsAre(2, 0, 1));
    EXPECT_EQ(width(0), toPixels(3000));
    EXPECT_EQ(width(2), toPixels(1500));
    EXPECT_EQ(test::sortMark(list().view(), 1), ListView::SortMark::down);
    EXPECT_EQ(columns().given(13), L"1;3000,,,,1500;4,0,1,2,3;1,3;-2");
}

TEST_F(ListColumnsTest, brokenTextOfAnEarlierLife_changesNothing)
{
    columns().setGiven(13, L"1;3000,,,,1500;4,4,4,4,4;1,3;-2");
    tree().select(L"K23");
    EXPECT_EQ(list().view().columnCount(), 5);
    EXPECT_EQ(columns().given(13), L"");
}

TEST_F(ListColumnsTest, folderThatWasNotShown_keepsWhatAnEarlierLifeGaveIt)
{
    columns().setGiven(13, L"1;3000,,,,;;;");
    EXPECT_EQ(columns().given(13), L"1;3000,,,,;;;");
}

TEST_F(ListColumnsTest, whateverTheUserGives_isTold)
{
    std::vector<int32_t> told;
    columns().setListener([&](int32_t kind) { told.push_back(kind); });
    dragDivider(1, 217);
    dragColumns({2, 0, 1});
    clickHeader(0);
    setColumnShown(list(), 1, false);
    fitColumn(list(), 0);
    resetColumns(list());
    EXPECT_THAT(told, testing::SizeIs(testing::Ge(6u)));
    EXPECT_THAT(told, testing::Each(15));
}

TEST_F(ListColumnsTest, whatTheViewDoesByItself_isNotTold)
{
    std::vector<int32_t> told;
    columns().setListener([&](int32_t kind) { told.push_back(kind); });
    comeBack();
    tree().select(L"K10");
    view.setupGUI();
    EXPECT_THAT(told, testing::IsEmpty());
}

} // namespace
} // namespace velk
