#pragma once

#include "devkit/contract/wire.h"

#include <functional>

namespace velk::test {

namespace wire = devkit::wire;

// One function for each export of the fake library. An export without a function answers 0.
struct Hooks {
#define BACKEND_EXPORT(name, parameters, arguments) std::function<int32_t parameters> name;
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT
};

} // namespace velk::test
