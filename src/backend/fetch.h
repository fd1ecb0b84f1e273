#pragma once

#include "backend/records.h"

#include <cstdint>

namespace velk {

// Each fills a record from the Backend and gives the Backend's status: 0 for failure or the end of an enumeration.
// A failure on the way is reported and ends the fetch: the status is the one had so far (0 before the call), the
// record stays as it was then.

// Texts of any length: when the Backend says that it needs more room, it is asked once more with that much.
int32_t fetchText(int32_t handle, trzText& record) noexcept;
int32_t fetchSQLText(int32_t handle, trzSQLText& record) noexcept;
int32_t fetchADOText(int32_t handle, trzADOText& record) noexcept;

int32_t fetchConnectionDE(int32_t handle, trzConnectionDE& record) noexcept;
int32_t fetchCommandDE(int32_t handle, trzCommandDE& record) noexcept;
int32_t fetchProject(int32_t handle, trzProject& record) noexcept;
int32_t fetchConnection(int32_t handle, trzConnection& record) noexcept;

// The next object of an enumeration, and one object by its own handle.
int32_t nextProcedure(int32_t enumeration, trzProcedure& record) noexcept;
int32_t fetchProcedure(int32_t handle, trzProcedure& record) noexcept;
int32_t nextFunction(int32_t enumeration, trzFunction& record) noexcept;
int32_t fetchFunction(int32_t handle, trzFunction& record) noexcept;
int32_t nextTrigger(int32_t enumeration, trzTrigger& record) noexcept;
int32_t fetchTrigger(int32_t handle, trzTrigger& record) noexcept;
int32_t nextTable(int32_t enumeration, trzTable& record) noexcept;
int32_t fetchTable(int32_t handle, trzTable& record) noexcept;
int32_t nextView(int32_t enumeration, trzView& record) noexcept;
int32_t fetchView(int32_t handle, trzView& record) noexcept;

} // namespace velk
