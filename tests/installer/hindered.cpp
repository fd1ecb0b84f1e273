// hindered HOW WHAT COMMAND: runs a command while something is in its way, and answers its exit code.
//   key    nothing can be written into, or removed from, this key of the machine, which is made if it is not there
//   mutex  it is there
//   file   it is open
#include <aclapi.h>
#include <array>
#include <cwchar>
#include <windows.h>

namespace {

constexpr int exitFailed = 90;

// A new list of who may do what: everybody may read.
bool letOnlyRead(HKEY key)
{
    std::array<BYTE, SECURITY_MAX_SID_SIZE> everybody{};
    auto size = static_cast<DWORD>(everybody.size());
    alignas(ACL) std::array<BYTE, 256> room{};
    auto* const list = reinterpret_cast<ACL*>(room.data());
    SECURITY_DESCRIPTOR descriptor{};
    return CreateWellKnownSid(WinWorldSid, nullptr, everybody.data(), &size) &&
           InitializeAcl(list, static_cast<DWORD>(room.size()), ACL_REVISION) &&
           AddAccessAllowedAce(list, ACL_REVISION, KEY_READ | WRITE_DAC, everybody.data()) &&
           InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) &&
           SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE) &&
           RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor) == ERROR_SUCCESS;
}

bool letAll(HKEY key)
{
    SECURITY_DESCRIPTOR descriptor{};
    return InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) &&
           SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE) &&
           RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor) == ERROR_SUCCESS;
}

int run(wchar_t* command)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    DWORD code = exitFailed;
    if (CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made)) {
        WaitForSingleObject(made.hProcess, INFINITE);
        GetExitCodeProcess(made.hProcess, &code);
    }
    return static_cast<int>(code);
}

} // namespace

int wmain(int count, wchar_t** words)
{
    if (count != 4)
        return exitFailed;
    if (std::wcscmp(words[1], L"mutex") == 0)
        return CreateMutexW(nullptr, FALSE, words[2]) ? run(words[3]) : exitFailed;
    if (std::wcscmp(words[1], L"file") == 0) {
        const HANDLE file = CreateFileW(words[2], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        return file != INVALID_HANDLE_VALUE ? run(words[3]) : exitFailed;
    }
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, words[2], 0, nullptr, 0, READ_CONTROL | WRITE_DAC, nullptr, &key,
                        nullptr) ||
        !letOnlyRead(key))
        return exitFailed;
    const int code = run(words[3]);
    return letAll(key) ? code : exitFailed;
}
