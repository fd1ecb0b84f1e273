// An add-in that cannot be registered, and takes back what it finds then, as ours does.
#include <shlwapi.h>
#include <windows.h>

extern "C" {

HRESULT WINAPI DllRegisterServer() noexcept
{
    SHDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\velkviadd.Connect");
    SHDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns\\velkviadd.Connect");
    return E_ACCESSDENIED;
}

HRESULT WINAPI DllUnregisterServer() noexcept
{
    return S_OK;
}
}
