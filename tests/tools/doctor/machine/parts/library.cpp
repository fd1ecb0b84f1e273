// A library of the tool that does at its loading and at its first call what VELK_TEST_LIBRARY says: "crash at load",
// "hang at text" and so on, or "font NAME" for the text that it gives. Without that it is healthy.
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "devkit/contract/wire.h"

namespace wire = velk::devkit::wire;

#ifdef NEEDS_ANOTHER
extern "C" __declspec(dllimport) int32_t dependencyNumber();
#endif

namespace {

std::string wanted()
{
    char text[200] = "";
    GetEnvironmentVariableA("VELK_TEST_LIBRARY", text, sizeof text);
    return text;
}

void misbehave(const std::string& when)
{
    const std::string what = wanted();
    if (what == "crash at " + when)
        *reinterpret_cast<volatile int*>(8) = 1;
    if (what == "exit at " + when)
        ExitProcess(77);
    if (what == "hang at " + when)
        Sleep(INFINITE);
}

} // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    misbehave("load");
    return wanted() != "refusal at load";
}

__declspec(dllexport) int32_t __stdcall RZGetString(int32_t number, char* buffer, int32_t capacity)
{
    misbehave("text");
    const std::string what = wanted();
    const std::string text = what.starts_with("font ") ? what.substr(5) : "Tahoma";
    if (number != 100 || what == "no text" || capacity <= static_cast<int32_t>(text.size()))
        return 0;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
#ifdef NEEDS_ANOTHER
    return dependencyNumber();
#else
    return static_cast<int32_t>(text.size());
#endif
}

// Those of an add-in that cannot be registered.
__declspec(dllexport) HRESULT __stdcall DllRegisterServer()
{
    return E_INVALIDARG;
}
__declspec(dllexport) HRESULT __stdcall DllUnregisterServer()
{
    return E_NOTIMPL;
}
__declspec(dllexport) HRESULT __stdcall DllCanUnloadNow()
{
    return S_OK;
}
__declspec(dllexport) HRESULT __stdcall DllGetClassObject(void*, void*, void**)
{
    return E_NOTIMPL;
}

#define RZGetString AnotherGetString
#define BACKEND_EXPORT(name, parameters, arguments)                                                                    \
    __declspec(dllexport) int32_t __stdcall name parameters                                                            \
    {                                                                                                                  \
        return 0;                                                                                                      \
    }
#pragma GCC diagnostic ignored "-Wunused-parameter"
#include "devkit/contract/exports.inc"
#undef BACKEND_EXPORT

} // extern "C"
