// What throws for want of memory has changed nothing.
#include "rowsFixture.h"
#include "scarceMemory.h"

namespace velk {
namespace {

using test::addRows;
using test::failAtEachAllocation;
using test::Handles;
using test::handlesOf;
using test::row;

class RowModelMemoryTest : public testing::Test {
protected:
    // As many rows as fill the index and the row vector, so that one more needs memory for both.
    RowModelMemoryTest()
    {
        for (int32_t handle = 1; handle <= 64; ++handle)
            full.push_back(handle);
    }

    Handles full;
    RowModel rows;
};

TEST_F(RowModelMemoryTest, additionWithoutMemory_addsNothing)
{
    int failures = 0;
    for (const int32_t handle : full) {
        Row::Owner added;
        failures += failAtEachAllocation(
            [&] {
                added = row(handle, {L"name"});
                rows.add(std::move(added));
            },
            [&] {
                EXPECT_EQ(rows.find(handle), nullptr);
                rows.placeAddedLast();
                EXPECT_EQ(rows.size(), static_cast<size_t>(handle - 1));
            });
    }
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), full);
    EXPECT_GT(failures, 64); // the row itself each time, and now and then room for it
}

TEST_F(RowModelMemoryTest, modelThatGaveItsRoomBack_needsMemoryForOneMoreRow)
{
    addRows(rows, {1, 2, 3, 4, 5});
    rows.giveBackRoom();
    Row::Owner added = row(6, {L"name"});
    EXPECT_EQ(failAtEachAllocation([&] { rows.add(std::move(added)); }, [&] { added = row(6, {L"name"}); }), 1);
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 4, 5, 6}));
}

TEST_F(RowModelMemoryTest, roomWithoutMemoryToGiveItBack_isKept)
{
    addRows(rows, {1, 2, 3, 4, 5});
    {
        const test::ScarceMemory none(0);
        rows.giveBackRoom();
    }
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 4, 5}));
}

TEST_F(RowModelMemoryTest, changeWithoutMemory_leavesTheRowAsItIs)
{
    addRows(rows, {1, 2, 3});
    const int failures = failAtEachAllocation([&] { rows.change(2, {L"other", L"tag", {5, true}}); },
                                              [&] {
                                                  EXPECT_EQ(rows.at(1).name(), L"name of 2");
                                                  EXPECT_EQ(rows.at(1).looks(), RowLooks{});
                                              });
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(rows.at(1).name(), L"other");
}

TEST_F(RowModelMemoryTest, orderWithoutMemory_leavesTheRowsInTheirPlaces)
{
    addRows(rows, {3, 1, 2});
    const int failures =
        failAtEachAllocation([&] { rows.sort({0, false}); }, [&] { EXPECT_EQ(handlesOf(rows), (Handles{3, 1, 2})); });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3}));
}

TEST_F(RowModelMemoryTest, placesWithoutMemory_areNotGiven)
{
    addRows(rows, {1, 3, 5});
    rows.sort({0, false});
    rows.add(row(4, {L"name of 4"}));
    rows.add(row(2, {L"name of 2"}));
    const int failures = failAtEachAllocation([&] { rows.placeAdded({0, false}); },
                                              [&] {
                                                  EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 5}));
                                                  EXPECT_TRUE(rows.hasAdded());
                                              });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 4, 5}));
}

TEST_F(RowModelMemoryTest, rowsPlacedLastForWantOfMemory_areOrderedAnew)
{
    addRows(rows, {1, 3, 5});
    rows.sort({0, false});
    rows.add(row(4, {L"name of 4"}));
    rows.add(row(2, {L"name of 2"}));
    {
        const test::ScarceMemory none(0);
        EXPECT_THROW(rows.placeAdded({0, false}), std::bad_alloc);
        rows.placeAddedLast();
    }
    rows.sort({0, true});
    EXPECT_EQ(handlesOf(rows), (Handles{5, 4, 3, 2, 1}));
}

TEST_F(RowModelMemoryTest, removalAndReversal_needNone)
{
    addRows(rows, full);
    rows.sort({0, false});
    {
        const test::ScarceMemory none(0);
        rows.sort({0, true});
        rows.remove(7);
    }
    EXPECT_EQ(rows.size(), full.size() - 1);
    EXPECT_EQ(rows.find(7), nullptr);
}

} // namespace
} // namespace velk
