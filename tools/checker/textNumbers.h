#pragma once

#include <cstdint>
#include <span>

namespace velk::check {

// A text that the add-in asks for, and how many parameters it shows.
struct TextNumber {
    int32_t number;
    int parameters;
};
std::span<const TextNumber> textNumbers() noexcept;

} // namespace velk::check
