#include "addin/startFailure.h"

#include "backend/library.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

constexpr wchar_t library[] = L"velkvsadd.dll";

struct Advice {
    int32_t number;
    const wchar_t* begins;
};

class startFailureAdvice : public testing::TestWithParam<Advice> {};

TEST_P(startFailureAdvice, ofTheLibrary_followsTheDescription)
{
    const Error failure = Error(GetParam().number).ofLibrary(library);
    ASSERT_TRUE(isBackendLibraryFailure(failure));
    EXPECT_TRUE(startFailureText(failure).starts_with(failure.description() + L"\r\n\r\n" + GetParam().begins));
}

TEST_P(startFailureAdvice, ofTheIdeWithTheSameNumber_isNotGiven)
{
    const Error failure(GetParam().number, L"The IDE's own text", L"IDE", E_FAIL);
    EXPECT_EQ(startFailureText(failure), L"The IDE's own text");
}

INSTANTIATE_TEST_SUITE_P(each, startFailureAdvice,
                         testing::Values(Advice{53, L"Install or repair Rozel"}, Advice{48, L"The library is damaged"},
                                         Advice{453, L"The library belongs to another release"}));

} // namespace
} // namespace velk
