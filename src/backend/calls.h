#pragma once

#include "backend/arguments.h"
#include "backend/library.h"

#include <tuple>

namespace velk {

// One function of the Backend as something to call. A missing library or function is error 53, 48 or 453.
template <BackendFunction function, class... Kinds>
struct BackendCall {
    // With the add-in's own values: converted before the call, and back after it whatever its result.
    int32_t operator()(typename Kinds::Face... faces) const
    {
        std::tuple<Kinds...> arguments(faces...);
        const int32_t result = std::apply([this](Kinds&... argument) { return onWire(argument.wire()...); }, arguments);
        std::apply([](const Kinds&... argument) { (argument.readBack(), ...); }, arguments);
        return result;
    }

    // With values that are already as the Backend wants them.
    int32_t onWire(typename Kinds::Wire... arguments) const
    {
        using Routine = int32_t(__stdcall*)(typename Kinds::Wire...);
        const int32_t result = reinterpret_cast<Routine>(backendEntry(function))(arguments...);
        traceBackendCall(function, result);
        return result;
    }
};

namespace arguments::calls {
#define BACKEND_FUNCTION(name, ...)                                                                                    \
    inline constexpr BackendCall<BackendFunction::name __VA_OPT__(, ) __VA_ARGS__> name{};
#include "backend/functions.inc"
#undef BACKEND_FUNCTION
} // namespace arguments::calls

// RZInitialize(3, file, L""), RZObjectDoAction(handle, code), RZGetNotification(notify, more), ...: the arguments of
// each are in backend/functions.inc.
using namespace arguments::calls;

} // namespace velk
