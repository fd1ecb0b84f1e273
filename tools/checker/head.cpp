#include "checker/head.h"

#include "checker/files.h"
#include "checker/texts.h"

#include "base/unique_any.h"

#include <cstring>
#include <span>
#include <vector>
#include <wincrypt.h>

namespace velk::check {
namespace {

constexpr ALG_ID sha256 = 0x0000800C; // the headers have it for later systems only

struct provider_traits {
    using Handle = HCRYPTPROV;
    static HCRYPTPROV empty() noexcept { return 0; }
    static void close(HCRYPTPROV provider) noexcept { CryptReleaseContext(provider, 0); }
};
struct hash_traits {
    using Handle = HCRYPTHASH;
    static HCRYPTHASH empty() noexcept { return 0; }
    static void close(HCRYPTHASH hash) noexcept { CryptDestroyHash(hash); }
};

std::string hexadecimalOf(std::span<const BYTE> bytes)
{
    std::string text;
    for (const BYTE byte : bytes)
        text += std::string(1, "0123456789abcdef"[byte / 16]) + "0123456789abcdef"[byte % 16];
    return text;
}

template <class Function>
Function ofNtdll(const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

} // namespace

std::string sha256Of(const std::wstring& file)
{
    const auto bytes = readFile(file);
    unique_any<provider_traits> provider;
    unique_any<hash_traits> hash;
    // On Windows XP the provider has another name, so none is named.
    if (!bytes || !CryptAcquireContextW(provider.put(), nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) ||
        !CryptCreateHash(provider.get(), sha256, 0, 0, hash.put()) ||
        !CryptHashData(hash.get(), bytes->data(), static_cast<DWORD>(bytes->size()), 0))
        return {};
    BYTE value[32]{};
    DWORD size = sizeof value;
    return CryptGetHashParam(hash.get(), HP_HASHVAL, value, &size, 0) ? hexadecimalOf({value, size}) : std::string();
}

std::string versionOf(const std::wstring& file)
{
    DWORD ignored = 0;
    std::vector<BYTE> data(GetFileVersionInfoSizeW(file.c_str(), &ignored));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (data.empty() || !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &size) || size < sizeof *info)
        return "(no version resource)";
    const DWORD parts[] = {HIWORD(info->dwFileVersionMS), LOWORD(info->dwFileVersionMS), HIWORD(info->dwFileVersionLS),
                           LOWORD(info->dwFileVersionLS)};
    std::string text;
    for (const DWORD part : parts)
        text += (text.empty() ? "" : ".") + std::to_string(part);
    return text;
}

std::string systemText()
{
    // The documented function tells programs without a manifest of an older system.
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (const auto query = ofNtdll<LONG(WINAPI*)(OSVERSIONINFOW*)>("RtlGetVersion"))
        query(&version);
    std::string text = "Windows " + std::to_string(version.dwMajorVersion) + "." +
                       std::to_string(version.dwMinorVersion) + "." + std::to_string(version.dwBuildNumber);
    if (const auto wine = ofNtdll<const char*(__cdecl*)()>("wine_get_version"))
        text += std::string(", Wine ") + wine();
    return text + ", code page " + std::to_string(GetACP());
}

Head headOf(const std::wstring& library)
{
    Head head;
    head.library = toUtf8(library);
    head.version = versionOf(library);
    head.sha256 = sha256Of(library);
    head.system = systemText();
    if (const auto bytes = readFile(library))
        head.size = static_cast<int64_t>(bytes->size());
    return head;
}

} // namespace velk::check
