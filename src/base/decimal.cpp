#include "base/decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace velk {
namespace {

// Beyond these powers of ten there is no double but infinity and 0.
constexpr int64_t highestMagnitude = 310;
constexpr int64_t lowestMagnitude = -330;
// The middle between two doubles never has more digits: of what follows it matters only whether there is anything.
constexpr size_t mostDigits = 800;
constexpr int64_t digitsOfAWhole = 18; // that 64 bits have room for
constexpr int precision = 53;          // bits of a double
constexpr int smallest = -1074;        // power of two of the last bit of the smallest doubles
constexpr int quotientBits = 56;       // those, one of doubt, and two behind them

// A natural number with room for the largest that comes up here: 10^1131 with 60 bits behind it.
class Natural {
public:
    void multiplyAdd(uint32_t factor, uint32_t summand) noexcept
    {
        uint64_t carry = summand;
        for (size_t place = 0; place < m_size; ++place) {
            carry += uint64_t{m_parts[place]} * factor;
            m_parts[place] = static_cast<uint32_t>(carry);
            carry >>= partBits;
        }
        if (carry != 0)
            m_parts[m_size++] = static_cast<uint32_t>(carry);
    }
    void multiplyByPowerOfTen(int64_t power) noexcept
    {
        for (; power > 0; --power)
            multiplyAdd(10, 0);
    }
    void shiftLeft(int bits) noexcept
    {
        for (; bits >= partBits - 1; bits -= partBits - 1)
            multiplyAdd(1u << (partBits - 1), 0);
        multiplyAdd(1u << bits, 0);
    }
    void halve() noexcept
    {
        for (size_t place = 0; place < m_size; ++place) {
            const uint32_t above = place + 1 < m_size ? m_parts[place + 1] : 0;
            m_parts[place] = m_parts[place] >> 1 | above << (partBits - 1);
        }
        trim();
    }
    // What is subtracted is not larger.
    void subtract(const Natural& other) noexcept
    {
        int64_t borrow = 0;
        for (size_t place = 0; place < m_size; ++place) {
            borrow += int64_t{m_parts[place]} - (place < other.m_size ? other.m_parts[place] : 0);
            m_parts[place] = static_cast<uint32_t>(borrow);
            borrow >>= partBits;
        }
        trim();
    }
    int bits() const noexcept
    {
        return m_size == 0 ? 0 : static_cast<int>(m_size) * partBits - std::countl_zero(m_parts[m_size - 1]);
    }
    bool isSmallerThan(const Natural& other) const noexcept
    {
        if (m_size != other.m_size)
            return m_size < other.m_size;
        for (size_t place = m_size; place-- > 0;)
            if (m_parts[place] != other.m_parts[place])
                return m_parts[place] < other.m_parts[place];
        return false;
    }

private:
    static constexpr int partBits = 32;

    void trim() noexcept
    {
        while (m_size > 0 && m_parts[m_size - 1] == 0)
            --m_size;
    }

    std::array<uint32_t, 128> m_parts{};
    size_t m_size = 0;
};

struct Quotient {
    uint64_t value = 0;
    bool hasRest = false;
};

// Of a quotient of at most so many bits. Bit by bit: nothing here is in a hurry.
Quotient divide(Natural numerator, Natural denominator) noexcept
{
    Quotient quotient;
    denominator.shiftLeft(quotientBits - 1);
    for (int bit = 0; bit < quotientBits; ++bit, denominator.halve()) {
        quotient.value <<= 1;
        if (numerator.isSmallerThan(denominator))
            continue;
        numerator.subtract(denominator);
        quotient.value |= 1;
    }
    quotient.hasRest = numerator.bits() != 0;
    return quotient;
}

// The quotient * 2^power with as many bits as a double of that size has.
double rounded(const Quotient& quotient, int power) noexcept
{
    const int dropped = std::max(static_cast<int>(std::bit_width(quotient.value)) - precision, smallest - power);
    if (dropped >= 64)
        return 0.0;
    const uint64_t rest = quotient.value & ((uint64_t{1} << dropped) - 1);
    const uint64_t half = uint64_t{1} << (dropped - 1);
    uint64_t kept = quotient.value >> dropped;
    if (rest > half || (rest == half && (quotient.hasRest || (kept & 1) != 0)))
        ++kept;
    return std::ldexp(static_cast<double>(kept), power + dropped);
}

// The short way of most numbers.
int64_t wholeNumber(std::string_view digits, int64_t magnitude) noexcept
{
    int64_t number = 0;
    for (const char digit : digits)
        number = number * 10 + (digit - '0');
    for (auto place = static_cast<int64_t>(digits.size()); place < magnitude; ++place)
        number *= 10;
    return number;
}

} // namespace

double nearestDouble(std::string_view digits, int64_t exponent) noexcept
{
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    const size_t significant = digits.find_last_not_of('0') + 1; // 0 without any
    exponent += static_cast<int64_t>(digits.size() - significant);
    digits = digits.substr(0, significant);
    const int64_t magnitude = static_cast<int64_t>(digits.size()) + exponent;
    if (digits.empty() || magnitude < lowestMagnitude)
        return 0.0;
    if (magnitude > highestMagnitude)
        return HUGE_VAL;
    if (exponent >= 0 && magnitude <= digitsOfAWhole)
        return static_cast<double>(wholeNumber(digits, magnitude));
    Natural numerator;
    for (const char digit : digits.substr(0, mostDigits))
        numerator.multiplyAdd(10, static_cast<uint32_t>(digit - '0'));
    if (digits.size() > mostDigits) { // the last of those left out is not 0
        numerator.multiplyAdd(10, 1);
        exponent += static_cast<int64_t>(digits.size() - mostDigits) - 1;
    }
    Natural denominator;
    denominator.multiplyAdd(0, 1);
    numerator.multiplyByPowerOfTen(exponent);
    denominator.multiplyByPowerOfTen(-exponent);
    // The estimate may be one too high, never too low.
    const int power = numerator.bits() - denominator.bits() + 1 - quotientBits;
    numerator.shiftLeft(std::max(0, -power));
    denominator.shiftLeft(std::max(0, power));
    return rounded(divide(numerator, denominator), power);
}

} // namespace velk
