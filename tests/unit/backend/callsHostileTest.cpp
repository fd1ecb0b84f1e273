// What a Backend may do inside a call that it should not.
#include "backend/calls.h"
#include "backend/fetch.h"
#include "backend/library_search.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "support/badManners.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"

#include <clocale>
#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class HostileTest : public testing::Test {
protected:
    HostileTest() { RZInitialize(3, L"a.rzv", L""); }

    // What the next action does instead of its work, and how that ends.
    std::optional<Error> act(std::function<void()> deed)
    {
        backend.on.RZObjectDoAction = [deed](int32_t, int32_t) {
            deed();
            return 1;
        };
        return attempt([] { RZObjectDoAction(1, 2); });
    }
    void actUntilGivenUp()
    {
        act(test::divideByZero);
        act(test::divideByZero);
        act(test::divideByZero);
        backend.calls.clear();
    }

    test::FakeBackend backend;
};

TEST_F(HostileTest, accessViolation_isError51NamingTheFunctionAndThePlace)
{
    const auto failure = act(test::accessViolation);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), 51);
    EXPECT_THAT(failure->description(),
                StartsWith(L"Internal error: RZObjectDoAction in velkvsadd.dll: access violation (C0000005 at "
                           L"unit_backend.exe+"));
}

TEST_F(HostileTest, otherFaults_areNamed)
{
    EXPECT_THAT(act(test::divideByZero)->description(), HasSubstr(L"division by zero (C0000094 at "));
    EXPECT_THAT(act(test::throwAsAnotherCompiler)->description(), HasSubstr(L"C++ exception (E06D7363 at "));
}

TEST_F(HostileTest, stackThatRunsFull_isNamed)
{
    if (!test::isFullStackTold())
        GTEST_SKIP() << "this system ends the process";
    EXPECT_THAT(act(test::overflowStack)->description(), HasSubstr(L"stack overflow (C00000FD at "));
}

TEST_F(HostileTest, fault_isNoFailureToLoadTheLibrary)
{
    EXPECT_FALSE(isBackendLibraryFailure(*act(test::divideByZero)));
}

TEST_F(HostileTest, callAfterAFault_isMade)
{
    act(test::divideByZero);
    EXPECT_FALSE(isBackendGivenUp());
    EXPECT_EQ(RZSetCurrentFolder(30, 7), 1);
}

TEST_F(HostileTest, thirdFaultOfASession_isSaidToBeTheLast)
{
    EXPECT_THAT(act(test::divideByZero)->description(), EndsWith(L")"));
    EXPECT_THAT(act(test::divideByZero)->description(), EndsWith(L")"));
    EXPECT_THAT(act(test::divideByZero)->description(),
                EndsWith(L"). The library is not called any more in this session."));
    EXPECT_TRUE(isBackendGivenUp());
}

TEST_F(HostileTest, callAfterTheThirdFault_isRefusedAndTextsAreEmpty)
{
    backend.texts[657] = L"Add failed";
    actUntilGivenUp();
    const auto failure = attempt([] { RZSetCurrentFolder(30, 7); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), 51);
    EXPECT_EQ(getRZString(657), L"");
    EXPECT_THAT(backend.calls, IsEmpty());
}

TEST_F(HostileTest, endOfTheSessionAfterTheThirdFault_isToldToTheBackend)
{
    actUntilGivenUp();
    RZTerminate();
    EXPECT_THAT(backend.calls, ElementsAre("RZTerminate()"));
}

TEST_F(HostileTest, sessionAfterTheThirdFault_beginsAnew)
{
    actUntilGivenUp();
    RZInitialize(3, L"b.rzv", L"");
    EXPECT_EQ(RZSetCurrentFolder(30, 7), 1);
    EXPECT_THAT(act(test::divideByZero)->description(), EndsWith(L")"));
}

TEST_F(HostileTest, faultInTheEndOfTheSession_isError51AndTheEndAllTheSame)
{
    backend.on.RZTerminate = []() -> int32_t { test::divideByZero(); };
    EXPECT_EQ(attempt([] { RZTerminate(); })->number(), 51);
    EXPECT_EQ(attempt([] { RZSetCurrentFolder(30, 7); })->number(), 5);
}

