// An add-in that cannot be registered.
#include <windows.h>

extern "C" {

HRESULT WINAPI DllRegisterServer() noexcept
{
    return E_ACCESSDENIED;
}

HRESULT WINAPI DllUnregisterServer() noexcept
{
    return S_OK;
}
}
