// The library's exports: each one forwards to the desk, and no exception leaves it.
#include "devkit/backend/desk.h"
#include "platform/boundary.h"

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
    swallow(name, L"the journal is the last resort", [&] { desk().journal().line(L"FAILED " + std::wstring(name)); });
    return 0;
}

} // namespace

extern "C" {

#define BACKEND_EXPORT(name, parameters, arguments)                                                                    \
    __declspec(dllexport) int32_t __stdcall name parameters noexcept                                                   \
    {                                                                                                                  \
        return served(L"" #name, [&](Desk& desk) { return desk.name arguments; });                                     \
    }
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT

// For tests: whether the library's own thread has work, and how many breaches there were since it was loaded.
__declspec(dllexport) int32_t __stdcall RZStandinIsWorking() noexcept
{
    return served(L"RZStandinIsWorking", [](Desk& desk) { return desk.isWorking() ? 1 : 0; });
}

__declspec(dllexport) int32_t __stdcall RZStandinBreaches() noexcept
{
    return served(L"RZStandinBreaches", [](Desk& desk) { return desk.journal().breaches(); });
}

} // extern "C"
} // namespace velk::devkit
