#pragma once

#include "base/boundary.h"

#include <string_view>
#include <utility>

namespace velk {

// Leaves the error as the thread's rich error, for callers by automation, and returns its HRESULT.
HRESULT publishError(const Error& error) noexcept;

// The door of every inbound COM method: no exception crosses it; a failure is reported, left as the thread's rich
// error and returned as its HRESULT. The body may return an HRESULT of its own or nothing.
template <class Body>
HRESULT atBoundary(std::wstring_view where, Body&& body) noexcept
{
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
            std::forward<Body>(body)();
            return S_OK;
        } else {
            return std::forward<Body>(body)();
        }
    } catch (...) {
        const Error error = currentError();
        reportFailure(where, {}, error);
        return publishError(error);
    }
}

// Throws Error for a failure code that came back from a call on an object: when it supports rich errors, the pending
// one gives the texts.
void throwIfFailed(HRESULT result, IUnknown* object, REFIID iid);

} // namespace velk
