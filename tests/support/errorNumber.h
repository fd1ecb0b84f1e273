#pragma once

#include "base/boundary.h"

namespace velk::test {

// The number of the error that a call fails with; 0 when it succeeds.
template <class Call>
int32_t errorNumberOf(Call&& call)
{
    const auto failure = attempt(call);
    return failure ? failure->number() : 0;
}

} // namespace velk::test
