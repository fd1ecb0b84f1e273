// Windows, its registry's halves, and the rights of the user.
// Tested in tests/tools/doctor/machine/addinTest.cpp.
#include "addin/registrationKeys.h"
#include "base/text.h"
#include "gather.h"
#include "publishedNames.h"

namespace velk::doctor {
namespace {

template <class Function>
Function systemFunction(const wchar_t* library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

// What Windows says of itself everywhere else depends on the program that asks.
void readVersion(SystemFacts& system)
{
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    const auto get = systemFunction<LONG(WINAPI*)(OSVERSIONINFOW*)>(L"ntdll.dll", "RtlGetVersion");
    if (get && get(&version) == 0) {
        system.major = version.dwMajorVersion;
        system.minor = version.dwMinorVersion;
        system.build = version.dwBuildNumber & 0xFFFF;
        system.servicePack = version.szCSDVersion;
    }
    if (const auto wine = systemFunction<const char*(CDECL*)()>(L"ntdll.dll", "wine_get_version"))
        system.wine = toWide(wine());
}

bool isWow64()
{
    BOOL answer = FALSE;
    const auto ask = systemFunction<BOOL(WINAPI*)(HANDLE, BOOL*)>(L"kernel32.dll", "IsWow64Process");
    return ask && ask(GetCurrentProcess(), &answer) && answer;
}

bool isAdministrator()
{
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID group = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0,
                                  &group))
        return false;
    BOOL answer = FALSE;
    const BOOL asked = CheckTokenMembership(nullptr, group, &answer);
    FreeSid(group);
    return asked && answer;
}

bool isInOtherView()
{
    const std::wstring connect = std::wstring(classesRoot) + L"CLSID\\" + publishedNames().front().clsid;
    return !readKey(HKEY_LOCAL_MACHINE, connect, KEY_WOW64_64KEY).isMissing() ||
           !readKey(HKEY_LOCAL_MACHINE, addinKey, KEY_WOW64_64KEY).isMissing();
}

} // namespace

void gatherSystem(Facts& facts, const Options&)
{
    readVersion(facts.system);
    facts.system.is64Bit = isWow64();
    facts.system.isAdministrator = isAdministrator();
    facts.system.isInOtherView = facts.system.is64Bit && isInOtherView();
}

} // namespace velk::doctor
