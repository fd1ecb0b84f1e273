// The fuzzer's cases, as many as a quick run has room for and made up by a seed, against the units as Windows has them:
// scripts/fuzz looks further, with other tools. VELK_FUZZ_CASES and VELK_SEED choose others.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace velk {
namespace {

constexpr size_t mostLength = 200;
constexpr unsigned usualCases = 500'000;

unsigned setting(const char* name, unsigned usual)
{
    const char* const wanted = std::getenv(name);
    return wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : usual;
}

// Mostly of the signs that mean something somewhere, so that a case comes further than the first letter.
std::string caseOf(std::mt19937& random)
{
    constexpr char signs[] = "0123456789+-eEdD.&HhKk#\\/:;,%(){}~^ \"aZ\0\x80\xff";
    std::string text(1 + random() % mostLength, '\0');
    for (char& letter : text)
        letter = random() % 8 == 0 ? static_cast<char>(random()) : signs[random() % (std::size(signs) - 1)];
    text[0] = static_cast<char>(random());
    return text;
}

TEST(FuzzTest, textsFromOutside_doNothingButTheirAnswerOrTheirError)
{
    const unsigned seed = setting("VELK_SEED", 1);
    const unsigned cases = setting("VELK_FUZZ_CASES", usualCases);
    std::mt19937 random(seed);
    std::array<unsigned, 12> perUnit{};
    for (unsigned number = 0; number < cases; ++number) {
        const std::string text = caseOf(random);
        const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
        // What ends the program here is told by the number that was written last.
        if (number % 1000 == 0)
            std::cout << "seed " << seed << ", from case " << number << std::endl;
        ASSERT_EQ(LLVMFuzzerTestOneInput(bytes, text.size()), 0);
        ++perUnit[bytes[0] % perUnit.size()];
    }
    for (const unsigned count : perUnit)
        EXPECT_GT(count, cases / 20);
}

} // namespace
} // namespace velk
