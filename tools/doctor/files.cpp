#include "files.h"

#include "base/paths.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "judgements.h"

#include <wincrypt.h>

#include <algorithm>
#include <array>

namespace velk::doctor {
namespace {

constexpr size_t mostBytes = 256 * 1024 * 1024;
constexpr size_t hashDigits = 64;
// The header has it for later systems only; Windows XP knows it since its third service pack.
constexpr ALG_ID sha256 = ALG_CLASS_HASH | ALG_TYPE_ANY | 12;

struct file_traits {
    using Handle = HANDLE;
    static Handle empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle file) noexcept { CloseHandle(file); }
};
struct provider_traits {
    using Handle = HCRYPTPROV;
    static Handle empty() noexcept { return 0; }
    static void close(Handle provider) noexcept { CryptReleaseContext(provider, 0); }
};
struct hash_traits {
    using Handle = HCRYPTHASH;
    static Handle empty() noexcept { return 0; }
    static void close(Handle hash) noexcept { CryptDestroyHash(hash); }
};

DWORD lastError()
{
    const DWORD code = GetLastError();
    return code != ERROR_SUCCESS ? code : ERROR_GEN_FAILURE;
}

} // namespace

bool isFile(const std::wstring& path) noexcept
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isFolder(const std::wstring& path) noexcept
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

DWORD readBytes(const std::wstring& path, size_t most, Part part, std::vector<unsigned char>& bytes)
{
    bytes.clear();
    const unique_any<file_traits> file(CreateFileW(path.c_str(), GENERIC_READ,
                                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size))
        return lastError();
    const auto wanted = static_cast<DWORD>(std::min<uint64_t>(static_cast<uint64_t>(size.QuadPart), most));
    LARGE_INTEGER start{};
    start.QuadPart = part == Part::end ? size.QuadPart - wanted : 0;
    bytes.resize(wanted);
    DWORD read = 0;
    if (!SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN) ||
        (wanted > 0 && !ReadFile(file.get(), bytes.data(), wanted, &read, nullptr)))
        return lastError();
    bytes.resize(read);
    return 0;
}

FileFacts readProgram(const std::wstring& path, std::vector<unsigned char>* bytes)
{
    FileFacts file;
    file.path = path;
    file.isThere = isFile(path);
    if (!file.isThere)
        return file;
    std::vector<unsigned char> own;
    std::vector<unsigned char>& all = bytes ? *bytes : own;
    file.code = readBytes(path, mostBytes, Part::beginning, all);
    if (file.code == 0) {
        std::string reason;
        file.header = check::readPe(all, reason);
        file.version = fileVersion(path);
    }
    return file;
}

std::wstring fileVersion(const std::wstring& path)
{
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &unused);
    std::vector<unsigned char> block(size);
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length) ||
        length < sizeof(VS_FIXEDFILEINFO))
        return {};
    wchar_t text[48];
    wsprintfW(text, L"%u.%u.%u.%u", HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
              HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS));
    return text;
}

std::wstring plainPath(std::wstring text)
{
    if (text.size() > 1 && text.front() == L'"' && text.back() == L'"')
        text = text.substr(1, text.size() - 2);
    if (!isFullyQualified(text))
        return text;
    const auto through = [&text](auto routine) {
        std::wstring result(MAX_PATH, L'\0');
        DWORD length = routine(result.data(), static_cast<DWORD>(result.size()));
        if (length > result.size()) {
            result.resize(length);
            length = routine(result.data(), length);
        }
        if (length == 0 || length > result.size())
            return;
        result.resize(length);
        text = result;
    };
    through([&](wchar_t* out, DWORD room) { return GetFullPathNameW(text.c_str(), room, out, nullptr); });
    through([&](wchar_t* out, DWORD room) { return GetLongPathNameW(text.c_str(), out, room); });
    return text;
}

std::wstring fullPath(const std::wstring& path)
{
    wchar_t full[32768];
    const DWORD length = GetFullPathNameW(path.c_str(), ARRAYSIZE(full), full, nullptr);
    return length > 0 && length < ARRAYSIZE(full) ? plainPath(full) : path;
}

std::wstring hashOf(const std::vector<unsigned char>& bytes)
{
    unique_any<provider_traits> provider;
    unique_any<hash_traits> hash;
    std::array<BYTE, hashDigits / 2> digest{};
    auto size = static_cast<DWORD>(digest.size());
    if (!CryptAcquireContextW(provider.put(), nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) ||
        !CryptCreateHash(provider.get(), sha256, 0, 0, hash.put()) ||
        !CryptHashData(hash.get(), bytes.data(), static_cast<DWORD>(bytes.size()), 0) ||
        !CryptGetHashParam(hash.get(), HP_HASHVAL, digest.data(), &size, 0))
        return {};
    std::wstring text;
    for (const BYTE byte : digest) {
        constexpr wchar_t digits[] = L"0123456789abcdef";
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::wstring listedHash(const std::string& list, const std::wstring& name)
{
    std::wstring rest = toWide(list);
    while (!rest.empty()) {
        const size_t end = rest.find(L'\n');
        std::wstring line = rest.substr(0, end);
        rest.erase(0, end == std::wstring::npos ? end : end + 1);
        if (line.ends_with(L'\r'))
            line.pop_back();
        // The hash, a blank, and a blank or a star before the name.
        if (line.size() <= hashDigits + 2 || line[hashDigits] != L' ' || !isSameText(line.substr(hashDigits + 2), name))
            continue;
        std::wstring hash = line.substr(0, hashDigits);
        for (wchar_t& digit : hash)
            if (digit >= L'A' && digit <= L'F')
                digit = static_cast<wchar_t>(digit | 0x20);
        return hash.find_first_not_of(L"0123456789abcdef") == std::wstring::npos ? hash : std::wstring();
    }
    return {};
}

} // namespace velk::doctor
