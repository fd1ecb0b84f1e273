#include "platform/boundary.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "support/failureLog.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::FailureLog;
using testing::ElementsAre;

TEST(error, classicNumber_hasItsClassicText)
{
    const Error error(errorObjectNotSet);
    EXPECT_EQ(error.description(), L"Object variable or With block variable not set");
    EXPECT_EQ(error.source(), L"velkviadd");
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x800A005B));
}

TEST(error, detail_followsTheText)
{
    EXPECT_EQ(Error(errorFileNotFound, L"a.dll").description(), L"File not found: a.dll");
}

TEST(error, unknownNumber_isApplicationDefined)
{
    EXPECT_EQ(Error(30000).description(), L"Application-defined or object-defined error");
}

TEST(error, wellKnownResults_becomeClassicNumbers)
{
    EXPECT_EQ(Error::fromResult(DISP_E_TYPEMISMATCH).number(), 13);
    EXPECT_EQ(Error::fromResult(E_OUTOFMEMORY).number(), 7);
    EXPECT_EQ(Error::fromResult(DISP_E_UNKNOWNNAME).number(), 438);
}

TEST(error, resultOfTheControlFacility_isTheNumberInIt)
{
    EXPECT_EQ(Error::fromResult(static_cast<HRESULT>(0x800A01AD)).number(), 429);
}

TEST(error, otherResult_staysTheNumber)
{
    EXPECT_EQ(Error::fromResult(RPC_E_DISCONNECTED).number(), RPC_E_DISCONNECTED);
    EXPECT_EQ(Error::fromResult(RPC_E_DISCONNECTED).result(), RPC_E_DISCONNECTED);
}

TEST(atBoundary, bodyThrows_answersItsResultReportsAndLeavesARichError)
{
    FailureLog failures;
    const HRESULT result = atBoundary(L"door", [] { throw Error(errorOverflow); });
    com_ptr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
    bstr description;
    info->GetDescription(description.put());
    EXPECT_EQ(result, static_cast<HRESULT>(0x800A0006));
    EXPECT_EQ(description.view(), L"Overflow");
    EXPECT_THAT(failures.lines, ElementsAre(L"door: 6"));
}

TEST(atBoundary, bodyAnswers_passesItOn)
{
    EXPECT_EQ(atBoundary(L"door", [] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(atBoundary(L"door", [] {}), S_OK);
}

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
