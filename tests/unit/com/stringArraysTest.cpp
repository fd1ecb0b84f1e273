#include "com/string_arrays.h"

#include "base/error.h"
#include "com/bstr.h"

#include <functional>
#include <gmock/gmock.h>

namespace velk {
namespace {

int32_t errorNumberOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

TEST(textsOf, array_isReadFromItsOwnLowerBound)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 1, 2);
    for (LONG index = 1; index <= 2; ++index)
        SafeArrayPutElement(array, &index, bstr(std::to_wstring(index)).get());
    EXPECT_THAT(textsOf(array), testing::ElementsAre(L"1", L"2"));
    SafeArrayDestroy(array);
}

TEST(textsOf, nothing_isNoText)
{
    EXPECT_TRUE(textsOf(nullptr).empty());
    SAFEARRAY* array = arrayOf({});
    EXPECT_TRUE(textsOf(array).empty());
    SafeArrayDestroy(array);
}

TEST(textsOf, arrayOfNumbers_isError13)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 0);
    EXPECT_EQ(errorNumberOf([&] { textsOf(array); }), errorTypeMismatch);
    SafeArrayDestroy(array);
}

} // namespace
} // namespace velk
