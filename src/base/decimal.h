#pragma once

#include <cstdint>
#include <string_view>

namespace velk {

// The number that is nearest to digits * 10^exponent, of two that are equally near the even one; infinite above the
// range of a double. Without locale, memory and the standard library's reader, whose tables are larger than a floor of
// ours.
double nearestDouble(std::string_view digits, int64_t exponent) noexcept;

} // namespace velk
