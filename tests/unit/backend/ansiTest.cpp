#include "backend/ansi.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

std::wstring trimmed(std::wstring text)
{
    ansi::trimAtNull(text);
    return text;
}

TEST(trimAtNull, nulInside_keepsWhatStandsBefore)
{
    EXPECT_EQ(trimmed(std::wstring(L"ab\0cd\0", 6)), L"ab");
}

TEST(trimAtNull, nulFirst_isEmpty)
{
    EXPECT_EQ(trimmed(std::wstring(L"\0ab", 3)), L"");
}

TEST(trimAtNull, noNul_isEmptyNotTheWholeText)
{
    EXPECT_EQ(trimmed(L"abcd"), L"");
}

} // namespace
} // namespace velk
