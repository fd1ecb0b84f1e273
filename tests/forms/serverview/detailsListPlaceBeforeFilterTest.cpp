// Where the user was before the filter.
#include "severalFixture.h"
#include "support/outOfMemory.h"

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlaceBeforeFilterTest : public test::SeveralFixture {};

TEST_F(PlaceBeforeFilterTest, removedRowWhoseHandleComesBack_isNotSelectedWhenTheFilterEnds)
{
    showRows(20);
    clickRow(5);
    list().setFilter(L"p1");
    ASSERT_THAT(selected(), IsEmpty());
    removeListRow(L"8", L"K105");
    shownRows();
    addRow(105, L"other");
    shownRows();
    list().setFilter(L"");
    EXPECT_THAT(selectedNames(), IsEmpty());
}

TEST_F(PlaceBeforeFilterTest, withoutMemoryForSeveralSelectedRows_theFilterChangesNothing)
{
    showRows(20);
    const std::wstring text = L"a text that is longer than a small one";
    for (int given = 0; given < 1000; ++given) {
        list().view().selectRow(-1);
        list().setFilter(L"");
        select({3, 5, 7});
        shownRows();
        bool isDone = true;
        try {
            const test::OutOfMemory scarce(given);
            list().setFilter(text);
        } catch (const std::bad_alloc&) {
            isDone = false;
        }
        if (isDone)
            return;
        ASSERT_EQ(list().filter().text(), L"") << given;
        ASSERT_EQ(shownRows(), 20) << given;
    }
}

} // namespace
} // namespace velk
