// The row from which Shift selects, when the only selected row moves.
#include "severalFixture.h"

namespace velk {
namespace {

using testing::ElementsAre;

class AnchorTest : public test::SeveralFixture {};

TEST_F(AnchorTest, rowsPutInAnotherOrder_leaveShiftWithTheSelectedRow)
{
    showRows(5);
    clickRow(0);
    sortBy(0);
    sortBy(0); // p4 to p0
    ASSERT_THAT(selectedNames(), ElementsAre(L"p0"));
    pressInList(VK_UP, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p0"));
}

TEST_F(AnchorTest, rowsThatTheFilterHides_leaveShiftWithTheSelectedRow)
{
    showRows(30);
    clickRow(11);
    list().setFilter(L"p1"); // p1, p10 to p19
    ASSERT_THAT(selectedNames(), ElementsAre(L"p11"));
    pressInList(VK_DOWN, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p11", L"p12"));
}

TEST_F(AnchorTest, rowRemovedAbove_leavesShiftWithTheSelectedRow)
{
    showRows(6);
    clickRow(3);
    removeListRow(L"8", L"K100");
    removeListRow(L"8", L"K101");
    ASSERT_THAT(selectedNames(), ElementsAre(L"p3"));
    pressInList(VK_DOWN, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p3", L"p4"));
}

TEST_F(AnchorTest, downInTheStrip_makesTheFirstRowTheOneThatShiftSelectsFrom)
{
    showRows(6);
    clickRow(4);
    press('F', {VK_CONTROL});
    press(VK_DOWN);
    ASSERT_THAT(selectedNames(), ElementsAre(L"p0"));
    pressInList(VK_DOWN, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p0", L"p1"));
}

TEST_F(AnchorTest, refreshOfTheFolder_leavesShiftWithTheSelectedRow)
{
    showRows(6);
    sortBy(0);
    clickRow(1);
    clearListRows();
    {
        const ListFilling together;
        addRow(200, L"a");
        addRow(201, L"b");
        for (int number = 0; number < 6; ++number)
            addRow(100 + number, L"p" + std::to_wstring(number));
    }
    ASSERT_THAT(selectedNames(), ElementsAre(L"p1"));
    pressInList(VK_DOWN, MK_SHIFT);
    EXPECT_THAT(selectedNames(), ElementsAre(L"p1", L"p2"));
}

} // namespace
} // namespace velk
