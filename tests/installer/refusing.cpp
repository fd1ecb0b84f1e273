// An add-in that cannot be registered, and takes back what it finds then, as ours does. Another program has it loaded
// by then, as an IDE that was started meanwhile would.
#include <shlwapi.h>
#include <string>
#include <windows.h>

namespace {

constexpr wchar_t loaded[] = L"velk-refusing-is-loaded";
constexpr DWORD patience = 20000; // milliseconds

std::wstring ownPath()
{
    HMODULE own = nullptr;
    wchar_t path[MAX_PATH]{};
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(loaded), &own);
    GetModuleFileNameW(own, path, MAX_PATH);
    return path;
}

void haveItLoaded()
{
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, loaded);
    std::wstring command = L"rundll32.exe \"" + ownPath() + L"\",Stay";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made))
        WaitForSingleObject(event, patience);
    CloseHandle(event);
}

} // namespace

extern "C" {

void CALLBACK Stay(HWND, HINSTANCE, LPSTR, int) noexcept
{
    SetEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, loaded));
    Sleep(INFINITE);
}

HRESULT WINAPI DllRegisterServer() noexcept
{
    haveItLoaded();
    SHDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\velkviadd.Connect");
    SHDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns\\velkviadd.Connect");
    return E_ACCESSDENIED;
}

HRESULT WINAPI DllUnregisterServer() noexcept
{
    return S_OK;
}
}
