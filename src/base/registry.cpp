// Tested in tests/unit/scc/discoveryTest.cpp.
#include "base/registry.h"

#include "base/boundary.h"
#include "base/text.h"

#include <array>

namespace velk::registry {
namespace {

constexpr size_t ansiRoom = 2048; // characters
constexpr size_t longestValueName = 16383;

void check(LONG status)
{
    if (status != ERROR_SUCCESS)
        throw Error::fromWin32(static_cast<DWORD>(status));
}

bool isEmpty(HKEY key) noexcept
{
    DWORD keys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                            nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

} // namespace

unique_key createKey(HKEY root, const std::wstring& path)
{
    unique_key key;
    check(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.put(), nullptr));
    return key;
}

void setText(HKEY key, const std::wstring& name, const std::wstring& text)
{
    check(RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

void setNumber(HKEY key, const std::wstring& name, DWORD number)
{
    check(RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number));
}

std::optional<std::wstring> textAt(HKEY root, const std::wstring& path, const std::wstring& name, size_t longest)
{
    unique_key key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
        return std::nullopt;
    DWORD type = 0;
    DWORD size = 0;
    const auto query = [&](BYTE* data) {
        return RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, data, &size) == ERROR_SUCCESS;
    };
    if (!query(nullptr) || size > (longest + 1) * sizeof(wchar_t))
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t) + 1, L'\0'); // whoever writes meanwhile gets no more room
    if (!query(reinterpret_cast<BYTE*>(text.data())) || type != REG_SZ)
        return std::nullopt;
    text.resize(size / sizeof(wchar_t));
    if (text.ends_with(L'\0'))
        text.pop_back();
    return text;
}

std::vector<std::wstring> valueNames(HKEY root, const std::wstring& path, size_t most)
{
    std::vector<std::wstring> names;
    unique_key key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
        return names;
    std::wstring name(longestValueName + 1, L'\0');
    for (DWORD index = 0; index < most; ++index) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumValueW(key.get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        names.push_back(name.substr(0, length));
    }
    return names;
}

void removeValue(HKEY root, const std::wstring& path, const std::wstring& name)
{
    unique_key key;
    LONG status = RegOpenKeyExW(root, path.c_str(), 0, KEY_SET_VALUE, key.put());
    if (status == ERROR_SUCCESS)
        status = RegDeleteValueW(key.get(), name.c_str());
    if (status != ERROR_FILE_NOT_FOUND)
        check(status);
}

void removeTree(HKEY root, const std::wstring& path)
{
    unique_key key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | KEY_WRITE, key.put()) == ERROR_FILE_NOT_FOUND)
        return;
    // The registry removes only keys without keys below them.
    std::array<wchar_t, 256> name{};
    while (RegEnumKeyW(key.get(), 0, name.data(), static_cast<DWORD>(name.size())) == ERROR_SUCCESS)
        removeTree(root, path + L"\\" + name.data());
    key.reset();
    check(RegDeleteKeyW(root, path.c_str()));
}

void removeEmptyUpTo(HKEY root, std::wstring path, const std::wstring& stop) noexcept
{
    while (path.size() > stop.size()) {
        unique_key key;
        if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS && !isEmpty(key.get()))
            return;
        key.reset();
        RegDeleteKeyW(root, path.c_str());
        path.resize(path.rfind(L'\\'));
    }
}

bool hasAnsiValue(HKEY root, std::wstring_view path, std::wstring_view name) noexcept
{
    bool isThere = false;
    swallow(L"registry", L"what cannot be read counts as absent", [&] {
        unique_key key;
        std::array<BYTE, ansiRoom> data{};
        auto size = static_cast<DWORD>(data.size());
        isThere =
            RegOpenKeyExA(root, toAnsi(path).c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS &&
            RegQueryValueExA(key.get(), toAnsi(name).c_str(), nullptr, nullptr, data.data(), &size) == ERROR_SUCCESS;
    });
    return isThere;
}

std::optional<std::pair<std::wstring, std::wstring>> ansiValueAt(HKEY root, const std::wstring& path, uint32_t index)
{
    unique_key key;
    if (RegOpenKeyA(root, toAnsi(path).c_str(), key.put()) != ERROR_SUCCESS)
        return std::nullopt;
    std::array<char, ansiRoom> name{};
    std::array<BYTE, ansiRoom> data{};
    auto nameLength = static_cast<DWORD>(name.size());
    auto dataLength = static_cast<DWORD>(data.size());
    if (RegEnumValueA(key.get(), index, name.data(), &nameLength, nullptr, nullptr, data.data(), &dataLength) !=
        ERROR_SUCCESS)
        return std::nullopt;
    // The data's length counts its closing NUL.
    const std::string_view text(reinterpret_cast<const char*>(data.data()), dataLength > 0 ? dataLength - 1 : 0);
    return std::pair(toWide({name.data(), nameLength}), toWide(text));
}

} // namespace velk::registry
