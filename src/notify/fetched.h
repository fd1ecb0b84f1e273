#pragma once

#include "backend/fetch.h"
#include "platform/error.h"

namespace velk {

// The record of a handle; a Backend that does not give it is a failure of the notification (error 35601).
template <class Record>
Record fetched(int32_t (*fetch)(int32_t, Record&) noexcept, int32_t handle)
{
    Record record;
    if (fetch(handle, record) == 0)
        throw Error(errorElementNotFound);
    return record;
}

} // namespace velk
