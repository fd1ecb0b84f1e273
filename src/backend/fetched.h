#pragma once

#include "backend/fetch.h"
#include "base/error.h"
#include "base/session.h"

namespace velk {

// The record of a handle, into one that is as new; error 35601 when the Backend does not give it, error 5 when the
// session ended inside the call.
template <class Record>
void fetchInto(Record& record, const Session& session, int32_t (*fetch)(int32_t, Record&) noexcept, int32_t handle)
{
    const int32_t status = fetch(handle, record);
    session.throwIfOver();
    if (status == 0)
        throw Error(errorElementNotFound);
}

// The same in a record of its own.
template <class Record>
Record fetched(const Session& session, int32_t (*fetch)(int32_t, Record&) noexcept, int32_t handle)
{
    Record record;
    fetchInto(record, session, fetch, handle);
    return record;
}

} // namespace velk
