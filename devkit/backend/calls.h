#pragma once

#include "devkit/backend/desk.h"
#include "devkit/contract/wire.h"

namespace velk::devkit::calls {

// One function for each export, with the desk before its arguments: checks that the caller keeps the rules of the
// interface, and translates between its records and the session. Each answers 0 for failure or the end of an
// enumeration.
#define VELK_WITH_DESK(...) (Desk & desk __VA_OPT__(, ) __VA_ARGS__)
#define BACKEND_EXPORT(name, parameters, arguments) int32_t name VELK_WITH_DESK parameters;
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT
#undef VELK_WITH_DESK

} // namespace velk::devkit::calls
