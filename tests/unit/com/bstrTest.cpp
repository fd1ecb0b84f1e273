#include "com/bstr.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(bstrText, embeddedNul_isKept)
{
    const std::wstring text(L"a\0b", 3);
    EXPECT_EQ(bstr(text).view(), text);
    EXPECT_EQ(bstr(bstr(text)).text(), text);
}

TEST(bstrText, nullString_readsAsEmpty)
{
    EXPECT_EQ(bstr::viewOf(nullptr), L"");
}

} // namespace
} // namespace velk
