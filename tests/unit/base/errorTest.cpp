#include "base/error.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

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

} // namespace
} // namespace velk
