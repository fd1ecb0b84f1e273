// Tested in tests/unit/backend/callsTest.cpp and callsHostileTest.cpp.
#include "backend/calls.h"

#include "backend/host_state.h"
#include "base/boundary.h"
#include "base/error.h"
#include "base/guarded_call.h"

#include <cstring>
#include <optional>
#include <string>

namespace velk {
namespace {

struct KnownException {
    uint32_t code;
    const wchar_t* name;
};

// clang-format off
constexpr KnownException knownExceptions[] = {
    {EXCEPTION_ACCESS_VIOLATION,    L"access violation"},
    {EXCEPTION_ILLEGAL_INSTRUCTION, L"illegal instruction"},
    {EXCEPTION_INT_DIVIDE_BY_ZERO,  L"division by zero"},
    {EXCEPTION_STACK_OVERFLOW,      L"stack overflow"},
    {0xE06D7363,                    L"C++ exception"},
};
// clang-format on

std::wstring exceptionName(uint32_t code)
{
    for (const KnownException& row : knownExceptions)
        if (row.code == code)
            return row.name;
    return L"exception";
}

std::wstring hexadecimal(uintptr_t number)
{
    std::wstring digits;
    for (; number != 0 || digits.empty(); number /= 16)
        digits.insert(digits.begin(), L"0123456789ABCDEF"[number % 16]);
    return digits;
}

// A place as somebody with the library's map can look it up: "velkvsadd.dll+12AB".
std::wstring placeText(const void* place)
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(place), &module);
    std::array<wchar_t, MAX_PATH> file{};
    GetModuleFileNameW(module, file.data(), MAX_PATH - 1);
    const std::wstring path(file.data());
    const auto offset = reinterpret_cast<uintptr_t>(place) - reinterpret_cast<uintptr_t>(module);
    return (module ? path.substr(path.rfind(L'\\') + 1) + L"+" : std::wstring()) + hexadecimal(offset);
}

[[noreturn]] void throwFault(BackendFunction function, const CallOutcome& outcome)
{
    const bool isLast = countBackendFault() == BackendTrust::givenUp;
    throw Error(errorInternal, backendFunctionText(function) + L": " + exceptionName(outcome.exception) + L" (" +
                                   hexadecimal(outcome.exception) + L" at " + placeText(outcome.place) + L")" +
                                   (isLast ? L". The library is not called any more in this session." : L""));
}

} // namespace

void reportBackendOverrun(BackendFunction function, const char* what) noexcept
{
    swallow(L"Backend call", L"there is room behind it", [&] {
        throw Error(errorInternal, backendFunctionText(function) + L" wrote past the end of " +
                                       std::wstring(what, what + std::strlen(what)));
    });
}

int32_t callBackend(BackendFunction function, std::span<const uint32_t> arguments, CallManner manner)
{
    void* const entry = backendEntry(function);
    std::optional<HostState> untouched;
    if (manner == CallManner::acts)
        untouched.emplace();
    const CallOutcome outcome = guardedCall(entry, arguments);
    untouched.reset();
    if (outcome.exception != 0)
        throwFault(function, outcome);
    if (outcome.stackError != 0)
        throw Error(errorCallingConvention, backendFunctionText(function));
    traceBackendCall(function, outcome.result);
    return outcome.result;
}

} // namespace velk
