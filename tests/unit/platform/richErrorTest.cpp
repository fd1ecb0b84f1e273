// Which words a failed call of an object comes with.
#include "platform/boundary.h"

#include "support/fakeObject.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

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

} // namespace
} // namespace velk
