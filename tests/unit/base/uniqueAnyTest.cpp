#include "base/unique_any.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

struct closing_traits : null_handle<int*> {
    static void close(int* count) noexcept { ++*count; }
};

TEST(uniqueAny, handedOnAndReset_closesOnce)
{
    int closed = 0;
    unique_any<closing_traits> first(&closed);
    unique_any<closing_traits> second(std::move(first));
    EXPECT_EQ(closed, 0);
    second.reset();
    second.reset();
    EXPECT_EQ(closed, 1);
}

TEST(scopeExit, endOfTheScope_runsTheFunction)
{
    int runs = 0;
    {
        const scope_exit atTheEnd([&] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace velk
