#include "base/text.h"

#include "base/unique_any.h"
#include "support/errorNumber.h"

#include <clocale>
#include <gtest/gtest.h>

namespace velk {
namespace {

using test::errorNumberOf;

TEST(leadingNumber, digitsThenWords_readsTheDigits)
{
    EXPECT_EQ(leadingNumber(L"12 apples"), 12.0);
}

TEST(leadingNumber, noNumber_is0)
{
    EXPECT_EQ(leadingNumber(L"apples 12"), 0.0);
    EXPECT_EQ(leadingNumber(L""), 0.0);
}

TEST(leadingNumber, blanksTabsAndLineFeeds_arePassedOver)
{
    EXPECT_EQ(leadingNumber(L" 1 2\t3\n4"), 1234.0);
}

TEST(leadingNumber, signPointAndExponent_areRead)
{
    EXPECT_EQ(leadingNumber(L"-1.5e2x"), -150.0);
    EXPECT_EQ(leadingNumber(L"+.5D1"), 5.0);
}

TEST(leadingNumber, secondPoint_endsTheNumber)
{
    EXPECT_EQ(leadingNumber(L"1.5.7"), 1.5);
}

TEST(leadingNumber, danglingExponent_isLeftUnread)
{
    EXPECT_EQ(leadingNumber(L"8e"), 8.0);
    EXPECT_EQ(leadingNumber(L"8e+"), 8.0);
}

TEST(leadingNumber, wordsOfTheCLibrary_areNoNumbers)
{
    EXPECT_EQ(leadingNumber(L"inf"), 0.0);
    EXPECT_EQ(leadingNumber(L"nan"), 0.0);
    EXPECT_EQ(leadingNumber(L"0x10"), 0.0);
}

TEST(leadingNumber, hostWithADecimalComma_changesNothing)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "German"), nullptr);
    const scope_exit restored([&] { std::setlocale(LC_NUMERIC, before.c_str()); });
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(leadingNumber(L"9.5"), 9.5);
    EXPECT_EQ(leadingNumber(L"9,5"), 9.0);
}

TEST(leadingNumber, tooSmallToBeTold_is0)
{
    EXPECT_EQ(leadingNumber(L"1e-400"), 0.0);
    EXPECT_EQ(leadingNumber(L"-1e-400"), 0.0);
    EXPECT_EQ(leadingNumber(L"1e-99999999999"), 0.0);
    EXPECT_EQ(leadingNumber(L"0." + std::wstring(400, L'0') + L"1"), 0.0);
}

TEST(leadingNumber, tooGreat_isOutsideEveryWholeNumber)
{
    EXPECT_EQ(errorNumberOf([] { roundToLong(leadingNumber(L"1e400")); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(leadingNumber(L"-1e400")); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(leadingNumber(L".5e+400")); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(leadingNumber(L"1e99999999999")); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(leadingNumber(std::wstring(400, L'9') + L"e-1")); }), 6);
}

TEST(roundToLong, halves_goToTheEvenNumber)
{
    EXPECT_EQ(roundToLong(0.5), 0);
    EXPECT_EQ(roundToLong(1.5), 2);
    EXPECT_EQ(roundToLong(2.5), 2);
    EXPECT_EQ(roundToLong(-0.5), 0);
    EXPECT_EQ(roundToLong(-1.5), -2);
    EXPECT_EQ(roundToLong(-2.5), -2);
}

TEST(roundToLong, otherFractions_goToTheNearest)
{
    EXPECT_EQ(roundToLong(2.4999), 2);
    EXPECT_EQ(roundToLong(-2.5001), -3);
}

TEST(roundToLong, endsOf32Bits_stillFit)
{
    EXPECT_EQ(roundToLong(2147483647.4), INT32_MAX);
    EXPECT_EQ(roundToLong(-2147483648.5), INT32_MIN);
}

TEST(roundToLong, beyond32Bits_isError6)
{
    EXPECT_EQ(errorNumberOf([] { roundToLong(2147483647.5); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(-2147483649.0); }), 6);
    EXPECT_EQ(errorNumberOf([] { roundToLong(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(textToLong, wholeNumberInBlanks_isRead)
{
    EXPECT_EQ(textToLong(L" -42 "), -42);
}

TEST(textToLong, noNumber_isError13)
{
    EXPECT_EQ(errorNumberOf([] { textToLong(L"12 apples"); }), 13);
    EXPECT_EQ(errorNumberOf([] { textToLong(L""); }), 13);
}

TEST(textToLong, beyond32Bits_isError6)
{
    EXPECT_EQ(errorNumberOf([] { textToLong(L"2147483648"); }), 6);
}

TEST(ansiText, plainText_goesBothWays)
{
    EXPECT_EQ(toAnsi(L"Orders"), "Orders");
    EXPECT_EQ(toWide("Orders"), L"Orders");
    EXPECT_EQ(toWide(toAnsi(L"")), L"");
}

TEST(numberText, negative_hasItsSignInFront)
{
    EXPECT_EQ(numberText(INT32_MIN), L"-2147483648");
    EXPECT_EQ(numberText(0), L"0");
}

TEST(booleanText, both_areBasicsWords)
{
    EXPECT_EQ(booleanText(true), L"True");
    EXPECT_EQ(booleanText(false), L"False");
}

} // namespace
} // namespace velk
