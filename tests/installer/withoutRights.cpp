// without_rights COMMAND: runs a command as a user who is no administrator, and answers its exit code.
// without_rights who: 1 if the user is an administrator, else 0.
#include <array>
#include <cwchar>
#include <windows.h>

namespace {

constexpr int exitFailed = 90;

// The own command line behind the program's name.
wchar_t* restOfCommandLine()
{
    wchar_t* const line = GetCommandLineW();
    wchar_t* rest = std::wcschr(line + 1, *line == L'"' ? L'"' : L' ');
    if (!rest)
        return nullptr;
    for (++rest; *rest == L' ';)
        ++rest;
    return rest;
}

bool isAdministrator()
{
    std::array<BYTE, SECURITY_MAX_SID_SIZE> room{};
    auto size = static_cast<DWORD>(room.size());
    BOOL is = FALSE;
    return CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, room.data(), &size) &&
           CheckTokenMembership(nullptr, room.data(), &is) && is;
}

HANDLE tokenWithoutRights()
{
    std::array<BYTE, SECURITY_MAX_SID_SIZE> room{};
    auto size = static_cast<DWORD>(room.size());
    HANDLE own = nullptr;
    HANDLE less = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own) ||
        !CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, room.data(), &size))
        return nullptr;
    SID_AND_ATTRIBUTES administrators{room.data(), 0};
    CreateRestrictedToken(own, 0, 1, &administrators, 0, nullptr, 0, nullptr, &less);
    return less;
}

} // namespace

int wmain()
{
    wchar_t* const command = restOfCommandLine();
    if (command && std::wcscmp(command, L"who") == 0)
        return isAdministrator();
    const HANDLE token = tokenWithoutRights();
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!command || !token ||
        !CreateProcessAsUserW(token, nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made))
        return exitFailed;
    DWORD code = exitFailed;
    WaitForSingleObject(made.hProcess, INFINITE);
    GetExitCodeProcess(made.hProcess, &code);
    return static_cast<int>(code);
}
