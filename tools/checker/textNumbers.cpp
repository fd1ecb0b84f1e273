#include "checker/textNumbers.h"

namespace velk::check {
namespace {

constexpr TextNumber rows[] = {
#define RZ_TEXT(number, parameters, english, where) {number, parameters},
#include "sdk/texts.inc"
#undef RZ_TEXT
};

} // namespace

std::span<const TextNumber> textNumbers() noexcept
{
    return rows;
}

} // namespace velk::check
