#include "base/boundary.h"

#include "support/failureLog.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::FailureLog;
using testing::ElementsAre;

TEST(swallow, bodyThrowsWhatever_isReportedAndFalse)
{
    FailureLog failures;
    EXPECT_FALSE(swallow(L"step", L"it may", [] { throw std::bad_alloc(); }));
    EXPECT_FALSE(swallow(L"step", L"it may", [] { throw 5; }));
    EXPECT_TRUE(swallow(L"step", L"it may", [] {}));
    EXPECT_THAT(failures.lines, ElementsAre(L"step: 7", L"step: " + std::to_wstring(E_UNEXPECTED)));
}

} // namespace
} // namespace velk