TEST_F(HostileTest, faultInsideARecord_isStatus0AndReportedByName)
{
    backend.on.RZProcedureGet = [](int32_t, test::wire::trzProcedure*) -> int32_t { test::divideByZero(); };
    const test::FailureLog log;
    trzProcedure record{.strName = L"before"};
    EXPECT_EQ(fetchProcedure(101, record), 0);
    EXPECT_EQ(record.strName, L"before");
    EXPECT_THAT(log.descriptions, ElementsAre(HasSubstr(L"RZProcedureGet in velkvsadd.dll")));
}

TEST_F(HostileTest, faultInsideAText_isNoTextAndReportedByName)
{
    backend.on.RZGetString = [](int32_t, char*, int32_t) -> int32_t { test::divideByZero(); };
    const test::FailureLog log;
    EXPECT_EQ(getRZString(657), L"");
    EXPECT_THAT(log.descriptions, ElementsAre(HasSubstr(L"RZGetString in velkvsadd.dll")));
}

TEST_F(HostileTest, callInsideACallThatFaults_failsAlone)
{
    backend.on.RZSetCurrentFolder = [this](int32_t, int32_t) { return act(test::divideByZero) ? 77 : 0; };
    EXPECT_EQ(RZSetCurrentFolder(30, 7), 77);
}

TEST(hostileLibrary, thatHadAFault_staysInTheProcess)
{
    {
        test::FakeBackend backend; // its end lets go of the library on both sides
        backend.on.RZTerminate = []() -> int32_t { test::divideByZero(); };
        EXPECT_TRUE(attempt([] { RZTerminate(); }));
    }
    EXPECT_NE(GetModuleHandleW(L"velkvsadd.dll"), nullptr);
}

TEST_F(HostileTest, currentDirectory_isPutBack)
{
    const std::wstring before = currentDirectory();
    act([] { SetCurrentDirectoryW(systemFolder().c_str()); });
    EXPECT_EQ(currentDirectory(), before);
}

TEST_F(HostileTest, currentDirectoryOfACallThatFaults_isPutBack)
{
    const std::wstring before = currentDirectory();
    act([] {
        SetCurrentDirectoryW(systemFolder().c_str());
        test::divideByZero();
    });
    EXPECT_EQ(currentDirectory(), before);
}

TEST_F(HostileTest, errorMode_isPutBack)
{
    const UINT before = SetErrorMode(SEM_NOOPENFILEERRORBOX);
    act([] { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); });
    EXPECT_EQ(SetErrorMode(before), UINT{SEM_NOOPENFILEERRORBOX});
}

TEST_F(HostileTest, errorModeDuringACall_isTheHosts)
{
    const UINT before = SetErrorMode(SEM_NOOPENFILEERRORBOX);
    UINT during = 0;
    act([&] { during = SetErrorMode(0); });
    SetErrorMode(before);
    EXPECT_EQ(during, UINT{SEM_NOOPENFILEERRORBOX});
}

TEST_F(HostileTest, localeOfTheThread_isPutBack)
{
    const LCID before = GetThreadLocale();
    act([] { SetThreadLocale(MAKELCID(MAKELANGID(LANG_TURKISH, SUBLANG_DEFAULT), SORT_DEFAULT)); });
    EXPECT_EQ(GetThreadLocale(), before);
}

TEST_F(HostileTest, localeOfTheRunTime_isPutBack)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::string during;
    act([&] { during = std::setlocale(LC_ALL, "Turkish"); });
    EXPECT_NE(during, before);
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

TEST_F(HostileTest, floatControlWord_isPutBackAfterAPollToo)
{
    const uint16_t before = test::floatControlWord();
    backend.on.RZGetNotification = [](test::wire::trzNotify*, int16_t*) {
        test::setFloatControlWord(test::unusualControlWord);
        return 0;
    };
    trzNotify notify;
    bool more = false;
    RZGetNotification(notify, more);
    EXPECT_EQ(test::floatControlWord(), before);
}

} // namespace
} // namespace velk
