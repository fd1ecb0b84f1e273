#pragma once

#include "base/win32.h"

#include <aclapi.h>
#include <array>
#include <string>

namespace velk::test {

// Leaves everybody these rights on a key of the machine's while it lives, and all of them afterwards.
class DeniedKey {
public:
    explicit DeniedKey(const std::wstring& path, DWORD rights = 0) : m_name(L"MACHINE\\" + path)
    {
        SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
        PSID everybody = nullptr;
        AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
        alignas(ACL) std::array<BYTE, 256> room{};
        auto* list = reinterpret_cast<ACL*>(room.data());
        InitializeAcl(list, static_cast<DWORD>(room.size()), ACL_REVISION);
        if (rights != 0)
            AddAccessAllowedAce(list, ACL_REVISION, rights, everybody);
        FreeSid(everybody);
        set(list);
    }
    DeniedKey(const DeniedKey&) = delete;
    DeniedKey& operator=(const DeniedKey&) = delete;
    ~DeniedKey() { set(nullptr); }

private:
    void set(ACL* rights)
    {
        SetNamedSecurityInfoW(m_name.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr, rights,
                              nullptr);
    }
    std::wstring m_name;
};

class ReadOnlyKey : public DeniedKey {
public:
    explicit ReadOnlyKey(const std::wstring& path) : DeniedKey(path, KEY_READ) {}
};

} // namespace velk::test
