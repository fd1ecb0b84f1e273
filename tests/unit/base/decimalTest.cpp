#include "base/decimal.h"

#include "base/text.h"

#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace velk {
namespace {

// What the standard library reads, where infinity and 0 are the ends of its range. A few digits it would multiply in
// the processor's own precision, and so round twice: zeros keep it from that.
double byTheLibrary(const std::string& digits, int64_t exponent)
{
    const std::string zeros(25, '0');
    const std::string text = digits + zeros + "e" + std::to_string(exponent - static_cast<int64_t>(zeros.size()));
    double number = 0.0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc::result_out_of_range)
        return number;
    return static_cast<int64_t>(digits.size()) + exponent > 0 ? HUGE_VAL : 0.0;
}

class Decimal : public testing::Test {
protected:
    unsigned below(unsigned end) { return static_cast<unsigned>(m_random() % end); }
    std::string digits(unsigned most)
    {
        std::string made(1 + below(most), '1');
        for (char& digit : made)
            digit = static_cast<char>('0' + below(10));
        return made;
    }

private:
    std::mt19937 m_random{20261122};
};

TEST_F(Decimal, shortNumbers_areTheLibrarys)
{
    for (int round = 0; round < 20000; ++round) {
        const std::string number = digits(25);
        const int64_t exponent = static_cast<int64_t>(below(60)) - 40;
        EXPECT_EQ(nearestDouble(number, exponent), byTheLibrary(number, exponent)) << number << "e" << exponent;
    }
}

TEST_F(Decimal, numbersOfTheWholeRangeAndBeyond_areTheLibrarys)
{
    for (int round = 0; round < 4000; ++round) {
        const std::string number = digits(40);
        const int64_t exponent = static_cast<int64_t>(below(720)) - 380;
        EXPECT_EQ(nearestDouble(number, exponent), byTheLibrary(number, exponent)) << number << "e" << exponent;
    }
}

TEST_F(Decimal, longNumbers_areTheLibrarys)
{
    for (int round = 0; round < 200; ++round) {
        const std::string number = digits(1200);
        const int64_t exponent = static_cast<int64_t>(below(700)) - 350 - static_cast<int64_t>(number.size());
        EXPECT_EQ(nearestDouble(number, exponent), byTheLibrary(number, exponent)) << number << "e" << exponent;
    }
}

TEST_F(Decimal, middleBetweenTwo_isTheEvenOne)
{
    EXPECT_EQ(nearestDouble("9007199254740993", 0), 9007199254740992.0);
    EXPECT_EQ(nearestDouble("9007199254740995", 0), 9007199254740996.0);
}

TEST_F(Decimal, middleAndALittleMore_isTheUpperOne)
{
    const std::string little = "9007199254740993" + std::string(1000, '0') + "1";
    EXPECT_EQ(nearestDouble(little, -1001), 9007199254740994.0);
}

TEST_F(Decimal, endsOfTheRange_areTold)
{
    EXPECT_EQ(nearestDouble("17976931348623157", 292), 1.7976931348623157e308);
    EXPECT_EQ(nearestDouble("17976931348623159", 292), HUGE_VAL);
    EXPECT_EQ(nearestDouble("49406564584124654", -340), 4.9406564584124654e-324);
    EXPECT_EQ(nearestDouble("2", -324), 0.0);
}

TEST_F(Decimal, noDigitsAndNothingButZeros_are0)
{
    EXPECT_EQ(nearestDouble("", 5), 0.0);
    EXPECT_EQ(nearestDouble("000", 400), 0.0);
}

// A text's leading number as it was read before: the same characters, by the library.
double leadingNumberByTheLibrary(std::string text)
{
    std::erase_if(text, [](char character) { return character == ' ' || character == '\t'; });
    for (char& character : text)
        character = character == 'd' || character == 'D' || character == 'E' ? 'e' : character;
    const char* const begin = text.data() + (text.starts_with('+') ? 1 : 0);
    double number = 0.0;
    if (text.starts_with("+-")) // a sign behind the plus is none
        return number;
    const auto read = std::from_chars(begin, text.data() + text.size(), number);
    if (read.ec != std::errc::result_out_of_range)
        return number;
    if (text[text.find('e') + 1] == '-')
        return 0.0;
    return text.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
}

TEST_F(Decimal, leadingNumbersOfAnyTexts_areTheLibrarys)
{
    constexpr char letters[] = "0123456789012345678900+-..eEdD \tx";
    for (int round = 0; round < 50000; ++round) {
        std::string text(1 + below(12), ' ');
        for (char& character : text)
            character = letters[below(sizeof letters - 1)];
        const double expected = leadingNumberByTheLibrary(text);
        EXPECT_DOUBLE_EQ(leadingNumber(toWide(text)), expected) << text;
    }
}

} // namespace
} // namespace velk
