#pragma once

#include "checker/bench.h"

#include <span>

namespace velk::check {

// A function with arguments that fit, but for the handle: for calls at the wrong time or of the wrong thing. Functions
// that start programs are not among them.
struct AnyCall {
    enum What { fetchesThing, fetchesText, beginsEnumeration, continuesEnumeration, endsEnumeration, acts, other };
    Fn function;
    What what;
    int32_t kind; // of the thing whose handle belongs there; 0: of any, or of none
    int32_t (*call)(Bench& bench, Fn function, int32_t kind, int32_t handle);
};

std::span<const AnyCall> anyCalls() noexcept;

} // namespace velk::check
