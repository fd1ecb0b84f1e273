#include "com/string_arrays.h"

#include "com/bstr.h"
#include "support/errorNumber.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::errorNumberOf;

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
