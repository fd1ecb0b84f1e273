#include "rowsFixture.h"

#include "support/errorNumber.h"

#include <numeric>

namespace velk {
namespace {

using test::addRows;
using test::Handles;
using test::handlesOf;
using test::row;

class RowModelTest : public testing::Test {
protected:
    RowModelTest() { addRows(rows, {1, 2, 3}); }
    std::optional<size_t> placeOf(int32_t handle) const { return rows.placeOf(*rows.find(handle)); }
    int32_t neighbourOf(int32_t handle) const { return rows.neighbourOf(*rows.find(handle))->handle(); }

    RowModel rows;
};

TEST_F(RowModelTest, addedRows_keepTheirOrder)
{
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3}));
    EXPECT_EQ(placeOf(3), 2u);
}

TEST_F(RowModelTest, addedRow_isFoundBeforeItHasAPlace)
{
    rows.add(row(4, {L"four"}));
    EXPECT_EQ(rows.size(), 3u);
    EXPECT_TRUE(rows.hasAdded());
    EXPECT_EQ(rows.find(4)->name(), L"four");
    EXPECT_EQ(placeOf(4), std::nullopt);
}

TEST_F(RowModelTest, takenHandle_isRefusedAndChangesNothing)
{
    EXPECT_EQ(test::errorNumberOf([&] { rows.add(row(2, {L"other"})); }), errorKeyNotUnique);
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3}));
    EXPECT_EQ(rows.at(1).name(), L"name of 2");
}

TEST_F(RowModelTest, removedRow_movesThoseBehindIt)
{
    rows.remove(1);
    EXPECT_EQ(rows.find(1), nullptr);
    EXPECT_EQ(handlesOf(rows), (Handles{2, 3}));
    EXPECT_EQ(placeOf(2), 0u);
    EXPECT_EQ(placeOf(3), 1u);
}

TEST_F(RowModelTest, rowRemovedBeforeItHadAPlace_isGone)
{
    rows.add(row(4, {L"four"}));
    rows.add(row(5, {L"five"}));
    rows.remove(4);
    EXPECT_EQ(rows.size(), 3u);
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 5}));
}

TEST_F(RowModelTest, missingHandle_cannotBeRemoved)
{
    EXPECT_EQ(test::errorNumberOf([&] { rows.remove(4); }), errorElementNotFound);
    EXPECT_EQ(rows.size(), 3u);
}

TEST_F(RowModelTest, neighbour_isTheNextRowOrTheOneBeforeTheLast)
{
    EXPECT_EQ(neighbourOf(1), 2);
    EXPECT_EQ(neighbourOf(3), 2);
    rows.remove(2);
    EXPECT_EQ(neighbourOf(1), 3);
    rows.remove(3);
    EXPECT_EQ(rows.neighbourOf(*rows.find(1)), nullptr);
}

TEST_F(RowModelTest, cleared_takesTheSameHandlesAgain)
{
    rows.clear();
    EXPECT_EQ(rows.size(), 0u);
    addRows(rows, {2});
    EXPECT_EQ(placeOf(2), 0u);
}

TEST_F(RowModelTest, changedRow_keepsItsPlaceItsOtherCellsAndItsRankInTheBackendsOrder)
{
    rows.add(row(4, {L"four", L"a", L"b"}, L"False#"));
    rows.placeAddedLast();
    addRows(rows, {5});
    const Row* changed = rows.change(4, {L"another", L"True#file", {7, true}});
    ASSERT_EQ(changed, rows.find(4));
    EXPECT_EQ(changed, &rows.at(3));
    EXPECT_EQ(changed->cell(0), L"another");
    EXPECT_EQ(changed->cell(1), L"a");
    EXPECT_EQ(changed->cell(2), L"b");
    EXPECT_EQ(changed->cell(3), L"");
    EXPECT_EQ(changed->tag(), L"True#file");
    EXPECT_EQ(changed->looks(), (RowLooks{7, true}));
    rows.sort({});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 4, 5}));
}

TEST_F(RowModelTest, rowThatMovedFarAndThenChanged_keepsItsPlace)
{
    Handles many(2000);
    std::iota(many.begin(), many.end(), 1000);
    addRows(rows, many);
    for (int32_t handle = 1000; handle < 1600; ++handle)
        rows.remove(handle);
    EXPECT_EQ(rows.size(), 1403u);
    rows.change(2500, {L"other", {}, {}});
    EXPECT_EQ(placeOf(2500), 903u);
    EXPECT_EQ(neighbourOf(2500), 2501);
    rows.remove(2500);
    EXPECT_EQ(placeOf(2501), 903u);
}

TEST_F(RowModelTest, changeToWhatIsThere_andOfAMissingRow_isNone)
{
    EXPECT_EQ(rows.change(2, {L"name of 2", {}, {}}), nullptr);
    EXPECT_EQ(rows.change(4, {L"name of 4", {}, {}}), nullptr);
    EXPECT_NE(rows.change(2, {L"name of 2", {}, {1, false}}), nullptr);
    EXPECT_NE(rows.change(2, {L"name of 2", L"tag", {1, false}}), nullptr);
}

TEST_F(RowModelTest, name_isFoundByItsBeginningWithoutRegardToCase)
{
    EXPECT_EQ(rows.findName(L"NAME of 2", 0), 1u);
    EXPECT_EQ(rows.findName(L"name", 1), 1u);
    EXPECT_EQ(rows.findName(L"name of 22", 0), std::nullopt);
    EXPECT_EQ(rows.findName(L"name of 1", 1), std::nullopt);
}

TEST_F(RowModelTest, textsOfARow_mayHoldAnything)
{
    const std::wstring withNul(L"a\0b", 3);
    const Row::Owner made = row(9, {withNul, L"", std::wstring(70000, L'x')}, withNul);
    EXPECT_EQ(made->cell(0), withNul);
    EXPECT_EQ(made->cell(1), L"");
    EXPECT_EQ(made->cell(2).size(), 70000u);
    EXPECT_EQ(made->tag(), withNul);
}

} // namespace
} // namespace velk
