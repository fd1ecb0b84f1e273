#include "com/com_boundary.h"

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "support/failureLog.h"
#include "support/fakeObject.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::FailureLog;
using testing::ElementsAre;

// An object that does not say whether it leaves rich errors.
class Plain : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        *out = iid == IID_IUnknown ? this : nullptr;
        return *out ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
};

// What the caller hears of a call that failed after somebody left these words.
Error heard(IUnknown* object, const std::wstring& description)
{
    publishError(Error(errorOverflow, description, L"Host", E_FAIL));
    const auto failure = attempt([&] { throwIfFailed(E_ACCESSDENIED, object, IID_IDispatch); });
    SetErrorInfo(0, nullptr);
    return failure.value();
}

TEST(throwIfFailed, objectWithRichErrors_isQuoted)
{
    const Error error = heard(test::fakeObject(L"Model")->identity(), L"The file is locked");
    EXPECT_EQ(error.number(), errorPermissionDenied);
    EXPECT_EQ(error.result(), E_ACCESSDENIED);
    EXPECT_EQ(error.description(), L"The file is locked");
    EXPECT_EQ(error.source(), L"Host");
}

TEST(throwIfFailed, objectWithoutRichErrors_doesNotGetTheWordsOfAnother)
{
    Plain object;
    const Error error = heard(&object, L"left over");
    EXPECT_EQ(error.description(), L"Permission denied");
    EXPECT_EQ(error.source(), L"velkviadd");
}

TEST(throwIfFailed, richErrorWithoutWords_hasThoseOfItsNumber)
{
    EXPECT_EQ(heard(test::fakeObject(L"Model")->identity(), L"").description(), L"Permission denied");
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

} // namespace
} // namespace velk
