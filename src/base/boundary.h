#pragma once

#include "base/error.h"

#include <functional>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

namespace velk {

// What the one failure observer hears of every failure that ended at a boundary or was swallowed on purpose.
struct Failure {
    std::wstring_view where; // the door or the step
    std::wstring_view why;   // why it is safe to go on; empty at a boundary
    const Error& error;
};
using FailureObserver = std::function<void(const Failure&)>;

// Sets the observer (the trace, or a test) and returns the one that was set before. One for the whole process,
// used from the user-interface thread only.
FailureObserver setFailureObserver(FailureObserver observer);
void reportFailure(std::wstring_view where, std::wstring_view why, const Error& error) noexcept;

// The exception that is being handled, as an Error. Call inside a catch block only.
Error currentError() noexcept;

// Runs a step whose failure the caller deals with itself: tells it, undoes what was done, or throws it on. Empty when
// the step succeeded.
template <class Body>
std::optional<Error> attempt(Body&& body) noexcept
{
    try {
        std::forward<Body>(body)();
        return std::nullopt;
    } catch (...) {
        return currentError();
    }
}

// Runs a step after which the product must carry on whatever happens; says why. True when the step succeeded.
template <class Body>
bool swallow(std::wstring_view where, std::wstring_view why, Body&& body) noexcept
{
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        reportFailure(where, why, currentError());
        return false;
    }
}

} // namespace velk
