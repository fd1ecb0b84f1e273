#include "serverview/columnLooks.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;

ColumnLooks fullLooks()
{
    ColumnLooks looks(5);
    looks.widths = {3000, 0, 1500, 0, 120};
    looks.places = {4, 0, 1, 3, 2};
    looks.hidden = {1, 3};
    looks.order = {2, true};
    return looks;
}

TEST(ColumnLooks, whatWasGiven_isKeptAndFoundAgain)
{
    EXPECT_EQ(keptTextOf(fullLooks()), L"1;3000,,1500,,120;4,0,1,3,2;1,3;-2");
    EXPECT_EQ(columnLooksOf(keptTextOf(fullLooks()), 5), fullLooks());
}

TEST(ColumnLooks, nothingGiven_keepsNothing)
{
    EXPECT_EQ(keptTextOf(ColumnLooks(5)), L"");
    EXPECT_EQ(columnLooksOf(L"", 5), ColumnLooks(5));
}

TEST(ColumnLooks, orderAlone_isKept)
{
    ColumnLooks looks(3);
    looks.order = {0, false};
    EXPECT_EQ(keptTextOf(looks), L"1;,,;;;+0");
    EXPECT_EQ(columnLooksOf(L"1;,,;;;+0", 3), looks);
}

TEST(ColumnLooks, widthOutOfBounds_isKeptWithinThem)
{
    ColumnLooks looks(3);
    looks.widths = {119, 120001, 1};
    EXPECT_EQ(keptTextOf(looks), L"1;,120000,;;;");
}

class BrokenLooks : public testing::TestWithParam<const wchar_t*> {};
TEST_P(BrokenLooks, read_countAsNothing)
{
    EXPECT_EQ(columnLooksOf(GetParam(), 3), ColumnLooks(3));
}
INSTANTIATE_TEST_SUITE_P(ColumnLooks, BrokenLooks,
                         testing::Values(L"1", L"1;", L"1;;;;", L"2;200,,;;;", L"1;200,;;;", L"1;200,,,;;;",
                                         L"1;119,,;;;", L"1;120001,,;;;", L"1;-200,,;;;", L"1;4294967496,,;;;",
                                         L"1;200,,;0,1;;", L"1;200,,;0,1,1;;", L"1;200,,;0,1,3;;", L"1;200,,;0,1,2,0;;",
                                         L"1;200,,;;0;", L"1;200,,;;1,1;", L"1;200,,;;2,1;", L"1;200,,;;3;",
                                         L"1;200,,;;;3", L"1;200,,;;;+3", L"1;200,,;;;-", L"1;200,,;;;+1 ",
                                         L"1;200,,;;;+-1", L"1;200,,;;", L"1;200,,;;;;", L"1;2 0,,;;;", L"200,,;;;",
                                         L"1;200,,;0,1,2,0,1,2,0,1,2,0,1,2,0,1,2,0,1,2,0,1,2;;"));

TEST(ColumnLooks, looksOfAFolderWithOtherColumns_countAsNothing)
{
    EXPECT_EQ(columnLooksOf(keptTextOf(fullLooks()), 4), ColumnLooks(4));
    EXPECT_EQ(columnLooksOf(keptTextOf(fullLooks()), 6), ColumnLooks(6));
    EXPECT_EQ(columnLooksOf(keptTextOf(fullLooks()), 0), ColumnLooks());
}

TEST(ColumnLooks, hiddenColumns_areNotAmongTheShown)
{
    EXPECT_THAT(fullLooks().shown(), ElementsAre(0, 2, 4));
    EXPECT_THAT(fullLooks().shownPlaces(), ElementsAre(2, 0, 1));
}

TEST(ColumnLooks, firstColumn_isNeverHidden)
{
    ColumnLooks looks(2);
    looks.hide(0, true);
    EXPECT_THAT(looks.shown(), ElementsAre(0, 1));
}

TEST(ColumnLooks, columnHiddenAndShownAgain_isAsBefore)
{
    ColumnLooks looks(3);
    looks.hide(2, true);
    looks.hide(1, true);
    looks.hide(1, true);
    EXPECT_THAT(looks.hidden, ElementsAre(1, 2));
    looks.hide(1, false);
    looks.hide(2, false);
    EXPECT_EQ(looks, ColumnLooks(3));
}

TEST(ColumnLooks, movedColumns_passOverTheHiddenOnes)
{
    ColumnLooks looks(4);
    looks.hide(1, true);
    looks.movePlaces({2, 0, 1}); // columns 3, 0, 2
    EXPECT_THAT(looks.places, ElementsAre(3, 1, 0, 2));
    looks.hide(1, false);
    EXPECT_THAT(looks.shownPlaces(), ElementsAre(3, 1, 0, 2));
}

TEST(ColumnLooks, columnsMovedBack_areAsTheyCome)
{
    ColumnLooks looks(3);
    looks.movePlaces({2, 1, 0});
    looks.movePlaces({0, 1, 2});
    EXPECT_EQ(looks, ColumnLooks(3));
}

TEST(ColumnLooks, placesThatAreNotThoseOfTheColumns_changeNothing)
{
    ColumnLooks looks(3);
    looks.movePlaces({1, 0});
    looks.movePlaces({1, 1, 0});
    EXPECT_EQ(looks, ColumnLooks(3));
}

} // namespace
} // namespace velk
