#include "serverview/keptText.h"

#include <gtest/gtest.h>

#include <limits>

namespace velk {
namespace {

TEST(KeptText, textOfThisVersion_isReadToItsEnd)
{
    KeptReader reader(L"1;42;6:ORDERS");
    EXPECT_EQ(reader.number(0, 99), 42u);
    reader.expect(L';');
    EXPECT_EQ(reader.text(6), L"ORDERS");
    EXPECT_TRUE(reader.isWhole());
}

class ForeignTexts : public testing::TestWithParam<const wchar_t*> {};
TEST_P(ForeignTexts, read_fail)
{
    KeptReader reader(GetParam());
    reader.number(0, 9);
    EXPECT_TRUE(reader.hasFailed());
    EXPECT_FALSE(reader.isWhole());
}
INSTANTIATE_TEST_SUITE_P(KeptText, ForeignTexts,
                         testing::Values(L"", L"1", L"2;5", L"11;5", L" 1;5", L"1;", L"1;x", L"1;-5", L"1;+5", L"1;10",
                                         L"1;99999999999999999999999999", L"1;\u0665", L"1;\uFF15"));

TEST(KeptText, whatFollows_isNotWhole)
{
    KeptReader reader(L"1;5 ");
    EXPECT_EQ(reader.number(0, 9), 5u);
    EXPECT_FALSE(reader.isWhole());
}

TEST(KeptText, numberBelowTheBound_fails)
{
    KeptReader reader(L"1;4");
    EXPECT_EQ(reader.number(5, 9), 5u);
    EXPECT_TRUE(reader.hasFailed());
}

TEST(KeptText, numberAtTheBounds_isRead)
{
    EXPECT_EQ(KeptReader(L"1;5").number(5, 9), 5u);
    EXPECT_EQ(KeptReader(L"1;9").number(5, 9), 9u);
    constexpr uint64_t greatest = std::numeric_limits<uint64_t>::max();
    EXPECT_EQ(KeptReader(L"1;18446744073709551615").number(0, greatest), greatest);
    EXPECT_EQ(KeptReader(L"1;18446744073709551616").number(0, greatest), 0u);
}

TEST(KeptText, failedReader_readsNothingMore)
{
    KeptReader reader(L"1;x5");
    reader.number(0, 9);
    EXPECT_FALSE(reader.take(L'x'));
    EXPECT_EQ(reader.text(9), L"");
    EXPECT_TRUE(reader.isAtEnd());
}

TEST(KeptText, textLongerThanWhatIsThere_fails)
{
    KeptReader reader(L"1;7:ORDERS");
    EXPECT_EQ(reader.text(100), L"");
    EXPECT_TRUE(reader.hasFailed());
}

TEST(KeptText, textLongerThanTheBound_fails)
{
    KeptReader reader(L"1;6:ORDERS");
    EXPECT_EQ(reader.text(5), L"");
    EXPECT_TRUE(reader.hasFailed());
}

TEST(KeptText, textWithANul_fails)
{
    KeptReader reader(std::wstring_view(L"1;3:a\0b", 7));
    EXPECT_EQ(reader.text(9), L"");
    EXPECT_TRUE(reader.hasFailed());
}

TEST(KeptText, textOfAnyCharacters_isReadAsItWasKept)
{
    const std::wstring kept = std::wstring(keptVersion) + keptTextOf(L"7:;+\n\\") + keptTextOf(L"");
    KeptReader reader(kept);
    EXPECT_EQ(reader.text(9), L"7:;+\n\\");
    EXPECT_EQ(reader.text(9), L"");
    EXPECT_TRUE(reader.isWhole());
}

TEST(KeptText, number_isWrittenInDecimal)
{
    EXPECT_EQ(keptNumber(0), L"0");
    EXPECT_EQ(keptNumber(1200), L"1200");
    EXPECT_EQ(keptNumber(std::numeric_limits<uint64_t>::max()), L"18446744073709551615");
}

} // namespace
} // namespace velk
