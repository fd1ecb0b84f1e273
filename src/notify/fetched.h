#pragma once

#include "backend/fetch.h"
#include "base/error.h"
#include "base/session.h"

namespace velk {

// The record of a handle; a Backend that does not give it is a failure of the notification (error 35601), and so is a
// session that ended inside the call (error 5).
template <class Record>
Record fetched(const Session& session, int32_t (*fetch)(int32_t, Record&) noexcept, int32_t handle)
{
    Record record;
    const int32_t status = fetch(handle, record);
    session.throwIfOver();
    if (status == 0)
        throw Error(errorElementNotFound);
    return record;
}

} // namespace velk
