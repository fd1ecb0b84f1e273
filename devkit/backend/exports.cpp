// The library's exports: each one forwards to a call on the desk, and no exception leaves it.
#include "base/boundary.h"
#include "devkit/backend/calls.h"
#include "devkit/backend/callWatch.h"
#include "devkit/backend/spoiling.h"

#include <string_view>

namespace velk::devkit {
namespace {

Desk& desk()
{
    static Desk only;
    return only;
}

template <class Body>
int32_t served(std::wstring_view name, Body body) noexcept
{
    int32_t answer = 0;
    const auto work = [&] { answer = body(desk()); };
    if (swallow(name, L"the caller cannot take an exception: it gets a failure", work))
        return answer;
    swallow(name, L"the journal is the last resort",
            [&] { desk().rules.journal().line(L"FAILED " + std::wstring(name)); });
    return 0;
}

// One call with what comes in between: a session that ends inside it cannot serve the rest of it, and that is no breach
// of the caller's, who made the call before the end. Texts are there without a session, too.
template <class Body, class... Arguments>
int32_t watched(const wchar_t* name, Body body, Arguments... arguments) noexcept
{
    const bool wasOpen = desk().session != nullptr;
    passMoment(name, CallMoment::begins);
    const bool isLost = wasOpen && !desk().session && !std::wstring_view(name).starts_with(L"RZGetString");
    const Fault fault = callFault(name);
    const int32_t answer = isLost || leavesWork(name, fault) ? 0 : served(name, body);
    passMoment(name, CallMoment::ends);
    return fault == Fault::none ? answer : spoiled(answer, fault, arguments...);
}

} // namespace

extern "C" {

#define VELK_WITH_DESK(...) (desk __VA_OPT__(, ) __VA_ARGS__)
#define VELK_LISTED(...) __VA_OPT__(, ) __VA_ARGS__
#define VELK_WITH_WORK(name, arguments) (name, work VELK_LISTED arguments)
#define BACKEND_EXPORT(name, parameters, arguments)                                                                    \
    __declspec(dllexport) int32_t __stdcall name parameters noexcept                                                   \
    {                                                                                                                  \
        const auto work = [&](Desk& desk) { return calls::name VELK_WITH_DESK arguments; };                            \
        return watched VELK_WITH_WORK(L"" #name, arguments);                                                           \
    }
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT
#undef VELK_WITH_WORK
#undef VELK_LISTED
#undef VELK_WITH_DESK

// For tests: whether the library's own thread has work, and how many breaches there were since it was loaded.
__declspec(dllexport) int32_t __stdcall RZStandinIsWorking() noexcept
{
    return served(L"RZStandinIsWorking", [](Desk& desk) { return desk.isWorking() ? 1 : 0; });
}

__declspec(dllexport) int32_t __stdcall RZStandinBreaches() noexcept
{
    return served(L"RZStandinBreaches", [](Desk& desk) { return desk.rules.journal().breaches(); });
}

// For tests: a function of the host's that hears of every call; null for none.
__declspec(dllexport) int32_t __stdcall RZStandinSetCallHook(CallHook hook) noexcept
{
    setCallHook(hook);
    return 1;
}

// For tests: a function of the host's that lets calls fail; null for none.
__declspec(dllexport) int32_t __stdcall RZStandinSetFaultHook(FaultHook hook) noexcept
{
    setCallFaultHook(hook);
    return 1;
}

} // extern "C"
} // namespace velk::devkit
