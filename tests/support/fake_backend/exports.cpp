// The fake Backend library: its exports only forward to the functions that a test has set.
#include "support/fake_backend/hooks.h"

#include <windows.h>

namespace velk::test {
namespace {

Hooks* connected = nullptr;

} // namespace

extern "C" {

__declspec(dllexport) void __stdcall FakeBackendConnect(Hooks* hooks)
{
    connected = hooks;
}

#define BACKEND_EXPORT(name, parameters, arguments)                                                                    \
    __declspec(dllexport) int32_t __stdcall name parameters                                                            \
    {                                                                                                                  \
        return connected && connected->name ? connected->name arguments : 0;                                           \
    }
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT

} // extern "C"
} // namespace velk::test
