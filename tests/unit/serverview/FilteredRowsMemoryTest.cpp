// What throws for want of memory leaves filter and rows as they were.
#include "rowsFixture.h"
#include "scarceMemory.h"

namespace velk {
namespace {

using test::addRows;
using test::failAtEachAllocation;
using test::Handles;
using test::handlesOf;
using test::row;

class FilteredRowsMemoryTest : public testing::Test {
protected:
    FilteredRowsMemoryTest() { addRows(rows, {1, 2, 3, 12}); }
    RowModel rows;
};

TEST_F(FilteredRowsMemoryTest, firstFilterWithoutMemory_hidesNothing)
{
    const int failures = failAtEachAllocation([&] { rows.setFilter(RowFilter(L"of 1", {})); },
                                              [&] { EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 12})); });
    EXPECT_GT(failures, 3);
    {
        const test::ScarceMemory none(0);
        EXPECT_EQ(rows.size(), 2u);
    }
    EXPECT_EQ(handlesOf(rows), (Handles{1, 12}));
}

TEST_F(FilteredRowsMemoryTest, otherFilterWithoutMemory_leavesTheOneThatIsThere)
{
    rows.setFilter(RowFilter(L"of 1", {}));
    const int failures = failAtEachAllocation([&] { rows.setFilter(RowFilter(L"of 3", {})); },
                                              [&] {
                                                  EXPECT_EQ(handlesOf(rows), (Handles{1, 12}));
                                                  EXPECT_TRUE(rows.find(3)->isHidden());
                                              });
    EXPECT_GT(failures, 3);
    EXPECT_EQ(handlesOf(rows), (Handles{3}));
}

TEST_F(FilteredRowsMemoryTest, narrowingAndItsEnd_needNone)
{
    rows.setFilter(RowFilter(L"of 1", {}));
    RowFilter narrower(L"of 12", {});
    {
        const test::ScarceMemory none(0);
        rows.setFilter(std::move(narrower));
    }
    EXPECT_EQ(handlesOf(rows), (Handles{12}));
    {
        const test::ScarceMemory none(0);
        rows.setFilter({});
    }
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 12}));
}

TEST_F(FilteredRowsMemoryTest, additionWithoutMemory_addsNothingToAFilteredModel)
{
    rows.setFilter(RowFilter(L"of 1", {}));
    int failures = 0;
    for (int32_t handle = 100; handle < 164; ++handle) {
        Row::Owner added;
        failures += failAtEachAllocation(
            [&] {
                added = row(handle, {L"name of 1"});
                rows.add(std::move(added));
            },
            [&] { EXPECT_EQ(rows.find(handle), nullptr); });
    }
    EXPECT_GT(failures, 64);
    {
        const test::ScarceMemory none(0);
        rows.placeAddedLast();
        EXPECT_EQ(rows.size(), 2u + 64u); // there was room for them
    }
}

TEST_F(FilteredRowsMemoryTest, changeWithoutMemory_leavesTheRowShownOrHidden)
{
    rows.setFilter(RowFilter(L"of 1", {}));
    const int failures = failAtEachAllocation([&] { rows.change(1, {L"other", {}, {}}); },
                                              [&] { EXPECT_EQ(handlesOf(rows), (Handles{1, 12})); });
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(handlesOf(rows), (Handles{12}));
}

} // namespace
} // namespace velk
