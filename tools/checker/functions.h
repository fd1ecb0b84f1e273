#pragma once

#include <cstddef>
#include <cstdint>

namespace velk::check {

// The library's functions by name.
enum class Fn : int32_t {
#define BACKEND_FUNCTION(name, ...) name,
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
    count
};

inline constexpr size_t functionCount = static_cast<size_t>(Fn::count);

struct FunctionRow {
    const char* name;
    size_t arguments;
    bool isCalled; // by the add-in; the others are there to be complete
};

const FunctionRow& rowOf(Fn function) noexcept;

} // namespace velk::check
