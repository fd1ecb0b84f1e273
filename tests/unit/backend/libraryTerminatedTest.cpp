// What may still be asked of the tool after the session's end.
#include "backend/calls.h"
#include "backend/texts.h"

#include "base/boundary.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

class TerminatedTest : public testing::Test {
protected:
    TerminatedTest()
    {
        backend.texts[657] = L"Add failed";
        backend.on.RZTerminate = [this] {
            during = attempt([] { RZObjectDoAction(1, 2); });
            return 1;
        };
        RZInitialize(3, L"a.rzv", L"");
        RZTerminate();
        backend.calls.clear();
    }

    test::FakeBackend backend;
    std::optional<Error> during;
};

TEST_F(TerminatedTest, everythingButTexts_isRefusedWithError5)
{
    const auto failure = attempt([] { RZObjectDoAction(1, 2); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), errorInvalidCall);
    EXPECT_TRUE(attempt([] { RZTerminate(); }));
    EXPECT_EQ(backend.calls, test::Calls{});
}

TEST_F(TerminatedTest, callInsideTheEnd_isAfterItToo)
{
    ASSERT_TRUE(during);
    EXPECT_EQ(during->number(), errorInvalidCall);
}

TEST_F(TerminatedTest, texts_areStillGiven)
{
    std::wstring first;
    std::wstring second;
    EXPECT_EQ(getRZString(657), L"Add failed");
    EXPECT_EQ(getRZStringP1(657, first), L"Add failed");
    EXPECT_EQ(getRZStringP2(657, first, second), L"Add failed");
}

TEST_F(TerminatedTest, nextSession_isOpenAgain)
{
    RZInitialize(3, L"b.rzv", L"");
    RZObjectDoAction(1, 2);
    EXPECT_THAT(backend.calls, testing::ElementsAre("RZInitialize(3, \"b.rzv\", \"\")", "RZObjectDoAction(1, 2)"));
}

} // namespace
} // namespace velk
