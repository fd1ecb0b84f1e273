#pragma once

#include "backend/arguments.h"
#include "backend/library.h"

#include <array>
#include <bit>
#include <span>
#include <tuple>

namespace velk {

// What a call is for. One that acts may take its time, so that what it left changed in the process is looked after,
// too; polls, texts and records are asked for all the time.
enum class CallManner { acts, asks };

template <class Kind>
inline constexpr bool isRecord = false;
template <class R>
inline constexpr bool isRecord<arguments::Record<R>> = true;

// The Backend wrote past the end of something that it was given: its fault, which costs nothing but room.
void reportBackendOverrun(BackendFunction function, const char* what) noexcept;

// The door of all calls. What goes wrong inside of one ends the call alone: error 51 with the function and what was
// raised where, error 49 for a function that takes other arguments.
int32_t callBackend(BackendFunction function, std::span<const uint32_t> arguments, CallManner manner);

// One function of the Backend as something to call. A missing library or function is error 53, 48 or 453.
template <BackendFunction function, class... Kinds>
struct BackendCall {
    // With the add-in's own values: converted before the call, and back after it whatever its result.
    int32_t operator()(typename Kinds::Face... faces) const
    {
        std::tuple<Kinds...> arguments(faces...);
        const int32_t result = std::apply([this](Kinds&... argument) { return onWire(argument.wire()...); }, arguments);
        std::apply([](const Kinds&... argument) { (argument.readBack(), ...); }, arguments);
        std::apply([this](const Kinds&... argument) { (reportIfOverrun(argument), ...); }, arguments);
        return result;
    }

    // With values that are already as the Backend wants them.
    int32_t onWire(typename Kinds::Wire... arguments) const
    {
        constexpr CallManner manner =
            isBackendText(function) || (... || isRecord<Kinds>) ? CallManner::asks : CallManner::acts;
        const std::array<uint32_t, sizeof...(Kinds)> words{std::bit_cast<uint32_t>(arguments)...};
        return callBackend(function, words, manner);
    }

    // Null: nothing was overrun.
    void reportOverrun(const char* what) const noexcept
    {
        if (what)
            reportBackendOverrun(function, what);
    }

private:
    template <class Kind>
    void reportIfOverrun(const Kind& argument) const noexcept
    {
        if constexpr (requires { argument.isOverrun(); })
            reportOverrun(argument.isOverrun() ? "a text" : nullptr);
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
