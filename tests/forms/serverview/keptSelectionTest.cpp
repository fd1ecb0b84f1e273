#include "severalFixture.h"
#include "support/outOfMemory.h"

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeptSelectionTest : public test::SeveralFixture {};

TEST_F(KeptSelectionTest, controlKeyAndShift_selectSeveralRows)
{
    showRows(6);
    clickRow(1);
    clickRow(4, MK_CONTROL);
    EXPECT_THAT(selected(), ElementsAre(1, 4));
    clickRow(1);
    clickRow(3, MK_SHIFT);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
    EXPECT_EQ(list().selectedCount(), 3u);
}

TEST_F(KeptSelectionTest, controlClickOnASelectedRow_takesItOut)
{
    showRows(4);
    select({0, 2});
    clickRow(2, MK_CONTROL);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p0"));
}

TEST_F(KeptSelectionTest, plainClick_selectsThatRowOnly)
{
    showRows(4);
    select({0, 1, 3});
    clickRow(2);
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_EQ(list().view().focusedRow(), 2);
}

TEST_F(KeptSelectionTest, clickOnEmptySpace_selectsNothing)
{
    showRows(3);
    select({0, 1});
    clickAt({50, 300});
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(KeptSelectionTest, rightButtonOnASelectedRow_keepsThemAll)
{
    showRows(4);
    select({0, 2});
    clickRow(2, 0, WM_RBUTTONDOWN);
    EXPECT_THAT(selected(), ElementsAre(0, 2));
}

TEST_F(KeptSelectionTest, rightButtonOnAnotherRow_selectsThatOne)
{
    showRows(4);
    select({0, 2});
    clickRow(1, 0, WM_RBUTTONDOWN);
    EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(KeptSelectionTest, arrows_moveTheSelectionOfOneRow)
{
    showRows(4);
    select({1});
    pressInList(VK_DOWN);
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_EQ(list().view().focusedRow(), 2);
    pressInList(VK_END);
    EXPECT_THAT(selected(), ElementsAre(3));
}

TEST_F(KeptSelectionTest, arrowWithShift_selectsOneMore)
{
    showRows(4);
    clickRow(1);
    pressInList(VK_DOWN, MK_SHIFT);
    EXPECT_THAT(selected(), ElementsAre(1, 2));
}

TEST_F(KeptSelectionTest, typedLetter_selectsTheRowThatItFindsAndNoOther)
{
    showRows(3);
    addRow(200, L"xyz");
    select({0, 1});
    list().view().send(WM_CHAR, L'x', 1);
    EXPECT_THAT(selectedNames(), ElementsAre(L"xyz"));
}

TEST_F(KeptSelectionTest, selectedRow_isTheFocusedOneOfSeveralOrElseTheFirst)
{
    showRows(6);
    select({1, 3, 4});
    list().view().focusRow(3);
    EXPECT_EQ(list().selected()->name(), L"p3");
    list().view().focusRow(5);
    EXPECT_EQ(list().selected()->name(), L"p1");
}

TEST_F(KeptSelectionTest, selectedRows_comeInTheOrderShown)
{
    showRows(4);
    select({0, 2, 3});
    sortBy(0);
    sortBy(0);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p3", L"p2", L"p0"));
    EXPECT_THAT(selected(), ElementsAre(0, 1, 3));
}

TEST_F(KeptSelectionTest, rowsAddedAboveAndBelow_leaveTheSelectionToItsRows)
{
    showRows(4);
    sortBy(0);
    select({1, 2});
    addRow(200, L"a");
    addRow(201, L"z");
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p2"));
    EXPECT_THAT(selected(), ElementsAre(2, 3));
    EXPECT_EQ(list().view().focusedRow(), 2);
}

TEST_F(KeptSelectionTest, removedRows_leaveTheOthersSelected)
{
    showRows(6);
    select({1, 3, 5});
    list().view().focusRow(3);
    removeListRow(L"8", L"K100");
    removeListRow(L"8", L"K103");
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p5"));
    EXPECT_EQ(cell(list().view().focusedRow(), 0), L"p4");
}

TEST_F(KeptSelectionTest, removalAboveManySelectedRows_tellsTheControlNoneOfThem)
{
    showRows(100);
    list().setFilter(L"5");
    press('A', {VK_CONTROL});
    list().setFilter(L"");
    ASSERT_EQ(selected().size(), 19u);
    int told = 0;
    list().view().watch().setWitness([&told](UINT message) { told += message == LVM_SETITEMSTATE ? 1 : 0; });
    removeListRow(L"8", L"K101");
    removeListRow(L"8", L"K105"); // selected
    EXPECT_EQ(selected().size(), 18u);
    EXPECT_LT(told, 5);
    EXPECT_THAT(selected(), testing::IsSupersetOf({13, 23, 48, 57, 93}));
    EXPECT_EQ(selectedNames().front(), L"p15");
    EXPECT_EQ(selectedNames().back(), L"p95");
}

TEST_F(KeptSelectionTest, removalsAndAdditionsTogether_leaveTheSelectionToItsRows)
{
    showRows(9);
    sortBy(0);
    select({1, 4, 8});
    removeListRow(L"8", L"K103");
    addRow(300, L"p0a");
    removeListRow(L"8", L"K101");
    removeListRow(L"8", L"K100");
    EXPECT_THAT(selectedNames(), ElementsAre(L"p4", L"p8"));
    EXPECT_THAT(selected(), ElementsAre(2, 6));
}

TEST_F(KeptSelectionTest, moreRemovalsThanTheControlIsToldSingly_leaveTheSelectionToItsRows)
{
    showRows(30);
    select({2, 12, 25});
    for (int handle = 100; handle < 112; ++handle)
        removeListRow(L"8", L"K" + std::to_wstring(handle));
    EXPECT_THAT(selectedNames(), ElementsAre(L"p12", L"p25"));
    EXPECT_THAT(selected(), ElementsAre(0, 13));
}

TEST_F(KeptSelectionTest, removedRowWhoseHandleComesBack_isNotSelected)
{
    showRows(4);
    select({1, 2, 3});
    removeListRow(L"8", L"K102");
    addRow(102, L"other");
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p3"));
}

TEST_F(KeptSelectionTest, removalOfAllButOneSelectedRow_leavesThatOne)
{
    showRows(4);
    select({0, 2});
    removeListRow(L"8", L"K100");
    EXPECT_THAT(selectedNames(), ElementsAre(L"p2"));
    removeListRow(L"8", L"K102");
    EXPECT_THAT(selectedNames(), IsEmpty());
    EXPECT_EQ(list().selected(), nullptr);
}

TEST_F(KeptSelectionTest, removalOfAllSelectedRowsAtOnce_selectsNothing)
{
    showRows(4);
    select({0, 1});
    removeListRow(L"8", L"K100");
    removeListRow(L"8", L"K101");
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(KeptSelectionTest, refreshOfTheFolder_keepsThoseThatComeBack)
{
    showRows(6);
    select({1, 2, 4});
    clearListRows();
    addRows(4);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p2"));
}

TEST_F(KeptSelectionTest, refreshInTwoSteps_keepsThoseThatComeBack)
{
    showRows(6);
    select({1, 2, 4});
    clearListRows();
    EXPECT_EQ(shownRows(), 0);
    addRows(6);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 4));
}

TEST_F(KeptSelectionTest, otherRowsSelectedInsideARefresh_areNotAmongThem)
{
    showRows(6);
    select({0, 1});
    clearListRows();
    addRow(300, L"x");
    addRow(301, L"y");
    select({0, 1}); // x and y, which are as many
    addRows(6);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p0", L"p1"));
}

TEST_F(KeptSelectionTest, otherFoldersRows_areNotSelected)
{
    showRows(4);
    select({0, 1});
    tree().select(L"K21");
    addFunctionRow({.lHdl = 100, .strName = L"f"});
    addFunctionRow({.lHdl = 101, .strName = L"g"});
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(KeptSelectionTest, rowAddedWhileAllAreSelected_isTheOnlyOneThatIsNot)
{
    showRows(20);
    ListSelection(list().view()).addAll();
    sortBy(0);
    addRow(200, L"a");
    EXPECT_EQ(list().selectedCount(), 20u);
    EXPECT_FALSE(ListSelection(list().view()).has(0));
}

TEST_F(KeptSelectionTest, mostRowsSelected_areFoundAgainByARefresh)
{
    showRows(20);
    ListSelection(list().view()).addAll();
    ListSelection(list().view()).remove(7);
    clearListRows();
    addRows(20);
    EXPECT_EQ(list().selectedCount(), 19u);
    EXPECT_FALSE(ListSelection(list().view()).has(7));
}

TEST_F(KeptSelectionTest, anchorOfShift_goesWithItsRow)
{
    showRows(6);
    sortBy(0);
    clickRow(2);
    clickRow(3, MK_SHIFT);
    addRow(200, L"a");
    clickRow(5, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p2", L"p3", L"p4"));
}

TEST_F(KeptSelectionTest, asManyOtherRows_areNotTakenForThoseOfTheLastTime)
{
    showRows(6);
    select({1, 2, 4});
    addRow(200, L"one more"); // after which the selection is remembered
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p2", L"p4"));
    clickRow(2, MK_CONTROL);
    clickRow(3, MK_CONTROL);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p3", L"p4"));
    clickRow(1);
    clickRow(2, MK_CONTROL);
    clickRow(4, MK_CONTROL);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p2", L"p4"));
}

class ScarceSelectionTest : public KeptSelectionTest, public testing::WithParamInterface<int> {};

// With memory for so many allocations and no more.
TEST_P(ScarceSelectionTest, rowRemovedWithoutMemory_leavesNoOtherRowsSelected)
{
    showRows(40);
    sortBy(0);
    select({5, 6, 9, 12, 15, 16, 20, 22, 25, 30, 31, 35});
    const std::vector<std::wstring> before = selectedNames();
    list().selection().forget();
    {
        const test::OutOfMemory scarce(GetParam());
        removeListRow(8, 100);
        shownRows();
    }
    EXPECT_EQ(shownRows(), 39);
    EXPECT_THAT(selectedNames(), testing::AnyOf(IsEmpty(), before));
}

INSTANTIATE_TEST_SUITE_P(Allocations, ScarceSelectionTest, testing::Range(0, 12));

} // namespace
} // namespace velk
