#include "devkit/sourcesafe/registration.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/registry.h"

namespace velk::devkit::vss {
namespace {

const std::wstring classes = L"Software\\Classes\\";
const std::wstring clsidText = L"{783CD4E4-9D54-11CF-B8EE-00608CC9A71F}";
const std::wstring classKey = classes + L"CLSID\\" + clsidText;
const std::wstring nameKey = classes + L"SourceSafe";
const std::wstring versionedKey = classes + L"SourceSafe.0";
const std::wstring installKey = L"Software\\Microsoft\\SourceSafe";
const std::wstring installStop = L"Software\\Microsoft";
constexpr wchar_t serverPathValue[] = L"SCCServerPath";

// clang-format off
const struct {
    std::wstring key;
    const wchar_t* value;
    std::wstring text; // empty: the path of this DLL
} rows[] = {
    {classKey,                               L"",               L"SourceSafe Database"},
    {classKey + L"\\InprocServer32",         L"",               L""},
    {classKey + L"\\InprocServer32",         L"ThreadingModel", L"Apartment"},
    {classKey + L"\\ProgID",                 L"",               L"SourceSafe.0"},
    {classKey + L"\\VersionIndependentProgID", L"",             L"SourceSafe"},
    {nameKey,                                L"",               L"SourceSafe Database"},
    {nameKey + L"\\CLSID",                   L"",               clsidText},
    {nameKey + L"\\CurVer",                  L"",               L"SourceSafe.0"},
    {versionedKey,                           L"",               L"SourceSafe Database"},
    {versionedKey + L"\\CLSID",              L"",               clsidText},
    {installKey,                             serverPathValue,   L""},
};
// clang-format on

} // namespace

void registerServer()
{
    try {
        for (const auto& row : rows)
            registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, row.key).get(), row.value,
                              row.text.empty() ? module::path() : row.text);
    } catch (const Error&) {
        swallow(L"registerServer", L"taking back a failed registration; the first failure is what counts",
                [] { unregisterServer(); });
        throw;
    }
}

void unregisterServer()
{
    for (const std::wstring& key : {classKey, nameKey, versionedKey})
        registry::removeTree(HKEY_LOCAL_MACHINE, key);
    unique_key key;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, installKey.c_str(), 0, KEY_READ | KEY_WRITE, key.put()) == ERROR_SUCCESS)
        RegDeleteValueW(key.get(), serverPathValue);
    key.reset();
    registry::removeEmptyUpTo(HKEY_LOCAL_MACHINE, installKey, installStop);
}

} // namespace velk::devkit::vss
