// Tested in tests/tools/doctor/machine/absurdTest.cpp.
#include "registryValue.h"

#include "base/text.h"
#include "base/unique_any.h"

namespace velk::doctor {
namespace {

constexpr DWORD mostBytes = 1024 * 1024;
constexpr size_t longestShown = 200; // characters

RegistryValue failed(LONG status)
{
    using enum RegistryValue::State;
    const bool isMissing = status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
    RegistryValue value;
    value.state = isMissing ? missing : status == ERROR_ACCESS_DENIED ? denied : unreadable;
    value.code = static_cast<DWORD>(status);
    return value;
}

std::wstring expanded(const std::wstring& text)
{
    std::wstring result(MAX_PATH, L'\0');
    DWORD length = ExpandEnvironmentStringsW(text.c_str(), result.data(), static_cast<DWORD>(result.size()));
    if (length > result.size()) {
        result.resize(length);
        length = ExpandEnvironmentStringsW(text.c_str(), result.data(), length);
    }
    if (length == 0 || length > result.size())
        return text;
    result.resize(length - 1);
    return result;
}

void understand(RegistryValue& value, const std::vector<BYTE>& data)
{
    using enum RegistryValue::State;
    value.state = other;
    if (value.type == REG_DWORD && value.size == sizeof value.number) {
        value.state = number;
        memcpy(&value.number, data.data(), sizeof value.number);
    } else if (value.type == REG_SZ || value.type == REG_EXPAND_SZ) {
        // Whoever wrote it may have left out the closing NUL, or half of a character.
        value.state = RegistryValue::State::text;
        value.text.resize(value.size / sizeof(wchar_t));
        memcpy(value.text.data(), data.data(), value.text.size() * sizeof(wchar_t));
        value.text.resize(wcslen(value.text.c_str()));
        value.written = value.text;
        if (value.type == REG_EXPAND_SZ)
            value.text = expanded(value.text);
    }
}

} // namespace

RegistryValue readValue(HKEY root, const std::wstring& path, const std::wstring& name, REGSAM view)
{
    unique_key key;
    LONG status = RegOpenKeyExW(root, path.c_str(), 0, KEY_QUERY_VALUE | view, key.put());
    if (status != ERROR_SUCCESS)
        return failed(status);
    RegistryValue value;
    status = RegQueryValueExW(key.get(), name.c_str(), nullptr, &value.type, nullptr, &value.size);
    if (status == ERROR_SUCCESS && value.size > mostBytes) {
        value.state = RegistryValue::State::other;
        return value;
    }
    // Whoever writes meanwhile gets no more room.
    std::vector<BYTE> data(value.size + sizeof(wchar_t));
    value.size = static_cast<DWORD>(data.size());
    if (status == ERROR_SUCCESS)
        status = RegQueryValueExW(key.get(), name.c_str(), nullptr, &value.type, data.data(), &value.size);
    if (status != ERROR_SUCCESS)
        return failed(status);
    understand(value, data);
    return value;
}

RegistryValue readKey(HKEY root, const std::wstring& path, REGSAM view)
{
    unique_key key;
    const LONG status = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.put());
    if (status != ERROR_SUCCESS)
        return failed(status);
    RegistryValue value;
    value.state = RegistryValue::State::other;
    return value;
}

std::vector<std::wstring> keysBelow(HKEY root, const std::wstring& path, size_t most)
{
    std::vector<std::wstring> names;
    unique_key key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_ENUMERATE_SUB_KEYS, key.put()) != ERROR_SUCCESS)
        return names;
    wchar_t name[512];
    for (DWORD index = 0; index < most; ++index) {
        const LONG status = RegEnumKeyW(key.get(), index, name, ARRAYSIZE(name));
        if (status == ERROR_SUCCESS)
            names.emplace_back(name);
        else if (status != ERROR_MORE_DATA)
            break;
    }
    return names;
}

std::wstring shownText(const std::wstring& text)
{
    std::wstring result = text.size() > longestShown ? text.substr(0, longestShown) + L"..." : text;
    for (wchar_t& character : result)
        if (character < L' ' || character == 0x7F)
            character = L'?';
    return result;
}

std::wstring shown(const RegistryValue& value)
{
    using enum RegistryValue::State;
    switch (value.state) {
    case missing:
        return L"nothing";
    case denied:
        return L"something that this user may not read";
    case unreadable:
        return L"something that cannot be read (" + numberText(static_cast<int32_t>(value.code)) + L")";
    case text:
        return value.text.empty() ? L"an empty text" : L"\"" + shownText(value.text) + L"\"";
    case number:
        return numberText(static_cast<int32_t>(value.number));
    default:
        break;
    }
    return L"something that is no text (type " + numberText(static_cast<int32_t>(value.type)) + L", " +
           numberText(static_cast<int32_t>(value.size)) + L" bytes)";
}

} // namespace velk::doctor
